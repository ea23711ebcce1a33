// SPDX-License-Identifier: BSD-3-Clause

#include "ISystem.h"
#include "MenuListBase.h"

#include <QtTest>

#include <memory>

namespace Brimvale
{

// Types of the host; a menu only passes them on.
struct MenuItem
{
    int id;
};

class ListModel
{
};

} // namespace Brimvale

using namespace Brimvale;

namespace
{

// A host that records what it is asked for and answers as the test tells it to.
class Host : public ISystem
{
public:
    QStringList calls;
    bool answer = true;
    QList<MenuItem>* items = nullptr;
    MenuItem* item = nullptr;

    bool GetMenuItemList(QString menuFilePath, QList<MenuItem>* list) override
    {
        calls.append(QStringLiteral("GetMenuItemList(%1)").arg(menuFilePath));
        items = list;
        if (list != nullptr)
            list->append({1});
        return answer;
    }
    bool GetMenuItemById(QString menuFilePath, int id, MenuItem* found) override
    {
        calls.append(QStringLiteral("GetMenuItemById(%1, %2)").arg(menuFilePath).arg(id));
        item = found;
        if (found != nullptr)
            found->id = id;
        return answer;
    }
    bool HasMenuFile(QString) override { return asked("HasMenuFile"), false; }

    QString GetStoredParameter(QString, QString, QString, QString, int) override
    {
        return asked("GetStoredParameter"), QString();
    }
    IAddonHost* GetAddonHost() override { return asked("GetAddonHost"), nullptr; }
    IActionbar* GetActionbar() override { return asked("GetActionbar"), nullptr; }
    ISensorState* GetSensorState() override { return asked("GetSensorState"), nullptr; }
    IStatusInfo* GetStatusInfo() override { return asked("GetStatusInfo"), nullptr; }
    ITransferTarget* GetTransferTarget1() override { return asked("GetTransferTarget1"), nullptr; }
    ITransferTarget* GetTransferTarget2() override { return asked("GetTransferTarget2"), nullptr; }
    IMSWParameterSource* GetMSWParameterSource() override { return asked("GetMSWParameterSource"), nullptr; }
    IMeasurementTransfer* GetMeasurementTransfer() override
    {
        return asked("GetMeasurementTransfer"), nullptr;
    }
    IRangeSwitch* GetRangeSwitch() override { return asked("GetRangeSwitch"), nullptr; }
    ILifecycleObserver* GetLifecycleObserver() override { return asked("GetLifecycleObserver"), nullptr; }
    IWeighingParameterService* GetWeighingParameterService() override
    {
        return asked("GetWeighingParameterService"), nullptr;
    }
    IPluginController* GetPluginController() override { return asked("GetPluginController"), nullptr; }
    IRegisterValueProvider* GetRegisterValueProvider() override
    {
        return asked("GetRegisterValueProvider"), nullptr;
    }
    IProtocolMenuFactory* GetProtocolMenuFactory() override
    {
        return asked("GetProtocolMenuFactory"), nullptr;
    }
    IPluginHost* GetPluginHost() override { return asked("GetPluginHost"), nullptr; }
    ITransferTarget* GetTransferTarget4() override { return asked("GetTransferTarget4"), nullptr; }
    ITransferTarget* GetTransferTarget5() override { return asked("GetTransferTarget5"), nullptr; }
    QString GetProtocolFormatName() override { return asked("GetProtocolFormatName"), QString(); }
    int GetCurrentUnit() override { return asked("GetCurrentUnit"), 0; }
    ICalibrationService* GetCalibrationService() override { return asked("GetCalibrationService"), nullptr; }
    void SetHostPrintTransferEnabled(bool) override { asked("SetHostPrintTransferEnabled"); }
    bool IsHostPrintTransferEnabled() override { return asked("IsHostPrintTransferEnabled"), false; }
    IWfM* GetWorkflowManager() override { return asked("GetWorkflowManager"), nullptr; }
    ITransferTarget* GetTransferTarget3() override { return asked("GetTransferTarget3"), nullptr; }
    void RegisterInfosectionProvider() override { asked("RegisterInfosectionProvider"); }
    void UnRegisterInfosectionProvider() override { asked("UnRegisterInfosectionProvider"); }
    IPrintIndicator* GetPrintIndicator() override { return asked("GetPrintIndicator"), nullptr; }
    IMeasurementObserver* GetMeasurementObserver() override
    {
        return asked("GetMeasurementObserver"), nullptr;
    }
    ISystemRegister* GetSystemRegister() override { return asked("GetSystemRegister"), nullptr; }
    IWeighing* GetWeighing() override { return asked("GetWeighing"), nullptr; }
    IApprovedMode* GetApprovedMode() override { return asked("GetApprovedMode"), nullptr; }
    IProtocolPool* GetProtocolPool() override { return asked("GetProtocolPool"), nullptr; }
    int GetDecimals() override { return asked("GetDecimals"), 0; }

private:
    void asked(const char* operation) { calls.append(QLatin1String(operation)); }
};

// A menu with what every concrete menu has to supply.
class Menu : public MenuListBase
{
    Q_OBJECT

public:
    explicit Menu(QObject* parent = nullptr)
        : MenuListBase(parent)
    {
    }

