// SPDX-License-Identifier: BSD-3-Clause
#include "source/DecimalText.h"
#include "source/SicsLineParser.h"

#include <QFile>
#include <QLocale>
#include <QtTest>

#include <cmath>

using namespace Brimvale::Terminal;

namespace
{

/// A line as one short text.
QString text(const SicsLine& line)
{
    if (line.kind == SicsLine::Kind::Answer)
        return QStringLiteral("answer");
    switch (line.status) {
    case Reading::Status::Valid:
        return QStringLiteral("%1 %2 d=%3")
            .arg(line.stable.value_or(false) ? QStringLiteral("S") : QStringLiteral("D"))
            .arg(line.grams, 0, 'g', 15)
            .arg(line.readability ? line.readability->grams() : 0.0);
    case Reading::Status::Overload:
        return QStringLiteral("overload");
    case Reading::Status::Underload:
        return QStringLiteral("underload");
    case Reading::Status::Unreadable:
        return QStringLiteral("unreadable");
    case Reading::Status::Disconnected:
        break;
    }
    return QStringLiteral("?");
}

QStringList texts(const QVector<SicsLine>& lines)
{
    QStringList result;
    for (const SicsLine& line : lines)
        result.append(text(line));
    return result;
}

} // namespace

class tst_SicsLine : public QObject
{
    Q_OBJECT

private slots:
    void decimalText_data();
    void decimalText();
    void decimalTextRefuses_data();
    void decimalTextRefuses();

    void weights_data();
    void weights();
    void units_data();
    void units();
    void states_data();
    void states();
    void unreadable_data();
    void unreadable();
    void answers_data();
    void answers();
    void unreadableIsNeverAWeight();
    void localeDoesNotMatter();

    void stream_data();
    void stream();
    void everySplitGivesTheSame();
    void byteByByte();
    void longestLine();
    void overlongLine();
    void overlongWithoutEndIsReportedOnce();
    void memoryStaysBounded();
    void resetForgetsABegunLine();
    void resetForgetsAnOverlongLine();
    void floodKeepsTheNewest();
    void blankLinesPushNothingOut();
    void noLineIsLostUpToTheLimit();
};

void tst_SicsLine::decimalText_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::newRow("whole") << QByteArray("12") << 12.0 << 0;
    QTest::newRow("decimals") << QByteArray("100.02") << 100.02 << 2;
    QTest::newRow("trailing zeros") << QByteArray("100.00") << 100.0 << 2;
    QTest::newRow("minus") << QByteArray("-0.5") << -0.5 << 1;
    QTest::newRow("plus") << QByteArray("+0.5") << 0.5 << 1;
    QTest::newRow("leading zeros") << QByteArray("0007.5") << 7.5 << 1;
}

void tst_SicsLine::decimalText()
{
    QFETCH(QByteArray, bytes);
    const std::optional<DecimalText> number = DecimalText::parse(bytes);
    QVERIFY(number);
    QTEST(number->value(), "value");
    QTEST(number->decimals(), "decimals");
    // Shifting the point is exact, unlike a multiplication.
    QCOMPARE(DecimalText::parse("0.3004")->value(3), 300.4);
    QVERIFY(!std::signbit(DecimalText::parse("-0.0")->value()));
}

void tst_SicsLine::decimalTextRefuses_data()
{
    QTest::addColumn<QByteArray>("bytes");
    for (const char* bytes :
         {"", "-", ".", ".5", "5.", "1e3", "1,5", " 1", "1 ", "0x1", "nan", "inf", "1.2.3", "+-1"})
        QTest::newRow(bytes) << QByteArray(bytes);
    QTest::newRow("zero byte") << QByteArray("1\0", 2);
}

void tst_SicsLine::decimalTextRefuses()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!DecimalText::parse(bytes));
}

