// SPDX-License-Identifier: BSD-3-Clause
#ifndef RECIPE_H
#define RECIPE_H

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QVector>

/// One component of a recipe. Weights are grams.
struct Component
{
    QString name;
    double target = 0.0;
    double tolerance = 0.0; ///< Percent of the target, to either side.

    double lowerLimit() const { return target - target * tolerance / 100.0; }
    double upperLimit() const { return target + target * tolerance / 100.0; }
};

/// What is weighed in, in this order.
struct Recipe
{
    QString name;
    QVector<Component> components;

    double total() const;
};

/// A weight rounded to a number of decimal places, so that equal readings are equal numbers; never a negative zero.
double roundedWeight(double grams, int decimals);

/// A weight with exactly that many decimal places; @p sign puts a plus sign before one that is greater than 0.
QString weightText(double grams, int decimals, bool sign = false);

/// The beginning of a name that is too long for a sentence, with an ellipsis; otherwise the name.
QString shortName(const QString& name);

/// The recipes of a file:
///
///     { "recipes": [ { "name": "Bread", "components": [
///         { "name": "Flour", "target_g": 500, "tolerance_percent": 2 } ] } ] }
///
/// A tolerance may be left out; the default tolerance counts then. A recipe that is at fault is left out, the others
/// can be used.
class RecipeFile
{
    Q_DECLARE_TR_FUNCTIONS(RecipeFile)

public:
    static constexpr double MaximumTarget = 1000000.0;
    static constexpr double MaximumTolerance = 50.0;
    static constexpr int MaximumComponents = 50;
    static constexpr int MaximumNameLength = 200;
    static constexpr qint64 MaximumSize = Q_INT64_C(4) * 1024 * 1024;

    QVector<Recipe> recipes;
    QStringList faults; ///< "FILE:LINE: what is wrong and what would be right".

    static RecipeFile read(const QString& fileName, double defaultTolerance);
    /// @param fileName only named in the faults.
    static RecipeFile parse(const QByteArray& content, const QString& fileName, double defaultTolerance);
};

#endif
