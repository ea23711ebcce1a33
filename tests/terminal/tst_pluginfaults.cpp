// SPDX-License-Identifier: BSD-3-Clause
//
// A plug-in does everything wrong that it can, and the terminal goes on, says who did what and offers to close it.
#include "SessionFixture.h"
#include "app/GuardedApplication.h"
#include "app/LoopWatch.h"
#include "app/PluginFaults.h"
#include "host/RunningCode.h"

#include <QQuickItem>
#include <QSignalSpy>
#include <QThread>
#include <QtTest>

using namespace Brimvale::Terminal;

class TestPluginFaults : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void exceptions_data();
    void exceptions();
    void sameExceptionAgainAndAgain();
    void anotherExceptionEachTime();
    void noticeThatWasPutAwayStaysAway();
    void offerToClose();
    void offerEndsWithTheApplication();
    void germanNotice();
    void exceptionOfAClosedPlugin();

    void deletedPlugin_data();
    void deletedPlugin();
    void deletedPluginWhileItCloses();
    void deletedModel();
    void deletedAction();

    void blockedLoop();
    void blockedLoopOfNobody();
    void waitingIsNotBlocking();
    void manyEventsAreNotBlocking();

    void leftovers_data();
    void leftovers();
    void nothingIsLeftOfAGoodPlugin();
    void registrationsAreTakenBack_data();
    void registrationsAreTakenBack();
    void lateCallsOfAClosedPlugin();

    void pluginFileVanishes();
    void settingsFolderVanishes();

private:
    Session& session() { return *m_fixture->session; }
    InstrumentModel& instrument() { return session().instrument(); }
    PluginManager& plugins() { return session().host().plugins(); }
    void start()
    {
        m_fixture->usePlugin("misbehaving");
        m_fixture->usePlugin("fixture");
        m_fixture->start();
        QVERIFY(m_fixture->started);
    }
    void press(const char* misdeed)
    {
        QVERIFY2(session().actions().press(QString::fromLatin1(misdeed)), misdeed);
    }
    void close()
    {
        plugins().deactivate();
        QVERIFY(plugins().waitUntilSettled());
        TimeDriver::settle();
    }
    /// The terminal is as good as new: it weighs, and another plug-in can be started.
    void checkThatItGoesOn()
    {
        emit session().bench().putOn(20.0);
        m_fixture->settle();
        QVERIFY(plugins().activate(QStringLiteral("fixture")));
        QVERIFY(plugins().waitUntilSettled());
        QVERIFY(plugins().isRunning());
        QCOMPARE(plugins().plugins().at(plugins().activeIndex()).identifier, QStringLiteral("fixture"));
        m_fixture->settle();
        QCOMPARE(
            session().host().registerValues().reading(Brimvale::ISystemRegister::CurrentRegister).messwert,
            QStringLiteral("20.0"));
    }

    std::unique_ptr<SessionFixture> m_fixture;
    QMetaObject::Connection m_connection;
};

void TestPluginFaults::init()
{
    m_fixture = std::make_unique<SessionFixture>();
    m_connection = connect(static_cast<GuardedApplication*>(qApp), &GuardedApplication::exceptionCaught, this,
                           [this](const QString& receiver, const QString& exception, QObject* object) {
                               session().pluginFaults().reportException(receiver, exception, object);
                           });
}

void TestPluginFaults::cleanup()
{
    session().shutDown();
    disconnect(m_connection);
    m_fixture.reset();
}

void TestPluginFaults::exceptions_data()
{
    QTest::addColumn<QByteArray>("misdeed");
    QTest::addColumn<QString>("text");
    const QString plain = QStringLiteral("std::runtime_error: failed on request");
    QTest::newRow("action") << QByteArray("Throw") << plain;
    QTest::newRow("ProjectException")
        << QByteArray("ThrowProject") << QStringLiteral("ProjectException: the project failed on request");
    QTest::newRow("int") << QByteArray("ThrowInt") << QStringLiteral("\"ThrowInt\" failed: int");
    QTest::newRow("timer") << QByteArray("ThrowInTimer") << plain;
    QTest::newRow("event handler") << QByteArray("ThrowInEvent") << plain;
    QTest::newRow("slot of a reading") << QByteArray("ThrowInReading") << plain;
    QTest::newRow("called by QML") << QByteArray("ThrowInQml") << plain;
    QTest::newRow("memory") << QByteArray("ExhaustMemory") << QStringLiteral("std::bad_alloc");
}

