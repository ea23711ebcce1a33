// SPDX-License-Identifier: BSD-3-Clause
#include "HostFixture.h"
#include "IAddonHost.h"
#include "IApprovedMode.h"
#include "IPrintableItem.h"
#include "IStepFunction.h"
#include "ITrigger.h"
#include "IWorkflowStep.h"
#include "InfoboxListItem.h"
#include "StepFunctionBase.h"
#include "host/ListModel.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace Brimvale;
using namespace Brimvale::Terminal;

/// The smaller services of the host, each through the interface that plug-ins use.
class tst_HostServices : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyGetterAnswersAndIsRecorded();
    void servicesThatSendSignalsAreObjects();

    void levelling();
    void calibration();
    void calibrationIsAnnouncedAnewAfterAChangeOfLanguage();

    void storedParametersDefault();
    void storedParametersAreKeptInTheFile();
    void storedParametersAreApart_data();
    void storedParametersAreApart();
    void aListWrittenByHandIsOneText();
    void aBrokenParameterFileIsReportedAndKept();
    void theHostsMenuHoldsTheWeighingParameters();
    void weighingParameterSets();
    void mswParameters();
    void rangeSwitch();

    void menuFiles();
    void menuFilesThatAreNotThere();
    void workflowCallsAreRecorded();
    void protocolMenusAreMade();
    void addonsAreNotAvailable();
    void stepFunctionsAreKept();
    void approvedModes();
    void statusTexts();
    void outputFormat();
    void infosectionProvider();

    void infoBox();
    void infoBoxLeavesOutWhatIsGone();
    void sequencer();
    void listModel();

private:
    Host& host() { return *m_fixture->host; }
    ISystem& system() { return host().system(); }
    void restart(const HostSettings& settings) { m_fixture = std::make_unique<HostFixture>(settings); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<HostFixture> m_fixture;
};

void tst_HostServices::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_fixture = std::make_unique<HostFixture>();
}

void tst_HostServices::cleanup()
{
    m_fixture.reset();
}

void tst_HostServices::everyGetterAnswersAndIsRecorded()
{
    ISystem& system = this->system();
    QVERIFY(system.GetAddonHost() != nullptr);
    QVERIFY(system.GetActionbar() != nullptr);
    QVERIFY(system.GetSensorState() != nullptr);
    QVERIFY(system.GetStatusInfo() != nullptr);
    QVERIFY(system.GetMSWParameterSource() != nullptr);
    QVERIFY(system.GetMeasurementTransfer() != nullptr);
    QVERIFY(system.GetRangeSwitch() != nullptr);
    QVERIFY(system.GetLifecycleObserver() != nullptr);
    QVERIFY(system.GetWeighingParameterService() != nullptr);
    QVERIFY(system.GetPluginController() != nullptr);
    QVERIFY(system.GetRegisterValueProvider() != nullptr);
    QVERIFY(system.GetProtocolMenuFactory() != nullptr);
    QVERIFY(system.GetPluginHost() != nullptr);
    QVERIFY(system.GetPluginHost()->GetAddonState() != nullptr);
    QVERIFY(system.GetPluginHost()->GetSequencer() != nullptr);
    QVERIFY(system.GetCalibrationService() != nullptr);
    QVERIFY(system.GetWorkflowManager() != nullptr);
    QVERIFY(system.GetPrintIndicator() != nullptr);
    QVERIFY(system.GetMeasurementObserver() != nullptr);
    QVERIFY(system.GetSystemRegister() != nullptr);
    QVERIFY(system.GetWeighing() != nullptr);
    QVERIFY(system.GetApprovedMode() != nullptr);
    QVERIFY(system.GetProtocolPool() != nullptr);
    const QStringList names{QStringLiteral("GetAddonHost"),
                            QStringLiteral("GetActionbar"),
                            QStringLiteral("GetSensorState"),
                            QStringLiteral("GetStatusInfo"),
                            QStringLiteral("GetMSWParameterSource"),
                            QStringLiteral("GetMeasurementTransfer"),
                            QStringLiteral("GetRangeSwitch"),
                            QStringLiteral("GetLifecycleObserver"),
                            QStringLiteral("GetWeighingParameterService"),
                            QStringLiteral("GetPluginController"),
                            QStringLiteral("GetRegisterValueProvider"),
                            QStringLiteral("GetProtocolMenuFactory"),
                            QStringLiteral("GetPluginHost"),
                            QStringLiteral("GetPluginHost"),
                            QStringLiteral("GetPluginHost"),
                            QStringLiteral("GetCalibrationService"),
                            QStringLiteral("GetWorkflowManager"),
                            QStringLiteral("GetPrintIndicator"),
                            QStringLiteral("GetMeasurementObserver"),
                            QStringLiteral("GetSystemRegister"),
                            QStringLiteral("GetWeighing"),
                            QStringLiteral("GetApprovedMode"),
                            QStringLiteral("GetProtocolPool")};
    QStringList expected;
    for (const QString& name : names) {
        expected.append(QStringLiteral("ISystem::%1()").arg(name));
    }
    QCOMPARE(host().calls().calls().filter(QStringLiteral("ISystem::")), expected);
}

