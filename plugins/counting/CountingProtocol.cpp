// SPDX-License-Identifier: BSD-3-Clause
#include "CountingProtocol.h"

#include "CountingViewModel.h"

#include <CategorySort.h>
#include <IProtocolPool.h>
#include <ISystem.h>
#include <ISystemRegister.h>
#include <MesswertData.h>
#include <PrintItemNameValueUnit.h>
#include <PrintItemRegValueCurrentUnit.h>

using namespace Brimvale;

CountingProtocol::CountingProtocol(ISystem* system)
    : m_system(system)
{
    const ProtocolDef def{ProtocolType::Measurement | ProtocolType::Series, ProtocolArea::Body};
    // Within a category items are printed in the order of their uids.
    m_countItem = new PrintItemNameValueUnit(&m_owner, QStringLiteral("counting.1count"), &m_countTexts,
                                             MesswertData(), CategorySort::protocol, def);
    m_pieceItem = new PrintItemNameValueUnit(&m_owner, QStringLiteral("counting.2piece"), &m_pieceTexts,
                                             MesswertData(), CategorySort::protocol, def);
    auto* const net = new PrintItemRegValueCurrentUnit(
        &m_owner, QStringLiteral("counting.3net"), &m_netName, def, ISystemRegister::CurrentRegister, false,
        false, true, &m_netName, CategorySort::protocol, &m_category, m_system);
    m_partsItem = new PrintItemNameValueUnit(&m_owner, QStringLiteral("counting.4parts"), &m_partsTexts,
                                             QString(), CategorySort::protocol, def);
    m_items.append({m_countItem, m_pieceItem, net, m_partsItem});
    translate();
}

void CountingProtocol::addToPool()
{
    for (IPrintableItem* const item : qAsConst(m_items)) {
        m_system->GetProtocolPool()->AddItem(item);
    }
}

void CountingProtocol::removeFromPool()
{
    for (IPrintableItem* const item : qAsConst(m_items)) {
        m_system->GetProtocolPool()->RemoveItem(item);
    }
}

void CountingProtocol::translate()
{
    m_category = tr("Counting");
    m_netName = tr("Net");
    const auto set = [this](PrintItemNameValueUnitData& texts, const QString& name) {
        texts.setCategory(m_category);
        texts.setName(name);
        texts.setDescription(name);
    };
    set(m_countTexts, tr("Count"));
    set(m_pieceTexts, tr("Piece weight"));
    set(m_partsTexts, tr("Reference"));
}

void CountingProtocol::setValues(const MesswertData& count, const MesswertData& piece, int parts)
{
    m_countItem->setValue(count);
    m_pieceItem->setValue(piece);
    m_partsItem->setValue(parts > 0 ? QString::number(parts) : QStringLiteral("-"));
    m_partsItem->setUnit(parts > 0 ? CountingViewModel::pieceUnit() : QString());
}
