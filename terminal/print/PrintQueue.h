// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTQUEUE_H
#define BRIMVALE_PRINTQUEUE_H

#include "clock/Clock.h"
#include "print/PrintDevice.h"
#include "print/PrintJob.h"
#include "print/PrintJournal.h"

#include <QObject>
#include <QString>
#include <QVector>

#include <memory>

namespace Brimvale
{
namespace Terminal
{

/// What can be the matter with a printer, for trying it out.
enum class PrinterFault
{
    None,
    PaperOut,
    Offline,
    Slow ///< PrintQueue::SlowMs pass for every line.
};

/// The print-outs on their way to paper, in the order in which they were submitted.
///
/// Each print-out is delivered block by block, and the count of the delivered blocks is kept. When printing fails, the
/// print-out stays and waits until it is repeated or removed, and so do those behind it; what came onto paper is not
/// printed again, what did not is. On a device whose print-outs appear as a whole it begins anew. SICS answers go
/// their own way and are not held up by the printer.
class PrintQueue : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(PrintQueue)

public:
    enum class State
    {
        Waiting,  ///< For those before it.
        Printing, ///< On its way.
        Failed    ///< Until it is repeated.
    };
    Q_ENUM(State)

    struct Entry
    {
        quint64 id = 0;
        QString title;
        PrintFormat format = PrintFormat::Paper;
        State state = State::Waiting;
        int printedBlocks = 0;
        int blocks = 0;
        qint64 timeMs = 0; ///< When it was submitted.
        PrintCause cause;  ///< Why it failed; otherwise empty.
    };

    /// The most print-outs that are kept.
    static constexpr int MaximumPrints = 100;
    /// Time for a line of a slow printer.
    static constexpr qint64 SlowMs = 500;

    /// @param clock       not owned, must outlive the queue.
    /// @param journalFile keeps the print-outs while the terminal is off; empty: they are lost then.
    explicit PrintQueue(Clock& clock, const QString& journalFile = QString(), QObject* parent = nullptr);
    ~PrintQueue() override;

    /// What was kept is there again, failed, after this. Returns false when it cannot be read; @p error tells why.
    bool load(QString* error);

    /// The device of print-outs for paper; null: there is none. What is being printed fails.
    void setPrinter(std::unique_ptr<PrintDevice> device);
    /// The device of SICS answers; null: there is none.
    void setSicsOutput(std::unique_ptr<PrintDevice> device);
    PrintDevice* printer() const { return m_lanes[0].device.get(); }
    PrintDevice* sicsOutput() const { return m_lanes[1].device.get(); }

    /// Takes over a print-out and prints it, at once if the device is that quick and nothing is before it. Whatever
    /// goes wrong with printing is told by failed().
    /// @return false when it was not taken over: it is empty, the queue is full, or there is no device. @p error
    ///         (may be null) tells why.
    bool submit(const PrintJob& job, QString* error = nullptr);

    /// Prints the rest of a failed print-out. Returns false when there is no such one.
    bool repeat(quint64 id);
    /// Repeats all that have failed. Returns false when none has.
    bool repeat();
    /// Removes a print-out, also while it is being printed. Returns false when there is no such one.
    bool remove(quint64 id);

    const QVector<Entry>& entries() const { return m_entries; }
    int count() const { return m_entries.size(); }
    int failedCount() const;

    PrinterFault fault() const { return m_fault; }
    /// Faults show at the next block; they concern the printer only, not the SICS answers.
    void setFault(PrinterFault fault);

    /// A device has been asked and has not answered yet.
    bool awaitsDevice() const;
    /// Print-outs outlive the terminal.
    bool isKept() const { return m_journal.isKept(); }

    /// The newest print-out that was printed to its end, each line ended by '\n'; empty: there was none.
    QString lastPrint() const { return m_lastPrint; }
    /// How many were printed to their end since the terminal started.
    int printedCount() const { return m_printedCount; }

signals:
    /// entries() or fault() has changed.
    void changed();
    /// A print-out has failed; @p text tells the person which, why and what to do.
    void failed(const QString& text);
    /// A print-out is on paper as a whole.
    void printed(const QString& title);
    /// The print-outs cannot be kept; @p text tells why.
    void notKept(const QString& text);

private:
    enum class Step
    {
        Begin,
        Blocks,
        End
    };

    /// The way of one kind of print-outs to its device.
    struct Lane
    {
        std::unique_ptr<PrintDevice> device;
        quint64 id = 0; ///< Being printed; 0: none.
        Step step = Step::Begin;
        bool awaits = false;
        bool advancing = false;
        bool delayed = false; ///< The time for the next block has passed.
        Clock::TimerId timer = 0;
    };

    static constexpr int LaneCount = 2;

    Lane& laneOf(PrintFormat format) { return m_lanes[format == PrintFormat::Paper ? 0 : 1]; }
    PrintFormat formatOf(const Lane& lane) const;
    void setDevice(Lane& lane, std::unique_ptr<PrintDevice> device);
    int indexOf(quint64 id) const;
    void setWaiting(int index);
    void advance(Lane& lane);
    bool takeNext(Lane& lane);
    void takeStep(Lane& lane);
    bool delay(Lane& lane, const QString& block);
    PrintCause faultOf(const Lane& lane) const;
    void onDone(Lane& lane);
    void finish(Lane& lane, int index);
    void onFailed(Lane& lane, const PrintCause& cause);
    void stop(Lane& lane);
    void erase(int index);
    void keep(bool ok);

    Clock& m_clock;
    PrintJournal m_journal;
    bool m_toldNotKept = false;
    Lane m_lanes[LaneCount];
    QVector<Entry> m_entries;
    QVector<PrintJob> m_jobs; ///< In the order of the entries.
    quint64 m_lastId = 0;
    PrinterFault m_fault = PrinterFault::None;
    QString m_lastPrint;
    int m_printedCount = 0;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PRINTQUEUE_H