void tst_HostServices::servicesThatSendSignalsAreObjects()
{
    const auto has = [](QObject* object, const char* signature) {
        return object != nullptr && object->metaObject()->indexOfMethod(signature) >= 0;
    };
    QVERIFY(has(dynamic_cast<QObject*>(&system()), "NotifyNewLevellingValue(bool)"));
    QVERIFY(has(dynamic_cast<QObject*>(system().GetSensorState()), "notifyLevellingNotAdjustedChanged()"));
    QVERIFY(
        has(dynamic_cast<QObject*>(system().GetCalibrationService()), "notifyCalibrationWarningChanged()"));
    QVERIFY(has(dynamic_cast<QObject*>(system().GetWeighing()), "NotifyLoadChanged(int,double)"));
    QVERIFY(has(dynamic_cast<QObject*>(system().GetWeighing()), "NotifyNewMeasurementValue()"));
    QVERIFY(has(dynamic_cast<QObject*>(system().GetWorkflowManager()), "onPrintButtonEnableChange(bool)"));
}

void tst_HostServices::levelling()
{
    QSignalSpy level(&host().system(), &System::NotifyNewLevellingValue);
    QSignalSpy state(dynamic_cast<QObject*>(system().GetSensorState()),
                     SIGNAL(notifyLevellingNotAdjustedChanged()));
    QSignalSpy shown(&host(), &Host::levelledChanged);
    QVERIFY(!system().GetSensorState()->IsLevellingNotAdjusted());
    host().setLevelled(true);
    QCOMPARE(level.count(), 0);
    host().setLevelled(false);
    QVERIFY(system().GetSensorState()->IsLevellingNotAdjusted());
    QCOMPARE(level.count(), 1);
    QCOMPARE(level.at(0).at(0).toBool(), false);
    QCOMPARE(state.count(), 1);
    host().setLevelled(true);
    QCOMPARE(level.at(1).at(0).toBool(), true);
    QCOMPARE(shown.count(), 2);
}

void tst_HostServices::calibration()
{
    QSignalSpy changed(dynamic_cast<QObject*>(system().GetCalibrationService()),
                       SIGNAL(notifyCalibrationWarningChanged()));
    QSignalSpy shown(&host(), &Host::calibrationDueChanged);
    QCOMPARE(system().GetCalibrationService()->GetCalibrationWarningText(), QString());
    host().setCalibrationDue(true);
    QCOMPARE(system().GetCalibrationService()->GetCalibrationWarningText(),
             QStringLiteral("Calibration required"));
    host().setCalibrationDue(true);
    QCOMPARE(changed.count(), 1);
    host().setCalibrationDue(false);
    QCOMPARE(system().GetCalibrationService()->GetCalibrationWarningText(), QString());
    QCOMPARE(changed.count(), 2);
    QCOMPARE(shown.count(), 2);
}

