// SPDX-License-Identifier: BSD-3-Clause
#include "TerminalProcess.h"

#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

/// Runs without a window: recordings, scripts, pictures, and that every run gives the same.
class TestHeadless : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void simulatedScale();
    void recordings_data();
    void recordings();
    void endOfARecordingAhead();
    void hundredReadingsASecond();
    void sameOutputEveryTime_data();
    void sameOutputEveryTime();
    void seedDecidesTheNoise();
    void paceChangesNothing();
    void screenshot_data();
    void screenshot();
    void scripts_data();
    void scripts();
    void scriptThatFails();
    void scriptThatCannotGoOn();
    void demonstration();
    void unitsAndAutomaticTransfer();
    void automaticPrintOfAPlugin();
    void demonstrationWithoutItsPlugin();
    void transferLog();
    void tracedHostCalls();
    void logLevels_data();
    void logLevels();
    void german();

private:
    static QStringList base();
    static QStringList withRecording(const QString& name);
    QString script(const QByteArray& content) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestHeadless::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

/// A run without a window with the sample plug-in.
QStringList TestHeadless::base()
{
    return {QStringLiteral("--headless"), QStringLiteral("--plugin"), TerminalProcess::weighingPlugin()};
}

QStringList TestHeadless::withRecording(const QString& name)
{
    return base()
           + QStringList{QStringLiteral("--source"),
                         QStringLiteral("trace:") + TerminalProcess::data(QStringLiteral("traces/") + name)};
}

QString TestHeadless::script(const QByteArray& content) const
{
    QFile file(m_folder->filePath(QStringLiteral("a.script")));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        QTest::qFail("the test's script cannot be written", __FILE__, __LINE__);
    return file.fileName();
}

void TestHeadless::simulatedScale()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(base()));
    COMPARE_EXIT_CODE(terminal, 0);
    QCOMPARE(terminal.outputLines(),
             (QStringList{QStringLiteral("scale: Simulated scale, 6000 g, readability 0.1 g"),
                          QStringLiteral("plug-in: weighing \"Weighing\""), QStringLiteral("readings: 51"),
                          QStringLiteral("display: 0.0 g  stable")}));
}

void TestHeadless::recordings_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("readings");
    QTest::addColumn<QString>("display");
    QTest::newRow("filling at 0.1 g") << "filling.csv" << 381 << "48.2 g  stable";
    QTest::newRow("a hundred readings a second at 0.01 g") << "fast.csv" << 1201 << "0.00 g  unstable";
    QTest::newRow("whole grams") << "coarse.csv" << 41 << "250 g  stable";
}

void TestHeadless::recordings()
{
    QFETCH(QString, file);
    QFETCH(int, readings);
    QFETCH(QString, display);
    TerminalProcess terminal;
    QVERIFY(terminal.run(withRecording(file) + TerminalProcess::words(QStringLiteral("--speed max"))));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(terminal.outputLines().contains(QStringLiteral("scale: Recording ") + file),
             terminal.everything().constData());
    QVERIFY2(terminal.outputLines().contains(QStringLiteral("readings: %1").arg(readings)),
             terminal.everything().constData());
    QCOMPARE(terminal.outputLines().last(), QStringLiteral("display: ") + display);
}

void TestHeadless::endOfARecordingAhead()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(withRecording(QStringLiteral("fast.csv"))
                         + TerminalProcess::words(QStringLiteral("--duration 5"))));
    COMPARE_EXIT_CODE(terminal, 0);
    // At exactly 100 readings a second, the first at the beginning.
    QVERIFY2(terminal.outputLines().contains(QStringLiteral("readings: 501")),
             terminal.everything().constData());
    QVERIFY2(terminal.outputLines().last().startsWith(QLatin1String("display: 150.0")),
             terminal.everything().constData());
}

void TestHeadless::hundredReadingsASecond()
{
    // In real time, counted: were the terminal too slow, readings would be missing or it would never end.
    TerminalProcess terminal;
    QVERIFY(terminal.run(withRecording(QStringLiteral("fast.csv"))
                         + TerminalProcess::words(QStringLiteral("--speed 4"))));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(terminal.outputLines().contains(QStringLiteral("readings: 1201")),
             terminal.everything().constData());
}

