// SPDX-License-Identifier: BSD-3-Clause
#include "SicsFixture.h"
#include "sics/SicsSession.h"

#include <QRegularExpression>
#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(Brimvale::Terminal::Reading::Status)

using namespace Brimvale::Terminal;

class tst_SicsSession : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void answersAtOnce_data();
    void answersAtOnce();
    void waitsForStability_data();
    void waitsForStability();
    void waitTimesOut_data();
    void waitTimesOut();
    void waitEndsWithoutAWeight_data();
    void waitEndsWithoutAWeight();
    void whileACommandWaits_data();
    void whileACommandWaits();
    void resetEndsTheWait();

    void weightsByteForByte_data();
    void weightsByteForByte();
    void readability_data();
    void readability();
    void zeroIsSet();
    void tareIsSet();
    void refusedTareChangesNothing();
    void germanTerminalAnswersTheSame();
    void unitOfTheDisplayIsNotThatOfTheAnswers();
    void serialNumberOfAnyText();
    void formatNameIsOnlyBorrowed();

    void repeatsEveryReading();
    void repeatsWithoutAWeight();
    void repetitionEnds_data();
    void repetitionEnds();
    void zeroAndTareLeaveTheRepetition();
    void repeatsOnChange();
    void repeatsOnChangeOfAStep();
    void limitOfRepetition_data();
    void limitOfRepetition();
    void repeatsOnChangeWithoutAWeight();

    void lines_data();
    void lines();
    void bytewise();
    void halfLineIsForgotten();
    void slowLineIsRead();
    void rateIsKept();
    void burstAfterAPause();
    void tooManyWaitingCommands();
    void flood();
    void garbage();
    void randomBytes();
    void deletedByItsAnswer_data();
    void deletedByItsAnswer();
    void eventLoopOfAnApplication();

private:
    void make(const SicsLimits& limits = {});
    void send(const QByteArray& bytes) { m_session->feed(bytes); }
    QByteArray taken()
    {
        QByteArray result;
        result.swap(m_answers);
        return result;
    }

    std::unique_ptr<SicsFixture> m_fixture;
    std::unique_ptr<SicsSession> m_session;
    QByteArray m_answers;
    int m_floods = 0;
};

void tst_SicsSession::init()
{
    m_fixture = std::make_unique<SicsFixture>();
    make();
}

void tst_SicsSession::cleanup()
{
    m_session.reset();
    m_fixture.reset();
}

void tst_SicsSession::make(const SicsLimits& limits)
{
    m_answers.clear();
    m_floods = 0;
    m_session = std::make_unique<SicsSession>(m_fixture->sicsScale, m_fixture->clock, limits);
    connect(m_session.get(), &SicsSession::answered, this,
            [this](const QByteArray& line) { m_answers += line; });
    connect(m_session.get(), &SicsSession::flooded, this, [this] { ++m_floods; });
}

