// SPDX-License-Identifier: BSD-3-Clause
#include "PrintItemCurrentMeasurement.h"
#include "SessionFixture.h"
#include "app/PluginFaults.h"
#include "sics/SicsServer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QQuickItem>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSettings>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>

using namespace Brimvale::Terminal;

class TestSession : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void ownKeysWithoutAPlugin();
    void applicationChosenLastIsStarted();
    void ownDisplayWithoutAPlugin();
    void ownPrint();
    void scalePlate();
    void sourceText_data();
    void sourceText();
    void date();

    void benchLoadsTheScale();
    void benchNoiseDriftAndCable();
    void loadIsShownOnTheBench();
    void benchOfARecording();
    void levelGoesBothWays();
    void calibrationGoesBothWays();

    void firstPluginThatStarts();
    void namedPlugin();
    void namedPluginThatIsNotThere();
    void noPluginThatStarts();
    void faultsAreShownOnTheBench();
    void displayOfAPluginAndBack();
    void keysOfAPlugin();
    void warningsOfAPlugin();
    void infoOfAPlugin();
    void printOfAPlugin();
    void screenOfAPlugin();
    void sameScreenAgain();
    void listOfApplications();
    void selectionOfAnApplication();
    void exceptionOfAnEvent();
    void shutDownClosesThePlugin();

    void noticeThatInforms();
    void noticeThatWarnsStays();
    void forgivenErrors();
    void lostConnection();

    void settingsOfAPlugin();
    void settingsFollowTheLanguage_data();
    void settingsFollowTheLanguage();
    void language();
    void languageOfTheCommandLine();
    void languageIsKept();
    void operatorIsKept();
    void nothingIsStoredWithoutASettingsFile();
    void serialNumberOfTheSettings();
    void sicsAnswerOfAProtocol();
    void settingsFileThatCannotBeUsed_data();
    void settingsFileThatCannotBeUsed();
    void unitsAndTransferOutliveTheTerminal();
    void settingsThatAreWrongAreTold_data();
    void settingsThatAreWrongAreTold();
    void unitKeyBesideAPlugin();
    void smallDisplayOfTheTerminalBesideAPlugin();
    void coarseRangeIsShown();
    void overflowIsNotTransferred();
    void benchShowsTheDetector();
    void benchRefusesAThreshold();
    void protocolMenuFollowsTheProtocol();
    void transferLogThatCannotBeWritten();
    void transferLog();

private:
    Session& session() { return *m_fixture->session; }
    InstrumentModel& instrument() { return session().instrument(); }
    BenchModel& bench() { return session().bench(); }
    QString display() { return session().display().value; }

    std::unique_ptr<SessionFixture> m_fixture;
};

void TestSession::init()
{
    m_fixture = std::make_unique<SessionFixture>();
}

void TestSession::cleanup()
{
    if (m_fixture->session)
        session().shutDown();
    m_fixture.reset();
}

void TestSession::ownKeysWithoutAPlugin()
{
    m_fixture->start();
    QVERIFY(m_fixture->started);
    QStringList uids;
    for (const ActionEntry& entry : session().actions().actions())
        uids.append(entry.uid);
    QCOMPARE(uids, (QStringList{QStringLiteral("zero"), QStringLiteral("tare"), QStringLiteral("clearTare"),
                                QStringLiteral("unit")}));
    QCOMPARE(&session().actions(), instrument().hostActions());

    emit bench().putOn(20.0);
    m_fixture->settle();
    QVERIFY(session().actions().press(QStringLiteral("tare")));
    QCOMPARE(session().display().line(), QStringLiteral("0.0 g  stable  net"));
    QVERIFY(session().actions().press(QStringLiteral("clearTare")));
    QCOMPARE(session().display().line(), QStringLiteral("20.0 g  stable"));
    QVERIFY(session().actions().press(QStringLiteral("zero")));
    QCOMPARE(session().display().line(), QStringLiteral("0.0 g  stable"));
}

void TestSession::applicationChosenLastIsStarted()
{
    QTemporaryDir directory;
    const QString settings = directory.filePath(QStringLiteral("terminal.ini"));
    const auto begin = [&] {
        m_fixture = std::make_unique<SessionFixture>();
        m_fixture->options.settings = settings;
        m_fixture->usePlugin("fixture");
        m_fixture->usePlugin("fixture_second");
        m_fixture->start();
        const PluginManager& plugins = session().host().plugins();
        return plugins.plugins().at(plugins.activeIndex()).identifier;
    };
    const QString first = begin();
    emit instrument().pluginSelected(1);
    session().host().plugins().waitUntilSettled();
    const PluginManager& running = session().host().plugins();
    const QString second = running.plugins().at(running.activeIndex()).identifier;
    QCOMPARE(second, QStringLiteral("fixture_second"));
    session().shutDown();

    QCOMPARE(begin(), second);
    session().shutDown();
    m_fixture->session.reset();
    QSettings(settings, QSettings::IniFormat)
        .setValue(QStringLiteral("terminal/application"), QStringLiteral("gone"));
    QCOMPARE(begin(), first);
}

