// SPDX-License-Identifier: BSD-3-Clause
#include "StatisticsProtocol.h"

#include <CategorySort.h>
#include <IProtocolPool.h>
#include <ISystem.h>
#include <PrintItemNameValueUnit.h>

using namespace Brimvale;

StatisticsProtocol::StatisticsProtocol(ISystem* system)
    : m_system(system)
{
    // Beside each weighing, or below a series of them.
    const ProtocolDef def{ProtocolType::Measurement | ProtocolType::Series | ProtocolType::Summary,
                          ProtocolArea::Body | ProtocolArea::Footer};
    for (int i = 0; i < FigureCount; ++i) {
        // Within a category items are printed in the order of their uids.
        m_items[i] = new PrintItemNameValueUnit(&m_owner, QStringLiteral("statistics.%1").arg(i + 1),
                                                &m_texts[i], QString(), CategorySort::protocol, def);
    }
    translate();
}

void StatisticsProtocol::addToPool()
{
    for (PrintItemNameValueUnit* item : m_items) {
        m_system->GetProtocolPool()->AddItem(item);
    }
}

void StatisticsProtocol::removeFromPool()
{
    for (PrintItemNameValueUnit* item : m_items) {
        m_system->GetProtocolPool()->RemoveItem(item);
    }
}

void StatisticsProtocol::translate()
{
    const QString names[FigureCount] = {tr("Weighings"), tr("Mean"), tr("Standard deviation"), tr("Minimum"),
                                        tr("Maximum")};
    for (int i = 0; i < FigureCount; ++i) {
        m_texts[i].setCategory(tr("Statistics"));
        m_texts[i].setName(names[i]);
        m_texts[i].setDescription(names[i]);
    }
}

void StatisticsProtocol::setFigures(const SeriesFigures& figures)
{
    const StatisticsValue values[FigureCount] = {figures.count, figures.mean, figures.deviation,
                                                 figures.minimum, figures.maximum};
    for (int i = 0; i < FigureCount; ++i) {
        m_items[i]->setValue(values[i].valid ? WeighingSeries::text(values[i]) : QStringLiteral("-"));
        m_items[i]->setUnit(values[i].valid ? values[i].unit : QString());
    }
}
