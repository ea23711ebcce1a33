// SPDX-License-Identifier: BSD-3-Clause
#include "host/TransferLog.h"

#include "host/TransferRecord.h"

#include <cstdio>

namespace Brimvale
{
namespace Terminal
{

namespace
{

QString field(QString text)
{
    static const QString special = QStringLiteral(",\"\r\n");
    for (const QChar character : special) {
        if (text.contains(character)) {
            text.replace(QLatin1Char('"'), QLatin1String("\"\""));
            return QLatin1Char('"') + text + QLatin1Char('"');
        }
    }
    return text;
}

} // namespace

TransferLog::TransferLog(const QString& file)
{
    bool open = false;
    if (file == QLatin1String("-")) {
        m_file.setFileName(tr("standard output"));
        open = m_file.open(stdout, QIODevice::WriteOnly);
    } else {
        m_file.setFileName(file);
        open = m_file.open(QIODevice::WriteOnly | QIODevice::Append);
    }
    if (!open) {
        fail();
        return;
    }
    if (m_file.isSequential() || m_file.size() == 0) {
        writeLine({QStringLiteral("time"), QStringLiteral("value"), QStringLiteral("unit"),
                   QStringLiteral("state"), QStringLiteral("kind"), QStringLiteral("gross"),
                   QStringLiteral("tare"), QStringLiteral("error")});
    }
}

TransferLog::~TransferLog() = default;

bool TransferLog::isActive() const
{
    return m_file.isOpen();
}

bool TransferLog::write(const TransferRecord& record)
{
    const MesswertData& current = record.current;
    return writeLine({record.time.toUTC().toString(Qt::ISODateWithMs), current.messwert, current.unit,
                      current.isStable ? QStringLiteral("stable") : QStringLiteral("unstable"),
                      current.net ? QStringLiteral("net") : QStringLiteral("gross"), record.gross.messwert,
                      record.tare.messwert, current.errorText});
}

bool TransferLog::writeLine(const QStringList& fields)
{
    QStringList quoted;
    for (const QString& text : fields) {
        quoted.append(field(text));
    }
    const QByteArray line = quoted.join(QLatin1Char(',')).toUtf8() + '\n';
    if (!isActive() || m_file.write(line) != line.size() || !m_file.flush()) {
        fail();
        return false;
    }
    return true;
}

void TransferLog::fail()
{
    m_error =
        tr("The transfer log %1 cannot be written: %2. Check the path, its permissions and the free space.")
            .arg(m_file.fileName(), m_file.errorString());
    m_file.close();
}

} // namespace Terminal
} // namespace Brimvale
