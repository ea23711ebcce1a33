// SPDX-License-Identifier: BSD-3-Clause

#include "FileDestination.h"

#include <QByteArray>

#include <cstdio>

namespace QsLogging
{

FileDestination::FileDestination(const QString& filePath, qint64 sizeLimit, int oldFileCount)
    : m_file(filePath)
    , m_sizeLimit(sizeLimit)
    , m_oldFileCount(oldFileCount)
    , m_valid(open())
{
}

void FileDestination::write(const QString& message, Level)
{
    const QByteArray line = message.toUtf8() + '\n';
    if (m_sizeLimit > 0 && m_file.size() > 0 && m_file.size() + line.size() > m_sizeLimit)
        rotate();
    // A file that could not be opened again after a rotation is tried anew with every line.
    if (!m_file.isOpen() && !open())
        return;
    if (m_file.write(line) != line.size())
        report("write to", m_file.fileName(), m_file.errorString());
}

bool FileDestination::open()
{
    // Unbuffered: what was logged before a crash is in the file.
    if (m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        return true;
    report("open", m_file.fileName(), m_file.errorString());
    return false;
}

void FileDestination::rotate()
{
    if (m_oldFileCount > 0) {
        const QString oldest = oldFilePath(m_oldFileCount);
        if (QFile::exists(oldest) && !QFile::remove(oldest)) {
            report("remove", oldest, QStringLiteral("the current file is continued"));
            return;
        }
        for (int number = m_oldFileCount - 1; number > 0; --number) {
            if (QFile::exists(oldFilePath(number)))
                QFile::rename(oldFilePath(number), oldFilePath(number + 1));
        }
        const QString current = m_file.fileName();
        m_file.close();
        // Not through m_file, which would go on with the new name.
        if (!QFile::rename(current, oldFilePath(1)))
            report("rename", current, QStringLiteral("the current file is continued"));
    } else if (!m_file.resize(0)) {
        report("empty", m_file.fileName(), m_file.errorString());
    }
}

QString FileDestination::oldFilePath(int number) const
{
    return m_file.fileName() + QLatin1Char('.') + QString::number(number);
}

// The log cannot bear its own failure. The first one is told, not one for every line.
void FileDestination::report(const char* action, const QString& filePath, const QString& reason)
{
    if (m_failureReported)
        return;
    m_failureReported = true;
    static_cast<void>(std::fprintf(stderr, "QsLog: cannot %s the log file \"%s\": %s\n", action,
                                   qPrintable(filePath), qPrintable(reason)));
}

} // namespace QsLogging
