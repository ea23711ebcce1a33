// SPDX-License-Identifier: BSD-3-Clause
#include "WeighingViewModel.h"

using Brimvale::MesswertInfo;
using Brimvale::WarnInfo;

namespace
{

MesswertInfo* makeMesswertInfo(QObject* parent)
{
    const QString none;
    return new MesswertInfo(
        parent,
        // main display: value, unit, visible, verification digit, valid, calculated, coarse, reduction
        none, none, true, 0, false, false, false, 0,
        // small display, which shows the gross weight while there is a tare
        none, none, false, 0, true, false, 0,
        // texts of the net and preset-tare marks, error text
        none, none, none,
        // bar graph, stability indicator
        0, -1,
        // visible: net, preset tare, bar graph, stability, all
        false, false, true, false, true);
}

} // namespace

WeighingViewModel::WeighingViewModel()
    : m_messwertInfo(makeMesswertInfo(this))
    , m_warnInfo(new WarnInfo(this, QString(), QString(), false, false))
{
    translateTexts();
}

MesswertInfo* WeighingViewModel::messwertInfo() const
{
    return m_messwertInfo;
}

WarnInfo* WeighingViewModel::warnInfo() const
{
    return m_warnInfo;
}

WeighingViewModel::PrintState WeighingViewModel::printState() const
{
    return m_printState;
}

void WeighingViewModel::setPrintState(PrintState state)
{
    if (m_printState == state) {
        return;
    }
    m_printState = state;
    emit printStateChanged();
}

QString WeighingViewModel::lastTransfer() const
{
    return m_lastTransfer;
}

int WeighingViewModel::transferCount() const
{
    return m_transferCount;
}

void WeighingViewModel::setLastTransfer(const QString& text, int count)
{
    if (m_lastTransfer == text && m_transferCount == count) {
        return;
    }
    m_lastTransfer = text;
    m_transferCount = count;
    emit lastTransferChanged();
}

bool WeighingViewModel::printOnlyStable() const
{
    return m_printOnlyStable;
}

QString WeighingViewModel::minimumWeight() const
{
    return m_minimumWeight;
}

void WeighingViewModel::setSettings(bool printOnlyStable, const QString& minimumWeight)
{
    if (m_printOnlyStable == printOnlyStable && m_minimumWeight == minimumWeight) {
        return;
    }
    m_printOnlyStable = printOnlyStable;
    m_minimumWeight = minimumWeight;
    emit settingsChanged();
}

bool WeighingViewModel::automaticRefused() const
{
    return m_automaticRefused;
}

void WeighingViewModel::setAutomaticRefused(bool refused)
{
    if (m_automaticRefused == refused) {
        return;
    }
    m_automaticRefused = refused;
    emit automaticRefusedChanged();
}

void WeighingViewModel::translateTexts()
{
    m_messwertInfo->setNetText(tr("NET"));
    m_messwertInfo->setPtText(tr("PT"));
    m_warnInfo->translateText();
}
