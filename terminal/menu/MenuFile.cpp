// SPDX-License-Identifier: BSD-3-Clause
#include "menu/MenuFile.h"

#include <QFile>
#include <QJsonDocument>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTextCodec>
#include <QVector>

#include <algorithm>
#include <cmath>
#include <json/json.h>
#include <limits>
#include <memory>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// Objects and arrays inside one another; the format needs three.
constexpr int MaximumNesting = 8;

constexpr int FormatVersion = 1;

const QStringList& kinds()
{
    static const QStringList list{QStringLiteral("menu"),      QStringLiteral("bool"),
                                  QStringLiteral("number"),    QStringLiteral("text"),
                                  QStringLiteral("selection"), QStringLiteral("command")};
    return list;
}

QString quoted(const QString& text)
{
    constexpr int Shown = 40;
    return QLatin1Char('"') + (text.size() > Shown ? text.left(Shown) + QStringLiteral("…") : text)
           + QLatin1Char('"');
}

QString textOf(const Json::Value& value)
{
    return QString::fromStdString(value.asString());
}

/// The JSON reader takes a bare carriage return for the end of a line; so do all counts of lines then.
QByteArray withLineFeeds(QByteArray content)
{
    for (int i = 0; i < content.size(); ++i) {
        if (content.at(i) == '\r' && (i + 1 == content.size() || content.at(i + 1) != '\n')) {
            content[i] = '\n';
        }
    }
    return content;
}

/// Reads the content of one menu file and collects what is wrong with it.
class Reader
{
public:
    Reader(const QByteArray& content, const QString& name)
        : m_content(withLineFeeds(content))
        , m_name(name)
    {
    }

    QList<MenuItem> read()
    {
        Json::Value root;
        if (!isTooLarge() && isUtf8() && !isNestedTooDeeply() && parse(&root) && isStrictJson()) {
            readRoot(root);
            checkParents();
        }
        return m_items;
    }

    QStringList faults()
    {
        std::stable_sort(m_faults.begin(), m_faults.end(),
                         [](const Fault& left, const Fault& right) { return left.line < right.line; });
        QStringList texts;
        for (const Fault& fault : qAsConst(m_faults)) {
            texts.append(QStringLiteral("%1:%2: %3; %4")
                             .arg(m_name, QString::number(fault.line), fault.what, fault.mend));
        }
        return texts;
    }

private:
    struct Fault
    {
        int line;
        QString what;
        QString mend;
    };

    void fail(int line, const QString& what, const QString& mend) { m_faults.append({line, what, mend}); }
    void fail(const Json::Value& value, const QString& what, const QString& mend)
    {
        fail(lineOf(value), what, mend);
    }

    int lineOf(const Json::Value& value) const
    {
        const auto end =
            static_cast<int>(std::clamp<std::ptrdiff_t>(value.getOffsetStart(), 0, m_content.size()));
        return 1 + static_cast<int>(std::count(m_content.cbegin(), m_content.cbegin() + end, '\n'));
    }

    bool isTooLarge()
    {
        if (m_content.size() <= MenuFile::MaximumSize) {
            return false;
        }
        fail(1, QStringLiteral("the file has %1 bytes").arg(m_content.size()),
             QStringLiteral("a menu file has at most %1").arg(MenuFile::MaximumSize));
        return true;
    }

    bool isUtf8()
    {
        const QTextCodec* const utf8 = QTextCodec::codecForName("UTF-8");
        int line = 0;
        const QList<QByteArray> lines = m_content.split('\n');
        for (const QByteArray& bytes : lines) {
            ++line;
            QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
            utf8->toUnicode(bytes.constData(), bytes.size(), &state);
            if (state.invalidChars > 0 || state.remainingChars > 0 || bytes.contains('\0')) {
                fail(line, QStringLiteral("these bytes are no UTF-8 text"),
                     QStringLiteral("save the file as UTF-8"));
            }
        }
        return m_faults.isEmpty();
    }

