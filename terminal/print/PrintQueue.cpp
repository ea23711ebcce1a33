// SPDX-License-Identifier: BSD-3-Clause
#include "print/PrintQueue.h"

#include <algorithm>

namespace Brimvale
{
namespace Terminal
{

namespace
{

PrintCause causeOf(const char* source)
{
    return PrintCause(PrintQueue::staticMetaObject.className(), source);
}

} // namespace

PrintQueue::PrintQueue(Clock& clock, const QString& journalFile, QObject* parent)
    : QObject(parent)
    , m_clock(clock)
    , m_journal(journalFile)
{
}

PrintQueue::~PrintQueue()
{
    for (Lane& lane : m_lanes) {
        m_clock.cancel(lane.timer);
        if (lane.device)
            lane.device->disconnect(this);
        if (lane.awaits)
            lane.device->cancel();
    }
}

bool PrintQueue::load(QString* error)
{
    const QVector<StoredPrint> prints = m_journal.load();
    for (const StoredPrint& print : prints) {
        Entry entry;
        entry.id = print.id;
        entry.title = print.job.title();
        entry.format = print.job.format();
        entry.state = State::Failed;
        entry.printedBlocks = print.printedBlocks;
        entry.blocks = print.job.blocks().size();
        entry.timeMs = print.timeMs;
        entry.cause = print.cause.isEmpty()
                          ? causeOf(QT_TR_NOOP("The terminal was switched off before it was printed."))
                          : print.cause;
        m_entries.append(entry);
        m_jobs.append(print.job);
        m_lastId = std::max(m_lastId, print.id);
    }
    emit changed();
    if (m_journal.error().isEmpty())
        return true;
    *error = m_journal.error();
    return false;
}

void PrintQueue::setPrinter(std::unique_ptr<PrintDevice> device)
{
    setDevice(laneOf(PrintFormat::Paper), std::move(device));
}

void PrintQueue::setSicsOutput(std::unique_ptr<PrintDevice> device)
{
    setDevice(laneOf(PrintFormat::Sics), std::move(device));
}

void PrintQueue::setDevice(Lane& lane, std::unique_ptr<PrintDevice> device)
{
    if (lane.device) {
        lane.device->disconnect(this);
        lane.device->cancel();
    }
    if (lane.id != 0)
        onFailed(lane,
                 causeOf(QT_TR_NOOP("The printer was taken away. Repeat the print-out on the new one.")));
    lane.device = std::move(device);
    if (lane.device) {
        connect(lane.device.get(), &PrintDevice::done, this, [this, &lane] { onDone(lane); });
        connect(lane.device.get(), &PrintDevice::failed, this,
                [this, &lane](const PrintCause& cause) { onFailed(lane, cause); });
    }
    emit changed();
}

bool PrintQueue::submit(const PrintJob& job, QString* error)
{
    QString refusal;
    if (job.isEmpty())
        refusal = tr("The print-out is empty.");
    else if (!laneOf(job.format()).device)
        refusal = job.format() == PrintFormat::Sics
                      ? tr("There is no output for SICS answers. Start the terminal with --sics PORT.")
                      : tr("There is no printer. Start the terminal with --printer roll, for example.");
    else if (m_entries.size() >= MaximumPrints)
        refusal = tr("%1 print-outs wait already. Repeat or delete them first.").arg(MaximumPrints);
    if (!refusal.isEmpty()) {
        if (error)
            *error = refusal;
        return false;
    }
    StoredPrint print;
    print.id = ++m_lastId;
    print.job = job;
    print.timeMs = m_clock.nowMs();
    keep(m_journal.add(print));
    Entry entry;
    entry.id = print.id;
    entry.title = job.title();
    entry.format = job.format();
    entry.blocks = job.blocks().size();
    entry.timeMs = print.timeMs;
    m_entries.append(entry);
    m_jobs.append(job);
    emit changed();
    advance(laneOf(job.format()));
    return true;
}

bool PrintQueue::repeat(quint64 id)
{
    const int index = indexOf(id);
    if (index < 0 || m_entries.at(index).state != State::Failed)
        return false;
    const PrintFormat format = m_entries.at(index).format;
    setWaiting(index);
    emit changed();
    advance(laneOf(format));
    return true;
}

bool PrintQueue::repeat()
{
    if (failedCount() == 0)
        return false;
    for (int index = 0; index < m_entries.size(); ++index) {
        if (m_entries.at(index).state == State::Failed)
            setWaiting(index);
    }
    emit changed();
    for (Lane& lane : m_lanes)
        advance(lane);
    return true;
}

void PrintQueue::setWaiting(int index)
{
    m_entries[index].state = State::Waiting;
    m_entries[index].cause = PrintCause();
    keep(m_journal.setFailed(m_entries.at(index).id, PrintCause()));
}

bool PrintQueue::remove(quint64 id)
{
    const int index = indexOf(id);
    if (index < 0)
        return false;
    Lane& lane = laneOf(m_entries.at(index).format);
    if (lane.id == id) {
        lane.device->cancel();
        stop(lane);
    }
    erase(index);
    emit changed();
    advance(lane);
    return true;
}

int PrintQueue::failedCount() const
{
    return static_cast<int>(std::count_if(m_entries.begin(), m_entries.end(),
                                          [](const Entry& entry) { return entry.state == State::Failed; }));
}

void PrintQueue::setFault(PrinterFault fault)
{
    if (m_fault == fault)
        return;
    m_fault = fault;
    emit changed();
}

bool PrintQueue::awaitsDevice() const
{
    return std::any_of(std::begin(m_lanes), std::end(m_lanes), [](const Lane& lane) { return lane.awaits; });
}

int PrintQueue::indexOf(quint64 id) const
{
    for (int index = 0; index < m_entries.size(); ++index) {
        if (m_entries.at(index).id == id)
            return index;
    }
    return -1;
}

PrintFormat PrintQueue::formatOf(const Lane& lane) const
{
    return &lane == &m_lanes[0] ? PrintFormat::Paper : PrintFormat::Sics;
}

/// Goes on until a device is to answer, a time is to pass or nothing is to be done. A device that answers at once
/// comes back here while this runs; the loop then does the rest.
void PrintQueue::advance(Lane& lane)
{
    if (lane.advancing)
        return;
    lane.advancing = true;
    while (!lane.awaits && lane.timer == 0 && (lane.id != 0 || takeNext(lane)))
        takeStep(lane);
    lane.advancing = false;
}

/// Begins with the first print-out of the lane, unless that has failed.
bool PrintQueue::takeNext(Lane& lane)
{
    const PrintFormat format = formatOf(lane);
    const auto first = std::find_if(m_entries.begin(), m_entries.end(),
                                    [format](const Entry& entry) { return entry.format == format; });
    if (first == m_entries.end() || first->state == State::Failed)
        return false;
    lane.id = first->id;
    lane.step = Step::Begin;
    lane.delayed = false;
    first->state = State::Printing;
    emit changed();
    return lane.id != 0; // Whoever heard of the change may have removed it.
}

void PrintQueue::takeStep(Lane& lane)
{
    const int index = indexOf(lane.id);
    const PrintJob job = m_jobs.at(index);
    const int position = m_entries.at(index).printedBlocks;
    if (!lane.device) {
        onFailed(
            lane,
            causeOf(
                formatOf(lane) == PrintFormat::Sics
                    ? QT_TR_NOOP("There is no output for SICS answers. Start the terminal with --sics PORT.")
                    : QT_TR_NOOP(
                        "There is no printer. Start the terminal with --printer roll, for example.")));
        return;
    }
    if (lane.step == Step::Blocks && position >= job.blocks().size())
        lane.step = Step::End;
    if (lane.step == Step::End) {
        lane.awaits = true;
        lane.device->end();
        return;
    }
    const PrintCause fault = faultOf(lane);
    if (!fault.isEmpty()) {
        lane.device->cancel();
        onFailed(lane, fault);
        return;
    }
    if (lane.step == Step::Begin) {
        lane.awaits = true;
        if (lane.device->printsAsAWhole() && position > 0) {
            // Begun on another device, before a restart.
            m_entries[index].printedBlocks = 0;
            lane.device->begin(job, 0);
            return;
        }
        lane.device->begin(job, position);
        return;
    }
    const QString& block = job.blocks().at(position);
    if (delay(lane, block))
        return;
    lane.awaits = true;
    lane.device->print(block);
}

/// Whether time is to pass before @p block is printed.
bool PrintQueue::delay(Lane& lane, const QString& block)
{
    const bool slow = m_fault == PrinterFault::Slow && formatOf(lane) == PrintFormat::Paper;
    if (!slow || lane.delayed)
        return false;
    const int lines = std::max(1, block.count(QLatin1Char('\n')));
    lane.timer = m_clock.callAfter(SlowMs * lines, [this, &lane] {
        lane.timer = 0;
        lane.delayed = true;
        advance(lane);
    });
    return true;
}

PrintCause PrintQueue::faultOf(const Lane& lane) const
{
    if (formatOf(lane) == PrintFormat::Sics)
        return {};
    if (m_fault == PrinterFault::PaperOut)
        return causeOf(QT_TR_NOOP("The printer is out of paper. Put in paper, then repeat the print-out."));
    if (m_fault == PrinterFault::Offline)
        return causeOf(QT_TR_NOOP(
            "The printer is offline. Switch it on and check its cable, then repeat the print-out."));
    return {};
}

void PrintQueue::onDone(Lane& lane)
{
    if (!lane.awaits)
        return;
    lane.awaits = false;
    const int index = indexOf(lane.id);
    switch (lane.step) {
    case Step::Begin:
        lane.step = Step::Blocks;
        break;
    case Step::Blocks:
        lane.delayed = false;
        ++m_entries[index].printedBlocks;
        if (!lane.device->printsAsAWhole())
            keep(m_journal.setPrinted(lane.id, m_entries.at(index).printedBlocks));
        emit changed();
        break;
    case Step::End:
        finish(lane, index);
        break;
    }
    advance(lane);
}

void PrintQueue::finish(Lane& lane, int index)
{
    const QString title = m_entries.at(index).title;
    m_lastPrint = m_jobs.at(index).text();
    ++m_printedCount;
    stop(lane);
    erase(index);
    emit changed();
    emit printed(title);
}

void PrintQueue::onFailed(Lane& lane, const PrintCause& cause)
{
    const int index = indexOf(lane.id);
    if (index < 0)
        return;
    const quint64 id = lane.id;
    Entry& entry = m_entries[index];
    entry.state = State::Failed;
    entry.cause = cause;
    if (lane.device && lane.device->printsAsAWhole())
        entry.printedBlocks = 0;
    const QString title = entry.title.isEmpty() ? tr("Print-out") : entry.title;
    stop(lane);
    keep(m_journal.setFailed(id, cause));
    emit changed();
    emit failed(tr("%1 is not printed: %2").arg(title, cause.text()));
}

void PrintQueue::stop(Lane& lane)
{
    m_clock.cancel(lane.timer);
    lane.timer = 0;
    lane.id = 0;
    lane.awaits = false;
    lane.delayed = false;
}

void PrintQueue::erase(int index)
{
    const quint64 id = m_entries.at(index).id;
    m_entries.remove(index);
    m_jobs.remove(index);
    keep(m_journal.remove(id, m_entries.isEmpty()));
}

/// Tells once that keeping has failed; printing goes on all the same.
void PrintQueue::keep(bool ok)
{
    if (ok || m_toldNotKept)
        return;
    m_toldNotKept = true;
    emit notKept(m_journal.error());
}

} // namespace Terminal
} // namespace Brimvale
