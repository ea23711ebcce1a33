// SPDX-License-Identifier: BSD-3-Clause
//
// How a plug-in shows the host's calibration and levelling warnings on its view model.
#include "ICalibrationService.h"
#include "ISensorState.h"
#include "TestPlugin.h"
#include "WarnInfo.h"

#include <QObject>
#include <QtTest>

#include <TestKit/RecordingHost.h>
#include <TestKit/SignalRecorder.h>
#include <functional>
#include <memory>

using namespace Brimvale;
using namespace Brimvale::TestKit;

// View models as their authors may write them.

namespace Brimvale
{

/// Within the namespace the return type stands without it.
class InsideViewModel : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE WarnInfo* warnInfo() { return warnings; }

    WarnInfo* warnings = nullptr;
};

} // namespace Brimvale

class OutsideViewModel : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE Brimvale::WarnInfo* warnInfo() { return warnings; }

    Brimvale::WarnInfo* warnings = nullptr;
};

class SlotViewModel : public QObject
{
    Q_OBJECT

public:
    Brimvale::WarnInfo* warnings = nullptr;

public slots:
    Brimvale::WarnInfo* warnInfo() { return warnings; }
};

class DerivedViewModel : public OutsideViewModel
{
    Q_OBJECT
};

class NotInvokableViewModel : public QObject
{
    Q_OBJECT

public:
    Brimvale::WarnInfo* warnInfo() { return warnings; }

    Brimvale::WarnInfo* warnings = nullptr;
};

class OtherNameViewModel : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE Brimvale::WarnInfo* WarnInfo() { return warnings; }

    Brimvale::WarnInfo* warnings = nullptr;
};

class OtherArgumentsViewModel : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE Brimvale::WarnInfo* warnInfo(int) { return warnings; }

    Brimvale::WarnInfo* warnings = nullptr;
};

class OtherResultViewModel : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE QObject* warnInfo() { return warnings; }

    Brimvale::WarnInfo* warnings = nullptr;
};

namespace
{

/// Host services that are no QObjects.
class PlainCalibrationService : public ICalibrationService
{
public:
    QString GetCalibrationWarningText() override { return QStringLiteral("plain"); }
};

class PlainSensorState : public ISensorState
{
public:
    bool IsLevellingNotAdjusted() override { return true; }
};

template <typename ViewModel>
QObject* makeViewModel(WarnInfo* warnings)
{
    auto* const model = new ViewModel;
    model->warnings = warnings;
    return model;
}

using Maker = QObject* (*)(WarnInfo*);

} // namespace

Q_DECLARE_METATYPE(Maker)

class TestWarnings : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // finding the warning object
    void found_data();
    void found();
    void notFound_data();
    void notFound();
    void missingMethodMakesNoConnection_data();
    void missingMethodMakesNoConnection();
    void methodWithAnotherResult();
    void nullWarnings();
    void warningsMayComeLater();

    // calibration
    void calibrationSteps();
    void calibrationShowsTheText_data();
    void calibrationShowsTheText();
    void calibrationFollowsTheHost();
    void calibrationSetsTextBeforeVisibility();
    void calibrationWithoutQObject();
    void calibrationHandlerWithoutInit();
    void calibrationDeInit();

    // levelling
    void levellingStepsWhenLevelled();
    void levellingStepsWhenNotLevelled();
    void levellingWhenLevelledFollowsTheSystemOnly();
    void levellingWhenNotLevelledFollowsBoth();
    void levellingWithoutQObject();
    void levellingHandlers();
    void levellingHandlerWithoutInit();
    void levellingDeInit();
    void levellingDeInitWhenLevelled();

    // both
    void deInitOfOneSilencesTheOther_data();
    void deInitOfOneSilencesTheOther();
    void startConnectsWhatIsAskedFor_data();
    void startConnectsWhatIsAskedFor();
    void closeDisconnects();
    void startAgainConnectsOnce();

private:
    void use(const Maker& maker);

    std::unique_ptr<RecordingHost> m_host;
    std::unique_ptr<TestPlugin> m_plugin;
    std::unique_ptr<WarnInfo> m_warnings;
    std::unique_ptr<SignalRecorder> m_signals;
    std::unique_ptr<QObject> m_viewModel;
};