void tst_SicsLine::weights_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("expected");
    QTest::newRow("stable") << QByteArray("S S     100.00 g") << QStringLiteral("S 100 d=0.01");
    QTest::newRow("moving") << QByteArray("S D     100.02 g") << QStringLiteral("D 100.02 d=0.01");
    QTest::newRow("negative") << QByteArray("S S     -12.34 g") << QStringLiteral("S -12.34 d=0.01");
    QTest::newRow("zero") << QByteArray("S S       0.00 g") << QStringLiteral("S 0 d=0.01");
    QTest::newRow("minus zero") << QByteArray("S S      -0.00 g") << QStringLiteral("S 0 d=0.01");
    QTest::newRow("no decimals") << QByteArray("S S        100 g") << QStringLiteral("S 100 d=1");
    QTest::newRow("single blanks") << QByteArray("S S 100.0 g") << QStringLiteral("S 100 d=0.1");
    QTest::newRow("blanks at the end") << QByteArray("S S     100.0 g  ") << QStringLiteral("S 100 d=0.1");
    QTest::newRow("unit padded to three")
        << QByteArray("S S     100.0  g  ") << QStringLiteral("S 100 d=0.1");
    QTest::newRow("finest") << QByteArray("S S 1.0000001 g") << QStringLiteral("S 1.0000001 d=1e-07");
    QTest::newRow("absurd, for the capacity to deal with")
        << QByteArray("S S 1") + QByteArray(100, '0') + " kg" << QStringLiteral("S 1e+103 d=1000");
    QTest::newRow("finer than can be shown")
        << QByteArray("S S 1.00000001 g") << QStringLiteral("S 1.00000001 d=0");
}

void tst_SicsLine::weights()
{
    QFETCH(QByteArray, line);
    QTEST(text(SicsLineParser::parseLine(line)), "expected");
    QVERIFY(SicsLineParser::parseLine(line).detail.isEmpty());
}

void tst_SicsLine::units_data()
{
    QTest::addColumn<QByteArray>("weight");
    QTest::addColumn<double>("grams");
    QTest::addColumn<double>("readability");
    QTest::newRow("g") << QByteArray("12.34 g") << 12.34 << 0.01;
    QTest::newRow("kg") << QByteArray("0.3004 kg") << 300.4 << 0.1;
    QTest::newRow("kg, three decimals") << QByteArray("12.345 kg") << 12345.0 << 1.0;
    QTest::newRow("kg, one decimal") << QByteArray("12.3 kg") << 12300.0 << 100.0;
    QTest::newRow("t") << QByteArray("1.2345 t") << 1234500.0 << 100.0;
    QTest::newRow("mg") << QByteArray("1234.5 mg") << 1.2345 << 0.0001;
    QTest::newRow("ug") << QByteArray("12345 ug") << 0.012345 << 0.000001;
    QTest::newRow("ct") << QByteArray("10.005 ct") << 2.001 << 0.0002;
    QTest::newRow("lb") << QByteArray("1.0000 lb") << 453.59237 << 0.02;
    QTest::newRow("oz") << QByteArray("1.000 oz") << 28.349523125 << 0.02;
    QTest::newRow("ozt") << QByteArray("1.000 ozt") << 31.1034768 << 0.02;
    QTest::newRow("GN") << QByteArray("1.0 GN") << 0.06479891 << 0.005;
    QTest::newRow("dwt") << QByteArray("1.00 dwt") << 1.55517384 << 0.01;
}

void tst_SicsLine::units()
{
    QFETCH(QByteArray, weight);
    QFETCH(double, grams);
    const SicsLine line = SicsLineParser::parseLine("S S " + weight);
    QCOMPARE(line.status, Reading::Status::Valid);
    QVERIFY2(line.grams == grams, qPrintable(QString::number(line.grams, 'g', 17)));
    QVERIFY(line.readability);
    QTEST(line.readability->grams(), "readability");
}

void tst_SicsLine::states_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("detail");
    QTest::newRow("S I") << QByteArray("S I") << QStringLiteral("unreadable")
                         << QStringLiteral("The scale cannot give a weight at present.");
    QTest::newRow("S +") << QByteArray("S +") << QStringLiteral("overload")
                         << QStringLiteral("The scale reports an overload.");
    QTest::newRow("S -") << QByteArray("S -") << QStringLiteral("underload")
                         << QStringLiteral("The scale reports an underload.");
    QTest::newRow("blanks") << QByteArray("S   +  ") << QStringLiteral("overload")
                            << QStringLiteral("The scale reports an overload.");
}

