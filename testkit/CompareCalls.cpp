// SPDX-License-Identifier: BSD-3-Clause
#include "TestKit/CompareCalls.h"

#include <QVector>
#include <QtTest>

#include <algorithm>

namespace Brimvale::TestKit
{

namespace
{

/// Lines longer than this push the second column to the right instead of widening it for all.
constexpr int maximumColumnWidth = 80;

/// The length of the longest common subsequence of the rest of both lists, by the indices at which they begin.
QVector<QVector<int>> commonLengths(const QStringList& recorded, const QStringList& expected)
{
    QVector<QVector<int>> lengths(expected.size() + 1, QVector<int>(recorded.size() + 1, 0));
    for (int e = expected.size() - 1; e >= 0; --e) {
        for (int r = recorded.size() - 1; r >= 0; --r) {
            lengths[e][r] = expected[e] == recorded[r] ? lengths[e + 1][r + 1] + 1
                                                       : std::max(lengths[e + 1][r], lengths[e][r + 1]);
        }
    }
    return lengths;
}

QString row(int width, const QString& expected, char mark, const QString& recorded)
{
    return QStringLiteral("  %1 %2 %3\n").arg(expected, -width).arg(QLatin1Char(mark)).arg(recorded);
}

} // namespace

QString callDifference(const QStringList& recorded, const QStringList& expected)
{
    if (recorded == expected)
        return QString();

    const auto lineOf = [](const QStringList& list, int i) {
        return i < list.size() ? list[i] : QStringLiteral("(nothing)");
    };
    int first = 0;
    while (first < recorded.size() && first < expected.size() && recorded[first] == expected[first])
        ++first;
    QString text = QStringLiteral("The calls differ from line %1 on (%2 expected, %3 recorded).\n"
                                  "  expected: %4\n"
                                  "  recorded: %5\n")
                       .arg(first + 1)
                       .arg(expected.size())
                       .arg(recorded.size())
                       .arg(lineOf(expected, first), lineOf(recorded, first));

    int width = int(qstrlen("EXPECTED"));
    for (const QString& line : expected)
        width = std::max(width, std::min(line.size(), maximumColumnWidth));
    text += row(width, QStringLiteral("EXPECTED"), ' ', QStringLiteral("RECORDED"));

    const QVector<QVector<int>> lengths = commonLengths(recorded, expected);
    for (int e = 0, r = 0; e < expected.size() || r < recorded.size();) {
        if (e < expected.size() && r < recorded.size() && expected[e] == recorded[r]) {
            text += row(width, expected[e++], ' ', recorded[r++]);
        } else if (r == recorded.size() || (e < expected.size() && lengths[e + 1][r] >= lengths[e][r + 1])) {
            text += row(width, expected[e++], '<', QString());
        } else {
            text += row(width, QString(), '>', recorded[r++]);
        }
    }
    return text;
}

bool compareCallLists(const char* file, int line, const QStringList& recorded, const QStringList& expected)
{
    const QString difference = callDifference(recorded, expected);
    if (difference.isEmpty())
        return QTest::qVerify(true, "recorded calls", "", file, line);
    // qVerify() would cut the message off.
    QTest::qFail(qPrintable(difference), file, line);
    return false;
}

} // namespace Brimvale::TestKit
