// SPDX-License-Identifier: BSD-3-Clause
#include "Recipe.h"

#include "JsonLines.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <cmath>

namespace
{

/// Reads the content of one recipe file and notes every fault with its place.
class Reader
{
    Q_DECLARE_TR_FUNCTIONS(RecipeFile)

public:
    Reader(const QByteArray& content, const QString& fileName, double defaultTolerance, RecipeFile& file)
        : m_lines(content)
        , m_fileName(fileName)
        , m_defaultTolerance(defaultTolerance)
        , m_file(file)
    {
    }

    void read(const QJsonObject& root)
    {
        checkKeys(root, QString(), {QStringLiteral("recipes")});
        const QJsonValue recipes = root.value(QStringLiteral("recipes"));
        if (!recipes.isArray()) {
            fault(QStringLiteral("recipes"), tr("\"recipes\" must be a list of recipes"));
            return;
        }
        const QJsonArray list = recipes.toArray();
        if (list.isEmpty()) {
            fault(QStringLiteral("recipes"), tr("there are no recipes; at least one is needed"));
        }
        QSet<QString> names;
        for (int index = 0; index < list.size(); ++index) {
            const QString path = QStringLiteral("recipes/%1").arg(index);
            const int faults = m_file.faults.size();
            const Recipe recipe = readRecipe(list.at(index), path);
            if (!recipe.name.isEmpty() && names.contains(recipe.name)) {
                fault(path + QStringLiteral("/name"),
                      tr("there is a recipe \"%1\" already; give it another name").arg(recipe.name));
            }
            names.insert(recipe.name);
            if (m_file.faults.size() == faults) {
                m_file.recipes.append(recipe);
            }
        }
    }

private:
    Recipe readRecipe(const QJsonValue& value, const QString& path)
    {
        Recipe recipe;
        if (!value.isObject()) {
            fault(path, tr("a recipe must be an object with \"name\" and \"components\""));
            return recipe;
        }
        const QJsonObject object = value.toObject();
        checkKeys(object, path, {QStringLiteral("name"), QStringLiteral("components")});
        recipe.name = readName(object, path);
        const QJsonValue components = object.value(QStringLiteral("components"));
        const QString place = path + QStringLiteral("/components");
        if (!components.isArray()) {
            fault(place, tr("\"components\" must be a list of components"));
            return recipe;
        }
        const QJsonArray list = components.toArray();
        if (list.isEmpty() || list.size() > RecipeFile::MaximumComponents) {
            fault(place, tr("a recipe has 1 to %1 components, this one %2")
                             .arg(RecipeFile::MaximumComponents)
                             .arg(list.size()));
            return recipe;
        }
        QSet<QString> names;
        for (int index = 0; index < list.size(); ++index) {
            const QString here = place + QStringLiteral("/%1").arg(index);
            const Component component = readComponent(list.at(index), here);
            if (!component.name.isEmpty() && names.contains(component.name)) {
                fault(here + QStringLiteral("/name"),
                      tr("there is a component \"%1\" already; give it another name, such as \"%1 (2)\"")
                          .arg(component.name));
            }
            names.insert(component.name);
            recipe.components.append(component);
        }
        return recipe;
    }

    Component readComponent(const QJsonValue& value, const QString& path)
    {
        Component component;
        if (!value.isObject()) {
            fault(path, tr("a component must be an object with \"name\" and \"target_g\""));
            return component;
        }
        const QJsonObject object = value.toObject();
        checkKeys(object, path,
                  {QStringLiteral("name"), QStringLiteral("target_g"), QStringLiteral("tolerance_percent")});
        component.name = readName(object, path);
        component.target = readNumber(object, path, QStringLiteral("target_g"), RecipeFile::MaximumTarget);
        component.tolerance = m_defaultTolerance;
        if (object.contains(QStringLiteral("tolerance_percent"))) {
            component.tolerance =
                readNumber(object, path, QStringLiteral("tolerance_percent"), RecipeFile::MaximumTolerance);
        }
        return component;
    }

