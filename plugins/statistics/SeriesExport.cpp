// SPDX-License-Identifier: BSD-3-Clause
#include "SeriesExport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPair>

#include <FileUtils.h>

using namespace Brimvale;

namespace
{

QString quoted(QString text)
{
    if (text.contains(QLatin1Char(',')) || text.contains(QLatin1Char('"'))
        || text.contains(QLatin1Char('\n'))) {
        text.replace(QLatin1Char('"'), QLatin1String("\"\""));
        return QLatin1Char('"') + text + QLatin1Char('"');
    }
    return text;
}

} // namespace

QString SeriesExport::csv(const WeighingSeries& series)
{
    QString text = QStringLiteral("number,time,value,unit\n");
    int number = 0;
    for (const StatisticsValue& weighing : series.weighings()) {
        ++number;
        text += QString::number(number) + QLatin1Char(',')
                + weighing.timestamp.toUTC().toString(Qt::ISODateWithMs) + QLatin1Char(',')
                + WeighingSeries::text(weighing) + QLatin1Char(',') + quoted(weighing.unit)
                + QLatin1Char('\n');
    }
    return text;
}

QString SeriesExport::figures(const WeighingSeries& series)
{
    const SeriesFigures figures = series.figures();
    QString text;
    for (const auto& [name, figure] :
         {qMakePair(QLatin1String("count"), figures.count), qMakePair(QLatin1String("mean"), figures.mean),
          qMakePair(QLatin1String("standard deviation"), figures.deviation),
          qMakePair(QLatin1String("minimum"), figures.minimum),
          qMakePair(QLatin1String("maximum"), figures.maximum)}) {
        if (figure.valid) {
            text += QStringLiteral("name=\"") + name + QStringLiteral("\" ") + figure.ToString()
                    + QLatin1Char('\n');
        }
    }
    return text;
}

bool SeriesExport::write(const WeighingSeries& series, const QString& folder)
{
    m_error.clear();
    m_fileName.clear();
    if (!QDir().mkpath(folder)) {
        m_error = tr("The folder %1 cannot be made.").arg(folder);
        return false;
    }
    QString base;
    for (int i = 1; base.isEmpty() || FileUtils().fileExists(base + QStringLiteral(".csv"))
                    || FileUtils().fileExists(base + QStringLiteral(".txt"));
         ++i) {
        base = folder + QStringLiteral("/series-%1").arg(i);
    }
    const QString csvFile = base + QStringLiteral(".csv");
    if (!writeFile(csvFile, csv(series))) {
        return false;
    }
    if (!writeFile(base + QStringLiteral(".txt"), figures(series))) {
        QFile::remove(csvFile);
        return false;
    }
    m_fileName = csvFile;
    return true;
}

bool SeriesExport::writeFile(const QString& fileName, const QString& text)
{
    // Written beside it and renamed: the file appears under its name when it is whole and on the medium.
    const QString part = fileName + QStringLiteral(".part");
    QFile::remove(part);
    const bool written = FileUtils().WriteFile(part, text, QByteArray(), false)
                         && QFileInfo(part).size() == text.toUtf8().size() // a full medium takes a part
                         && QFile::rename(part, fileName);
    if (!written) {
        QFile::remove(part);
        m_error =
            tr("The file %1 cannot be written. Check the free space and the permissions.").arg(fileName);
    }
    return written;
}
