// SPDX-License-Identifier: BSD-3-Clause
#include "host/HostMenuList.h"

#include "host/StatusInfo.h"
#include "host/StoredParameters.h"
#include "host/WeighingParameterService.h"

namespace Brimvale
{
namespace Terminal
{

namespace
{

bool isItem(int id)
{
    return id >= 0 && id < WeighingParameterService::ParameterCount;
}

} // namespace

QString HostMenuList::menuFilePath()
{
    return QStringLiteral("weighing-parameters.menu");
}

HostMenuList::HostMenuList(StoredParameters& parameters, const StatusInfo& statusInfo, QObject* parent)
    : MenuListBase(parent)
    , m_parameters(parameters)
    , m_statusInfo(statusInfo)
{
    m_menuFilePath = menuFilePath();
}

QString HostMenuList::GetMenuName()
{
    return tr("Weighing parameters");
}

bool HostMenuList::IsItemVisible(int id, ListModel* model)
{
    Q_UNUSED(model)
    return isItem(id);
}

bool HostMenuList::IsItemEnabled(int id, ListModel* model)
{
    Q_UNUSED(model)
    return isItem(id);
}

QVariant HostMenuList::GetItemValue(int id)
{
    if (!isItem(id)) {
        return QVariant();
    }
    return m_parameters.value(m_menuFilePath, m_statusInfo.owner(), QStringLiteral("system"), QString(), id);
}

bool HostMenuList::SetItemValue(int id, QVariant value)
{
    return IsItemValueValid(id, value)
           && m_parameters.setValue(m_menuFilePath, m_statusInfo.owner(), QStringLiteral("system"), id,
                                    value.toString());
}

QString HostMenuList::GetItemText(int id)
{
    return isItem(id) ? tr("Parameter %1").arg(id) : QString();
}

QString HostMenuList::GetItemUnit(int id)
{
    Q_UNUSED(id)
    return QString();
}

bool HostMenuList::GetItemRange(int id, double* minimum, double* maximum)
{
    Q_UNUSED(id)
    Q_UNUSED(minimum)
    Q_UNUSED(maximum)
    return false;
}

bool HostMenuList::IsItemValueValid(int id, QVariant value)
{
    return isItem(id) && value.type() == QVariant::String;
}

void HostMenuList::OnItemValueChanged(int id)
{
    Q_UNUSED(id) // the stored values take effect at the next ResetWeighingParameters()
}

} // namespace Terminal
} // namespace Brimvale
