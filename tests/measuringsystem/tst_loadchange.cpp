// SPDX-License-Identifier: BSD-3-Clause
#include "ISystemRegister.h"
#include "IWeighing.h"
#include "LoadChange.h"

#include <QSignalSpy>
#include <QtTest>

#include <TestKit/LogCapture.h>
#include <TestKit/RecordingHost.h>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <thread>

using namespace Brimvale;
using namespace Brimvale::TestKit;

namespace
{

using Mode = ILoadChange::LoadChangeMode;

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinite = std::numeric_limits<double>::infinity();
constexpr qint32 LargestInt = std::numeric_limits<qint32>::max();
constexpr qint32 SmallestInt = std::numeric_limits<qint32>::min();
constexpr long LargestLong = std::numeric_limits<long>::max();
constexpr long SmallestLong = std::numeric_limits<long>::min();

constexpr int CurrentRegister = 74;
constexpr int UpperLimitRegister = 90;

// The settings of most tests.
constexpr double UpperLimit = 30000;
constexpr unsigned long Range = 50;
constexpr unsigned long PercentRange = 5;
constexpr long Minimum = 100;
constexpr double Reference = 1000;

bool isPercent(Mode mode)
{
    return mode == ILoadChange::Percent || mode == ILoadChange::PercentFixed;
}

/// The range with which the band around the reference is 950 to 1050 in every mode.
unsigned long rangeOf(Mode mode)
{
    return isPercent(mode) ? PercentRange : Range;
}

const char* nameOf(Mode mode)
{
    static const char* const Names[] = {"absolute", "percent", "absolute fixed", "percent fixed"};
    return Names[mode];
}

constexpr Mode Modes[] = {ILoadChange::Absolute, ILoadChange::Percent, ILoadChange::AbsoluteFixed,
                          ILoadChange::PercentFixed};

/// The detector once more: the described steps, on members of its own.
class PlainDetector
{
public:
    bool start(int mode, quint32 range, qint32 minimum, bool ignoreMinimum, double upperLimit)
    {
        m_minimum = minimum;
        m_ignoreMinimum = ignoreMinimum;
        m_mode = mode;
        m_active = false;
        m_state = 0;
        if (mode > 3) {
            return false;
        }
        if (mode == 2 || mode == 3) {
            m_referenceTaken = false;
        }
        if (mode == 1 || mode == 3) {
            if (range < 1 || range > 99) {
                return false;
            }
        } else if (!(double(range) < upperLimit)) {
            return false;
        }
        m_range = range;
        m_active = true;
        return true;
    }

    void stable(double value, double upperLimit)
    {
        if (!m_active || m_state != 0) {
            return;
        }
        if (m_ignoreMinimum ? value <= -1000000000.0 : m_minimum >= value) {
            return;
        }
        m_state = 1;
        if (m_mode >= 2) {
            if (m_referenceTaken) {
                return;
            }
            m_referenceTaken = true;
        }
        const qint32 r = truncated(value);
        if (m_mode == 0 || m_mode == 2) {
            m_low = truncated(double(r) - double(m_range));
            m_high = truncated(double(r) + double(m_range));
        } else if (m_autoTare) {
            const double d = double(m_range) * m_lastSample / 100;
            m_low = truncated(0 - d);
            m_high = truncated(d + 0);
        } else {
            m_low = truncated((100.0 - m_range) * r / 100);
            m_high = truncated((100.0 + m_range) * r / 100);
        }
        const qint32 lowest = m_ignoreMinimum ? -1000000000 : m_minimum;
        if (m_low < lowest) {
            m_low = lowest;
        }
        if (double(m_high) > upperLimit) {
            m_high = truncated(upperLimit);
        }
    }

    /// Returns whether the detector has triggered.
    bool measured(double value)
    {
        if (!m_active || m_state != 1) {
            return false;
        }
        const qint32 w = truncated(value);
        if (m_low <= w && w <= m_high) {
            return false;
        }
        m_ignoreMinimum = false;
        m_state = 2;
        return true;
    }

    bool isAvailable(qint64 value) const
    {
        if (m_state != 2) {
            return false;
        }
        if (m_ignoreMinimum) {
            if (value < -999999999) {
                return false;
            }
        } else if (value <= m_minimum) {
            return false;
        }
        return m_mode == 0 || m_mode == 1 || (m_low <= value && value <= m_high);
    }

    bool isActive() const { return m_active; }
    void stop() { m_active = false; }
    void setState(int state) { m_state = state; }
    void setAutoTare(bool autoTare) { m_autoTare = autoTare; }
    void setLastSample(double lastSample) { m_lastSample = lastSample; }

private:
    static qint32 truncated(double value)
    {
        if (std::isnan(value)) {
            return 0;
        }
        return static_cast<qint32>(qBound(double(SmallestInt), std::trunc(value), double(LargestInt)));
    }

    bool m_active = false;
    bool m_referenceTaken = false;
    int m_state = 0;
    int m_mode = 0;
    quint32 m_range = 0;
    qint32 m_minimum = 0;
    bool m_ignoreMinimum = false;
    bool m_autoTare = false;
    double m_lastSample = 0;
    qint32 m_low = 0;
    qint32 m_high = 0;
};

/// What happens to a detector in the table of states.
enum class Event
{
    StableLoad,
    StableAtMinimum,
    MeasuredInside,
    MeasuredOutside,
    ResetTrigger,
    SetArmed,
    SetWatching,
    SetTriggered,
    SetOther,
    Stop,
    Start,
    StartRefused
};

const char* const EventNames[] = {"stable load",     "stable value at the minimum",
                                  "value inside",    "value outside",
                                  "reset",           "set to armed",
                                  "set to watching", "set to triggered",
                                  "set to no state", "stop",
                                  "start",           "start that is refused"};

enum State
{
    Armed,
    Watching,
    Triggered,
    NoState
};

const char* const StateNames[] = {"armed", "watching", "triggered", "in no state"};

/// A weighing object that is no QObject.
class BareScale : public IWeighing
{
public:
    bool Tare() override { return false; }
    bool Zero() override { return false; }
    bool ClearTare() override { return false; }
};

/// A weighing object without the signals.
class SilentScale : public QObject, public IWeighing
{
    Q_OBJECT

public:
    bool Tare() override { return false; }
    bool Zero() override { return false; }
    bool ClearTare() override { return false; }
};

/// One reading of a recording.
struct Sample
{
    int milliseconds;
    int digits;
};

/// A reading every 50 ms, up to and including `seconds`; the weight is a function of the time in milliseconds.
template <typename Weight>
QVector<Sample> recording(int seconds, Weight weight)
{
    QVector<Sample> samples;
    for (int time = 0; time <= seconds * 1000; time += 50) {
        samples.append({time, weight(time)});
    }
    return samples;
}

/// From one weight to another within 200 ms.
int ramp(int time, int begin, int from, int to)
{
    return from + (to - from) * qBound(0, time - begin, 200) / 200;
}

/// Up and down by `height` within 200 ms.
int vibration(int time, int height)
{
    const int phase = time / 50 % 4;
    return phase == 1 ? height : phase == 3 ? -height : 0;
}

int drift(int time)
{
    return 1000 + time / 100; // 10 digits a second
}

int steps(int time)
{
    const int atSecond = time / 1000;
    return atSecond < 4   ? ramp(time, 2000, 0, 1000)
           : atSecond < 6 ? ramp(time, 4000, 1000, 1040)
           : atSecond < 8 ? ramp(time, 6000, 1040, 3000)
                          : ramp(time, 8000, 3000, 0);
}

int overload(int time)
{
    return time < 4000 ? ramp(time, 2000, 29000, 31000) : ramp(time, 4000, 31000, 29000);
}

int shaken(int time)
{
    const int height = time < 2000 ? 0 : time < 4000 ? 30 : time < 6000 ? 60 : 0;
    return 1000 + vibration(time, height);
}

} // namespace