    void setFile(const QString& path) { m_menuFilePath = path; }

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

// A menu whose items have a selection.
class SelectionMenu : public Menu
{
    Q_OBJECT

public:
    QPair<QString, QString> selection;
    QVector<int> asked;

    QPair<QString, QString> defineSelectionList(int id) override
    {
        asked.append(id);
        return selection;
    }
};

} // namespace

class TestMenuListBase : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void parentOwnsTheMenu();
    void newMenuHasNoFile();
    void menuFileIsWhatTheMenuSets();
    void defaultsAreNeutral_data();
    void defaultsAreNeutral();
    void operationsWithoutEffectAskNothing();
    void baseHasNoSelection();
    void selectionIsSplit_data();
    void selectionIsSplit();
    void selectionReplacesTheLists();
    void emptyNamesLeaveTheListsAlone_data();
    void emptyNamesLeaveTheListsAlone();
    void selectionIsAskedForTheItem();
    void itemListIsAskedFromTheHost_data();
    void itemListIsAskedFromTheHost();
    void itemIsAskedFromTheHost_data();
    void itemIsAskedFromTheHost();
    void fileIsReadAtEveryCall();
    void hostMayBeReplaced();
    void menuIsFoundByIdentifierAndName();

private:
    std::unique_ptr<Host> m_host;
    std::unique_ptr<Menu> m_menu;
};

void TestMenuListBase::init()
{
    m_host = std::make_unique<Host>();
    m_menu = std::make_unique<Menu>();
    m_menu->setFile(QStringLiteral("/menus/weighing.xml"));
    m_menu->initMenuListBase(m_host.get());
}

void TestMenuListBase::cleanup()
{
    m_menu.reset();
    m_host.reset();
}

void TestMenuListBase::parentOwnsTheMenu()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<Menu> menu = new Menu(parent.get());
    parent.reset();
    QVERIFY(menu.isNull());
}

void TestMenuListBase::newMenuHasNoFile()
{
    QCOMPARE(Menu().GetMenuFilePath(), QString());
}

void TestMenuListBase::menuFileIsWhatTheMenuSets()
{
    QCOMPARE(m_menu->GetMenuFilePath(), QStringLiteral("/menus/weighing.xml"));
    QCOMPARE(m_host->calls, QStringList());
}

using Ask = QVariant (*)(IMenuList&);
Q_DECLARE_METATYPE(Ask)

void TestMenuListBase::defaultsAreNeutral_data()
{
    QTest::addColumn<Ask>("ask");
    QTest::addColumn<QVariant>("answer");

    const auto row = [](const char* name, Ask ask, const QVariant& answer) {
        QTest::newRow(name) << ask << answer;
    };
    row(
        "add-on menu name", [](IMenuList& menu) { return QVariant(menu.GetAddonMenuName()); }, QString());
    row(
        "flag may be toggled",
        [](IMenuList& menu) { return QVariant(menu.IsItemBoolValueAllowedToToggle(1, nullptr)); }, true);
    row(
        "names of the selection", [](IMenuList& menu) { return QVariant(menu.defineSelectionList(1).first); },
        QString());
    row(
        "values of the selection",
        [](IMenuList& menu) { return QVariant(menu.defineSelectionList(1).second); }, QString());
    row(
        "place of a value",
        [](IMenuList& menu) { return QVariant(menu.GetSelectionListDataPtr(1, QStringLiteral("a"))); }, -1);
    row(
        "name at a place",
        [](IMenuList& menu) { return QVariant(menu.GetUniqueNameFromIndexInSelectionList(1, 0)); },
        QString());
    row(
        "place of a name",
        [](IMenuList& menu) {
            return QVariant(menu.GetIndexFromUniqueNameInSelectionList(1, QStringLiteral("a")));
        },
        -1);
    row(
        "help file", [](IMenuList& menu) { return QVariant(menu.GetHelpFilePath(1)); }, QString());
}