void TestSession::ownDisplayWithoutAPlugin()
{
    m_fixture->start();
    emit bench().putOn(1500.0);
    m_fixture->settle();
    const QObject* const model = instrument().display();
    QVERIFY(model);
    QCOMPARE(model->property("messwert").toString(), QStringLiteral("1500.0"));
    QCOMPARE(model->property("unit").toString(), QStringLiteral("g"));
    QCOMPARE(model->property("bargraphVisible").toBool(), true);
    QCOMPARE(model->property("bargraphValue").toInt(), 25);
    QCOMPARE(model->property("messwertKleinVisible").toBool(), false);
    session().actions().press(QStringLiteral("tare"));
    QCOMPARE(model->property("messwertKleinVisible").toBool(), true);
    QCOMPARE(model->property("messwertKlein").toString(), QStringLiteral("1500.0"));
}

void TestSession::ownPrint()
{
    m_fixture->start();
    emit bench().putOn(5.0);
    m_fixture->settle();
    QVERIFY(instrument().printEnabled());
    QCOMPARE(session().lastTransfer(), QString());
    emit instrument().printPressed();
    QCOMPARE(session().lastTransfer(), QStringLiteral("5.0 g"));
    QCOMPARE(instrument().statusText(), QStringLiteral("Sent: 5.0 g"));
    session().setLanguage(QStringLiteral("de"));
    QCOMPARE(instrument().statusText(), QStringLiteral("Gesendet: 5.0 g"));
}

void TestSession::scalePlate()
{
    m_fixture->options.capacity = 3200.0;
    m_fixture->options.readability = Readability::fromGrams(0.05);
    m_fixture->start();
    QCOMPARE(instrument().scalePlate(), QStringLiteral("Max 3200 g   d = 0.05 g"));
    QCOMPARE(bench().capacity(), 3200.0);
    QCOMPARE(bench().readability(), 0.05);
}

void TestSession::sourceText_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("text");
    QTest::newRow("simulated") << "sim:"
                               << "Simulated scale";
    QTest::newRow("recording") << "trace:" BRIMVALE_TRACE_DIR "/filling.csv"
                               << "Recording filling.csv";
}

void TestSession::sourceText()
{
    QFETCH(QString, source);
    QFETCH(QString, text);
    m_fixture->options.source = *SourceSpec::parse(source, nullptr);
    m_fixture->start();
    QCOMPARE(instrument().sourceText(), text);
}

void TestSession::date()
{
    m_fixture->start();
    QCOMPARE(instrument().dateTimeText(), QStringLiteral("2026-01-01  08:00"));
    m_fixture->driver.run(60 * 1000);
    QCOMPARE(instrument().dateTimeText(), QStringLiteral("2026-01-01  08:01"));
    session().setLanguage(QStringLiteral("de"));
    QCOMPARE(instrument().dateTimeText(), QStringLiteral("01.01.2026  08:01"));
}

void TestSession::benchLoadsTheScale()
{
    m_fixture->start();
    emit bench().putOn(500.0);
    emit bench().putOn(200.0);
    emit bench().takeOff(100.0);
    m_fixture->settle();
    QCOMPARE(display(), QStringLiteral("600.0 g"));
    emit bench().clear();
    m_fixture->settle();
    QCOMPARE(display(), QStringLiteral("0.0 g"));
}

void TestSession::benchNoiseDriftAndCable()
{
    m_fixture->start();
    SimulatedSource* const simulation = session().simulation();
    QVERIFY(simulation);
    QCOMPARE(bench().noise(), simulation->noise());
    bench().setNoise(2.0);
    QCOMPARE(simulation->noise(), 2.0);
    bench().setDrift(-1.0);
    QCOMPARE(simulation->drift(), -1.0);
    bench().setConnected(false);
    QVERIFY(!simulation->isConnected());
}

void TestSession::loadIsShownOnTheBench()
{
    m_fixture->start();
    session().simulation()->putOn(300.0);
    QCOMPARE(bench().load(), 300.0);
}

void TestSession::benchOfARecording()
{
    m_fixture->options.source =
        *SourceSpec::parse(QStringLiteral("trace:" BRIMVALE_TRACE_DIR "/filling.csv"), nullptr);
    m_fixture->start();
    QVERIFY(!bench().available());
    QVERIFY(!instrument().display()->property("bargraphVisible").toBool()); // its capacity is not known
    QVERIFY(!session().simulation());
    QVERIFY(!session().isSourceFinished());
    m_fixture->driver.run(100 * 1000);
    QVERIFY(session().isSourceFinished());
    QCOMPARE(session().readings(), Q_UINT64_C(381));
    QCOMPARE(session().display().line(), QStringLiteral("48.2 g  stable"));
}

