// SPDX-License-Identifier: BSD-3-Clause
//
// A test that fails on purpose; tst_comparecalls runs it.
#include <QObject>
#include <QtTest>

#include <TestKit/CompareCalls.h>

class FailingComparison : public QObject
{
    Q_OBJECT

private slots:
    void fails();
};

void FailingComparison::fails()
{
    QStringList expected;
    for (int line = 1; line <= 100; ++line)
        expected.append(QStringLiteral("line %1 of the list").arg(line));
    const QStringList recorded = expected.mid(0, 99);
    BRIMVALE_COMPARE_CALLS(recorded, expected);
    qInfo("went on");
}

QTEST_GUILESS_MAIN(FailingComparison)
#include "failing_comparison.moc"