Q_DECLARE_METATYPE(ILoadChange::LoadChangeMode)
Q_DECLARE_METATYPE(Sample)

class TestLoadChange : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void beginsInactive();
    void metaObject();
    void logsItsEnd();
    void connectsBySignature();
    void weighingWithoutSignals();
    void weighingThatIsNoObject();
    void callsAreQueuedFromAnotherThread();
    void outlivesTheScale();

    void start_data();
    void start();
    void startReadsTheLimitOnlyForAbsoluteModes();
    void refusedStartStoresModeMinimumAndFlag();
    void startArmsAnew();

    void states_data();
    void states();

    void band_data();
    void band();
    void bandOfFixedModesStays_data();
    void bandOfFixedModesStays();
    void bandMovesInOtherModes();
    void autoTareBand_data();
    void autoTareBand();
    void readsOneRegisterPerEvent();

    void floor_data();
    void floor();
    void firstTriggerEndsTheGracePeriod();
    void measuredValueIsTruncated_data();
    void measuredValueIsTruncated();

    void valueAvailable_data();
    void valueAvailable();
    void aboveThreshold_data();
    void aboveThreshold();
    void stopKeepsStateAndBand();

    void behavesAsDescribed();
    void replays_data();
    void replays();

private:
    void makeWatching(Mode mode);
    int triggersOn(double measured);

    std::unique_ptr<RecordingHost> m_host;
    std::unique_ptr<LoadChange> m_detector;
    std::unique_ptr<QSignalSpy> m_triggers;
};

void TestLoadChange::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_host->setRegister(UpperLimitRegister, UpperLimit);
    m_detector = std::make_unique<LoadChange>(nullptr, m_host->weighing(), m_host->systemRegister());
    m_triggers = std::make_unique<QSignalSpy>(m_detector.get(), &LoadChange::NotifyLoadChangedTriggerd);
    m_host->clearCalls();
}

void TestLoadChange::cleanup()
{
    m_triggers.reset();
    m_detector.reset();
    m_host.reset();
}

/// Starts the detector and sets the band 950 to 1050.
void TestLoadChange::makeWatching(Mode mode)
{
    QVERIFY(m_detector->Start(mode, rangeOf(mode), Minimum, false));
    m_host->emitLoadChanged(1, Reference);
}

/// How often the detector triggers on a measured value.
int TestLoadChange::triggersOn(double measured)
{
    m_triggers->clear();
    m_host->emitNewMeasurement(measured);
    return m_triggers->count();
}

void TestLoadChange::beginsInactive()
{
    QVERIFY(!m_detector->isActive());
    QVERIFY(!m_detector->isValueAvailable(0));
    m_host->emitLoadChanged(1, Reference);
    QCOMPARE(triggersOn(5 * Reference), 0);
    // All fields are zero: the mode is absolute, the minimum 0 and not ignored, the band 0 to 0.
    m_detector->setTrigger(Triggered);
    QVERIFY(!m_detector->isValueAvailable(0));
    QVERIFY(m_detector->isValueAvailable(1));
}

void TestLoadChange::metaObject()
{
    const QMetaObject* const meta = m_detector->metaObject();
    QCOMPARE(meta->className(), "Brimvale::LoadChange");
    QCOMPARE(meta->methodCount() - QObject::staticMetaObject.methodCount(), 3);
    QVERIFY(meta->indexOfSignal("NotifyLoadChangedTriggerd()") >= 0);
    QVERIFY(meta->indexOfSlot("onLoadChanged(int,double)") >= 0);
    QVERIFY(meta->indexOfSlot("onNewMeasurementValue()") >= 0);
    QCOMPARE(qobject_cast<ILoadChange*>(m_detector.get()), static_cast<ILoadChange*>(m_detector.get()));
    QCOMPARE(m_detector->qt_metacast("ILoadChange"),
             static_cast<void*>(static_cast<ILoadChange*>(m_detector.get())));
    QCOMPARE(qobject_interface_iid<ILoadChange*>(), "Brimvale.MeasuringSystem.ILoadChange/1.0");

    QObject parent;
    auto* const owned = new LoadChange(&parent, m_host->weighing(), m_host->systemRegister());
    QCOMPARE(owned->parent(), &parent);
}

void TestLoadChange::logsItsEnd()
{
    LogCapture log;
    QString address;
    QDebug(&address).nospace() << m_detector.get();
    m_triggers.reset();
    m_detector.reset();
    QCOMPARE(log.takeLines(), QStringList(QStringLiteral("trace: Running destructor ->  ") + address));
}

void TestLoadChange::connectsBySignature()
{
    RecordingWeighing* const scale = m_host->weighing();
    makeWatching(ILoadChange::Absolute);
    QCOMPARE(triggersOn(Reference), 0);
    QCOMPARE(triggersOn(2 * Reference), 1);

    // The slots are invoked by the signals of this very object, once each.
    QVERIFY(disconnect(scale, SIGNAL(NotifyLoadChanged(int, double)), m_detector.get(),
                       SLOT(onLoadChanged(int, double))));
    QVERIFY(disconnect(scale, SIGNAL(NotifyNewMeasurementValue()), m_detector.get(),
                       SLOT(onNewMeasurementValue())));
    QVERIFY(!disconnect(scale, nullptr, m_detector.get(), nullptr));
}