void TestHeadless::sameOutputEveryTime_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("simulated scale") << base() + TerminalProcess::words(QStringLiteral("--duration 60"));
    QTest::newRow("recording") << withRecording(QStringLiteral("filling.csv"));
    QTest::newRow("script") << base()
                                   + QStringList{
                                       QStringLiteral("--script"),
                                       TerminalProcess::data(QStringLiteral("scripts/weighing.script"))};
    QTest::newRow("demonstration") << base() + TerminalProcess::words(QStringLiteral("--demo"));
    QTest::newRow("without a plug-in") << TerminalProcess::words(QStringLiteral("--headless --no-plugin"));
}

void TestHeadless::sameOutputEveryTime()
{
    QFETCH(QStringList, arguments);
    arguments += QStringList{QStringLiteral("--screenshot"), QStringLiteral("end.png")};
    QDir folder(m_folder->path());
    QVERIFY(folder.mkdir(QStringLiteral("first")) && folder.mkdir(QStringLiteral("second")));

    TerminalProcess first;
    first.setWorkingDirectory(folder.filePath(QStringLiteral("first")));
    QVERIFY(first.run(arguments));
    COMPARE_EXIT_CODE(first, 0);

    // Another place, another time zone, another language of the system, another person.
    TerminalProcess second;
    second.setWorkingDirectory(folder.filePath(QStringLiteral("second")));
    second.setVariable("TZ", "Asia/Tokyo");
    second.setVariable("LC_ALL", "C");
    second.setVariable("LANG", "de_DE.UTF-8");
    second.setVariable("HOME", "/nonexistent");
    QVERIFY(second.run(arguments));
    COMPARE_EXIT_CODE(second, 0);

    QCOMPARE(second.outputText(), first.outputText());
    const QImage picture(folder.filePath(QStringLiteral("first/end.png")));
    QVERIFY(!picture.isNull());
    QCOMPARE(QImage(folder.filePath(QStringLiteral("second/end.png"))), picture);
}

void TestHeadless::seedDecidesTheNoise()
{
    const QString file = script("set noise 5\nwait 1 s\nwait 1 s\nwait 1 s\nwait 1 s\nwait 1 s\n");
    QStringList outputs;
    for (const char* seed : {"1", "2", "2"}) {
        TerminalProcess terminal;
        QVERIFY(terminal.run(
            base()
            + QStringList{QStringLiteral("--script"), file, QStringLiteral("--seed"), QLatin1String(seed)}));
        COMPARE_EXIT_CODE(terminal, 0);
        outputs.append(terminal.outputText());
    }
    QVERIFY(outputs.at(0) != outputs.at(1));
    QCOMPARE(outputs.at(2), outputs.at(1));
}

void TestHeadless::paceChangesNothing()
{
    TerminalProcess maximum;
    QVERIFY(maximum.run(base() + TerminalProcess::words(QStringLiteral("--duration 3 --speed max"))));
    TerminalProcess paced;
    QVERIFY(paced.run(base() + TerminalProcess::words(QStringLiteral("--duration 3 --speed 10"))));
    COMPARE_EXIT_CODE(paced, 0);
    QCOMPARE(paced.outputText(), maximum.outputText());
}

void TestHeadless::screenshot_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QSize>("size");
    QTest::newRow("with the bench") << "" << QSize(1360, 600);
    QTest::newRow("without the bench") << "--no-bench" << QSize(1024, 600);
    QTest::newRow("in German") << "--no-bench --language de" << QSize(1024, 600);
}