void tst_SicsLine::states()
{
    QFETCH(QByteArray, line);
    QTEST(text(SicsLineParser::parseLine(line)), "expected");
    QTEST(SicsLineParser::parseLine(line).detail, "detail");
}

void tst_SicsLine::unreadable_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("detail");
    const auto row = [](const char* name, const QByteArray& line, const char* detail) {
        QTest::newRow(name) << line << QString::fromLatin1(detail);
    };
    row("garbage", "hello", "Not a weight line: \"hello\".");
    row("lower case", "s s 100.00 g", "Not a weight line: \"s s 100.00 g\".");
    row("other state", "S X 100.00 g", "Not a weight line: \"S X 100.00 g\".");
    row("no unit", "S S 100.00", "Not a weight line: \"S S 100.00\".");
    row("no weight", "S S", "Not a weight line: \"S S\".");
    row("only the identifier", "S", "Not a weight line: \"S\".");
    row("the end of a line", "  100.00 g", "Not a weight line: \"  100.00 g\".");
    row("the end of a line with its state", "S     100.00 g", "Not a weight line: \"S     100.00 g\".");
    row("two weights", "S S 100.00 g 200.00 g", "Not a weight line: \"S S 100.00 g 200.00 g\".");
    row("two lines run together", "S S     10S S     100.00 g",
        "Not a weight line: \"S S     10S S     100.00 g\".");
    row("overload with a weight", "S + 100.00 g", "Not a weight line: \"S + 100.00 g\".");
    row("no weight with a unit", "S I g", "Not a weight line: \"S I g\".");
    row("error of the scale", "S S Error 10b", "Not a number: \"Error\".");
    row("decimal comma", "S S 100,00 g", "Not a number: \"100,00\".");
    row("letter in the number", "S S 1O0.00 g", "Not a number: \"1O0.00\".");
    row("nan", "S S nan g", "Not a number: \"nan\".");
    row("dashes", "S S ------ g", "Not a number: \"------\".");
    row("sign apart", "S S - 12.5 g", "Not a weight line: \"S S - 12.5 g\".");
    row("unknown unit", "S S 100.00 N", "Unknown unit: \"N\".");
    row("unit in capitals", "S S 100.00 G", "Unknown unit: \"G\".");
    row("zero byte",
        QByteArray("S S 1\0"
                   "0 g",
                   9),
        "Not a number: \"1\\x000\".");
    row("only a zero byte", QByteArray("\0", 1), "Not a weight line: \"\\x00\".");
    row("bytes of another baud rate", "\xF8\x80\xFE", "Not a weight line: \"\\xf8\\x80\\xfe\".");
    row("tab", "S\tS\t100.00\tg", "Not a weight line: \"S\\x09S\\x09100.00\\x09g\".");
    row("CR inside", "S S\r100.00 g", "Not a weight line: \"S S\\x0d100.00 g\".");
    row("long line is cut", QByteArray(100, 'x'),
        "Not a weight line: \"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...\".");
}

void tst_SicsLine::unreadable()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, detail);
    const SicsLine parsed = SicsLineParser::parseLine(line);
    QCOMPARE(text(parsed), QStringLiteral("unreadable"));
    QCOMPARE(parsed.detail, detail);
}

void tst_SicsLine::answers_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("syntax error") << QByteArray("ES");
    QTest::newRow("transmission error") << QByteArray("ET");
    QTest::newRow("logical error") << QByteArray("EL");
    QTest::newRow("serial number when switched on") << QByteArray("I4 A \"0123456789\"");
}

void tst_SicsLine::answers()
{
    QFETCH(QByteArray, line);
    QCOMPARE(text(SicsLineParser::parseLine(line)), QStringLiteral("answer"));
}

void tst_SicsLine::unreadableIsNeverAWeight()
{
    QVERIFY(std::isnan(SicsLineParser::parseLine("garbage").grams));
    QVERIFY(std::isnan(SicsLineParser::parseLine("S S 1x g").grams));
    QVERIFY(std::isnan(SicsLineParser::parseLine("S +").grams));
    QVERIFY(std::isnan(SicsLineParser::parseLine("ES").grams));
    QVERIFY(!SicsLineParser::parseLine("S I").stable);
}