void TestLoadChange::weighingWithoutSignals()
{
    SilentScale scale;
    QTest::ignoreMessage(
        QtWarningMsg, QRegularExpression(
                          QStringLiteral("No such signal SilentScale::NotifyLoadChanged\\(int, ?double\\)")));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(
                                           "No such signal SilentScale::NotifyNewMeasurementValue\\(\\)")));
    LoadChange detector(nullptr, &scale, m_host->systemRegister());
    QVERIFY(detector.Start(ILoadChange::Absolute, Range, Minimum, false));
}

void TestLoadChange::weighingThatIsNoObject()
{
    BareScale scale;
    IWeighing* const scales[] = {&scale, nullptr};
    for (IWeighing* weighing : scales) {
        for (const char* signal : {"NotifyLoadChanged", "NotifyNewMeasurementValue"}) {
            QTest::ignoreMessage(
                QtWarningMsg,
                QRegularExpression(QStringLiteral("Cannot connect .*::%1\\(").arg(QLatin1String(signal))));
        }
        LoadChange detector(nullptr, weighing, m_host->systemRegister());
        QSignalSpy triggers(&detector, &LoadChange::NotifyLoadChangedTriggerd);
        // Its slots may be called by whoever knows the values.
        QVERIFY(detector.Start(ILoadChange::Absolute, Range, Minimum, false));
        detector.onLoadChanged(1, Reference);
        m_host->setRegister(CurrentRegister, 2 * Reference);
        detector.onNewMeasurementValue();
        QCOMPARE(triggers.count(), 1);
    }
}

void TestLoadChange::callsAreQueuedFromAnotherThread()
{
    makeWatching(ILoadChange::Absolute);
    m_host->setRegister(CurrentRegister, 2 * Reference);
    RecordingWeighing* const scale = m_host->weighing();
    std::thread([scale] { emit scale->NotifyNewMeasurementValue(); }).join();
    QCOMPARE(m_triggers->count(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(m_triggers->count(), 1);
}

void TestLoadChange::outlivesTheScale()
{
    auto scale = std::make_unique<SilentScale>();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("No such signal")));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("No such signal")));
    LoadChange detector(nullptr, scale.get(), m_host->systemRegister());
    scale.reset();
    QVERIFY(detector.Start(ILoadChange::Percent, PercentRange, Minimum, false));
    detector.onLoadChanged(1, Reference);
    detector.Stop();
    QVERIFY(!detector.isActive());
}

void TestLoadChange::start_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<quint64>("range");
    QTest::addColumn<double>("upperLimit");
    QTest::addColumn<bool>("starts");

    for (Mode mode : Modes) {
        const auto row = [mode](const char* name, quint64 range, double upperLimit, bool starts) {
            QTest::addRow("%s, %s", nameOf(mode), name) << int(mode) << range << upperLimit << starts;
        };
        if (isPercent(mode)) {
            row("0 percent", 0, UpperLimit, false);
            row("1 percent", 1, UpperLimit, true);
            row("99 percent", 99, UpperLimit, true);
            row("100 percent", 100, UpperLimit, false);
            row("largest range", std::numeric_limits<quint32>::max(), UpperLimit, false);
            row("the limit does not count", 99, 5.0, true);
        } else {
            row("range 0", 0, UpperLimit, true);
            row("one below the limit", 29999, UpperLimit, true);
            row("the limit", 30000, UpperLimit, false);
            row("above the limit", 30001, UpperLimit, false);
            row("a part below the limit", 30000, 30000.5, true);
            row("range 0 and limit 0", 0, 0.0, false);
            row("negative limit", 0, -1.0, false);
            row("limit that is no number", 1, NotANumber, false);
            row("no limit", std::numeric_limits<quint32>::max(), Infinite, true);
        }
    }
    QTest::newRow("mode 4") << 4 << quint64(5) << UpperLimit << false;
    QTest::newRow("negative mode") << -1 << quint64(5) << UpperLimit << false;
    QTest::newRow("largest mode") << int(LargestInt) << quint64(5) << UpperLimit << false;
}

void TestLoadChange::start()
{
    QFETCH(int, mode);
    QFETCH(quint64, range);
    QFETCH(double, upperLimit);
    QFETCH(bool, starts);
    m_host->setRegister(UpperLimitRegister, upperLimit);
    for (bool wasActive : {false, true}) {
        if (wasActive) {
            QVERIFY(m_detector->Start(ILoadChange::Percent, 5, Minimum, false));
        }
        QCOMPARE(
            m_detector->Start(static_cast<Mode>(mode), static_cast<unsigned long>(range), Minimum, false),
            starts);
        QCOMPARE(m_detector->isActive(), starts);
    }
}

