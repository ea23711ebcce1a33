// SPDX-License-Identifier: BSD-3-Clause
#ifndef WEIGHINGPROTOCOL_H
#define WEIGHINGPROTOCOL_H

#include <QCoreApplication>
#include <QList>
#include <QObject>
#include <QString>

#include <PrintItemNameValueUnitData.h>
#include <ProtocolDef.h>

namespace Brimvale
{
class IPrintableItem;
class ISystem;
class MesswertData;
class PrintItemNameValueUnit;
class TriggerNoCheck;
} // namespace Brimvale

/// What the application offers for print-outs: a head, the weights, a line for the signature, and a trigger.
///
/// The texts of the items live here and are read when something is printed, so a change of language needs translate()
/// and no new items. Date, time, operator and serial number are not made here: the terminal offers them itself.
class WeighingProtocol
{
    Q_DECLARE_TR_FUNCTIONS(WeighingProtocol)

public:
    /// @param current the present reading, which the plug-in keeps up to date; it must outlive the object.
    WeighingProtocol(Brimvale::ISystem* system, Brimvale::MesswertData* current);
    ~WeighingProtocol();
    Q_DISABLE_COPY(WeighingProtocol)

    void addToPool();
    void removeFromPool();

    /// Sets all texts in the present language.
    void translate();

    /// The next transferred weighing: its number, and the one before it.
    void setWeighing(int number, const Brimvale::MesswertData& previous);
    void setSettings(const QString& place, double minimumWeight);

    /// The scale has been tared: fires the trigger.
    void tareTaken();

private:
    Brimvale::ISystem* const m_system;

    // Read by the items through pointers, so they are made before them and go after them.
    QString m_category;
    QString m_titleName;
    QString m_title;
    QString m_placeName;
    QString m_place;
    QString m_grossName;
    QString m_tareName;
    QString m_netName;
    QString m_capacityName;
    QString m_digits;
    QString m_measurementCategory;
    QString m_signatureName;
    QString m_emptyLine;
    QString m_generalCategory;
    QString m_tareTriggerName;
    Brimvale::PrintItemNameValueUnitData m_numberTexts{nullptr};
    Brimvale::PrintItemNameValueUnitData m_previousTexts{nullptr};
    Brimvale::PrintItemNameValueUnitData m_minimumTexts{nullptr};

    QObject m_owner; ///< Of the items and the trigger.
    QList<Brimvale::IPrintableItem*> m_items;
    Brimvale::PrintItemNameValueUnit* m_numberItem = nullptr;
    Brimvale::PrintItemNameValueUnit* m_previousItem = nullptr;
    Brimvale::PrintItemNameValueUnit* m_minimumItem = nullptr;
    Brimvale::TriggerNoCheck* m_tareTrigger = nullptr;
};

#endif
