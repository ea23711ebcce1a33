// SPDX-License-Identifier: BSD-3-Clause
#include "script/TextDifference.h"

#include "print/TextLayout.h"

#include <QVector>

#include <algorithm>

namespace Brimvale
{
namespace Terminal
{

namespace
{

QStringList linesOf(QString text)
{
    if (text.endsWith(QLatin1Char('\n'))) {
        text.chop(1);
    } else if (text.isEmpty()) {
        return QStringList();
    }
    return text.split(QLatin1Char('\n'));
}

/// With what cannot be seen at its end made visible.
QString shown(const QString& line)
{
    int end = line.size();
    while (end > 0 && line.at(end - 1).isSpace()) {
        --end;
    }
    return line.left(end) + QString(line.size() - end, QChar(0x00B7));
}

/// The length of the longest common part of the rest of both lists, by the indices at which they begin.
QVector<QVector<int>> commonLengths(const QStringList& expected, const QStringList& found)
{
    QVector<QVector<int>> lengths(expected.size() + 1, QVector<int>(found.size() + 1, 0));
    for (int e = expected.size() - 1; e >= 0; --e) {
        for (int f = found.size() - 1; f >= 0; --f) {
            lengths[e][f] = expected.at(e) == found.at(f) ? lengths[e + 1][f + 1] + 1
                                                          : std::max(lengths[e + 1][f], lengths[e][f + 1]);
        }
    }
    return lengths;
}

} // namespace

QStringList sideBySide(const QString& expected, const QString& found)
{
    const QStringList left = linesOf(expected);
    const QStringList right = linesOf(found);
    const QString head = QStringLiteral("EXPECTED");
    int width = head.size();
    for (const QString& line : left) {
        width = std::max(width, textWidth(line));
    }
    QStringList rows;
    const auto add = [&rows, width](const QString& a, char mark, const QString& b) {
        rows.append(padded(a, width) + QStringLiteral(" %1 ").arg(QLatin1Char(mark)) + b);
        while (rows.constLast().endsWith(QLatin1Char(' '))) {
            rows.last().chop(1);
        }
    };
    add(head, ' ', QStringLiteral("PRINTED"));

    const QVector<QVector<int>> lengths = commonLengths(left, right);
    int e = 0;
    int f = 0;
    while (e < left.size() || f < right.size()) {
        if (e < left.size() && f < right.size() && left.at(e) == right.at(f)) {
            add(shown(left.at(e++)), ' ', shown(right.at(f++)));
            continue;
        }
        // What differs up to the next common line: lines against lines, then the rest of the longer side.
        QStringList missing;
        QStringList extra;
        while ((e < left.size() || f < right.size())
               && !(e < left.size() && f < right.size() && left.at(e) == right.at(f))) {
            if (f == right.size() || (e < left.size() && lengths[e + 1][f] >= lengths[e][f + 1])) {
                missing.append(left.at(e++));
            } else {
                extra.append(right.at(f++));
            }
        }
        for (int row = 0; row < std::max(missing.size(), extra.size()); ++row) {
            const char mark = row >= extra.size() ? '<' : row >= missing.size() ? '>' : '!';
            add(shown(missing.value(row)), mark, shown(extra.value(row)));
        }
    }
    return rows;
}

} // namespace Terminal
} // namespace Brimvale