void TestWarnings::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_plugin = std::make_unique<TestPlugin>(*m_host);
    m_warnings = std::make_unique<WarnInfo>(nullptr, QString(), QString(), false, false);
    m_signals = std::make_unique<SignalRecorder>(m_warnings.get());
    QVERIFY(m_host->init(*m_plugin));
    use(&makeViewModel<OutsideViewModel>);
    m_host->clearCalls();
}

void TestWarnings::cleanup()
{
    m_plugin.reset();
    m_viewModel.reset();
    m_signals.reset();
    m_warnings.reset();
    m_host.reset();
}

/// Gives the plug-in a view model without starting it.
void TestWarnings::use(const Maker& maker)
{
    m_viewModel.reset(maker(m_warnings.get()));
    m_plugin->m_viewModel = m_viewModel.get();
}

void TestWarnings::found_data()
{
    QTest::addColumn<Maker>("maker");

    QTest::newRow("WarnInfo* inside the namespace") << Maker(&makeViewModel<InsideViewModel>);
    QTest::newRow("Brimvale::WarnInfo* outside") << Maker(&makeViewModel<OutsideViewModel>);
    QTest::newRow("slot") << Maker(&makeViewModel<SlotViewModel>);
    QTest::newRow("method of a base") << Maker(&makeViewModel<DerivedViewModel>);
}

void TestWarnings::found()
{
    QFETCH(Maker, maker);
    use(maker);
    m_host->setCalibrationWarning("due");
    m_host->setLevelled(false);
    m_plugin->InitCalibrationService();
    m_plugin->InitLevellingService();
    QCOMPARE(m_warnings->calibrationRequiredText(), QStringLiteral("due"));
    QCOMPARE(m_warnings->calibrationRequiredVisible(), true);
    QCOMPARE(m_warnings->levellingRequiredVisible(), true);
    QVERIFY(m_plugin->m_warnInfoMethod.isValid());
}

void TestWarnings::notFound_data()
{
    QTest::addColumn<Maker>("maker");

    QTest::newRow("not invokable") << Maker(&makeViewModel<NotInvokableViewModel>);
    QTest::newRow("other name") << Maker(&makeViewModel<OtherNameViewModel>);
    QTest::newRow("other arguments") << Maker(&makeViewModel<OtherArgumentsViewModel>);
    QTest::newRow("no view model") << Maker([](WarnInfo*) { return static_cast<QObject*>(nullptr); });
}

void TestWarnings::notFound()
{
    QFETCH(Maker, maker);
    use(maker);
    m_plugin->InitCalibrationService();
    m_plugin->InitLevellingService();
    // Not even the state is asked for.
    BRIMVALE_COMPARE_CALLS(*m_host);
    BRIMVALE_COMPARE_CALLS(*m_signals);
    QVERIFY(!m_plugin->m_warnInfoMethod.isValid());
}

void TestWarnings::missingMethodMakesNoConnection_data()
{
    QTest::addColumn<bool>("calibration");

    QTest::newRow("calibration") << true;
    QTest::newRow("levelling") << false;
}

void TestWarnings::missingMethodMakesNoConnection()
{
    QFETCH(bool, calibration);
    m_host->setLevelled(false);
    use(&makeViewModel<NotInvokableViewModel>);
    if (calibration)
        m_plugin->InitCalibrationService();
    else
        m_plugin->InitLevellingService();

    // A view model with warnings comes too late: nothing was connected for this service.
    use(&makeViewModel<OutsideViewModel>);
    if (calibration)
        m_plugin->InitLevellingService();
    else
        m_plugin->InitCalibrationService();
    m_signals->clearCalls();
    if (calibration) {
        m_host->setCalibrationWarning("due");
        BRIMVALE_COMPARE_CALLS(*m_signals);
    } else {
        m_host->setLevelled(true);
        m_host->setLevelled(false);
        BRIMVALE_COMPARE_CALLS(*m_signals);
    }
}