void tst_SicsSession::answersAtOnce_data()
{
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("answer");
    const struct
    {
        const char* state;
        const char* stableWeight; // Empty: it waits.
        const char* weight;
        const char* onChange; // Empty: it waits.
        const char* zero;     // Empty: it waits.
        const char* tare;     // Empty: it waits.
    } rows[] = {
        {"stable", "S S      100.0 g\r\n", "S S      100.0 g\r\n", "S S      100.0 g\r\n", "Z A\r\n",
         "T S      100.0 g\r\n"},
        {"moving", "", "S D      120.0 g\r\n", "", "", ""},
        {"empty", "S S        0.0 g\r\n", "S S        0.0 g\r\n", "S S        0.0 g\r\n", "Z A\r\n",
         "T S        0.0 g\r\n"},
        {"negative", "S S      -12.3 g\r\n", "S S      -12.3 g\r\n", "S S      -12.3 g\r\n", "Z A\r\n",
         "T -\r\n"},
        {"far above zero", "S S      200.0 g\r\n", "S S      200.0 g\r\n", "S S      200.0 g\r\n", "Z +\r\n",
         "T S      200.0 g\r\n"},
        {"far below zero", "S S     -200.0 g\r\n", "S S     -200.0 g\r\n", "S S     -200.0 g\r\n", "Z -\r\n",
         "T -\r\n"},
        {"coarse range", "S S     4000.0 g\r\n", "S S     4000.0 g\r\n", "S S     4000.0 g\r\n", "Z +\r\n",
         "T S     4000.0 g\r\n"},
        {"overload", "S +\r\n", "S +\r\n", "S +\r\n", "Z +\r\n", "T +\r\n"},
        {"underload", "S -\r\n", "S -\r\n", "S -\r\n", "Z -\r\n", "T -\r\n"},
        {"unreadable", "S I\r\n", "S I\r\n", "S I\r\n", "Z I\r\n", "T I\r\n"},
        {"cable out", "S I\r\n", "S I\r\n", "S I\r\n", "Z I\r\n", "T I\r\n"},
        {"no reading yet", "S I\r\n", "S I\r\n", "S I\r\n", "Z I\r\n", "T I\r\n"},
    };
    for (const auto& row : rows) {
        const struct
        {
            const char* command;
            const char* answer;
        } cells[] = {
            {"S", row.stableWeight},      {"SI", row.weight}, {"SIR", row.weight},
            {"SR", row.onChange},         {"Z", row.zero},    {"T", row.tare},
            {"@", "I4 A \"B-1042\"\r\n"}, {"TARE", "ES\r\n"}, {"SI 1", "EL\r\n"},
        };
        for (const auto& cell : cells) {
            QTest::addRow("%s: %s", row.state, cell.command)
                << QByteArray(row.state) << QByteArray(cell.command) << QByteArray(cell.answer);
        }
    }
}

void tst_SicsSession::answersAtOnce()
{
    QFETCH(QByteArray, state);
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, answer);
    m_fixture->bringTo(state);
    send(command + "\r\n");
    QCOMPARE(taken(), answer);
}

void tst_SicsSession::waitsForStability_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("S") << QByteArray("S") << QByteArray("S S      110.0 g\r\n");
    QTest::newRow("Z") << QByteArray("Z") << QByteArray("Z A\r\n");
    QTest::newRow("T") << QByteArray("T") << QByteArray("T S      110.0 g\r\n");
    QTest::newRow("SR") << QByteArray("SR") << QByteArray("S S      110.0 g\r\n");
}

void tst_SicsSession::waitsForStability()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, answer);
    m_fixture->bringTo("moving");
    send(command + "\r\n");
    for (int i = 0; !m_fixture->scale.isStable(); ++i) {
        QCOMPARE(taken(), QByteArray());
        QVERIFY2(i < 30, "the weight does not come to rest");
        m_fixture->feed(110.0);
    }
    QCOMPARE(taken(), answer);
    m_fixture->settle(110.0);
    QCOMPARE(taken(), QByteArray()); // Once.
}

void tst_SicsSession::waitTimesOut_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("S") << QByteArray("S") << QByteArray("S I\r\n");
    QTest::newRow("Z") << QByteArray("Z") << QByteArray("Z I\r\n");
    QTest::newRow("T") << QByteArray("T") << QByteArray("T I\r\n");
}

void tst_SicsSession::waitTimesOut()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, answer);
    m_fixture->bringTo("moving");
    send(command + "\r\n");
    for (int i = 0; i < 99; ++i)
        m_fixture->feed(i % 2 == 0 ? 100.0 : 140.0);
    m_fixture->clock.advance(99);
    QCOMPARE(taken(), QByteArray());
    m_fixture->clock.advance(1);
    QCOMPARE(taken(), answer);
    m_fixture->settle(140.0);
    QCOMPARE(taken(), QByteArray());
    QVERIFY(!m_fixture->scale.isTareSet());
    QCOMPARE(m_fixture->scale.zeroOffsetGrams(), 0.0);
}

void tst_SicsSession::waitEndsWithoutAWeight_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<Reading::Status>("status");
    QTest::addColumn<QByteArray>("answer");
    for (const char id : {'S', 'Z', 'T'}) {
        const QByteArray command(1, id);
        QTest::addRow("%c, overload", id) << command << Reading::Status::Overload << command + " +\r\n";
        QTest::addRow("%c, underload", id) << command << Reading::Status::Underload << command + " -\r\n";
        QTest::addRow("%c, cable out", id) << command << Reading::Status::Disconnected << command + " I\r\n";
        QTest::addRow("%c, unreadable", id) << command << Reading::Status::Unreadable << command + " I\r\n";
    }
}

