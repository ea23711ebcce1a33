// SPDX-License-Identifier: BSD-3-Clause
#include "InfoValueUnit.h"

#include "core/Logging.h"

namespace Brimvale
{

InfoValueUnit::InfoValueUnit(QObject* parent, bool isVisible, QString info, QString value, QString unit)
    : QObject(parent)
    , m_isVisible(isVisible)
    , m_info(info)
    , m_value(value)
    , m_unit(unit)
{
}

InfoValueUnit::~InfoValueUnit()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

bool InfoValueUnit::isVisible() const
{
    return m_isVisible;
}

void InfoValueUnit::setVisble(bool isVisible)
{
    if (m_isVisible == isVisible) {
        return;
    }
    m_isVisible = isVisible;
    emit visibleChanged();
}

QString InfoValueUnit::info() const
{
    return m_info;
}

void InfoValueUnit::setInfo(QString info)
{
    if (m_info == info) {
        return;
    }
    m_info = info;
    emit infoChanged();
}

QString InfoValueUnit::value() const
{
    return m_value;
}

void InfoValueUnit::setValue(QString value)
{
    if (m_value == value) {
        return;
    }
    m_value = value;
    emit valueChanged();
}

QString InfoValueUnit::unit() const
{
    return m_unit;
}

void InfoValueUnit::setUnit(QString unit)
{
    if (m_unit == unit) {
        return;
    }
    m_unit = unit;
    emit unitChanged();
}

} // namespace Brimvale
