// SPDX-License-Identifier: BSD-3-Clause
#include "ui/BenchModel.h"

#include <QSignalSpy>
#include <QtTest>

#include <limits>
#include <memory>

using namespace Brimvale::Terminal;

namespace
{

const double s_nan = std::numeric_limits<double>::quiet_NaN();
const double s_infinity = std::numeric_limits<double>::infinity();

} // namespace

class tst_BenchModel : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void initialState();
    void pageIsOneOfThePages();
    void switchNotifiesOnChangeOnly_data();
    void switchNotifiesOnChangeOnly();
    void numberIsLimited_data();
    void numberIsLimited();
    void numberNotifiesOnChangeOnly_data();
    void numberNotifiesOnChangeOnly();
    void weightsSuitTheCapacity_data();
    void weightsSuitTheCapacity();
    void unknownCapacityKeepsTheWeights();
    void unusableWeightsAreLeftOut();
    void bubbleStaysInTheVial_data();
    void bubbleStaysInTheVial();
    void bubbleNotifiesLevelAtTheRingOnly();
    void setLevelMovesTheBubble();
    void setLevelKeepsABubbleThatIsThere();
    void faultsNotifyOnChangeOnly();

private:
    std::unique_ptr<BenchModel> m_bench;
};

void tst_BenchModel::init()
{
    m_bench = std::make_unique<BenchModel>();
}

void tst_BenchModel::initialState()
{
    QVERIFY(m_bench->available());
    QVERIFY(m_bench->connected());
    QVERIFY(m_bench->level());
    QVERIFY(!m_bench->calibrationDue());
    QCOMPARE(m_bench->load(), 0.0);
    QCOMPARE(m_bench->noise(), 0.0);
    QCOMPARE(m_bench->drift(), 0.0);
    QVERIFY(m_bench->weights().isEmpty());
    QVERIFY(m_bench->pluginFaults().isEmpty());
}

void tst_BenchModel::pageIsOneOfThePages()
{
    QSignalSpy spy(m_bench.get(), &BenchModel::pageChanged);
    QCOMPARE(m_bench->page(), QStringLiteral("scale"));
    for (const QString& page : {QStringLiteral("scale"), QStringLiteral("Printer"), QString()})
        m_bench->setPage(page);
    QCOMPARE(spy.count(), 0);
    m_bench->setPage(QStringLiteral("printer"));
    QCOMPARE(m_bench->page(), QStringLiteral("printer"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.first().first().toString(), QStringLiteral("printer"));
}

void tst_BenchModel::switchNotifiesOnChangeOnly_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("available") << QByteArray("available");
    QTest::newRow("connected") << QByteArray("connected");
    QTest::newRow("level") << QByteArray("level");
    QTest::newRow("calibrationDue") << QByteArray("calibrationDue");
}

void tst_BenchModel::switchNotifiesOnChangeOnly()
{
    QFETCH(QByteArray, property);
    QSignalSpy changed(m_bench.get(), QByteArray("2") + property + "Changed(bool)");
    const bool other = !m_bench->property(property).toBool();
    QVERIFY(m_bench->setProperty(property, other));
    QVERIFY(m_bench->setProperty(property, other));
    QCOMPARE(m_bench->property(property).toBool(), other);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toBool(), other);
}

void tst_BenchModel::numberIsLimited_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<double>("given");
    QTest::addColumn<double>("stored");
    QTest::newRow("load negative") << QByteArray("load") << -12.5 << -12.5;
    QTest::newRow("load NaN") << QByteArray("load") << s_nan << 0.0;
    QTest::newRow("load infinite") << QByteArray("load") << s_infinity << 0.0;
    QTest::newRow("capacity negative") << QByteArray("capacity") << -1.0 << 0.0;
    QTest::newRow("capacity NaN") << QByteArray("capacity") << s_nan << 0.0;
    QTest::newRow("capacity infinite") << QByteArray("capacity") << s_infinity << 0.0;
    QTest::newRow("readability negative") << QByteArray("readability") << -0.1 << 0.0;
    QTest::newRow("readability NaN") << QByteArray("readability") << s_nan << 0.0;
    QTest::newRow("noise in range") << QByteArray("noise") << 1.5 << 1.5;
    QTest::newRow("noise below") << QByteArray("noise") << -1.0 << 0.0;
    QTest::newRow("noise above") << QByteArray("noise") << 99.0 << 5.0;
    QTest::newRow("noise NaN") << QByteArray("noise") << s_nan << 0.0;
    QTest::newRow("drift in range") << QByteArray("drift") << -2.5 << -2.5;
    QTest::newRow("drift below") << QByteArray("drift") << -s_infinity << -10.0;
    QTest::newRow("drift above") << QByteArray("drift") << 10.5 << 10.0;
    QTest::newRow("drift NaN") << QByteArray("drift") << s_nan << 0.0;
}

void tst_BenchModel::numberIsLimited()
{
    QFETCH(QByteArray, property);
    QFETCH(double, given);
    QFETCH(double, stored);
    // From another value, so that what is stored was stored now.
    QVERIFY(m_bench->setProperty(property, 3.25));
    QVERIFY(m_bench->setProperty(property, given));
    QCOMPARE(m_bench->property(property).toDouble(), stored);
}

void tst_BenchModel::numberNotifiesOnChangeOnly_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("load") << QByteArray("load");
    QTest::newRow("capacity") << QByteArray("capacity");
    QTest::newRow("readability") << QByteArray("readability");
    QTest::newRow("noise") << QByteArray("noise");
    QTest::newRow("drift") << QByteArray("drift");
}

