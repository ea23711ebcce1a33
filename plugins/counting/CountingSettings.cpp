// SPDX-License-Identifier: BSD-3-Clause
#include "CountingSettings.h"

#include <QSettings>

namespace
{

struct Definition
{
    const char* key;
    const char* title;
    int minimum;
    int maximum;
};

const Definition Definitions[CountingSettings::Count] = {
    {"parts", QT_TRANSLATE_NOOP("CountingSettings", "Parts of the reference"), 1, 9999},
    {"target", QT_TRANSLATE_NOOP("CountingSettings", "Target"), 0, PieceReference::LargestCount},
    {"tolerance", QT_TRANSLATE_NOOP("CountingSettings", "Tolerance"), 0, 999999},
};

const QLatin1String ReferenceWeightKey("referenceWeight");
const QLatin1String ReferencePartsKey("referenceParts");

} // namespace

bool CountingSettings::setValue(int id, int value)
{
    if (value < Definitions[id].minimum || value > Definitions[id].maximum) {
        return false;
    }
    m_values[id] = value;
    return true;
}

QString CountingSettings::title(int id) const
{
    return tr(Definitions[id].title);
}

QString CountingSettings::text(int id) const
{
    if (id == Target && m_values[Target] == 0) {
        return tr("none");
    }
    const QString number = QString::number(m_values[id]);
    return id == Tolerance ? QStringLiteral("± ") + number : number;
}

QString CountingSettings::rangeText(int id) const
{
    return QStringLiteral("%1 – %2").arg(Definitions[id].minimum).arg(Definitions[id].maximum);
}

CountingSettings::Check CountingSettings::check(int pieces) const
{
    if (m_values[Target] == 0) {
        return NoTarget;
    }
    const qint64 excess = qint64(pieces) - m_values[Target];
    return excess < -m_values[Tolerance] ? Under : excess > m_values[Tolerance] ? Over : Reached;
}

int CountingSettings::difference(int pieces) const
{
    const Check found = check(pieces);
    const qint64 difference = qAbs(qint64(pieces) - m_values[Target]);
    return found == Under || found == Over
               ? static_cast<int>(qMin(difference, qint64(PieceReference::LargestCount)))
               : 0;
}

bool CountingSettings::load(const QString& fileName)
{
    QSettings file(fileName, QSettings::IniFormat);
    bool isWell = true;
    for (int id = 0; id < Count; ++id) {
        bool isNumber = false;
        const int stored = file.value(QLatin1String(Definitions[id].key), m_values[id]).toInt(&isNumber);
        isWell = isNumber && setValue(id, stored) && isWell;
    }
    if (file.contains(ReferenceWeightKey) || file.contains(ReferencePartsKey)) {
        ShownWeight weight;
        const bool isNumber = ShownWeight::fromText(file.value(ReferenceWeightKey).toString(), &weight);
        const PieceReference stored(weight, file.value(ReferencePartsKey).toInt());
        if (isNumber && stored.isValid() && stored.parts() <= PieceReference::LargestCount) {
            m_reference = stored;
        } else {
            isWell = false;
        }
    }
    return isWell && file.status() == QSettings::NoError;
}

bool CountingSettings::save(const QString& fileName) const
{
    QSettings file(fileName, QSettings::IniFormat);
    for (int id = 0; id < Count; ++id) {
        file.setValue(QLatin1String(Definitions[id].key), m_values[id]);
    }
    if (m_reference.isValid()) {
        file.setValue(ReferenceWeightKey, m_reference.weight().toText());
        file.setValue(ReferencePartsKey, m_reference.parts());
    } else {
        file.remove(ReferenceWeightKey);
        file.remove(ReferencePartsKey);
    }
    file.sync();
    return file.status() == QSettings::NoError;
}