    bool isNestedTooDeeply()
    {
        int line = 1;
        int depth = 0;
        bool inText = false;
        for (int i = 0; i < m_content.size(); ++i) {
            const char c = m_content.at(i);
            line += c == '\n' ? 1 : 0;
            if (inText) {
                i += c == '\\' ? 1 : 0;
                inText = c != '"';
            } else if (c == '"') {
                inText = true;
            } else if (c == '{' || c == '[') {
                if (++depth > MaximumNesting) {
                    fail(line,
                         QStringLiteral("more than %1 braces and brackets stand inside one another")
                             .arg(MaximumNesting),
                         QStringLiteral(
                             "items stand side by side in \"items\" and name their menu by \"parent\""));
                    return true;
                }
            } else if (c == '}' || c == ']') {
                --depth;
            }
        }
        return false;
    }

    bool parse(Json::Value* root)
    {
        Json::CharReaderBuilder builder;
        Json::CharReaderBuilder::strictMode(&builder.settings_);
        const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
        std::string errors;
        try {
            if (reader->parse(m_content.constData(), m_content.constData() + m_content.size(), root,
                              &errors)) {
                return true;
            }
        } catch (const Json::Exception& exception) {
            errors = std::string("* Line 1, Column 1\n  ") + exception.what() + '\n';
        }
        // "* Line 3, Column 5\n  Missing ',' or '}' in object declaration\n"
        static const QRegularExpression pattern(
            QStringLiteral("\\* Line (\\d+), Column (\\d+)\\n  ([^\\n]*)"));
        auto match = pattern.globalMatch(QString::fromStdString(errors));
        while (match.hasNext()) {
            const QRegularExpressionMatch found = match.next();
            QString what = found.captured(3);
            if (what.endsWith(QLatin1Char('.'))) {
                what.chop(1);
            }
            const bool duplicate = what.startsWith(QLatin1String("Duplicate key"));
            if (duplicate) {
                what = what.replace(QLatin1Char('\''), QLatin1Char('"'));
            }
            if (!what.isEmpty())
                what[0] = what.at(0).toLower();
            fail(found.captured(1).toInt(),
                 duplicate ? what
                           : QStringLiteral("this is no JSON, column %1: %2").arg(found.captured(2), what),
                 duplicate ? QStringLiteral("write each key once in an object")
                           : QStringLiteral(
                               "texts stand in double quotes, commas between entries and not after the "
                               "last, and there are no comments"));
        }
        if (m_faults.isEmpty()) {
            fail(1, QStringLiteral("this is no JSON"),
                 QStringLiteral("write {\"version\": 1, \"items\": […]}"));
        }
        return false;
    }

    /// The reader lets comments between entries pass, even in its strict mode, and numbers such as 007.
    bool isStrictJson()
    {
        QJsonParseError error;
        QJsonDocument::fromJson(m_content, &error);
        if (error.error == QJsonParseError::NoError) {
            return true;
        }
        fail(1 + m_content.left(error.offset).count('\n'),
             QStringLiteral("this is no JSON: %1").arg(error.errorString()),
             QStringLiteral("there are no comments, and no zeros before a number"));
        return false;
    }

    void checkKeys(const Json::Value& object, const QStringList& known, const QString& where)
    {
        for (const std::string& name : object.getMemberNames()) {
            const QString key = QString::fromStdString(name);
            if (!known.contains(key)) {
                fail(object[name], QStringLiteral("%1 has no key %2").arg(where, quoted(key)),
                     QStringLiteral("it has: %1").arg(known.join(QStringLiteral(", "))));
            }
        }
    }

