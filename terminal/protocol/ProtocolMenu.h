// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROTOCOLMENU_H
#define BRIMVALE_PROTOCOLMENU_H

#include "MenuListBase.h"

#include <QPointer>
#include <QStringList>

namespace Brimvale
{
namespace Terminal
{

class Protocol;

/// The protocol of the active application as a menu: what is printed, of which kind and part, and what starts it.
///
/// | Number           | Item                                              | Kind      |
/// |------------------|---------------------------------------------------|-----------|
/// | 1                | kind of protocol                                  | selection |
/// | 2                | part of the protocol                              | selection |
/// | 3                | trigger                                           | selection |
/// | from FirstItemId | a print item, in the order in which they came     | bool      |
///
/// The values of the selections are the words that scripts use, and the uid of the trigger. A print item keeps its
/// number for the life of the menu, and is visible while it can be chosen. There is no menu file: GetMenuItemList()
/// gives the items in the order in which they are printed.
class ProtocolMenu : public MenuListBase
{
    Q_OBJECT
    Q_DISABLE_COPY(ProtocolMenu)

public:
    static constexpr int TypeId = 1;
    static constexpr int PartId = 2;
    static constexpr int TriggerId = 3;
    static constexpr int FirstItemId = 100;

    /// @param protocol not owned; when it has gone the menu is empty.
    ProtocolMenu(Protocol& protocol, const QString& name, QObject* parent = nullptr);

    // IMenuList
    QString GetMenuName() override;
    void SetMenuName(QString name) override;
    bool IsItemVisible(int id, ListModel* model) override;
    bool IsItemEnabled(int id, ListModel* model) override;
    QVariant GetItemValue(int id) override;
    bool SetItemValue(int id, QVariant value) override;
    QString GetItemText(int id) override;
    QString GetItemUnit(int id) override;
    bool GetItemRange(int id, double* minimum, double* maximum) override;
    QPair<QString, QString> defineSelectionList(int id) override;
    bool IsItemValueValid(int id, QVariant value) override;
    QString GetUniqueNameFromIndexInSelectionList(int id, int index) override;
    int GetIndexFromUniqueNameInSelectionList(int id, QString name) override;
    bool GetMenuItemList(QList<MenuItem>* items) override;
    bool GetMenuItemById(int id, MenuItem* item) override;
    void OnItemValueChanged(int id) override;

private:
    struct Selection
    {
        QStringList names;
        QStringList values;
    };

    Selection selection(int id) const;
    QString uidOf(int id);
    int idOf(const QString& uid);
    void learnItems();
    MenuItem menuItem(int id);

    QPointer<Protocol> m_protocol;
    QString m_name;
    QStringList m_uids; ///< Those that have a number, which begins at FirstItemId.
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PROTOCOLMENU_H
