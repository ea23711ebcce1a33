// SPDX-License-Identifier: BSD-3-Clause
#include "menu/MenuFile.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Brimvale;
using namespace Brimvale::Terminal;

class tst_MenuFile : public QObject
{
    Q_OBJECT

private slots:
    void everyKind();
    void keysThatAreLeftOut();
    void byteOrderMark();
    void itemByNumber();
    void deepestMenu();
    void faults_data();
    void faults();
    void allFaultsInTheOrderOfTheLines();
    void limits_data();
    void limits();
    void fileNameThatHoldsAPercentSign();
    void fileThatIsNotThere();
    void fileThatIsTooLarge();
    void folder();

private:
    static QByteArray file(const QByteArray& items)
    {
        return "{\"version\": 1, \"items\": [\n" + items + "\n]}\n";
    }
    static QStringList faultsOf(const QByteArray& content)
    {
        QStringList faults;
        MenuFile::parse(content, QStringLiteral("m.json"), &faults);
        return faults;
    }
};

void tst_MenuFile::everyKind()
{
    QStringList faults;
    const auto menu = MenuFile::parse(
        R"({
  "version": 1,
  "context": "FillingMenu",
  "items": [
    {"id": 10, "kind": "menu", "text": "Filling"},
    {"id": 11, "kind": "number", "parent": 10, "text": "Target", "default": 500.5, "decimals": 1, "help": ":/t.md"},
    {"id": 12, "kind": "number", "parent": 10, "text": "Parts", "default": 7, "decimals": 0},
    {"id": 13, "kind": "bool", "text": "Tare first", "default": true},
    {"id": 14, "kind": "text", "text": "Batch", "default": "Größe", "maximumLength": 12},
    {"id": 15, "kind": "selection", "text": "Mode", "default": "fine"},
    {"id": 16, "kind": "command", "text": "Clear", "confirm": "Clear it?\nIt is lost then."}
  ]
})",
        QStringLiteral("m.json"), &faults);
    QVERIFY2(menu, qPrintable(faults.join(QLatin1Char('\n'))));
    QCOMPARE(menu->items().size(), 7);
    const MenuItem target = menu->items().at(1);
    QCOMPARE(target.id, 11);
    QCOMPARE(target.kind, QStringLiteral("number"));
    QCOMPARE(target.text, QStringLiteral("Target"));
    QCOMPARE(target.parentId, 10);
    QCOMPARE(target.helpFile, QStringLiteral(":/t.md"));
    QCOMPARE(target.defaultValue, QVariant(500.5));
    QCOMPARE(target.decimals, 1);
    QCOMPARE(target.context, QStringLiteral("FillingMenu"));
    QCOMPARE(menu->items().at(2).defaultValue.type(), QVariant::Int);
    QCOMPARE(menu->items().at(3).defaultValue, QVariant(true));
    QCOMPARE(menu->items().at(4).defaultValue, QVariant(QStringLiteral("Größe")));
    QCOMPARE(menu->items().at(4).maximumLength, 12);
    QCOMPARE(menu->items().at(5).defaultValue, QVariant(QStringLiteral("fine")));
    QCOMPARE(menu->items().at(6).confirmation, QStringLiteral("Clear it?\nIt is lost then."));
}

void tst_MenuFile::keysThatAreLeftOut()
{
    QStringList faults;
    const auto menu =
        MenuFile::parse(file(R"({"id": 1, "kind": "number", "text": "N"})"), QString(), &faults);
    QVERIFY(menu);
    const MenuItem item = menu->items().first();
    QCOMPARE(item.parentId, 0);
    QCOMPARE(item.helpFile, QString());
    QVERIFY(!item.defaultValue.isValid());
    QCOMPARE(item.decimals, -1);
    QCOMPARE(item.maximumLength, 0);
    QCOMPARE(item.context, QString());
}

void tst_MenuFile::byteOrderMark()
{
    QCOMPARE(faultsOf("\xEF\xBB\xBF" + file("")), QStringList());
}

