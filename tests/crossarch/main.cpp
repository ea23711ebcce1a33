// SPDX-License-Identifier: BSD-3-Clause
//
// Computes a table of what the numeric and text operations of the library answer, and compares it with what is kept:
// the processor of the terminal and that of a desktop must agree on every line.

#include "ResultTable.h"
#include "operations.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>

#include <cstdio>

namespace
{

constexpr char Usage[] =
    "usage: results [--update] CHECKSUMS TABLE\n"
    "\n"
    "Writes the results of the library's operations to TABLE and compares each operation's with\n"
    "its line in CHECKSUMS; --update writes CHECKSUMS anew instead.\n";

constexpr char Header[] =
    "# SPDX-License-Identifier: BSD-3-Clause\n"
    "#\n"
    "# What the library answers on every processor: SHA-256 and count of the lines of each\n"
    "# operation. `results --update` writes it; a change of an answer is a change for plug-ins.\n"
    "\n";

int fail(const QString& message)
{
    std::fprintf(stderr, "results: %s\n", qUtf8Printable(message));
    return 1;
}

QByteArray checksumLine(const ResultTable::Checksum& checksum)
{
    return checksum.sha256 + ' ' + QByteArray::number(checksum.lines) + ' ' + checksum.operation;
}

} // namespace

int main(int argc, char** argv)
{
    // The same clock everywhere, with a summer time.
    qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral("1.2.3"));

    QStringList arguments = application.arguments().mid(1);
    const bool update = arguments.removeAll(QStringLiteral("--update")) > 0;
    if (arguments.size() != 2 || arguments.first().startsWith(QLatin1Char('-'))) {
        std::fputs(Usage, stderr);
        return 2;
    }
    QFile kept(arguments.at(0));
    ResultTable table(arguments.at(1));
    if (!table.error().isEmpty())
        return fail(QStringLiteral("%1 cannot be written: %2").arg(arguments.at(1), table.error()));

    writeCore(table);
    writeUnits(table);
    writeStatistics(table);
    writeMeasuringSystem(table);
    writeProtocol(table);
    writeViewModels(table);
    const QList<ResultTable::Checksum> checksums = table.finish();
    if (!table.error().isEmpty())
        return fail(QStringLiteral("%1 cannot be written: %2").arg(arguments.at(1), table.error()));

    if (update) {
        QByteArray text = Header;
        for (const ResultTable::Checksum& checksum : checksums)
            text += checksumLine(checksum) + '\n';
        if (!kept.open(QIODevice::WriteOnly | QIODevice::Truncate) || kept.write(text) != text.size())
            return fail(QStringLiteral("%1 cannot be written: %2").arg(kept.fileName(), kept.errorString()));
        return 0;
    }

    if (!kept.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("%1 cannot be read: %2").arg(kept.fileName(), kept.errorString()));
    QList<QByteArray> expected;
    for (const QByteArray& line : kept.readAll().split('\n')) {
        if (!line.isEmpty() && !line.startsWith('#'))
            expected.append(line);
    }
    int differences = 0;
    int lines = 0;
    for (const ResultTable::Checksum& checksum : checksums) {
        lines += checksum.lines;
        if (expected.removeAll(checksumLine(checksum)) != 1) {
            ++differences;
            std::fprintf(stderr, "results: not as kept: %s\n", checksum.operation.constData());
        }
    }
    for (const QByteArray& line : qAsConst(expected)) {
        ++differences;
        std::fprintf(stderr, "results: kept: %s\n", line.constData());
    }
    if (differences > 0) {
        return fail(
            QStringLiteral("%1 does not hold these results. The table is %2: compare it with that of another "
                           "processor (tests/crossarch/compare), or of the version before.")
                .arg(kept.fileName(), arguments.at(1)));
    }
    std::printf("%d operations, %d lines as kept\n", int(checksums.size()), lines);
    return 0;
}