void tst_SicsLine::localeDoesNotMatter()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    const SicsLine line = SicsLineParser::parseLine("S S 1234.56 g");
    QLocale::setDefault(before);
    QCOMPARE(line.grams, 1234.56);
}

void tst_SicsLine::stream_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("expected");
    const QString weight = QStringLiteral("S 100 d=0.01");
    QTest::newRow("one line") << QByteArray("S S     100.00 g\r\n") << QStringList{weight};
    QTest::newRow("bare LF") << QByteArray("S S     100.00 g\n") << QStringList{weight};
    QTest::newRow("no end yet") << QByteArray("S S     100.00 g") << QStringList();
    QTest::newRow("CR is no end") << QByteArray("S S     100.00 g\r") << QStringList();
    QTest::newRow("all forms") << QByteArray("S S     100.00 g\r\nS I\r\nS +\r\nS -\r\nxyz\r\nES\r\n")
                               << QStringList{weight,
                                              QStringLiteral("unreadable"),
                                              QStringLiteral("overload"),
                                              QStringLiteral("underload"),
                                              QStringLiteral("unreadable"),
                                              QStringLiteral("answer")};
    QTest::newRow("blank lines") << QByteArray("\r\n\n  \r\nS S     100.00 g\r\n\r\n") << QStringList{weight};
    QTest::newRow("garbage, then a weight")
        << QByteArray("\x00\xFF\x13 S S 100.00 g\r\nS S     100.00 g\r\n", 37)
        << QStringList{QStringLiteral("unreadable"), weight};
    QTest::newRow("the end of a line first")
        << QByteArray(".00 g\r\nS S     100.00 g\r\n") << QStringList{QStringLiteral("unreadable"), weight};
}

void tst_SicsLine::stream()
{
    QFETCH(QByteArray, bytes);
    QTEST(texts(SicsLineParser().feed(bytes)), "expected");
}

void tst_SicsLine::everySplitGivesTheSame()
{
    const QByteArray bytes("S S     100.00 g\r\nS D     -7.5 g\r\nbad\r\n" + QByteArray(130, 'y')
                           + "\r\nS +\r\nS S 1.00 kg\r\n");
    const QStringList whole = texts(SicsLineParser().feed(bytes));
    QCOMPARE(whole, QStringList({QStringLiteral("S 100 d=0.01"), QStringLiteral("D -7.5 d=0.1"),
                                 QStringLiteral("unreadable"), QStringLiteral("unreadable"),
                                 QStringLiteral("overload"), QStringLiteral("S 1000 d=10")}));
    for (int first = 0; first <= bytes.size(); ++first) {
        for (int second = first; second <= bytes.size(); second += 5) {
            SicsLineParser parser;
            QStringList parts = texts(parser.feed(bytes.left(first)));
            parts += texts(parser.feed(bytes.mid(first, second - first)));
            parts += texts(parser.feed(bytes.mid(second)));
            QCOMPARE(parts, whole);
        }
    }
}

void tst_SicsLine::byteByByte()
{
    SicsLineParser parser;
    QStringList result;
    for (const char byte : QByteArray("S S     100.00 g\r\nS D     100.02 g\r\n"))
        result += texts(parser.feed(QByteArray(1, byte)));
    QCOMPARE(result, QStringList({QStringLiteral("S 100 d=0.01"), QStringLiteral("D 100.02 d=0.01")}));
}

void tst_SicsLine::longestLine()
{
    const QByteArray weight = "S S" + QByteArray(SicsLineParser::MaximumLineLength - 9, ' ') + "12.5 g";
    QCOMPARE(weight.size() + 0, SicsLineParser::MaximumLineLength);
    for (const char* end : {"\r\n", "\n"})
        QCOMPARE(texts(SicsLineParser().feed(weight + end)), QStringList({QStringLiteral("S 12.5 d=0.1")}));
    SicsLineParser parser;
    QCOMPARE(texts(parser.feed(weight + '\r')), QStringList());
    QCOMPARE(texts(parser.feed("\n")), QStringList({QStringLiteral("S 12.5 d=0.1")}));
}

