// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SERIALSOURCE_H
#define BRIMVALE_SERIALSOURCE_H

#include "source/LineSource.h"

#include <QSerialPort>

#include <memory>

namespace Brimvale
{
namespace Terminal
{

/// A scale at a serial port: 8 data bits, no parity, 1 stop bit, no flow control.
class SerialSource : public LineSource
{
    Q_OBJECT

public:
    static constexpr int DefaultBaud = 9600;

    /// Why @p device can never be a serial port: it is there, but something else. Empty for a port, and for a device
    /// that is not there: an adapter may be plugged in later.
    static QString faultOf(const QString& device);

    /// @param clock  stamps the readings; not owned, must outlive the source.
    /// @param device the device file ("/dev/ttyUSB0") or the port's name ("ttyUSB0").
    SerialSource(Clock& clock, const QString& device, int baud = DefaultBaud,
                 const LineSourceSettings& settings = {}, QObject* parent = nullptr);
    ~SerialSource() override;

    QString description() const override;

protected:
    void openConnection() override;
    void closeConnection() override;
    void send(const QByteArray& bytes) override;

private:
    const QString m_device;
    const int m_baud;
    std::unique_ptr<QSerialPort> m_port; ///< Of the present connection.
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SERIALSOURCE_H
