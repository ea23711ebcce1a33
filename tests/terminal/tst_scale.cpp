// SPDX-License-Identifier: BSD-3-Clause
#include "clock/VirtualClock.h"
#include "measuring/Scale.h"
#include "source/SimulatedSource.h"
#include "source/TraceSource.h"

#include <QDir>
#include <QLocale>
#include <QSignalSpy>
#include <QtTest>

#include <cmath>
#include <limits>
#include <memory>

using namespace Brimvale::Terminal;
using Refusal = Scale::Refusal;

Q_DECLARE_METATYPE(Brimvale::Terminal::Scale::Refusal)

namespace
{

const double NaN = std::numeric_limits<double>::quiet_NaN();
const double Inf = std::numeric_limits<double>::infinity();

Readability readability(const char* text)
{
    return *Readability::parse(QLatin1String(text));
}

/// A source that does nothing by itself.
class SilentSource : public WeightSource
{
public:
    void start() override { }
    void stop() override { }
    QString description() const override { return QStringLiteral("silent"); }
    double readability() const override { return m_readability; }
    double capacity() const override { return m_capacity; }
    bool isLive() const override { return true; }

    void setReadability(double grams)
    {
        m_readability = grams;
        emit readabilityChanged(grams);
    }

    double m_readability = 0.0;
    double m_capacity = 0.0;
};

} // namespace

class tst_Scale : public QObject
{
    Q_OBJECT

private slots:
    void init();

    // The state
    void beforeTheFirstReading();
    void faults_data();
    void faults();
    void faultAfterAWeight_data();
    void faultAfterAWeight();
    void weightAfterAFault();
    void notFiniteIsUnreadable_data();
    void notFiniteIsUnreadable();
    void overloadByCapacity_data();
    void overloadByCapacity();
    void overloadIsJudgedFromThePowerOnZero();
    void absurdWeightsAreOverload_data();
    void absurdWeightsAreOverload();
    void rounding_data();
    void rounding();
    void texts();
    void textsIgnoreTheLocale();

    // Stability
    void stableAfterTheSpan();
    void faultEndsStability();
    void scaleThatSaysMoving();
    void scaleThatSaysStableIsStillJudged();
    void stabilitySettings();

    // Zero
    void zero();
    void zeroNeedsAValidWeight();
    void zeroNeedsAStableWeight();
    void zeroRange_data();
    void zeroRange();
    void zeroRangeCountsFromThePowerOnZero();
    void zeroRangeWithoutCapacity();
    void zeroClearsTheTare();

    // Tare
    void tare();
    void tareNeedsAValidWeight();
    void tareNeedsAStableWeight();
    void tareRefusesNegativeLoad();
    void tareOfAnEmptyScaleClears();
    void tareAgainReplaces();
    void netGoesBelowZero();
    void clearTare();
    void presetTare_data();
    void presetTare();
    void presetTareRefuses_data();
    void presetTareRefuses();
    void presetTareWithoutAWeight();
    void weighedTareReplacesPresetTare();
    void refusalChangesNothing();
    void refusalTexts();
    void successForgetsTheRefusal();

    // Ranges
    void oneRangeByDefault();
    void coarseRange();
    void coarseRangeHasHysteresis();
    void coarseRangeFollowsTheGross();
    void coarseNet();
    void coarseRangeIsStableByItsIncrement();

    // Limits
    void upperLimit_data();
    void upperLimit();

    // Signals
    void newMeasurementForEveryReading();
    void loadChangedOncePerStableValue();
    void loadChangedCarriesTheNet();
    void loadChangedNotForTare();
    void orderOfSignals();
    void stateChangedOnChangesOnly();
    void stateChangedAfterOperations();
    void stateIsUpToDateInEverySlot();
    void operationFromASlot();
    void deletedFromASlot();

    // Sources
    void readabilityOfTheSource();
    void readabilityOfTheSettingsWins();
    void readabilityBecomesKnown();
    void tareSurvivesFinerReadability();
    void capacityOfTheSource();
    void changeOfSourceBeginsAnew();
    void sourceThatIsDeleted();
    void hundredReadingsASecondWithoutLoss();
    void simulatedLoad();
    void recordedWeighing();

private:
    void make(const ScaleSettings& settings = {}) { m_scale = std::make_unique<Scale>(settings); }
    static ScaleSettings settingsWith(double capacity, double coarseAbove = 0.0)
    {
        ScaleSettings settings;
        settings.readability = readability("0.1");
        settings.capacity = capacity;
        settings.coarseAbove = coarseAbove;
        return settings;
    }
    /// One reading, 100 ms after the last.
    void read(double grams, std::optional<bool> mark = std::nullopt)
    {
        m_time += 100;
        m_scale->processReading(Reading::valid(m_time, grams, mark));
    }
    void fault(Reading::Status status, const QString& detail = QString())
    {
        m_time += 100;
        m_scale->processReading(Reading::invalid(m_time, status, detail));
    }
    /// Readings until it is stable.
    void settle(double grams)
    {
        for (int i = 0; i < 12; ++i)
            read(grams);
    }

    std::unique_ptr<Scale> m_scale;
    qint64 m_time = 0;
};

void tst_Scale::init()
{
    m_time = 0;
    make();
}

