// SPDX-License-Identifier: BSD-3-Clause
#include "script/TextDifference.h"

#include <QtTest>

using namespace Brimvale::Terminal;

/// Two print-outs side by side.
class tst_TextDifference : public QObject
{
    Q_OBJECT

private slots:
    void sideBySide_data();
    void sideBySide();
};

void tst_TextDifference::sideBySide_data()
{
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("found");
    QTest::addColumn<QString>("rows");
    const auto row = [](const char* name, const char* expected, const char* found, const char* rows) {
        QTest::newRow(name) << QString::fromUtf8(expected) << QString::fromUtf8(found)
                            << QString::fromUtf8(rows);
    };
    row("equal", "a\nb\n", "a\nb\n",
        "EXPECTED   PRINTED\n"
        "a          a\n"
        "b          b");
    row("a line is missing", "a\nb\nc\n", "a\nc\n",
        "EXPECTED   PRINTED\n"
        "a          a\n"
        "b        <\n"
        "c          c");
    row("a line is too much", "a\nc\n", "a\nb\nc\n",
        "EXPECTED   PRINTED\n"
        "a          a\n"
        "         > b\n"
        "c          c");
    row("a line has changed", "a\nGross 1 g\nc\n", "a\nGross 2 g\nc\n",
        "EXPECTED    PRINTED\n"
        "a           a\n"
        "Gross 1 g ! Gross 2 g\n"
        "c           c");
    row("one has become two", "x\nc\n", "y\nz\nc\n",
        "EXPECTED   PRINTED\n"
        "x        ! y\n"
        "         > z\n"
        "c          c");
    row("nothing was expected", "", "a\n",
        "EXPECTED   PRINTED\n"
        "         > a");
    row("nothing was printed", "a\n", "",
        "EXPECTED   PRINTED\n"
        "a        <");
    row("a blank at the end", "a\n", "a \n",
        "EXPECTED   PRINTED\n"
        "a        ! a·");
    row("an empty line", "a\n\nb\n", "a\nb\n",
        "EXPECTED   PRINTED\n"
        "a          a\n"
        "         <\n"
        "b          b");
    row("wide characters keep the columns", "重量 12 公斤\nb\n", "重量 13 公斤\nb\n",
        "EXPECTED       PRINTED\n"
        "重量 12 公斤 ! 重量 13 公斤\n"
        "b              b");
}

void tst_TextDifference::sideBySide()
{
    QFETCH(QString, expected);
    QFETCH(QString, found);
    QTEST(Brimvale::Terminal::sideBySide(expected, found).join(QLatin1Char('\n')), "rows");
}

QTEST_GUILESS_MAIN(tst_TextDifference)
#include "tst_textdifference.moc"
