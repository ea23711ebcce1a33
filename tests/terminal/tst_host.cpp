// SPDX-License-Identifier: BSD-3-Clause
#include "HostFixture.h"
#include "IPlugin.h"
#include "MesswertInfo.h"
#include "WarnInfo.h"
#include "app/GuardedApplication.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace Brimvale;
using namespace Brimvale::Terminal;

/// The host as a whole, with plug-ins from real files.
class tst_Host : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theModelsOfThePluginAreFound();
    void theModelsGoBeforeTheirObjects();
    void warningsReachThePlugin();
    void readingsReachThePlugin();
    void aPrintRequestGoesToThePluginAndOut();
    void thePrintButtonFollowsThePluginAtASecondStart();
    void actionsAreShownAndPressed();
    void anActionDeletedWithoutRemovalDisappears();
    void infoItemsAreShown();
    void aThrowingActionIsReported();
    void aThrowingReadingIsReportedOnceForEachRun();
    void aNullViewModelIsSurvived();
    void aMissingScreenIsReported_data();
    void aMissingScreenIsReported();
    void exceptionsFromTheEventLoopAreReported();
    void anExceptionAfterTheCloseDoesNotHinderTheNext();

private:
    Host& host() { return *m_fixture->host; }
    bool run(const char* name);
    int readings()
    {
        return host().plugins().activeObject()->property("steps").toStringList().count(
            QStringLiteral("onNewMeasurementValue"));
    }

    std::unique_ptr<HostFixture> m_fixture;
};

void tst_Host::init()
{
    m_fixture = std::make_unique<HostFixture>();
    m_fixture->settle(36.4);
}

void tst_Host::cleanup()
{
    m_fixture.reset();
}

bool tst_Host::run(const char* name)
{
    const QString file = QDir(QStringLiteral(BRIMVALE_FIXTURE_DIRECTORY))
                             .filePath(QLatin1String(name) + QStringLiteral(".so"));
    const LoadResult result = host().plugins().load(file);
    if (!result.ok) {
        qWarning("%s", qPrintable(result.message));
    }
    return result.ok && host().plugins().activate(QString::fromLatin1(name))
           && host().plugins().waitUntilSettled();
}

void tst_Host::theModelsOfThePluginAreFound()
{
    QSignalSpy display(&host(), &Host::displayChanged);
    QSignalSpy warnings(&host(), &Host::warningsChanged);
    QVERIFY(run("fixture"));
    QVERIFY(qobject_cast<MesswertInfo*>(host().display()) != nullptr);
    QVERIFY(qobject_cast<WarnInfo*>(host().warnings()) != nullptr);
    QCOMPARE(display.count(), 1);
    QCOMPARE(warnings.count(), 1);
}

void tst_Host::theModelsGoBeforeTheirObjects()
{
    QVERIFY(run("fixture"));
    QPointer<QObject> model = host().display();
    bool alive = false;
    connect(&host(), &Host::displayChanged, this,
            [&](QObject* display) { alive = display == nullptr && !model.isNull(); });
    host().plugins().deactivate();
    QVERIFY(alive);
    QVERIFY(model.isNull());
    QVERIFY(host().plugins().waitUntilSettled());
}

void tst_Host::warningsReachThePlugin()
{
    QVERIFY(run("fixture"));
    const auto* const warnings = qobject_cast<WarnInfo*>(host().warnings());
    QVERIFY(warnings != nullptr);
    QVERIFY(!warnings->levellingRequiredVisible());
    host().setLevelled(false);
    QVERIFY(warnings->levellingRequiredVisible());
    host().setLevelled(true);
    QVERIFY(!warnings->levellingRequiredVisible());
    host().setCalibrationDue(true);
    QVERIFY(warnings->calibrationRequiredVisible());
    QCOMPARE(warnings->calibrationRequiredText(), QStringLiteral("Calibration required"));
    host().setCalibrationDue(false);
    QVERIFY(!warnings->calibrationRequiredVisible());
}