void tst_HostServices::calibrationIsAnnouncedAnewAfterAChangeOfLanguage()
{
    QSignalSpy changed(dynamic_cast<QObject*>(system().GetCalibrationService()),
                       SIGNAL(notifyCalibrationWarningChanged()));
    host().setLanguage(QStringLiteral("de"));
    QCOMPARE(changed.count(), 0);
    host().setCalibrationDue(true);
    host().setLanguage(QStringLiteral("en"));
    QCOMPARE(changed.count(), 2);
}

void tst_HostServices::storedParametersDefault()
{
    QCOMPARE(system().GetStoredParameter(QStringLiteral("m"), QStringLiteral("o"), QStringLiteral("p"),
                                         QStringLiteral("default"), 1),
             QStringLiteral("default"));
    QVERIFY(host().storedParameters().setValue(QStringLiteral("m"), QStringLiteral("o"), QStringLiteral("p"),
                                               1, QString()));
    // An empty value is a value.
    QCOMPARE(system().GetStoredParameter(QStringLiteral("m"), QStringLiteral("o"), QStringLiteral("p"),
                                         QStringLiteral("default"), 1),
             QString());
}

void tst_HostServices::storedParametersAreKeptInTheFile()
{
    HostSettings settings;
    settings.parameterFile = m_folder->filePath(QStringLiteral("parameters.ini"));
    restart(settings);
    const QString value = QString::fromUtf8("naïve, \"text\"; with = all");
    QVERIFY(host().storedParameters().setValue(QStringLiteral(":/menus/a.menu"), QStringLiteral("user"),
                                               QStringLiteral("system"), 2, value));
    restart(settings);
    QVERIFY(host().setupErrors().isEmpty());
    QCOMPARE(system().GetStoredParameter(QStringLiteral(":/menus/a.menu"), QStringLiteral("user"),
                                         QStringLiteral("system"), QString(), 2),
             value);
    QFile file(settings.parameterFile);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().startsWith("[user]\n"));
}

void tst_HostServices::storedParametersAreApart_data()
{
    QTest::addColumn<QString>("menuFile");
    QTest::addColumn<QString>("owner");
    QTest::addColumn<QString>("profile");
    QTest::addColumn<int>("index");
    QTest::newRow("other menu file") << "n"
                                     << "o"
                                     << "p" << 1;
    QTest::newRow("other owner") << "m"
                                 << "x"
                                 << "p" << 1;
    QTest::newRow("other profile") << "m"
                                   << "o"
                                   << "x" << 1;
    QTest::newRow("other index") << "m"
                                 << "o"
                                 << "p" << 2;
    QTest::newRow("no menu file") << ""
                                  << "o"
                                  << "p" << 1;
    QTest::newRow("no owner") << "m"
                              << ""
                              << "p" << 1;
    QTest::newRow("owner with a separator") << "m"
                                            << "o/p"
                                            << "m" << 1;
    QTest::newRow("owner with a place marker") << "m"
                                               << "%1"
                                               << "p" << 1;
}

void tst_HostServices::storedParametersAreApart()
{
    QFETCH(QString, menuFile);
    QFETCH(QString, owner);
    QFETCH(QString, profile);
    QFETCH(int, index);
    HostSettings settings;
    settings.parameterFile = m_folder->filePath(QStringLiteral("parameters.ini"));
    restart(settings);
    StoredParameters& parameters = host().storedParameters();
    QVERIFY(parameters.setValue(QStringLiteral("m"), QStringLiteral("o"), QStringLiteral("p"), 1,
                                QStringLiteral("first")));
    QCOMPARE(parameters.value(menuFile, owner, profile, QStringLiteral("none"), index),
             QStringLiteral("none"));
    QVERIFY(parameters.setValue(menuFile, owner, profile, index, QStringLiteral("second")));
    QCOMPARE(parameters.value(menuFile, owner, profile, QString(), index), QStringLiteral("second"));
    QCOMPARE(parameters.value(QStringLiteral("m"), QStringLiteral("o"), QStringLiteral("p"), QString(), 1),
             QStringLiteral("first"));
}