void TestLoadChange::startReadsTheLimitOnlyForAbsoluteModes()
{
    for (Mode mode : Modes) {
        QVERIFY(m_detector->Start(mode, 5, Minimum, false));
        if (isPercent(mode)) {
            BRIMVALE_COMPARE_CALLS(*m_host);
        } else {
            BRIMVALE_COMPARE_CALLS(*m_host, "ISystemRegister::GetRegisterValue(90)");
        }
    }
    QVERIFY(!m_detector->Start(static_cast<Mode>(4), 5, Minimum, false));
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestLoadChange::refusedStartStoresModeMinimumAndFlag()
{
    const auto isAvailable = [this](long value) {
        m_detector->setTrigger(Triggered);
        return m_detector->isValueAvailable(value);
    };
    // Minimum and flag, with a mode that is none.
    QVERIFY(m_detector->Start(ILoadChange::Absolute, Range, Minimum, false));
    QVERIFY(isAvailable(200));
    QVERIFY(!m_detector->Start(static_cast<Mode>(4), Range, 300, false));
    QVERIFY(!isAvailable(200));
    QVERIFY(!isAvailable(
        400)); // it does, though: above the minimum only the absolute and percent modes ask no more

    // The mode, and with it whether the band (0 to 0) counts.
    QVERIFY(!m_detector->Start(ILoadChange::Percent, 0, 150, false));
    QVERIFY(!isAvailable(150));
    QVERIFY(isAvailable(151));
    QVERIFY(!m_detector->Start(ILoadChange::AbsoluteFixed, 30000, -5, false));
    QVERIFY(!isAvailable(151));
    QVERIFY(isAvailable(0));

    QVERIFY(!m_detector->Start(ILoadChange::Absolute, 30000, 300, true));
    QVERIFY(isAvailable(-999999999));

    // And the state begins anew.
    QVERIFY(!m_detector->Start(ILoadChange::Absolute, 30000, 0, true));
    QVERIFY(!m_detector->isValueAvailable(1000));
}

void TestLoadChange::startArmsAnew()
{
    // In the fixed modes with another reference than before.
    for (Mode mode : Modes) {
        makeWatching(mode);
        QCOMPARE(triggersOn(2 * Reference), 1);
        QVERIFY(m_detector->Start(mode, rangeOf(mode), Minimum, false));
        QCOMPARE(triggersOn(2 * Reference), 0);
        m_host->emitLoadChanged(1, 2 * Reference);
        QCOMPARE(triggersOn(2 * Reference), 0);
        QCOMPARE(triggersOn(Reference), 1);
    }
}

void TestLoadChange::states_data()
{
    QTest::addColumn<Mode>("mode");
    QTest::addColumn<bool>("active");
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("event");
    QTest::addColumn<bool>("activeAfter");
    QTest::addColumn<int>("stateAfter");
    QTest::addColumn<int>("triggers");

    struct Change
    {
        bool active;
        int state;
        int triggers;
    };
    const auto changeOf = [](bool active, int state, Event event) -> Change {
        switch (event) {
        case Event::StableLoad:
            return {active, active && state == Armed ? Watching : state, 0};
        case Event::StableAtMinimum:
        case Event::MeasuredInside:
            return {active, state, 0};
        case Event::MeasuredOutside:
            return active && state == Watching ? Change{true, Triggered, 1} : Change{active, state, 0};
        case Event::ResetTrigger:
        case Event::SetArmed:
            return {active, Armed, 0};
        case Event::SetWatching:
            return {active, Watching, 0};
        case Event::SetTriggered:
            return {active, Triggered, 0};
        case Event::SetOther:
            return {active, NoState, 0};
        case Event::Stop:
            return {false, state, 0};
        case Event::Start:
            return {true, Armed, 0};
        case Event::StartRefused:
            return {false, Armed, 0};
        }
        return {};
    };
    for (Mode mode : Modes) {
        for (bool active : {true, false}) {
            for (int state : {Armed, Watching, Triggered, NoState}) {
                for (int event = 0; event <= int(Event::StartRefused); ++event) {
                    const Change change = changeOf(active, state, static_cast<Event>(event));
                    QTest::addRow("%s, %s%s, %s", nameOf(mode), active ? "" : "inactive and ",
                                  StateNames[state], EventNames[event])
                        << mode << active << state << event << change.active << change.state
                        << change.triggers;
                }
            }
        }
    }
}

void TestLoadChange::states()
{
    QFETCH(Mode, mode);
    QFETCH(bool, active);
    QFETCH(int, state);
    QFETCH(int, event);
    QFETCH(bool, activeAfter);
    QFETCH(int, stateAfter);
    QFETCH(int, triggers);

    makeWatching(mode);
    m_detector->setTrigger(state);
    if (!active) {
        m_detector->Stop();
    }
    m_triggers->clear();

    switch (static_cast<Event>(event)) {
    case Event::StableLoad:
        m_host->emitLoadChanged(1, Reference);
        break;
    case Event::StableAtMinimum:
        m_host->emitLoadChanged(1, Minimum);
        break;
    case Event::MeasuredInside:
        m_host->emitNewMeasurement(Reference);
        break;
    case Event::MeasuredOutside:
        m_host->emitNewMeasurement(2 * Reference);
        break;
    case Event::ResetTrigger:
        m_detector->ResetTrigger();
        break;
    case Event::SetArmed:
        m_detector->setTrigger(Armed);
        break;
    case Event::SetWatching:
        m_detector->setTrigger(Watching);
        break;
    case Event::SetTriggered:
        m_detector->setTrigger(Triggered);
        break;
    case Event::SetOther:
        m_detector->setTrigger(NoState);
        break;
    case Event::Stop:
        m_detector->Stop();
        break;
    case Event::Start:
        QVERIFY(m_detector->Start(mode, rangeOf(mode), Minimum, false));
        break;
    case Event::StartRefused:
        QVERIFY(!m_detector->Start(mode, 30000, Minimum, false));
        break;
    }

    QCOMPARE(m_triggers->count(), triggers);
    QCOMPARE(m_detector->isActive(), activeAfter);
    // The state shows in what is available, what triggers, and what a stable value makes of it.
    QCOMPARE(m_detector->isValueAvailable(long(Reference)), stateAfter == Triggered);
    QCOMPARE(triggersOn(2 * Reference), activeAfter && stateAfter == Watching ? 1 : 0);
    if (activeAfter && stateAfter != Watching) {
        m_host->emitLoadChanged(1, Reference);
        QCOMPARE(triggersOn(2 * Reference), stateAfter == Armed ? 1 : 0);
    }
}

void TestLoadChange::band_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<quint32>("range");
    QTest::addColumn<qint64>("minimum");
    QTest::addColumn<bool>("ignoreMinimum");
    QTest::addColumn<double>("upperLimit");
    QTest::addColumn<double>("stable");
    QTest::addColumn<qint32>("low");
    QTest::addColumn<qint32>("high");

    const auto row = [](const char* name, bool percent, quint32 range, qint64 minimum, bool ignoreMinimum,
                        double upperLimit, double stable, qint32 low, qint32 high) {
        QTest::newRow(name) << int(percent) << range << minimum << ignoreMinimum << upperLimit << stable
                            << low << high;
    };
    row("absolute", false, 50, 100, false, 30000, 1000, 950, 1050);
    row("absolute, range 0", false, 0, 100, false, 30000, 1000, 1000, 1000);
    row("absolute, value truncated", false, 50, 100, false, 30000, 1000.99, 950, 1050);
    row("absolute, negative value truncated", false, 50, 0, true, 30000, -1000.99, -1050, -950);
    row("absolute, value truncated to zero", false, 5, 0, true, 30000, -0.9, -5, 5);
    row("absolute, raised to the minimum", false, 500, 900, false, 30000, 1000, 900, 1500);
    row("absolute, minimum ignored", false, 500, 900, true, 30000, 1000, 500, 1500);
    row("absolute, negative minimum", false, 500, -100, false, 30000, 0, -100, 500);
    row("absolute, lowered to the limit", false, 50, 100, false, 1020, 1000, 950, 1020);
    row("absolute, limit truncated", false, 50, 100, false, 1020.9, 1000, 950, 1020);
    row("absolute, limit below the value", false, 50, 100, false, 990, 1000, 950, 990);
    row("absolute, high bound at the limit", false, 50, 100, false, 1050, 1000, 950, 1050);
    row("percent, negative limit truncated", true, 50, 0, true, -400.9, -1000, -500, -1500);
    row("absolute, raised to the lowest load", false, 2000, 0, true, 30000, -999999000, -1000000000,
        -999997000);
    row("absolute, value beyond 32 bits", false, 50, 0, false, 1e12, 3e9, LargestInt - 50, LargestInt);
    row("absolute, infinite value", false, 50, 0, false, 1e12, Infinite, LargestInt - 50, LargestInt);
    row("absolute, value that is no number", false, 50, 0, true, 30000, NotANumber, -50, 50);
    row("absolute, range beyond 31 bits", false, 4000000000u, -2000000000, false, 1e12, 1000, -2000000000,
        LargestInt);
    row("absolute, limit beyond 32 bits", false, 50, 0, false, 1e300, LargestInt, LargestInt - 50,
        LargestInt);
    row("absolute, minimum beyond 32 bits", false, 50, SmallestLong, false, 30000, -2147483600.0, SmallestInt,
        -2147483550);
    row("percent", true, 5, 100, false, 30000, 1000, 950, 1050);
    row("percent, 1", true, 1, 100, false, 30000, 1000, 990, 1010);
    row("percent, 99", true, 99, 0, false, 30000, 1000, 10, 1990);
    row("percent, bounds truncated", true, 5, 100, false, 30000, 333, 316, 349);
    row("percent, value truncated before", true, 10, 0, false, 30000, 19.9, 17, 20);
    row("percent, raised to the minimum", true, 50, 900, false, 30000, 1000, 900, 1500);
    row("percent, lowered to the limit", true, 50, 100, false, 1200, 1000, 500, 1200);
    row("percent, value 0", true, 50, -1, false, 30000, 0, 0, 0);
    row("percent, value beyond 32 bits", true, 50, 0, false, 1e12, 3e9, 1073741823, LargestInt);
    row("percent, around a negative value", true, 5, 0, true, 30000, -1000, -950, -1050);
    row("percent, negative value truncated towards zero", true, 5, 0, true, 30000, -333, -316, -349);
}