void TestPluginFaults::exceptions()
{
    QFETCH(QByteArray, misdeed);
    QFETCH(QString, text);
    start();
    press(misdeed);
    m_fixture->settle();
    QTRY_VERIFY(instrument().noticeVisible());
    QCOMPARE(instrument().noticeTitle(), QStringLiteral("Misbehaving"));
    QVERIFY2(instrument().noticeText().contains(text), qPrintable(instrument().noticeText()));
    QCOMPARE(instrument().noticeSeverity(), InstrumentModel::Severity::Error);
    QVERIFY(instrument().noticeOffersClose());
    QCOMPARE(session().errors().size(), 1);
    QVERIFY(plugins().isRunning());
    checkThatItGoesOn();
}

void TestPluginFaults::sameExceptionAgainAndAgain()
{
    start();
    press("ThrowManyTimes");
    QTRY_VERIFY(instrument().noticeCount() > 120);
    QCOMPARE(session().errors().size(), 1);
    QVERIFY(m_fixture->log->contains(QStringLiteral("Misbehaving, 100 times: ")));
    QVERIFY(!m_fixture->log->contains(QStringLiteral("Misbehaving, 101 times: ")));
    QSignalSpy faults(&session().host().notices(), &Notices::pluginFault);
    QSignalSpy notices(&session().host(), &Host::notice);
    QTRY_VERIFY(faults.size() > 10);
    QCOMPARE(notices.size(), 0);
}

void TestPluginFaults::anotherExceptionEachTime()
{
    start();
    press("ThrowDifferently");
    QTRY_VERIFY(instrument().noticeCount() > 50);
    QVERIFY(instrument().noticeText().contains(QLatin1String("again and again")));
    QCOMPARE(session().errors().size(), Notices::MaximumPluginFaults + 1);
}

void TestPluginFaults::noticeThatWasPutAwayStaysAway()
{
    start();
    press("ThrowManyTimes");
    QTRY_VERIFY(instrument().noticeCount() > 5);
    instrument().clearNotice();
    QSignalSpy faults(&session().host().notices(), &Notices::pluginFault);
    QTRY_VERIFY(faults.size() > 20);
    QVERIFY(!instrument().noticeVisible());
}

void TestPluginFaults::offerToClose()
{
    start();
    press("Throw");
    QVERIFY(instrument().noticeOffersClose());
    instrument().closeFromNotice();
    QVERIFY(!instrument().noticeVisible());
    QVERIFY(plugins().waitUntilSettled());
    QCOMPARE(plugins().activeIndex(), -1);
    // It may be started again.
    QVERIFY(plugins().activate(QStringLiteral("misbehaving")));
    QVERIFY(plugins().waitUntilSettled());
    QVERIFY(plugins().isRunning());
}

void TestPluginFaults::offerEndsWithTheApplication()
{
    start();
    press("Throw");
    close();
    QVERIFY(instrument().noticeVisible());
    QVERIFY(!instrument().noticeOffersClose());
}

void TestPluginFaults::germanNotice()
{
    start();
    session().setLanguage(QStringLiteral("de"));
    press("ThrowInTimer");
    QTRY_VERIFY(instrument().noticeVisible());
    QCOMPARE(instrument().noticeText(),
             QStringLiteral("Die Anwendung \"Misbehaving\" ist fehlgeschlagen: std::runtime_error: failed on "
                            "request"));
    const QQuickItem* const key =
        session().window().rootItem()->findChild<QQuickItem*>(QStringLiteral("closeApplication"));
    QVERIFY(key);
    QVERIFY(key->isVisible());
    QCOMPARE(key->property("text").toString(), QStringLiteral("Schließen"));
}

void TestPluginFaults::exceptionOfAClosedPlugin()
{
    start();
    press("ThrowLate");
    checkThatItGoesOn(); // with another plug-in at work
    QTRY_VERIFY(
        instrument().noticeText().contains(QLatin1String("\"Misbehaving\", which is closed, failed")));
    QVERIFY(!instrument().noticeOffersClose()); // it is not the one at work that failed
}

void TestPluginFaults::deletedPlugin_data()
{
    QTest::addColumn<QByteArray>("misdeed");
    QTest::newRow("from the event loop") << QByteArray("DeletePlugin");
    QTest::newRow("within its action") << QByteArray("DeletePluginAtOnce");
}

