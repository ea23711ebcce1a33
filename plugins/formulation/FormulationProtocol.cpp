// SPDX-License-Identifier: BSD-3-Clause
#include "FormulationProtocol.h"

#include <ApplicationType.h>
#include <CategorySort.h>
#include <IFormat.h>
#include <IPrinter.h>
#include <IProtocolPool.h>
#include <ISystem.h>
#include <PrintItemDescriptionText.h>
#include <PrintItemNameValueUnit.h>
#include <TriggerNoCheck.h>

using namespace Brimvale;

namespace
{

// The record of a batch is a single one, and that of a guided procedure.
const ProtocolTypes Types = ProtocolType::Measurement | ProtocolType::Workflow;
const ProtocolDef Head{Types, ProtocolArea::Header};
const ProtocolDef Values{Types, ProtocolArea::Body};
const ProtocolDef Foot{Types, ProtocolArea::Footer};

QString uid(const char* name)
{
    return QStringLiteral("formulation.") + QLatin1String(name);
}

} // namespace

ComponentsItem::ComponentsItem(QObject* parent, const QString& uid, ProtocolDef def)
    : PrintableItemBase(parent)
{
    setUid(uid);
    setRank(CategorySort::plugin);
    setEnable(def.enable);
    setProtocolArea(def.area);
}

QString ComponentsItem::getName() const
{
    return tr("Components");
}

QString ComponentsItem::getCategory() const
{
    return tr("Formulation");
}

bool ComponentsItem::Print(IPrinter* printer, IFormat* format)
{
    const int layout = printer->GetPrintLayout();
    const QString unit = QStringLiteral("g");
    const auto line = [&](const QString& name, double weight, bool sign) {
        return format->FormatNameValueUnit(layout, name, weightText(weight, m_decimals, sign), unit);
    };
    // One block, so that a printer that fails leaves no half of it.
    QString block;
    for (int index = 0; index < m_batch.recipe.components.size(); ++index) {
        const Component& component = m_batch.recipe.components.at(index);
        block += format->FormatText(layout, QStringLiteral("%1 %2").arg(index + 1).arg(component.name));
        block += line(tr("Target"), component.target, false);
        if (index >= m_batch.weighed.size()) {
            block += format->FormatText(layout, tr("Not weighed in"));
            continue;
        }
        block += line(tr("Actual"), m_batch.weighed.at(index), false);
        block += line(tr("Deviation"), m_batch.deviation(index), true);
        if (!m_batch.isWithinTolerance(index, m_decimals)) {
            block += format->FormatText(layout, tr("Out of tolerance"));
        }
    }
    return printer->PrintLine(block);
}

void ComponentsItem::setBatch(const Batch& batch, int decimals)
{
    m_batch = batch;
    m_decimals = decimals;
}

FormulationProtocol::FormulationProtocol(ISystem* system)
    : m_system(system)
    , m_signatureLine(QStringLiteral("______________"))
{
    // Within a category items are printed in the order of their uids, hence the numbers in them.
    const auto addText = [this](const char* name, QString* title, QString* text, bool withTitle) {
        m_items.append(new PrintItemDescriptionText(&m_owner, uid(name), title, Head, title, text, withTitle,
                                                    CategorySort::plugin, &m_category));
    };
    addText("1title", &m_titleName, &m_title, false);
    addText("2recipe", &m_recipeName, &m_recipe, true);
    addText("3batch", &m_batchName, &m_number, true);
    addText("4state", &m_stateName, &m_state, true);
    m_componentsItem = new ComponentsItem(&m_owner, uid("5components"), Values);
    m_totalItem = new PrintItemNameValueUnit(&m_owner, uid("6total"), &m_totalTexts, QString(),
                                             CategorySort::plugin, Values);
    m_deviationItem = new PrintItemNameValueUnit(&m_owner, uid("7deviation"), &m_deviationTexts, QString(),
                                                 CategorySort::plugin, Values);
    m_items.append({m_componentsItem, m_totalItem, m_deviationItem});
    m_items.append(new PrintItemDescriptionText(&m_owner, uid("8signature"), &m_signatureName, Foot,
                                                &m_signatureName, &m_signatureLine, true,
                                                CategorySort::general, &m_generalCategory));
    m_trigger = new TriggerNoCheck(&m_owner, uid("completed"), &m_triggerName,
                                   ProtocolArea::Header | ProtocolArea::Body | ProtocolArea::Footer,
                                   ApplicationType::Any);
    translate();
}

FormulationProtocol::~FormulationProtocol() = default;

void FormulationProtocol::addToPool()
{
    IProtocolPool* const pool = m_system->GetProtocolPool();
    for (IPrintableItem* const item : qAsConst(m_items)) {
        pool->AddItem(item);
    }
    pool->AddTrigger(m_trigger);
}

void FormulationProtocol::removeFromPool()
{
    IProtocolPool* const pool = m_system->GetProtocolPool();
    pool->RemoveTrigger(m_trigger);
    for (IPrintableItem* const item : qAsConst(m_items)) {
        pool->RemoveItem(item);
    }
}

void FormulationProtocol::translate()
{
    m_category = tr("Formulation");
    m_titleName = tr("Title");
    m_title = tr("Formulation record");
    m_recipeName = tr("Recipe");
    m_batchName = tr("Batch");
    m_stateName = tr("State");
    m_signatureName = tr("Signature");
    m_generalCategory = tr("General");
    m_triggerName = tr("Batch complete");
    const auto set = [this](PrintItemNameValueUnitData& texts, const QString& name) {
        texts.setCategory(m_category);
        texts.setName(name);
        texts.setDescription(name);
    };
    set(m_totalTexts, tr("Total"));
    set(m_deviationTexts, tr("Total deviation"));
    setBatch(m_batch, m_decimals);
}

void FormulationProtocol::setBatch(const Batch& batch, int decimals)
{
    m_batch = batch;
    m_decimals = decimals;
    const bool isThere = batch.number > 0;
    m_recipe = isThere ? batch.recipe.name : QStringLiteral("-");
    m_number = isThere ? batch.numberText() : QStringLiteral("-");
    m_state = !isThere                         ? QStringLiteral("-")
              : batch.state == Batch::Complete ? tr("complete")
              : batch.state == Batch::Aborted  ? tr("aborted")
                                               : tr("unfinished");
    m_componentsItem->setBatch(batch, decimals);
    m_totalItem->setValue(isThere ? weightText(batch.total(), decimals) : QStringLiteral("-"));
    m_totalItem->setUnit(isThere ? QStringLiteral("g") : QString());
    // Of what was weighed in: a batch that was aborted is not short of all that it was to become.
    double deviation = 0.0;
    for (int index = 0; index < batch.weighed.size(); ++index) {
        deviation += batch.deviation(index);
    }
    m_deviationItem->setValue(isThere ? weightText(deviation, decimals, true) : QStringLiteral("-"));
    m_deviationItem->setUnit(isThere ? QStringLiteral("g") : QString());
}

void FormulationProtocol::batchCompleted()
{
    m_trigger->doTrigger();
}
