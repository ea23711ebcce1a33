// SPDX-License-Identifier: BSD-3-Clause
#ifndef SERIESPLOT_H
#define SERIESPLOT_H

#include "WeighingSeries.h"

#include <QVariantList>

/// The newest weighings of a series as a plot. Heights are fractions of the plot, 0 at its top and 1 at its bottom.
struct SeriesPlot
{
    /// How many weighings are shown.
    static constexpr int MaximumPoints = 60;

    explicit SeriesPlot(const WeighingSeries& series);
    SeriesPlot() = default;

    QVariantList points; ///< heights (double), from the oldest to the newest
    QVariantList
        ticks; ///< of the value axis, from the lowest: maps with "height" (double) and "text" (QString)
    double mean = -1.0;       ///< of the whole series; negative: there is none
    double bandTop = -1.0;    ///< mean plus standard deviation; negative: there is none
    double bandBottom = -1.0; ///< mean minus standard deviation; negative: there is none
    int firstNumber = 0;      ///< of the oldest weighing shown, from 1; 0: there is none
    int lastNumber = 0;       ///< of the newest
};

#endif
