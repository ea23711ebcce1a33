// SPDX-License-Identifier: BSD-3-Clause
#include "source/TraceFile.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <QtTest>

#include <limits>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Brimvale::Terminal;

class tst_TraceFile : public QObject
{
    Q_OBJECT

private slots:
    void committedRecordings_data();
    void committedRecordings();
    void accepts_data();
    void accepts();
    void values();
    void decimals_data();
    void decimals();
    void localeDoesNotMatter();
    void refuses_data();
    void refuses();
    void messageNamesFileAndLine();
    void recordingThatDoesNotFitIntoTheMemory();
    void messageKeepsPercentSigns();
    void errorPointerMayBeNull();
    void loadRefuses_data();
    void loadRefuses();
    void loadReadsAFile();
    void longRecording();

private:
    static std::optional<TraceFile> parse(const QByteArray& bytes, QString* error)
    {
        QBuffer buffer;
        buffer.setData(bytes);
        buffer.open(QIODevice::ReadOnly);
        return TraceFile::parse(buffer, QStringLiteral("run.csv"), error);
    }
};

void tst_TraceFile::committedRecordings_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("durationMs");
    QTest::addColumn<double>("last");
    QTest::newRow("filling") << QStringLiteral("filling.csv") << 381 << 1 << 79829 << 48.2;
    QTest::newRow("fast") << QStringLiteral("fast.csv") << 1201 << 2 << 12000 << 0.0;
    QTest::newRow("coarse") << QStringLiteral("coarse.csv") << 41 << 0 << 10000 << 250.0;
}

void tst_TraceFile::committedRecordings()
{
    QFETCH(QString, name);
    QString error;
    const std::optional<TraceFile> trace =
        TraceFile::load(QDir(QStringLiteral(BRIMVALE_TRACE_DIR)).filePath(name), &error);
    QVERIFY2(trace, qPrintable(error));
    QTEST(trace->samples().size(), "count");
    QTEST(trace->decimals(), "decimals");
    QTEST(static_cast<int>(trace->durationMs()), "durationMs");
    QTEST(trace->samples().last().grams, "last");
}

void tst_TraceFile::accepts_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("count");
    const QByteArray header("time_s,weight_g\n");
    QTest::newRow("one reading") << header + "0.1,2.5\n" << 1;
    QTest::newRow("no line end at the end") << header + "0.1,2.5\n0.2,2.6" << 2;
    QTest::newRow("CR LF") << QByteArray("time_s,weight_g\r\n0.1,2.5\r\n0.2,2.6\r\n") << 2;
    QTest::newRow("blank line at the end") << header + "0.1,2.5\n\n" << 1;
    QTest::newRow("blank lines at the end, CR LF")
        << QByteArray("time_s,weight_g\r\n0.1,2.5\r\n\r\n \r\n") << 1;
    QTest::newRow("byte order mark") << "\xEF\xBB\xBF" + header + "0.1,2.5\n" << 1;
    QTest::newRow("blanks around the fields") << header + " 0.1 , 2.5 \n" << 1;
    QTest::newRow("two readings at one time") << header + "0.1,2.5\n0.1,2.6\n" << 2;
    QTest::newRow("signs") << header + "+0.1,-2.5\n0.2,+2.5\n" << 2;
    QTest::newRow("whole numbers") << header + "0,0\n1,5\n" << 2;
    QTest::newRow("many digits in a time") << header + "0.30000000000000004,5\n" << 1;
    QByteArray days = header;
    for (int day = 1; day <= 1157; ++day)
        days += QByteArray::number(day * 86400) + ",5\n";
    QTest::newRow("a day between readings, latest time") << days + "100000000,5\n" << 1158;
    QTest::newRow("largest weights") << header + "0,1000000000\n1,-1000000000\n" << 2;
}

void tst_TraceFile::accepts()
{
    QFETCH(QByteArray, bytes);
    QString error;
    const std::optional<TraceFile> trace = parse(bytes, &error);
    QVERIFY2(trace, qPrintable(error));
    QTEST(trace->samples().size(), "count");
    QVERIFY(error.isEmpty());
}