void tst_Scale::beforeTheFirstReading()
{
    QCOMPARE(m_scale->status(), Reading::Status::Disconnected);
    QVERIFY(!m_scale->isValid());
    QVERIFY(!m_scale->isStable());
    QCOMPARE(m_scale->statusText(), QStringLiteral("No connection"));
    QCOMPARE(m_scale->decimals(), 1);
    QCOMPARE(m_scale->incrementDigits(), 1.0);
    QVERIFY(std::isnan(m_scale->netDigits()));
    QVERIFY(std::isnan(m_scale->grossDigits()));
    QVERIFY(std::isnan(m_scale->netGrams()));
    QVERIFY(std::isnan(m_scale->grossGrams()));
    QCOMPARE(m_scale->netText(), QString());
    QCOMPARE(m_scale->grossText(), QString());
    QCOMPARE(m_scale->tareDigits(), 0.0);
    QCOMPARE(m_scale->tareText(), QStringLiteral("0.0"));
    QVERIFY(!m_scale->isTareSet());
    QVERIFY(!m_scale->isPresetTare());
    QVERIFY(!m_scale->isCoarseRange());
    QCOMPARE(m_scale->stableCounter(), 0);
    QCOMPARE(m_scale->lastRefusal(), Refusal::None);
    QCOMPARE(m_scale->source(), nullptr);
}

void tst_Scale::faults_data()
{
    QTest::addColumn<Reading>("reading");
    QTest::addColumn<QString>("text");
    QTest::newRow("overload") << Reading::invalid(0, Reading::Status::Overload) << QStringLiteral("Overload");
    QTest::newRow("underload") << Reading::invalid(0, Reading::Status::Underload)
                               << QStringLiteral("Underload");
    QTest::newRow("unreadable") << Reading::invalid(0, Reading::Status::Unreadable)
                                << QStringLiteral("Unreadable");
    QTest::newRow("disconnected") << Reading::invalid(0, Reading::Status::Disconnected)
                                  << QStringLiteral("No connection");
}

void tst_Scale::faults()
{
    QFETCH(Reading, reading);
    reading.detail = QStringLiteral("why");
    m_scale->processReading(reading);
    QVERIFY(!m_scale->isValid());
    QCOMPARE(m_scale->status(), reading.status);
    QTEST(m_scale->statusText(), "text");
    QCOMPARE(m_scale->statusDetail(), QStringLiteral("why"));
    QVERIFY(std::isnan(m_scale->netDigits()));
    QCOMPARE(m_scale->netText(), QString());
}

void tst_Scale::faultAfterAWeight_data()
{
    faults_data();
}

void tst_Scale::faultAfterAWeight()
{
    QFETCH(Reading, reading);
    settle(36.4);
    QVERIFY(m_scale->tare());
    reading.timeMs = m_time + 100;
    m_scale->processReading(reading);
    QVERIFY(!m_scale->isStable());
    QVERIFY(std::isnan(m_scale->netDigits()));
    QVERIFY(std::isnan(m_scale->grossDigits()));
    QCOMPARE(m_scale->netText(), QString());
    QCOMPARE(m_scale->grossText(), QString());
    // The tare is kept.
    QCOMPARE(m_scale->tareText(), QStringLiteral("36.4"));
}

void tst_Scale::weightAfterAFault()
{
    fault(Reading::Status::Overload, QStringLiteral("More than 6000 g."));
    read(36.4);
    QVERIFY(m_scale->isValid());
    QCOMPARE(m_scale->statusText(), QString());
    QCOMPARE(m_scale->statusDetail(), QString());
    QCOMPARE(m_scale->netText(), QStringLiteral("36.4"));
}

void tst_Scale::notFiniteIsUnreadable_data()
{
    QTest::addColumn<double>("grams");
    QTest::newRow("not a number") << NaN;
    QTest::newRow("infinite") << Inf;
    QTest::newRow("minus infinite") << -Inf;
}

void tst_Scale::notFiniteIsUnreadable()
{
    QFETCH(double, grams);
    settle(1.0);
    read(grams);
    QCOMPARE(m_scale->status(), Reading::Status::Unreadable);
    QVERIFY(!m_scale->isStable());
    QVERIFY(std::isnan(m_scale->netDigits()));
}

void tst_Scale::overloadByCapacity_data()
{
    QTest::addColumn<double>("grams");
    QTest::addColumn<bool>("isOverload");
    QTest::newRow("capacity") << 600.0 << false;
    QTest::newRow("nine increments more") << 600.9 << false;
    QTest::newRow("a tenth of an increment more") << 600.91 << true;
    QTest::newRow("ten increments more") << 601.0 << true;
    QTest::newRow("far below zero is the source's to judge") << -600.0 << false;
}

void tst_Scale::overloadByCapacity()
{
    QFETCH(double, grams);
    QFETCH(bool, isOverload);
    make(settingsWith(600.0));
    read(grams);
    QCOMPARE(m_scale->status(), isOverload ? Reading::Status::Overload : Reading::Status::Valid);
    QCOMPARE(m_scale->netText().isEmpty(), isOverload);
}

void tst_Scale::overloadIsJudgedFromThePowerOnZero()
{
    make(settingsWith(600.0));
    settle(10.0);
    QVERIFY(m_scale->zero());
    read(600.9);
    QCOMPARE(m_scale->grossText(), QStringLiteral("590.9"));
    read(601.0);
    QCOMPARE(m_scale->status(), Reading::Status::Overload);
}

void tst_Scale::absurdWeightsAreOverload_data()
{
    QTest::addColumn<double>("grams");
    QTest::addColumn<QString>("text");
    QTest::newRow("largest") << 99999999.9 << QString();
    QTest::newRow("larger") << 100000000.0 << QStringLiteral("Overload");
    QTest::newRow("absurd") << 1e300 << QStringLiteral("Overload");
    QTest::newRow("smallest") << -99999999.9 << QString();
    QTest::newRow("smaller") << -100000000.0 << QStringLiteral("Underload");
    QTest::newRow("absurdly small") << -1e300 << QStringLiteral("Underload");
}