void TestSession::levelGoesBothWays()
{
    m_fixture->start();
    bench().setLevel(false);
    QVERIFY(!session().host().isLevelled());
    QVERIFY(!instrument().levelOk());
    session().host().setLevelled(true);
    QVERIFY(bench().level());
    QVERIFY(instrument().levelOk());
}

void TestSession::calibrationGoesBothWays()
{
    m_fixture->start();
    bench().setCalibrationDue(true);
    QVERIFY(session().host().isCalibrationDue());
    session().host().setCalibrationDue(false);
    QVERIFY(!bench().calibrationDue());
}

void TestSession::firstPluginThatStarts()
{
    m_fixture->usePlugin("throw_init");
    m_fixture->usePlugin("refuse_pre_start");
    m_fixture->usePlugin("fixture_second");
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    QVERIFY(m_fixture->started);
    PluginManager& plugins = session().host().plugins();
    QCOMPARE(plugins.activeIndex(), plugins.indexOf(QStringLiteral("fixture_second")));
    QCOMPARE(session().errors().size(), 2);
}

void TestSession::namedPlugin()
{
    m_fixture->usePlugin("fixture");
    m_fixture->usePlugin("fixture_second");
    m_fixture->options.startId = QStringLiteral("fixture_second");
    m_fixture->start();
    QVERIFY(m_fixture->started);
    QCOMPARE(session().host().plugins().activeIndex(), 1);
}

void TestSession::namedPluginThatIsNotThere()
{
    m_fixture->usePlugin("fixture");
    m_fixture->options.startId = QStringLiteral("weighing");
    m_fixture->start();
    QVERIFY(!m_fixture->started);
    QCOMPARE(session().errors(),
             QStringList{QStringLiteral("There is no plug-in \"weighing\" to start. Loaded are: fixture.")});
    QCOMPARE(session().host().plugins().activeIndex(), -1);
}

void TestSession::noPluginThatStarts()
{
    m_fixture->usePlugin("refuse_pre_start");
    m_fixture->start();
    QVERIFY(!m_fixture->started);
    QCOMPARE(session().host().plugins().activeIndex(), -1);
    // The terminal weighs by itself.
    QCOMPARE(&session().actions(), instrument().hostActions());
}

void TestSession::faultsAreShownOnTheBench()
{
    m_fixture->usePlugin("wrong_identifier");
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    QCOMPARE(bench().pluginFaults(), session().errors());
    QCOMPARE(bench().pluginFaults().size(), 1);
    QVERIFY(bench().pluginFaults().first().contains(QLatin1String("wrong_identifier.so")));
}

void TestSession::displayOfAPluginAndBack()
{
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    QObject* const ofPlugin = session().host().display();
    QVERIFY(ofPlugin);
    QCOMPARE(instrument().display(), ofPlugin);
    session().host().plugins().deactivate();
    QVERIFY(session().host().plugins().waitUntilSettled());
    QVERIFY(instrument().display());
    m_fixture->settle();
    QCOMPARE(display(), QStringLiteral("0.0 g"));
}

void TestSession::keysOfAPlugin()
{
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    QCOMPARE(&session().actions(), instrument().actions());
    QCOMPARE(instrument().actions()->count(), 2);
    QVERIFY(instrument().actions()->press(QStringLiteral("fixture.delete")));
    // The plug-in has deleted its other key.
    QCOMPARE(instrument().actions()->count(), 1);
}

void TestSession::warningsOfAPlugin()
{
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    const QObject* const warnings = instrument().warnings();
    QVERIFY(warnings);
    bench().setCalibrationDue(true);
    QVERIFY(warnings->property("calibrationRequiredVisible").toBool());
    bench().setLevel(false);
    QVERIFY(warnings->property("levellingRequiredVisible").toBool());
    bench().setLevel(true);
    QVERIFY(!warnings->property("levellingRequiredVisible").toBool());
}

void TestSession::infoOfAPlugin()
{
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    QCOMPARE(instrument().infoItems().size(), 1);
    session().host().plugins().deactivate();
    QVERIFY(session().host().plugins().waitUntilSettled());
    QCOMPARE(instrument().infoItems().size(), 0);
}

void TestSession::printOfAPlugin()
{
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    emit bench().putOn(5.0);
    m_fixture->settle();
    emit instrument().printPressed();
    QCOMPARE(session().lastTransfer(), QString());
    m_fixture->driver.run(200); // the plug-in transfers with its next reading
    QCOMPARE(session().lastTransfer(), QStringLiteral("5.0 g"));
}

void TestSession::screenOfAPlugin()
{
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    QCOMPARE(instrument().pluginScreen(), QUrl(QStringLiteral("qrc:/fixture/Fixture.qml")));
    QVERIFY(session().window().pluginScreen());
    session().host().plugins().deactivate();
    QVERIFY(session().host().plugins().waitUntilSettled());
    QVERIFY(!session().window().pluginScreen());
}