    /// A text of an object that may be missing. @p longText may have line breaks.
    QString readText(const Json::Value& object, const char* key, bool longText = false)
    {
        const Json::Value& value = object[key];
        if (!object.isMember(key)) {
            return QString();
        }
        const QString name = QStringLiteral("\"%1\"").arg(QLatin1String(key));
        if (!value.isString()) {
            fail(value, QStringLiteral("%1 is no text").arg(name),
                 QStringLiteral("write it in double quotes"));
            return QString();
        }
        QString text = textOf(value);
        if (text.size() > MenuFile::MaximumTextLength) {
            fail(value, QStringLiteral("%1 has %2 characters").arg(name).arg(text.size()),
                 QStringLiteral("a text has at most %1").arg(MenuFile::MaximumTextLength));
        }
        const auto isControl = [longText](QChar c) {
            return c.category() == QChar::Other_Control && !(longText && c == QLatin1Char('\n'));
        };
        if (std::any_of(text.cbegin(), text.cend(), isControl)) {
            fail(value, QStringLiteral("%1 has a line break or another control character").arg(name),
                 QStringLiteral("write one line"));
        }
        return text;
    }

    /// A whole number of an object from @p minimum to @p maximum; nothing when it is missing or a fault.
    std::optional<int> readWhole(const Json::Value& object, const char* key, int minimum, int maximum)
    {
        if (!object.isMember(key)) {
            return std::nullopt;
        }
        const Json::Value& value = object[key];
        if (!value.isInt() || value.asInt() < minimum || value.asInt() > maximum) {
            fail(value,
                 QStringLiteral("\"%1\" is no whole number from %2 to %3")
                     .arg(QLatin1String(key))
                     .arg(minimum)
                     .arg(maximum),
                 QStringLiteral("write for example \"%1\": %2").arg(QLatin1String(key)).arg(minimum));
            return std::nullopt;
        }
        return value.asInt();
    }

    void readRoot(const Json::Value& root)
    {
        if (!root.isObject()) {
            fail(root, QStringLiteral("the file holds no object"),
                 QStringLiteral("write {\"version\": 1, \"items\": […]}"));
            return;
        }
        checkKeys(root, {QStringLiteral("version"), QStringLiteral("context"), QStringLiteral("items")},
                  QStringLiteral("a menu file"));
        if (!root.isMember("version")) {
            fail(root, QStringLiteral("\"version\" is missing"), QStringLiteral("write \"version\": 1"));
        } else if (!root["version"].isInt() || root["version"].asInt() != FormatVersion) {
            fail(root["version"], QStringLiteral("this version of the format is not known"),
                 QStringLiteral("write \"version\": 1"));
        }
        const QString context = readText(root, "context");
        const Json::Value& items = root["items"];
        if (!items.isArray()) {
            fail(root.isMember("items") ? items : root,
                 root.isMember("items") ? QStringLiteral("\"items\" is no list")
                                        : QStringLiteral("\"items\" is missing"),
                 QStringLiteral("write \"items\": [{\"id\": 1, \"kind\": \"bool\", \"text\": \"…\"}]"));
            return;
        }
        if (items.size() > MenuFile::MaximumItems) {
            fail(items, QStringLiteral("there are %1 items").arg(items.size()),
                 QStringLiteral("a menu file has at most %1").arg(MenuFile::MaximumItems));
            return;
        }
        for (const Json::Value& item : items) {
            readItem(item, context);
        }
    }