void tst_Scale::absurdWeightsAreOverload()
{
    QFETCH(double, grams);
    read(grams);
    QTEST(m_scale->statusText(), "text");
}

void tst_Scale::rounding_data()
{
    QTest::addColumn<QString>("readabilityText");
    QTest::addColumn<double>("grams");
    QTest::addColumn<double>("digits");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const char* step, double grams, double digits, const char* text) {
        QTest::newRow(name) << QString::fromLatin1(step) << grams << digits << QString::fromLatin1(text);
    };
    row("exact", "0.1", 36.4, 364, "36.4");
    row("down", "0.1", 36.449, 364, "36.4");
    row("half up", "0.1", 36.45, 365, "36.5");
    row("half away from zero", "0.1", -0.25, -3, "-0.3");
    row("never minus zero", "0.1", -0.049, 0, "0.0");
    row("minus zero", "0.1", -0.0, 0, "0.0");
    row("step of 2", "0.02", 1.23, 124, "1.24");
    row("step of 5", "0.5", 0.74, 5, "0.5");
    row("step of 20 g", "20", 130.0, 140, "140");
    row("no decimals", "1", 12.5, 13, "13");
}

void tst_Scale::rounding()
{
    QFETCH(QString, readabilityText);
    QFETCH(double, grams);
    ScaleSettings settings;
    settings.readability = Readability::parse(readabilityText);
    make(settings);
    read(grams);
    QTEST(m_scale->netDigits(), "digits");
    QTEST(m_scale->grossDigits(), "digits");
    QTEST(m_scale->netText(), "text");
    QTEST(m_scale->grossText(), "text");
    QVERIFY(!std::signbit(m_scale->netDigits()) || m_scale->netDigits() < 0.0);
    QCOMPARE(m_scale->netText().toDouble(), m_scale->netGrams());
}

void tst_Scale::texts()
{
    QCOMPARE(m_scale->format(364), QStringLiteral("36.4"));
    QCOMPARE(m_scale->format(-5), QStringLiteral("-0.5"));
    QCOMPARE(m_scale->format(-0.0), QStringLiteral("0.0"));
    QCOMPARE(m_scale->format(NaN), QString());
    settle(100.0);
    m_scale->tare();
    read(136.4);
    QCOMPARE(m_scale->grossText(), QStringLiteral("136.4"));
    QCOMPARE(m_scale->tareText(), QStringLiteral("100.0"));
    QCOMPARE(m_scale->netText(), QStringLiteral("36.4"));
}

void tst_Scale::textsIgnoreTheLocale()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    read(12345.6);
    const QString text = m_scale->netText();
    QLocale::setDefault(before);
    QCOMPARE(text, QStringLiteral("12345.6"));
}

void tst_Scale::stableAfterTheSpan()
{
    for (int i = 0; i < 10; ++i) {
        read(36.4);
        QVERIFY(!m_scale->isStable());
    }
    read(36.5);
    QVERIFY(m_scale->isStable());
    read(36.6);
    QVERIFY(!m_scale->isStable());
}

void tst_Scale::faultEndsStability()
{
    settle(36.4);
    QVERIFY(m_scale->isStable());
    fault(Reading::Status::Unreadable);
    QVERIFY(!m_scale->isStable());
    for (int i = 0; i < 10; ++i) {
        read(36.4);
        QVERIFY(!m_scale->isStable());
    }
    read(36.4);
    QVERIFY(m_scale->isStable());
}

void tst_Scale::scaleThatSaysMoving()
{
    for (int i = 0; i < 30; ++i)
        read(36.4, false);
    QVERIFY(!m_scale->isStable());
    read(36.4, true);
    QVERIFY(m_scale->isStable());
    read(36.4, false);
    QVERIFY(!m_scale->isStable());
}

void tst_Scale::scaleThatSaysStableIsStillJudged()
{
    for (int i = 0; i < 30; ++i) {
        read(i, true);
        QVERIFY(!m_scale->isStable());
    }
}

void tst_Scale::stabilitySettings()
{
    ScaleSettings settings;
    settings.stability = {0.3, 3.0};
    make(settings);
    read(10.0);
    read(10.3);
    read(10.0);
    QVERIFY(!m_scale->isStable());
    read(10.1);
    QVERIFY(m_scale->isStable());
    read(10.4);
    QVERIFY(!m_scale->isStable());
}

void tst_Scale::zero()
{
    make(settingsWith(600.0));
    settle(1.2);
    QVERIFY(m_scale->zero());
    QCOMPARE(m_scale->lastRefusal(), Refusal::None);
    QCOMPARE(m_scale->grossText(), QStringLiteral("0.0"));
    QCOMPARE(m_scale->zeroOffsetGrams(), 1.2);
    QVERIFY(m_scale->isStable());
    read(11.2);
    QCOMPARE(m_scale->netText(), QStringLiteral("10.0"));
    read(0.0);
    QCOMPARE(m_scale->netText(), QStringLiteral("-1.2"));
}

void tst_Scale::zeroNeedsAValidWeight()
{
    QVERIFY(!m_scale->zero());
    QCOMPARE(m_scale->lastRefusal(), Refusal::NotValid);
    settle(0.0);
    fault(Reading::Status::Overload);
    QVERIFY(!m_scale->zero());
    QCOMPARE(m_scale->lastRefusal(), Refusal::NotValid);
}

void tst_Scale::zeroNeedsAStableWeight()
{
    read(1.0);
    QVERIFY(!m_scale->zero());
    QCOMPARE(m_scale->lastRefusal(), Refusal::NotStable);
    QCOMPARE(m_scale->grossText(), QStringLiteral("1.0"));
}