void tst_HostServices::aListWrittenByHandIsOneText()
{
    HostSettings settings;
    settings.parameterFile = m_folder->filePath(QStringLiteral("parameters.ini"));
    QFile file(settings.parameterFile);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[user]\nsystem\\m\\1=slow, very slow\n");
    file.close();
    restart(settings);
    QCOMPARE(system().GetStoredParameter(QStringLiteral("m"), QStringLiteral("user"),
                                         QStringLiteral("system"), QString(), 1),
             QStringLiteral("slow, very slow"));
}

void tst_HostServices::aBrokenParameterFileIsReportedAndKept()
{
    HostSettings settings;
    settings.parameterFile = m_folder->filePath(QStringLiteral("parameters.ini"));
    const QByteArray content = "[user]\nthis is no key\nsystem\\m\\1=kept\n";
    QFile file(settings.parameterFile);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    restart(settings);
    QCOMPARE(host().setupErrors(),
             QStringList{
                 QStringLiteral("The stored parameters in %1 are not a valid INI file. Correct it or move it "
                                "away.")
                     .arg(settings.parameterFile)});
    QString error;
    QVERIFY(!host().storedParameters().setValue(QStringLiteral("m"), QStringLiteral("user"),
                                                QStringLiteral("system"), 1, QStringLiteral("new"), &error));
    QCOMPARE(error, host().setupErrors().at(0));
    // For this run it holds nevertheless.
    QCOMPARE(system().GetStoredParameter(QStringLiteral("m"), QStringLiteral("user"),
                                         QStringLiteral("system"), QString(), 1),
             QStringLiteral("new"));
    m_fixture.reset();
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), content);
}

void tst_HostServices::theHostsMenuHoldsTheWeighingParameters()
{
    StatusInfo status(host().calls(), QStringLiteral("user"), QString());
    HostMenuList menu(host().storedParameters(), status);
    menu.initMenuListBase(&system());
    QCOMPARE(menu.GetItemValue(3).toString(), QString());
    QVERIFY(menu.SetItemValue(3, QStringLiteral("fast")));
    QCOMPARE(menu.GetItemValue(3).toString(), QStringLiteral("fast"));
    QCOMPARE(system().GetStoredParameter(menu.GetMenuFilePath(), QStringLiteral("user"),
                                         QStringLiteral("system"), QString(), 3),
             QStringLiteral("fast"));
    QVERIFY(!menu.SetItemValue(3, 5));
    QVERIFY(!menu.SetItemValue(4, QStringLiteral("fast")));
    QVERIFY(!menu.GetItemValue(4).isValid());
    QVERIFY(menu.IsItemVisible(0, nullptr));
    QVERIFY(!menu.IsItemVisible(4, nullptr));
    double minimum = 7.0;
    double maximum = 8.0;
    QVERIFY(!menu.GetItemRange(0, &minimum, &maximum));
    QCOMPARE(minimum, 7.0);
    QCOMPARE(maximum, 8.0);
    QList<MenuItem> items;
    QVERIFY(!menu.GetMenuItemList(&items));
}

void tst_HostServices::weighingParameterSets()
{
    StatusInfo status(host().calls(), QStringLiteral("user"), QString());
    HostMenuList menu(host().storedParameters(), status);
    QVERIFY(host().storedParameters().setValue(HostMenuList::menuFilePath(), QStringLiteral("user"),
                                               QStringLiteral("system"), 0, QStringLiteral("stable")));
    WeighingParameters parameters(nullptr, &system(), &menu);
    WeighingParameterService& service = host().weighingParameters();

    host().rangeSwitch().setFixRange(1);
    QVERIFY(parameters.InitStandardWeighingParameters());
    QCOMPARE(service.profile(), QStringLiteral("standard"));
    QCOMPARE(service.parameter(0), QStringLiteral("normal"));
    host().rangeSwitch().setFixRange(-1);
    QVERIFY(parameters.ResetWeighingParameters());
    QCOMPARE(service.parameter(0), QStringLiteral("stable"));
    QCOMPARE(service.parameter(1), QString());
    QCOMPARE(host().rangeSwitch().fixRange(), 1);
}