    void readItem(const Json::Value& value, const QString& context)
    {
        if (!value.isObject()) {
            fail(value, QStringLiteral("an item is no object"),
                 QStringLiteral("write {\"id\": 1, \"kind\": \"bool\", \"text\": \"…\"}"));
            return;
        }
        checkKeys(value,
                  {QStringLiteral("id"), QStringLiteral("kind"), QStringLiteral("text"),
                   QStringLiteral("parent"), QStringLiteral("help"), QStringLiteral("default"),
                   QStringLiteral("decimals"), QStringLiteral("maximumLength"), QStringLiteral("confirm")},
                  QStringLiteral("an item"));
        MenuItem item;
        item.context = context;
        item.id = readWhole(value, "id", 1, std::numeric_limits<int>::max()).value_or(0);
        if (!value.isMember("id")) {
            fail(value, QStringLiteral("the item has no \"id\""),
                 QStringLiteral("give it a number of its own"));
        }
        item.kind = readText(value, "kind");
        if (!value.isMember("kind") || (value["kind"].isString() && !kinds().contains(item.kind))) {
            fail(value.isMember("kind") ? value["kind"] : value,
                 value.isMember("kind") ? QStringLiteral("there is no kind %1").arg(quoted(item.kind))
                                        : QStringLiteral("the item has no \"kind\""),
                 QStringLiteral("write one of %1").arg(kinds().join(QStringLiteral(", "))));
            item.kind.clear();
        }
        item.text = readText(value, "text");
        if (!value.isMember("text") || (value["text"].isString() && item.text.trimmed().isEmpty())) {
            fail(value.isMember("text") ? value["text"] : value, QStringLiteral("the item has no text"),
                 QStringLiteral("write what the person reads, \"text\": \"…\""));
        }
        item.parentId = readWhole(value, "parent", 0, std::numeric_limits<int>::max()).value_or(0);
        item.helpFile = readText(value, "help");
        item.decimals = readWhole(value, "decimals", 0, MenuFile::MaximumDecimals).value_or(-1);
        item.maximumLength = readWhole(value, "maximumLength", 1, MenuFile::MaximumTextLength).value_or(0);
        item.confirmation = readText(value, "confirm", true);
        checkOwner(value, item, "decimals", "number");
        checkOwner(value, item, "maximumLength", "text");
        checkOwner(value, item, "confirm", "command");
        item.defaultValue = readDefault(value, item);

        if (item.id != 0 && m_lines.contains(item.id)) {
            fail(value["id"],
                 QStringLiteral("the id %1 is that of the item in line %2")
                     .arg(item.id)
                     .arg(m_lines.value(item.id)),
                 QStringLiteral("give each item a number of its own"));
        } else {
            m_lines.insert(item.id, lineOf(value.isMember("id") ? value["id"] : value));
        }
        m_parentLines.append(lineOf(value.isMember("parent") ? value["parent"] : value));
        m_items.append(item);
    }

    /// A key that only items of one kind have.
    void checkOwner(const Json::Value& value, const MenuItem& item, const char* key, const char* kind)
    {
        if (value.isMember(key) && !item.kind.isEmpty() && item.kind != QLatin1String(kind)) {
            fail(value[key],
                 QStringLiteral("an item of the kind %1 has no \"%2\"").arg(item.kind, QLatin1String(key)),
                 QStringLiteral("only one of the kind %1 has it").arg(QLatin1String(kind)));
        }
    }

    QVariant readDefault(const Json::Value& object, const MenuItem& item)
    {
        if (!object.isMember("default") || item.kind.isEmpty()) {
            return QVariant();
        }
        const Json::Value& value = object["default"];
        const auto wrong = [&](const QString& right) {
            fail(value, QStringLiteral("this \"default\" does not fit an item of the kind %1").arg(item.kind),
                 right);
            return QVariant();
        };
        if (item.kind == QLatin1String("bool")) {
            return value.isBool() ? QVariant(value.asBool()) : wrong(QStringLiteral("write true or false"));
        }
        if (item.kind == QLatin1String("number")) {
            if (!value.isNumeric() || value.isBool() || !std::isfinite(value.asDouble())) {
                return wrong(QStringLiteral("write a number without quotes"));
            }
            if (item.decimals != 0) {
                return value.asDouble();
            }
            return value.isInt() ? QVariant(value.asInt())
                                 : wrong(QStringLiteral("with \"decimals\": 0 it is a whole number"));
        }
        if (item.kind == QLatin1String("text") || item.kind == QLatin1String("selection")) {
            if (!value.isString()) {
                return wrong(QStringLiteral("write it in double quotes"));
            }
            const QString text = readText(object, "default");
            if (item.maximumLength > 0 && text.size() > item.maximumLength) {
                return wrong(QStringLiteral("it has more characters than \"maximumLength\""));
            }
            return text;
        }
        return wrong(QStringLiteral("menus and commands have no value"));
    }