void tst_Scale::zeroRange_data()
{
    QTest::addColumn<double>("grams");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("at zero") << 0.0 << true;
    QTest::newRow("2 % of the capacity") << 12.0 << true;
    QTest::newRow("an increment more") << 12.1 << false;
    QTest::newRow("2 % below") << -12.0 << true;
    QTest::newRow("an increment further below") << -12.1 << false;
    QTest::newRow("much more") << 300.0 << false;
}

void tst_Scale::zeroRange()
{
    QFETCH(double, grams);
    QFETCH(bool, accepted);
    make(settingsWith(600.0));
    QCOMPARE(m_scale->zeroRangeGrams(), 12.0);
    settle(grams);
    QCOMPARE(m_scale->zero(), accepted);
    QCOMPARE(m_scale->lastRefusal(), accepted ? Refusal::None : Refusal::OutsideZeroRange);
    QCOMPARE(m_scale->zeroOffsetGrams(), accepted ? grams : 0.0);
}

void tst_Scale::zeroRangeCountsFromThePowerOnZero()
{
    make(settingsWith(600.0));
    settle(10.0);
    QVERIFY(m_scale->zero());
    settle(13.0);
    QVERIFY(!m_scale->zero());
    settle(-11.0);
    QVERIFY(m_scale->zero());
    QCOMPARE(m_scale->zeroOffsetGrams(), -11.0);
}

void tst_Scale::zeroRangeWithoutCapacity()
{
    QCOMPARE(m_scale->capacity(), 0.0);
    QCOMPARE(m_scale->zeroRangeGrams(), 120.0); // 2 % of 60000 increments of 0.1 g
    settle(120.1);
    QVERIFY(!m_scale->zero());
    settle(120.0);
    QVERIFY(m_scale->zero());
}

void tst_Scale::zeroClearsTheTare()
{
    settle(5.0);
    QVERIFY(m_scale->presetTare(3.0));
    QVERIFY(m_scale->zero());
    QVERIFY(!m_scale->isTareSet());
    QVERIFY(!m_scale->isPresetTare());
    QCOMPARE(m_scale->netText(), QStringLiteral("0.0"));
}

void tst_Scale::tare()
{
    settle(123.4);
    QVERIFY(m_scale->tare());
    QVERIFY(m_scale->isTareSet());
    QVERIFY(!m_scale->isPresetTare());
    QCOMPARE(m_scale->tareDigits(), 1234.0);
    QCOMPARE(m_scale->netDigits(), 0.0);
    QCOMPARE(m_scale->grossDigits(), 1234.0);
    QCOMPARE(m_scale->tareGrams(), 123.4);
    QVERIFY(m_scale->isStable());
    read(200.0);
    QCOMPARE(m_scale->netText(), QStringLiteral("76.6"));
    QCOMPARE(m_scale->netDigits() + m_scale->tareDigits(), m_scale->grossDigits());
}

void tst_Scale::tareNeedsAValidWeight()
{
    QVERIFY(!m_scale->tare());
    QCOMPARE(m_scale->lastRefusal(), Refusal::NotValid);
}

void tst_Scale::tareNeedsAStableWeight()
{
    read(100.0);
    QVERIFY(!m_scale->tare());
    QCOMPARE(m_scale->lastRefusal(), Refusal::NotStable);
    QVERIFY(!m_scale->isTareSet());
}

void tst_Scale::tareRefusesNegativeLoad()
{
    settle(-0.1);
    QVERIFY(!m_scale->tare());
    QCOMPARE(m_scale->lastRefusal(), Refusal::NegativeLoad);
    QVERIFY(!m_scale->isTareSet());
}

void tst_Scale::tareOfAnEmptyScaleClears()
{
    settle(100.0);
    QVERIFY(m_scale->tare());
    settle(0.0);
    QCOMPARE(m_scale->netText(), QStringLiteral("-100.0"));
    QVERIFY(m_scale->tare());
    QVERIFY(!m_scale->isTareSet());
    QCOMPARE(m_scale->netText(), QStringLiteral("0.0"));
    // Less than half an increment below zero is still zero.
    settle(-0.04);
    QVERIFY(m_scale->tare());
}

void tst_Scale::tareAgainReplaces()
{
    settle(100.0);
    QVERIFY(m_scale->tare());
    settle(150.0);
    QVERIFY(m_scale->tare());
    QCOMPARE(m_scale->tareText(), QStringLiteral("150.0"));
    QCOMPARE(m_scale->netText(), QStringLiteral("0.0"));
}

void tst_Scale::netGoesBelowZero()
{
    settle(100.0);
    QVERIFY(m_scale->tare());
    read(0.0);
    QCOMPARE(m_scale->netText(), QStringLiteral("-100.0"));
    QCOMPARE(m_scale->netDigits(), -1000.0);
    QVERIFY(m_scale->isValid());
}

void tst_Scale::clearTare()
{
    QVERIFY(m_scale->clearTare());
    QVERIFY(m_scale->presetTare(5.0));
    QVERIFY(m_scale->clearTare());
    QVERIFY(!m_scale->isTareSet());
    QVERIFY(!m_scale->isPresetTare());
    settle(100.0);
    QVERIFY(m_scale->tare());
    read(500.0); // not stable: clearing needs no stable weight
    QVERIFY(m_scale->clearTare());
    QCOMPARE(m_scale->netText(), QStringLiteral("500.0"));
}