void tst_HostServices::mswParameters()
{
    IMSWParameterSource* const source = system().GetMSWParameterSource();
    QCOMPARE(source->GetMSWParameter2(), QStringLiteral("normal"));
    QVERIFY(host().storedParameters().setValue(HostMenuList::menuFilePath(), QStringLiteral("user"),
                                               QStringLiteral("msw"), 2, QStringLiteral("slow")));
    QCOMPARE(source->GetMSWParameter2(), QStringLiteral("slow"));
    QCOMPARE(source->GetMSWParameter0(), QStringLiteral("normal"));

    QVERIFY(!source->QueryFlagA());
    QVERIFY(!source->QueryFlagB());
    QVERIFY(!source->QueryFlagC());
    QVERIFY(!source->QueryFlagD());
    host().mswParameterSource().setQueryFlags(true, false, true, true);
    QVERIFY(source->QueryFlagA());
    QVERIFY(!source->QueryFlagB());
    QVERIFY(source->QueryFlagC());
    QVERIFY(source->QueryFlagD());
}

void tst_HostServices::rangeSwitch()
{
    IRangeSwitch* const ranges = system().GetRangeSwitch();
    QCOMPARE(ranges->getFixRange(), -1);
    ranges->setFixRange(1);
    QCOMPARE(ranges->getFixRange(), 1);
    ranges->SetRangeSelection(2);
    QCOMPARE(host().rangeSwitch().rangeSelection(), 2);
}

void tst_HostServices::menuFiles()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.json"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"version\": 1, \"items\": [{\"id\": 7, \"kind\": \"bool\", \"text\": \"Tare\"}]}");
    file.close();
    QList<MenuItem> items{MenuItem(), MenuItem()};
    MenuItem item;
    QVERIFY(system().HasMenuFile(path));
    QVERIFY(system().GetMenuItemList(path, &items));
    QCOMPARE(items.size(), 1);
    QCOMPARE(items.first().id, 7);
    QVERIFY(system().GetMenuItemById(path, 7, &item));
    QCOMPARE(item.text, QStringLiteral("Tare"));
    QVERIFY(!system().GetMenuItemById(path, 8, &item));
    QCOMPARE(item.text, QStringLiteral("Tare"));
    QCOMPARE(m_fixture->notices, QStringList());
}

void tst_HostServices::menuFilesThatAreNotThere()
{
    QList<MenuItem> items{MenuItem()};
    MenuItem item;
    item.id = 77;
    QVERIFY(!system().HasMenuFile(QStringLiteral(":/a.menu")));
    QVERIFY(!system().GetMenuItemList(QStringLiteral(":/a.menu"), &items));
    QVERIFY(!system().GetMenuItemById(QStringLiteral(":/a.menu"), 1, &item));
    QCOMPARE(items.size(), 1);
    QCOMPARE(item.id, 77);
    QCOMPARE(m_fixture->notices.size(), 1);
    QVERIFY2(
        m_fixture->notices.first().startsWith(QLatin1String("error: The menu file :/a.menu does not exist.")),
        qPrintable(m_fixture->notices.first()));
}

void tst_HostServices::workflowCallsAreRecorded()
{
    QVERIFY(!system().GetWorkflowManager()->StartWorkflow({nullptr}));
    QCOMPARE(m_fixture->notices, QStringList{QStringLiteral("warning: Step 1 of the workflow is missing.")});
    system().GetWorkflowManager()->AbortWorkflow();
    system().GetWorkflowManager()->Reset();
    QCOMPARE(host().calls().calls().filter(QStringLiteral("IWfM")),
             (QStringList{QStringLiteral("IWfM::StartWorkflow(1)"), QStringLiteral("IWfM::AbortWorkflow()"),
                          QStringLiteral("IWfM::Reset()")}));
}