    void checkParents()
    {
        QMap<int, const MenuItem*> byId;
        for (const MenuItem& item : qAsConst(m_items)) {
            if (!byId.contains(item.id)) {
                byId.insert(item.id, &item);
            }
        }
        QSet<int> told;
        for (int i = 0; i < m_items.size(); ++i) {
            const MenuItem& item = m_items.at(i);
            const int line = m_parentLines.at(i);
            if (item.parentId == 0) {
                continue;
            }
            const MenuItem* const parent = byId.value(item.parentId);
            if (parent == nullptr) {
                fail(line, QStringLiteral("the parent %1 is not there").arg(item.parentId),
                     QStringLiteral("name the id of an item of the kind menu, or leave \"parent\" out"));
                continue;
            }
            if (!parent->kind.isEmpty() && parent->kind != QLatin1String("menu")) {
                fail(line,
                     QStringLiteral("the parent %1 is of the kind %2").arg(item.parentId).arg(parent->kind),
                     QStringLiteral("name the id of an item of the kind menu"));
                continue;
            }
            checkChain(item, line, byId, &told);
        }
    }

    /// Follows the parents of an item to the top.
    void checkChain(const MenuItem& item, int line, const QMap<int, const MenuItem*>& byId, QSet<int>* told)
    {
        QStringList way{QString::number(item.id)};
        QSet<int> passed{item.id};
        for (const MenuItem* at = byId.value(item.parentId); at != nullptr; at = byId.value(at->parentId)) {
            way.append(QString::number(at->id));
            if (at->id == item.id) {
                if (!told->intersects(passed)) {
                    fail(line,
                         QStringLiteral("the menus stand inside one another in a ring: %1")
                             .arg(way.join(QStringLiteral(" in "))),
                         QStringLiteral("let one of them stand at the top, without \"parent\""));
                }
                told->unite(passed);
                return;
            }
            if (passed.contains(at->id)) {
                return; // the ring that it hangs on is told where it is
            }
            passed.insert(at->id);
        }
        // The item itself is one level when it is a menu.
        const int depth = passed.size() - (item.kind == QLatin1String("menu") ? 0 : 1);
        if (depth > MenuFile::MaximumDepth) {
            fail(line, QStringLiteral("%1 menus stand inside one another").arg(depth),
                 QStringLiteral("a menu file has at most %1 levels").arg(MenuFile::MaximumDepth));
        }
    }

    const QByteArray m_content;
    const QString m_name;
    QVector<Fault> m_faults;
    QList<MenuItem> m_items;
    QMap<int, int> m_lines;     ///< Of the ids.
    QVector<int> m_parentLines; ///< By the place of the item.
};

} // namespace

std::optional<MenuFile> MenuFile::load(const QString& path, QStringList* faults)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        faults->append(
            QStringLiteral("%1: the menu file cannot be read: %2; check the name and the right to read it")
                .arg(path, file.errorString()));
        return std::nullopt;
    }
    // No more than is needed to see that it is too large: it may be a device that never ends.
    const QByteArray content = file.read(MaximumSize + 1);
    if (file.error() != QFileDevice::NoError) {
        faults->append(QStringLiteral("%1: the menu file cannot be read: %2; give a file")
                           .arg(path, file.errorString()));
        return std::nullopt;
    }
    if (content.size() > MaximumSize) {
        faults->append(
            QStringLiteral("%1:1: the file has more than %2 bytes; divide the menu or shorten its texts")
                .arg(path, QString::number(MaximumSize)));
        return std::nullopt;
    }
    return parse(content, path, faults);
}

std::optional<MenuFile> MenuFile::parse(const QByteArray& content, const QString& name, QStringList* faults)
{
    Reader reader(content.startsWith("\xEF\xBB\xBF") ? content.mid(3) : content, name);
    MenuFile menu;
    menu.m_items = reader.read();
    const QStringList found = reader.faults();
    if (!found.isEmpty()) {
        faults->append(found);
        return std::nullopt;
    }
    return menu;
}

const MenuItem* MenuFile::item(int id) const
{
    const auto found =
        std::find_if(m_items.cbegin(), m_items.cend(), [id](const MenuItem& item) { return item.id == id; });
    return found != m_items.cend() ? &*found : nullptr;
}

} // namespace Terminal
} // namespace Brimvale
