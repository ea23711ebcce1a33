// SPDX-License-Identifier: BSD-3-Clause

#include "ActionBaseToggle.h"
#include "MenuListBase.h"
#include "MesswertInfo.h"
#include "PluginBase.h"
#include "PrintItemNameValueUnitData.h"
#include "UnitsList.h"
#include "WarnInfo.h"
#include "WeighingParameters.h"

#include <QMetaType>
#include <QtTest>

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

} // namespace

class TestInterfaces : public QObject
{
    Q_OBJECT

private slots:
    void castAnswersTo_data();
    void castAnswersTo();
    void castToInterfaceGivesTheInterface();
    void displayModelIsKnownByItsPlainName();
};

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
    row("UnitsList", "Brimvale::UnitsList", "object");
    row("UnitsList", "IUnitsList", "interface");
    row("UnitsList", "Brimvale.Messwert.IUnitsList/1.0", "interface");
    row("WeighingParameters", "Brimvale::WeighingParameters", "object");
    row("WeighingParameters", "IWeighingParameters", "interface");
    row("WeighingParameters", "Brimvale.MeasuringSystem.IWeighingParameters/1.0", "interface");
    row("PrintItemNameValueUnitData", "Brimvale::PrintItemNameValueUnitData", "object");
    row("PrintItemNameValueUnitData", "IPrintItemNameValueUnitData", "interface");
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
    } else if (type == QLatin1String("UnitsList")) {
        UnitsList units(nullptr, 2);
        given = answer(&units, static_cast<IUnitsList*>(&units));
    } else if (type == QLatin1String("WeighingParameters")) {
        WeighingParameters parameters(nullptr, nullptr, nullptr);
        given = answer(&parameters, static_cast<IWeighingParameters*>(&parameters));
    } else if (type == QLatin1String("PrintItemNameValueUnitData")) {
        PrintItemNameValueUnitData data(nullptr);
        given = answer(&data, static_cast<IPrintItemNameValueUnitData*>(&data));
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

void TestInterfaces::displayModelIsKnownByItsPlainName()
{
    Plugin plugin;
    QVERIFY(!plugin.InitPlugin(nullptr, nullptr, nullptr, nullptr, nullptr));
    QCOMPARE(QMetaType::type("MesswertInfo*"), qMetaTypeId<MesswertInfo*>());
}

QTEST_GUILESS_MAIN(TestInterfaces)
#include "tst_interfaces.moc"
