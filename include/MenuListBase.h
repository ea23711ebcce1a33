// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_MENULISTBASE_H
#define BRIMVALE_MENULISTBASE_H

#include "IMenuList.h"
#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>

namespace Brimvale
{

class ISystem;

/// The base of a plug-in's menu: supplies all of `IMenuList` but the ten operations that only the concrete menu can
/// answer. A concrete menu sets `m_menuFilePath` in its constructor and calls `initMenuListBase()` before the menu
/// is used.
class BRIMVALE_EXPORT MenuListBase : public QObject, public IMenuList
{
    Q_OBJECT
    Q_DISABLE_COPY(MenuListBase)
    Q_INTERFACES(Brimvale::IMenuList)

public:
    /// Makes a menu without a host and with an empty file path; `parent` owns it.
    explicit MenuListBase(QObject* parent);
    ~MenuListBase() override;

    /// Stores the host's services, which are not owned. It must come before `GetMenuItemList()` and
    /// `GetMenuItemById()`, which ask the host.
    void initMenuListBase(ISystem* system);

    QString GetMenuFilePath() override;

    /// Does nothing.
    void SetMenuName(QString name) override;

    /// Returns an empty text.
    QString GetAddonMenuName() override;

    /// Returns true.
    bool IsItemBoolValueAllowedToToggle(int id, ListModel* model) override;

    /// Returns two empty texts: the item has no selection.
    QPair<QString, QString> defineSelectionList(int id) override;

    /// Splits the two texts of `defineSelectionList()` at ";", empty parts kept, and replaces the contents of both
    /// lists. Returns false and leaves them untouched when the text of the names is empty.
    bool GetSelectionList(int id, QStringList* names, QStringList* values) override;

    /// Returns -1.
    int GetSelectionListDataPtr(int id, QString value) override;

    /// Returns an empty text.
    QString GetUniqueNameFromIndexInSelectionList(int id, int index) override;

    /// Returns -1.
    int GetIndexFromUniqueNameInSelectionList(int id, QString name) override;

    /// Returns an empty text.
    QString GetHelpFilePath(int id) override;

    /// Asks the host for the items of this menu's file and returns its answer.
    bool GetMenuItemList(QList<MenuItem>* items) override;

    /// Asks the host for one item of this menu's file and returns its answer.
    bool GetMenuItemById(int id, MenuItem* item) override;

    /// Does nothing.
    void ExecuteCommand(int id, ListModel* model) override;

    /// Does nothing.
    void SetPluginManager(IPluginManager* manager) override;

    /// Does nothing.
    void OnCustomizeButton(int id) override;

    /// Does nothing.
    void OnCustomizeString(QObject* object, int id) override;

protected:
    ISystem* m_system = nullptr; ///< the host's services; not owned, null until `initMenuListBase()`
    QString m_menuFilePath;      ///< path of the menu file, set by the concrete menu
};

} // namespace Brimvale

#endif
