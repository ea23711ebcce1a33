// SPDX-License-Identifier: BSD-3-Clause
#include "PrintItemNameValueUnitData.h"

#include "core/Logging.h"

namespace Brimvale
{

PrintItemNameValueUnitData::PrintItemNameValueUnitData(QObject* parent)
    : QObject(parent)
{
}

PrintItemNameValueUnitData::~PrintItemNameValueUnitData()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

QString PrintItemNameValueUnitData::getCategory() const
{
    return m_category;
}

QString PrintItemNameValueUnitData::getName() const
{
    return m_name;
}

QString PrintItemNameValueUnitData::getDescription() const
{
    return m_description;
}

void PrintItemNameValueUnitData::setCategory(const QString& category)
{
    m_category = category;
}

void PrintItemNameValueUnitData::setName(const QString& name)
{
    m_name = name;
}

void PrintItemNameValueUnitData::setDescription(const QString& description)
{
    m_description = description;
}

} // namespace Brimvale