void TestLoadChange::band()
{
    QFETCH(int, percent);
    QFETCH(quint32, range);
    QFETCH(qint64, minimum);
    QFETCH(bool, ignoreMinimum);
    QFETCH(double, upperLimit);
    QFETCH(double, stable);
    QFETCH(qint32, low);
    QFETCH(qint32, high);

    for (Mode mode : Modes) {
        if (isPercent(mode) != (percent != 0)) {
            continue;
        }
        const auto triggersAt = [&](double measured) {
            m_host->setRegister(UpperLimitRegister, 1e13);
            const bool isStarted = m_detector->Start(mode, range, static_cast<long>(minimum), ignoreMinimum);
            m_host->setRegister(UpperLimitRegister, upperLimit);
            m_host->emitLoadChanged(1, stable);
            return isStarted ? triggersOn(measured) : -1;
        };
        if (low <= high) {
            QCOMPARE(triggersAt(low), 0);
            QCOMPARE(triggersAt(high), 0);
        } else {
            QCOMPARE(triggersAt(low), 1);
            QCOMPARE(triggersAt(high), 1);
            QCOMPARE(triggersAt((double(low) + high) / 2), 1);
        }
        // There is no value beyond the largest and smallest: they stand for all that lie further out.
        QCOMPARE(triggersAt(double(low) - 1), low == SmallestInt ? 0 : 1);
        QCOMPARE(triggersAt(double(high) + 1), high == LargestInt ? 0 : 1);
    }
}

void TestLoadChange::bandOfFixedModesStays_data()
{
    QTest::addColumn<Mode>("mode");
    QTest::newRow("absolute") << ILoadChange::AbsoluteFixed;
    QTest::newRow("percent") << ILoadChange::PercentFixed;
}

void TestLoadChange::bandOfFixedModesStays()
{
    QFETCH(Mode, mode);
    makeWatching(mode);
    QCOMPARE(triggersOn(2 * Reference), 1);
    m_detector->ResetTrigger();
    m_host->clearCalls();
    // The next stable value watches over the first band, in which it does not even lie; the limit is not read again.
    m_host->emitLoadChanged(1, 2 * Reference);
    BRIMVALE_COMPARE_CALLS(*m_host);
    QCOMPARE(triggersOn(1050), 0);
    QCOMPARE(triggersOn(1051), 1);
    m_detector->ResetTrigger();
    QCOMPARE(triggersOn(2 * Reference), 0);
    m_host->emitLoadChanged(1, 2 * Reference);
    QCOMPARE(triggersOn(949), 1);
    QVERIFY(m_detector->isValueAvailable(950));
    QVERIFY(!m_detector->isValueAvailable(949));

    QVERIFY(m_detector->Start(mode, rangeOf(mode), Minimum, false));
    m_host->emitLoadChanged(1, 2 * Reference);
    QCOMPARE(triggersOn(2 * Reference), 0);
    QCOMPARE(triggersOn(1051), 1);
}

void TestLoadChange::bandMovesInOtherModes()
{
    for (Mode mode : {ILoadChange::Absolute, ILoadChange::Percent}) {
        makeWatching(mode);
        QCOMPARE(triggersOn(2 * Reference), 1);
        // Stable values are ignored until the detector is armed again.
        m_host->emitLoadChanged(1, 5000);
        m_detector->ResetTrigger();
        m_host->emitLoadChanged(1, 2 * Reference);
        m_host->emitLoadChanged(1, 5000);
        QCOMPARE(triggersOn(2 * Reference), 0);
        QCOMPARE(triggersOn(Reference), 1);
    }
}