void tst_MenuFile::itemByNumber()
{
    QStringList faults;
    const auto menu = MenuFile::parse(
        file(R"({"id": 5, "kind": "bool", "text": "A"}, {"id": 3, "kind": "bool", "text": "B"})"), QString(),
        &faults);
    QVERIFY(menu);
    QCOMPARE(menu->item(3)->text, QStringLiteral("B"));
    QVERIFY(menu->item(4) == nullptr);
    QVERIFY(menu->item(0) == nullptr);
}

void tst_MenuFile::deepestMenu()
{
    const auto nested = [](int depth) {
        QByteArray items;
        for (int i = 1; i <= depth; ++i) {
            items += "{\"id\": " + QByteArray::number(i)
                     + ", \"kind\": \"menu\", \"text\": \"M\", \"parent\": " + QByteArray::number(i - 1)
                     + "},\n";
        }
        return file(items + "{\"id\": 100, \"kind\": \"bool\", \"text\": \"B\", \"parent\": "
                    + QByteArray::number(depth) + "}");
    };
    QCOMPARE(faultsOf(nested(MenuFile::MaximumDepth)), QStringList());
    QCOMPARE(faultsOf(nested(MenuFile::MaximumDepth + 1)).value(0),
             QStringLiteral("m.json:10: 9 menus stand inside one another; a menu file has at most 8 levels"));
}

