// SPDX-License-Identifier: BSD-3-Clause
#include "print/PrintJournal.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <unistd.h>

namespace Brimvale
{
namespace Terminal
{
namespace
{

const QString Add = QStringLiteral("add");
const QString Printed = QStringLiteral("printed");
const QString Failed = QStringLiteral("failed");
const QString Cause = QStringLiteral("cause");
const QString Remove = QStringLiteral("remove");

/// No print-out is nearly as long, and what is no journal is not read into the memory as a whole.
constexpr qint64 MaximumLineBytes = 16 << 20;

/// JSON numbers are exact up to 2^53 only.
QString numberText(quint64 number)
{
    return QString::number(number);
}

QJsonObject addLine(const StoredPrint& print)
{
    return {{Add, numberText(print.id)},
            {QStringLiteral("title"), print.job.title()},
            {QStringLiteral("layout"), print.job.layout()},
            {QStringLiteral("sics"), print.job.format() == PrintFormat::Sics},
            {QStringLiteral("time"), QString::number(print.timeMs)},
            {QStringLiteral("blocks"), QJsonArray::fromStringList(print.job.blocks())}};
}

StoredPrint printOf(const QJsonObject& line)
{
    StoredPrint print;
    print.id = line.value(Add).toString().toULongLong();
    print.timeMs = line.value(QStringLiteral("time")).toString().toLongLong();
    print.job =
        PrintJob(line.value(QStringLiteral("title")).toString(),
                 line.value(QStringLiteral("layout")).toInt(PrintJob::DefaultLayout),
                 line.value(QStringLiteral("sics")).toBool() ? PrintFormat::Sics : PrintFormat::Paper);
    const QJsonArray blocks = line.value(QStringLiteral("blocks")).toArray();
    for (const QJsonValue& block : blocks)
        print.job.PrintLine(block.toString());
    return print;
}

/// Carries out a line of the journal. Returns false for one that is none.
bool apply(const QJsonObject& line, QVector<StoredPrint>* prints)
{
    if (line.contains(Add)) {
        prints->append(printOf(line));
        return true;
    }
    for (const QString& operation : {Printed, Failed, Remove}) {
        if (!line.contains(operation))
            continue;
        const quint64 id = line.value(operation).toString().toULongLong();
        const auto found = std::find_if(prints->begin(), prints->end(),
                                        [id](const StoredPrint& print) { return print.id == id; });
        if (found == prints->end())
            return true;
        if (operation == Printed)
            found->printedBlocks =
                std::clamp(line.value(QStringLiteral("blocks")).toInt(), 0, found->job.blocks().size());
        else if (operation == Failed)
            found->cause = line.value(Cause).isObject() ? PrintCause::fromJson(line.value(Cause).toObject())
                                                        : PrintCause(line.value(Cause).toString());
        else
            prints->erase(found);
        return true;
    }
    return false;
}

} // namespace

PrintJournal::PrintJournal(const QString& file)
    : m_file(file)
    , m_lock(file + QStringLiteral(".lock"))
{
    m_lock.setStaleLockTime(0); // A terminal may run for days; the lock of one that has crashed is found out.
}

QVector<StoredPrint> PrintJournal::load()
{
    QVector<StoredPrint> prints;
    if (!isKept() || !lock() || !m_file.exists())
        return prints;
    if (!m_file.open(QIODevice::ReadOnly)) {
        fail();
        return prints;
    }
    qint64 end = 0; // Of the lines that are whole.
    while (!m_file.atEnd()) {
        const QByteArray text = m_file.readLine(MaximumLineBytes);
        const bool isWhole = text.endsWith('\n');
        if (!isWhole && m_file.atEnd() && text.size() < MaximumLineBytes - 1)
            break;
        const QJsonDocument line = isWhole ? QJsonDocument::fromJson(text) : QJsonDocument();
        if (!line.isObject() || !apply(line.object(), &prints)) {
            m_file.close();
            putAside();
            return {};
        }
        end += text.size();
    }
    const bool hasRest = end < m_file.size();
    m_file.close();
    if (prints.isEmpty())
        m_file.remove();
    else if (hasRest && !m_file.resize(end))
        fail();
    return prints;
}

bool PrintJournal::add(const StoredPrint& print)
{
    return append(addLine(print));
}

bool PrintJournal::setPrinted(quint64 id, int blocks)
{
    return append({{Printed, numberText(id)}, {QStringLiteral("blocks"), blocks}});
}

bool PrintJournal::setFailed(quint64 id, const PrintCause& cause)
{
    return append({{Failed, numberText(id)}, {Cause, cause.toJson()}});
}

bool PrintJournal::remove(quint64 id, bool isLast)
{
    if (!isLast || !isKept() || !lock())
        return append({{Remove, numberText(id)}});
    return !m_file.exists() || m_file.remove() || fail();
}

bool PrintJournal::append(const QJsonObject& line)
{
    if (m_file.fileName().isEmpty())
        return true;
    if (!lock())
        return false;
    const QByteArray bytes = QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        return fail();
    const qint64 before = m_file.size();
    const bool ok = m_file.write(bytes) == bytes.size() && fsync(m_file.handle()) == 0;
    if (!ok) {
        fail();
        m_file.resize(before); // Half a line would spoil the next one.
    }
    m_file.close();
    return ok;
}

/// Makes the file this terminal's own.
bool PrintJournal::lock()
{
    if (m_lock.isLocked())
        return true;
    if (!m_isOthers && m_lock.tryLock())
        return true;
    // Where no lock can be made no file can be written either, which is told then.
    if (!m_isOthers && m_lock.error() != QLockFile::LockFailedError)
        return true;
    m_isOthers = true;
    m_error =
        tr("Another terminal keeps its print queue in %1: what this one cannot print is lost when it ends. "
           "Give it settings of its own with --settings FILE.")
            .arg(m_file.fileName());
    return false;
}

bool PrintJournal::fail()
{
    m_error =
        tr("The print queue cannot be kept in %1: %2. Check the path, its permissions and the free space.")
            .arg(m_file.fileName(), m_file.errorString());
    return false;
}

void PrintJournal::putAside()
{
    QString name = m_file.fileName() + QStringLiteral(".unreadable");
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = m_file.fileName() + QStringLiteral(".unreadable-%1").arg(number);
    if (!QFile::rename(m_file.fileName(), name)) {
        fail();
        return;
    }
    m_error = tr("%1 holds no print queue. It was renamed to %2, and the queue begins empty.")
                  .arg(m_file.fileName(), name);
}

} // namespace Terminal
} // namespace Brimvale
