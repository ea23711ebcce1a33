// SPDX-License-Identifier: BSD-3-Clause
#ifndef SERIESEXPORT_H
#define SERIESEXPORT_H

#include "WeighingSeries.h"

#include <QCoreApplication>
#include <QString>

/// Writes a series as files that other programs read. Each export makes two new files, numbered in a row:
///
/// - `series-1.csv`, the weighings: number, time (UTC), value, unit; comma-separated, with a decimal point, in UTF-8;
/// - `series-1.txt`, the figures that exist, one a line: `name="mean"` and the text form of the `StatisticsValue`, which
///   reads the line back as it stands.
class SeriesExport
{
    Q_DECLARE_TR_FUNCTIONS(SeriesExport)

public:
    static QString csv(const WeighingSeries& series);
    static QString figures(const WeighingSeries& series);

    /// Writes both files into `folder`, which is made if it is missing. A file appears when it is complete. Returns
    /// false, with `error()`, when one could not be written; none is left then.
    bool write(const WeighingSeries& series, const QString& folder);

    /// The .csv file of the last export.
    QString fileName() const { return m_fileName; }
    QString error() const { return m_error; }

private:
    bool writeFile(const QString& fileName, const QString& text);

    QString m_fileName;
    QString m_error;
};

#endif