void TestHeadless::screenshot()
{
    QFETCH(QString, arguments);
    QFETCH(QSize, size);
    const QString picture = m_folder->filePath(QStringLiteral("out.png"));
    TerminalProcess terminal;
    QVERIFY(terminal.run(base() + TerminalProcess::words(arguments)
                         + QStringList{QStringLiteral("--screenshot"), picture}));
    COMPARE_EXIT_CODE(terminal, 0);
    QCOMPARE(terminal.outputLines().last(), QStringLiteral("screenshot: ") + picture);

    QFile file(picture);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.read(8), QByteArray("\x89PNG\r\n\x1a\n"));
    const QImage image(picture);
    QCOMPARE(image.size(), size);
    // A picture of one colour shows nothing.
    QSet<QRgb> colours;
    for (int x = 0; x < image.width(); x += 4) {
        for (int y = 0; y < image.height(); y += 4)
            colours.insert(image.pixel(x, y));
    }
    QVERIFY2(colours.size() > 20, qPrintable(QString::number(colours.size())));
}

void TestHeadless::scripts_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("weighing") << "weighing.script" << base();
    QTest::newRow("warnings") << "warnings.script" << base();
    QTest::newRow("faults of the scale") << "faults.script" << base();
    QTest::newRow("recording") << "recording.script" << withRecording(QStringLiteral("filling.csv"));
    QTest::newRow("without a plug-in")
        << "without-plugin.script" << TerminalProcess::words(QStringLiteral("--headless --no-plugin"));
}

void TestHeadless::scripts()
{
    QFETCH(QString, file);
    QFETCH(QStringList, arguments);
    TerminalProcess terminal;
    QVERIFY(terminal.run(arguments
                         + QStringList{QStringLiteral("--script"),
                                       TerminalProcess::data(QStringLiteral("scripts/") + file),
                                       QStringLiteral("--output"), m_folder->path()}));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(terminal.outputText().contains(QLatin1String(": all met\n")), terminal.everything().constData());
    QVERIFY2(!terminal.outputText().contains(QLatin1String("FAILED")), terminal.everything().constData());
}

void TestHeadless::scriptThatFails()
{
    const QString file = script("put on 499.9 g\nwait stable\nexpect display 500.0 g\nexpect stable\n");
    TerminalProcess terminal;
    QVERIFY(terminal.run(base()
                         + QStringList{QStringLiteral("--script"), file, QStringLiteral("--log-level"),
                                       QStringLiteral("off")}));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().contains(
                 file + QLatin1String(":3: expected display \"500.0 g\", but it shows \"499.9 g\"\n")),
             terminal.everything().constData());
    QVERIFY2(terminal.outputText().contains(QLatin1String("FAILED: it shows \"499.9 g\"")),
             terminal.everything().constData());
    QVERIFY2(terminal.outputText().contains(QLatin1String("4 statements, 2 expectations: 1 NOT MET\n")),
             terminal.everything().constData());
}

void TestHeadless::scriptThatCannotGoOn()
{
    const QString file = script("press weighing.clearTare\nexpect display 0.0 g\n");
    TerminalProcess terminal;
    QVERIFY(terminal.run(base() + QStringList{QStringLiteral("--script"), file}));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().contains(
                 file + QLatin1String(":1: the key \"weighing.clearTare\" is disabled\n")),
             terminal.everything().constData());
    QVERIFY2(terminal.outputText().contains(QLatin1String("1 statement, 0 expectations: NOT FINISHED\n")),
             terminal.everything().constData());
}

void TestHeadless::unitsAndAutomaticTransfer()
{
    TerminalProcess terminal;
    terminal.setWorkingDirectory(m_folder->path());
    QVERIFY(
        terminal.run(TerminalProcess::words(QStringLiteral(
                         "--headless --no-plugin --readability 0.0001 --capacity 6000 --coarse-above 3000"))
                     + QStringList{QStringLiteral("--script"), QStringLiteral(BRIMVALE_UNITS_SCRIPT)}));
    QVERIFY2(terminal.exitCode() == 0, qPrintable(terminal.errorText()));
    QVERIFY2(terminal.outputText().contains(QLatin1String("35 expectations: all met")),
             qPrintable(terminal.outputText()));
    QCOMPARE(QDir(m_folder->path()).entryList({QStringLiteral("units-*.png")}).size(), 10);
}