void tst_MenuFile::faults_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("fault");

    // Syntax. The words are those of the JSON reader.
    QTest::newRow("nothing") << QByteArray() << "m.json:1: this is no JSON";
    QTest::newRow("no comma between items") << file(
        "{\"id\": 1, \"kind\": \"bool\", \"text\": \"A\"}\n{\"id\": 2, \"kind\": \"bool\", \"text\": \"B\"}")
                                            << "m.json:3: this is no JSON, column 1: ";
    QTest::newRow("comma after the last")
        << file("{\"id\": 1, \"kind\": \"bool\", \"text\": \"A\"},") << "m.json:3: this is no JSON";
    QTest::newRow("open text") << file("{\"id\": 1, \"kind\": \"bool") << "m.json:2: this is no JSON";
    QTest::newRow("comment") << file("// none\n{\"id\": 1, \"kind\": \"bool\", \"text\": \"A\"}")
                             << "m.json:2: this is no JSON";
    QTest::newRow("comment between entries")
        << file("{\"id\": 1,\n\"kind\": \"bool\", /* none */ \"text\": \"A\"}")
        << "m.json:3: this is no JSON: ";
    QTest::newRow("zeros before a number")
        << file("{\"id\": 1, \"kind\": \"number\",\n\"default\": 007, \"text\": \"A\"}")
        << "m.json:3: this is no JSON: ";
    QTest::newRow("line ends of an old system")
        << QByteArray("{\r\"version\": 1,\r\n\"items\": 5,\r\"context\" 6}")
        << "m.json:4: this is no JSON, column 11: ";
    QTest::newRow("fault behind line ends of an old system")
        << QByteArray("{\r\"version\": 1,\r\"items\": 5}") << "m.json:3: \"items\" is no list";
    QTest::newRow("something behind the end") << file("") + "more"
                                              << "m.json:4: this is no JSON";
    QTest::newRow("key twice") << file("{\"id\": 1, \"kind\": \"bool\",\n\"text\": \"A\", \"text\": \"B\"}")
                               << "m.json:3: duplicate key: \"text\"; write each key once in an object";
    QTest::newRow("no UTF-8") << file("{\"id\": 1, \"kind\": \"bool\",\n\"text\": \"\xE4\"}")
                              << "m.json:3: these bytes are no UTF-8 text; save the file as UTF-8";
    QTest::newRow("nested too deeply")
        << file("\n" + QByteArray(10000, '['))
        << "m.json:3: more than 8 braces and brackets stand inside one another; items "
           "stand side by side in \"items\" and name their menu by \"parent\"";

    // The file.
    QTest::newRow("a list") << QByteArray("\n[]")
                            << "m.json:2: the file holds no object; write {\"version\": 1, \"items\": […]}";
    QTest::newRow("no version") << QByteArray("{\"items\": []}")
                                << "m.json:1: \"version\" is missing; write \"version\": 1";
    QTest::newRow("other version")
        << QByteArray("{\n\"version\": 2, \"items\": []}")
        << "m.json:2: this version of the format is not known; write \"version\": 1";
    QTest::newRow("no items") << QByteArray("{\"version\": 1}")
                              << "m.json:1: \"items\" is missing; write \"items\": [";
    QTest::newRow("items no list") << QByteArray("{\"version\": 1,\n\"items\": {}}")
                                   << "m.json:2: \"items\" is no list; write \"items\": [";
    QTest::newRow("unknown key of the file")
        << QByteArray("{\"version\": 1, \"items\": [],\n\"title\": \"T\"}")
        << "m.json:2: a menu file has no key \"title\"; it has: version, context, items";
    QTest::newRow("item no object") << file("7") << "m.json:2: an item is no object; write {\"id\": 1";

    // The items.
    const auto item = [](const char* members) {
        return file("{\"id\": 1, \"kind\": \"menu\", \"text\": \"Menu\"},\n{" + QByteArray(members) + "}");
    };
    QTest::newRow("unknown key")
        << item("\"id\": 2, \"kind\": \"bool\", \"text\": \"A\",\n\"unit\": \"g\"")
        << "m.json:4: an item has no key \"unit\"; it has: id, kind, text, parent, help, "
           "default, decimals, maximumLength, confirm";
    QTest::newRow("no id") << item("\"kind\": \"bool\", \"text\": \"A\"")
                           << "m.json:3: the item has no \"id\"; give it a number of its own";
    QTest::newRow("id 0")
        << item("\"id\": 0, \"kind\": \"bool\", \"text\": \"A\"")
        << "m.json:3: \"id\" is no whole number from 1 to 2147483647; write for example \"id\": 1";
    QTest::newRow("id of a text") << item("\"id\": \"2\", \"kind\": \"bool\", \"text\": \"A\"")
                                  << "m.json:3: \"id\" is no whole number";
    QTest::newRow("id beyond 32 bits") << item("\"id\": 2147483648, \"kind\": \"bool\", \"text\": \"A\"")
                                       << "m.json:3: \"id\" is no whole number";
    QTest::newRow("duplicate id")
        << item("\"id\": 1, \"kind\": \"bool\", \"text\": \"A\"")
        << "m.json:3: the id 1 is that of the item in line 2; give each item a number of its "
           "own";
    QTest::newRow("no kind")
        << item("\"id\": 2, \"text\": \"A\"")
        << "m.json:3: the item has no \"kind\"; write one of menu, bool, number, text, selection, "
           "command";
    QTest::newRow("unknown kind")
        << item("\"id\": 2, \"kind\": \"colour\", \"text\": \"A\"")
        << "m.json:3: there is no kind \"colour\"; write one of menu, bool, number, text, "
           "selection, command";
    QTest::newRow("kind of a number") << item("\"id\": 2, \"kind\": 3, \"text\": \"A\"")
                                      << "m.json:3: \"kind\" is no text; write it in double quotes";
    QTest::newRow("no text")
        << item("\"id\": 2, \"kind\": \"bool\"")
        << "m.json:3: the item has no text; write what the person reads, \"text\": \"…\"";
    QTest::newRow("blank text") << item("\"id\": 2, \"kind\": \"bool\", \"text\": \" \"")
                                << "m.json:3: the item has no text; write what the person reads";
    QTest::newRow("line break in a text")
        << item("\"id\": 2, \"kind\": \"bool\", \"text\": \"A\\nB\"")
        << "m.json:3: \"text\" has a line break or another control character; write one line";
    QTest::newRow("missing parent")
        << item("\"id\": 2, \"kind\": \"bool\", \"text\": \"A\",\n\"parent\": 9")
        << "m.json:4: the parent 9 is not there; name the id of an item of the kind menu, "
           "or leave \"parent\" out";
    QTest::newRow("parent no menu") << item(
        "\"id\": 2, \"kind\": \"bool\", \"text\": \"A\"},\n{\"id\": 3, \"kind\": \"bool\", \"text\": \"B\", "
        "\"parent\": 2")
                                    << "m.json:4: the parent 2 is of the kind bool; name the id of an item "
                                       "of the kind menu";
    QTest::newRow("parent of itself")
        << item("\"id\": 2, \"kind\": \"menu\", \"text\": \"A\", \"parent\": 2")
        << "m.json:3: the menus stand inside one another in a ring: 2 in 2; let one of "
           "them stand at the top, without \"parent\"";
    QTest::newRow("ring") << item(
        "\"id\": 2, \"kind\": \"menu\", \"text\": \"A\", \"parent\": 3},\n{\"id\": 3, "
        "\"kind\": \"menu\", \"text\": \"B\", \"parent\": 2")
                          << "m.json:3: the menus stand inside one another in a ring: 2 in 3 in 2; let one";
    QTest::newRow("help no text") << item("\"id\": 2, \"kind\": \"bool\", \"text\": \"A\", \"help\": true")
                                  << "m.json:3: \"help\" is no text; write it in double quotes";
    QTest::newRow("default of a bool")
        << item("\"id\": 2, \"kind\": \"bool\", \"text\": \"A\", \"default\": 1")
        << "m.json:3: this \"default\" does not fit an item of the kind bool; write "
           "true or false";
    QTest::newRow("default of a number")
        << item("\"id\": 2, \"kind\": \"number\", \"text\": \"A\", \"default\": \"1\"")
        << "m.json:3: this \"default\" does not fit an item of the kind number; write "
           "a number without quotes";
    QTest::newRow("default of a whole number")
        << item("\"id\": 2, \"kind\": \"number\", \"text\": \"A\", \"decimals\": 0, \"default\": 1.5")
        << "m.json:3: this \"default\" does not fit an item of the kind number; with \"decimals\": 0 it is a "
           "whole "
           "number";
    QTest::newRow("default of a text")
        << item("\"id\": 2, \"kind\": \"text\", \"text\": \"A\", \"default\": 1")
        << "m.json:3: this \"default\" does not fit an item of the kind text; write it "
           "in double quotes";
    QTest::newRow("default longer than allowed")
        << item("\"id\": 2, \"kind\": \"text\", \"text\": \"A\", \"maximumLength\": 2, \"default\": \"abc\"")
        << "m.json:3: this \"default\" does not fit an item of the kind text; it has more characters";
    QTest::newRow("default of a command")
        << item("\"id\": 2, \"kind\": \"command\", \"text\": \"A\", \"default\": 1")
        << "m.json:3: this \"default\" does not fit an item of the kind command; "
           "menus and commands have no value";
    QTest::newRow("decimals of a text")
        << item("\"id\": 2, \"kind\": \"text\", \"text\": \"A\", \"decimals\": 1")
        << "m.json:3: an item of the kind text has no \"decimals\"; only one of the "
           "kind number has it";
    QTest::newRow("too many decimals")
        << item("\"id\": 2, \"kind\": \"number\", \"text\": \"A\", \"decimals\": 7")
        << "m.json:3: \"decimals\" is no whole number from 0 to 6; write for example "
           "\"decimals\": 0";
    QTest::newRow("confirmation of a bool")
        << item("\"id\": 2, \"kind\": \"bool\", \"text\": \"A\", \"confirm\": \"?\"")
        << "m.json:3: an item of the kind bool has no \"confirm\"; only one of "
           "the kind command has it";
}