void TestSession::sameScreenAgain()
{
    // Both fixtures show the same screen file; each gets its own.
    m_fixture->usePlugin("fixture");
    m_fixture->usePlugin("fixture_second");
    m_fixture->start();
    QSignalSpy loaded(&instrument(), &InstrumentModel::screenLoaded);
    session().host().plugins().activate(1);
    QVERIFY(session().host().plugins().waitUntilSettled());
    QCOMPARE(loaded.size(), 1);
    QCOMPARE(loaded.first().first().toBool(), true);
    QVERIFY(session().window().pluginScreen());
}

void TestSession::listOfApplications()
{
    m_fixture->usePlugin("throw_pre_start");
    m_fixture->usePlugin("fixture");
    m_fixture->usePlugin("fixture_second");
    m_fixture->start();
    const QVariantList plugins = instrument().plugins();
    QCOMPARE(plugins.size(), 2);
    QCOMPARE(plugins.at(0).toMap().value(QStringLiteral("id")).toString(), QStringLiteral("fixture"));
    QCOMPARE(plugins.at(0).toMap().value(QStringLiteral("active")).toBool(), true);
    QCOMPARE(plugins.at(1).toMap().value(QStringLiteral("id")).toString(), QStringLiteral("fixture_second"));
    QCOMPARE(plugins.at(1).toMap().value(QStringLiteral("active")).toBool(), false);
    QVERIFY(instrument().pluginActive());
}

void TestSession::selectionOfAnApplication()
{
    m_fixture->usePlugin("throw_pre_start");
    m_fixture->usePlugin("fixture");
    m_fixture->usePlugin("fixture_second");
    m_fixture->start();
    emit instrument().pluginSelected(1);
    QVERIFY(session().host().plugins().waitUntilSettled());
    const PluginManager& plugins = session().host().plugins();
    QCOMPARE(plugins.plugins().at(plugins.activeIndex()).identifier, QStringLiteral("fixture_second"));
    emit instrument().pluginSelected(7);
    QVERIFY(session().host().plugins().isSettled());
}

void TestSession::exceptionOfAnEvent()
{
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    session().pluginFaults().reportException(QStringLiteral("Poller"),
                                             QStringLiteral("std::runtime_error: no answer"), nullptr);
    QCOMPARE(session().errors().size(), 1);
    QVERIFY2(session().errors().first().contains(QLatin1String("std::runtime_error: no answer")),
             qPrintable(session().errors().first()));
    QVERIFY(m_fixture->log->contains(QStringLiteral("Poller")));
    QVERIFY(instrument().noticeVisible());
    QCOMPARE(session().host().plugins().activeIndex(), 0);
}

void TestSession::shutDownClosesThePlugin()
{
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    session().shutDown();
    QCOMPARE(session().host().plugins().activeIndex(), -1);
    QVERIFY(session().host().calls().contains(QStringLiteral("ISequencer::PluginClosed")));
    const quint64 readings = session().readings();
    m_fixture->driver.run(1000);
    QCOMPARE(session().readings(), readings);
}

void TestSession::noticeThatInforms()
{
    m_fixture->start();
    session().host().notices().post(NoticeSeverity::Info, QStringLiteral("Hello"));
    QCOMPARE(instrument().noticeText(), QStringLiteral("Hello"));
    QCOMPARE(int(instrument().noticeSeverity()), int(InstrumentModel::Severity::Info));
    m_fixture->driver.run(5900);
    QVERIFY(instrument().noticeVisible());
    m_fixture->driver.run(200);
    QVERIFY(!instrument().noticeVisible());
}

void TestSession::noticeThatWarnsStays()
{
    m_fixture->start();
    session().host().notices().post(NoticeSeverity::Info, QStringLiteral("Hello"));
    session().host().notices().post(NoticeSeverity::Warning, QStringLiteral("Beware"));
    m_fixture->driver.run(60000);
    QCOMPARE(instrument().noticeText(), QStringLiteral("Beware"));
    QCOMPARE(int(instrument().noticeSeverity()), int(InstrumentModel::Severity::Warning));
    QCOMPARE(session().errors(), QStringList());
}

void TestSession::forgivenErrors()
{
    m_fixture->start();
    session().host().notices().post(NoticeSeverity::Error, QStringLiteral("The one"));
    session().host().notices().post(NoticeSeverity::Error, QStringLiteral("The other"));
    session().forgiveErrors(QStringLiteral("one"));
    QCOMPARE(session().errors(), QStringList{QStringLiteral("The other")});
}

void TestSession::lostConnection()
{
    m_fixture->start();
    m_fixture->settle();
    QVERIFY(instrument().sourceOk());
    bench().setConnected(false);
    m_fixture->driver.run(200);
    QVERIFY(!instrument().sourceOk());
    QCOMPARE(display(), QStringLiteral("No connection"));
    bench().setConnected(true);
    m_fixture->driver.run(200);
    QVERIFY(instrument().sourceOk());
    QCOMPARE(display(), QStringLiteral("0.0 g"));
}