void tst_Scale::presetTare_data()
{
    QTest::addColumn<double>("grams");
    QTest::addColumn<QString>("tare");
    QTest::addColumn<bool>("set");
    QTest::newRow("plain") << 12.3 << QStringLiteral("12.3") << true;
    QTest::newRow("rounded") << 12.35 << QStringLiteral("12.4") << true;
    QTest::newRow("zero clears") << 0.0 << QStringLiteral("0.0") << false;
    QTest::newRow("rounds to zero") << 0.04 << QStringLiteral("0.0") << false;
    QTest::newRow("less than half an increment below zero") << -0.04 << QStringLiteral("0.0") << false;
    QTest::newRow("capacity") << 600.0 << QStringLiteral("600.0") << true;
}

void tst_Scale::presetTare()
{
    QFETCH(double, grams);
    make(settingsWith(600.0));
    read(100.0);
    QVERIFY(m_scale->presetTare(50.0));
    QVERIFY(m_scale->presetTare(grams));
    QTEST(m_scale->tareText(), "tare");
    QTEST(m_scale->isTareSet(), "set");
    QTEST(m_scale->isPresetTare(), "set");
    QCOMPARE(m_scale->netDigits(), 1000.0 - m_scale->tareDigits());
}

void tst_Scale::presetTareRefuses_data()
{
    QTest::addColumn<double>("grams");
    QTest::addColumn<Refusal>("refusal");
    QTest::newRow("negative") << -0.1 << Refusal::TareNegative;
    QTest::newRow("not a number") << NaN << Refusal::TareNotANumber;
    QTest::newRow("infinite") << Inf << Refusal::TareNotANumber;
    QTest::newRow("above the capacity") << 600.1 << Refusal::TareAboveCapacity;
    QTest::newRow("absurd") << 1e300 << Refusal::TareAboveCapacity;
}

void tst_Scale::presetTareRefuses()
{
    QFETCH(double, grams);
    make(settingsWith(600.0));
    QVERIFY(m_scale->presetTare(50.0));
    QVERIFY(!m_scale->presetTare(grams));
    QTEST(m_scale->lastRefusal(), "refusal");
    QCOMPARE(m_scale->tareText(), QStringLiteral("50.0"));
    QVERIFY(m_scale->isPresetTare());
}

void tst_Scale::presetTareWithoutAWeight()
{
    QVERIFY(m_scale->presetTare(50.0));
    QCOMPARE(m_scale->tareText(), QStringLiteral("50.0"));
    QCOMPARE(m_scale->netText(), QString());
    read(80.0);
    QCOMPARE(m_scale->netText(), QStringLiteral("30.0"));
}

void tst_Scale::weighedTareReplacesPresetTare()
{
    QVERIFY(m_scale->presetTare(50.0));
    settle(20.0);
    QVERIFY(m_scale->tare());
    QCOMPARE(m_scale->tareText(), QStringLiteral("20.0"));
    QVERIFY(!m_scale->isPresetTare());
}

void tst_Scale::refusalChangesNothing()
{
    settle(100.0);
    QVERIFY(m_scale->tare());
    read(150.0);
    QSignalSpy changes(m_scale.get(), &Scale::stateChanged);
    QVERIFY(!m_scale->tare());
    QVERIFY(!m_scale->zero());
    QVERIFY(!m_scale->presetTare(-1.0));
    QCOMPARE(changes.count(), 0);
    QCOMPARE(m_scale->netText(), QStringLiteral("50.0"));
    QCOMPARE(m_scale->tareText(), QStringLiteral("100.0"));
    QCOMPARE(m_scale->zeroOffsetGrams(), 0.0);
}

void tst_Scale::refusalTexts()
{
    make(settingsWith(600.0));
    QCOMPARE(m_scale->lastRefusalText(), QString());
    m_scale->tare();
    QCOMPARE(m_scale->lastRefusalText(), QStringLiteral("There is no valid weight (No connection)."));
    fault(Reading::Status::Overload);
    m_scale->zero();
    QCOMPARE(m_scale->lastRefusalText(), QStringLiteral("There is no valid weight (Overload)."));
    read(1.0);
    m_scale->tare();
    QCOMPARE(m_scale->lastRefusalText(), QStringLiteral("The weight is not stable: wait until it is."));
    settle(100.0);
    m_scale->zero();
    QCOMPARE(m_scale->lastRefusalText(),
             QStringLiteral("Zero can be set within 12 g of the zero at switch-on only: take the load off."));
    settle(-1.0);
    m_scale->tare();
    QCOMPARE(m_scale->lastRefusalText(), QStringLiteral("The gross weight is below zero: set zero first."));
    m_scale->presetTare(NaN);
    QCOMPARE(m_scale->lastRefusalText(), QStringLiteral("The preset tare is not a number."));
    m_scale->presetTare(-1.0);
    QCOMPARE(m_scale->lastRefusalText(), QStringLiteral("The preset tare is below zero: give 0 or more."));
    m_scale->presetTare(601.0);
    QCOMPARE(m_scale->lastRefusalText(), QStringLiteral("The preset tare is above 600.0 g: give less."));
}

void tst_Scale::successForgetsTheRefusal()
{
    QVERIFY(!m_scale->tare());
    QVERIFY(m_scale->clearTare());
    QCOMPARE(m_scale->lastRefusal(), Refusal::None);
    QCOMPARE(m_scale->lastRefusalText(), QString());
}

void tst_Scale::oneRangeByDefault()
{
    read(1e6);
    QVERIFY(!m_scale->isCoarseRange());
    QCOMPARE(m_scale->incrementDigits(), 1.0);
}

