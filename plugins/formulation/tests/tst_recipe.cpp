// SPDX-License-Identifier: BSD-3-Clause
#include "Batch.h"
#include "JsonLines.h"
#include "Recipe.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

class TestRecipe : public QObject
{
    Q_OBJECT

private slots:
    void goodFile();
    void ownRecipesAreGood();
    void defaultTolerance();
    void faults_data();
    void faults();
    void faultyRecipeIsLeftOut();
    void fileThatIsNotThere();
    void lines_data();
    void lines();
    void weights_data();
    void weights();
    void readings_data();
    void readings();
    void shortNames_data();
    void shortNames();
};

namespace
{

/// A file with one recipe whose components stand on the lines from 4 on.
QByteArray withComponents(const QByteArray& components)
{
    return "{ \"recipes\": [\n{ \"name\": \"Bread\",\n\"components\": [\n" + components + "\n] } ] }\n";
}

} // namespace

void TestRecipe::goodFile()
{
    const RecipeFile file = RecipeFile::parse(
        withComponents("{ \"name\": \"  Wheat \\t flour\", \"target_g\": 500, \"tolerance_percent\": 2.5 },\n"
                       "{ \"name\": \"Salt\", \"target_g\": 0.25 }"),
        QStringLiteral("a.json"), 1.5);
    QCOMPARE(file.faults, QStringList());
    QCOMPARE(file.recipes.size(), 1);
    const Recipe& recipe = file.recipes.first();
    QCOMPARE(recipe.name, QStringLiteral("Bread"));
    QCOMPARE(recipe.components.size(), 2);
    QCOMPARE(recipe.components.at(0).name, QStringLiteral("Wheat flour"));
    QCOMPARE(recipe.components.at(0).target, 500.0);
    QCOMPARE(recipe.components.at(0).lowerLimit(), 487.5);
    QCOMPARE(recipe.components.at(0).upperLimit(), 512.5);
    QCOMPARE(recipe.total(), 500.25);
}

void TestRecipe::ownRecipesAreGood()
{
    const RecipeFile file = RecipeFile::read(QStringLiteral(":/formulation/recipes.json"), 1.0);
    QCOMPARE(file.faults, QStringList());
    QCOMPARE(file.recipes.size(), 3);
}

void TestRecipe::defaultTolerance()
{
    const QByteArray text = withComponents("{ \"name\": \"Salt\", \"target_g\": 10 }");
    QCOMPARE(RecipeFile::parse(text, QString(), 7.5).recipes.at(0).components.at(0).tolerance, 7.5);
}

