// SPDX-License-Identifier: BSD-3-Clause
#include "source/SerialSource.h"

#include <QFile>

#include <sys/stat.h>

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
}

SerialSource::~SerialSource() = default;

QString SerialSource::faultOf(const QString& device)
{
    // A name without a path is one of /dev, as for QSerialPort.
    const bool isPath = device.startsWith(QLatin1Char('/')) || device.startsWith(QLatin1String("./"))
                        || device.startsWith(QLatin1String("../"));
    struct stat status;
    if (::stat(QFile::encodeName(isPath ? device : QStringLiteral("/dev/") + device).constData(), &status)
            != 0
        || S_ISCHR(status.st_mode))
        return QString();
    return S_ISDIR(status.st_mode) ? tr("this is a folder and no serial port") : tr("this is no serial port");
}

QString SerialSource::description() const
{
    return tr("Scale at %1, %2 baud").arg(m_device, QString::number(m_baud));
}

void SerialSource::openConnection()
{
    m_port = std::make_unique<QSerialPort>(m_device);
    QSerialPort* const port = m_port.get();
    port->setBaudRate(m_baud);
    if (!port->open(QIODevice::ReadWrite)) {
        connectionLost(port->errorString());
        return;
    }
    // Queued, so that whoever is told may end the connection or delete the source from inside.
    connect(
        port, &QSerialPort::readyRead, port, [this] { received(m_port->readAll()); }, Qt::QueuedConnection);
    connect(
        port, &QSerialPort::errorOccurred, port,
        [this](QSerialPort::SerialPortError error) {
            if (error != QSerialPort::NoError && error != QSerialPort::TimeoutError)
                connectionLost(m_port->errorString());
        },
        Qt::QueuedConnection);
    connectionOpened();
}

void SerialSource::closeConnection()
{
    m_port.reset();
}

void SerialSource::send(const QByteArray& bytes)
{
    m_port->write(bytes);
}

} // namespace Terminal
} // namespace Brimvale
