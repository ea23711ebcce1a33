// SPDX-License-Identifier: BSD-3-Clause
#include "DensityViewModel.h"

#include <QVariantMap>

using Brimvale::MesswertInfo;
using Brimvale::WarnInfo;

namespace
{

const int LongestEntry = 8;

MesswertInfo* makeMesswertInfo(QObject* parent)
{
    const QString none;
    return new MesswertInfo(
        parent,
        // main display: value, unit, visible, verification digit, valid, calculated, coarse, reduction
        none, none, true, 0, false, true, false, 0,
        // small display, which shows the reading of the scale
        none, none, false, 0, true, false, 0,
        // texts of the net and preset-tare marks, error text
        none, none, none,
        // bar graph, stability indicator
        0, -1,
        // visible: net, preset tare, bar graph, stability, all
        false, false, false, true, true);
}

} // namespace

DensityViewModel::DensityViewModel(Parameters* parameters)
    : m_parameters(parameters)
    , m_messwertInfo(makeMesswertInfo(this))
    , m_warnInfo(new WarnInfo(this, QString(), QString(), false, false))
{
    translateTexts();
}

MesswertInfo* DensityViewModel::messwertInfo() const
{
    return m_messwertInfo;
}

WarnInfo* DensityViewModel::warnInfo() const
{
    return m_warnInfo;
}

// Parameters -------------------------------------------------------------------------------------------------------

QVariantList DensityViewModel::fields() const
{
    QVariantList fields;
    for (int id = 0; id < Parameters::Count; ++id) {
        fields.append(QVariantMap{{QStringLiteral("title"), m_parameters->title(id)},
                                  {QStringLiteral("text"), m_parameters->text(id)},
                                  {QStringLiteral("unit"), m_parameters->unit(id)}});
    }
    return fields;
}

QString DensityViewModel::rangeText() const
{
    return m_parameters->rangeText(m_selected);
}

void DensityViewModel::select(int field)
{
    if (field == m_selected || field < 0 || field >= Parameters::Count) {
        return;
    }
    cancelEntry();
    m_selected = field;
    emit selectedChanged();
}

void DensityViewModel::step(int direction)
{
    cancelEntry();
    m_parameters->step(m_selected, direction);
    emit parametersChanged();
}

void DensityViewModel::openEntry()
{
    m_editing = true;
    m_entry.clear();
    emit entryChanged();
}

void DensityViewModel::type(const QString& key)
{
    if (!m_editing) {
        return;
    }
    if (key == QLatin1String("<")) {
        m_entry.chop(1);
    } else if (m_entry.size() < LongestEntry) {
        const int point = m_entry.indexOf(QLatin1Char('.'));
        const int decimals = m_parameters->decimals(m_selected);
        if (key == QLatin1String(".")) {
            if (point < 0 && decimals > 0) {
                m_entry += m_entry.isEmpty() ? QStringLiteral("0.") : key;
            }
        } else if (point < 0 || m_entry.size() - point <= decimals) {
            m_entry += key;
        }
    }
    emit entryChanged();
}

bool DensityViewModel::entryAcceptable() const
{
    bool isNumber = false;
    const double value = m_entry.toDouble(&isNumber);
    Parameters tried = *m_parameters;
    return isNumber && tried.setValue(m_selected, value);
}

void DensityViewModel::acceptEntry()
{
    if (!m_editing || !entryAcceptable()) {
        return; // the pad stays, with its text and the range
    }
    m_parameters->setValue(m_selected, m_entry.toDouble());
    cancelEntry();
    emit parametersChanged();
}

void DensityViewModel::cancelEntry()
{
    if (!m_editing) {
        return;
    }
    m_editing = false;
    m_entry.clear();
    emit entryChanged();
}

// State ------------------------------------------------------------------------------------------------------------

DensityViewModel::Kind DensityViewModel::stateKind() const
{
    switch (m_state) {
    case Ready:
        return Plain;
    case WaitingForStable:
        return Attention;
    case Printed:
        return Well;
    case NoWeight:
    case NotRead:
    case NotKept:
        break;
    }
    return Wrong;
}

QString DensityViewModel::stateText() const
{
    switch (m_state) {
    case Ready:
        return m_isCorrected ? tr("The weight is corrected for buoyancy") : tr("No weight to correct");
    case WaitingForStable:
        return tr("Waiting for a stable weight…");
    case Printed:
        return tr("Corrected weight sent");
    case NoWeight:
        return tr("Not sent: no valid weight");
    case NotRead:
        return tr("Check the values: not all could be read from %1").arg(m_detail);
    case NotKept:
        break;
    }
    return tr("The values cannot be kept in %1").arg(m_detail);
}

void DensityViewModel::setState(State state, const QString& detail)
{
    if (m_state == state && m_detail == detail) {
        return;
    }
    m_state = state;
    m_detail = detail;
    emit stateChanged();
}

void DensityViewModel::setCorrected(bool isCorrected)
{
    if (m_isCorrected != isCorrected) {
        m_isCorrected = isCorrected;
        emit stateChanged();
    }
}

void DensityViewModel::translateTexts()
{
    m_messwertInfo->setNetText(tr("NET"));
    m_messwertInfo->setPtText(tr("PT"));
    m_warnInfo->translateText();
    emit stateChanged();
}
