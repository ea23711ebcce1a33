// SPDX-License-Identifier: BSD-3-Clause
#include "FormattedValue.h"
#include "MesswertData.h"
#include "print/Formatter.h"
#include "print/TextLayout.h"

#include <QtTest>

#include <limits>

using namespace Brimvale;
using namespace Brimvale::Terminal;

Q_DECLARE_METATYPE(Brimvale::MesswertData)

namespace
{

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

/// Shows the lines of a block in a failed comparison; every line end is "\r\n".
QString lines(const QStringList& lines)
{
    return lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
}

FormattedValue stableValue(const char* text)
{
    FormattedValue value;
    value.isStable = true;
    value.text = utf8(text);
    return value;
}

MesswertData weight(const char* messwert, const char* unit = "g", const char* unitPrintName = "")
{
    MesswertData data;
    data.messwert = utf8(messwert);
    data.unit = utf8(unit);
    data.unitPrintName = utf8(unitPrintName);
    data.isStable = true;
    return data;
}

} // namespace

class TestFormatter : public QObject
{
    Q_OBJECT

private slots:
    void width_data();
    void width();
    void wraps_data();
    void wraps();
    void text_data();
    void text();
    void descriptionText_data();
    void descriptionText();
    void nameValueUnit_data();
    void nameValueUnit();
    void nameValue_data();
    void nameValue();
    void flagLeavesTheMarksOut();
    void value_data();
    void value();
    void sicsBody_data();
    void sicsBody();
    void convertsValue_data();
    void convertsValue();
    void printOutOfTheManual();
    void noLineIsEverTooWide_data();
    void noLineIsEverTooWide();

private:
    Formatter m_formatter;
};

void TestFormatter::width_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::newRow("nothing") << QString() << 0;
    QTest::newRow("ASCII") << QStringLiteral("Gross") << 5;
    QTest::newRow("umlauts") << utf8("Größe") << 5;
    QTest::newRow("umlaut with a combining mark") << utf8("Gro\u0308\u00DFe") << 5;
    QTest::newRow("micro") << utf8("µg") << 2;
    QTest::newRow("Chinese") << utf8("毛重") << 4;
    QTest::newRow("fullwidth letters") << utf8("ＡＢ") << 4;
    QTest::newRow("halfwidth kana") << utf8("ｶﾅ") << 2;
    QTest::newRow("Korean of parts") << utf8("\u1112\u1161\u11AB") << 2;
    QTest::newRow("emoji") << utf8("🙂") << 2;
    QTest::newRow("emoji of three") << utf8("👩‍👩‍👦") << 2;
    QTest::newRow("zero width blank") << utf8("a\u200Bb") << 2;
}

void TestFormatter::width()
{
    QFETCH(QString, text);
    QTEST(textWidth(text), "width");
}

void TestFormatter::wraps_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("empty") << QString() << 10 << QStringList{QString()};
    QTest::newRow("fits") << QStringLiteral("0123456789") << 10 << QStringList{QStringLiteral("0123456789")};
    QTest::newRow("between words") << QStringLiteral("one two three") << 8
                                   << QStringList{QStringLiteral("one two"), QStringLiteral("three")};
    QTest::newRow("blank beyond the edge") << QStringLiteral("four five  six") << 9
                                           << QStringList{QStringLiteral("four five"), QStringLiteral("six")};
    QTest::newRow("trailing blanks") << QStringLiteral("ab   ") << 3 << QStringList{QStringLiteral("ab")};
    QTest::newRow("inner blanks stay")
        << QStringLiteral("a   b") << 10 << QStringList{QStringLiteral("a   b")};
    QTest::newRow("indent stays") << QStringLiteral("  ab") << 10 << QStringList{QStringLiteral("  ab")};
    QTest::newRow("too long a word") << QStringLiteral("a 0123456789 b") << 6
                                     << QStringList{QStringLiteral("a"), QStringLiteral("012345"),
                                                    QStringLiteral("6789 b")};
    QTest::newRow("after a hyphen") << QStringLiteral("Netto-Gewicht") << 8
                                    << QStringList{QStringLiteral("Netto-"), QStringLiteral("Gewicht")};
    QTest::newRow("never before a minus number")
        << QStringLiteral("sum -100.00") << 8
        << QStringList{QStringLiteral("sum"), QStringLiteral("-100.00")};
    QTest::newRow("Chinese has no blanks")
        << utf8("样品的净重") << 4 << QStringList{utf8("样品"), utf8("的净"), utf8("重")};
    QTest::newRow("half a wide character does not fit")
        << utf8("样品的") << 5 << QStringList{utf8("样品"), utf8("的")};
    QTest::newRow("combining mark stays with its letter")
        << utf8("uuuu\u0308uu") << 4 << QStringList{utf8("uuuu\u0308"), utf8("uu")};
    QTest::newRow("line ends") << QStringLiteral("a\r\nb\rc\n\nd") << 10
                               << QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"),
                                              QString(), QStringLiteral("d")};
    QTest::newRow("control characters")
        << QStringLiteral("a\x1B@b\tc\fd\x7F") << 10 << QStringList{QStringLiteral("a@b cd")};
}

