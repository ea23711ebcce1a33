// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_HOSTMENULIST_H
#define BRIMVALE_HOSTMENULIST_H

#include "MenuListBase.h"

namespace Brimvale
{
namespace Terminal
{

class StatusInfo;
class StoredParameters;

/// The terminal's own menu, which every plug-in gets at its initialisation: the four weighing parameters that
/// the user has stored (profile "system"), as the items 0 to 3. They are texts without a unit or a range.
class HostMenuList : public MenuListBase
{
    Q_OBJECT
    Q_DISABLE_COPY(HostMenuList)

public:
    /// The path under which the weighing parameters are stored. There is no such file: see
    /// System::HasMenuFile().
    static QString menuFilePath();

    HostMenuList(StoredParameters& parameters, const StatusInfo& statusInfo, QObject* parent = nullptr);

    // IMenuList
    QString GetMenuName() override;
    bool IsItemVisible(int id, ListModel* model) override;
    bool IsItemEnabled(int id, ListModel* model) override;
    QVariant GetItemValue(int id) override;
    bool SetItemValue(int id, QVariant value) override;
    QString GetItemText(int id) override;
    QString GetItemUnit(int id) override;
    bool GetItemRange(int id, double* minimum, double* maximum) override;
    bool IsItemValueValid(int id, QVariant value) override;
    void OnItemValueChanged(int id) override;

private:
    StoredParameters& m_parameters;
    const StatusInfo& m_statusInfo;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_HOSTMENULIST_H
