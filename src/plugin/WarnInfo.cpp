// SPDX-License-Identifier: BSD-3-Clause
#include "WarnInfo.h"

#include "core/Logging.h"

#include <utility>

namespace Brimvale
{

WarnInfo::WarnInfo(QObject* parent, QString levellingText, QString calibrationText, bool calibrationVisible,
                   bool levellingVisible)
    : QObject(parent)
    , m_levellingRequiredText(std::move(levellingText))
    , m_calibrationRequiredText(std::move(calibrationText))
    , m_levellingRequiredVisible(levellingVisible)
    , m_calibrationRequiredVisible(calibrationVisible)
{
    translateText();
}

WarnInfo::~WarnInfo()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

QString WarnInfo::levellingRequiredText() const
{
    return m_levellingRequiredText;
}

void WarnInfo::setLevellingRequiredText(QString text)
{
    if (m_levellingRequiredText == text) {
        return;
    }
    m_levellingRequiredText = text;
    emit levellingRequiredTextChanged();
}

QString WarnInfo::calibrationRequiredText() const
{
    return m_calibrationRequiredText;
}

void WarnInfo::setCalibrationRequiredText(QString text)
{
    if (m_calibrationRequiredText == text) {
        return;
    }
    m_calibrationRequiredText = text;
    emit calibrationRequiredTextChanged();
}

bool WarnInfo::levellingRequiredVisible() const
{
    return m_levellingRequiredVisible;
}

void WarnInfo::setLevellingRequiredVisible(bool visible)
{
    if (m_levellingRequiredVisible == visible) {
        return;
    }
    m_levellingRequiredVisible = visible;
    emit levellingRequiredVisibleChanged();
}

bool WarnInfo::calibrationRequiredVisible() const
{
    return m_calibrationRequiredVisible;
}

void WarnInfo::setCalibrationRequiredVisible(bool visible)
{
    if (m_calibrationRequiredVisible == visible) {
        return;
    }
    m_calibrationRequiredVisible = visible;
    emit calibrationRequiredVisibleChanged();
}

void WarnInfo::translateText()
{
    m_levellingRequiredText = tr("Levelling required");
    if (m_levellingRequiredVisible) {
        emit levellingRequiredTextChanged();
    }
}

} // namespace Brimvale
