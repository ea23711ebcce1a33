// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SOURCERECORDER_H
#define BRIMVALE_SOURCERECORDER_H

#include "source/WeightSource.h"

#include <QObject>
#include <QStringList>
#include <QVector>

namespace Brimvale
{
namespace Terminal
{

/// Records what a weight source sends, in order.
class SourceRecorder : public QObject
{
public:
    explicit SourceRecorder(WeightSource& source)
    {
        connect(&source, &WeightSource::reading, this, [this](const Reading& reading) {
            readings.append(reading);
            events.append(text(reading));
        });
        connect(&source, &WeightSource::finished, this,
                [this] { events.append(QStringLiteral("finished")); });
        connect(&source, &WeightSource::connectionChanged, this,
                [this](bool connected, const QString& detail) {
                    connections.append(connected);
                    connectionDetails.append(detail);
                    events.append(connected ? QStringLiteral("connected") : QStringLiteral("disconnected"));
                });
        connect(&source, &WeightSource::readabilityChanged, this,
                [this](double grams) { events.append(QStringLiteral("readability %1").arg(grams)); });
    }

    /// A reading as one short text: its weight and mark, or its fault.
    static QString text(const Reading& reading)
    {
        switch (reading.status) {
        case Reading::Status::Valid:
            break;
        case Reading::Status::Overload:
            return QStringLiteral("overload");
        case Reading::Status::Underload:
            return QStringLiteral("underload");
        case Reading::Status::Unreadable:
            return QStringLiteral("unreadable");
        case Reading::Status::Disconnected:
            return QStringLiteral("no data");
        }
        QString text = QString::number(reading.grams, 'g', 12);
        if (reading.stableMark)
            text += *reading.stableMark ? QStringLiteral(" S") : QStringLiteral(" D");
        return text;
    }

    int count(Reading::Status status) const
    {
        int count = 0;
        for (const Reading& reading : readings)
            count += reading.status == status ? 1 : 0;
        return count;
    }

    QVector<Reading> readings;
    QVector<bool> connections;
    QStringList connectionDetails;
    QStringList events;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SOURCERECORDER_H
