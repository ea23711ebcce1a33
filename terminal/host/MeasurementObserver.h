// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_MEASUREMENTOBSERVER_H
#define BRIMVALE_MEASUREMENTOBSERVER_H

#include "IMeasurementObserver.h"

#include <QObject>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// Keeps the last transferred measurement and what the scale weighed at that time.
class MeasurementObserver : public QObject, public IMeasurementObserver
{
    Q_OBJECT
    Q_DISABLE_COPY(MeasurementObserver)

public:
    explicit MeasurementObserver(HostCallLog& calls, QObject* parent = nullptr);

    // IMeasurementObserver
    void OnMeasurementTransferred(MesswertData current, MesswertData previous) override;
    void OnSystemRegistersRead(double register72, double register73) override;

    const MesswertData& current() const { return m_current; }
    const MesswertData& previous() const { return m_previous; }
    /// In digits; not a number before the first transfer and when there was no weight.
    double grossDigits() const { return m_grossDigits; }
    double tareDigits() const { return m_tareDigits; }

signals:
    /// The registers were told, which is the last that a plug-in tells of a transfer.
    void registersRead();

private:
    HostCallLog& m_calls;
    MesswertData m_current;
    MesswertData m_previous;
    double m_grossDigits;
    double m_tareDigits;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_MEASUREMENTOBSERVER_H
