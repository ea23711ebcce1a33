// SPDX-License-Identifier: BSD-3-Clause
#ifndef FORMULATIONPROTOCOL_H
#define FORMULATIONPROTOCOL_H

#include "Batch.h"

#include <QCoreApplication>
#include <QList>
#include <QObject>
#include <QString>

#include <PrintItemNameValueUnitData.h>
#include <PrintableItemBase.h>
#include <ProtocolDef.h>

namespace Brimvale
{
class IPrintableItem;
class ISystem;
class PrintItemNameValueUnit;
class TriggerNoCheck;
} // namespace Brimvale

/// Prints the components of a batch, one after the other: name, target, what was weighed in, deviation. A component that
/// was not reached has no weight, one out of its tolerance says so.
class ComponentsItem : public Brimvale::PrintableItemBase
{
    Q_OBJECT

public:
    ComponentsItem(QObject* parent, const QString& uid, Brimvale::ProtocolDef def);

    QString getName() const override;
    QString getCategory() const override;
    bool Print(Brimvale::IPrinter* printer, Brimvale::IFormat* format) override;

    void setBatch(const Batch& batch, int decimals);

private:
    Batch m_batch;
    int m_decimals = 0;
};

/// What the application offers for print-outs: the batch that was finished or aborted last, and a trigger at its end.
///
/// The texts of the items live here and are read when something is printed, so a change of language needs translate()
/// and no new items. Date, time, operator and serial number are not made here: the terminal offers them itself.
class FormulationProtocol
{
    Q_DECLARE_TR_FUNCTIONS(FormulationProtocol)

public:
    explicit FormulationProtocol(Brimvale::ISystem* system);
    ~FormulationProtocol();
    Q_DISABLE_COPY(FormulationProtocol)

    void addToPool();
    void removeFromPool();

    /// Sets all texts in the present language.
    void translate();

    /// The batch to print from now on.
    void setBatch(const Batch& batch, int decimals);

    /// A batch is complete: fires the trigger.
    void batchCompleted();

private:
    Brimvale::ISystem* const m_system;
    Batch m_batch;
    int m_decimals = 0;

    // Read by the items through pointers, so they are made before them and go after them.
    QString m_category;
    QString m_titleName;
    QString m_title;
    QString m_recipeName;
    QString m_recipe;
    QString m_batchName;
    QString m_number;
    QString m_stateName;
    QString m_state;
    QString m_signatureName;
    QString m_signatureLine;
    QString m_generalCategory;
    QString m_triggerName;
    Brimvale::PrintItemNameValueUnitData m_totalTexts{nullptr};
    Brimvale::PrintItemNameValueUnitData m_deviationTexts{nullptr};

    QObject m_owner; ///< Of the items and the trigger.
    QList<Brimvale::IPrintableItem*> m_items;
    ComponentsItem* m_componentsItem = nullptr;
    Brimvale::PrintItemNameValueUnit* m_totalItem = nullptr;
    Brimvale::PrintItemNameValueUnit* m_deviationItem = nullptr;
    Brimvale::TriggerNoCheck* m_trigger = nullptr;
};

#endif