void TestSession::settingsOfAPlugin()
{
    m_fixture->usePlugin("fixture_menu");
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    const auto* const key =
        session().window().rootItem()->findChild<QQuickItem*>(QStringLiteral("settingsKey"));
    QVERIFY(key);
    QVERIFY(key->isVisible());
    const auto screen = [this] {
        return session().window().rootItem()->findChild<QQuickItem*>(QStringLiteral("settingsScreen"));
    };
    QVERIFY(!screen());
    QCOMPARE(session().settings().openScreen(), QString());
    QVERIFY(screen());
    // The other application has none.
    QVERIFY(session().host().plugins().activate(QStringLiteral("fixture")));
    QVERIFY(session().host().plugins().waitUntilSettled());
    QVERIFY(!key->isVisible());
    QVERIFY(!session().settings().isOpen());
    QTRY_VERIFY(!screen());
}

void TestSession::settingsFollowTheLanguage_data()
{
    QTest::addColumn<int>("item"); // that is tapped; 0 for none
    QTest::newRow("top") << 0;
    QTest::newRow("page") << 10;
    QTest::newRow("numeric dialog") << 11;
    QTest::newRow("selection") << 13;
    QTest::newRow("text dialog") << 21;
    QTest::newRow("confirmation") << 22;
}

/// The words that an item and what is in it show.
static QStringList shownWords(const QQuickItem* item)
{
    QStringList words;
    if (!item->isVisible()) {
        return words;
    }
    const QString text = item->property("text").toString();
    static const QRegularExpression letters(QStringLiteral("\\p{L}{2}"));
    if (item->inherits("QQuickText") && text.contains(letters)) {
        words.append(text);
    }
    const QList<QQuickItem*> children = item->childItems();
    for (const QQuickItem* const child : children) {
        words += shownWords(child);
    }
    return words;
}

void TestSession::settingsFollowTheLanguage()
{
    QFETCH(int, item);
    m_fixture->usePlugin("fixture_menu");
    m_fixture->options.language = QStringLiteral("en");
    m_fixture->start();
    session().settings().openScreen();
    if (item != 0) {
        QCOMPARE(session().settings().pressAnywhere(item), QString());
    }
    const auto* const screen =
        session().window().rootItem()->findChild<QQuickItem*>(QStringLiteral("settingsScreen"));
    QVERIFY(screen);
    QTRY_VERIFY(shownWords(screen).size() > 2);
    QStringList english = shownWords(screen);
    session().setLanguage(QStringLiteral("de"));
    TimeDriver::settle();
    const QStringList german = shownWords(screen);
    QCOMPARE(german.size(), english.size());
    english.removeAll(QStringLiteral("OK")); // it is the same in both
    for (const QString& word : qAsConst(english)) {
        QVERIFY2(!german.contains(word), qPrintable(word));
    }
}

void TestSession::language()
{
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    QCOMPARE(instrument().language(), QStringLiteral("en"));
    QCOMPARE(instrument().activePluginName(), QStringLiteral("Fixture"));
    session().setLanguage(QStringLiteral("de"));
    QCOMPARE(instrument().language(), QStringLiteral("de"));
    QCOMPARE(session().host().plugins().plugins().first().name, instrument().activePluginName());
    QVERIFY(instrument().activePluginName() != QStringLiteral("Fixture"));
    session().setLanguage(QStringLiteral("en"));
    QCOMPARE(instrument().activePluginName(), QStringLiteral("Fixture"));
}

void TestSession::languageOfTheCommandLine()
{
    m_fixture->options.language = QStringLiteral("de");
    m_fixture->start();
    QCOMPARE(instrument().language(), QStringLiteral("de"));
}

void TestSession::languageIsKept()
{
    QTemporaryDir folder;
    m_fixture->options.settings = folder.filePath(QStringLiteral("terminal.ini"));
    m_fixture->start();
    emit instrument().languageSelected(QStringLiteral("de"));
    QCOMPARE(instrument().language(), QStringLiteral("de"));
    session().shutDown();

    const QString file = m_fixture->options.settings;
    m_fixture = std::make_unique<SessionFixture>();
    m_fixture->options.settings = file;
    m_fixture->start();
    QCOMPARE(instrument().language(), QStringLiteral("de"));
}

void TestSession::operatorIsKept()
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("terminal.ini"));
    m_fixture->options.settings = file;
    m_fixture->start();
    ProtocolModel* const menu = instrument().protocol();
    menu->setOpen(true);
    QCOMPARE(menu->operatorName(), QString());
    emit menu->operatorEntered(QStringLiteral("  Grace \t Müller "));
    QCOMPARE(menu->operatorName(), QStringLiteral("Grace Müller"));
    QCOMPARE(session().host().protocol().terminalItems().operatorName(), QStringLiteral("Grace Müller"));
    session().shutDown();

    m_fixture = std::make_unique<SessionFixture>();
    m_fixture->options.settings = file;
    m_fixture->start();
    QCOMPARE(session().host().protocol().terminalItems().operatorName(), QStringLiteral("Grace Müller"));
    instrument().protocol()->setOpen(true);
    QCOMPARE(instrument().protocol()->operatorName(), QStringLiteral("Grace Müller"));
}