void TestFormatter::wraps()
{
    QFETCH(QString, text);
    QFETCH(int, columns);
    QTEST(wrapped(text, columns), "expected");
}

void TestFormatter::text_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const QString sentence = utf8("The sample was weighed at the place where it is used, by two people.");
    QTest::newRow("empty line") << 24 << QString() << lines({QString()});
    QTest::newRow("short") << 24 << QStringLiteral("Header") << lines({QStringLiteral("Header")});
    QTest::newRow("24") << 24 << sentence
                        << lines({QStringLiteral("The sample was weighed"),
                                  QStringLiteral("at the place where it is"),
                                  QStringLiteral("used, by two people.")});
    QTest::newRow("40") << 40 << sentence
                        << lines({QStringLiteral("The sample was weighed at the place"),
                                  QStringLiteral("where it is used, by two people.")});
    QTest::newRow("80") << 80 << sentence << lines({sentence});
    QTest::newRow("signature line") << 24 << QString(30, QLatin1Char('_'))
                                    << lines({QString(24, QLatin1Char('_')), QString(6, QLatin1Char('_'))});
    QTest::newRow("several lines") << 24 << QStringLiteral("A\n\nB")
                                   << lines({QStringLiteral("A"), QString(), QStringLiteral("B")});
    QTest::newRow("layout that is too narrow")
        << 1 << QStringLiteral("0123456789abcdefgh")
        << lines({QStringLiteral("0123456789abcdef"), QStringLiteral("gh")});
    QTest::newRow("layout below zero") << -5 << QStringLiteral("0123456789abcdefgh")
                                       << lines({QStringLiteral("0123456789abcdef"), QStringLiteral("gh")});
}

void TestFormatter::text()
{
    QFETCH(int, layout);
    QFETCH(QString, text);
    QTEST(m_formatter.FormatText(layout, text), "expected");
}

