// SPDX-License-Identifier: BSD-3-Clause
//
// The file in which the print queue is kept.
#include "Fuzzing.h"
#include "print/PrintJournal.h"

#include <QDir>
#include <QSet>
#include <QTemporaryDir>

using Brimvale::Terminal::PrintJob;
using Brimvale::Terminal::PrintJournal;
using Brimvale::Terminal::StoredPrint;

namespace
{

const QDir& folder()
{
    static const QTemporaryDir temporary;
    static const QDir folder(temporary.path());
    return folder;
}

QString path(const char* name)
{
    return folder().filePath(QString::fromLatin1(name));
}

void write(const QString& name, const QByteArray& content)
{
    QFile file(name);
    REQUIRE(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(content) == content.size());
}

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    REQUIRE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

QVector<StoredPrint> load(const QString& name)
{
    PrintJournal journal(name);
    const QVector<StoredPrint> prints = journal.load();
    REQUIRE(journal.error().isEmpty());
    return prints;
}

bool isSame(const StoredPrint& left, const StoredPrint& right)
{
    return left.id == right.id && left.timeMs == right.timeMs && left.printedBlocks == right.printedBlocks
           && left.cause.toJson() == right.cause.toJson() && left.job.title() == right.job.title()
           && left.job.layout() == right.job.layout() && left.job.format() == right.job.format()
           && left.job.blocks() == right.job.blocks();
}

bool isSame(const QVector<StoredPrint>& left, const QVector<StoredPrint>& right)
{
    return std::equal(left.cbegin(), left.cend(), right.cbegin(), right.cend(),
                      [](const StoredPrint& one, const StoredPrint& other) { return isSame(one, other); });
}

} // namespace

FUZZING_WITHOUT_LEAK_CHECK

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray content = Fuzzing::Input(data, size).rest();
    for (const QString& name : folder().entryList(QDir::Files)) {
        QFile::remove(folder().filePath(name));
    }
    const QString file = path("queue");
    write(file, content);

    QVector<StoredPrint> prints;
    {
        PrintJournal journal(file);
        prints = journal.load();
        if (!journal.error().isEmpty()) {
            // Nothing is lost.
            REQUIRE(prints.isEmpty() && journal.error().contains(file) && !QFile::exists(file));
            REQUIRE(contentOf(path("queue.unreadable")) == content);
            return 0;
        }
    }
    REQUIRE(QFile::exists(file) != prints.isEmpty());
    // What was read is read again, and what is written anew is the same.
    REQUIRE(isSame(load(file), prints));
    const QString copy = path("copy");
    QSet<quint64> ids;
    {
        PrintJournal journal(copy);
        REQUIRE(journal.load().isEmpty());
        for (const StoredPrint& print : qAsConst(prints)) {
            REQUIRE(print.printedBlocks >= 0 && print.printedBlocks <= print.job.blocks().size());
            print.cause.text();
            ids.insert(print.id);
            REQUIRE(journal.add(print) && journal.setPrinted(print.id, print.printedBlocks)
                    && journal.setFailed(print.id, print.cause));
        }
    }
    REQUIRE(ids.size() != prints.size() || isSame(load(copy), prints));
    return 0;
}