void tst_TraceFile::values()
{
    const std::optional<TraceFile> trace =
        parse("time_s,weight_g\n0.0004,-0\n0.076,0.2\n1.2345,-36.4\n", nullptr);
    QVERIFY(trace);
    QCOMPARE(trace->samples().size(), 3);
    QCOMPARE(trace->samples().at(0).timeMs, 0);
    QVERIFY(!std::signbit(trace->samples().at(0).grams));
    QCOMPARE(trace->samples().at(1).timeMs, 76);
    QCOMPARE(trace->samples().at(1).grams, 0.2);
    QCOMPARE(trace->samples().at(2).timeMs, 1235);
    QCOMPARE(trace->samples().at(2).grams, -36.4);
    QCOMPARE(trace->durationMs(), 1235);
}

void tst_TraceFile::decimals_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("line");
    QTest::newRow("none") << QByteArray("0,0\n1,5\n") << 0 << 2;
    QTest::newRow("the most that occur") << QByteArray("0,0\n1,0.25\n2,0.1\n3,0.75\n") << 2 << 3;
    QTest::newRow("zeros as written count") << QByteArray("0,100.00\n") << 2 << 2;
    QTest::newRow("those of the time do not count") << QByteArray("0.123,1.5\n") << 1 << 2;
}

void tst_TraceFile::decimals()
{
    QFETCH(QByteArray, lines);
    const std::optional<TraceFile> trace = parse("time_s,weight_g\n" + lines, nullptr);
    QVERIFY(trace);
    QTEST(trace->decimals(), "decimals");
    QTEST(trace->decimalsLine(), "line");
}

void tst_TraceFile::localeDoesNotMatter()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    const std::optional<TraceFile> trace = parse("time_s,weight_g\n0.5,1.25\n", nullptr);
    QLocale::setDefault(before);
    QVERIFY(trace);
    QCOMPARE(trace->samples().at(0).timeMs, 500);
    QCOMPARE(trace->samples().at(0).grams, 1.25);
}

