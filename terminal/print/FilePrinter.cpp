// SPDX-License-Identifier: BSD-3-Clause
#include "print/FilePrinter.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Brimvale
{
namespace Terminal
{

FilePrinter::FilePrinter(const QString& file)
    : m_file(file)
{
}

QString FilePrinter::description() const
{
    return tr("Text file %1").arg(m_file);
}

void FilePrinter::begin(const PrintJob& job, int firstBlock)
{
    Q_UNUSED(job)
    Q_UNUSED(firstBlock)
    emit done();
}

void FilePrinter::print(const QString& block)
{
    append(PrintJob::text({block}).toUtf8());
}

void FilePrinter::end()
{
    append("\n");
}

void FilePrinter::append(const QByteArray& bytes)
{
    // A pipe that nobody reads, or a device, must not hold the terminal up.
    const int descriptor =
        ::open(QFile::encodeName(m_file).constData(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK,
               S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH);
    QString error = qt_error_string(errno);
    QFile file;
    bool ok =
        descriptor >= 0
        && file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
    if (ok) {
        const qint64 before = file.size();
        ok = file.write(bytes) == bytes.size();
        error = file.errorString();
        // Pipes and devices have nothing to be brought onto a disk.
        if (ok && fsync(file.handle()) != 0 && errno != EINVAL && errno != EROFS) {
            ok = false;
            error = qt_error_string(errno);
        }
        if (!ok && !file.isSequential())
            file.resize(before);
    }
    if (ok)
        emit done();
    else
        emit failed(
            {staticMetaObject.className(),
             QT_TR_NOOP("The file %1 cannot be written: %2. Check the path, its permissions and the free "
                        "space, then repeat the print-out."),
             {m_file, error}});
}

} // namespace Terminal
} // namespace Brimvale
