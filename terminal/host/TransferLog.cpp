// SPDX-License-Identifier: BSD-3-Clause
#include "host/TransferLog.h"

#include "QsLog.h"
#include "host/TransferRecord.h"

#include <QFile>

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

QByteArray lineOf(const QStringList& fields)
{
    QStringList quoted;
    for (const QString& text : fields) {
        quoted.append(field(text));
    }
    return quoted.join(QLatin1Char(',')).toUtf8() + '\n';
}

} // namespace

TransferLog::TransferLog(const QString& file)
    : m_file(file)
{
    // NOLINTNEXTLINE(cppcoreguidelines-prefer-member-initializer): flush() reads it
    m_isActive = flush();
}

TransferLog::~TransferLog()
{
    if (m_unwritten.isEmpty() || flush())
        return;
    QLOG_ERROR().noquote() << m_error;
    for (const QByteArray& line : qAsConst(m_unwritten))
        QLOG_ERROR().noquote() << "transferred and not written:" << QString::fromUtf8(line.trimmed());
}

bool TransferLog::isActive() const
{
    return m_isActive;
}

bool TransferLog::write(const TransferRecord& record)
{
    const MesswertData& current = record.current;
    m_unwritten.append(
        lineOf({record.time.toUTC().toString(Qt::ISODateWithMs), current.messwert, current.unit,
                current.isStable ? QStringLiteral("stable") : QStringLiteral("unstable"),
                current.net ? QStringLiteral("net") : QStringLiteral("gross"), record.gross.messwert,
                record.tare.messwert, current.errorText}));
    return m_isActive && flush();
}

/// Writes what is not written yet. The file is opened anew each time: it may have gone, or its disk have been full.
bool TransferLog::flush()
{
    const bool isStandardOutput = m_file == QLatin1String("-");
    QFile file(m_file);
    bool ok = isStandardOutput ? file.open(stdout, QIODevice::WriteOnly)
                               : file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
    if (ok) {
        const qint64 before = file.size();
        QByteArray bytes;
        if (isStandardOutput || file.isSequential() ? !m_isActive : before == 0)
            bytes = "time,value,unit,state,kind,gross,tare,error\n";
        bytes += m_unwritten.join();
        ok = file.write(bytes) == bytes.size() && file.flush();
        if (!ok && !isStandardOutput && !file.isSequential())
            file.resize(before); // half a line would spoil the next one
    }
    if (ok) {
        m_unwritten.clear();
        m_error.clear();
        return true;
    }
    m_error =
        tr("The transfer log %1 cannot be written: %2. Check the path, its permissions and the free space.")
            .arg(isStandardOutput ? tr("standard output") : m_file, file.errorString());
    if (!m_unwritten.isEmpty())
        m_error +=
            QLatin1Char(' ')
            + tr("Lines that are kept and written with the next measurement: %1.").arg(m_unwritten.size());
    return false;
}

} // namespace Terminal
} // namespace Brimvale
