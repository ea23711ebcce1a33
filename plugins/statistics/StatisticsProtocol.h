// SPDX-License-Identifier: BSD-3-Clause
#ifndef STATISTICSPROTOCOL_H
#define STATISTICSPROTOCOL_H

#include "WeighingSeries.h"

#include <QCoreApplication>
#include <QObject>
#include <QString>

#include <PrintItemNameValueUnitData.h>

namespace Brimvale
{
class ISystem;
class PrintItemNameValueUnit;
} // namespace Brimvale

/// What the application offers for print-outs: its five figures. A figure that does not exist is printed as a dash.
class StatisticsProtocol
{
    Q_DECLARE_TR_FUNCTIONS(StatisticsProtocol)
    Q_DISABLE_COPY(StatisticsProtocol)

public:
    explicit StatisticsProtocol(Brimvale::ISystem* system);

    void addToPool();
    void removeFromPool();

    /// Sets the names in the present language.
    void translate();

    void setFigures(const SeriesFigures& figures);

private:
    static constexpr int FigureCount = 5;

    Brimvale::ISystem* const m_system;
    // The items read their texts through pointers, so the texts are made before them and go after them.
    Brimvale::PrintItemNameValueUnitData m_texts[FigureCount] = {
        Brimvale::PrintItemNameValueUnitData(nullptr), Brimvale::PrintItemNameValueUnitData(nullptr),
        Brimvale::PrintItemNameValueUnitData(nullptr), Brimvale::PrintItemNameValueUnitData(nullptr),
        Brimvale::PrintItemNameValueUnitData(nullptr)};
    QObject m_owner;
    Brimvale::PrintItemNameValueUnit* m_items[FigureCount];
};

#endif
