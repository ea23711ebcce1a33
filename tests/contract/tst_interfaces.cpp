// SPDX-License-Identifier: BSD-3-Clause

#include "ActionBaseToggle.h"
#include "IActionbar.h"
#include "IAddonHost.h"
#include "IAddonState.h"
#include "IApprovedMode.h"
#include "ICalibrationService.h"
#include "IFormat.h"
#include "IInfobox.h"
#include "IInfosectionItemProvider.h"
#include "ILifecycleObserver.h"
#include "ILoadChange.h"
#include "IMSWParameterSource.h"
#include "IMeasurementObserver.h"
#include "IMeasurementTransfer.h"
#include "IPluginController.h"
#include "IPluginHost.h"
#include "IPluginManager.h"
#include "IPluginViewManager.h"
#include "IPrintIndicator.h"
#include "IPrintItemNameValueUnitData.h"
#include "IPrintableItem.h"
#include "IPrinter.h"
#include "IProtocolMenuFactory.h"
#include "IProtocolPool.h"
#include "IRangeSwitch.h"
#include "IRegisterValueProvider.h"
#include "IScreenLoader.h"
#include "ISensorState.h"
#include "ISequencer.h"
#include "IStatusInfo.h"
#include "IStepFunction.h"
#include "ISystem.h"
#include "ISystemRegister.h"
#include "ITransferTarget.h"
#include "ITrigger.h"
#include "IUnitsList.h"
#include "IView.h"
#include "IWeighing.h"
#include "IWeighingParameterService.h"
#include "IWeighingParameters.h"
#include "IWfM.h"
#include "IWorkflowScreen.h"
#include "IWorkflowStep.h"
#include "MenuListBase.h"
#include "MesswertInfo.h"
#include "PluginBase.h"
#include "WarnInfo.h"

#include <QHash>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QMetaType>
#include <QtTest>

#include <memory>

using namespace Brimvale;

namespace
{

class Menu : public MenuListBase
{
    Q_OBJECT

public:
    Menu()
        : MenuListBase(nullptr)
    {
    }

    QString GetMenuName() override { return QString(); }
    bool IsItemVisible(int, ListModel*) override { return false; }
    bool IsItemEnabled(int, ListModel*) override { return false; }
    QVariant GetItemValue(int) override { return QVariant(); }
    bool SetItemValue(int, QVariant) override { return false; }
    QString GetItemText(int) override { return QString(); }
    QString GetItemUnit(int) override { return QString(); }
    bool GetItemRange(int, double*, double*) override { return false; }
    bool IsItemValueValid(int, QVariant) override { return false; }
    void OnItemValueChanged(int) override { }
};

// A plug-in that refuses to be initialised, so that it needs no host.
class Plugin : public PluginBase
{
    Q_OBJECT

public:
    QString GetPluginName(bool) override { return QString(); }
    QString GetPluginIcon() override { return QString(); }
    void ApplyProfileItem(int, QVariant) override { }

protected:
    bool PreInitPlugin() override { return false; }
    void FillPluginId(PluginId&) override { }
    IMenuList* CreatePluginMenu() override { return nullptr; }
    QObject* CreateViewModel() override { return nullptr; }
    QString GetViewModelName() override { return QString(); }
    QString GetPluginScreen() override { return QString(); }
    IPluginViewManager* CreateViewManager() override { return nullptr; }
};

// The class that the data row is named after.
const QMetaObject& currentType()
{
    const QHash<QByteArray, const QMetaObject*> types{
        {"ActionBase", &ActionBase::staticMetaObject},
        {"ActionBaseToggle", &ActionBaseToggle::staticMetaObject},
        {"MenuListBase", &MenuListBase::staticMetaObject},
        {"MesswertInfo", &MesswertInfo::staticMetaObject},
        {"PluginBase", &PluginBase::staticMetaObject},
        {"WarnInfo", &WarnInfo::staticMetaObject}};
    return *types.value(QTest::currentDataTag());
}

// The own members of a class as the meta-object declares them.
QStringList membersOf(const QMetaObject& type, QMetaMethod::MethodType kind)
{
    QStringList members;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        const QMetaMethod method = type.method(i);
        if (method.methodType() != kind)
            continue;
        QByteArrayList parameters;
        for (int p = 0; p < method.parameterCount(); ++p)
            parameters.append(method.parameterTypes().at(p) + ' ' + method.parameterNames().at(p));
        members.append(QString::fromLatin1(method.name() + '(' + parameters.join(", ") + ')'));
    }
    return members;
}

