// SPDX-License-Identifier: BSD-3-Clause
//
// Menu files of plug-ins.
#include "Fuzzing.h"
#include "menu/MenuFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

using Brimvale::MenuItem;
using Brimvale::Terminal::MenuFile;

namespace
{

// A name that a message must not take for a place to fill in.
const QString Name = QStringLiteral("100%2.json");

bool isSame(const MenuItem& left, const MenuItem& right)
{
    return left.id == right.id && left.kind == right.kind && left.text == right.text
           && left.parentId == right.parentId && left.helpFile == right.helpFile
           && left.defaultValue == right.defaultValue && left.decimals == right.decimals
           && left.maximumLength == right.maximumLength && left.confirmation == right.confirmation
           && left.context == right.context;
}

QJsonObject toJson(const MenuItem& item)
{
    QJsonObject object{{QStringLiteral("id"), item.id},
                       {QStringLiteral("kind"), item.kind},
                       {QStringLiteral("text"), item.text},
                       {QStringLiteral("parent"), item.parentId},
                       {QStringLiteral("help"), item.helpFile}};
    if (item.defaultValue.isValid()) {
        object.insert(QStringLiteral("default"), QJsonValue::fromVariant(item.defaultValue));
    }
    if (item.decimals >= 0) {
        object.insert(QStringLiteral("decimals"), item.decimals);
    }
    if (item.maximumLength > 0) {
        object.insert(QStringLiteral("maximumLength"), item.maximumLength);
    }
    if (!item.confirmation.isEmpty()) {
        object.insert(QStringLiteral("confirm"), item.confirmation);
    }
    return object;
}

void checkItem(const MenuItem& item, const MenuFile& menu)
{
    REQUIRE(item.id >= 1 && item.parentId >= 0 && menu.item(item.id) == &item);
    REQUIRE(QStringList({QStringLiteral("menu"), QStringLiteral("bool"), QStringLiteral("number"),
                         QStringLiteral("text"), QStringLiteral("selection"), QStringLiteral("command")})
                .contains(item.kind));
    REQUIRE(!item.text.trimmed().isEmpty());
    for (const QString& text :
         {item.text, item.helpFile, item.confirmation, item.context,
          item.defaultValue.type() == QVariant::String ? item.defaultValue.toString() : QString()}) {
        REQUIRE(text.size() <= MenuFile::MaximumTextLength);
    }
    REQUIRE(item.decimals >= -1 && item.decimals <= MenuFile::MaximumDecimals);
    REQUIRE(item.decimals == -1 || item.kind == QLatin1String("number"));
    REQUIRE(item.maximumLength == 0 || item.kind == QLatin1String("text"));
    REQUIRE(item.confirmation.isEmpty() || item.kind == QLatin1String("command"));
    int menus = item.kind == QLatin1String("menu") ? 1 : 0;
    for (const MenuItem* at = &item; at->parentId != 0; ++menus) {
        at = menu.item(at->parentId);
        REQUIRE(at != nullptr && at->kind == QLatin1String("menu") && menus < MenuFile::MaximumDepth);
    }
}

} // namespace

FUZZING_WITHOUT_LEAK_CHECK

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray content = Fuzzing::Input(data, size).rest();
    QStringList faults;
    const std::optional<MenuFile> menu = MenuFile::parse(content, Name, &faults);
    REQUIRE(menu.has_value() == faults.isEmpty());

    if (!menu) {
        const int lines = QByteArray(content).replace("\r\n", "\n").replace('\r', '\n').count('\n') + 1;
        int previous = 1;
        for (const QString& fault : qAsConst(faults)) {
            const int line = Fuzzing::lineOf(fault, Name);
            REQUIRE(fault.contains(QLatin1String("; ")));
            REQUIRE(line >= previous && line <= lines);
            previous = line;
        }
        return 0;
    }

    REQUIRE(menu->items().size() <= MenuFile::MaximumItems);
    QJsonArray items;
    QSet<int> ids;
    for (const MenuItem& item : menu->items()) {
        checkItem(item, *menu);
        REQUIRE(!ids.contains(item.id));
        ids.insert(item.id);
        items.append(toJson(item));
    }
    const QString context = items.isEmpty() ? QString() : menu->items().first().context;
    const QByteArray text = QJsonDocument(QJsonObject{{QStringLiteral("version"), 1},
                                                      {QStringLiteral("context"), context},
                                                      {QStringLiteral("items"), items}})
                                .toJson();
    const std::optional<MenuFile> again = MenuFile::parse(text, Name, &faults);
    REQUIRE((again && faults.isEmpty()) || text.size() > MenuFile::MaximumSize);
    REQUIRE(!again
            || std::equal(menu->items().cbegin(), menu->items().cend(), again->items().cbegin(),
                          again->items().cend(), isSame));

    // What is accepted is JSON.
    QJsonParseError error;
    QJsonDocument::fromJson(content.startsWith("\xEF\xBB\xBF") ? content.mid(3) : content, &error);
    REQUIRE(error.error == QJsonParseError::NoError);
    return 0;
}
