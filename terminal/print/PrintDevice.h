// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTDEVICE_H
#define BRIMVALE_PRINTDEVICE_H

#include "print/PrintCause.h"
#include "print/PrintJob.h"

#include <QObject>
#include <QString>

namespace Brimvale
{
namespace Terminal
{

/// Where print-outs go: a printer, a file, connected computers. The PrintQueue drives it.
///
/// A print-out is begun, its blocks are printed one by one, and it is ended. Each of the three is answered by one
/// done() or failed(), at once or later; nothing else is asked meanwhile. A device has a time limit for everything
/// that may hang, so that an answer always comes. After failed() the print-out is over; another begin() continues it
/// with the blocks that are not printed yet.
class PrintDevice : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(PrintDevice)

public:
    explicit PrintDevice(QObject* parent = nullptr);
    ~PrintDevice() override;

    /// For people: "Paper roll".
    virtual QString description() const = 0;

    /// Whether a print-out appears as a whole when it is ended. Unless so, a block counts as printed by itself.
    virtual bool printsAsAWhole() const { return false; }

    /// Begins @p job, or continues it with the block @p firstBlock; that may be behind the last one, when only the
    /// end has failed.
    virtual void begin(const PrintJob& job, int firstBlock) = 0;
    /// Prints a block of the print-out. After done() it is on paper, as far as the device can know.
    virtual void print(const QString& block) = 0;
    virtual void end() = 0;
    /// Gives the print-out up. Nothing is answered any more.
    virtual void cancel() = 0;

signals:
    void done();
    void failed(const Brimvale::Terminal::PrintCause& cause);
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PRINTDEVICE_H