void TestFormatter::descriptionText_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, int layout, const char* description, const char* text,
                        const QStringList& expected) {
        QTest::newRow(name) << layout << utf8(description) << utf8(text) << lines(expected);
    };
    row("in the column of texts, 24", 24, "Operator", "Jane", {utf8("Operator  Jane")});
    row("in the column of texts, 40", 40, "Operator", "Jane", {utf8("Operator         Jane")});
    row("in the column of texts, 80", 80, "Operator", "Jane",
        {utf8("Operator                         Jane")});
    row("nearer, where it fits so", 24, "Date", "2026-01-01 08:00:00", {utf8("Date 2026-01-01 08:00:00")});
    row("description beyond its column", 24, "Seriennummer", "12345678", {utf8("Seriennummer 12345678")});
    row("exactly a line", 24, "Seriennummer", "12345678901", {utf8("Seriennummer 12345678901")});
    row("too long together", 24, "Seriennummer", "123456789012",
        {utf8("Seriennummer"), utf8("          123456789012")});
    row("text is broken in its column", 24, "Remark", "seen by two people",
        {utf8("Remark    seen by two"), utf8("          people")});
    row("text with a long word", 24, "Sample", "PT-2026/000000123456",
        {utf8("Sample"), utf8("  PT-2026/000000123456")});
    row("text with a word as long as a line", 24, "Sample", "0123456789012345678901234",
        {utf8("Sample"), utf8("012345678901234567890123"), utf8("4")});
    row("description of several lines", 24, "Name of the responsible operator", "Jane",
        {utf8("Name of the responsible"), utf8("operator  Jane")});
    row("text of several lines", 24, "Sender", "Weighing room\nFirst floor",
        {utf8("Sender    Weighing room"), utf8("          First floor")});
    row("no description", 24, "", "Jane", {utf8("          Jane")});
    row("no text", 24, "Signature", "", {utf8("Signature")});
    row("nothing", 24, "", "", {QString()});
    row("register, 24", 24, "Gross", "105.00 g", {utf8("Gross        105.00 g")});
    row("register, 40", 40, "Gross", "105.00 g", {utf8("Gross                      105.00 g")});
    row("negative register", 24, "Net", "-5.00 kg", {utf8("Net           -5.00 kg")});
    row("register without decimals", 24, "Net", "5 g", {utf8("Net               5 g")});
    row("register without a value", 24, "Net", "-", {utf8("Net       -")});
    row("register with a long description", 24, "Gross weight now", "105.00 g",
        {utf8("Gross weight now"), utf8("             105.00 g")});
    row("number alone is a text", 24, "Sample", "17", {utf8("Sample    17")});
    row("number and a sentence", 24, "Note", "2 of us", {utf8("Note      2 of us")});
    row("umlauts", 24, "Prüfer", "Jürgen", {utf8("Prüfer    Jürgen")});
    row("wide characters", 24, "操作员", "王芳", {utf8("操作员    王芳")});
}

void TestFormatter::descriptionText()
{
    QFETCH(int, layout);
    QFETCH(QString, description);
    QFETCH(QString, text);
    QTEST(m_formatter.FormatDescriptionText(layout, description, text), "expected");
}

void TestFormatter::nameValueUnit_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, int layout, const char* text, const char* value, const char* unit,
                        const QStringList& expected) {
        QTest::newRow(name) << layout << utf8(text) << utf8(value) << utf8(unit) << lines(expected);
    };
    row("24", 24, "Gross", "105.00", "g", {utf8("Gross        105.00 g")});
    row("40", 40, "Gross", "105.00", "g", {utf8("Gross                      105.00 g")});
    row("80", 80, "Gross", "105.00", "g",
        {utf8("Gross                                                            105.00 g")});
    row("another width", 32, "Gross", "105.00", "g", {utf8("Gross               105.00 g")});
    row("unit as wide as its column", 24, "Gross", "105.00", "tola", {utf8("Gross        105.00 tola")});
    row("unit wider than its column", 24, "Gross", "105.00", "pieces", {utf8("Gross      105.00 pieces")});
    row("without a unit", 24, "Count", "12", "", {utf8("Count            12")});
    row("without a name", 24, "", "105.00", "g", {utf8("             105.00 g")});
    row("without a value", 24, "Sum", "", "", {utf8("Sum")});
    row("unit alone", 24, "Sum", "", "g", {utf8("Sum                 g")});
    row("nothing", 24, "", "", "", {QString()});
    row("name that just fits", 24, "Gross weight", "105.00", "g", {utf8("Gross weight 105.00 g")});
    row("name that just does not fit", 24, "Gross weights", "105.00", "g",
        {utf8("Gross weights"), utf8("             105.00 g")});
    row("value beside the last line", 24, "Mean of the last ten samples", "99.50", "g",
        {utf8("Mean of the last ten"), utf8("samples       99.50 g")});
    row("long word", 24, "Donaudampfschifffahrtskapitän", "1", "",
        {utf8("Donaudampfschifffahrtska"), utf8("pitän             1")});
    row("long value", 24, "Id", "0123456789012345678", "g", {utf8("Id"), utf8("0123456789012345678 g")});
    row("value longer than a line", 24, "Id", "0123456789012345678901234567", "g",
        {utf8("Id"), utf8("012345678901234567890123"), utf8("                  4567 g")});
    row("long value without a name", 24, "", "01234567890123456789", "", {utf8("    01234567890123456789")});
    row("value of several lines", 24, "A", "1\n2", "g\n", {utf8("A               1 2 g")});
    row("umlauts", 24, "Größe", "12.5", "mm", {utf8("Größe          12.5 mm")});
    row("combining marks", 24, "Gro\u0308\u00DFe", "12.5", "mm", {utf8("Gro\u0308\u00DFe          12.5 mm")});
    row("wide characters", 24, "毛重", "105.00", "克", {utf8("毛重         105.00 克")});
    row("blanks around", 24, "Sum", " 5.0 ", " g ", {utf8("Sum             5.0 g")});
}