void TestPluginFaults::deletedPlugin()
{
    QFETCH(QByteArray, misdeed);
    start();
    press(misdeed);
    QTRY_COMPARE(plugins().activeIndex(), -1);
    QVERIFY2(instrument().noticeText().contains(QLatin1String("deleted its own object")),
             qPrintable(instrument().noticeText()));
    QVERIFY(instrument().noticeText().contains(QLatin1String("\"Misbehaving\"")));
    QCOMPARE(plugins().plugins().first().state, PluginState::Failed);
    QVERIFY(!plugins().activate(QStringLiteral("misbehaving")));
    QCOMPARE(plugins().GetPlugins().size(), 1);
    QVERIFY(!session().window().pluginScreen());
    session().setLanguage(QStringLiteral("de"));
    checkThatItGoesOn();
}

void TestPluginFaults::deletedPluginWhileItCloses()
{
    start();
    press("DeletePluginAtClose");
    QVERIFY(plugins().activate(QStringLiteral("fixture")));
    QVERIFY(plugins().waitUntilSettled(2 * PluginManager::CloseTimeoutMs));
    QCOMPARE(plugins().plugins().first().state, PluginState::Failed);
    QVERIFY(instrument().noticeText().contains(QLatin1String("deleted its own object")));
    checkThatItGoesOn();
}

void TestPluginFaults::deletedModel()
{
    start();
    press("DeleteModel");
    m_fixture->settle();
    QVERIFY(plugins().isRunning());
    checkThatItGoesOn();
}

void TestPluginFaults::deletedAction()
{
    start();
    const int count = instrument().actions()->count();
    press("DeleteAction");
    QCOMPARE(instrument().actions()->count(), count - 1);
    checkThatItGoesOn();
}

void TestPluginFaults::blockedLoop()
{
    start();
    LoopWatch watch(200);
    watch.setActive(QStringLiteral("/plugins/counting.so"));
    QSignalSpy blocked(&watch, &LoopWatch::blocked);
    QObject* const plugin = plugins().activeObject();
    QTimer::singleShot(0, plugin, [] {
        const RunningCode running("StartPlugin()");
        QThread::msleep(600);
    });
    QTRY_COMPARE(blocked.size(), 1);
    QCOMPARE(blocked.first().at(0).toString(), QStringLiteral("StartPlugin()"));
    QVERIFY(blocked.first().at(2).toLongLong() >= 600);
    QVERIFY(m_fixture->log->contains(QStringLiteral(
        "held up for 0.2 s by StartPlugin() while /plugins/counting.so is active. It goes on")));
    QVERIFY(m_fixture->log->contains(QStringLiteral("held up for 0.4 s by StartPlugin()")));
}

void TestPluginFaults::blockedLoopOfNobody()
{
    m_fixture->start();
    LoopWatch watch(100);
    QSignalSpy blocked(&watch, &LoopWatch::blocked);
    QTimer::singleShot(0, this, [] { QThread::msleep(300); });
    QTRY_COMPARE(blocked.size(), 1);
    QCOMPARE(session().errors(), QStringList());
}

void TestPluginFaults::waitingIsNotBlocking()
{
    m_fixture->start();
    LoopWatch watch(100);
    QSignalSpy blocked(&watch, &LoopWatch::blocked);
    QEventLoop loop;
    QTimer::singleShot(500, &loop, &QEventLoop::quit);
    loop.exec();
    QCOMPARE(blocked.size(), 0);
}

void TestPluginFaults::manyEventsAreNotBlocking()
{
    m_fixture->start();
    LoopWatch watch(200);
    QSignalSpy blocked(&watch, &LoopWatch::blocked);
    QElapsedTimer elapsed;
    elapsed.start();
    while (elapsed.elapsed() < 600) {
        QThread::msleep(5);
        QCoreApplication::processEvents();
    }
    QCOMPARE(blocked.size(), 0);
}

void TestPluginFaults::leftovers_data()
{
    QTest::addColumn<QByteArray>("misdeed");
    QTest::addColumn<QStringList>("working");
    QTest::addColumn<QStringList>("objects");
    QTest::newRow("timer") << QByteArray("LeakTimer")
                           << QStringList{QStringLiteral("timer QTimer \"poll\" of 1000 ms")}
                           << QStringList();
    QTest::newRow("timer without a parent")
        << QByteArray("LeakOrphanTimer") << QStringList{QStringLiteral("timer QTimer \"orphan\" of 2000 ms")}
        << QStringList();
    QTest::newRow("thread") << QByteArray("LeakThread")
                            << QStringList{QStringLiteral("thread EndlessThread \"worker\"")}
                            << QStringList();
    QTest::newRow("objects") << QByteArray("LeakObjects") << QStringList()
                             << QStringList{QStringLiteral("2 MisbehavingModel")};
}