void tst_SicsSession::waitEndsWithoutAWeight()
{
    QFETCH(QByteArray, command);
    QFETCH(Reading::Status, status);
    QFETCH(QByteArray, answer);
    m_fixture->bringTo("moving");
    send(command + "\r\n");
    m_fixture->fail(status);
    QCOMPARE(taken(), answer);
}

void tst_SicsSession::whileACommandWaits_data()
{
    QTest::addColumn<QByteArray>("waiting");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("answer");
    const struct
    {
        const char* command;
        const char* answer;
    } rows[] = {
        {"S", "S I\r\n"},  {"SI", "S D      120.0 g\r\n"}, {"SIR", "S I\r\n"},
        {"SR", "S I\r\n"}, {"SR 1 g", "S I\r\n"},          {"Z", "Z I\r\n"},
        {"T", "T I\r\n"},  {"nonsense", "ES\r\n"},         {"S S", "EL\r\n"},
    };
    for (const char waiting : {'S', 'Z', 'T'}) {
        for (const auto& row : rows) {
            QTest::addRow("%c waits, %s", waiting, row.command)
                << QByteArray(1, waiting) << QByteArray(row.command) << QByteArray(row.answer);
        }
    }
}

void tst_SicsSession::whileACommandWaits()
{
    QFETCH(QByteArray, waiting);
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, answer);
    m_fixture->bringTo("moving");
    send(waiting + "\r\n" + command + "\r\n");
    QCOMPARE(taken(), answer);
    // What waits is not forgotten.
    m_fixture->settle(100.0);
    const QByteArray finished = taken();
    QVERIFY2(finished.startsWith(waiting), finished.constData());
    QCOMPARE(finished.count("\r\n"), 1);
}

void tst_SicsSession::resetEndsTheWait()
{
    m_fixture->bringTo("moving");
    send("T\r\n@\r\n");
    QCOMPARE(taken(), QByteArray("I4 A \"B-1042\"\r\n"));
    m_fixture->settle(100.0);
    m_fixture->clock.advance(60000);
    QCOMPARE(taken(), QByteArray());
    QVERIFY(!m_fixture->scale.isTareSet());
}

void tst_SicsSession::weightsByteForByte_data()
{
    QTest::addColumn<double>("grams");
    QTest::addColumn<QByteArray>("stable");
    QTest::addColumn<QByteArray>("moving");
    const auto row = [](const char* name, double grams, const char* stable, const char* moving) {
        QTest::newRow(name) << grams << QByteArray(stable) << QByteArray(moving);
    };
    row("zero", 0.0, "S S        0.0 g\r\n", "S D        0.0 g\r\n");
    row("below half an increment", -0.04, "S S        0.0 g\r\n", "S D        0.0 g\r\n");
    row("one increment", 0.1, "S S        0.1 g\r\n", "S D        0.1 g\r\n");
    row("negative", -12.5, "S S      -12.5 g\r\n", "S D      -12.5 g\r\n");
    row("hundred", 100.0, "S S      100.0 g\r\n", "S D      100.0 g\r\n");
    row("capacity", 6000.0, "S S     6000.0 g\r\n", "S D     6000.0 g\r\n");
}

void tst_SicsSession::weightsByteForByte()
{
    QFETCH(double, grams);
    QFETCH(QByteArray, stable);
    QFETCH(QByteArray, moving);
    m_fixture->settle(grams > 1000.0 ? 0.0 : 2000.0);
    m_fixture->feed(grams);
    send("SI\r\n");
    QCOMPARE(taken(), moving);
    m_fixture->settle(grams);
    send("SI\r\n");
    QCOMPARE(taken(), stable);
}

void tst_SicsSession::readability_data()
{
    QTest::addColumn<double>("increment");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("20 g") << 20.0 << QByteArray("S S       1240 g\r\n");
    QTest::newRow("1 g") << 1.0 << QByteArray("S S       1235 g\r\n");
    QTest::newRow("0.05 g") << 0.05 << QByteArray("S S    1234.55 g\r\n");
    QTest::newRow("0.01 g") << 0.01 << QByteArray("S S    1234.57 g\r\n");
    QTest::newRow("0.0001 g") << 0.0001 << QByteArray("S S  1234.5678 g\r\n");
    QTest::newRow("0.00001 g, fills the column") << 0.00001 << QByteArray("S S 1234.56780 g\r\n");
    QTest::newRow("0.000001 g, too many digits") << 0.000001 << QByteArray("S +\r\n");
}