void tst_BenchModel::numberNotifiesOnChangeOnly()
{
    QFETCH(QByteArray, property);
    QSignalSpy changed(m_bench.get(), QByteArray("2") + property + "Changed(double)");
    QVERIFY(m_bench->setProperty(property, 2.5));
    QVERIFY(m_bench->setProperty(property, 2.5));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toDouble(), 2.5);
}

void tst_BenchModel::weightsSuitTheCapacity_data()
{
    QTest::addColumn<double>("capacity");
    QTest::addColumn<QVariantList>("weights");
    QTest::newRow("3200 g") << 3200.0 << QVariantList{10.0, 20.0, 50.0, 100.0, 200.0, 500.0, 1000.0, 2000.0};
    QTest::newRow("exactly a weight")
        << 500.0 << QVariantList{2.0, 5.0, 10.0, 20.0, 50.0, 100.0, 200.0, 500.0};
    QTest::newRow("an analytical balance")
        << 220.0 << QVariantList{1.0, 2.0, 5.0, 10.0, 20.0, 50.0, 100.0, 200.0};
    QTest::newRow("a micro balance") << 3.0 << QVariantList{0.01, 0.02, 0.05, 0.1, 0.2, 0.5, 1.0, 2.0};
    QTest::newRow("a platform") << 60000.0 << QVariantList{200.0,  500.0,   1000.0,  2000.0,
                                                           5000.0, 10000.0, 20000.0, 50000.0};
}

void tst_BenchModel::weightsSuitTheCapacity()
{
    QFETCH(double, capacity);
    QFETCH(QVariantList, weights);
    m_bench->setCapacity(capacity);
    QCOMPARE(m_bench->weights(), weights);
}

void tst_BenchModel::unknownCapacityKeepsTheWeights()
{
    m_bench->setCapacity(3200.0);
    const QVariantList weights = m_bench->weights();
    m_bench->setCapacity(s_nan);
    QCOMPARE(m_bench->capacity(), 0.0);
    QCOMPARE(m_bench->weights(), weights);
}

void tst_BenchModel::unusableWeightsAreLeftOut()
{
    m_bench->setWeights({1.0, 0.0, -5.0, s_nan, s_infinity, 2.0});
    QCOMPARE(m_bench->weights(), (QVariantList{1.0, 2.0}));
}

void tst_BenchModel::bubbleStaysInTheVial_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("shownX");
    QTest::addColumn<double>("shownY");
    QTest::newRow("inside") << 0.5 << -0.25 << 0.5 << -0.25;
    QTest::newRow("beyond the right") << 3.0 << 0.0 << 1.0 << 0.0;
    QTest::newRow("beyond a corner") << 0.8 << 0.6 << 0.8 << 0.6;
    QTest::newRow("far beyond a corner") << 1.0 << 1.0 << std::sqrt(0.5) << std::sqrt(0.5);
    QTest::newRow("infinite") << -s_infinity << 0.0 << -1.0 << 0.0;
    QTest::newRow("NaN") << s_nan << 0.5 << 0.0 << 0.5;
}

void tst_BenchModel::bubbleStaysInTheVial()
{
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(double, shownX);
    QFETCH(double, shownY);
    QSignalSpy moved(m_bench.get(), &BenchModel::bubbleMoved);
    m_bench->moveBubble(x, y);
    QCOMPARE(m_bench->levelX(), shownX);
    QCOMPARE(m_bench->levelY(), shownY);
    QCOMPARE(moved.count(), 1);
}

void tst_BenchModel::bubbleNotifiesLevelAtTheRingOnly()
{
    QSignalSpy level(m_bench.get(), &BenchModel::levelChanged);
    m_bench->moveBubble(m_bench->levelRing(), 0.0);
    QVERIFY(m_bench->level());
    QCOMPARE(level.count(), 0);
    m_bench->moveBubble(m_bench->levelRing() + 0.01, 0.0);
    QVERIFY(!m_bench->level());
    QCOMPARE(level.count(), 1);
    QCOMPARE(level.first().first().toBool(), false);
    m_bench->moveBubble(0.9, 0.0);
    QCOMPARE(level.count(), 1);
    m_bench->moveBubble(0.1, 0.1);
    QCOMPARE(level.count(), 2);
    QCOMPARE(level.last().first().toBool(), true);
}

void tst_BenchModel::setLevelMovesTheBubble()
{
    m_bench->setLevel(false);
    QVERIFY(std::hypot(m_bench->levelX(), m_bench->levelY()) > m_bench->levelRing());
    m_bench->setLevel(true);
    QCOMPARE(m_bench->levelX(), 0.0);
    QCOMPARE(m_bench->levelY(), 0.0);
}

void tst_BenchModel::setLevelKeepsABubbleThatIsThere()
{
    m_bench->moveBubble(0.1, 0.0);
    m_bench->setLevel(true);
    QCOMPARE(m_bench->levelX(), 0.1);
    m_bench->moveBubble(0.9, 0.0);
    m_bench->setLevel(false);
    QCOMPARE(m_bench->levelX(), 0.9);
}

void tst_BenchModel::faultsNotifyOnChangeOnly()
{
    QSignalSpy changed(m_bench.get(), &BenchModel::pluginFaultsChanged);
    m_bench->setPluginFaults({QStringLiteral("fault")});
    m_bench->setPluginFaults({QStringLiteral("fault")});
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_bench->pluginFaults(), QStringList{QStringLiteral("fault")});
}

QTEST_GUILESS_MAIN(tst_BenchModel)
#include "tst_benchmodel.moc"