void TestMenuListBase::defaultsAreNeutral()
{
    QFETCH(Ask, ask);
    QTEST(ask(*m_menu), "answer");
    QCOMPARE(m_host->calls, QStringList());
}

void TestMenuListBase::operationsWithoutEffectAskNothing()
{
    ListModel model;
    QObject object;
    IMenuList& menu = *m_menu;
    menu.SetMenuName(QStringLiteral("Weighing"));
    menu.ExecuteCommand(1, &model);
    menu.SetPluginManager(nullptr);
    menu.OnCustomizeButton(1);
    menu.OnCustomizeString(&object, 1);
    QCOMPARE(m_host->calls, QStringList());
    QCOMPARE(menu.GetMenuFilePath(), QStringLiteral("/menus/weighing.xml"));
    QCOMPARE(menu.GetAddonMenuName(), QString());
    QCOMPARE(object.objectName(), QString());
}

void TestMenuListBase::baseHasNoSelection()
{
    QStringList names{QStringLiteral("kept")};
    QStringList values{QStringLiteral("too")};
    QCOMPARE(m_menu->GetSelectionList(1, &names, &values), false);
    QCOMPARE(names, QStringList(QStringLiteral("kept")));
    QCOMPARE(values, QStringList(QStringLiteral("too")));
}

void TestMenuListBase::selectionIsSplit_data()
{
    QTest::addColumn<QString>("nameText");
    QTest::addColumn<QString>("valueText");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("values");

    const auto row = [](const char* title, const char* nameText, const char* valueText,
                        const QStringList& names, const QStringList& values) {
        QTest::newRow(title) << QString::fromUtf8(nameText) << QString::fromUtf8(valueText) << names
                             << values;
    };
    const QString none;
    const auto text = [](const char* part) { return QString::fromUtf8(part); };
    row("one", "a", "1", {text("a")}, {text("1")});
    row("several", "a;b;c", "1;2;3", {text("a"), text("b"), text("c")}, {text("1"), text("2"), text("3")});
    row("empty name", "a;b;;c", "1;2;3;4", {text("a"), text("b"), none, text("c")},
        {text("1"), text("2"), text("3"), text("4")});
    row("empty first name", ";b", "1;2", {none, text("b")}, {text("1"), text("2")});
    row("empty last name", "a;", "1;2", {text("a"), none}, {text("1"), text("2")});
    row("empty names only", ";", ";", {none, none}, {none, none});
    row("no values", "a;b", "", {text("a"), text("b")}, {none});
    row("fewer values", "a;b", "1", {text("a"), text("b")}, {text("1")});
    row("more values", "a", "1;2", {text("a")}, {text("1"), text("2")});
    row("blanks", " a ; b", " ;", {text(" a "), text(" b")}, {text(" "), none});
    row("a blank is a name", " ", "1", {text(" ")}, {text("1")});
    row("other separators", "a,b:c|d", "1,2", {text("a,b:c|d")}, {text("1,2")});
    row("umlaut", "grün;weiß", "ä;ß", {text("grün"), text("weiß")}, {text("ä"), text("ß")});
}

void TestMenuListBase::selectionIsSplit()
{
    QFETCH(QString, nameText);
    QFETCH(QString, valueText);
    SelectionMenu menu;
    menu.selection = {nameText, valueText};
    QStringList names;
    QStringList values;
    QCOMPARE(menu.GetSelectionList(1, &names, &values), true);
    QTEST(names, "names");
    QTEST(values, "values");
}