void tst_Host::readingsReachThePlugin()
{
    QVERIFY(run("fixture"));
    m_fixture->settle(50.0);
    QCOMPARE(readings(), 20);
}

void tst_Host::aPrintRequestGoesToThePluginAndOut()
{
    QTemporaryDir folder;
    HostSettings settings;
    settings.transferLog = folder.filePath(QStringLiteral("log.csv"));
    m_fixture = std::make_unique<HostFixture>(settings);
    m_fixture->settle(36.4);
    QVERIFY(run("fixture"));
    QVERIFY(host().isPrintEnabled());
    QVERIFY(host().pressPrint());
    QVERIFY(host().measurementTransfer().records().isEmpty()); // the plug-in serves it at the next reading
    host().calls().clear();
    m_fixture->feed(36.4);
    QCOMPARE(host().measurementTransfer().records().size(), 1);
    QVERIFY(host().measurementTransfer().records().at(0).taken);
    QVERIFY(host().printIndicator().isLit());
    QVERIFY(!host().sequencer().isPrintPending());
    QStringList calls = host().calls().calls();
    calls = calls.filter(QRegularExpression(QStringLiteral("^(IMeas|ISequencer|IPrintIndicator)")));
    QCOMPARE(calls,
             (QStringList{
                 QStringLiteral("IMeasurementTransfer::TransferMeasurement(MesswertData(\"36.4 g\"), "
                                "MesswertData(\"36.4 g\"), MesswertData(\"0.0 g\"))"),
                 QStringLiteral("ISequencer::SetPrintPending(true)"),
                 QStringLiteral("ISequencer::NotifyHostEvent(\"printPressed\")"),
                 QStringLiteral("IPrintIndicator::SetPrintPressed(true)"),
                 QStringLiteral("ISequencer::NotifyMeasurementTransferred()"),
                 QStringLiteral("IMeasurementObserver::OnMeasurementTransferred(MesswertData(\"36.4 g\"), "
                                "MesswertData(\"\"))"),
                 QStringLiteral("IMeasurementObserver::OnSystemRegistersRead(364, 0)")}));
    // One request, one print.
    m_fixture->feed(36.4);
    QCOMPARE(host().measurementTransfer().records().size(), 1);
}

void tst_Host::thePrintButtonFollowsThePluginAtASecondStart()
{
    QTemporaryDir folder;
    HostSettings settings;
    settings.transferLog = folder.filePath(QStringLiteral("log.csv"));
    m_fixture = std::make_unique<HostFixture>(settings);
    QVERIFY(run("fixture"));
    QVERIFY(host().isPrintEnabled());
    QVERIFY(host().plugins().closeAll());
    QVERIFY(!host().isPrintEnabled()); // it does not ask for the state at its close
    QVERIFY(host().plugins().activate(0));
    QVERIFY(host().isPrintEnabled());
}

void tst_Host::actionsAreShownAndPressed()
{
    QVERIFY(run("fixture"));
    QCOMPARE(host().actions().size(), 2);
    QCOMPARE(host().actions().at(0).uid, QStringLiteral("fixture.delete")); // the lower rank
    QCOMPARE(host().actions().at(1).uid, QStringLiteral("fixture.action"));
    QVERIFY(host().pressAction(QStringLiteral("fixture.action")));
    QVERIFY(host().plugins().activeObject()->property("steps").toStringList().contains(
        QStringLiteral("onAction")));
    QVERIFY(!host().pressAction(QStringLiteral("unknown")));
}

void tst_Host::anActionDeletedWithoutRemovalDisappears()
{
    QVERIFY(run("fixture"));
    QVERIFY(host().pressAction(QStringLiteral("fixture.delete")));
    QCOMPARE(host().actions().size(), 1);
    QVERIFY(host().plugins().closeAll());
    QVERIFY(host().actions().isEmpty());
}

void tst_Host::infoItemsAreShown()
{
    QSignalSpy changed(&host(), &Host::infoItemsChanged);
    QVERIFY(run("fixture"));
    QCOMPARE(host().infoItems().size(), 1);
    QCOMPARE(host().infoItems().at(0)->property("itemValueTitle").toString(), QStringLiteral("Line"));
    QCOMPARE(changed.count(), 1);
    QVERIFY(host().plugins().closeAll());
    QVERIFY(host().infoItems().isEmpty());
}

