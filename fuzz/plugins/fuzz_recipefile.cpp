// SPDX-License-Identifier: BSD-3-Clause
//
// Recipe files of the formulation plug-in.
#include "Fuzzing.h"
#include "formulation/Recipe.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

namespace
{

// A name that a message must not take for a place to fill in.
const QString Name = QStringLiteral("100%3.json");
constexpr double DefaultTolerance = 1.5;

bool isSame(const Component& left, const Component& right)
{
    return left.name == right.name && left.target == right.target && left.tolerance == right.tolerance;
}

void checkName(const QString& name, QSet<QString>* names)
{
    REQUIRE(!name.isEmpty() && name.size() <= RecipeFile::MaximumNameLength);
    REQUIRE(name == name.simplified() && !name.contains(QLatin1Char(';')));
    REQUIRE(!names->contains(name));
    names->insert(name);
}

} // namespace

FUZZING_WITHOUT_LEAK_CHECK

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray content = Fuzzing::Input(data, size).rest();
    const RecipeFile file = RecipeFile::parse(content, Name, DefaultTolerance);
    REQUIRE(!file.recipes.isEmpty() || !file.faults.isEmpty());

    for (const QString& fault : file.faults) {
        const int line = Fuzzing::lineOf(fault, Name);
        REQUIRE(line >= 1 && line <= content.count('\n') + 1);
    }

    QJsonArray recipes;
    QSet<QString> names;
    for (const Recipe& recipe : file.recipes) {
        checkName(recipe.name, &names);
        REQUIRE(!recipe.components.isEmpty() && recipe.components.size() <= RecipeFile::MaximumComponents);
        QJsonArray components;
        QSet<QString> componentNames;
        for (const Component& component : recipe.components) {
            checkName(component.name, &componentNames);
            REQUIRE(component.target > 0.0 && component.target <= RecipeFile::MaximumTarget);
            REQUIRE(component.tolerance > 0.0 && component.tolerance <= RecipeFile::MaximumTolerance);
            components.append(QJsonObject{{QStringLiteral("name"), component.name},
                                          {QStringLiteral("target_g"), component.target},
                                          {QStringLiteral("tolerance_percent"), component.tolerance}});
        }
        recipes.append(
            QJsonObject{{QStringLiteral("name"), recipe.name}, {QStringLiteral("components"), components}});
    }
    if (recipes.isEmpty()) {
        return 0;
    }
    const QByteArray text = QJsonDocument(QJsonObject{{QStringLiteral("recipes"), recipes}}).toJson();
    const RecipeFile again = RecipeFile::parse(text, Name, DefaultTolerance);
    REQUIRE(again.faults.isEmpty());
    REQUIRE(std::equal(file.recipes.cbegin(), file.recipes.cend(), again.recipes.cbegin(),
                       again.recipes.cend(), [](const Recipe& left, const Recipe& right) {
                           return left.name == right.name
                                  && std::equal(left.components.cbegin(), left.components.cend(),
                                                right.components.cbegin(), right.components.cend(), isSame);
                       }));
    return 0;
}