void tst_SicsSession::readability()
{
    QFETCH(double, increment);
    QFETCH(QByteArray, answer);
    ScaleSettings settings;
    settings.readability = Readability::fromGrams(increment);
    Scale scale(settings);
    VirtualClock clock;
    RecordingScreen screen;
    Host host(scale, clock, screen);
    Formatter formatter;
    SicsScale sicsScale(host, scale, formatter, QString());
    for (int i = 0; i < 30; ++i) {
        clock.advance(100);
        scale.processReading(Reading::valid(clock.nowMs(), 1234.5678));
    }
    QCOMPARE(sicsScale.weightAnswer(), answer);
}

void tst_SicsSession::zeroIsSet()
{
    m_fixture->settle(100.0);
    send("T\r\nZ\r\n");
    QCOMPARE(taken(), QByteArray("T S      100.0 g\r\nZ A\r\n"));
    QCOMPARE(m_fixture->scale.zeroOffsetGrams(), 100.0);
    send("S\r\n"); // No reading in between.
    QCOMPARE(taken(), QByteArray("S S        0.0 g\r\n"));
}

void tst_SicsSession::tareIsSet()
{
    m_fixture->settle(50.0);
    send("T\r\nS\r\n");
    QCOMPARE(taken(), QByteArray("T S       50.0 g\r\nS S        0.0 g\r\n"));
    QCOMPARE(m_fixture->scale.tareGrams(), 50.0);
    m_fixture->settle(180.0);
    send("S\r\n");
    QCOMPARE(taken(), QByteArray("S S      130.0 g\r\n"));
    m_fixture->settle(0.0);
    send("S\r\nT\r\n");
    QCOMPARE(taken(), QByteArray("S S      -50.0 g\r\nT S        0.0 g\r\n"));
    QVERIFY(!m_fixture->scale.isTareSet());
}

void tst_SicsSession::refusedTareChangesNothing()
{
    m_fixture->settle(-12.0);
    send("T\r\nS\r\n");
    QCOMPARE(taken(), QByteArray("T -\r\nS S      -12.0 g\r\n"));
    QCOMPARE(m_fixture->notices, QStringList()); // The client knows; the person at the screen did nothing.
    // A refusal is not remembered beyond its command.
    m_fixture->settle(12.0);
    send("T\r\n");
    QCOMPARE(taken(), QByteArray("T S       12.0 g\r\n"));
}

void tst_SicsSession::germanTerminalAnswersTheSame()
{
    QLocale::setDefault(QLocale(QLocale::German));
    m_fixture->settle(1234.5);
    send("SI\r\n");
    m_fixture->fail(Reading::Status::Disconnected);
    send("SI\r\n");
    QLocale::setDefault(QLocale::c());
    QCOMPARE(taken(), QByteArray("S S     1234.5 g\r\nS I\r\n"));
}

void tst_SicsSession::unitOfTheDisplayIsNotThatOfTheAnswers()
{
    m_fixture->settle(1234.5);
    QVERIFY(m_fixture->host->units().setMainUnit(QStringLiteral("kg")));
    send("SI\r\nT\r\nSI\r\n");
    QCOMPARE(taken(), QByteArray("S S     1234.5 g\r\nT S     1234.5 g\r\nS S        0.0 g\r\n"));
}

void tst_SicsSession::serialNumberOfAnyText()
{
    SicsScale scale(*m_fixture->host, m_fixture->scale, m_fixture->formatter,
                    QStringLiteral("a\"b\r\nS S 1 g\u20ac"));
    QCOMPARE(scale.resetAnswer(), QByteArray("I4 A \"a?b??S S 1 g?\"\r\n"));
}

void tst_SicsSession::formatNameIsOnlyBorrowed()
{
    m_fixture->settle(100.0);
    send("SI\r\n");
    QCOMPARE(m_fixture->host->system().GetProtocolFormatName(), QStringLiteral("text"));
}

