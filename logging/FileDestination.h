// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_FILEDESTINATION_H
#define BRIMVALE_FILEDESTINATION_H

#include "QsLogDest.h"

#include <QFile>

namespace QsLogging
{

/// Appends lines to a file and begins a new one at a size limit, see
/// DestinationFactory::MakeFileDestination().
class FileDestination final : public Destination
{
public:
    /// \a sizeLimit in bytes, 0 or less for none; \a oldFileCount the number of full files that are kept.
    FileDestination(const QString& filePath, qint64 sizeLimit, int oldFileCount);

    void write(const QString& message, Level level) override;
    bool isValid() override { return m_valid; }

private:
    bool open();
    void rotate();
    QString oldFilePath(int number) const;
    void report(const char* action, const QString& filePath, const QString& reason);

    QFile m_file;
    qint64 m_sizeLimit;
    int m_oldFileCount;
    bool m_failureReported = false;
    bool m_valid;
};

} // namespace QsLogging

#endif // BRIMVALE_FILEDESTINATION_H