void TestRecipe::faults_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("beginnings"); // of the faults
    const auto row = [](const char* name, const QByteArray& text, const QStringList& beginnings) {
        QTest::newRow(name) << text << beginnings;
    };
    const auto component = [](const QByteArray& rest) {
        return withComponents("{ \"name\": \"Salt\", " + rest + " }");
    };
    const QString target =
        QStringLiteral("a.json:4: \"target_g\" must be a number greater than 0, at most 1000000");
    const QString tolerance =
        QStringLiteral("a.json:4: \"tolerance_percent\" must be a number greater than 0, at most 50");

    row("empty file", "", {QStringLiteral("a.json:1: this is no JSON")});
    row("broken JSON", "{\n\"recipes\": [\n}", {QStringLiteral("a.json:3: this is no JSON")});
    row("a list", "[]", {QStringLiteral("a.json:1: the file must be an object")});
    row("no recipes", "{}", {QStringLiteral("a.json:1: \"recipes\" must be a list")});
    row("empty list", "{\n \"recipes\": []}", {QStringLiteral("a.json:2: there are no recipes")});
    row("unknown key", "{\n\"recipe\": [] }",
        {QStringLiteral("a.json:2: \"recipe\" is not known here; known are: recipes"),
         QStringLiteral("a.json:1: \"recipes\" must be a list")});
    row("recipe that is a number", "{ \"recipes\": [\n\n5] }",
        {QStringLiteral("a.json:3: a recipe must be an object")});
    row("no components", "{ \"recipes\": [\n{ \"name\": \"A\" }] }",
        {QStringLiteral("a.json:2: \"components\" must be a list")});
    row("empty components", withComponents(""),
        {QStringLiteral("a.json:3: a recipe has 1 to 50 components, this one 0")});
    row("too many components",
        withComponents(QByteArray("{ \"name\": \"x\", \"target_g\": 1 },").repeated(50)
                       + "{ \"name\": \"x\", \"target_g\": 1 }"),
        {QStringLiteral("a.json:3: a recipe has 1 to 50 components, this one 51")});
    row("component that is a text", withComponents("\"Salt\""),
        {QStringLiteral("a.json:4: a component must be an object")});
    row("component without a name", withComponents("{ \"target_g\": 5 }"),
        {QStringLiteral("a.json:4: \"name\" must be a text that is not empty")});
    row("name of blanks", withComponents("{ \"name\": \" \\n \",\n\"target_g\": 5 }"),
        {QStringLiteral("a.json:4: \"name\" must be a text that is not empty")});
    row("name too long", withComponents("{ \"name\": \"" + QByteArray(201, 'x') + "\", \"target_g\": 5 }"),
        {QStringLiteral("a.json:4: the name has 201 characters; at most 200 are possible")});
    row("semicolon", withComponents("{ \"name\": \"a;b\", \"target_g\": 5 }"),
        {QStringLiteral("a.json:4: a name cannot hold a semicolon")});
    row("zero target", component("\"target_g\": 0"), {target + QStringLiteral("; it is 0")});
    row("negative target", component("\"target_g\": -5"), {target + QStringLiteral("; it is -5")});
    row("huge target", component("\"target_g\": 1e300"), {target + QStringLiteral("; it is 1e+300")});
    row("target that is a text", component("\"target_g\": \"5\""), {target});
    row("no target", component("\"tolerance_percent\": 5"), {target});
    row("zero tolerance", component("\"target_g\": 5, \"tolerance_percent\": 0"),
        {tolerance + QStringLiteral("; it is 0")});
    row("tolerance too large", component("\"target_g\": 5, \"tolerance_percent\": 51"),
        {tolerance + QStringLiteral("; it is 51")});
    row("misspelt key", component("\"target_g\": 5,\n\"tolerance\": 1"),
        {QStringLiteral("a.json:5: \"tolerance\" is not known here")});
    row("component twice",
        withComponents("{ \"name\": \"Salt\", \"target_g\": 5 },\n"
                       "{ \"name\": \"Salt\", \"target_g\": 5 }"),
        {QStringLiteral("a.json:5: there is a component \"Salt\" already; give it another name, such as "
                        "\"Salt (2)\"")});
    const QByteArray bread = "{ \"name\": \"A\", \"components\": [ { \"name\": \"x\", \"target_g\": 1 } ] }";
    row("recipe twice", "{ \"recipes\": [\n" + bread + ",\n" + bread + "] }",
        {QStringLiteral("a.json:3: there is a recipe \"A\" already")});
    row("several faults", withComponents("{ \"name\": \"Salt\", \"target_g\": 0 },\n{ \"target_g\": 5 }"),
        {target, QStringLiteral("a.json:5: \"name\" must be")});
}

void TestRecipe::faults()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, beginnings);
    const RecipeFile file = RecipeFile::parse(text, QStringLiteral("a.json"), 1.0);
    const QByteArray all = file.faults.join(QLatin1Char('\n')).toUtf8();
    QVERIFY2(file.faults.size() == beginnings.size(), all.constData());
    for (int index = 0; index < beginnings.size(); ++index) {
        QVERIFY2(file.faults.at(index).startsWith(beginnings.at(index)), all.constData());
    }
    if (text.count("\"A\"") != 2) {
        QVERIFY(file.recipes.isEmpty());
    }
}

void TestRecipe::faultyRecipeIsLeftOut()
{
    const RecipeFile file = RecipeFile::parse(
        "{ \"recipes\": [ { \"name\": \"Bad\", \"components\": [] },"
        "{ \"name\": \"Good\", \"components\": [ { \"name\": \"x\", \"target_g\": 1 } ] } ] }",
        QStringLiteral("a.json"), 1.0);
    QCOMPARE(file.faults.size(), 1);
    QCOMPARE(file.recipes.size(), 1);
    QCOMPARE(file.recipes.first().name, QStringLiteral("Good"));
}