void TestFormatter::nameValueUnit()
{
    QFETCH(int, layout);
    QFETCH(QString, name);
    QFETCH(QString, value);
    QFETCH(QString, unit);
    QTEST(m_formatter.FormatNameValueUnit(layout, name, value, unit), "expected");
}

void TestFormatter::nameValue_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QString>("name");
    QTest::addColumn<char>("mark");
    QTest::addColumn<int>("brackets");
    QTest::addColumn<bool>("stable");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* row, const char* name, char mark, int brackets, bool stable,
                        const char* text, const char* error, const QStringList& expected) {
        QTest::newRow(row) << 24 << utf8(name) << mark << brackets << stable << utf8(text) << utf8(error)
                           << lines(expected);
    };
    row("plain", "Net", '\0', 0, true, "99.50 g", "", {utf8("Net           99.50 g")});
    row("blank mark", "Net", ' ', 0, true, "99.50 g", "", {utf8("Net           99.50 g")});
    row("calculated", "Net", '*', 0, true, "99.50 g", "", {utf8("Net         * 99.50 g")});
    row("unstable", "Net", '\0', 0, false, "99.50 g", "", {utf8("Net         ~ 99.50 g")});
    row("unstable, blank mark", "Net", ' ', 0, false, "99.50 g", "", {utf8("Net         ~ 99.50 g")});
    row("calculated, unstable", "Net", '*', 0, false, "99.50 g", "", {utf8("Net        *~ 99.50 g")});
    row("one digit in brackets", "Net", '\0', 1, true, "99.50 g", "", {utf8("Net         99.5[0] g")});
    row("two digits in brackets", "Net", '\0', 2, true, "99.50 g", "", {utf8("Net         99.[50] g")});
    row("brackets across the point", "Net", '\0', 3, true, "99.50 g", "", {utf8("Net         9[9.50] g")});
    row("all digits in brackets", "Net", '\0', 99, true, "-99.50 g", "", {utf8("Net        -[99.50] g")});
    row("no digit in brackets", "Net", '\0', -1, true, "99.50 g", "", {utf8("Net           99.50 g")});
    row("everything", "Net", '*', 1, false, "-99.50 g", "", {utf8("Net     *~ -99.5[0] g")});
    row("error", "Net", '*', 1, false, "", "Overload", {utf8("Net        Overload")});
    row("error with a text", "Net", '*', 1, false, "99.50 g", "Underload", {utf8("Net       Underload")});
    row("long error", "Net", '\0', 0, true, "", "The connection to the scale is lost",
        {utf8("Net"), utf8("   The connection to the"), utf8("           scale is lost")});
    row("long name", "Current measurement", '\0', 0, true, "99.50 g", "",
        {utf8("Current measurement"), utf8("              99.50 g")});
    row("no text", "Net", '\0', 0, true, "", "", {utf8("Net")});
    row("text without a unit", "Count", '\0', 0, true, "12", "", {utf8("Count            12")});
    row("unit of two words", "Net", '\0', 0, true, "5.00 fl oz", "", {utf8("Net           5.00 fl oz")});
    row("grouped number", "Net", '\0', 0, true, "12 345.50 g", "", {utf8("Net       12 345.50 g")});
}