void tst_SicsSession::repeatsEveryReading()
{
    m_fixture->settle(100.0);
    send("SIR\r\n");
    QCOMPARE(taken(), QByteArray("S S      100.0 g\r\n"));
    m_fixture->feed(100.0);
    m_fixture->feed(150.0);
    m_fixture->feed(160.0);
    QCOMPARE(taken(), QByteArray("S S      100.0 g\r\nS D      150.0 g\r\nS D      160.0 g\r\n"));
}

void tst_SicsSession::repeatsWithoutAWeight()
{
    send("SIR\r\n");
    QCOMPARE(taken(), QByteArray("S I\r\n"));
    m_fixture->feed(6100.0);
    m_fixture->fail(Reading::Status::Underload);
    m_fixture->fail(Reading::Status::Disconnected);
    m_fixture->feed(5.0);
    QCOMPARE(taken(), QByteArray("S +\r\nS -\r\nS I\r\nS D        5.0 g\r\n"));
}

void tst_SicsSession::repetitionEnds_data()
{
    QTest::addColumn<QByteArray>("repetition");
    QTest::addColumn<QByteArray>("end");
    for (const char* repetition : {"SIR", "SR"}) {
        for (const char* end : {"S", "SI", "@"})
            QTest::addRow("%s by %s", repetition, end) << QByteArray(repetition) << QByteArray(end);
    }
}

void tst_SicsSession::repetitionEnds()
{
    QFETCH(QByteArray, repetition);
    QFETCH(QByteArray, end);
    m_fixture->settle(100.0);
    send(repetition + "\r\n" + end + "\r\n");
    taken();
    m_fixture->settle(500.0);
    QCOMPARE(taken(), QByteArray());
}

void tst_SicsSession::zeroAndTareLeaveTheRepetition()
{
    m_fixture->settle(50.0);
    send("SIR\r\nT\r\n");
    QCOMPARE(taken(), QByteArray("S S       50.0 g\r\nT S       50.0 g\r\n"));
    m_fixture->feed(50.0);
    QCOMPARE(taken(), QByteArray("S S        0.0 g\r\n"));
    send("Z\r\nwrong\r\nZ 1\r\n");
    QCOMPARE(taken(), QByteArray("Z A\r\nES\r\nEL\r\n"));
    m_fixture->feed(50.0);
    QCOMPARE(taken(), QByteArray("S S        0.0 g\r\n"));
}

void tst_SicsSession::repeatsOnChange()
{
    m_fixture->settle(100.0);
    send("SR\r\n");
    QCOMPARE(taken(), QByteArray("S S      100.0 g\r\n"));
    m_fixture->feed(112.4); // Below an eighth.
    m_fixture->settle(100.0);
    QCOMPARE(taken(), QByteArray());
    m_fixture->feed(112.5);
    QCOMPARE(taken(), QByteArray("S D      112.5 g\r\n"));
    m_fixture->feed(130.0);
    m_fixture->feed(140.0);
    QCOMPARE(taken(), QByteArray());
    m_fixture->settle(140.0);
    QCOMPARE(taken(), QByteArray("S S      140.0 g\r\n"));
    m_fixture->feed(157.4); // An eighth of 140 is 17.5.
    QCOMPARE(taken(), QByteArray());
    m_fixture->feed(157.5);
    QCOMPARE(taken(), QByteArray("S D      157.5 g\r\n"));
}

void tst_SicsSession::repeatsOnChangeOfAStep()
{
    // A tare changes the weight at once, without an unstable time.
    m_fixture->settle(100.0);
    send("SR\r\nT\r\n");
    QCOMPARE(taken(), QByteArray("S S      100.0 g\r\nT S      100.0 g\r\n"));
    m_fixture->feed(100.0);
    m_fixture->feed(100.0);
    QCOMPARE(taken(), QByteArray("S S        0.0 g\r\n"));
}

void tst_SicsSession::limitOfRepetition_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<double>("below");
    QTest::addColumn<double>("enough");
    QTest::newRow("usual, small weight: 30 increments") << QByteArray("SR") << 12.9 << 13.0;
    QTest::newRow("given") << QByteArray("SR 0.5 g") << 10.4 << 10.5;
    QTest::newRow("given, downwards") << QByteArray("SR 0.5 g") << 9.6 << 9.5;
    QTest::newRow("one increment") << QByteArray("SR 0.1 g") << 10.0 << 10.1;
    QTest::newRow("large") << QByteArray("SR 500 g") << 509.9 << 510.0;
}

