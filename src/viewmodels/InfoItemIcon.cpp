// SPDX-License-Identifier: BSD-3-Clause
#include "InfoItemIcon.h"

#include "core/Logging.h"

namespace Brimvale
{

InfoItemIcon::InfoItemIcon(QObject* parent, QString value, QString unit, QString image)
    : QObject(parent)
    , m_value(value)
    , m_unit(unit)
    , m_image(image)
{
}

InfoItemIcon::~InfoItemIcon()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

QString InfoItemIcon::value() const
{
    return m_value;
}

void InfoItemIcon::setValue(QString value)
{
    if (m_value == value) {
        return;
    }
    m_value = value;
    emit valueChanged();
}

QString InfoItemIcon::unit() const
{
    return m_unit;
}

void InfoItemIcon::setUnit(QString unit)
{
    if (m_unit == unit) {
        return;
    }
    m_unit = unit;
    emit unitChanged();
}

QString InfoItemIcon::image() const
{
    return m_image;
}

void InfoItemIcon::setImage(QString image)
{
    if (m_image == image) {
        return;
    }
    m_image = image;
    emit imageChanged();
}

} // namespace Brimvale