void tst_MenuFile::faults()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, fault);
    QStringList faults;
    QVERIFY(!MenuFile::parse(content, QStringLiteral("m.json"), &faults));
    QVERIFY(!faults.isEmpty());
    QVERIFY2(faults.first().startsWith(fault), qPrintable(faults.join(QLatin1Char('\n'))));
    // Each says where, what is wrong, and what would be right.
    for (const QString& text : faults) {
        QVERIFY2(QRegularExpression(QStringLiteral("^m\\.json:\\d+: .+; .+$")).match(text).hasMatch(),
                 qPrintable(text));
    }
}

void tst_MenuFile::allFaultsInTheOrderOfTheLines()
{
    const QStringList faults =
        faultsOf(file("{\"id\": 1, \"kind\": \"bool\", \"text\": \"A\", \"parent\": 4},\n"
                      "{\"id\": 1, \"kind\": \"colour\"},\n"
                      "{\"id\": 3, \"kind\": \"bool\", \"text\": 5}"));
    QStringList lines;
    for (const QString& fault : faults) {
        lines.append(fault.section(QLatin1Char(':'), 1, 1));
    }
    QCOMPARE(lines.join(QLatin1Char(' ')), QStringLiteral("2 3 3 3 4"));
}

void tst_MenuFile::limits_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("fault"); // empty: none

    const auto items = [](int count) {
        QByteArray list;
        for (int i = 1; i <= count; ++i) {
            list += (i > 1 ? "," : "") + QByteArray("{\"id\": ") + QByteArray::number(i)
                    + ", \"kind\": \"bool\", \"text\": \"A\"}";
        }
        return file(list);
    };
    const auto text = [](int length) {
        return file("{\"id\": 1, \"kind\": \"bool\", \"text\": \"" + QByteArray(length, 'x') + "\"}");
    };
    QTest::newRow("500 items") << items(500) << "";
    QTest::newRow("501 items") << items(501) << "m.json:1: there are 501 items; a menu file has at most 500";
    QTest::newRow("200 characters") << text(200) << "";
    QTest::newRow("201 characters") << text(201)
                                    << "m.json:2: \"text\" has 201 characters; a text has at most 200";
    const int rest = MenuFile::MaximumSize - file("").size();
    QTest::newRow("largest file") << file("") + QByteArray(rest, '\n') << "";
    QTest::newRow("a byte more") << file("") + QByteArray(rest + 1, '\n')
                                 << "m.json:1: the file has 262145 bytes; a menu file has at most 262144";
}