void TestSession::nothingIsStoredWithoutASettingsFile()
{
    QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    m_fixture->start();
    emit instrument().languageSelected(QStringLiteral("de"));
    session().shutDown();
    m_fixture = std::make_unique<SessionFixture>();
    QVERIFY(QDir(folder.path()).isEmpty());
}

void TestSession::unitsAndTransferOutliveTheTerminal()
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("terminal.ini"));
    m_fixture->options.settings = file;
    m_fixture->start();
    Units& units = session().host().units();
    QVERIFY(units.setMainUnit(QStringLiteral("ct")));
    QVERIFY(units.setSmallUnit(QStringLiteral("kg")));
    emit bench().units().approvedUnitsOnlyRequested(true);
    emit bench().units().caratAllowedRequested(true);
    emit bench().units().auxiliaryDigitRequested(true);
    emit bench().units().reducedDigitsRequested(1);
    emit bench().units().minimumDecimalsRequested(1);
    emit bench().transfer().settingsRequested(QStringLiteral("percent-fixed"), 20.0, 50.0);
    session().shutDown();

    m_fixture = std::make_unique<SessionFixture>();
    m_fixture->options.settings = file;
    m_fixture->start();
    QCOMPARE(session().errors(), QStringList());
    QCOMPARE(session().host().units().mainUnit(), QStringLiteral("ct"));
    QCOMPARE(session().host().units().smallUnit(), QStringLiteral("kg"));
    const ApprovalSettings approval = session().host().units().approval();
    QVERIFY(approval.approvedUnitsOnly);
    QVERIFY(approval.caratAllowed);
    QVERIFY(approval.auxiliaryDigit);
    QCOMPARE(approval.reducedDigits, 1);
    QCOMPARE(approval.minimumDecimals, 1);
    const AutomaticTransferSettings transfer = session().host().automaticTransfer().settings();
    QCOMPARE(transfer.mode, AutomaticTransferSettings::PercentFixed);
    QCOMPARE(transfer.threshold, 20.0);
    QCOMPARE(transfer.minimumLoad, 50.0);
    QVERIFY(session().host().automaticTransfer().detector()->isActive());
}

void TestSession::settingsThatAreWrongAreTold_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("part");
    QTest::newRow("unit") << QByteArray("[units]\nmain=stone\n") << "there is no unit \"stone\"";
    QTest::newRow("small unit") << QByteArray("[units]\nsmall=KG\n") << "there is no unit \"KG\"";
    QTest::newRow("mode") << QByteArray("[automaticTransfer]\nmode=often\n")
                          << "the automatic transfer has no mode \"often\"";
    QTest::newRow("threshold") << QByteArray("[automaticTransfer]\nmode=percent\nthreshold=100\n")
                               << "from 1 to 99 percent";
}

void TestSession::settingsThatAreWrongAreTold()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, part);
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("terminal.ini")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    m_fixture->options.settings = file.fileName();
    m_fixture->start();
    QCOMPARE(session().errors().size(), 1);
    QVERIFY2(session().errors().first().contains(part), qPrintable(session().errors().first()));
    QVERIFY(session().errors().first().contains(file.fileName()));
    QCOMPARE(session().host().units().mainUnit(), QStringLiteral("g"));
}

void TestSession::unitKeyBesideAPlugin()
{
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    emit bench().putOn(20.0);
    m_fixture->settle();
    QVERIFY(instrument().pluginActive());
    emit instrument().unitPressed();
    QCOMPARE(session().host().units().mainUnit(), QStringLiteral("GN"));
    QCOMPARE(session().host().system().GetCurrentUnit(), 3);
}

void TestSession::smallDisplayOfTheTerminalBesideAPlugin()
{
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    emit bench().putOn(20.0);
    m_fixture->settle();
    Brimvale::MesswertInfo own(nullptr, QStringLiteral("20.0"), QStringLiteral("g"), true, 0, true, false,
                               false, 0, QString(), QString(), false, 0, true, false, 0, QString(), QString(),
                               QString(), 0, 1, false, false, true, true, true);
    instrument().setDisplay(&own);
    QCOMPARE(session().display().small, QString());
    session().host().units().setSmallUnit(QStringLiteral("kg"));
    QCOMPARE(session().display().small, QStringLiteral("0.0200 kg"));
    // An application that uses the small display keeps it.
    own.setMesswertKlein(QStringLiteral("5"));
    own.setMesswertKleinVisible(true);
    QCOMPARE(session().display().small, QStringLiteral("5"));
    instrument().setDisplay(nullptr);
}