void tst_Scale::coarseRange()
{
    make(settingsWith(6000.0, 600.0));
    read(600.0);
    QVERIFY(!m_scale->isCoarseRange());
    QCOMPARE(m_scale->grossText(), QStringLiteral("600.0"));
    read(600.1);
    QVERIFY(m_scale->isCoarseRange());
    QCOMPARE(m_scale->incrementDigits(), 10.0);
    QCOMPARE(m_scale->grossText(), QStringLiteral("600.0"));
    read(1234.5);
    QCOMPARE(m_scale->grossText(), QStringLiteral("1235.0"));
    QCOMPARE(m_scale->decimals(), 1);
}

void tst_Scale::coarseRangeHasHysteresis()
{
    make(settingsWith(6000.0, 600.0));
    read(700.0);
    read(599.1);
    QVERIFY(m_scale->isCoarseRange());
    read(599.0);
    QVERIFY(!m_scale->isCoarseRange());
    read(600.0);
    QVERIFY(!m_scale->isCoarseRange());
}

void tst_Scale::coarseRangeFollowsTheGross()
{
    make(settingsWith(6000.0, 600.0));
    settle(700.0);
    QVERIFY(m_scale->tare());
    read(710.4);
    QVERIFY(m_scale->isCoarseRange());
    QCOMPARE(m_scale->netText(), QStringLiteral("10.0"));
    // Zero moves the gross.
    make(settingsWith(6000.0, 600.0));
    settle(100.0);
    QVERIFY(m_scale->zero());
    read(650.0);
    QVERIFY(!m_scale->isCoarseRange());
    QCOMPARE(m_scale->grossText(), QStringLiteral("550.0"));
}

void tst_Scale::coarseNet()
{
    make(settingsWith(6000.0, 600.0));
    settle(12.3);
    QVERIFY(m_scale->tare());
    read(712.0);
    QCOMPARE(m_scale->grossText(), QStringLiteral("712.0"));
    QCOMPARE(m_scale->tareText(), QStringLiteral("12.3"));
    QCOMPARE(m_scale->netText(), QStringLiteral("700.0")); // 699.7 in steps of 1 g
}

void tst_Scale::coarseRangeIsStableByItsIncrement()
{
    make(settingsWith(6000.0, 600.0));
    for (int i = 0; i < 20; ++i)
        read(i % 2 ? 700.0 : 700.9);
    QVERIFY(m_scale->isStable());
    for (int i = 0; i < 20; ++i)
        read(i % 2 ? 500.0 : 500.9);
    QVERIFY(!m_scale->isCoarseRange());
    QVERIFY(!m_scale->isStable());
}

void tst_Scale::upperLimit_data()
{
    QTest::addColumn<double>("capacity");
    QTest::addColumn<double>("digits");
    QTest::newRow("capacity") << 600.0 << 6000.0;
    QTest::newRow("not known") << 0.0 << 999999999.0;
    QTest::newRow("negative counts as not known") << -5.0 << 999999999.0;
    QTest::newRow("absurd") << 1e300 << 999999999.0;
}

void tst_Scale::upperLimit()
{
    QFETCH(double, capacity);
    make(settingsWith(capacity));
    QTEST(m_scale->upperLimitDigits(), "digits");
}

void tst_Scale::newMeasurementForEveryReading()
{
    QSignalSpy measurements(m_scale.get(), &Scale::newMeasurement);
    for (int i = 0; i < 5; ++i)
        read(1.0);
    fault(Reading::Status::Unreadable);
    fault(Reading::Status::Unreadable);
    QCOMPARE(measurements.count(), 7);
}

void tst_Scale::loadChangedOncePerStableValue()
{
    QSignalSpy loads(m_scale.get(), &Scale::loadChanged);
    settle(10.0);
    settle(10.0);
    settle(10.1); // within the limit: no instability, no new value
    QCOMPARE(loads.count(), 1);
    settle(50.0);
    QCOMPARE(loads.count(), 2);
    fault(Reading::Status::Overload);
    settle(50.0);
    QCOMPARE(loads.count(), 3);
    QCOMPARE(loads.at(0).at(0).toInt(), 1);
    QCOMPARE(loads.at(1).at(0).toInt(), 2);
    QCOMPARE(loads.at(2).at(0).toInt(), 3);
    QCOMPARE(loads.at(0).at(1).toDouble(), 100.0);
    QCOMPARE(loads.at(1).at(1).toDouble(), 500.0);
    QCOMPARE(m_scale->stableCounter(), 3);
}

void tst_Scale::loadChangedCarriesTheNet()
{
    settle(10.0);
    QVERIFY(m_scale->tare());
    QSignalSpy loads(m_scale.get(), &Scale::loadChanged);
    settle(46.4);
    QCOMPARE(loads.count(), 1);
    QCOMPARE(loads.at(0).at(1).toDouble(), 364.0);
}

void tst_Scale::loadChangedNotForTare()
{
    settle(10.0);
    QSignalSpy loads(m_scale.get(), &Scale::loadChanged);
    QVERIFY(m_scale->tare());
    settle(10.0);
    QVERIFY(m_scale->zero());
    settle(10.0);
    QCOMPARE(loads.count(), 0);
}

void tst_Scale::orderOfSignals()
{
    QStringList order;
    connect(m_scale.get(), &Scale::stateChanged, this, [&] { order.append(QStringLiteral("state")); });
    connect(m_scale.get(), &Scale::loadChanged, this, [&] { order.append(QStringLiteral("load")); });
    connect(m_scale.get(), &Scale::newMeasurement, this,
            [&] { order.append(QStringLiteral("measurement")); });
    read(1.0);
    QCOMPARE(order, QStringList({QStringLiteral("measurement"), QStringLiteral("state")}));
    for (int i = 0; i < 9; ++i)
        read(1.0);
    order.clear();
    read(1.0);
    QCOMPARE(order,
             QStringList({QStringLiteral("measurement"), QStringLiteral("load"), QStringLiteral("state")}));
}