void tst_SicsLine::overlongLine()
{
    const QByteArray weight = "S S" + QByteArray(SicsLineParser::MaximumLineLength - 8, ' ') + "12.5 g";
    const QVector<SicsLine> lines = SicsLineParser().feed(weight + "\r\nS S 1.0 g\r\n");
    QCOMPARE(texts(lines), QStringList({QStringLiteral("unreadable"), QStringLiteral("S 1 d=0.1")}));
    QCOMPARE(lines.first().detail,
             QStringLiteral("A line of more than 128 bytes; check the scale's interface settings."));
}

void tst_SicsLine::overlongWithoutEndIsReportedOnce()
{
    SicsLineParser parser;
    QStringList result;
    for (int i = 0; i < 1000; ++i)
        result += texts(parser.feed(QByteArray(50, 'x')));
    QCOMPARE(result, QStringList({QStringLiteral("unreadable")}));
    QCOMPARE(texts(parser.feed("still the same line\r\nS S 1.0 g\r\n")),
             QStringList({QStringLiteral("S 1 d=0.1")}));
}

void tst_SicsLine::memoryStaysBounded()
{
    const auto residentPages = [] {
        QFile file(QStringLiteral("/proc/self/statm"));
        return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() : -1;
    };
    SicsLineParser parser;
    const QByteArray block(1 << 20, '\0');
    int lines = parser.feed(block).size();
    const qint64 before = residentPages();
    QVERIFY(before > 0);
    for (int i = 0; i < 256; ++i)
        lines += parser.feed(block).size();
    QCOMPARE(lines, 1);
    // 256 MB went in; fewer than 16384 pages (64 MB) may have stayed.
    QVERIFY(residentPages() - before < 16384);
}

void tst_SicsLine::resetForgetsABegunLine()
{
    SicsLineParser parser;
    parser.feed("S S     10");
    parser.reset();
    QCOMPARE(texts(parser.feed("S S     100.00 g\r\n")), QStringList({QStringLiteral("S 100 d=0.01")}));
}

void tst_SicsLine::resetForgetsAnOverlongLine()
{
    SicsLineParser parser;
    parser.feed(QByteArray(500, 'x'));
    parser.reset();
    QCOMPARE(texts(parser.feed("S S     100.00 g\r\n")), QStringList({QStringLiteral("S 100 d=0.01")}));
}

void tst_SicsLine::floodKeepsTheNewest()
{
    SicsLineParser parser(10);
    QByteArray bytes;
    for (int i = 0; i < 1234; ++i)
        bytes += "S D " + QByteArray::number(i) + " g\r\n";
    const QVector<SicsLine> lines = parser.feed(bytes);
    QCOMPARE(lines.size(), 10);
    QCOMPARE(lines.first().grams, 1224.0);
    QCOMPARE(lines.last().grams, 1233.0);
    QCOMPARE(parser.droppedLines(), Q_UINT64_C(1224));
    // The next turn starts afresh.
    QCOMPARE(parser.feed("S D 5 g\r\nS D 6 g\r\n").size(), 2);
    QCOMPARE(parser.droppedLines(), Q_UINT64_C(1224));
}

void tst_SicsLine::blankLinesPushNothingOut()
{
    SicsLineParser parser(1);
    const QVector<SicsLine> lines = parser.feed("S D 5 g\r\n   \r\n\r\n");
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines.first().grams, 5.0);
    QCOMPARE(parser.droppedLines(), Q_UINT64_C(0));
}

void tst_SicsLine::noLineIsLostUpToTheLimit()
{
    SicsLineParser parser;
    QByteArray bytes;
    for (int i = 0; i < SicsLineParser::DefaultMaximumLines; ++i)
        bytes += "S D " + QByteArray::number(i) + " g\r\n";
    const QVector<SicsLine> lines = parser.feed(bytes);
    QCOMPARE(lines.size() + 0, SicsLineParser::DefaultMaximumLines);
    for (int i = 0; i < lines.size(); ++i)
        QCOMPARE(lines.at(i).grams, static_cast<double>(i));
    QCOMPARE(parser.droppedLines(), Q_UINT64_C(0));
}

QTEST_GUILESS_MAIN(tst_SicsLine)
#include "tst_sicsline.moc"
