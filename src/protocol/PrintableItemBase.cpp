// SPDX-License-Identifier: BSD-3-Clause
#include "PrintableItemBase.h"

#include "CategorySort.h"

namespace Brimvale
{

PrintableItemBase::PrintableItemBase(QObject* parent)
    : QObject(parent)
{
}

PrintableItemBase::~PrintableItemBase() = default;

void PrintableItemBase::setValue() { }

QString PrintableItemBase::getCategory() const
{
    switch (m_rank) {
    case CategorySort::measurement:
        return tr("Measurement");
    case CategorySort::general:
        return tr("General");
    case CategorySort::plugin_general:
        return tr("Application");
    case CategorySort::control:
        return QStringLiteral("Control"); // the same in every language
    case CategorySort::device:
        return tr("Device");
    default:
        return m_category;
    }
}

QString PrintableItemBase::getUId() const
{
    return m_uid;
}

int PrintableItemBase::getRank() const
{
    return m_rank;
}

bool PrintableItemBase::isEnabled(QFlags<ProtocolType> types) const
{
    return (types & ~m_enable) == 0;
}

bool PrintableItemBase::isAvailableIn(QFlags<ProtocolArea> areas) const
{
    return (areas & ~m_protocolArea) == 0;
}

void PrintableItemBase::setName(const QString& name)
{
    m_name = name;
}

void PrintableItemBase::setUid(QString uid)
{
    m_uid = uid;
}

void PrintableItemBase::setCategory(const QString& category)
{
    m_category = category;
}

void PrintableItemBase::setRank(int rank)
{
    m_rank = rank;
}

void PrintableItemBase::setEnable(QFlags<ProtocolType> enable)
{
    m_enable = enable;
}

void PrintableItemBase::setProtocolArea(QFlags<ProtocolArea> protocolArea)
{
    m_protocolArea = protocolArea;
}

} // namespace Brimvale
