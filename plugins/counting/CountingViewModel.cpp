// SPDX-License-Identifier: BSD-3-Clause
#include "CountingViewModel.h"

#include <QVariantMap>

using Brimvale::MesswertInfo;
using Brimvale::WarnInfo;

namespace
{

const int LongestEntry = 9;

MesswertInfo* makeMesswertInfo(QObject* parent)
{
    const QString none;
    return new MesswertInfo(
        parent,
        // main display: value, unit, visible, verification digit, valid, calculated, coarse, reduction
        none, none, true, 0, false, true, false, 0,
        // small display, which shows the weight beside a count
        none, none, false, 0, true, false, 0,
        // texts of the net and preset-tare marks, error text
        none, none, none,
        // bar graph, stability indicator
        0, -1,
        // visible: net, preset tare, bar graph, stability, all
        false, false, false, true, true);
}

} // namespace

CountingViewModel::CountingViewModel(CountingSettings* settings)
    : m_settings(settings)
    , m_messwertInfo(makeMesswertInfo(this))
    , m_warnInfo(new WarnInfo(this, QString(), QString(), false, false))
{
    translateTexts();
}

MesswertInfo* CountingViewModel::messwertInfo() const
{
    return m_messwertInfo;
}

WarnInfo* CountingViewModel::warnInfo() const
{
    return m_warnInfo;
}

QString CountingViewModel::pieceUnit()
{
    return tr("pcs");
}

// Settings ---------------------------------------------------------------------------------------------------------

QVariantList CountingViewModel::fields() const
{
    QVariantList fields;
    for (int id = 0; id < CountingSettings::Count; ++id) {
        fields.append(QVariantMap{{QStringLiteral("title"), m_settings->title(id)},
                                  {QStringLiteral("text"), m_settings->text(id)}});
    }
    return fields;
}

int CountingViewModel::parts() const
{
    return m_settings->value(CountingSettings::Parts);
}

QVariantList CountingViewModel::presets()
{
    return {5, 10, 20, 50, 100};
}

void CountingViewModel::chooseParts(int parts)
{
    change(CountingSettings::Parts, parts);
}

void CountingViewModel::change(CountingSettings::Id id, int value)
{
    cancelEntry();
    if (m_settings->setValue(id, value)) {
        emit fieldsChanged();
        emit settingsChanged();
    }
}

// Number pad -------------------------------------------------------------------------------------------------------

bool CountingViewModel::entryAcceptable() const
{
    bool isNumber = false;
    const int value = m_entry.toInt(&isNumber);
    CountingSettings tried = *m_settings;
    return isNumber && tried.setValue(m_selected, value);
}

QString CountingViewModel::rangeText() const
{
    return m_settings->rangeText(m_selected);
}

void CountingViewModel::openEntry(int field)
{
    if (field < 0 || field >= CountingSettings::Count) {
        return;
    }
    m_selected = field;
    m_editing = true;
    m_entry.clear();
    emit entryChanged();
}

void CountingViewModel::type(const QString& key)
{
    if (!m_editing) {
        return;
    }
    if (key == QLatin1String("<")) {
        m_entry.chop(1);
    } else if (m_entry.size() < LongestEntry) {
        m_entry += key;
    }
    emit entryChanged();
}

void CountingViewModel::acceptEntry()
{
    if (!m_editing || !entryAcceptable()) {
        return; // the pad stays, with its text and the range
    }
    change(static_cast<CountingSettings::Id>(m_selected), m_entry.toInt());
}

void CountingViewModel::cancelEntry()
{
    if (!m_editing) {
        return;
    }
    m_editing = false;
    m_entry.clear();
    emit entryChanged();
}

// Target -----------------------------------------------------------------------------------------------------------

CountingViewModel::Kind CountingViewModel::checkKind() const
{
    switch (m_check) {
    case CountingSettings::NoTarget:
        break;
    case CountingSettings::Under:
        return Attention;
    case CountingSettings::Reached:
        return Well;
    case CountingSettings::Over:
        return Wrong;
    }
    return Plain;
}

QString CountingViewModel::checkText() const
{
    switch (m_check) {
    case CountingSettings::NoTarget:
        break;
    case CountingSettings::Under:
        return tr("%1 missing").arg(m_difference);
    case CountingSettings::Reached:
        return tr("Target reached");
    case CountingSettings::Over:
        return tr("%1 too many").arg(m_difference);
    }
    return QString();
}

