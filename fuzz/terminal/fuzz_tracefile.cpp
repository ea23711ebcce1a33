// SPDX-License-Identifier: BSD-3-Clause
//
// Recorded weighings.
#include "Fuzzing.h"
#include "source/TraceFile.h"

#include <QBuffer>
#include <QLocale>

using Brimvale::Terminal::TraceFile;

namespace
{

// A name that a message must not take for a place to fill in.
const QString Name = QStringLiteral("100%2.csv");
constexpr int LongestLine = 900;

std::optional<TraceFile> parse(QByteArray content, QString* error)
{
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    return TraceFile::parse(buffer, Name, error);
}

bool isSame(const TraceFile& left, const TraceFile& right)
{
    return std::equal(left.samples().cbegin(), left.samples().cend(), right.samples().cbegin(),
                      right.samples().cend(),
                      [](const TraceFile::Sample& one, const TraceFile::Sample& other) {
                          return one.timeMs == other.timeMs && Fuzzing::isSame(one.grams, other.grams);
                      });
}

void requireSameResult(const QByteArray& content, const std::optional<TraceFile>& trace, const QString& error)
{
    QString otherError;
    const std::optional<TraceFile> other = parse(content, &otherError);
    Fuzzing::requireEqual(otherError, error, "the same recording written otherwise");
    REQUIRE(other.has_value() == trace.has_value());
    if (trace) {
        REQUIRE(isSame(*trace, *other) && trace->decimals() == other->decimals()
                && trace->decimalsLine() == other->decimalsLine());
    }
}

void checkTrace(const TraceFile& trace, int lines)
{
    REQUIRE(!trace.samples().isEmpty());
    REQUIRE(trace.durationMs() == trace.samples().last().timeMs);
    REQUIRE(trace.decimals() >= 0 && trace.decimalsLine() >= 2 && trace.decimalsLine() <= lines);
    QByteArray text = "time_s,weight_g\n";
    qint64 previousMs = 0;
    for (const TraceFile::Sample& sample : trace.samples()) {
        REQUIRE(sample.timeMs >= previousMs);
        REQUIRE(sample.timeMs - previousMs <= TraceFile::MaximumGapSeconds * qint64(1000));
        REQUIRE(sample.timeMs <= static_cast<qint64>(TraceFile::MaximumSeconds * 1000.0));
        REQUIRE(std::fabs(sample.grams) <= TraceFile::MaximumGrams && !Fuzzing::isSame(sample.grams, -0.0));
        previousMs = sample.timeMs;
        text += QStringLiteral("%1.%2,%3\n")
                    .arg(sample.timeMs / 1000)
                    .arg(sample.timeMs % 1000, 3, 10, QLatin1Char('0'))
                    .arg(QString::number(sample.grams, 'f', QLocale::FloatingPointShortest))
                    .toLatin1();
    }
    QString error;
    const std::optional<TraceFile> again = parse(text, &error);
    REQUIRE(again && error.isEmpty() && isSame(trace, *again));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray content = Fuzzing::Input(data, size).rest();
    QString error;
    const std::optional<TraceFile> trace = parse(content, &error);
    const int lines = content.count('\n') + 1;

    int longest = 0;
    for (const QByteArray& line : content.split('\n')) {
        longest = std::max(longest, line.size());
    }
    // Beyond that a line is cut where it is read.
    if (longest <= LongestLine) {
        requireSameResult(QByteArray(content).replace("\n", "\r\n"), trace, error);
        if (!content.isEmpty() && !content.startsWith("\xEF\xBB\xBF")) {
            requireSameResult("\xEF\xBB\xBF" + content, trace, error);
        }
        if (trace) {
            requireSameResult(content + "\n\n", trace, error);
        }
    }
    if (trace) {
        REQUIRE(error.isEmpty());
        checkTrace(*trace, lines);
        return 0;
    }
    const int line = Fuzzing::lineOf(error, Name);
    REQUIRE(line >= 1 && line <= lines);
    return 0;
}
