// SPDX-License-Identifier: BSD-3-Clause
#include "RangeSwitch.h"

#include <QtTest>

using namespace Brimvale;

class TestRangeSwitch : public QObject
{
    Q_OBJECT

private slots:
    void beginsFreeInTheFirstRange();
    void holdsWhatItIsGiven();
    void settersStore();
};

void TestRangeSwitch::beginsFreeInTheFirstRange()
{
    RangeSwitch rangeSwitch;
    QCOMPARE(rangeSwitch.getCurrentRange(), 0);
    QCOMPARE(rangeSwitch.getFixRange(), -1);
}

void TestRangeSwitch::holdsWhatItIsGiven()
{
    RangeSwitch rangeSwitch(2, 1);
    QCOMPARE(rangeSwitch.getCurrentRange(), 2);
    QCOMPARE(rangeSwitch.getFixRange(), 1);
}

void TestRangeSwitch::settersStore()
{
    RangeSwitch rangeSwitch;
    IRangeSwitch* const face = &rangeSwitch;
    face->SetRangeSelection(3);
    face->setFixRange(4);
    QCOMPARE(face->getCurrentRange(), 3);
    QCOMPARE(face->getFixRange(), 4);
}

QTEST_APPLESS_MAIN(TestRangeSwitch)
#include "tst_rangeswitch.moc"