    QString readName(const QJsonObject& object, const QString& path)
    {
        QString name = object.value(QStringLiteral("name")).toString().simplified();
        if (name.isEmpty()) {
            fault(path + QStringLiteral("/name"), tr("\"name\" must be a text that is not empty"));
        } else if (name.size() > RecipeFile::MaximumNameLength) {
            fault(path + QStringLiteral("/name"), tr("the name has %1 characters; at most %2 are possible")
                                                      .arg(name.size())
                                                      .arg(RecipeFile::MaximumNameLength));
        } else if (name.contains(QLatin1Char(';'))) {
            fault(path + QStringLiteral("/name"), tr("a name cannot hold a semicolon; use a comma"));
        }
        return name;
    }

    /// A number greater than 0.
    double readNumber(const QJsonObject& object, const QString& path, const QString& key, double maximum)
    {
        const QJsonValue value = object.value(key);
        const double number = value.toDouble();
        if (!value.isDouble() || !(number > 0.0) || number > maximum) {
            fault(path + QLatin1Char('/') + key,
                  tr("\"%1\" must be a number greater than 0, at most %2%3")
                      .arg(key, QString::number(maximum, 'f', 0),
                           value.isDouble() ? tr("; it is %1").arg(number) : QString()));
            return 0.0;
        }
        return number;
    }

    void checkKeys(const QJsonObject& object, const QString& path, const QStringList& known)
    {
        const QStringList keys = object.keys();
        for (const QString& key : keys) {
            if (!known.contains(key)) {
                fault(path.isEmpty() ? key : path + QLatin1Char('/') + key,
                      tr("\"%1\" is not known here; known are: %2")
                          .arg(key.left(40), known.join(QStringLiteral(", "))));
            }
        }
    }

    void fault(const QString& path, const QString& text)
    {
        m_file.faults.append(
            QStringLiteral("%1:%2: %3").arg(m_fileName, QString::number(m_lines.line(path)), text));
    }

    const JsonLines m_lines;
    const QString m_fileName;
    const double m_defaultTolerance;
    RecipeFile& m_file;
};

} // namespace

double Recipe::total() const
{
    double sum = 0.0;
    for (const Component& component : components) {
        sum += component.target;
    }
    return sum;
}

double roundedWeight(double grams, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    const double rounded = std::round(grams * scale) / scale;
    return rounded == 0.0 ? 0.0 : rounded;
}

QString weightText(double grams, int decimals, bool sign)
{
    const double rounded = roundedWeight(grams, decimals);
    return (sign && rounded > 0.0 ? QStringLiteral("+") : QString())
           + QString::number(rounded, 'f', qMax(0, decimals));
}

QString shortName(const QString& name)
{
    constexpr int Maximum = 30;
    return name.size() <= Maximum ? name : name.left(Maximum - 1).trimmed() + QChar(0x2026);
}

RecipeFile RecipeFile::read(const QString& fileName, double defaultTolerance)
{
    QFile file(fileName);
    QString fault;
    if (!file.open(QIODevice::ReadOnly)) {
        fault = tr("the recipes cannot be read: %1").arg(file.errorString());
    } else if (file.size() > MaximumSize) {
        fault = tr("the file is larger than %1 MB").arg(MaximumSize / 1024 / 1024);
    } else {
        return parse(file.readAll(), fileName, defaultTolerance);
    }
    RecipeFile result;
    result.faults.append(QStringLiteral("%1:1: %2").arg(fileName, fault));
    return result;
}

RecipeFile RecipeFile::parse(const QByteArray& content, const QString& fileName, double defaultTolerance)
{
    RecipeFile result;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (error.error != QJsonParseError::NoError) {
        result.faults.append(QStringLiteral("%1:%2: %3")
                                 .arg(fileName, QString::number(JsonLines::lineAt(content, error.offset)),
                                      tr("this is no JSON: %1").arg(error.errorString())));
        return result;
    }
    if (!document.isObject()) {
        result.faults.append(QStringLiteral("%1:1: %2")
                                 .arg(fileName, tr("the file must be an object with the list \"recipes\"")));
        return result;
    }
    Reader(content, fileName, defaultTolerance, result).read(document.object());
    return result;
}