void TestSession::coarseRangeIsShown()
{
    m_fixture->options.coarseAbove = 3000.0;
    m_fixture->start();
    emit bench().putOn(2000.0);
    m_fixture->settle();
    QVERIFY(!session().display().coarse);
    QCOMPARE(session().display().value, QStringLiteral("2000.0 g"));
    emit bench().putOn(2000.0);
    m_fixture->settle();
    QVERIFY(session().display().coarse);
    QCOMPARE(session().display().value, QStringLiteral("4000 g"));
}

void TestSession::overflowIsNotTransferred()
{
    m_fixture->options.source = *SourceSpec::parse(QStringLiteral("sim:"), nullptr);
    m_fixture->options.readability = *Readability::parse(QStringLiteral("0.0001"));
    m_fixture->options.capacity = 6000.0;
    m_fixture->start();
    emit bench().putOn(5000.0);
    m_fixture->settle();
    QCOMPARE(session().display().value, QStringLiteral("5000.0000 g"));
    QVERIFY(session().host().units().setMainUnit(QStringLiteral("ct")));
    QCOMPARE(session().display().value, QStringLiteral("OF"));
    emit instrument().printPressed();
    QCOMPARE(session().lastTransfer(), QString());
    QVERIFY(instrument().noticeText().contains(QLatin1String("choose a larger unit")));
}

void TestSession::benchShowsTheDetector()
{
    m_fixture->start();
    m_fixture->settle();
    emit bench().transfer().settingsRequested(QStringLiteral("absolute"), 5.0, 0.0);
    emit bench().putOn(500.0);
    m_fixture->settle();
    const BenchTransferState& state = bench().transfer().state();
    QCOMPARE(state.mode, QStringLiteral("absolute"));
    QCOMPARE(state.state, int(Brimvale::LoadChange::Watching));
    QCOMPARE(state.reference, 500.0);
    QCOMPARE(state.bandLow, 495.0);
    QCOMPARE(state.bandHigh, 505.0);
    QCOMPARE(state.value, 500.0);
    QCOMPARE(state.registerText, QStringLiteral("5000"));
    QCOMPARE(state.triggerCount, 1);
    QVERIFY(state.reason.startsWith(QLatin1String("inside the band")));
    QVERIFY2(state.lastTrigger.endsWith(QLatin1String("above the band up to 5.0 g")),
             qPrintable(state.lastTrigger));
    QCOMPARE(state.decision, QStringLiteral("500.0 g transferred"));
}

void TestSession::benchRefusesAThreshold()
{
    m_fixture->start();
    emit bench().transfer().settingsRequested(QStringLiteral("absolute"), 6000.0, 0.0);
    QCOMPARE(bench().transfer().mode(), QStringLiteral("off"));
    QVERIFY(instrument().noticeText().contains(QLatin1String("below 6000.0 g")));
}

void TestSession::serialNumberOfTheSettings()
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("terminal.ini"));
    QSettings(file, QSettings::IniFormat)
        .setValue(QStringLiteral("terminal/serialNumber"), QStringLiteral("B-1042"));
    m_fixture->options.settings = file;
    m_fixture->start();
    QCOMPARE(session().host().protocol().terminalItems().serialNumber(), QStringLiteral("B-1042"));
}

void TestSession::sicsAnswerOfAProtocol()
{
    m_fixture->options.sics = SicsAddress();
    m_fixture->start();
    QString error;
    QVERIFY2(session().listen(&error), qPrintable(error));
    Host& host = session().host();
    Brimvale::MesswertData weight;
    weight.messwert = QStringLiteral("36.4");
    weight.unit = QStringLiteral("g");
    weight.isStable = true;
    Brimvale::PrintItemCurrentMeasurement item(
        nullptr, QStringLiteral("weight"), &weight,
        {Brimvale::ProtocolType::Measurement, Brimvale::ProtocolArea::Sics}, false, &host.system());
    host.protocolPool().AddItem(&item);
    const auto withdraw = qScopeGuard([&] { host.protocolPool().RemoveItem(&item); });
    ProtocolChoice choice;
    choice.items = QStringList{QStringLiteral("weight")};
    choice.part = ProtocolPart::Sics;
    host.protocol().setChoice(choice);

    // Nobody is there to take it: it is kept.
    host.protocol().print();
    QCOMPARE(session().printQueue().failedCount(), 1);

    QTcpSocket first;
    QTcpSocket second;
    for (QTcpSocket* const socket : {&first, &second})
        socket->connectToHost(QHostAddress::LocalHost, session().sics()->address().port);
    QTRY_COMPARE(instrument().sicsClients(), 2);
    QVERIFY(session().printQueue().repeat());
    for (QTcpSocket* const socket : {&first, &second})
        QTRY_COMPARE(socket->peek(100), QByteArray("S S       36.4 g\r\n"));
    QCOMPARE(session().printQueue().failedCount(), 0);

    weight.isStable = false;
    QVERIFY(host.protocol().print());
    for (QTcpSocket* const socket : {&first, &second})
        QTRY_COMPARE(socket->peek(100), QByteArray("S S       36.4 g\r\nS D       36.4 g\r\n"));
    session().shutDown();
    for (QTcpSocket* const socket : {&first, &second})
        QTRY_COMPARE(socket->state(), QTcpSocket::UnconnectedState);
}

