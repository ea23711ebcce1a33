// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTJOURNAL_H
#define BRIMVALE_PRINTJOURNAL_H

#include "print/PrintCause.h"
#include "print/PrintJob.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonObject>
#include <QLockFile>
#include <QString>
#include <QVector>

namespace Brimvale
{
namespace Terminal
{

/// A print-out that has not been printed completely.
struct StoredPrint
{
    quint64 id = 0;
    PrintJob job;
    qint64 timeMs = 0;     ///< When it was submitted.
    int printedBlocks = 0; ///< So many are on paper.
    PrintCause cause;      ///< Why printing stopped; empty: it did not.
};

/// Keeps the print-outs of a queue in a file until they are printed, so that they outlive the terminal.
///
/// Every change is a line of JSON at the end of the file, on the disk before the operation returns. A line that was
/// being written when the power failed is ignored, so that the state before it holds. A queue without print-outs has
/// no file. Of several terminals with the same file the first keeps its print-outs in it: beside the file lies a lock
/// until the terminal ends. The others read and write nothing.
class PrintJournal
{
    Q_DECLARE_TR_FUNCTIONS(Brimvale::Terminal::PrintJournal)
    Q_DISABLE_COPY(PrintJournal)

public:
    /// @param file empty: nothing is kept, and every operation succeeds.
    explicit PrintJournal(const QString& file);

    /// There is a file, and no other terminal has it.
    bool isKept() const { return !m_file.fileName().isEmpty() && !m_isOthers; }

    /// What is kept. A file that is no journal is put aside under another name and error() tells so; nothing is
    /// returned then.
    QVector<StoredPrint> load();

    // Each returns false when the file cannot be written; error() then tells why.
    bool add(const StoredPrint& print);
    bool setPrinted(quint64 id, int blocks);
    bool setFailed(quint64 id, const PrintCause& cause);
    bool remove(quint64 id, bool isLast);

    QString error() const { return m_error; }

private:
    bool lock();
    bool append(const QJsonObject& line);
    bool fail();
    void putAside();

    QFile m_file;
    QLockFile m_lock;
    bool m_isOthers = false; ///< Another terminal uses the file.
    QString m_error;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PRINTJOURNAL_H