void tst_TraceFile::refuses_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    const QByteArray header("time_s,weight_g\n");
    const auto row = [](const char* name, const QByteArray& bytes, const char* message) {
        QTest::newRow(name) << bytes << QString::fromUtf8(message);
    };
    row("empty file", "", "run.csv:1: the file is empty; its first line must be \"time_s,weight_g\".");
    row("no header", "0.1,2.5\n",
        "run.csv:1: the first line is \"0.1,2.5\"; it must be the header \"time_s,weight_g\".");
    row("other header", "time,weight\n0.1,2.5\n",
        "run.csv:1: the first line is \"time,weight\"; it must be the header \"time_s,weight_g\".");
    row("header only", header,
        "run.csv:1: there are no readings after the header; add lines such as \"0.250,12.5\".");
    row("header and blank lines", header + "\n\n",
        "run.csv:3: there are no readings after the header; add lines such as \"0.250,12.5\".");
    row("one column", header + "0.1\n",
        "run.csv:2: \"0.1\": 2 columns expected, 1 found; a line is a time and a weight with a decimal "
        "point, "
        "separated by one comma, such as \"0.250,12.5\".");
    row("three columns", header + "0.1,2.5\n0.2,2.5,S\n",
        "run.csv:3: \"0.2,2.5,S\": 2 columns expected, 3 found; a line is a time and a weight with a decimal "
        "point, "
        "separated by one comma, such as \"0.250,12.5\".");
    row("decimal commas", header + "0,1,2,5\n",
        "run.csv:2: \"0,1,2,5\": 2 columns expected, 4 found; a line is a time and a weight with a decimal "
        "point, "
        "separated by one comma, such as \"0.250,12.5\".");
    row("semicolon", header + "0.1;2.5\n",
        "run.csv:2: \"0.1;2.5\": 2 columns expected, 1 found; a line is a time and a weight with a decimal "
        "point, "
        "separated by one comma, such as \"0.250,12.5\".");
    const char* mend = " is not a number; write a plain decimal number with a point, such as 12.5.";
    const auto number = [&](const char* name, const QByteArray& line, const QByteArray& what) {
        row(name, header + line, ("run.csv:2: the " + what + mend).constData());
    };
    number("word as time", "start,2.5\n", "time \"start\"");
    number("word as weight", "0.1,heavy\n", "weight \"heavy\"");
    number("empty time", ",2.5\n", "time \"\"");
    number("empty weight", "0.1,\n", "weight \"\"");
    number("nan", "0.1,nan\n", "weight \"nan\"");
    number("inf", "0.1,inf\n", "weight \"inf\"");
    number("time nan", "nan,2.5\n", "time \"nan\"");
    number("exponent", "0.1,1e3\n", "weight \"1e3\"");
    number("hexadecimal", "0.1,0x10\n", "weight \"0x10\"");
    number("unit", "0.1,2.5g\n", "weight \"2.5g\"");
    number("blank inside", "0.1,2 500\n", "weight \"2 500\"");
    number("two points", "0.1,2.5.0\n", "weight \"2.5.0\"");
    number("point without digits", "0.1,2.\n", "weight \"2.\"");
    number("two signs", "0.1,--2\n", "weight \"--2\"");
    number("long field is cut", "0.1," + QByteArray(100, 'x') + "\n",
           "weight \"" + QByteArray(40, 'x') + "...\"");
    row("time goes back", header + "0.1,2.5\n0.3,2.5\n0.2,2.5\n",
        "run.csv:4: the time goes back to 0.2 s after 0.300 s; put the lines in the order of their times.");
    row("time below zero", header + "-0.1,2.5\n",
        "run.csv:2: the time \"-0.1\" is out of range; it must lie between 0 and 100000000 seconds.");
    row("time too late", header + "100000001,2.5\n",
        "run.csv:2: the time \"100000001\" is out of range; it must lie between 0 and 100000000 seconds.");
    row("start of the recording is not 0", header + "90000000,5\n",
        "run.csv:2: there is no reading between 0.000 s and 90000000 s, which is more than a day; the times "
        "are "
        "seconds since the start of the recording: subtract what is too much.");
    row("more than a day without a reading", header + "0.5,5\n86400.501,5\n",
        "run.csv:3: there is no reading between 0.500 s and 86400.501 s, which is more than a day; the times "
        "are "
        "seconds since the start of the recording: subtract what is too much.");
    row("weight too large", header + "0.1,1000000001\n",
        "run.csv:2: the weight \"1000000001\" is out of range; it must lie between -1000000000 and "
        "1000000000 grams.");
    row("weight beyond any double", header + "0.1,-" + QByteArray(400, '9') + "\n",
        "run.csv:2: the weight \"-999999999999999999999999999999999999999...\" is out of range; it must lie "
        "between "
        "-1000000000 and 1000000000 grams.");
    row("blank line between", header + "0.1,2.5\n\n0.2,2.5\n",
        "run.csv:4: line 3 is blank and more follows; remove the blank line.");
    row("Latin-1",
        header
            + "0.1,2.5\n0.2,2\xB7"
              "5\n",
        "run.csv:3: this is not UTF-8 text; save the file as plain text in UTF-8.");
    row("UTF-16",
        QByteArray("\xFF\xFE"
                   "t\0i\0m\0e\0",
                   10),
        "run.csv:1: this is not UTF-8 text; save the file as plain text in UTF-8.");
    row("zero byte", header + QByteArray("0.1,2\0\n", 7),
        "run.csv:2: this is not UTF-8 text; save the file as plain text in UTF-8.");
    row("long binary line", QByteArray(5000, '\0'),
        "run.csv:1: this is not UTF-8 text; save the file as plain text in UTF-8.");
    row("UTF-8 that is no number", header + "0.1,\xC2\xBD\n",
        "run.csv:2: the weight \"\xC2\xBD\" is not a number; write a plain decimal number with a point, such "
        "as 12.5.");
    row("overlong line", header + "0.1," + QByteArray(2000, '1') + "\n",
        "run.csv:2: the line is longer than 1000 bytes; a line is a time and a weight, such as "
        "\"0.250,12.5\".");
}

void tst_TraceFile::refuses()
{
    QFETCH(QByteArray, bytes);
    QString error;
    QVERIFY(!parse(bytes, &error));
    QTEST(error, "message");
}