void TestHeadless::automaticPrintOfAPlugin()
{
    TerminalProcess terminal;
    terminal.setWorkingDirectory(m_folder->path());
    QVERIFY(terminal.run(
        base() + QStringList{QStringLiteral("--script"), QStringLiteral(BRIMVALE_AUTOMATIC_SCRIPT)}));
    QVERIFY2(terminal.exitCode() == 0, qPrintable(terminal.errorText()));
    QVERIFY2(terminal.outputText().contains(QLatin1String("16 expectations: all met")),
             qPrintable(terminal.outputText()));
}

void TestHeadless::demonstration()
{
    TerminalProcess terminal;
    terminal.setWorkingDirectory(m_folder->path());
    QVERIFY(terminal.run(base() + TerminalProcess::words(QStringLiteral("--demo"))));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(terminal.outputText().contains(QLatin1String("6 screenshots in brimvale-demo\n")),
             terminal.everything().constData());
    const QDir folder(m_folder->filePath(QStringLiteral("brimvale-demo")));
    const QStringList pictures = folder.entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name);
    QCOMPARE(pictures.size(), 6);
    for (const QString& picture : pictures)
        QCOMPARE(QImage(folder.filePath(picture)).size(), QSize(1360, 600));
}

void TestHeadless::demonstrationWithoutItsPlugin()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run({QStringLiteral("--headless"), QStringLiteral("--demo"),
                          QStringLiteral("--no-plugin"), QStringLiteral("--output"), m_folder->path()}));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().contains(QLatin1String("there is no key \"weighing.tare\"")),
             terminal.everything().constData());
}

void TestHeadless::transferLog()
{
    const QString file =
        script("put on 63.6 g\nwait stable\npress weighing.tare\nput on 36.4 g\nwait stable\n"
               "press print\nwait 1 s\n");
    const QString log = m_folder->filePath(QStringLiteral("transfer.csv"));
    TerminalProcess terminal;
    QVERIFY(terminal.run(
        base() + QStringList{QStringLiteral("--script"), file, QStringLiteral("--transfer-log"), log}));
    COMPARE_EXIT_CODE(terminal, 0);
    QFile written(log);
    QVERIFY(written.open(QIODevice::ReadOnly));
    const QStringList lines =
        QString::fromUtf8(written.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines.at(1).endsWith(QLatin1String(",36.4,g,stable,net,100.0,63.6,")), qPrintable(lines.at(1)));
}

void TestHeadless::tracedHostCalls()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(base() + TerminalProcess::words(QStringLiteral("--trace-host-calls"))));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(terminal.errorText().contains(QLatin1String("host call ISystem::GetWeighing()")),
             terminal.everything().constData());
    QVERIFY(!terminal.outputText().contains(QLatin1String("host call")));
}

void TestHeadless::logLevels_data()
{
    QTest::addColumn<QString>("level");
    QTest::addColumn<bool>("traced");
    QTest::newRow("off") << "off" << false;
    QTest::newRow("warn") << "warn" << false;
    QTest::newRow("trace") << "trace" << true;
}

void TestHeadless::logLevels()
{
    QFETCH(QString, level);
    QFETCH(bool, traced);
    TerminalProcess terminal;
    QVERIFY(terminal.run(base() + QStringList{QStringLiteral("--log-level"), level}));
    COMPARE_EXIT_CODE(terminal, 0);
    // The start of an application is logged at every level.
    QVERIFY2(terminal.errorText().contains(QLatin1String("brimvale-terminal,Start application,Weighing")),
             terminal.everything().constData());
    QCOMPARE(terminal.errorText().contains(QLatin1String("PluginBase::ClosePlugin,")), traced);
}

void TestHeadless::german()
{
    const QString file =
        script("wait stable\nexpect action weighing.zero text Null\nlanguage en\n"
               "expect action weighing.zero text Zero\nput on 7 kg\nlanguage de\nwait 2 s\n");
    TerminalProcess terminal;
    QVERIFY(terminal.run(
        base()
        + QStringList{QStringLiteral("--script"), file, QStringLiteral("--language"), QStringLiteral("de")}));
    COMPARE_EXIT_CODE(terminal, 0);
    QCOMPARE(terminal.outputLines().last(), QStringLiteral("display: Überlast"));
}

QTEST_GUILESS_MAIN(TestHeadless)

#include "tst_headless.moc"