void TestWarnings::methodWithAnotherResult()
{
    use(&makeViewModel<OtherResultViewModel>);
    m_host->answer("ICalibrationService::GetCalibrationWarningText", "due");
    m_plugin->InitCalibrationService();
    // The method is there, so the service is connected; its result is no warning object.
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetCalibrationService()");
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestWarnings::nullWarnings()
{
    m_warnings.reset();
    use(&makeViewModel<OutsideViewModel>);
    m_host->setLevelled(false);
    m_host->clearCalls();
    m_plugin->InitCalibrationService();
    m_plugin->InitLevellingService();
    // The services are connected, but the texts are not asked for.
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetCalibrationService()", "ISystem::GetSensorState()",
                           "ISensorState::IsLevellingNotAdjusted()", "ISystem::GetSensorState()");
    m_host->setCalibrationWarning("due");
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestWarnings::warningsMayComeLater()
{
    const std::unique_ptr<WarnInfo> late = std::move(m_warnings);
    use(&makeViewModel<OutsideViewModel>);
    m_plugin->InitCalibrationService();
    static_cast<OutsideViewModel*>(m_viewModel.get())->warnings = late.get();
    m_host->setCalibrationWarning("due");
    QCOMPARE(late->calibrationRequiredText(), QStringLiteral("due"));
}

void TestWarnings::calibrationSteps()
{
    m_plugin->InitCalibrationService();
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetCalibrationService()",
                           "ICalibrationService::GetCalibrationWarningText()",
                           "ISystem::GetCalibrationService()");
}

void TestWarnings::calibrationShowsTheText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isVisible");

    QTest::newRow("none") << QString() << false;
    QTest::newRow("text") << QStringLiteral("Kalibrierung fällig") << true;
    QTest::newRow("blank") << QStringLiteral(" ") << true;
}

void TestWarnings::calibrationShowsTheText()
{
    QFETCH(QString, text);
    QFETCH(bool, isVisible);
    m_warnings->setCalibrationRequiredText(QStringLiteral("before"));
    m_warnings->setCalibrationRequiredVisible(!isVisible);
    m_host->setCalibrationWarning(text);
    m_plugin->InitCalibrationService();
    QCOMPARE(m_warnings->calibrationRequiredText(), text);
    QCOMPARE(m_warnings->calibrationRequiredVisible(), isVisible);
}

void TestWarnings::calibrationFollowsTheHost()
{
    m_plugin->InitCalibrationService();
    m_host->clearCalls();
    m_host->setCalibrationWarning("due");
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetCalibrationService()",
                           "ICalibrationService::GetCalibrationWarningText()");
    BRIMVALE_COMPARE_CALLS(*m_signals, "calibrationRequiredTextChanged()",
                           "calibrationRequiredVisibleChanged()");
    m_host->setCalibrationWarning("due since long");
    BRIMVALE_COMPARE_CALLS(*m_signals, "calibrationRequiredTextChanged()");
    m_host->setCalibrationWarning("");
    BRIMVALE_COMPARE_CALLS(*m_signals, "calibrationRequiredTextChanged()",
                           "calibrationRequiredVisibleChanged()");
    QCOMPARE(m_warnings->calibrationRequiredVisible(), false);
}

void TestWarnings::calibrationSetsTextBeforeVisibility()
{
    m_host->setCalibrationWarning("due");
    m_plugin->InitCalibrationService();
    BRIMVALE_COMPARE_CALLS(*m_signals, "calibrationRequiredTextChanged()",
                           "calibrationRequiredVisibleChanged()");
}

void TestWarnings::calibrationWithoutQObject()
{
    PlainCalibrationService service;
    m_host->answer<ICalibrationService*>("ISystem::GetCalibrationService", &service);
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^QObject::connect: Cannot connect")));
    m_plugin->InitCalibrationService();
    QCOMPARE(m_warnings->calibrationRequiredText(), QStringLiteral("plain"));
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^QObject::disconnect: Unexpected null")));
    m_plugin->DeInitCalibrationService();
    QVERIFY(!m_plugin->m_warnInfoMethod.isValid());
}