void tst_TraceFile::recordingThatDoesNotFitIntoTheMemory()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("sanitizers need address space without a limit");
#endif
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("long.csv"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("time_s,weight_g\n");
    constexpr int Readings = 500000; // 16 bytes each
    for (int i = 0; i < Readings; ++i)
        file.write(QByteArray::number(i) + ",1\n");
    file.close();

    const pid_t child = ::fork();
    if (child == 0) {
        // What the process has now, and room for a part of the readings.
        QFile statm(QStringLiteral("/proc/self/statm"));
        if (!statm.open(QIODevice::ReadOnly))
            ::_exit(2);
        const rlim_t pages = statm.readAll().split(' ').first().toULongLong();
        const rlim_t bytes = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + 1024 * 1024;
        const rlimit limit{bytes, bytes};
        setrlimit(RLIMIT_AS, &limit);
        QString error;
        const bool loaded = TraceFile::load(name, &error).has_value();
        const bool isTold =
            error
            == name + QStringLiteral(": there is not enough memory for it; cut the recording into parts.");
        if (!isTold)
            ::fprintf(stderr, "loaded: %d, told: %s\n", loaded, qPrintable(error));
        ::_exit(!loaded && isTold ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    QVERIFY(WIFEXITED(status));
    QCOMPARE(WEXITSTATUS(status), 0);
}

void tst_TraceFile::messageNamesFileAndLine()
{
    QByteArray bytes("time_s,weight_g\n");
    for (int i = 0; i < 500; ++i)
        bytes += QByteArray::number(i) + ",1.0\n";
    QString error;
    QVERIFY(!parse(bytes + "x,1.0\n", &error));
    QVERIFY2(error.startsWith(QStringLiteral("run.csv:502: ")), qPrintable(error));
}

void tst_TraceFile::messageKeepsPercentSigns()
{
    QBuffer buffer;
    buffer.setData("time_s,weight_g\n%1%2%3\n");
    buffer.open(QIODevice::ReadOnly);
    QString error;
    QVERIFY(!TraceFile::parse(buffer, QStringLiteral("50%3.csv"), &error));
    QVERIFY2(error.startsWith(QStringLiteral("50%3.csv:2: \"%1%2%3\": 2 columns expected, 1 found")),
             qPrintable(error));
}

void tst_TraceFile::errorPointerMayBeNull()
{
    QVERIFY(!parse("", nullptr));
    QVERIFY(!parse("time_s,weight_g\nx,1\n", nullptr));
    QVERIFY(!TraceFile::load(QStringLiteral("/nonexistent/run.csv"), nullptr));
}

void tst_TraceFile::loadRefuses_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    QTest::newRow("no name") << QString() << QStringLiteral(": no file is named; write trace:FILE.");
    QTest::newRow("missing") << QStringLiteral("/nonexistent/run.csv")
                             << QStringLiteral(
                                    "/nonexistent/run.csv: there is no such file; check the path.");
    QTest::newRow("directory") << QStringLiteral("/")
                               << QStringLiteral("/: this is a directory; name a recording in it.");
}

void tst_TraceFile::loadRefuses()
{
    QFETCH(QString, name);
    QString error;
    QVERIFY(!TraceFile::load(name, &error));
    QTEST(error, "message");
}

void tst_TraceFile::loadReadsAFile()
{
    QTemporaryDir directory;
    const QString name = directory.filePath(QStringLiteral("messung größer.csv"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("time_s,weight_g\r\n0.25,12.5\r\nfalsch,12.5\r\n");
    file.close();
    QString error;
    QVERIFY(!TraceFile::load(name, &error));
    QVERIFY2(error.startsWith(name + QStringLiteral(":3: the time \"falsch\" is not a number")),
             qPrintable(error));
}

void tst_TraceFile::longRecording()
{
    constexpr int Count = 300000;
    QByteArray bytes("time_s,weight_g\n");
    for (int i = 0; i < Count; ++i)
        bytes += QByteArray::number(i / 100) + '.' + QByteArray::number(i % 100 + 100).mid(1) + ",12.5\n";
    QString error;
    const std::optional<TraceFile> trace = parse(bytes, &error);
    QVERIFY2(trace, qPrintable(error));
    QCOMPARE(trace->samples().size(), Count);
    QCOMPARE(trace->durationMs(), (Count - 1) * 10);
}

int main(int argc, char** argv)
{
    // One arena for all threads: that of the test's watchdog has room that no limit of the address space takes away.
    mallopt(M_ARENA_MAX, 1);
    QCoreApplication application(argc, argv);
    tst_TraceFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_tracefile.moc"