void TestLoadChange::autoTareBand_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<double>("lastSample");
    QTest::addColumn<qint32>("low");
    QTest::addColumn<qint32>("high");

    QTest::newRow("sample of 200") << 5 << 200.0 << -10 << 10;
    QTest::newRow("truncated towards zero") << 5 << 259.9 << -12 << 12;
    QTest::newRow("no sample") << 5 << 0.0 << 0 << 0;
    QTest::newRow("negative sample") << 5 << -200.0 << 10 << -10;
    QTest::newRow("sample beyond 32 bits") << 99 << 1e12 << -1000000000 << 30000;
    QTest::newRow("infinite sample") << 5 << Infinite << -1000000000 << 30000;
    QTest::newRow("sample that is no number") << 5 << NotANumber << 0 << 0;
}

void TestLoadChange::autoTareBand()
{
    QFETCH(int, percent);
    QFETCH(double, lastSample);
    QFETCH(qint32, low);
    QFETCH(qint32, high);
    for (Mode mode : {ILoadChange::Percent, ILoadChange::PercentFixed}) {
        const auto triggersAt = [&](double measured) {
            const bool isStarted = m_detector->Start(mode, static_cast<unsigned long>(percent), 0, true);
            m_detector->setAutoTare(true);
            m_detector->setLastSample(lastSample);
            m_host->emitLoadChanged(1, Reference);
            return isStarted ? triggersOn(measured) : -1;
        };
        QCOMPARE(triggersAt(low), low <= high ? 0 : 1);
        QCOMPARE(triggersAt(high), low <= high ? 0 : 1);
        QCOMPARE(triggersAt(low - 1), 1);
        QCOMPARE(triggersAt(high + 1), 1);
    }
    // The absolute modes take no notice.
    makeWatching(ILoadChange::Absolute);
    QCOMPARE(triggersOn(1050), 0);
    QCOMPARE(triggersOn(1051), 1);
}