void TestFormatter::nameValue()
{
    QFETCH(int, layout);
    QFETCH(QString, name);
    QFETCH(char, mark);
    QFETCH(int, brackets);
    QFETCH(bool, stable);
    QFETCH(QString, text);
    QFETCH(QString, error);
    FormattedValue value;
    value.valueMark = mark;
    value.bracketedDigitCount = static_cast<char>(brackets);
    value.isStable = stable;
    value.text = text;
    value.errorText = error;
    QTEST(m_formatter.FormatNameValue(layout, name, value, false), "expected");
}

void TestFormatter::flagLeavesTheMarksOut()
{
    FormattedValue value = stableValue("99.50 g");
    value.isStable = false;
    value.valueMark = '*';
    value.bracketedDigitCount = 1;
    QCOMPARE(m_formatter.FormatNameValue(24, QStringLiteral("Net"), value, true),
             lines({QStringLiteral("Net           99.50 g")}));
}

void TestFormatter::value_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QString>("expected");
    QTest::newRow("24") << 24 << lines({utf8("          ~ 99.5[0] g")});
    QTest::newRow("40") << 40 << lines({utf8("                        ~ 99.5[0] g")});
    QTest::newRow("80") << 80
                        << lines({utf8(
                               "                                                              ~ 99.5[0] g")});
}

void TestFormatter::value()
{
    QFETCH(int, layout);
    FormattedValue value = stableValue("99.50 g");
    value.isStable = false;
    value.bracketedDigitCount = 1;
    QTEST(m_formatter.FormatValue(layout, value, false), "expected");
}

void TestFormatter::sicsBody_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* text, const char* expected) {
        QTest::newRow(name) << utf8(text) << utf8(expected);
    };
    row("weight", "100.00 g", "       100.00 g\r\n");
    row("negative", "-0.5 kg", "         -0.5 kg\r\n");
    row("ten characters", "1234567.89 g", "   1234567.89 g\r\n");
    row("more than ten characters", "-1234567.89 g", "   -1234567.89 g\r\n");
    row("without a unit", "12", "           12\r\n");
    row("micro", "5 µg", "            5 ug\r\n");
    row("Greek mu", "5 μg", "            5 ug\r\n");
    row("nothing", "", "             \r\n");
}

void TestFormatter::sicsBody()
{
    QFETCH(QString, text);
    FormattedValue value = stableValue("");
    value.text = text;
    value.valueMark = '*';
    value.bracketedDigitCount = 1;
    for (const int layout : {24, 40, 80})
        QTEST(m_formatter.FormatValue(layout, value, true), "expected");
}

void TestFormatter::convertsValue_data()
{
    QTest::addColumn<MesswertData>("data");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");
    QTest::addColumn<bool>("stable");
    QTest::addColumn<int>("mark");
    QTest::addColumn<int>("brackets");
    const auto row = [](const char* name, const MesswertData& data, const char* text, const char* error,
                        bool stable = true, int mark = 0, int brackets = 0) {
        QTest::newRow(name) << data << utf8(text) << utf8(error) << stable << mark << brackets;
    };
    row("weight", weight("100.00"), "100.00 g", "");
    row("print name of the unit", weight("5.0", "tlh", "tl Hk"), "5.0 tl Hk", "");
    row("without a unit", weight("12", ""), "12", "");
    row("not yet measured", MesswertData(), "", "No reading", false);
    row("overflow", weight("OF", ""), "", "OF");

    MesswertData data = weight("1.0");
    data.isStable = false;
    row("unstable", data, "1.0 g", "", false);
    data = weight("1.0");
    data.isCalculated = true;
    row("calculated", data, "1.0 g", "", true, '*');
    data = weight("1.0");
    data.eichDigit = 1;
    row("not verified digit", data, "1.0 g", "", true, 0, 1);
    data.eichDigit = -3;
    row("count below zero", data, "1.0 g", "");
    data.eichDigit = std::numeric_limits<int>::max();
    row("count beyond all", data, "1.0 g", "", true, 0, 127);
    data = weight("1.0");
    data.errorText = QStringLiteral("Overload");
    data.isCalculated = true;
    row("error", data, "", "Overload");
    data = weight("1.0");
    data.isValid = false;
    row("not valid", data, "", "No reading");
    data.isOverload = true;
    row("not valid, overload", data, "", "Overload");
}

