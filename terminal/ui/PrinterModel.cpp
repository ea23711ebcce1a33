// SPDX-License-Identifier: BSD-3-Clause
#include "ui/PrinterModel.h"

#include "print/PaperRoll.h"
#include "print/PrintQueue.h"

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// In the order of PrinterFault.
const char* const FaultNames[] = {"ok", "paper out", "offline", "slow"};

} // namespace

PrinterModel::PrinterModel(PrintQueue& queue, PaperRoll& paper, QObject* parent)
    : QObject(parent)
    , m_queue(queue)
    , m_paper(paper)
{
    connect(&queue, &PrintQueue::changed, this, &PrinterModel::changed);
}

QStringList PrinterModel::faults()
{
    QStringList names;
    for (const char* const name : FaultNames)
        names.append(QString::fromLatin1(name));
    return names;
}

QStringList PrinterModel::states()
{
    return {QStringLiteral("ready"),     QStringLiteral("printing"), QStringLiteral("stopped"),
            QStringLiteral("paper out"), QStringLiteral("offline"),  QStringLiteral("none")};
}

QString PrinterModel::description() const
{
    return m_queue.printer() ? m_queue.printer()->description() : QString();
}

QString PrinterModel::state() const
{
    if (!m_queue.printer())
        return QStringLiteral("none");
    if (m_queue.fault() == PrinterFault::PaperOut || m_queue.fault() == PrinterFault::Offline)
        return fault();
    if (m_queue.failedCount() > 0)
        return QStringLiteral("stopped");
    return m_queue.count() > 0 ? QStringLiteral("printing") : QStringLiteral("ready");
}

QString PrinterModel::stateText() const
{
    switch (states().indexOf(state())) {
    case 0:
        return tr("Ready");
    case 1:
        return tr("Printing");
    case 2:
        return tr("Stopped");
    case 3:
        return tr("Out of paper");
    case 4:
        return tr("Offline");
    default:
        return tr("No printer");
    }
}

bool PrinterModel::needsHelp() const
{
    return state() != QLatin1String("ready") && state() != QLatin1String("printing");
}

QString PrinterModel::fault() const
{
    return QString::fromLatin1(FaultNames[static_cast<int>(m_queue.fault())]);
}

void PrinterModel::setFault(const QString& fault)
{
    const int index = faults().indexOf(fault);
    if (index >= 0)
        m_queue.setFault(static_cast<PrinterFault>(index));
}

bool PrinterModel::printsOnRoll() const
{
    return qobject_cast<const RollPrinter*>(m_queue.printer()) != nullptr;
}

QVariantList PrinterModel::prints() const
{
    QVariantList prints;
    for (const PrintQueue::Entry& entry : m_queue.entries()) {
        QString detail;
        switch (entry.state) {
        case PrintQueue::State::Waiting:
            detail = tr("Waits");
            break;
        case PrintQueue::State::Printing:
            detail = tr("Printing, %1 of %2").arg(entry.printedBlocks).arg(entry.blocks);
            break;
        case PrintQueue::State::Failed:
            detail =
                tr("%1 of %2 printed. %3").arg(entry.printedBlocks).arg(entry.blocks).arg(entry.cause.text());
            break;
        }
        prints.append(
            QVariantMap{{QStringLiteral("id"), QString::number(entry.id)},
                        {QStringLiteral("title"), entry.title.isEmpty() ? tr("Print-out") : entry.title},
                        {QStringLiteral("detail"), detail},
                        {QStringLiteral("failed"), entry.state == PrintQueue::State::Failed}});
    }
    return prints;
}

int PrinterModel::failedCount() const
{
    return m_queue.failedCount();
}

QObject* PrinterModel::paper() const
{
    return &m_paper;
}

void PrinterModel::repeat(const QString& id)
{
    m_queue.repeat(id.toULongLong());
}

void PrinterModel::remove(const QString& id)
{
    m_queue.remove(id.toULongLong());
}

void PrinterModel::repeatAll()
{
    m_queue.repeat();
}

} // namespace Terminal
} // namespace Brimvale