void tst_HostServices::protocolMenusAreMade()
{
    const std::unique_ptr<IMenuList> menu(
        system().GetProtocolMenuFactory()->CreateProtocolMenu(QStringLiteral("Print-outs"), 1, true));
    QVERIFY(menu != nullptr);
    QCOMPARE(menu->GetMenuName(), QStringLiteral("Print-outs"));
    QCOMPARE(m_fixture->notices, QStringList());
    QCOMPARE(host().calls().calls().last(),
             QStringLiteral("IProtocolMenuFactory::CreateProtocolMenu(\"Print-outs\", 1, true)"));
}

void tst_HostServices::addonsAreNotAvailable()
{
    IAddonHost* const addons = system().GetAddonHost();
    IAddonState* const state = system().GetPluginHost()->GetAddonState();
    QVERIFY(!state->IsPending());
    addons->BeginAddons();
    QVERIFY(state->IsPending());
    addons->StartAddon(7, QStringLiteral("user"));
    addons->EndAddons();
    QVERIFY(state->IsPending());
    QCOMPARE(m_fixture->notices,
             QStringList{QStringLiteral("warning: Add-ons are not available on this terminal yet: "
                                        "those of number 7 were not started.")});
    system().GetPluginHost()->GetSequencer()->Continue();
    QVERIFY(!state->IsPending());
}

void tst_HostServices::stepFunctionsAreKept()
{
    auto function = std::make_unique<StepFunctionBase>(nullptr);
    StepFunctionBase other(nullptr);
    IWfM* const manager = system().GetWorkflowManager();
    manager->AddStepFunction(function.get());
    manager->AddStepFunction(function.get());
    manager->AddStepFunction(nullptr);
    manager->AddStepFunction(&other);
    QCOMPARE(host().workflowManager().stepFunctions(), (QList<IStepFunction*>{function.get(), &other}));
    function.reset(); // without having been removed
    QCOMPARE(host().workflowManager().stepFunctions(), QList<IStepFunction*>{&other});
    manager->RemoveStepFunction(&other);
    manager->RemoveStepFunction(&other);
    QVERIFY(host().workflowManager().stepFunctions().isEmpty());
}

void tst_HostServices::approvedModes()
{
    QVERIFY(!system().GetApprovedMode()->IsModeActive(IApprovedMode::CaratAllowed));
    HostSettings settings;
    settings.approvedModes = IApprovedMode::CaratAllowed | IApprovedMode::MinimumDecimals;
    restart(settings);
    QVERIFY(system().GetApprovedMode()->IsModeActive(IApprovedMode::CaratAllowed));
    QVERIFY(system().GetApprovedMode()->IsModeActive(IApprovedMode::MinimumDecimals));
    QVERIFY(!system().GetApprovedMode()->IsModeActive(IApprovedMode::ApprovedUnitsOnly));
}

void tst_HostServices::statusTexts()
{
    QCOMPARE(system().GetStatusInfo()->GetAddonText(), QStringLiteral("user"));
    QCOMPARE(system().GetStatusInfo()->GetLogPrefix(), QStringLiteral("brimvale-terminal"));
    HostSettings settings;
    settings.owner = QStringLiteral("laboratory");
    settings.logPrefix = QStringLiteral("T1");
    restart(settings);
    QCOMPARE(system().GetStatusInfo()->GetAddonText(), QStringLiteral("laboratory"));
    QCOMPARE(system().GetStatusInfo()->GetLogPrefix(), QStringLiteral("T1"));
}

void tst_HostServices::outputFormat()
{
    QCOMPARE(host().system().GetProtocolFormatName(), QStringLiteral("text"));
    {
        const ProtocolFormatScope sics(host().system(), QStringLiteral("sics"));
        QCOMPARE(host().system().GetProtocolFormatName(), QStringLiteral("sics"));
        {
            const ProtocolFormatScope text(host().system(), QStringLiteral("text"));
            QCOMPARE(host().system().GetProtocolFormatName(), QStringLiteral("text"));
        }
        QCOMPARE(host().system().GetProtocolFormatName(), QStringLiteral("sics"));
    }
    QCOMPARE(host().system().GetProtocolFormatName(), QStringLiteral("text"));
}