void TestRecipe::fileThatIsNotThere()
{
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("none.json"));
    const RecipeFile file = RecipeFile::read(name, 1.0);
    QCOMPARE(file.faults.size(), 1);
    QVERIFY2(file.faults.first().startsWith(name + QStringLiteral(":1: the recipes cannot be read: ")),
             qPrintable(file.faults.first()));
}

void TestRecipe::lines_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("line");
    QTest::newRow("root") << "" << 1;
    QTest::newRow("list") << "list" << 2;
    QTest::newRow("element") << "list/1" << 3;
    QTest::newRow("in an object of a list") << "list/2/b" << 6;
    QTest::newRow("behind a text with marks") << "c" << 9;
    QTest::newRow("name with an escape") << "d\"e" << 10;
    QTest::newRow("not there") << "list/2/x" << 5;
    QTest::newRow("nowhere") << "x/y/z" << 1;
}

void TestRecipe::lines()
{
    QFETCH(QString, path);
    const JsonLines lines("{\n\"list\": [ 1,\ntrue,\n\n { \"a\": null,\n \"b\": {} } ],\n"
                          "\"text\": \"[ { , : \\\" \\\\\",\n\n\"c\": -1.5e3,\n\"d\\\"e\": []\n}\n");
    QTEST(lines.line(path), "line");
}

void TestRecipe::weights_data()
{
    QTest::addColumn<double>("grams");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<bool>("sign");
    QTest::addColumn<QString>("text");
    QTest::newRow("one place") << 12.34 << 1 << false << "12.3";
    QTest::newRow("no place") << 12.5 << 0 << false << "13";
    QTest::newRow("no negative zero") << -0.04 << 1 << false << "0.0";
    QTest::newRow("plus") << 0.2 << 1 << true << "+0.2";
    QTest::newRow("no plus at zero") << 0.04 << 1 << true << "0.0";
    QTest::newRow("minus") << -3.25 << 2 << true << "-3.25";
}

void TestRecipe::weights()
{
    QFETCH(double, grams);
    QFETCH(int, decimals);
    QFETCH(bool, sign);
    QTEST(weightText(grams, decimals, sign), "text");
}

void TestRecipe::readings_data()
{
    QTest::addColumn<double>("target");
    QTest::addColumn<double>("tolerance");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("lowest");
    QTest::addColumn<QString>("highest");
    QTest::newRow("limits that are readings") << 100.0 << 2.0 << 1 << "98.0"
                                              << "102.0";
    QTest::newRow("limits between readings") << 28.0 << 2.0 << 1 << "27.5"
                                             << "28.5";
    QTest::newRow("whole grams") << 28.0 << 2.0 << 0 << "28"
                                 << "28";
    QTest::newRow("not exact in binary") << 0.3 << 10.0 << 2 << "0.27"
                                         << "0.33";
    QTest::newRow("none") << 0.55 << 1.0 << 1 << "0.6"
                          << "0.5";
}

void TestRecipe::readings()
{
    QFETCH(double, target);
    QFETCH(double, tolerance);
    QFETCH(int, decimals);
    const Component component{QStringLiteral("x"), target, tolerance};
    const double lowest = lowestReading(component, decimals);
    const double highest = highestReading(component, decimals);
    QTEST(weightText(lowest, decimals), "lowest");
    QTEST(weightText(highest, decimals), "highest");
    const bool isPossible = lowest <= highest;
    const double increment = std::pow(10.0, -decimals);
    QCOMPARE(isWithinTolerance(component, lowest, decimals), isPossible);
    QCOMPARE(isWithinTolerance(component, highest, decimals), isPossible);
    QVERIFY(!isWithinTolerance(component, lowest - increment, decimals));
    QVERIFY(!isWithinTolerance(component, highest + increment, decimals));
}

void TestRecipe::shortNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    QTest::newRow("short") << "Flour"
                           << "Flour";
    QTest::newRow("just so") << QString(30, QLatin1Char('x')) << QString(30, QLatin1Char('x'));
    QTest::newRow("long") << QString(31, QLatin1Char('x')) << QString(29, QLatin1Char('x')) + QChar(0x2026);
}

void TestRecipe::shortNames()
{
    QFETCH(QString, name);
    QTEST(shortName(name), "shown");
}

QTEST_GUILESS_MAIN(TestRecipe)
#include "tst_recipe.moc"