void TestLoadChange::readsOneRegisterPerEvent()
{
    QVERIFY(m_detector->Start(ILoadChange::Percent, PercentRange, Minimum, false));
    m_host->clearCalls();
    m_host->emitNewMeasurement(Reference); // not watching
    m_host->emitLoadChanged(1, Minimum);   // no load
    BRIMVALE_COMPARE_CALLS(*m_host);
    m_host->emitLoadChanged(1, Reference);
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystemRegister::GetRegisterValue(90)");
    m_host->emitNewMeasurement(Reference);
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystemRegister::GetRegisterValue(74)");
    m_detector->Stop();
    m_host->emitNewMeasurement(2 * Reference);
    m_host->emitLoadChanged(1, Reference);
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestLoadChange::floor_data()
{
    QTest::addColumn<bool>("ignoreMinimum");
    QTest::addColumn<qint64>("minimum");
    QTest::addColumn<double>("stable");
    QTest::addColumn<bool>("taken");

    QTest::newRow("above the minimum") << false << qint64(100) << 101.0 << true;
    QTest::newRow("a part above the minimum") << false << qint64(100) << 100.001 << true;
    QTest::newRow("the minimum") << false << qint64(100) << 100.0 << false;
    QTest::newRow("below the minimum") << false << qint64(100) << 99.0 << false;
    QTest::newRow("negative minimum") << false << qint64(-100) << -99.0 << true;
    QTest::newRow("below a negative minimum") << false << qint64(-100) << -101.0 << false;
    QTest::newRow("minimum ignored") << true << qint64(100) << -99.0 << true;
    QTest::newRow("lowest load") << true << qint64(0) << -999999999.0 << true;
    QTest::newRow("a part above the floor") << true << qint64(0) << -999999999.5 << true;
    QTest::newRow("the floor") << true << qint64(0) << -1000000000.0 << false;
    QTest::newRow("below the floor") << true << qint64(0) << -1e300 << false;
    QTest::newRow("minus infinite") << true << qint64(0) << -Infinite << false;
    QTest::newRow("no number is not below") << false << qint64(-100) << NotANumber << true;
    QTest::newRow("minimum beyond 32 bits is the largest")
        << false << qint64(LargestLong) << 2147483646.0 << false;
    QTest::newRow("above the largest minimum") << false << qint64(LargestLong) << 2147483648.0 << true;
    QTest::newRow("minimum below 32 bits is the smallest")
        << false << qint64(SmallestLong) << -2147483648.0 << false;
}

void TestLoadChange::floor()
{
    QFETCH(bool, ignoreMinimum);
    QFETCH(qint64, minimum);
    QFETCH(double, stable);
    QFETCH(bool, taken);
    for (Mode mode : Modes) {
        QVERIFY(m_detector->Start(mode, rangeOf(mode), static_cast<long>(minimum), ignoreMinimum));
        m_host->emitLoadChanged(1, stable);
        // A value that lies in no band at all.
        QCOMPARE(triggersOn(stable > 0.0 ? SmallestInt : LargestInt), taken ? 1 : 0);
    }
}

void TestLoadChange::firstTriggerEndsTheGracePeriod()
{
    QVERIFY(m_detector->Start(ILoadChange::Absolute, Range, Minimum, true));
    m_host->emitLoadChanged(1, 0);
    QCOMPARE(triggersOn(Reference), 1);
    QVERIFY(!m_detector->isValueAvailable(Minimum));
    QVERIFY(m_detector->isValueAvailable(Minimum + 1));
    m_detector->ResetTrigger();
    m_host->emitLoadChanged(1, 0);
    QCOMPARE(triggersOn(Reference), 0);
    m_host->emitLoadChanged(1, Minimum + 1);
    QCOMPARE(triggersOn(Minimum - 1), 1);

    // A band without a trigger does not end it.
    QVERIFY(m_detector->Start(ILoadChange::Absolute, Range, Minimum, true));
    m_host->emitLoadChanged(1, 0);
    QCOMPARE(triggersOn(Range), 0);
    m_detector->ResetTrigger();
    m_host->emitLoadChanged(1, 0);
    QCOMPARE(triggersOn(Reference), 1);
}

void TestLoadChange::measuredValueIsTruncated_data()
{
    QTest::addColumn<double>("measured");
    QTest::addColumn<int>("triggers");
    QTest::newRow("within the high bound") << 50.999 << 0;
    QTest::newRow("above the high bound") << 51.0 << 1;
    QTest::newRow("within the low bound") << -50.999 << 0;
    QTest::newRow("below the low bound") << -51.0 << 1;
    QTest::newRow("beyond 32 bits") << 4294967296.0 << 1;
    QTest::newRow("far below 32 bits") << -1e300 << 1;
    QTest::newRow("infinite") << Infinite << 1;
    QTest::newRow("no number counts as 0") << NotANumber << 0;
}

void TestLoadChange::measuredValueIsTruncated()
{
    QFETCH(double, measured);
    QVERIFY(m_detector->Start(ILoadChange::Absolute, Range, 0, true));
    m_host->emitLoadChanged(1, 0);
    QTEST(triggersOn(measured), "triggers");
}

void TestLoadChange::valueAvailable_data()
{
    QTest::addColumn<Mode>("mode");
    QTest::addColumn<bool>("ignoreMinimum");
    QTest::addColumn<qint64>("value");
    QTest::addColumn<bool>("available");

    for (Mode mode : Modes) {
        // The band is 950 to 1050, or with an ignored minimum wider than all loads.
        const bool isFixed = mode == ILoadChange::AbsoluteFixed || mode == ILoadChange::PercentFixed;
        const auto row = [mode](const char* name, bool ignoreMinimum, qint64 value, bool available) {
            QTest::addRow("%s, %s", nameOf(mode), name) << mode << ignoreMinimum << value << available;
        };
        row("in the band", false, 1000, true);
        row("low bound", false, 950, true);
        row("below the low bound", false, 949, !isFixed);
        row("high bound", false, 1050, true);
        row("above the high bound", false, 1051, !isFixed);
        row("above the minimum", false, 101, !isFixed);
        row("the minimum", false, 100, false);
        row("below the minimum", false, -5, false);
        row("largest value", false, LargestLong, !isFixed);
        row("smallest value", false, SmallestLong, false);
        row("minimum ignored, the minimum", true, 100, !isFixed);
        row("minimum ignored, lowest load", true, -999999999, !isFixed);
        row("minimum ignored, below the lowest load", true, -1000000000, false);
        row("minimum ignored, smallest value", true, SmallestLong, false);
    }
}

void TestLoadChange::valueAvailable()
{
    QFETCH(Mode, mode);
    QFETCH(bool, ignoreMinimum);
    QFETCH(qint64, value);
    QVERIFY(m_detector->Start(mode, rangeOf(mode), Minimum, ignoreMinimum));
    m_host->emitLoadChanged(1, Reference);
    const auto digits = static_cast<long>(value);
    for (int state : {int(Armed), int(Watching), int(NoState), -1}) {
        m_detector->setTrigger(state);
        QVERIFY(!m_detector->isValueAvailable(digits));
    }
    m_detector->setTrigger(Triggered);
    QTEST(m_detector->isValueAvailable(digits), "available");
    m_host->clearCalls();
    m_detector->isValueAvailable(digits);
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestLoadChange::aboveThreshold_data()
{
    QTest::addColumn<double>("current");
    QTest::addColumn<qint64>("threshold");
    QTest::addColumn<bool>("above");
    QTest::newRow("above") << 1001.0 << qint64(1000) << true;
    QTest::newRow("a part above") << 1000.001 << qint64(1000) << true;
    QTest::newRow("equal") << 1000.0 << qint64(1000) << false;
    QTest::newRow("below") << 999.9 << qint64(1000) << false;
    QTest::newRow("negative") << -999.0 << qint64(-1000) << true;
    QTest::newRow("beyond 32 bits") << 1e10 << qint64(2147483647) << true;
    QTest::newRow("smallest threshold") << 0.0 << qint64(SmallestLong) << true;
    QTest::newRow("no number") << NotANumber << qint64(-5) << false;
}

void TestLoadChange::aboveThreshold()
{
    QFETCH(double, current);
    QFETCH(qint64, threshold);
    m_host->setRegister(CurrentRegister, current);
    // Neither started nor in any special state.
    QTEST(m_detector->isAboveThreshold(static_cast<long>(threshold)), "above");
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystemRegister::GetRegisterValue(74)");
}

void TestLoadChange::stopKeepsStateAndBand()
{
    makeWatching(ILoadChange::AbsoluteFixed);
    QCOMPARE(triggersOn(2 * Reference), 1);
    m_detector->Stop();
    QVERIFY(!m_detector->isActive());
    QVERIFY(m_detector->isValueAvailable(950));
    QVERIFY(!m_detector->isValueAvailable(949));
}

void TestLoadChange::behavesAsDescribed()
{
    std::mt19937 random(51);
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    const auto digits = [&]() -> double {
        switch (below(12)) {
        case 0:
            return NotANumber;
        case 1:
            return below(2) == 0 ? Infinite : -Infinite;
        case 2:
            return (below(2) == 0 ? 1.0 : -1.0) * std::pow(10.0, below(20));
        case 3:
            return static_cast<qint32>(random());
        case 4:
            return -1000000000.0 + below(3) - 1;
        default:
            return (below(40000) - 8000) / (below(3) == 0 ? 7.0 : 1.0);
        }
    };
    PlainDetector plain;
    double current = 0.0;
    double upperLimit = UpperLimit;
    int triggers = 0;
    for (int i = 0; i < 60000; ++i) {
        bool isSame = true;
        m_triggers->clear();
        int expectedTriggers = 0;
        const int action = below(40);
        if (action < 14) {
            current = digits();
            expectedTriggers = plain.measured(current) ? 1 : 0;
            m_host->emitNewMeasurement(current);
        } else if (action < 26) {
            current = digits();
            plain.stable(current, upperLimit);
            m_host->emitLoadChanged(below(100), current);
        } else if (action < 31) {
            plain.setState(0);
            m_detector->ResetTrigger();
        } else if (action < 34) {
            const int mode = below(5);
            const quint32 range = below(2) == 0 ? 1 + below(99) : below(2) == 0 ? random() : below(31000);
            const auto minimum = static_cast<qint32>(below(3) == 0 ? random() : below(500));
            const bool ignoreMinimum = below(2) == 0;
            isSame = plain.start(mode, range, minimum, ignoreMinimum, upperLimit)
                     == m_detector->Start(static_cast<Mode>(mode), range, minimum, ignoreMinimum);
        } else if (action == 34) {
            const int state = below(5) - 1;
            plain.setState(state);
            m_detector->setTrigger(state);
        } else if (action == 35) {
            const bool autoTare = below(2) == 0;
            plain.setAutoTare(autoTare);
            m_detector->setAutoTare(autoTare);
        } else if (action == 36) {
            const double lastSample = digits();
            plain.setLastSample(lastSample);
            m_detector->setLastSample(lastSample);
        } else if (action == 37) {
            upperLimit = below(3) == 0 ? digits() : UpperLimit;
            m_host->setRegister(UpperLimitRegister, upperLimit);
        } else if (action == 38 && below(4) == 0) {
            plain.stop();
            m_detector->Stop();
        }
        isSame =
            isSame && m_triggers->count() == expectedTriggers && m_detector->isActive() == plain.isActive();
        for (int probe = 0; probe < 3; ++probe) {
            const auto value = static_cast<long>(probe == 0 ? below(31000) : static_cast<qint32>(random()));
            isSame = isSame && m_detector->isValueAvailable(value) == plain.isAvailable(value);
        }
        const auto threshold = static_cast<long>(below(3)) - 1 + static_cast<long>(below(2) == 0 ? 0 : 1000);
        isSame = isSame && m_detector->isAboveThreshold(threshold) == (double(threshold) < current);
        if (!isSame) {
            QFAIL(qPrintable(
                QStringLiteral("the detectors differ after event %1, action %2").arg(i).arg(action)));
        }
        triggers += expectedTriggers;
        m_host->clearCalls();
    }
    QVERIFY2(triggers > 1000, qPrintable(QStringLiteral("only %1 triggers").arg(triggers)));
}

void TestLoadChange::replays_data()
{
    QTest::addColumn<QVector<Sample>>("samples");
    QTest::addColumn<Mode>("mode");
    QTest::addColumn<quint32>("range");
    QTest::addColumn<QString>("triggers"); // times in ms

    // The detector is armed again right after each trigger. A value is stable when ten readings in a row, 450 ms, lie
    // within 6 digits and none is above the limit.
    const QVector<Sample> drifting = recording(20, drift);
    const QVector<Sample> stepping = recording(10, steps);
    const QVector<Sample> overloading = recording(6, overload);
    const QVector<Sample> shaking = recording(8, shaken);
    const auto row = [](const char* name, const QVector<Sample>& samples, Mode mode, quint32 range,
                        const QString& triggers) {
        QTest::addRow("%s, %s %u", name, nameOf(mode), range) << samples << mode << range << triggers;
    };
    const auto everyReading = [](int first, int last) {
        QStringList times;
        for (int time = first; time <= last; time += 50) {
            times.append(QString::number(time));
        }
        return times.join(QLatin1Char(' '));
    };

    // The first stable value is 1004, at 450 ms; 1055 is the first one outside its band. It is stable itself, and
    // sets the next band.
    row("drift", drifting, ILoadChange::Absolute, 50, QStringLiteral("5500 10600 15700"));
    // 5 percent of 1004 and 1055 and 1108 are bands up to 1054, 1107 and 1163.
    row("drift", drifting, ILoadChange::Percent, 5, QStringLiteral("5500 10800 16400"));
    row("drift", drifting, ILoadChange::Absolute, 200, QString());
    // Beyond 1184 every value lies outside the band that stays, and every one is stable.
    row("drift", drifting, ILoadChange::AbsoluteFixed, 180, everyReading(18500, 20000));
    // Up to 1054, as above.
    row("drift", drifting, ILoadChange::PercentFixed, 5, everyReading(5500, 20000));

    // Each step triggers with its first reading, and the weight is stable again 450 ms after its end. The step from
    // 1000 to 1040 passes only the narrow band, with its third reading; the second, 1020, lies on the bound.
    row("steps", stepping, ILoadChange::Absolute, 50, QStringLiteral("2050 6050 8050"));
    row("steps", stepping, ILoadChange::Absolute, 20, QStringLiteral("2050 4150 6050 8050"));
    row("steps", stepping, ILoadChange::Percent, 5, QStringLiteral("2050 6050 8050"));
    // Up to 2990: only the load of 3000 lies outside, and is taken for a new one as long as it is stable.
    row("steps", stepping, ILoadChange::AbsoluteFixed, 2990,
        QStringLiteral("6200 ") + everyReading(6700, 8000));

    // The band ends at the limit of 30000 and not at 30500 or beyond, and nothing is stable above it.
    row("overload", overloading, ILoadChange::Absolute, 1500, QStringLiteral("2150"));
    row("overload", overloading, ILoadChange::Percent, 99, QStringLiteral("2150"));
    row("overload", overloading, ILoadChange::AbsoluteFixed, 1500, QStringLiteral("2150"));
    row("overload", overloading, ILoadChange::Absolute, 500, QStringLiteral("2100"));

    // Shaken by 30 digits from 2 s on and by 60 from 4 s on. Nothing is stable then, so it triggers once.
    row("vibration", shaking, ILoadChange::Absolute, 20, QStringLiteral("2050"));
    row("vibration", shaking, ILoadChange::Absolute, 30, QStringLiteral("4050"));
    row("vibration", shaking, ILoadChange::Percent, 3, QStringLiteral("4050"));
    row("vibration", shaking, ILoadChange::PercentFixed, 5, QStringLiteral("4050"));
    row("vibration", shaking, ILoadChange::Absolute, 60, QString());
}

void TestLoadChange::replays()
{
    QFETCH(QVector<Sample>, samples);
    QFETCH(Mode, mode);
    QFETCH(quint32, range);
    QFETCH(QString, triggers);

    int time = 0;
    QStringList times;
    connect(m_detector.get(), &LoadChange::NotifyLoadChangedTriggerd, m_detector.get(), [&] {
        times.append(QString::number(time));
        m_detector->ResetTrigger();
    });
    QVERIFY(m_detector->Start(mode, range, -1000, false));
    constexpr int StableReadings = 10;
    constexpr int StableDigits = 6;
    for (int i = 0; i < samples.size(); ++i) {
        time = samples.at(i).milliseconds;
        m_host->emitNewMeasurement(samples.at(i).digits);
        int lowest = LargestInt;
        int highest = SmallestInt;
        for (int j = qMax(0, i - StableReadings + 1); j <= i; ++j) {
            lowest = qMin(lowest, samples.at(j).digits);
            highest = qMax(highest, samples.at(j).digits);
        }
        const bool isOverload = highest > UpperLimit;
        if (i + 1 >= StableReadings && highest - lowest <= StableDigits && !isOverload) {
            m_host->emitLoadChanged(StableReadings, samples.at(i).digits);
        }
    }
    QCOMPARE(times.join(QLatin1Char(' ')), triggers);
}

QTEST_GUILESS_MAIN(TestLoadChange)
#include "tst_loadchange.moc"