void tst_HostServices::infosectionProvider()
{
    QVERIFY(!host().system().isInfosectionProvided());
    system().RegisterInfosectionProvider();
    QVERIFY(host().system().isInfosectionProvided());
    system().UnRegisterInfosectionProvider();
    QVERIFY(!host().system().isInfosectionProvided());
}

void tst_HostServices::infoBox()
{
    HostCallLog calls;
    InfoBox box(calls);
    QObject first;
    QObject second;
    QSignalSpy changed(&box, &InfoBox::itemsChanged);
    box.SetItems({&first, nullptr, &second});
    QCOMPARE(box.items(), (QList<QObject*>{&first, &second}));
    box.SetItems({&first, &second});
    QCOMPARE(changed.count(), 1);
    box.SetItems({&second, &first});
    QCOMPARE(box.items(), (QList<QObject*>{&second, &first}));
    box.SetItems({});
    QVERIFY(box.items().isEmpty());
    QCOMPARE(changed.count(), 3);
    QCOMPARE(calls.calls().first(), QStringLiteral("IInfobox::SetItems([QObject, null, QObject])"));
}

void tst_HostServices::infoBoxLeavesOutWhatIsGone()
{
    HostCallLog calls;
    InfoBox box(calls);
    auto item =
        std::make_unique<InfoboxListItem>(nullptr, QString(), QString(), QString(), false, false, false);
    QObject other;
    box.SetItems({item.get(), &other});
    QSignalSpy changed(&box, &InfoBox::itemsChanged);
    item.reset();
    QCOMPARE(box.items(), QList<QObject*>{&other});
    QCOMPARE(changed.count(), 1);
    box.SetItems({});
    QCOMPARE(changed.count(), 2);
}

void tst_HostServices::sequencer()
{
    ISequencer* const sequencer = system().GetPluginHost()->GetSequencer();
    QSignalSpy events(&host().sequencer(), &Sequencer::hostEvent);
    QSignalSpy transfers(&host().sequencer(), &Sequencer::measurementTransferred);
    sequencer->SetPrintPending(true);
    QVERIFY(host().sequencer().isPrintPending());
    sequencer->NotifyHostEvent(QStringLiteral("printPressed"));
    QCOMPARE(events.at(0).at(0).toString(), QStringLiteral("printPressed"));
    sequencer->NotifyMeasurementTransferred();
    QVERIFY(!host().sequencer().isPrintPending());
    QCOMPARE(transfers.count(), 1);
    // A close that nobody asked for changes nothing.
    sequencer->PluginClosed();
    QVERIFY(host().plugins().isSettled());
}

void tst_HostServices::listModel()
{
    ListModel model;
    MenuItem item;
    item.id = 3;
    item.kind = QStringLiteral("bool");
    item.text = QStringLiteral("Auto print");
    item.parentId = 1;
    item.helpFile = QStringLiteral(":/help.html");
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    model.setItems({item});
    QCOMPARE(reset.count(), 1);
    QCOMPARE(model.rowCount(), 1);
    const QModelIndex index = model.index(0);
    QCOMPARE(model.data(index, ListModel::IdRole).toInt(), 3);
    QCOMPARE(model.data(index, ListModel::KindRole).toString(), QStringLiteral("bool"));
    QCOMPARE(model.data(index, ListModel::TextRole).toString(), QStringLiteral("Auto print"));
    QCOMPARE(model.data(index).toString(), QStringLiteral("Auto print"));
    QCOMPARE(model.data(index, ListModel::ParentIdRole).toInt(), 1);
    QCOMPARE(model.data(index, ListModel::HelpFileRole).toString(), QStringLiteral(":/help.html"));
    QVERIFY(!model.data(QModelIndex()).isValid());
    QCOMPARE(model.rowCount(index), 0);
}

QTEST_GUILESS_MAIN(tst_HostServices)

#include "tst_hostservices.moc"