void TestPluginFaults::leftovers()
{
    QFETCH(QByteArray, misdeed);
    QFETCH(QStringList, working);
    QFETCH(QStringList, objects);
    start();
    press(misdeed);
    close();
    const Remains remains = session().pluginFaults().leftBehind();
    QCOMPARE(remains.working, working);
    QCOMPARE(remains.objects, objects);
    if (!working.isEmpty()) {
        QCOMPARE(instrument().noticeText(),
                 QStringLiteral("The application \"Misbehaving\" is closed, but of it still works: %1.")
                     .arg(working.first()));
        QCOMPARE(instrument().noticeSeverity(), InstrumentModel::Severity::Warning);
    } else {
        QVERIFY(m_fixture->log->contains(QStringLiteral("Misbehaving has left behind at its close: ")
                                         + objects.first()));
    }
    checkThatItGoesOn();
}

void TestPluginFaults::nothingIsLeftOfAGoodPlugin()
{
    start();
    checkThatItGoesOn(); // the good one is the last that was started
    close();
    const Remains remains = session().pluginFaults().leftBehind();
    QCOMPARE(remains.working, QStringList());
    QCOMPARE(remains.objects, QStringList());
    QVERIFY(!instrument().noticeVisible());
}

void TestPluginFaults::registrationsAreTakenBack_data()
{
    QTest::addColumn<QByteArray>("misdeed");
    QTest::newRow("objects go with the plug-in") << QByteArray("Register");
    QTest::newRow("objects stay") << QByteArray("LeakRegistrations");
}

void TestPluginFaults::registrationsAreTakenBack()
{
    QFETCH(QByteArray, misdeed);
    start();
    press(misdeed);
    QVERIFY(!session().host().protocolPool().items().isEmpty());
    close();
    QVERIFY(session().host().protocolPool().items().isEmpty());
    QVERIFY(session().host().workflowManager().stepFunctions().isEmpty());
    QVERIFY(session().host().infoItems().isEmpty());
    QVERIFY(session().host().actions().isEmpty());
    checkThatItGoesOn();
}

void TestPluginFaults::lateCallsOfAClosedPlugin()
{
    start();
    QObject* const plugin = plugins().activeObject();
    press("CallTheHostLate");
    close();
    QTRY_VERIFY(plugin->property("lateCalls").toInt() > 2);
    QVERIFY(plugins().activate(QStringLiteral("fixture")));
    QVERIFY(plugins().waitUntilSettled());
    const int calls = plugin->property("lateCalls").toInt();
    QTRY_VERIFY(plugin->property("lateCalls").toInt() > calls + 2);
    QVERIFY(plugins().isRunning());
    checkThatItGoesOn();
}

void TestPluginFaults::pluginFileVanishes()
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("vanishing.so"));
    QVERIFY(QFile::copy(SessionFixture::plugin("misbehaving"), file));
    m_fixture->options.withoutPlugin = false;
    m_fixture->options.plugins = QStringList{file, SessionFixture::plugin("fixture")};
    m_fixture->start();
    QVERIFY(QFile::remove(file));
    press("ThrowInTimer"); // is still known as its own
    QTRY_VERIFY(instrument().noticeText().contains(QLatin1String("\"Misbehaving\" failed")));
    close();
    QVERIFY(plugins().activate(QStringLiteral("misbehaving")));
    QVERIFY(plugins().waitUntilSettled());
    QVERIFY(plugins().isRunning());
    checkThatItGoesOn();
}

void TestPluginFaults::settingsFolderVanishes()
{
    QTemporaryDir folder;
    m_fixture->options.settings = folder.filePath(QStringLiteral("settings/terminal.ini"));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("settings")));
    m_fixture->usePlugin("fixture_menu");
    m_fixture->usePlugin("fixture");
    m_fixture->start();
    QVERIFY(QDir(folder.filePath(QStringLiteral("settings"))).removeRecursively());
    // Whether Qt makes the folder anew or not: the setting holds, and either it is stored or the person is told.
    SettingsModel& settings = session().settings();
    QCOMPARE(settings.openScreen(), QString());
    QCOMPARE(settings.set(11, QStringLiteral("250.5")), QString());
    QCOMPARE(settings.shownText(11).value_or(QString()), QStringLiteral("250.5 g"));
    settings.closeScreen();
    QFile file(m_fixture->options.settings);
    const bool isStored = file.open(QIODevice::ReadOnly) && file.readAll().contains("250.5");
    QVERIFY2(isStored || instrument().noticeText().contains(m_fixture->options.settings),
             qPrintable(instrument().noticeText()));
    checkThatItGoesOn();
}

int main(int argc, char** argv)
{
    GuardedApplication application(argc, argv);
    TestPluginFaults test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_pluginfaults.moc"
