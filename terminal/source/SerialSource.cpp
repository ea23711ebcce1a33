// SPDX-License-Identifier: BSD-3-Clause
#include "source/SerialSource.h"

#include <QPointer>

namespace Brimvale
{
namespace Terminal
{

SerialSource::SerialSource(Clock& clock, const QString& device, int baud, const LineSourceSettings& settings,
                           QObject* parent)
    : LineSource(clock, settings, parent)
    , m_device(device)
    , m_baud(baud)
{
    m_port.setPortName(device);
    m_port.setBaudRate(baud);
    connect(&m_port, &QSerialPort::readyRead, this, [this] { received(m_port.readAll()); });
    connect(&m_port, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
        // openConnection() reports what goes wrong before the port is open.
        if (error == QSerialPort::NoError || error == QSerialPort::TimeoutError || !m_port.isOpen())
            return;
        const QString detail = m_port.errorString();
        const QPointer<SerialSource> self(this);
        received(m_port.readAll());
        if (self)
            connectionLost(detail);
    });
}

SerialSource::~SerialSource()
{
    m_port.disconnect(this);
}

QString SerialSource::description() const
{
    return tr("Scale at %1, %2 baud").arg(m_device, QString::number(m_baud));
}

void SerialSource::openConnection()
{
    if (m_port.open(QIODevice::ReadWrite))
        connectionOpened();
    else
        connectionLost(m_port.errorString());
}

void SerialSource::closeConnection()
{
    if (m_port.isOpen())
        m_port.close();
}

void SerialSource::send(const QByteArray& bytes)
{
    m_port.write(bytes);
}

} // namespace Terminal
} // namespace Brimvale