void tst_MenuFile::limits()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, fault);
    QCOMPARE(faultsOf(content).join(QLatin1Char('\n')), fault);
}

void tst_MenuFile::fileNameThatHoldsAPercentSign()
{
    QStringList faults;
    QVERIFY(!MenuFile::parse("[]", QStringLiteral("100%2.json"), &faults));
    QVERIFY2(faults.value(0).startsWith(QLatin1String("100%2.json:1: ")), qPrintable(faults.value(0)));
}

void tst_MenuFile::fileThatIsNotThere()
{
    QStringList faults;
    QVERIFY(!MenuFile::load(QStringLiteral("/nowhere/m.json"), &faults));
    QCOMPARE(faults.size(), 1);
    QVERIFY2(faults.first().startsWith(QLatin1String("/nowhere/m.json: the menu file cannot be read: ")),
             qPrintable(faults.first()));
}

void tst_MenuFile::fileThatIsTooLarge()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("m.json"));
    QFile large(path);
    QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(Q_INT64_C(1) << 40));
    large.close();
    QStringList faults;
    QVERIFY(!MenuFile::load(path, &faults));
    QCOMPARE(faults,
             (QStringList{path
                          + QStringLiteral(":1: the file has more than 262144 bytes; divide the menu or "
                                           "shorten its texts")}));
}

void tst_MenuFile::folder()
{
    QTemporaryDir folder;
    QStringList faults;
    QVERIFY(!MenuFile::load(folder.path(), &faults));
    QCOMPARE(faults.size(), 1);
    QVERIFY2(faults.first().startsWith(folder.path() + QStringLiteral(": the menu file cannot be read: ")),
             qPrintable(faults.first()));
}

QTEST_GUILESS_MAIN(tst_MenuFile)
#include "tst_menufile.moc"
