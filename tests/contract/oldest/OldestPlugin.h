// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTS_CONTRACT_OLDESTPLUGIN_H
#define BRIMVALE_TESTS_CONTRACT_OLDESTPLUGIN_H

#include <QStringList>

#include <ActionBase.h>
#include <IPluginViewManager.h>
#include <MenuListBase.h>
#include <PluginBase.h>
#include <PrintableItemBase.h>
#include <StepFunctionBase.h>
#include <TriggerBase.h>

/// Counts what holds and notes what does not.
class Checks
{
public:
    void that(bool holds, const char* what);
    QString result() const;

private:
    int m_count = 0;
    QStringList m_failed;
};

/// An action that overrides a slot of its own class. Its member follows those of the base.
class OldestAction : public Brimvale::ActionBase
{
    Q_OBJECT

public:
    explicit OldestAction(QObject* parent);
    void setRank(int rank) override;
    int marker = 0x4f4c4445;
};

/// A step function that overrides a slot of the interface.
class OldestStep : public Brimvale::StepFunctionBase
{
    Q_OBJECT

public:
    explicit OldestStep(QObject* parent);
    void reset() override;
    int resets = 0;
};

/// A print item with text of its own.
class OldestItem : public Brimvale::PrintableItemBase
{
    Q_OBJECT

public:
    explicit OldestItem(QObject* parent);
    QString getName() const override;
    bool Print(Brimvale::IPrinter* printer, Brimvale::IFormat* format) override;
    void setValue() override;
    int snapshots = 0;
};

/// A trigger that is refused until it is allowed.
class OldestTrigger : public Brimvale::TriggerBase
{
    Q_OBJECT

public:
    explicit OldestTrigger(QObject* parent);
    QString getName() const override;
    bool Check() override;
    bool allowed = false;
};

/// A menu that supplies what its base leaves open, and a selection.
class OldestMenu : public Brimvale::MenuListBase
{
    Q_OBJECT

public:
    explicit OldestMenu(QObject* parent);
    Brimvale::ISystem* system() const { return m_system; }

    QString GetMenuName() override;
    bool IsItemVisible(int id, Brimvale::ListModel* model) override;
    bool IsItemEnabled(int id, Brimvale::ListModel* model) override;
    QVariant GetItemValue(int id) override;
    bool SetItemValue(int id, QVariant value) override;
    QString GetItemText(int id) override;
    QString GetItemUnit(int id) override;
    bool GetItemRange(int id, double* minimum, double* maximum) override;
    bool IsItemValueValid(int id, QVariant value) override;
    void OnItemValueChanged(int id) override;
    QPair<QString, QString> defineSelectionList(int id) override;
};

/// A view manager, which the base deletes.
class OldestViewManager : public QObject, public Brimvale::IPluginViewManager
{
    Q_OBJECT

public:
    void Setup(int mode) override;
    int setups = 0;
};

/// The plug-in that is kept as a file. It uses the library in every way that depends on the binary contract, and says
/// on the key "oldest.check" what came of it.
class OldestPlugin : public Brimvale::PluginBase
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Brimvale.Plugin.IPlugin" FILE "oldest.json")
    Q_INTERFACES(Brimvale::IPlugin)

public:
    OldestPlugin();
    ~OldestPlugin() override;

    QString GetPluginName(bool translated) override;
    QString GetPluginIcon() override;
    void ApplyProfileItem(int id, QVariant value) override;

    Q_INVOKABLE QVariant onCheck(QVariant data);
    Q_INVOKABLE QVariant onTransfer(QVariant data);
    Q_INVOKABLE QVariant onStep(QVariant argument, QVariant data);

protected:
    bool PostInitPlugin() override;
    bool PostStartPlugin() override;
    bool PreClosePlugin() override;
    void InitPluginProtocolItems() override;
    void AddToPoolPluginProtocolItems() override;
    void RemoveFromPoolPluginProtocolItems() override;
    void FillPluginId(Brimvale::PluginId& id) override;
    Brimvale::IMenuList* CreatePluginMenu() override;
    QObject* CreateViewModel() override;
    QString GetViewModelName() override;
    QString GetPluginScreen() override;
    Brimvale::IPluginViewManager* CreateViewManager() override;

private:
    void checkBase(Checks& check);
    void checkRecords(Checks& check);
    void checkExceptions(Checks& check);
    void checkSignals(Checks& check);
    void checkDerived(Checks& check);
    void checkWorkflow(Checks& check);
    QMetaMethod method(const char* signature) const;

    // Behind the members of the base: it shows that the base has not grown.
    QString m_marker = QStringLiteral("behind the base");
    OldestAction* m_check;
    OldestAction* m_transfer;
    OldestStep* m_step;
    OldestViewManager* m_views = nullptr;
    QList<Brimvale::IPrintableItem*> m_items;
    QString m_itemName = QStringLiteral("Text");
    QString m_itemText = QStringLiteral("of a pointer");
    QString m_itemCategory = QStringLiteral("plugin");
    int m_appliedItem = 0;
    QVariant m_appliedValue;
};

#endif