void TestSession::settingsFileThatCannotBeUsed_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a folder is no file") << QString();
    QTest::newRow("a file is no folder") << QStringLiteral("/file/terminal.ini");
    QTest::newRow("a new file in a folder that is not written") << QStringLiteral("/read only/new.ini");
    QTest::newRow("a file in a folder that is not written") << QStringLiteral("/read only/terminal.ini");
}

void TestSession::settingsFileThatCannotBeUsed()
{
    QFETCH(QString, name);
    QTemporaryDir folder;
    const QString readOnly = folder.filePath(QStringLiteral("read only"));
    QVERIFY(QDir().mkdir(readOnly));
    for (const char* file : {"/file", "/read only/terminal.ini"})
        QVERIFY(QFile(folder.path() + QLatin1String(file)).open(QIODevice::WriteOnly));
    QVERIFY(QFile::setPermissions(readOnly, QFile::ReadOwner | QFile::ExeOwner));
    const auto writable = qScopeGuard(
        [&] { QFile::setPermissions(readOnly, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner); });
    if (name.startsWith(QLatin1String("/read only")) && QFileInfo(readOnly).isWritable())
        QSKIP("this user may write into every folder");
    m_fixture->options.settings = folder.path() + name;
    m_fixture->log = std::make_unique<LogOutput>(QsLogging::OffLevel);
    Session session(m_fixture->options, m_fixture->clock, std::make_unique<SimulatedSource>(m_fixture->clock),
                    *m_fixture->log);
    QStringList errors;
    QVERIFY(!session.prepare(&errors));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().contains(folder.path()), qPrintable(errors.first()));
}

void TestSession::protocolMenuFollowsTheProtocol()
{
    m_fixture->start();
    ProtocolModel& menu = *session().instrument().protocol();
    const Protocol& protocol = session().host().protocol();
    QCOMPARE(menu.count(), 0); // nothing is asked of an application while the menu is closed
    menu.setOpen(true);
    QStringList uids;
    for (const ProtocolRow& row : menu.rows())
        uids.append(row.uid);
    QCOMPARE(uids.join(QLatin1Char(' ')),
             QStringLiteral("terminal.date terminal.time terminal.user terminal.serial"));
    QCOMPARE(menu.rows().first().section, QStringLiteral("Header: General"));
    QCOMPARE(menu.kind(), QStringLiteral("Single weighing"));
    QCOMPARE(menu.part(), QStringLiteral("Everything"));
    QCOMPARE(menu.trigger(), QStringLiteral("Print key"));

    emit menu.itemToggled(QStringLiteral("terminal.time"), true);
    QCOMPARE(protocol.choice().items, QStringList(QStringLiteral("terminal.time")));
    QCOMPARE(menu.chosenCount(), 1);
    emit menu.kindStepped(1);
    QCOMPARE(menu.kind(), QStringLiteral("Series"));
    emit menu.partStepped(-1); // round to the last
    QCOMPARE(menu.part(), QStringLiteral("SICS answer"));
    QCOMPARE(menu.count(), 0);
    emit menu.partStepped(1);
    QCOMPARE(menu.count(), 4);
    emit menu.triggerStepped(1);
    QCOMPARE(protocol.choice().trigger, QStringLiteral("terminal.loadChange"));

    session().setLanguage(QStringLiteral("de"));
    QCOMPARE(menu.trigger(), QStringLiteral("Laständerung"));
    QCOMPARE(menu.rows().first().section, QStringLiteral("Kopf: Allgemein"));
    QCOMPARE(menu.rows().first().name, QStringLiteral("Datum"));
}

void TestSession::transferLogThatCannotBeWritten()
{
    QTemporaryDir folder;
    m_fixture->options.transferLog = folder.filePath(QStringLiteral("none/transfer.csv"));
    m_fixture->log = std::make_unique<LogOutput>(QsLogging::OffLevel);
    Session session(m_fixture->options, m_fixture->clock, std::make_unique<SimulatedSource>(m_fixture->clock),
                    *m_fixture->log);
    QStringList errors;
    QVERIFY(!session.prepare(&errors));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().contains(m_fixture->options.transferLog), qPrintable(errors.first()));
}

void TestSession::transferLog()
{
    QTemporaryDir folder;
    m_fixture->options.transferLog = folder.filePath(QStringLiteral("transfer.csv"));
    m_fixture->start();
    emit bench().putOn(5.0);
    m_fixture->settle();
    emit instrument().printPressed();
    QFile file(m_fixture->options.transferLog);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()),
             QStringLiteral("time,value,unit,state,kind,gross,tare,error\n"
                            "2026-01-01T08:00:05.000Z,5.0,g,stable,gross,5.0,0.0,\n"));
}

QTEST_MAIN(TestSession)

#include "tst_session.moc"