void tst_SicsSession::limitOfRepetition()
{
    QFETCH(QByteArray, command);
    QFETCH(double, below);
    QFETCH(double, enough);
    m_fixture->settle(10.0);
    send(command + "\r\n");
    taken();
    m_fixture->settle(below);
    QCOMPARE(taken(), QByteArray());
    m_fixture->feed(enough);
    QCOMPARE(taken().count("\r\n"), 1);
}

void tst_SicsSession::repeatsOnChangeWithoutAWeight()
{
    m_fixture->settle(100.0);
    send("SR\r\n");
    taken();
    m_fixture->feed(6100.0);
    m_fixture->feed(6200.0);
    QCOMPARE(taken(), QByteArray("S +\r\n"));
    m_fixture->fail(Reading::Status::Disconnected);
    QCOMPARE(taken(), QByteArray("S I\r\n"));
    m_fixture->settle(100.0);
    QCOMPARE(taken(), QByteArray("S S      100.0 g\r\n"));
}

void tst_SicsSession::lines_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::addColumn<QByteArray>("answer");
    const QByteArray weight("S S      100.0 g\r\n");
    const QByteArray unknown("ES\r\n");
    const QByteArray parameter("EL\r\n");
    QTest::newRow("CR LF") << QByteArray("SI\r\n") << weight;
    QTest::newRow("LF") << QByteArray("SI\n") << weight;
    QTest::newRow("CR") << QByteArray("SI\r") << weight;
    QTest::newRow("LF CR") << QByteArray("SI\n\rSI\n\r") << weight + weight;
    QTest::newRow("no end") << QByteArray("SI") << QByteArray();
    QTest::newRow("two in one piece") << QByteArray("SI\r\nSI\r\n") << weight + weight;
    QTest::newRow("one and a half") << QByteArray("SI\r\nS") << weight;
    QTest::newRow("empty lines") << QByteArray("\r\n\r\n\n\r   \r\n") << QByteArray();
    QTest::newRow("blanks around") << QByteArray("  SI  \r\n") << weight;
    QTest::newRow("small letters") << QByteArray("si\r\n") << unknown;
    QTest::newRow("another command") << QByteArray("I1\r\n") << unknown;
    QTest::newRow("part of a command") << QByteArray("SIRX\r\n") << unknown;
    QTest::newRow("tabulator") << QByteArray("SI\t\r\n") << unknown;
    QTest::newRow("null byte") << QByteArray("S\0I\r\n", 5) << unknown;
    QTest::newRow("null byte behind") << QByteArray("SI\0\r\n", 5) << unknown;
    QTest::newRow("letters beyond ASCII") << QByteArray("\xc3\xa4\r\n") << unknown;
    QTest::newRow("parameter of S") << QByteArray("S 1\r\n") << parameter;
    QTest::newRow("parameter of SI") << QByteArray("SI x\r\n") << parameter;
    QTest::newRow("parameter of SIR") << QByteArray("SIR 100\r\n") << parameter;
    QTest::newRow("parameter of Z") << QByteArray("Z 0\r\n") << parameter;
    QTest::newRow("parameter of T") << QByteArray("T 10.0 g\r\n") << parameter;
    QTest::newRow("parameter of @") << QByteArray("@ @\r\n") << parameter;
    QTest::newRow("SR without unit") << QByteArray("SR 1\r\n") << parameter;
    QTest::newRow("SR, other unit") << QByteArray("SR 1 kg\r\n") << parameter;
    QTest::newRow("SR, nothing") << QByteArray("SR 0 g\r\n") << parameter;
    QTest::newRow("SR, negative") << QByteArray("SR -1 g\r\n") << parameter;
    QTest::newRow("SR, no number") << QByteArray("SR one g\r\n") << parameter;
    QTest::newRow("SR, not finite") << "SR " + QByteArray(50, '9') + "e999 g\r\n" << parameter;
    QTest::newRow("SR, one too many") << QByteArray("SR 1 g g\r\n") << parameter;
    QTest::newRow("SR, limit") << QByteArray("SR 1.5 g\r\n") << weight;
    QTest::newRow("longest line") << "SI" + QByteArray(62, ' ') + "\r\n" << weight;
    QTest::newRow("one too long") << "SI" + QByteArray(63, ' ') + "\r\n" << unknown;
    QTest::newRow("far too long") << QByteArray(5000, 'S') + "\r\nSI\r\n" << unknown + weight;
    QTest::newRow("too long without end") << QByteArray(5000, 'S') << unknown;
}

