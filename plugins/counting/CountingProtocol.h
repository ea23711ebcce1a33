// SPDX-License-Identifier: BSD-3-Clause
#ifndef COUNTINGPROTOCOL_H
#define COUNTINGPROTOCOL_H

#include <QCoreApplication>
#include <QList>
#include <QObject>
#include <QString>

#include <PrintItemNameValueUnitData.h>

namespace Brimvale
{
class IPrintableItem;
class ISystem;
class MesswertData;
class PrintItemNameValueUnit;
} // namespace Brimvale

/// What the application offers for print-outs: count, piece weight, net weight, and the parts of the reference.
class CountingProtocol
{
    Q_DECLARE_TR_FUNCTIONS(CountingProtocol)
    Q_DISABLE_COPY(CountingProtocol)

public:
    explicit CountingProtocol(Brimvale::ISystem* system);

    void addToPool();
    void removeFromPool();

    /// Sets the names in the present language.
    void translate();

    /// The present count and piece weight, and the parts of the reference; 0 of them are printed as a dash.
    void setValues(const Brimvale::MesswertData& count, const Brimvale::MesswertData& piece, int parts);

private:
    Brimvale::ISystem* const m_system;
    // The items read their texts through pointers, so the texts are made before them and go after them.
    QString m_category;
    QString m_netName;
    Brimvale::PrintItemNameValueUnitData m_countTexts{nullptr};
    Brimvale::PrintItemNameValueUnitData m_pieceTexts{nullptr};
    Brimvale::PrintItemNameValueUnitData m_partsTexts{nullptr};

    QObject m_owner; ///< Of the items.
    Brimvale::PrintItemNameValueUnit* m_countItem;
    Brimvale::PrintItemNameValueUnit* m_pieceItem;
    Brimvale::PrintItemNameValueUnit* m_partsItem;
    QList<Brimvale::IPrintableItem*> m_items;
};

#endif