void CountingViewModel::setCheck(CountingSettings::Check check, int difference)
{
    if (m_check == check && m_difference == difference) {
        return;
    }
    m_check = check;
    m_difference = difference;
    emit checkChanged();
}

// State ------------------------------------------------------------------------------------------------------------

CountingViewModel::Kind CountingViewModel::stateKind() const
{
    switch (shown().state) {
    case Nothing:
    case NoReference:
    case Right:
    case ReferenceDeleted:
    case TargetTaken:
    case TargetTakenBack:
        return Plain;
    case TooSmall:
    case TooFew:
    case TooLight:
    case WaitingForStable:
        return Attention;
    case ReferenceTaken:
    case Optimised:
    case Printed:
        return Well;
    case NotStable:
    case NoWeight:
    case NoCount:
    case Negative:
    case NothingOn:
    case ReferenceNeeded:
    case MoreNeeded:
    case AddedTooMany:
    case NotOptimisable:
    case NotWhole:
    case NotPrinted:
    case NotRead:
    case NotKept:
        break;
    }
    return Wrong;
}

QString CountingViewModel::stateText() const
{
    const QString first = shown().details.value(0);
    const QString second = shown().details.value(1);
    const QString third = shown().details.value(2);
    switch (shown().state) {
    case Nothing:
        break;
    case NoReference:
        return tr("Put the counted parts on the scale (%1), then press Reference").arg(first);
    case Right:
        return tr("Counts are right up to %1 pcs").arg(first);
    case TooSmall:
        return tr("Reference too small: ± %1 at %2 pcs. Add up to %3 parts to it, then press Optimise.")
            .arg(first, second, third);
    case TooFew:
        return tr("Reference too small: ± %1 at %2 pcs. Take a new one with %3 parts.")
            .arg(first, second, third);
    case TooLight:
        return tr("The parts are too light for this scale: ± %1 at %2 pcs").arg(first, second);
    case ReferenceTaken:
        return tr("Reference taken: %1 pcs, %2 each").arg(first, second);
    case Optimised:
        return tr("Reference optimised: %1 pcs").arg(first);
    case ReferenceDeleted:
        return tr("Reference deleted");
    case NotStable:
        return tr("Not taken: wait until the weight is stable");
    case NoWeight:
        return tr("Not taken: no valid weight");
    case NoCount:
        return tr("Not taken: no valid count");
    case Negative:
        return tr("Not taken: the weight is negative. Set zero or tare first.");
    case NothingOn:
        return tr("Not taken: the parts weigh less than %1").arg(first);
    case ReferenceNeeded:
        return tr("Take a reference first");
    case MoreNeeded:
        return tr("Not optimised: put more than %1 parts on the scale").arg(first);
    case AddedTooMany:
        return tr("Not optimised: add at most %1 parts to the reference at once").arg(first);
    case NotOptimisable:
        return tr("Not optimised: the reference is too small. Take a new one with more parts.");
    case NotWhole:
        return tr("Not optimised: %1 is no whole number of parts").arg(first);
    case TargetTaken:
        return tr("Target: %1 pcs").arg(first);
    case TargetTakenBack:
        return tr("There is no target any more");
    case WaitingForStable:
        return tr("Waiting for a stable weight…");
    case Printed:
        return tr("Count sent");
    case NotPrinted:
        return tr("Not sent: no valid count");
    case NotRead:
        return tr("Check the values: not all could be read from %1").arg(first);
    case NotKept:
        return tr("The values cannot be kept in %1").arg(first);
    }
    return QString();
}

void CountingViewModel::setStanding(State state, const QStringList& details)
{
    show(&m_standing, state, details);
}

void CountingViewModel::setEvent(State state, const QStringList& details)
{
    show(&m_event, state, details);
}

void CountingViewModel::clearEvent()
{
    if (m_event.state != NotRead && m_event.state != NotKept) {
        show(&m_event, Nothing, {});
    }
}

void CountingViewModel::show(Message* place, State state, const QStringList& details)
{
    if (place->state == state && place->details == details) {
        return;
    }
    place->state = state;
    place->details = details;
    emit stateChanged();
}

void CountingViewModel::translateTexts()
{
    m_messwertInfo->setNetText(tr("NET"));
    m_messwertInfo->setPtText(tr("PT"));
    m_warnInfo->translateText();
    emit fieldsChanged();
    emit checkChanged();
    emit stateChanged();
}