void TestWarnings::calibrationHandlerWithoutInit()
{
    m_plugin->onCalibrationServiceStateChanged();
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestWarnings::calibrationDeInit()
{
    m_plugin->InitCalibrationService();
    m_host->clearCalls();
    m_plugin->DeInitCalibrationService();
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetCalibrationService()");
    QVERIFY(!m_plugin->m_warnInfoMethod.isValid());

    // Disconnected, and not merely silenced by the missing method.
    m_plugin->InitLevellingService();
    m_host->clearCalls();
    m_host->setCalibrationWarning("due");
    BRIMVALE_COMPARE_CALLS(*m_host);
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestWarnings::levellingStepsWhenLevelled()
{
    m_plugin->InitLevellingService();
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetSensorState()", "ISensorState::IsLevellingNotAdjusted()");
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestWarnings::levellingStepsWhenNotLevelled()
{
    m_host->setLevelled(false);
    m_plugin->InitLevellingService();
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetSensorState()", "ISensorState::IsLevellingNotAdjusted()",
                           "ISystem::GetSensorState()");
    BRIMVALE_COMPARE_CALLS(*m_signals, "levellingRequiredVisibleChanged()");
    QCOMPARE(m_warnings->levellingRequiredVisible(), true);
}

void TestWarnings::levellingWhenLevelledFollowsTheSystemOnly()
{
    // No update at the beginning either: what is shown stays.
    m_warnings->setLevellingRequiredVisible(true);
    m_signals->clearCalls();
    m_plugin->InitLevellingService();
    BRIMVALE_COMPARE_CALLS(*m_signals);
    m_host->clearCalls();

    m_host->answer("ISensorState::IsLevellingNotAdjusted", false);
    emit m_host->sensorState()->notifyLevellingNotAdjustedChanged();
    BRIMVALE_COMPARE_CALLS(*m_host);
    BRIMVALE_COMPARE_CALLS(*m_signals);

    emit m_host->system()->NotifyNewLevellingValue(true);
    BRIMVALE_COMPARE_CALLS(*m_signals, "levellingRequiredVisibleChanged()");
    QCOMPARE(m_warnings->levellingRequiredVisible(), false);
    emit m_host->system()->NotifyNewLevellingValue(false);
    QCOMPARE(m_warnings->levellingRequiredVisible(), true);
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestWarnings::levellingWhenNotLevelledFollowsBoth()
{
    m_host->setLevelled(false);
    m_plugin->InitLevellingService();
    m_host->clearCalls();
    m_signals->clearCalls();

    m_host->answer("ISensorState::IsLevellingNotAdjusted", false);
    emit m_host->sensorState()->notifyLevellingNotAdjustedChanged();
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetSensorState()", "ISensorState::IsLevellingNotAdjusted()");
    BRIMVALE_COMPARE_CALLS(*m_signals, "levellingRequiredVisibleChanged()");
    QCOMPARE(m_warnings->levellingRequiredVisible(), false);

    emit m_host->system()->NotifyNewLevellingValue(false);
    BRIMVALE_COMPARE_CALLS(*m_host);
    QCOMPARE(m_warnings->levellingRequiredVisible(), true);
}

void TestWarnings::levellingWithoutQObject()
{
    PlainSensorState state;
    m_host->answer<ISensorState*>("ISystem::GetSensorState", &state);
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^QObject::connect: Cannot connect")));
    m_plugin->InitLevellingService();
    QCOMPARE(m_warnings->levellingRequiredVisible(), true);
    emit m_host->system()->NotifyNewLevellingValue(true);
    QCOMPARE(m_warnings->levellingRequiredVisible(), false);
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^QObject::disconnect: Unexpected null")));
    m_plugin->DeInitLevellingService();
}

void TestWarnings::levellingHandlers()
{
    m_plugin->InitLevellingService();
    m_host->clearCalls();
    m_plugin->onLevellingServiceStateChanged(false);
    QCOMPARE(m_warnings->levellingRequiredVisible(), true);
    m_plugin->onLevellingServiceStateChanged(true);
    QCOMPARE(m_warnings->levellingRequiredVisible(), false);
    BRIMVALE_COMPARE_CALLS(*m_host);

    m_host->answer("ISensorState::IsLevellingNotAdjusted", true);
    m_plugin->onLevellingNotAdjustedChanged();
    QCOMPARE(m_warnings->levellingRequiredVisible(), true);
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetSensorState()", "ISensorState::IsLevellingNotAdjusted()");
}

void TestWarnings::levellingHandlerWithoutInit()
{
    m_plugin->onLevellingServiceStateChanged(false);
    m_host->answer("ISensorState::IsLevellingNotAdjusted", true);
    m_plugin->onLevellingNotAdjustedChanged();
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestWarnings::levellingDeInit()
{
    m_host->setLevelled(false);
    m_plugin->InitLevellingService();
    m_host->clearCalls();
    m_signals->clearCalls();
    m_plugin->DeInitLevellingService();
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetSensorState()");
    QVERIFY(!m_plugin->m_warnInfoMethod.isValid());

    // Disconnected, and not merely silenced by the missing method.
    m_plugin->InitCalibrationService();
    m_host->clearCalls();
    m_host->setLevelled(true);
    BRIMVALE_COMPARE_CALLS(*m_host);
    BRIMVALE_COMPARE_CALLS(*m_signals);
    QCOMPARE(m_warnings->levellingRequiredVisible(), true);
}

void TestWarnings::levellingDeInitWhenLevelled()
{
    m_plugin->InitLevellingService();
    m_host->clearCalls();
    m_plugin->DeInitLevellingService();
    // The sensor state is fetched although it was never connected.
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetSensorState()");
}

void TestWarnings::deInitOfOneSilencesTheOther_data()
{
    QTest::addColumn<bool>("calibrationEnds");

    QTest::newRow("end of calibration silences levelling") << true;
    QTest::newRow("end of levelling silences calibration") << false;
}

void TestWarnings::deInitOfOneSilencesTheOther()
{
    QFETCH(bool, calibrationEnds);
    const auto change = [&](int value) {
        if (calibrationEnds)
            emit m_host->system()->NotifyNewLevellingValue(value == 0);
        else
            m_host->setCalibrationWarning(value == 0 ? "" : "due");
    };
    const auto isShown = [&] {
        return calibrationEnds ? m_warnings->levellingRequiredVisible()
                               : m_warnings->calibrationRequiredVisible();
    };
    m_plugin->InitCalibrationService();
    m_plugin->InitLevellingService();
    change(1);
    QVERIFY(isShown());

    if (calibrationEnds)
        m_plugin->DeInitCalibrationService();
    else
        m_plugin->DeInitLevellingService();
    change(0);
    QVERIFY(isShown());

    // Either initialisation brings both back.
    if (calibrationEnds)
        m_plugin->InitCalibrationService();
    else
        m_plugin->InitLevellingService();
    change(0);
    QVERIFY(!isShown());
}

void TestWarnings::startConnectsWhatIsAskedFor_data()
{
    QTest::addColumn<bool>("calibration");
    QTest::addColumn<bool>("levelling");

    QTest::newRow("none") << false << false;
    QTest::newRow("calibration") << true << false;
    QTest::newRow("levelling") << false << true;
    QTest::newRow("both") << true << true;
}

void TestWarnings::startConnectsWhatIsAskedFor()
{
    QFETCH(bool, calibration);
    QFETCH(bool, levelling);
    TestPlugin plugin(*m_host);
    plugin.id.usesCalibrationService = calibration;
    plugin.id.usesLevellingService = levelling;
    plugin.viewModelMaker = [this] { return makeViewModel<OutsideViewModel>(m_warnings.get()); };
    QVERIFY(m_host->init(plugin));
    QVERIFY(m_host->start(plugin));
    m_host->setCalibrationWarning("due");
    m_host->setLevelled(false);
    QCOMPARE(m_warnings->calibrationRequiredVisible(), calibration);
    QCOMPARE(m_warnings->levellingRequiredVisible(), levelling);
    QVERIFY(m_host->close(plugin));
}

void TestWarnings::closeDisconnects()
{
    TestPlugin plugin(*m_host);
    plugin.id.usesCalibrationService = true;
    plugin.id.usesLevellingService = true;
    plugin.viewModelMaker = [this] { return makeViewModel<OutsideViewModel>(m_warnings.get()); };
    QVERIFY(m_host->init(plugin));
    QVERIFY(m_host->start(plugin));
    QVERIFY(m_host->close(plugin));
    m_host->clearCalls();
    m_host->setCalibrationWarning("due");
    m_host->setLevelled(false);
    BRIMVALE_COMPARE_CALLS(*m_host);
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestWarnings::startAgainConnectsOnce()
{
    TestPlugin plugin(*m_host);
    plugin.id.usesCalibrationService = true;
    plugin.viewModelMaker = [this] { return makeViewModel<OutsideViewModel>(m_warnings.get()); };
    QVERIFY(m_host->init(plugin));
    QVERIFY(m_host->start(plugin));
    QVERIFY(m_host->close(plugin));
    QVERIFY(m_host->start(plugin));
    const int before = m_host->callCount("ICalibrationService::GetCalibrationWarningText");
    m_host->setCalibrationWarning("due");
    QCOMPARE(m_host->callCount("ICalibrationService::GetCalibrationWarningText"), before + 1);
    QVERIFY(m_host->close(plugin));
}

QTEST_GUILESS_MAIN(TestWarnings)
#include "tst_warnings.moc"
