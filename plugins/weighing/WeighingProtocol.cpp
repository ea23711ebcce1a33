// SPDX-License-Identifier: BSD-3-Clause
#include "WeighingProtocol.h"

#include <CategorySort.h>
#include <IProtocolPool.h>
#include <ISystem.h>
#include <ISystemRegister.h>
#include <MesswertData.h>
#include <PrintItemCurrentMeasurement.h>
#include <PrintItemDescriptionText.h>
#include <PrintItemNameValueUnit.h>
#include <PrintItemRegValue.h>
#include <PrintItemRegValueCurrentUnit.h>
#include <TriggerNoCheck.h>

using namespace Brimvale;

namespace
{

// Every item can stand in the record of one weighing and in those of a series.
const ProtocolTypes Types = ProtocolType::Measurement | ProtocolType::Series;
const ProtocolDef Head{Types, ProtocolArea::Header};
const ProtocolDef Values{Types, ProtocolArea::Body};
const ProtocolDef Foot{Types, ProtocolArea::Footer};
const ProtocolDef Answer{Types, ProtocolArea::Sics};

QString uid(const char* name)
{
    return QStringLiteral("weighing.") + QLatin1String(name);
}

} // namespace

WeighingProtocol::WeighingProtocol(ISystem* system, MesswertData* current)
    : m_system(system)
    , m_emptyLine(QStringLiteral("______________"))
{
    translate();

    // Within a category items are printed in the order of their uids, hence the numbers in them.
    m_items.append(new PrintItemDescriptionText(&m_owner, uid("1title"), &m_titleName, Head, &m_titleName,
                                                &m_title, false, CategorySort::plugin, &m_category));
    m_items.append(new PrintItemDescriptionText(&m_owner, uid("2place"), &m_placeName, Head, &m_placeName,
                                                &m_place, true, CategorySort::plugin, &m_category));

    const auto addRegister = [&](const char* name, QString* text, int registerNumber) {
        m_items.append(new PrintItemRegValueCurrentUnit(&m_owner, uid(name), text, Values, registerNumber,
                                                        false, false, true, text, CategorySort::measurement,
                                                        &m_measurementCategory, m_system));
    };
    m_items.append(
        new PrintItemCurrentMeasurement(&m_owner, uid("1current"), current, Values, true, m_system));
    addRegister("2gross", &m_grossName, ISystemRegister::GrossRegister);
    addRegister("3tare", &m_tareName, ISystemRegister::TareRegister);
    addRegister("4net", &m_netName, ISystemRegister::CurrentRegister);

    m_numberItem = new PrintItemNameValueUnit(&m_owner, uid("5number"), &m_numberTexts, QStringLiteral("0"),
                                              CategorySort::protocol, Values);
    m_previousItem = new PrintItemNameValueUnit(&m_owner, uid("6previous"), &m_previousTexts, MesswertData(),
                                                CategorySort::protocol, Values);
    m_minimumItem = new PrintItemNameValueUnit(&m_owner, uid("7minimum"), &m_minimumTexts,
                                               QStringLiteral("0"), CategorySort::protocol, Values);
    m_minimumItem->setUnit(QStringLiteral("g"));
    m_items.append({m_numberItem, m_previousItem, m_minimumItem});
    m_items.append(new PrintItemRegValue(
        &m_owner, uid("8capacity"), &m_capacityName, Values, ISystemRegister::UpperLimitRegister, 0,
        &m_digits, true, &m_capacityName, CategorySort::device, &m_category, m_system->GetSystemRegister()));

    m_items.append(new PrintItemDescriptionText(&m_owner, uid("9signature"), &m_signatureName, Foot,
                                                &m_signatureName, &m_emptyLine, true, CategorySort::general,
                                                &m_generalCategory));

    // Alone and without a name it is what a SICS answer is made of.
    m_items.append(new PrintItemCurrentMeasurement(&m_owner, uid("sics"), current, Answer, false, m_system));

    m_tareTrigger = new TriggerNoCheck(&m_owner, uid("tare"), &m_tareTriggerName,
                                       ProtocolArea::Header | ProtocolArea::Body | ProtocolArea::Footer,
                                       ApplicationType::Weighing);
}

WeighingProtocol::~WeighingProtocol() = default;

void WeighingProtocol::addToPool()
{
    IProtocolPool* const pool = m_system->GetProtocolPool();
    for (IPrintableItem* const item : qAsConst(m_items)) {
        pool->AddItem(item);
    }
    pool->AddTrigger(m_tareTrigger);
}

void WeighingProtocol::removeFromPool()
{
    IProtocolPool* const pool = m_system->GetProtocolPool();
    pool->RemoveTrigger(m_tareTrigger);
    for (IPrintableItem* const item : qAsConst(m_items)) {
        pool->RemoveItem(item);
    }
}

void WeighingProtocol::translate()
{
    m_category = tr("Weighing");
    m_titleName = tr("Title");
    m_title = tr("Weighing record");
    m_placeName = tr("Place");
    m_grossName = tr("Gross");
    m_tareName = tr("Tare weight");
    m_netName = tr("Net");
    m_capacityName = tr("Capacity");
    m_digits = tr("d");
    m_measurementCategory = tr("Measurement");
    m_signatureName = tr("Signature");
    m_generalCategory = tr("General");
    m_tareTriggerName = tr("Taring");

    const auto set = [this](PrintItemNameValueUnitData& texts, const QString& name) {
        texts.setCategory(m_category);
        texts.setName(name);
        texts.setDescription(name);
    };
    set(m_numberTexts, tr("Weighing no."));
    set(m_previousTexts, tr("Previous weighing"));
    set(m_minimumTexts, tr("Minimum weight"));
}

void WeighingProtocol::setWeighing(int number, const MesswertData& previous)
{
    m_numberItem->setValue(QString::number(number));
    m_previousItem->setValue(previous);
}

void WeighingProtocol::setSettings(const QString& place, double minimumWeight)
{
    m_place = place.isEmpty() ? m_emptyLine : place; // to be filled in by hand
    m_minimumItem->setValue(QString::number(minimumWeight));
}

void WeighingProtocol::tareTaken()
{
    m_tareTrigger->doTrigger();
}