void tst_SicsSession::lines()
{
    QFETCH(QByteArray, sent);
    QFETCH(QByteArray, answer);
    m_fixture->settle(100.0);
    send(sent);
    QCOMPARE(taken(), answer);
}

void tst_SicsSession::bytewise()
{
    m_fixture->settle(100.0);
    const QByteArray sent = "SI\r\nS\r\nnonsense\nZ 1\r\n" + QByteArray(70, 'x') + "\r\n@\r\n";
    for (const char byte : sent)
        send(QByteArray(1, byte));
    QCOMPARE(taken(), QByteArray("S S      100.0 g\r\nS S      100.0 g\r\nES\r\nEL\r\nES\r\n"
                                 "I4 A \"B-1042\"\r\n"));
}

void tst_SicsSession::halfLineIsForgotten()
{
    m_fixture->settle(100.0);
    send("S");
    m_fixture->clock.advance(29999);
    QCOMPARE(taken(), QByteArray());
    m_fixture->clock.advance(1);
    QCOMPARE(taken(), QByteArray("ES\r\n"));
    send("I\r\n"); // Not the rest of "SI".
    QCOMPARE(taken(), QByteArray("ES\r\n"));
    m_fixture->clock.advance(60000);
    QCOMPARE(taken(), QByteArray());
}

void tst_SicsSession::slowLineIsRead()
{
    m_fixture->settle(100.0);
    for (const char byte : QByteArray("SI\r\n")) {
        m_fixture->clock.advance(20000);
        send(QByteArray(1, byte));
    }
    QCOMPARE(taken(), QByteArray("S S      100.0 g\r\n"));
}

void tst_SicsSession::rateIsKept()
{
    m_fixture->settle(100.0);
    for (int i = 0; i < 70; ++i)
        send("SI\r\n");
    QCOMPARE(taken().count("S S"), 20);
    m_fixture->clock.advance(100);
    QCOMPARE(taken().count("S S"), 10);
    m_fixture->clock.advance(400);
    QCOMPARE(taken().count("S S"), 40);
    m_fixture->clock.advance(10000);
    QCOMPARE(taken(), QByteArray());
}

void tst_SicsSession::burstAfterAPause()
{
    m_fixture->settle(100.0);
    for (int i = 0; i < 2; ++i) {
        for (int j = 0; j < 20; ++j)
            send("SI\r\n");
        QCOMPARE(taken().count("S S"), 20);
        m_fixture->clock.advance(60000); // However long the pause, no more than a burst.
    }
}

void tst_SicsSession::tooManyWaitingCommands()
{
    m_fixture->settle(100.0);
    for (int i = 0; i < 200; ++i)
        send("SI\r\n");
    QByteArray answers = taken();
    QCOMPARE(answers.count("S S"), 20);
    QCOMPARE(answers.count("ES\r\n"), 80);
    m_fixture->clock.advance(1000);
    answers = taken();
    QCOMPARE(answers.count("S S"), 100);
    QCOMPARE(answers.count("ES\r\n"), 0);
    m_fixture->clock.advance(10);
    send("SI\r\n");
    QCOMPARE(taken(), QByteArray("S S      100.0 g\r\n"));
    QCOMPARE(m_floods, 0);
}

void tst_SicsSession::flood()
{
    SicsLimits limits;
    limits.bytesPerSecond = 1000;
    make(limits);
    m_fixture->settle(100.0);
    for (int second = 0; second < 5; ++second) {
        for (int i = 0; i < 10; ++i)
            send(QByteArray(100, '\n'));
        QCOMPARE(m_floods, 0);
        m_fixture->clock.advance(1000);
    }
    send(QByteArray(1000, '\n'));
    QCOMPARE(m_floods, 0);
    send("\n");
    QCOMPARE(m_floods, 1);
}