void tst_Host::aThrowingActionIsReported()
{
    QVERIFY(run("throw_action"));
    QVERIFY(host().pressAction(QStringLiteral("fixture.action")));
    QCOMPARE(m_fixture->notices,
             QStringList{QStringLiteral("error: The action \"Action\" failed: std::runtime_error: "
                                        "the fixture failed on purpose")});
    QVERIFY(host().plugins().closeAll());
}

void tst_Host::aThrowingReadingIsReportedOnceForEachRun()
{
    QVERIFY(run("throw_reading"));
    m_fixture->settle(50.0);
    QCOMPARE(m_fixture->noticesWith(QStringLiteral("the fixture failed on purpose")).size(), 1);
    QCOMPARE(readings(), 20); // it is not cut off
    QVERIFY(host().plugins().closeAll());
    QVERIFY(host().plugins().activate(0));
    m_fixture->feed(60.0);
    QCOMPARE(m_fixture->noticesWith(QStringLiteral("the fixture failed on purpose")).size(), 2);
}

void tst_Host::aNullViewModelIsSurvived()
{
    QVERIFY(run("null_view_model"));
    QCOMPARE(m_fixture->noticesWith(QStringLiteral("its view model is null")).size(), 1);
    QVERIFY(host().display() == nullptr);
    QVERIFY(host().warnings() == nullptr);
    host().setLevelled(false);
    host().setCalibrationDue(true);
    m_fixture->feed(1.0);
    QCOMPARE(readings(), 1);
    QVERIFY(host().plugins().closeAll());
}

void tst_Host::aMissingScreenIsReported_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("part");
    QTest::newRow("missing") << "missing_screen"
                             << ":/fixture/Missing.qml of the application does not exist";
    QTest::newRow("empty") << "empty_screen"
                           << "The application names no screen.";
}

void tst_Host::aMissingScreenIsReported()
{
    QFETCH(QString, name);
    QFETCH(QString, part);
    QVERIFY(run(name.toLatin1().constData()));
    QCOMPARE(m_fixture->notices.size(), 1);
    QVERIFY2(m_fixture->notices.at(0).contains(part), qPrintable(m_fixture->notices.at(0)));
    // It runs without a screen.
    m_fixture->feed(1.0);
    QCOMPARE(readings(), 1);
}

void tst_Host::exceptionsFromTheEventLoopAreReported()
{
    host().reportException(QStringLiteral("std::logic_error: odd"));
    QVERIFY(run("fixture"));
    host().reportException(QStringLiteral("std::logic_error: odd"));
    host().reportException(QStringLiteral("std::logic_error: odd"));
    QCOMPARE(
        m_fixture->notices,
        (QStringList{QStringLiteral("error: An application failed: std::logic_error: odd"),
                     QStringLiteral("error: The application \"Fixture\" failed: std::logic_error: odd")}));
}

void tst_Host::anExceptionAfterTheCloseDoesNotHinderTheNext()
{
    // It is thrown in a timer of the plug-in: only the application can catch it.
    auto* const application = qobject_cast<GuardedApplication*>(QCoreApplication::instance());
    QVERIFY(application != nullptr);
    connect(application, &GuardedApplication::exceptionCaught, m_fixture->host.get(),
            [this](const QString&, const QString& exception) { host().reportException(exception); });
    QVERIFY(run("throw_post_close"));
    QVERIFY(run("fixture"));
    QCOMPARE(m_fixture->notices,
             QStringList{
                 QStringLiteral("error: The application \"Fixture\" failed: std::runtime_error: the fixture "
                                "failed on purpose")});
    QVERIFY(host().plugins().isRunning());
    QVERIFY(!host().isControlMode());
}

int main(int argc, char** argv)
{
    GuardedApplication application(argc, argv);
    tst_Host test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_host.moc"