void TestFormatter::convertsValue()
{
    QFETCH(MesswertData, data);
    FormattedValue value;
    m_formatter.ConvertValue(data, value);
    QTEST(value.text, "text");
    QTEST(value.errorText, "error");
    QTEST(value.isStable, "stable");
    QTEST(int(value.valueMark), "mark");
    QTEST(int(value.bracketedDigitCount), "brackets");
}

void TestFormatter::printOutOfTheManual()
{
    FormattedValue unstable = stableValue("1284.6 g");
    unstable.isStable = false;
    FormattedValue calculated = stableValue("1284.4 g");
    calculated.valueMark = Formatter::CalculatedMark;
    const QString text =
        m_formatter.FormatText(24, utf8("Mühle & Söhne GmbH"))
        + m_formatter.FormatDescriptionText(24, utf8("Date"), utf8("2026-01-01"))
        + m_formatter.FormatDescriptionText(24, utf8("Serial number"), utf8("0012345678"))
        + m_formatter.FormatNameValue(24, utf8("Gross"), stableValue("1384.6 g"), false)
        + m_formatter.FormatDescriptionText(24, utf8("Tare"), utf8("100.0 g"))
        + m_formatter.FormatNameValue(24, utf8("Net"), unstable, false)
        + m_formatter.FormatNameValue(24, utf8("Mean of the last ten samples"), calculated, false);
    QCOMPARE(text, lines({utf8("Mühle & Söhne GmbH"), utf8("Date      2026-01-01"),
                          utf8("Serial number 0012345678"), utf8("Gross        1384.6 g"),
                          utf8("Tare          100.0 g"), utf8("Net        ~ 1284.6 g"),
                          utf8("Mean of the last ten"), utf8("samples    * 1284.4 g")}));
}

void TestFormatter::noLineIsEverTooWide_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("words") << QStringLiteral(
        "a bc def ghij klmno pqrstu vwxyzab cdefghij klmnopqrs tuvwxyzabcd");
    QTest::newRow("one word") << QString(100, QLatin1Char('x'));
    QTest::newRow("Chinese") << QString(100, QChar(0x6837));
    QTest::newRow("mixed") << utf8("Größe 样品的净重 in Kilogramm-Stücken 样品 und weiter");
    QTest::newRow("number") << QStringLiteral("123456789012345678901234567890 g");
}

/// Whatever is printed, every line fits and every character that is not a blank arrives.
void TestFormatter::noLineIsEverTooWide()
{
    QFETCH(QString, text);
    const auto characters = [](QString text) {
        text.remove(QLatin1Char(' ')).remove(QLatin1String("\r\n"));
        return text;
    };
    const FormattedValue value = stableValue(text.toUtf8().constData());
    for (int layout = Formatter::MinimumColumns; layout <= 80; ++layout) {
        for (const QString& other : {QString(), QStringLiteral("x"), QStringLiteral("a longer one")}) {
            const QString all = other + text;
            const QVector<QPair<QString, QString>> blocks{
                {m_formatter.FormatText(layout, all), all},
                {m_formatter.FormatDescriptionText(layout, other, text), all},
                {m_formatter.FormatDescriptionText(layout, text, other), text + other},
                {m_formatter.FormatNameValueUnit(layout, text, other, QStringLiteral("g")),
                 text + other + QLatin1Char('g')},
                {m_formatter.FormatNameValueUnit(layout, other, text, QStringLiteral("g")),
                 all + QLatin1Char('g')},
                {m_formatter.FormatNameValueUnit(layout, other, QStringLiteral("1"), text),
                 other + QLatin1Char('1') + text},
                {m_formatter.FormatNameValue(layout, other, value, false), all},
            };
            for (const auto& block : blocks) {
                QVERIFY(block.first.endsWith(QLatin1String("\r\n")));
                QCOMPARE(characters(block.first), characters(block.second));
                for (const QString& line : block.first.split(QStringLiteral("\r\n")))
                    QVERIFY2(textWidth(line) <= layout, qPrintable(line));
            }
        }
    }
}

QTEST_MAIN(TestFormatter)
#include "tst_formatter.moc"