void tst_SicsSession::garbage()
{
    m_fixture->settle(100.0);
    QByteArray bytes;
    for (int i = 0; i < 4096; ++i)
        bytes.append(static_cast<char>(i * 37));
    send(bytes + "\r\n");
    m_fixture->clock.advance(10000);
    const QByteArray answers = taken();
    QCOMPARE(answers.count("ES\r\n") * 4, answers.size());
    send("SI\r\n");
    QCOMPARE(taken(), QByteArray("S S      100.0 g\r\n"));
}

void tst_SicsSession::randomBytes()
{
    // Pieces of commands, line ends and any bytes, in any order: every answer is one of those there are.
    m_fixture->settle(100.0);
    const QRegularExpression answer(QStringLiteral(
        "^(S [SD] [ ]*-?[0-9]+\\.[0-9] g|[STZ] [I+-]|Z A|T S [ ]*[0-9]+\\.[0-9] g|E[SL]|I4 A \"B-1042\")$"));
    const QByteArrayList pieces{"S",  "I",  "R",    "Z",       "T",          "@",     " ",     "1",    "g",
                                "\r", "\n", "\r\n", "SIR\r\n", "SR 1 g\r\n", "T\r\n", "Z\r\n", "S\r\n"};
    quint32 random = 12345;
    const auto next = [&random](int below) {
        random = random * 1664525u + 1013904223u;
        return static_cast<int>((random >> 8) % static_cast<quint32>(below));
    };
    int count = 0;
    for (int i = 0; i < 20000; ++i) {
        const int kind = next(20);
        if (kind == 0)
            send(QByteArray(1, static_cast<char>(next(256))));
        else
            send(pieces.at(next(pieces.size())));
        if (kind < 4)
            m_fixture->feed(next(2) == 0 ? 100.0 : next(700) * 10.0 - 100.0);
        for (const QByteArray& line : taken().split('\n')) {
            if (line.isEmpty())
                continue;
            ++count;
            QVERIFY2(line.endsWith('\r'), line.constData());
            QVERIFY2(answer.match(QString::fromLatin1(line.left(line.size() - 1))).hasMatch(),
                     line.constData());
        }
    }
    QVERIFY2(count > 1000, qPrintable(QString::number(count)));
}

void tst_SicsSession::deletedByItsAnswer_data()
{
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<QByteArray>("sent");
    QTest::newRow("weight") << QByteArray("stable") << QByteArray("SI\r\nSI\r\nSI\r\n");
    QTest::newRow("unknown") << QByteArray("stable") << QByteArray("x\r\nSI\r\n");
    QTest::newRow("tare") << QByteArray("stable") << QByteArray("T\r\nSI\r\n");
    QTest::newRow("wait and repetition") << QByteArray("moving") << QByteArray("Z\r\n");
    QTest::newRow("half line") << QByteArray("stable") << QByteArray("S");
}

void tst_SicsSession::deletedByItsAnswer()
{
    QFETCH(QByteArray, state);
    QFETCH(QByteArray, sent);
    m_fixture->bringTo(state);
    int answers = 0;
    connect(m_session.get(), &SicsSession::answered, this, [&] {
        ++answers;
        delete m_session.release();
    });
    send(sent);
    m_fixture->settle(100.0);
    m_fixture->clock.advance(60000);
    QCOMPARE(answers, 1);
    QVERIFY(!m_session);
}

void tst_SicsSession::eventLoopOfAnApplication()
{
    // An application that runs an event loop when it is told of the new tare: what comes meanwhile waits.
    m_fixture->settle(50.0);
    bool fed = false;
    connect(&m_fixture->host->weighing(), &Weighing::NotifyNewMeasurementValue, this, [&] {
        if (!fed) {
            fed = true;
            send("SI\r\n@\r\n");
        }
    });
    send("T\r\n");
    QVERIFY(fed);
    QCOMPARE(taken(), QByteArray("T S       50.0 g\r\nS S        0.0 g\r\nI4 A \"B-1042\"\r\n"));
}

QTEST_GUILESS_MAIN(tst_SicsSession)

#include "tst_sicssession.moc"