void TestMenuListBase::selectionReplacesTheLists()
{
    SelectionMenu menu;
    menu.selection = {QStringLiteral("a;b"), QStringLiteral("1;2")};
    QStringList names{QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")};
    QStringList values{QStringLiteral("7")};
    QCOMPARE(menu.GetSelectionList(1, &names, &values), true);
    QCOMPARE(names, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(values, (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
}

void TestMenuListBase::emptyNamesLeaveTheListsAlone_data()
{
    QTest::addColumn<QString>("nameText");
    QTest::addColumn<QString>("valueText");
    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("values without names") << QString() << QStringLiteral("1;2");
    QTest::newRow("empty text") << QStringLiteral("") << QStringLiteral("1");
}

void TestMenuListBase::emptyNamesLeaveTheListsAlone()
{
    QFETCH(QString, nameText);
    QFETCH(QString, valueText);
    SelectionMenu menu;
    menu.selection = {nameText, valueText};
    QStringList names{QStringLiteral("kept")};
    QStringList values{QStringLiteral("too")};
    QCOMPARE(menu.GetSelectionList(1, &names, &values), false);
    QCOMPARE(names, QStringList(QStringLiteral("kept")));
    QCOMPARE(values, QStringList(QStringLiteral("too")));
}

void TestMenuListBase::selectionIsAskedForTheItem()
{
    SelectionMenu menu;
    QStringList names;
    QStringList values;
    menu.GetSelectionList(17, &names, &values);
    menu.GetSelectionList(-1, &names, &values);
    QCOMPARE(menu.asked, (QVector<int>{17, -1}));
}

void TestMenuListBase::itemListIsAskedFromTheHost_data()
{
    QTest::addColumn<bool>("answer");
    QTest::newRow("found") << true;
    QTest::newRow("not found") << false;
}

void TestMenuListBase::itemListIsAskedFromTheHost()
{
    QFETCH(bool, answer);
    m_host->answer = answer;
    QList<MenuItem> items;
    QCOMPARE(m_menu->GetMenuItemList(&items), answer);
    QCOMPARE(m_host->calls, QStringList(QStringLiteral("GetMenuItemList(/menus/weighing.xml)")));
    QCOMPARE(m_host->items, &items);
    QCOMPARE(items.size(), 1);
}

void TestMenuListBase::itemIsAskedFromTheHost_data()
{
    itemListIsAskedFromTheHost_data();
}

void TestMenuListBase::itemIsAskedFromTheHost()
{
    QFETCH(bool, answer);
    m_host->answer = answer;
    MenuItem item{0};
    QCOMPARE(m_menu->GetMenuItemById(42, &item), answer);
    QCOMPARE(m_host->calls, QStringList(QStringLiteral("GetMenuItemById(/menus/weighing.xml, 42)")));
    QCOMPARE(m_host->item, &item);
    QCOMPARE(item.id, 42);
}

void TestMenuListBase::fileIsReadAtEveryCall()
{
    m_menu->setFile(QStringLiteral("other.xml"));
    m_menu->GetMenuItemList(nullptr);
    m_menu->setFile(QString());
    m_menu->GetMenuItemById(1, nullptr);
    QCOMPARE(m_host->calls, (QStringList{QStringLiteral("GetMenuItemList(other.xml)"),
                                         QStringLiteral("GetMenuItemById(, 1)")}));
}

void TestMenuListBase::hostMayBeReplaced()
{
    Host other;
    m_menu->initMenuListBase(&other);
    m_menu->GetMenuItemList(nullptr);
    QCOMPARE(m_host->calls, QStringList());
    QCOMPARE(other.calls.size(), 1);
}

void TestMenuListBase::menuIsFoundByIdentifierAndName()
{
    QObject* const object = m_menu.get();
    void* const interface = static_cast<IMenuList*>(m_menu.get());
    QCOMPARE(static_cast<void*>(qobject_cast<IMenuList*>(object)), interface);
    QCOMPARE(object->qt_metacast("IMenuList"), interface);
    QCOMPARE(object->qt_metacast("Brimvale.Menu.IMenuList/1.0"), interface);
    QCOMPARE(object->qt_metacast("Brimvale::MenuListBase"),
             static_cast<void*>(static_cast<MenuListBase*>(m_menu.get())));
}

QTEST_APPLESS_MAIN(TestMenuListBase)
#include "tst_menulistbase.moc"
