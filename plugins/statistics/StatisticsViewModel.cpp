// SPDX-License-Identifier: BSD-3-Clause
#include "StatisticsViewModel.h"

using Brimvale::WarnInfo;

StatisticsViewModel::StatisticsViewModel()
    : m_warnInfo(new WarnInfo(this, QString(), QString(), false, false))
{
}

WarnInfo* StatisticsViewModel::warnInfo() const
{
    return m_warnInfo;
}

void StatisticsViewModel::setSeries(const WeighingSeries& series)
{
    m_count = series.count();
    m_unit = series.unit();
    m_plot = SeriesPlot(series);
    emit seriesChanged();
}

void StatisticsViewModel::setThreshold(const QString& text, bool canDecrease, bool canIncrease,
                                       bool automatic)
{
    m_threshold = text;
    m_canDecrease = canDecrease;
    m_canIncrease = canIncrease;
    m_automatic = automatic;
    emit thresholdChanged();
    emit stateChanged(); // the text depends on it
}

void StatisticsViewModel::setConfirming(bool confirming)
{
    if (m_confirming == confirming) {
        return;
    }
    m_confirming = confirming;
    emit confirmingChanged();
}

StatisticsViewModel::Kind StatisticsViewModel::stateKind() const
{
    switch (m_state) {
    case Ready:
    case Undone:
    case Cleared:
        return Plain;
    case WaitingForStable:
        return Attention;
    case Recorded:
    case Exported:
        return Well;
    case NoWeight:
    case OtherUnit:
    case SeriesFull:
    case NotStored:
    case NotExported:
    case SetAside:
    case NoAutomatic:
        break;
    }
    return Wrong;
}

QString StatisticsViewModel::stateText() const
{
    switch (m_state) {
    case Ready:
        return m_automatic ? tr("Put a load on: it is recorded when it is stable")
                           : tr("Put a load on and press Record");
    case WaitingForStable:
        return tr("Waiting for a stable weight…");
    case Recorded:
        return tr("Weighing %1 recorded").arg(m_detail);
    case Undone:
        return tr("Weighing %1 taken out").arg(m_detail);
    case Cleared:
        return tr("A new series begins");
    case Exported:
        return tr("Exported to %1").arg(m_detail);
    case NoWeight:
        return tr("Not recorded: no valid weight");
    case OtherUnit:
        return tr("Not recorded: the series is in %1. Change the unit, or clear the series.").arg(m_detail);
    case SeriesFull:
        return tr("Not recorded: the series has %1 weighings and is full. Export and clear it.")
            .arg(m_detail);
    case NotStored:
        return tr("Not stored. %1").arg(m_detail);
    case NotExported:
        return tr("Not exported. %1").arg(m_detail);
    case SetAside:
        return tr("The stored series was damaged. It is kept as %1, and a new one begins.").arg(m_detail);
    case NoAutomatic:
        break;
    }
    return tr("Not recording by itself: the threshold must be below the capacity of the scale");
}

void StatisticsViewModel::setState(State state, const QString& detail)
{
    if (m_state == state && m_detail == detail) {
        return;
    }
    m_state = state;
    m_detail = detail;
    emit stateChanged();
}

void StatisticsViewModel::translateTexts()
{
    m_warnInfo->translateText();
    emit stateChanged();
}