void tst_Scale::stateChangedOnChangesOnly()
{
    QSignalSpy changes(m_scale.get(), &Scale::stateChanged);
    read(1.0);
    QCOMPARE(changes.count(), 1); // valid
    for (int i = 0; i < 9; ++i)
        read(1.0);
    QCOMPARE(changes.count(), 1);
    read(1.0);
    QCOMPARE(changes.count(), 2); // stable
    read(5.0);
    QCOMPARE(changes.count(), 3); // not stable
    fault(Reading::Status::Unreadable, QStringLiteral("a"));
    QCOMPARE(changes.count(), 4); // status
    fault(Reading::Status::Unreadable, QStringLiteral("a"));
    QCOMPARE(changes.count(), 4);
    fault(Reading::Status::Unreadable, QStringLiteral("b"));
    QCOMPARE(changes.count(), 5); // detail
}

void tst_Scale::stateChangedAfterOperations()
{
    settle(10.0);
    QSignalSpy changes(m_scale.get(), &Scale::stateChanged);
    QSignalSpy measurements(m_scale.get(), &Scale::newMeasurement);
    QVERIFY(m_scale->tare());
    QVERIFY(m_scale->clearTare());
    QVERIFY(m_scale->presetTare(1.0));
    QVERIFY(m_scale->zero());
    QCOMPARE(changes.count(), 4);
    QCOMPARE(measurements.count(), 0);
}

void tst_Scale::stateIsUpToDateInEverySlot()
{
    for (int i = 0; i < 10; ++i)
        read(36.4);
    QStringList seen;
    const auto note = [&] {
        seen.append(m_scale->netText()
                    + (m_scale->isStable() ? QStringLiteral(" stable ") : QStringLiteral(" "))
                    + QString::number(m_scale->stableCounter()));
    };
    connect(m_scale.get(), &Scale::newMeasurement, this, note);
    connect(m_scale.get(), &Scale::loadChanged, this, note);
    connect(m_scale.get(), &Scale::stateChanged, this, note);
    read(36.4);
    QCOMPARE(seen, QStringList({QStringLiteral("36.4 stable 1"), QStringLiteral("36.4 stable 1"),
                                QStringLiteral("36.4 stable 1")}));
}

void tst_Scale::operationFromASlot()
{
    double announced = NaN;
    connect(m_scale.get(), &Scale::newMeasurement, this, [this] {
        if (m_scale->isStable() && !m_scale->isTareSet())
            m_scale->tare();
    });
    connect(m_scale.get(), &Scale::loadChanged, this, [&](int, double net) { announced = net; });
    settle(36.4);
    QCOMPARE(m_scale->tareText(), QStringLiteral("36.4"));
    QCOMPARE(m_scale->netText(), QStringLiteral("0.0"));
    // What was announced is the value that became stable.
    QCOMPARE(announced, 364.0);
}

void tst_Scale::deletedFromASlot()
{
    connect(m_scale.get(), &Scale::newMeasurement, this, [this] { m_scale.reset(); });
    read(1.0);
    QVERIFY(!m_scale);
}

void tst_Scale::readabilityOfTheSource()
{
    SilentSource source;
    source.m_readability = 0.02;
    QSignalSpy decimals(m_scale.get(), &Scale::decimalsChanged);
    m_scale->setSource(&source);
    QCOMPARE(m_scale->source(), &source);
    QCOMPARE(m_scale->decimals(), 2);
    QCOMPARE(m_scale->incrementDigits(), 2.0);
    QCOMPARE(decimals.count(), 1);
    QCOMPARE(decimals.at(0).at(0).toInt(), 2);
}

void tst_Scale::readabilityOfTheSettingsWins()
{
    make(settingsWith(0.0));
    SilentSource source;
    source.m_readability = 0.02;
    m_scale->setSource(&source);
    QCOMPARE(m_scale->decimals(), 1);
    source.setReadability(0.001);
    QCOMPARE(m_scale->decimals(), 1);
}

void tst_Scale::readabilityBecomesKnown()
{
    SilentSource source;
    m_scale->setSource(&source);
    QCOMPARE(m_scale->decimals(), 1);
    QSignalSpy decimals(m_scale.get(), &Scale::decimalsChanged);
    source.setReadability(0.01);
    emit source.reading(Reading::valid(1, 36.404));
    QCOMPARE(m_scale->netText(), QStringLiteral("36.40"));
    source.setReadability(0.005);
    emit source.reading(Reading::valid(2, 36.404));
    QCOMPARE(m_scale->netText(), QStringLiteral("36.405"));
    source.setReadability(0.001);
    QCOMPARE(decimals.count(), 2); // 0.005 and 0.001 have the same decimals
    QCOMPARE(m_scale->netText(), QStringLiteral("36.404"));
}

void tst_Scale::tareSurvivesFinerReadability()
{
    SilentSource source;
    source.m_readability = 0.1;
    m_scale->setSource(&source);
    settle(12.3);
    QVERIFY(m_scale->tare());
    source.setReadability(0.001);
    QCOMPARE(m_scale->tareText(), QStringLiteral("12.300"));
    QCOMPARE(m_scale->tareDigits(), 12300.0);
    QCOMPARE(m_scale->netText(), QStringLiteral("0.000"));
}