QStringList propertiesOf(const QMetaObject& type)
{
    QStringList properties;
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
        const QMetaProperty property = type.property(i);
        properties.append(QStringLiteral("%1 %2%3, %4")
                              .arg(QLatin1String(property.typeName()), QLatin1String(property.name()),
                                   property.isWritable() ? QString() : QStringLiteral(" read only"),
                                   QString::fromLatin1(property.notifySignal().methodSignature())));
    }
    return properties;
}

QStringList lines(const char* text)
{
    QStringList result;
    for (const QString& line : QString::fromLatin1(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        result.append(line.trimmed());
    return result;
}

} // namespace

class TestInterfaces : public QObject
{
    Q_OBJECT

private slots:
    void identifierIsDeclared_data();
    void identifierIsDeclared();
    void castAnswersTo_data();
    void castAnswersTo();
    void castToInterfaceGivesTheInterface();
    void classNameIsQualified_data();
    void classNameIsQualified();
    void signalsAreInOrder_data();
    void signalsAreInOrder();
    void slotsAreInOrder_data();
    void slotsAreInOrder();
    void propertiesAreInOrder_data();
    void propertiesAreInOrder();
    void nothingElseIsInvokable_data();
    void nothingElseIsInvokable();
    void signalsComeFirstAmongTheMethods_data();
    void signalsComeFirstAmongTheMethods();
    void displayModelIsKnownByItsPlainName();
};

void TestInterfaces::identifierIsDeclared_data()
{
    QTest::addColumn<QString>("declared");
    QTest::addColumn<QString>("identifier");

#define IDENTIFIER(type, text)                                                                               \
    QTest::newRow(#type) << QString::fromLatin1(qobject_interface_iid<type*>()) << QStringLiteral(text)
    IDENTIFIER(IAction, "Brimvale.CustomAction.IAction/1.0");
    IDENTIFIER(IPrintableItem, "Brimvale.Protocol.IPrintableItem/1.0");
    IDENTIFIER(ITrigger, "Brimvale.Protocol.ITrigger/1.0");
    IDENTIFIER(ILoadChange, "Brimvale.MeasuringSystem.ILoadChange/1.0");
    IDENTIFIER(IWeighingParameters, "Brimvale.MeasuringSystem.IWeighingParameters/1.0");
    IDENTIFIER(IStepFunction, "Brimvale.Workflow.IStepFunction/1.0");
    IDENTIFIER(IWorkflowScreen, "Brimvale.Workflow.IWorkflowScreen/1.0");
    IDENTIFIER(IWorkflowStep, "Brimvale.Workflow.IWorkflowStep/1.0");
    IDENTIFIER(IMenuList, "Brimvale.Menu.IMenuList/1.0");
    IDENTIFIER(IUnitsList, "Brimvale.Messwert.IUnitsList/1.0");
    IDENTIFIER(IPlugin, "Brimvale.Plugin.IPlugin");
    // No other interface has one.
    IDENTIFIER(IActionToggle, "");
    IDENTIFIER(IPrintItemNameValueUnitData, "");
    IDENTIFIER(IProfileAccess, "");
    IDENTIFIER(IActionbar, "");
    IDENTIFIER(IAddonHost, "");
    IDENTIFIER(IAddonState, "");
    IDENTIFIER(IApprovedMode, "");
    IDENTIFIER(ICalibrationService, "");
    IDENTIFIER(IFormat, "");
    IDENTIFIER(IInfobox, "");
    IDENTIFIER(IInfosectionItemProvider, "");
    IDENTIFIER(ILifecycleObserver, "");
    IDENTIFIER(IMSWParameterSource, "");
    IDENTIFIER(IMeasurementObserver, "");
    IDENTIFIER(IMeasurementTransfer, "");
    IDENTIFIER(IPluginController, "");
    IDENTIFIER(IPluginHost, "");
    IDENTIFIER(IPluginManager, "");
    IDENTIFIER(IPluginViewManager, "");
    IDENTIFIER(IPrintIndicator, "");
    IDENTIFIER(IPrinter, "");
    IDENTIFIER(IProtocolMenuFactory, "");
    IDENTIFIER(IProtocolPool, "");
    IDENTIFIER(IRangeSwitch, "");
    IDENTIFIER(IRegisterValueProvider, "");
    IDENTIFIER(IScreenLoader, "");
    IDENTIFIER(ISensorState, "");
    IDENTIFIER(ISequencer, "");
    IDENTIFIER(IStatusInfo, "");
    IDENTIFIER(ISystem, "");
    IDENTIFIER(ISystemRegister, "");
    IDENTIFIER(ITransferTarget, "");
    IDENTIFIER(IUniversalMenuList, "");
    IDENTIFIER(IView, "");
    IDENTIFIER(IWeighing, "");
    IDENTIFIER(IWeighingParameterService, "");
    IDENTIFIER(IWfM, "");
#undef IDENTIFIER
}

void TestInterfaces::identifierIsDeclared()
{
    QFETCH(QString, declared);
    QTEST(declared, "identifier");
}

void TestInterfaces::castAnswersTo_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("answer");

    const auto row = [](const char* type, const char* name, const char* answer) {
        QTest::addRow("%s to %s", type, name)
            << QString::fromLatin1(type) << QByteArray(name) << QString::fromLatin1(answer);
    };
    row("ActionBase", "Brimvale::ActionBase", "object");
    row("ActionBase", "IAction", "interface");
    row("ActionBase", "Brimvale.CustomAction.IAction/1.0", "interface");
    row("ActionBase", "QObject", "object");
    row("ActionBase", "ActionBase", "nothing");
    row("ActionBase", "IActionToggle", "nothing");
    row("ActionBase", "Brimvale.CustomAction.IAction", "nothing");
    row("ActionBase", "iaction", "nothing");
    row("ActionBase", "", "nothing");
    row("ActionBaseToggle", "Brimvale::ActionBaseToggle", "object");
    row("ActionBaseToggle", "IActionToggle", "toggle interface");
    row("ActionBaseToggle", "Brimvale::ActionBase", "object");
    row("ActionBaseToggle", "IAction", "interface");
    row("ActionBaseToggle", "Brimvale.CustomAction.IAction/1.0", "interface");
    row("MenuListBase", "Brimvale::MenuListBase", "object");
    row("MenuListBase", "IMenuList", "interface");
    row("MenuListBase", "Brimvale.Menu.IMenuList/1.0", "interface");
    row("MenuListBase", "IAction", "nothing");
    row("PluginBase", "Brimvale::PluginBase", "object");
    row("PluginBase", "IPlugin", "interface");
    row("PluginBase", "Brimvale.Plugin.IPlugin", "interface");
    row("PluginBase", "Brimvale.Plugin.IPlugin/1.0", "nothing");
    row("MesswertInfo", "Brimvale::MesswertInfo", "object");
    row("MesswertInfo", "MesswertInfo", "nothing");
    row("WarnInfo", "Brimvale::WarnInfo", "object");
    row("WarnInfo", "WarnInfo", "nothing");
}

void TestInterfaces::castAnswersTo()
{
    QFETCH(QString, type);
    QFETCH(QByteArray, name);

    const auto answer = [&name](QObject* object, const void* interface,
                                const void* toggleInterface = nullptr) {
        const void* const face = object->qt_metacast(name.constData());
        if (face == nullptr)
            return QStringLiteral("nothing");
        if (face == object)
            return QStringLiteral("object");
        if (face == interface)
            return QStringLiteral("interface");
        return face == toggleInterface ? QStringLiteral("toggle interface")
                                       : QStringLiteral("a wrong address");
    };
    QString given;
    if (type == QLatin1String("ActionBase")) {
        ActionBase action(nullptr);
        given = answer(&action, static_cast<IAction*>(&action));
    } else if (type == QLatin1String("ActionBaseToggle")) {
        ActionBaseToggle action(nullptr);
        given = answer(&action, static_cast<IAction*>(&action), static_cast<IActionToggle*>(&action));
    } else if (type == QLatin1String("MenuListBase")) {
        Menu menu;
        given = answer(&menu, static_cast<IMenuList*>(&menu));
    } else if (type == QLatin1String("PluginBase")) {
        Plugin plugin;
        given = answer(&plugin, static_cast<IPlugin*>(&plugin));
    } else if (type == QLatin1String("MesswertInfo")) {
        MesswertInfo info(nullptr, QString(), QString(), false, 0, false, false, false, 0, QString(),
                          QString(), false, 0, false, false, 0, QString(), QString(), QString(), 0, 0, false,
                          false, false, false, false);
        given = answer(&info, nullptr);
    } else if (type == QLatin1String("WarnInfo")) {
        WarnInfo warnings(nullptr, QString(), QString(), false, false);
        given = answer(&warnings, nullptr);
    }
    QTEST(given, "answer");
}

void TestInterfaces::castToInterfaceGivesTheInterface()
{
    ActionBaseToggle action(nullptr);
    QCOMPARE(qobject_cast<IAction*>(static_cast<QObject*>(&action)), static_cast<IAction*>(&action));
    Menu menu;
    QCOMPARE(qobject_cast<IMenuList*>(static_cast<QObject*>(&menu)), static_cast<IMenuList*>(&menu));
    Plugin plugin;
    QCOMPARE(qobject_cast<IPlugin*>(static_cast<QObject*>(&plugin)), static_cast<IPlugin*>(&plugin));
    QCOMPARE(qobject_cast<IPlugin*>(static_cast<QObject*>(&action)), static_cast<IPlugin*>(nullptr));
}

void TestInterfaces::classNameIsQualified_data()
{
    QTest::addColumn<QByteArray>("qualifiedName");
    for (const char* name :
         {"ActionBase", "ActionBaseToggle", "MenuListBase", "MesswertInfo", "PluginBase", "WarnInfo"})
        QTest::newRow(name) << QByteArray("Brimvale::") + name;
}

void TestInterfaces::classNameIsQualified()
{
    const QMetaObject& type = currentType();
    QTEST(QByteArray(type.className()), "qualifiedName");
}

void TestInterfaces::signalsAreInOrder_data()
{
    QTest::addColumn<QStringList>("members");

    QTest::newRow("ActionBase") << lines("actionUpdated()\n workDone(QVariant data)");
    QTest::newRow("ActionBaseToggle") << QStringList();
    QTest::newRow("MenuListBase") << QStringList();
    QTest::newRow("MesswertInfo") << lines(R"(
        messwertChanged()
        unitChanged()
        messwertVisibleChanged()
        isGrobRangeChanged()
        eichDigitChanged()
        isValidChanged()
        isCalculatedChanged()
        resolutionReductionChanged()
        messwertKleinChanged()
        unitKleinChanged()
        messwertKleinVisibleChanged()
        eichDigitKleinChanged()
        isValidKleinChanged()
        isGrobRangeKleinChanged()
        resolutionReductionKleinChanged()
        netTextChanged()
        ptTextChanged()
        errorTextChanged()
        bargraphValueChanged()
        stabilityValueChanged()
        netVisibleChanged()
        ptVisibleChanged()
        bargraphVisibleChanged()
        stabilityVisibleChanged()
        allVisibleChanged())");
    QTest::newRow("PluginBase") << lines("notifyPrintButtonEnableChange(bool enable)");
    QTest::newRow("WarnInfo") << lines(R"(
        levellingRequiredTextChanged()
        calibrationRequiredTextChanged()
        levellingRequiredVisibleChanged()
        calibrationRequiredVisibleChanged())");
}

void TestInterfaces::signalsAreInOrder()
{
    const QMetaObject& type = currentType();
    QTEST(membersOf(type, QMetaMethod::Signal), "members");
}

void TestInterfaces::slotsAreInOrder_data()
{
    QTest::addColumn<QStringList>("members");

    QTest::newRow("ActionBase") << QStringList();
    QTest::newRow("ActionBaseToggle") << QStringList();
    QTest::newRow("MenuListBase") << QStringList();
    QTest::newRow("MesswertInfo") << QStringList();
    QTest::newRow("PluginBase") << lines(R"(
        onCalibrationServiceStateChanged()
        onLevellingServiceStateChanged(bool levelOk)
        onLevellingNotAdjustedChanged()
        onNumericDialogClosed(int ptr, bool enterpressed, QString editstr)
        onNotifyClosePlugin()
        onDoPrint())");
    QTest::newRow("WarnInfo") << QStringList();
}

void TestInterfaces::slotsAreInOrder()
{
    const QMetaObject& type = currentType();
    QTEST(membersOf(type, QMetaMethod::Slot), "members");
}

void TestInterfaces::propertiesAreInOrder_data()
{
    QTest::addColumn<QStringList>("properties");

    QTest::newRow("ActionBase") << QStringList();
    QTest::newRow("ActionBaseToggle") << QStringList();
    QTest::newRow("MenuListBase") << QStringList();
    QTest::newRow("MesswertInfo") << lines(R"(
        QString messwert, messwertChanged()
        QString unit, unitChanged()
        bool messwertVisible, messwertVisibleChanged()
        int eichDigit, eichDigitChanged()
        bool isValid, isValidChanged()
        bool isCalculated, isCalculatedChanged()
        bool isGrobRange, isGrobRangeChanged()
        int resolutionReduction, resolutionReductionChanged()
        QString messwertKlein, messwertKleinChanged()
        QString unitKlein, unitKleinChanged()
        bool messwertKleinVisible, messwertKleinVisibleChanged()
        int eichDigitKlein, eichDigitKleinChanged()
        bool isValidKlein, isValidKleinChanged()
        bool isGrobRangeKlein, isGrobRangeKleinChanged()
        int resolutionReductionKlein, resolutionReductionKleinChanged()
        QString netText, netTextChanged()
        QString ptText, ptTextChanged()
        QString errorText, errorTextChanged()
        int bargraphValue, bargraphValueChanged()
        int stabilityValue, stabilityValueChanged()
        bool netVisible, netVisibleChanged()
        bool ptVisible, ptVisibleChanged()
        bool bargraphVisible, bargraphVisibleChanged()
        bool stabilityVisible, stabilityVisibleChanged()
        bool allVisible, allVisibleChanged())");
    QTest::newRow("PluginBase") << QStringList();
    QTest::newRow("WarnInfo") << lines(R"(
        QString levellingRequiredText read only, levellingRequiredTextChanged()
        QString calibrationRequiredText read only, calibrationRequiredTextChanged()
        bool levellingRequiredVisible read only, levellingRequiredVisibleChanged()
        bool calibrationRequiredVisible read only, calibrationRequiredVisibleChanged())");
}

void TestInterfaces::propertiesAreInOrder()
{
    const QMetaObject& type = currentType();
    QTEST(propertiesOf(type), "properties");
}

void TestInterfaces::nothingElseIsInvokable_data()
{
    classNameIsQualified_data();
}

void TestInterfaces::nothingElseIsInvokable()
{
    const QMetaObject& type = currentType();
    QCOMPARE(membersOf(type, QMetaMethod::Method), QStringList());
    QCOMPARE(type.constructorCount(), 0);
    QCOMPARE(type.enumeratorCount() - type.enumeratorOffset(), 0);
}

void TestInterfaces::signalsComeFirstAmongTheMethods_data()
{
    classNameIsQualified_data();
}

// Hosts that connect by index count the signals from the offset of the class.
void TestInterfaces::signalsComeFirstAmongTheMethods()
{
    const QMetaObject& type = currentType();
    const int count = membersOf(type, QMetaMethod::Signal).size();
    for (int i = 0; i < count; ++i)
        QCOMPARE(type.method(type.methodOffset() + i).methodType(), QMetaMethod::Signal);
}

void TestInterfaces::displayModelIsKnownByItsPlainName()
{
    Plugin plugin;
    QVERIFY(!plugin.InitPlugin(nullptr, nullptr, nullptr, nullptr, nullptr));
    QCOMPARE(QMetaType::type("MesswertInfo*"), qMetaTypeId<MesswertInfo*>());
}

QTEST_GUILESS_MAIN(TestInterfaces)
#include "tst_interfaces.moc"