void tst_Scale::capacityOfTheSource()
{
    SilentSource source;
    source.m_capacity = 300.0;
    m_scale->setSource(&source);
    QCOMPARE(m_scale->capacity(), 300.0);
    read(301.0);
    QCOMPARE(m_scale->status(), Reading::Status::Overload);
    make(settingsWith(200.0));
    m_scale->setSource(&source);
    QCOMPARE(m_scale->capacity(), 200.0);
}

void tst_Scale::changeOfSourceBeginsAnew()
{
    SilentSource first;
    SilentSource second;
    m_scale->setSource(&first);
    settle(1.0);
    QVERIFY(m_scale->zero());
    QVERIFY(m_scale->presetTare(5.0));
    m_scale->setSource(&second);
    QCOMPARE(m_scale->status(), Reading::Status::Disconnected);
    QVERIFY(!m_scale->isStable());
    QVERIFY(!m_scale->isTareSet());
    QCOMPARE(m_scale->zeroOffsetGrams(), 0.0);
    QSignalSpy measurements(m_scale.get(), &Scale::newMeasurement);
    emit first.reading(Reading::valid(1, 1.0));
    QCOMPARE(measurements.count(), 0);
    emit second.reading(Reading::valid(1, 1.0));
    QCOMPARE(measurements.count(), 1);
    m_scale->setSource(nullptr);
    emit second.reading(Reading::valid(2, 1.0));
    QCOMPARE(measurements.count(), 1);
}

void tst_Scale::sourceThatIsDeleted()
{
    auto source = std::make_unique<SilentSource>();
    source->m_capacity = 300.0;
    m_scale->setSource(source.get());
    settle(36.4);
    source.reset();
    QCOMPARE(m_scale->source(), nullptr);
    QCOMPARE(m_scale->capacity(), 0.0);
    QCOMPARE(m_scale->netText(), QStringLiteral("36.4"));
    // Where nothing comes from there is no weight.
    m_scale->setSource(nullptr);
    QCOMPARE(m_scale->status(), Reading::Status::Disconnected);
    QCOMPARE(m_scale->netText(), QString());
}

void tst_Scale::hundredReadingsASecondWithoutLoss()
{
    VirtualClock clock;
    SimulationSettings simulation;
    simulation.readingsPerSecond = 100.0;
    SimulatedSource source(clock, simulation);
    m_scale->setSource(&source);
    QVector<qint64> times;
    connect(m_scale.get(), &Scale::newMeasurement, this,
            [&] { times.append(m_scale->lastReading().timeMs - VirtualClock::DefaultStartMs); });
    source.start();
    clock.advance(100 * 1000 - 1);
    QCOMPARE(times.size(), 10000);
    for (int i = 0; i < times.size(); ++i)
        QCOMPARE(times.at(i), 10 * i);
}

void tst_Scale::simulatedLoad()
{
    VirtualClock clock;
    SimulatedSource source(clock);
    m_scale->setSource(&source);
    QCOMPARE(m_scale->capacity(), 6000.0);
    QSignalSpy loads(m_scale.get(), &Scale::loadChanged);
    source.start();
    clock.advance(3000);
    QVERIFY(m_scale->isStable());
    QCOMPARE(loads.count(), 1);
    source.putOn(500.0);
    clock.advance(300);
    QVERIFY(!m_scale->isStable());
    clock.advance(5000);
    QVERIFY(m_scale->isStable());
    QVERIFY(std::fabs(m_scale->netGrams() - 500.0) < 0.15);
    QVERIFY(loads.count() >= 2);
    source.putOn(6000.0);
    clock.advance(5000);
    QCOMPARE(m_scale->statusText(), QStringLiteral("Overload"));
    source.clear();
    source.takeOff(100.0);
    clock.advance(5000);
    QCOMPARE(m_scale->statusText(), QStringLiteral("Underload"));
    source.setConnected(false);
    QCOMPARE(m_scale->statusText(), QStringLiteral("No connection"));
    QCOMPARE(m_scale->statusDetail(), QStringLiteral("The cable is out."));
    source.setConnected(true);
    source.clear();
    clock.advance(5000);
    QVERIFY(m_scale->isValid());
}

void tst_Scale::recordedWeighing()
{
    QString error;
    const std::optional<TraceFile> file = TraceFile::load(
        QDir(QStringLiteral(BRIMVALE_TRACE_DIR)).filePath(QStringLiteral("filling.csv")), &error);
    QVERIFY2(file, qPrintable(error));
    VirtualClock clock;
    TraceSource source(clock, *file, QStringLiteral("filling.csv"), *TraceSource::readabilityOf(*file));
    m_scale->setSource(&source);
    QSignalSpy measurements(m_scale.get(), &Scale::newMeasurement);
    double largestUnstable = 0.0;
    int stableDuringTheFlow = 0;
    connect(m_scale.get(), &Scale::newMeasurement, this, [&] {
        const qint64 time = clock.nowMs() - VirtualClock::DefaultStartMs;
        // 36 s of a steady flow of 1.2 g a second.
        if (time > 36000 && time < 70000) {
            stableDuringTheFlow += m_scale->isStable() ? 1 : 0;
            largestUnstable = qMax(largestUnstable, m_scale->netGrams());
        }
    });
    source.start();
    while (clock.runNext()) { }
    QVERIFY(source.isFinished());
    QCOMPARE(measurements.count(), 381);
    QCOMPARE(stableDuringTheFlow, 0);
    QVERIFY(largestUnstable > 47.0);
    // The last value stays.
    QCOMPARE(m_scale->netText(), QStringLiteral("48.2"));
    QVERIFY(m_scale->isStable());
    QVERIFY(m_scale->isValid());
}

QTEST_GUILESS_MAIN(tst_Scale)
#include "tst_scale.moc"
