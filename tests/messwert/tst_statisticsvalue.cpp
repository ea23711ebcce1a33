// SPDX-License-Identifier: BSD-3-Clause
#include "StatisticsValue.h"

#include <QtTest>

#include <ctime>
#include <limits>
#include <random>

using namespace Brimvale;

namespace
{

using Flags = QFlags<StatisticsValue::StatisticsFlag>;
using Map = QMap<QString, QString>;

const QLatin1String TimestampFormat("yyyy-MM-dd HH:mm:ss.zzz");

constexpr qint64 LargestValue = std::numeric_limits<qint64>::max();
constexpr qint64 SmallestValue = std::numeric_limits<qint64>::min();
constexpr int LargestInt = std::numeric_limits<int>::max();
constexpr int SmallestInt = std::numeric_limits<int>::min();

Flags flagBits(quint32 bits)
{
    return Flags(QFlag(bits));
}

quint32 bitsOf(Flags flags)
{
    return static_cast<quint32>(int(flags));
}

QString latin1(const char* text)
{
    return QString::fromLatin1(text);
}

/// 5 March 2021, 14:07:09.042.
QDateTime sampleTime()
{
    return QDateTime(QDate(2021, 3, 5), QTime(14, 7, 9, 42));
}

StatisticsValue sample()
{
    return StatisticsValue(123456, 2, QStringLiteral("g"), StatisticsValue::Calculated, sampleTime(), true);
}

/// A figure in which every member differs from what any of the tests reads.
StatisticsValue untouched()
{
    return StatisticsValue(-77, -7, QStringLiteral("kept"), flagBits(0x70),
                           QDateTime(QDate(1999, 9, 9), QTime(9, 9, 9)), true);
}

QString described(const QDateTime& time)
{
    const QString state = time.isValid()  ? QString()
                          : time.isNull() ? QStringLiteral("null ")
                                          : QStringLiteral("invalid ");
    return state + time.toString(Qt::ISODateWithMs) + QLatin1Char(' ')
           + (time.isValid() ? QString::number(time.toMSecsSinceEpoch()) : QString()) + QLatin1Char(' ')
           + QString::number(time.timeSpec()) + QLatin1Char(' ') + QString::number(time.offsetFromUtc());
}

/// All members as one text.
QString described(const StatisticsValue& figure)
{
    return QStringLiteral("%1 | %2 | %3 | %4 | %5 | %6")
        .arg(figure.value)
        .arg(figure.komma)
        .arg(figure.unit)
        .arg(bitsOf(figure.flags))
        .arg(described(figure.timestamp))
        .arg(figure.valid ? QStringLiteral("valid") : QStringLiteral("not valid"));
}

// Reading once more, step by step and without any short cut --------------------------------------------------------

int plainAddPair(const QString& text, int position, Map* map)
{
    const int equals = text.indexOf(QStringLiteral("=\""), position);
    const int quote = text.indexOf(QStringLiteral("\""), equals + 2);
    const QString key = text.mid(position, equals - position);
    const QString value = text.mid(equals + 2, quote - (equals + 2));
    (*map)[key] = value;
    return quote + 2;
}

Map plainMap(const QString& text)
{
    Map map;
    int position = 0;
    while (position < text.length()) {
        const int next = plainAddPair(text, position, &map);
        if (next <= position) {
            break; // from here on the same pairs would come again and again
        }
        position = next;
    }
    return map;
}

int plainNumber(const QString& text)
{
    bool isNumber = false;
    const qlonglong number = text.toLongLong(&isNumber, 10);
    return isNumber && number >= SmallestInt && number <= LargestInt ? static_cast<int>(number) : 0;
}

void plainRead(const QString& text, StatisticsValue* figure)
{
    const Map map = plainMap(text);
    for (const QString& key : map.keys()) {
        const QString value = map.value(key);
        if (key == QStringLiteral("value")) {
            figure->value = plainNumber(value);
        } else if (key == QStringLiteral("komma")) {
            figure->komma = plainNumber(value);
        } else if (key == QStringLiteral("unit")) {
            figure->unit = value;
        } else if (key == QStringLiteral("flags")) {
            figure->flags = flagBits(static_cast<quint32>(plainNumber(value)));
        } else if (key == QStringLiteral("timestamp")) {
            figure->timestamp = QDateTime::fromString(value, TimestampFormat);
        }
    }
}

/// Sets the time zone of the process and puts the former one back at the end.
class TimeZone
{
public:
    explicit TimeZone(const char* zone)
        : m_wasSet(qEnvironmentVariableIsSet("TZ"))
        , m_former(qgetenv("TZ"))
    {
        qputenv("TZ", zone);
        tzset();
    }

    ~TimeZone()
    {
        if (m_wasSet) {
            qputenv("TZ", m_former);
        } else {
            qunsetenv("TZ");
        }
        tzset();
    }

private:
    Q_DISABLE_COPY(TimeZone)

    const bool m_wasSet;
    const QByteArray m_former;
};

// Rules of zones, so that no zone data base is needed.
constexpr char Utc[] = "UTC0";
constexpr char CentralEurope[] = "CET-1CEST,M3.5.0,M10.5.0/3";
constexpr char MidnightChange[] = "<-03>3<-02>,M10.3.0/0,M2.3.0/0"; // no midnight on the day summer begins
constexpr char OddOffset[] = "<+0545>-5:45";

void addZones()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::newRow("without daylight saving") << QByteArray(Utc);
    QTest::newRow("hour skipped at two o'clock") << QByteArray(CentralEurope);
    QTest::newRow("hour skipped at midnight") << QByteArray(MidnightChange);
    QTest::newRow("offset with minutes") << QByteArray(OddOffset);
}

/// Texts that are, nearly are, or are not at all in the form. The same seed gives the same texts everywhere.
class Texts
{
public:
    explicit Texts(unsigned seed)
        : m_random(seed)
    {
    }

    QString next()
    {
        QString text;
        if (below(3) == 0) {
            // As it is written, and then mostly a little different.
            text = QStringLiteral("value=\"%1\" komma=\"%2\" unit=\"%3\" flags=\"%4\" timestamp=\"%5\"")
                       .arg(value(), value(), value(), value(), value());
        }
        for (int i = below(text.isEmpty() ? 8 : 2); i > 0; --i) {
            text += pick(Keys) + pick(Middles) + value() + pick(Ends);
        }
        for (int i = below(3); i > 0; --i) {
            mutate(text);
        }
        return text;
    }

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    QDateTime time()
    {
        const int year = below(8) == 0 ? below(9999) + 1 : 1990 + below(50);
        const QDate date = QDate(year, 1, 1).addDays(below(366));
        return QDateTime(date, QTime(0, 0).addMSecs(below(8) == 0 ? 0 : below(86400000)));
    }

private:
    template <std::size_t Size>
    QString pick(const char* const (&texts)[Size])
    {
        return latin1(texts[below(static_cast<int>(Size))]);
    }

    QString value()
    {
        switch (below(6)) {
        case 0:
            return QString::number(static_cast<qint64>(m_random()) - 2147483648LL);
        case 1:
            return time().toString(TimestampFormat);
        case 2:
            return QString::number(static_cast<int>(m_random()) >> below(32));
        default:
            return pick(Values);
        }
    }

    void mutate(QString& text)
    {
        const int position = below(text.size() + 1);
        switch (below(4)) {
        case 0:
            text.insert(position, pick(Characters));
            break;
        case 1:
            text.remove(position, below(4));
            break;
        case 2:
            text.truncate(position);
            break;
        default:
            if (position < text.size()) {
                text.replace(position, 1, pick(Characters));
            }
        }
    }

    static constexpr const char* Keys[] = {"value", "komma", "unit",  "flags",     "timestamp",  "value",
                                           "komma", "unit",  "flags", "timestamp", "Value",      " value",
                                           "",      "x",     "valu",  "units",     "timestamp ", "flags\""};
    static constexpr const char* Middles[] = {"=\"", "=\"", "=\"", "=\"",  "=\"",    "=\"",
                                              "=\"", "=",   "\"",  " =\"", "=\"=\"", "= \""};
    static constexpr const char* Ends[] = {"\" ", "\" ",  "\" ", "\" ", "\" ",
                                           "\"",  "\"  ", "",    "\",", "\"\""};
    static constexpr const char* Values[] = {
        "",
        "0",
        "-1",
        "+1",
        " 7 ",
        "x",
        "1.5",
        "123456789",
        "1234567890",
        "-2147483648",
        "2147483648",
        "99999999999999999999",
        "g",
        "kg/m\xB3",
        "a=b",
        "2021-03-05 14:07:09.042",
        "2021-03-28 02:30:00.000",
        "2021-10-31 02:30:00.000",
        "2021-10-17 00:00:00.000",
        "2021-02-29 00:00:00.000",
        "2021-03-05 24:00:00.000",
        "2021-03-05 14:07:60.000",
        "2021-03-05 14:07:09",
        "2021-3-5 14:7:9.42",
        "0000-01-01 00:00:00.000",
        "0001-01-01 00:00:00.000",
        "9999-12-31 23:59:59.999",
        "2021-03-05T14:07:09.042",
        "+021-03-05 14:07:09.042",
    };
    static constexpr const char* Characters[] = {"\"", "=", " ", "0", "9", "-", "v", "=\"", ":", ".", "\xE4"};

    std::mt19937 m_random;
};

} // namespace

class TestStatisticsValue : public QObject
{
    Q_OBJECT

private slots:
    void constructorSetsEveryMember();
    void copiesEveryMember();
    void resets();
    void comparesEveryMember_data();
    void comparesEveryMember();
    void validityMark();
    void canBeDerivedFrom();

    void writes_data();
    void writes();
    void writesNumbersOfEveryLength();
    void writesTimestamp_data();
    void writesTimestamp();
    void writesTimestampsOfZone_data() { addZones(); }
    void writesTimestampsOfZone();

    void readsBack_data();
    void readsBack();
    void readsNumber_data();
    void readsNumber();
    void readsTimestamp_data();
    void readsTimestamp();
    void readsTimestampsOfZone_data() { addZones(); }
    void readsTimestampsOfZone();
    void reads_data();
    void reads();
    void stopsWhereSearchDoesNotAdvance_data();
    void stopsWhereSearchDoesNotAdvance();

    void addsPair_data();
    void addsPair();
    void addsPairAtFarPositions();
    void setsProperty_data();
    void setsProperty();
    void setsPropertiesOfMap();
    void readsAsDescribed_data() { addZones(); }
    void readsAsDescribed();
};

void TestStatisticsValue::constructorSetsEveryMember()
{
    const StatisticsValue figure(SmallestValue, LargestInt, QStringLiteral("kg"), flagBits(0x80000001),
                                 sampleTime(), true);
    QCOMPARE(figure.value, SmallestValue);
    QCOMPARE(figure.komma, LargestInt);
    QCOMPARE(figure.unit, QStringLiteral("kg"));
    QCOMPARE(bitsOf(figure.flags), 0x80000001u);
    QCOMPARE(figure.timestamp, sampleTime());
    QCOMPARE(figure.valid, true);
    QCOMPARE(StatisticsValue(0, 0, QString(), Flags(), QDateTime(), false).valid, false);
}

void TestStatisticsValue::copiesEveryMember()
{
    const StatisticsValue figure = sample();
    const StatisticsValue copy(figure);
    QCOMPARE(described(copy), described(figure));
    StatisticsValue assigned = untouched();
    assigned = figure;
    QCOMPARE(described(assigned), described(figure));
}

void TestStatisticsValue::resets()
{
    StatisticsValue figure = sample();
    figure.Reset();
    QCOMPARE(figure.value, 0LL);
    QCOMPARE(figure.komma, 0);
    QVERIFY(figure.unit.isEmpty());
    QCOMPARE(bitsOf(figure.flags), 0u);
    QVERIFY(figure.timestamp.isNull());
    QCOMPARE(figure.isValid(), false);
}

void TestStatisticsValue::comparesEveryMember_data()
{
    QTest::addColumn<QString>("member");
    QTest::addColumn<bool>("equal");
    for (const char* member :
         {"value", "komma", "unit", "case of unit", "flags", "timestamp", "null timestamp", "validity"}) {
        QTest::newRow(member) << latin1(member) << false;
    }
    QTest::newRow("nothing") << QString() << true;
    QTest::newRow("both timestamps null") << QStringLiteral("both timestamps") << true;
}

void TestStatisticsValue::comparesEveryMember()
{
    QFETCH(QString, member);
    StatisticsValue figure = sample();
    StatisticsValue other = sample();
    if (member == QLatin1String("value")) {
        other.value = figure.value + (1LL << 32);
    } else if (member == QLatin1String("komma")) {
        other.komma = 3;
    } else if (member == QLatin1String("unit")) {
        other.unit = QStringLiteral("mg");
    } else if (member == QLatin1String("case of unit")) {
        other.unit = QStringLiteral("G");
    } else if (member == QLatin1String("flags")) {
        other.flags = flagBits(0x80000001);
    } else if (member == QLatin1String("timestamp")) {
        other.timestamp = figure.timestamp.addMSecs(1);
    } else if (member == QLatin1String("null timestamp")) {
        other.timestamp = QDateTime();
    } else if (member == QLatin1String("both timestamps")) {
        figure.timestamp = QDateTime();
        other.timestamp = QDateTime();
    } else if (member == QLatin1String("validity")) {
        other.valid = false;
    }
    QTEST(figure.isEqual(&other), "equal");
    QTEST(other.isEqual(&figure), "equal");
}

void TestStatisticsValue::validityMark()
{
    StatisticsValue figure = sample();
    QVERIFY(figure.isValid());
    figure.setIsValid(false);
    QVERIFY(!figure.isValid());
    figure.setIsValid(false);
    QVERIFY(!figure.isValid());
    figure.setIsValid(true);
    QVERIFY(figure.isValid());
    QCOMPARE(described(figure), described(sample()));
}

void TestStatisticsValue::canBeDerivedFrom()
{
    class Derived : public StatisticsValue
    {
    public:
        explicit Derived(bool* destroyed)
            : StatisticsValue(sample())
            , m_destroyed(destroyed)
        {
        }
        ~Derived() override { *m_destroyed = true; }

    private:
        bool* m_destroyed;
    };
    bool destroyed = false;
    StatisticsValue* const figure = new Derived(&destroyed);
    delete figure;
    QVERIFY(destroyed);
}

void TestStatisticsValue::writes_data()
{
    QTest::addColumn<qint64>("value");
    QTest::addColumn<int>("komma");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<quint32>("flags");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("dbText");

    const auto row = [](const char* name, qint64 value, int komma, const QString& unit, quint32 flags,
                        const char* valueText, const char* kommaText, const char* flagsText) {
        const QString time = QStringLiteral("2021-03-05 14:07:09.042");
        QTest::newRow(name) << value << komma << unit << flags
                            << (latin1("value=\"") + latin1(valueText) + latin1("\" komma=\"")
                                + latin1(kommaText) + latin1("\" unit=\"") + unit + latin1("\" flags=\"")
                                + latin1(flagsText) + latin1("\" timestamp=\"") + time + latin1("\""))
                            << (latin1("'") + latin1(valueText) + latin1("','") + latin1(kommaText)
                                + latin1("','") + unit + latin1("','") + latin1(flagsText) + latin1("','")
                                + time + latin1("'"));
    };
    row("example", 123456, 2, latin1("g"), 1, "123456", "2", "1");
    row("zeros and empty unit", 0, 0, QString(), 0, "0", "0", "0");
    row("negative numbers", -5, -3, latin1("mg"), 0, "-5", "-3", "0");
    row("largest numbers", LargestValue, LargestInt, latin1("g"), 0xFFFFFFFF, "9223372036854775807",
        "2147483647", "4294967295");
    row("smallest numbers", SmallestValue, SmallestInt, latin1("g"), 0, "-9223372036854775808", "-2147483648",
        "0");
    row("flags beyond 31 bits are not negative", 1, 0, latin1("g"), 0x80000000, "1", "0", "2147483648");
    row("value of one digit more than 32 bits hold", 4294967296, 0, latin1("g"), 0, "4294967296", "0", "0");
    row("unit with quotes is not escaped", 1, 0, latin1("\"'g'\""), 0, "1", "0", "0");
    row("unit with other letters", 1, 0, QStringLiteral("k\u00E4\u4E24\U0001F4A1"), 0, "1", "0", "0");
    row("unit with placeholders", 1, 0, latin1("%1 %2"), 0, "1", "0", "0");
    row("unit with a null character", 1, 0, latin1("a") + QChar() + latin1("b"), 0, "1", "0", "0");
}

void TestStatisticsValue::writes()
{
    QFETCH(qint64, value);
    QFETCH(int, komma);
    QFETCH(QString, unit);
    QFETCH(quint32, flags);
    for (bool isValid : {false, true}) {
        const StatisticsValue figure(value, komma, unit, flagBits(flags), sampleTime(), isValid);
        QTEST(figure.ToString(), "text");
        QTEST(figure.ToDbString(), "dbText");
    }
}

void TestStatisticsValue::writesNumbersOfEveryLength()
{
    qint64 power = 1;
    for (int digits = 1; digits <= 19; ++digits) {
        for (qint64 value : {power, power - 1, power + 1, -power, 1 - power}) {
            const auto part = static_cast<int>(value);
            const StatisticsValue figure(value, part, QString(), flagBits(static_cast<quint32>(part)),
                                         QDateTime(), true);
            QCOMPARE(
                figure.ToDbString(),
                QStringLiteral("'%1','%2','','%3',''").arg(value).arg(part).arg(static_cast<quint32>(part)));
        }
        if (digits < 19) {
            power *= 10;
        }
    }
}

void TestStatisticsValue::writesTimestamp_data()
{
    QTest::addColumn<QDateTime>("timestamp");
    QTest::addColumn<QString>("text");

    const QTime noon(12, 0);
    QTest::newRow("ordinary") << sampleTime() << QStringLiteral("2021-03-05 14:07:09.042");
    QTest::newRow("midnight") << QDateTime(QDate(2021, 3, 5), QTime(0, 0))
                              << QStringLiteral("2021-03-05 00:00:00.000");
    QTest::newRow("last millisecond") << QDateTime(QDate(2021, 12, 31), QTime(23, 59, 59, 999))
                                      << QStringLiteral("2021-12-31 23:59:59.999");
    QTest::newRow("null") << QDateTime() << QString();
    QTest::newRow("without a date") << QDateTime(QDate(), noon) << QString();
    QTest::newRow("day that does not exist") << QDateTime(QDate(2021, 2, 29), noon) << QString();
    QTest::newRow("year 0 does not exist") << QDateTime(QDate(0, 1, 1), noon) << QString();
    QTest::newRow("year 1") << QDateTime(QDate(1, 1, 1), noon) << QStringLiteral("0001-01-01 12:00:00.000");
    QTest::newRow("year 999") << QDateTime(QDate(999, 1, 1), noon)
                              << QStringLiteral("0999-01-01 12:00:00.000");
    QTest::newRow("year 9999") << QDateTime(QDate(9999, 12, 31), noon)
                               << QStringLiteral("9999-12-31 12:00:00.000");
    QTest::newRow("year 10000") << QDateTime(QDate(10000, 1, 1), noon)
                                << QStringLiteral("10000-01-01 12:00:00.000");
    QTest::newRow("year 1 before our time")
        << QDateTime(QDate(-1, 1, 1), noon) << QStringLiteral("-0001-01-01 12:00:00.000");
    QTest::newRow("universal time as it is")
        << QDateTime(QDate(2021, 3, 5), noon, Qt::UTC) << QStringLiteral("2021-03-05 12:00:00.000");
    QTest::newRow("time with an offset as it is")
        << QDateTime(QDate(2021, 3, 5), noon, Qt::OffsetFromUTC, 3600)
        << QStringLiteral("2021-03-05 12:00:00.000");
    QTest::newRow("hour that summer time skips") << QDateTime(QDate(2021, 3, 28), QTime(2, 30)) << QString();
    QTest::newRow("hour that comes twice")
        << QDateTime(QDate(2021, 10, 31), QTime(2, 30)) << QStringLiteral("2021-10-31 02:30:00.000");
}

void TestStatisticsValue::writesTimestamp()
{
    const TimeZone zone(CentralEurope);
    QFETCH(QDateTime, timestamp);
    QFETCH(QString, text);
    if (QByteArray(QTest::currentDataTag()) == "hour that summer time skips") {
        // The rows are made in the zone of the machine, where that hour may exist.
        timestamp = QDateTime(QDate(2021, 3, 28), QTime(2, 30));
    }
    QCOMPARE(timestamp.toString(TimestampFormat), text);
    const StatisticsValue figure(1, 0, QString(), Flags(), timestamp, true);
    QCOMPARE(figure.ToString(),
             QStringLiteral("value=\"1\" komma=\"0\" unit=\"\" flags=\"0\" timestamp=\"%1\"").arg(text));
    QCOMPARE(figure.ToDbString(), QStringLiteral("'1','0','','0','%1'").arg(text));
}

void TestStatisticsValue::writesTimestampsOfZone()
{
    QFETCH(QByteArray, zone);
    const TimeZone timeZone(zone);
    Texts texts(41);
    int invalid = 0;
    for (int i = 0; i < 20000; ++i) {
        // Every half hour of a year, and anything else.
        const QDateTime timestamp =
            i < 365 * 48 ? QDateTime(QDate(2021, 1, 1).addDays(i / 48), QTime(i / 2 % 24, i % 2 * 30))
                         : texts.time();
        invalid += timestamp.isValid() ? 0 : 1;
        const QString text = StatisticsValue(0, 0, QString(), Flags(), timestamp, true).ToDbString();
        QCOMPARE(text, QStringLiteral("'0','0','','0','%1'").arg(timestamp.toString(TimestampFormat)));
    }
    QCOMPARE(invalid > 0, zone == MidnightChange || zone == CentralEurope);
}

void TestStatisticsValue::readsBack_data()
{
    QTest::addColumn<qint64>("value");
    QTest::addColumn<qint64>("readValue");
    QTest::newRow("zero") << qint64(0) << qint64(0);
    QTest::newRow("negative") << qint64(-123456) << qint64(-123456);
    QTest::newRow("largest of 32 bits") << qint64(2147483647) << qint64(2147483647);
    QTest::newRow("smallest of 32 bits") << qint64(-2147483648LL) << qint64(-2147483648LL);
    QTest::newRow("one above 32 bits") << qint64(2147483648LL) << qint64(0);
    QTest::newRow("one below 32 bits") << qint64(-2147483649LL) << qint64(0);
    QTest::newRow("largest of 64 bits") << LargestValue << qint64(0);
    QTest::newRow("smallest of 64 bits") << SmallestValue << qint64(0);
}

void TestStatisticsValue::readsBack()
{
    QFETCH(qint64, value);
    QFETCH(qint64, readValue);
    const StatisticsValue written(value, 3, QStringLiteral("g/cm\u00B3"), flagBits(0x7FFFFFFF), sampleTime(),
                                  true);
    StatisticsValue read = untouched();
    read.Reset();
    read.SetFromString(written.ToString());
    StatisticsValue expected = written;
    expected.value = readValue;
    expected.valid = false;
    QCOMPARE(described(read), described(expected));
}

void TestStatisticsValue::readsNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");

    QTest::newRow("zero") << QStringLiteral("0") << 0;
    QTest::newRow("digits") << QStringLiteral("42") << 42;
    QTest::newRow("negative") << QStringLiteral("-42") << -42;
    QTest::newRow("negative zero") << QStringLiteral("-0") << 0;
    QTest::newRow("plus sign") << QStringLiteral("+42") << 42;
    QTest::newRow("nine digits") << QStringLiteral("999999999") << 999999999;
    QTest::newRow("nine digits, negative") << QStringLiteral("-999999999") << -999999999;
    QTest::newRow("ten digits") << QStringLiteral("1000000000") << 1000000000;
    QTest::newRow("leading zeros") << QStringLiteral("0042") << 42;
    QTest::newRow("many leading zeros") << QStringLiteral("00000000000000000000042") << 42;
    QTest::newRow("largest") << QStringLiteral("2147483647") << LargestInt;
    QTest::newRow("smallest") << QStringLiteral("-2147483648") << SmallestInt;
    QTest::newRow("too large") << QStringLiteral("2147483648") << 0;
    QTest::newRow("too small") << QStringLiteral("-2147483649") << 0;
    QTest::newRow("all 32 bits unsigned") << QStringLiteral("4294967295") << 0;
    QTest::newRow("beyond 32 bits") << QStringLiteral("4294967297") << 0;
    QTest::newRow("beyond 64 bits") << QStringLiteral("18446744073709551617") << 0;
    QTest::newRow("blanks around") << QStringLiteral(" 42 ") << 42;
    QTest::newRow("tabulator before") << QStringLiteral("\t42") << 42;
    QTest::newRow("blank inside") << QStringLiteral("4 2") << 0;
    QTest::newRow("blank behind the sign") << QStringLiteral("- 42") << 0;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("sign only") << QStringLiteral("-") << 0;
    QTest::newRow("two signs") << QStringLiteral("--1") << 0;
    QTest::newRow("letters") << QStringLiteral("x") << 0;
    QTest::newRow("letter behind") << QStringLiteral("42x") << 0;
    QTest::newRow("fraction") << QStringLiteral("4.2") << 0;
    QTest::newRow("exponent") << QStringLiteral("1e3") << 0;
    QTest::newRow("hexadecimal") << QStringLiteral("0x10") << 0;
    QTest::newRow("grouped") << QStringLiteral("1,000") << 0;
    QTest::newRow("other digits") << QStringLiteral("\u0664\u0662") << 0;
    QTest::newRow("null character") << (QStringLiteral("42") + QChar()) << 0;
}

void TestStatisticsValue::readsNumber()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    StatisticsValue figure = untouched();
    figure.SetFromString(QStringLiteral("value=\"%1\"").arg(text));
    StatisticsValue expected = untouched();
    expected.value = number;
    QCOMPARE(described(figure), described(expected));

    figure.SetFromString(QStringLiteral("komma=\"%1\" flags=\"%1\"").arg(text));
    expected.komma = number;
    expected.flags = flagBits(static_cast<quint32>(number));
    QCOMPARE(described(figure), described(expected));
}

void TestStatisticsValue::readsTimestamp_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");

    QTest::newRow("ordinary") << QStringLiteral("2021-03-05 14:07:09.042") << true;
    QTest::newRow("leap day") << QStringLiteral("2020-02-29 00:00:00.000") << true;
    QTest::newRow("no leap day") << QStringLiteral("2021-02-29 00:00:00.000") << false;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("without milliseconds") << QStringLiteral("2021-03-05 14:07:09") << false;
    QTest::newRow("one digit of milliseconds") << QStringLiteral("2021-03-05 14:07:09.0") << false;
    QTest::newRow("with a letter between") << QStringLiteral("2021-03-05T14:07:09.042") << false;
    QTest::newRow("blank before") << QStringLiteral(" 2021-03-05 14:07:09.042") << false;
    QTest::newRow("blank behind") << QStringLiteral("2021-03-05 14:07:09.042 ") << false;
    QTest::newRow("blank for a digit") << QStringLiteral("2021-03- 5 14:07:09.042") << false;
    QTest::newRow("other digits") << QStringLiteral("202\u0661-03-05 14:07:09.042") << false;
    QTest::newRow("month 13") << QStringLiteral("2021-13-05 14:07:09.042") << false;
    QTest::newRow("month 0") << QStringLiteral("2021-00-05 14:07:09.042") << false;
    QTest::newRow("day 0") << QStringLiteral("2021-03-00 14:07:09.042") << false;
    QTest::newRow("hour 24") << QStringLiteral("2021-03-05 24:00:00.000") << false;
    QTest::newRow("minute 60") << QStringLiteral("2021-03-05 14:60:00.000") << false;
    QTest::newRow("second 60") << QStringLiteral("2021-03-05 14:07:60.000") << false;
    QTest::newRow("year 0") << QStringLiteral("0000-03-05 14:07:09.042") << false;
    QTest::newRow("year 1") << QStringLiteral("0001-01-01 00:00:00.000") << true;
    QTest::newRow("year 99") << QStringLiteral("0099-12-31 23:59:59.999") << true;
    QTest::newRow("year 9999") << QStringLiteral("9999-12-31 23:59:59.999") << true;
    QTest::newRow("year 10000") << QStringLiteral("10000-01-01 00:00:00.000") << false;
    QTest::newRow("hour that summer time skips") << QStringLiteral("2021-03-28 02:30:00.000") << false;
    QTest::newRow("hour that comes twice") << QStringLiteral("2021-10-31 02:30:00.000") << true;
}

void TestStatisticsValue::readsTimestamp()
{
    const TimeZone zone(CentralEurope);
    QFETCH(QString, text);
    QFETCH(bool, valid);
    StatisticsValue figure = untouched();
    figure.SetFromString(QStringLiteral("timestamp=\"%1\"").arg(text));
    QCOMPARE(described(figure.timestamp), described(QDateTime::fromString(text, TimestampFormat)));
    QCOMPARE(figure.timestamp.isValid(), valid);
    if (valid) {
        QCOMPARE(figure.timestamp.toString(TimestampFormat), text);
        QCOMPARE(figure.timestamp.timeSpec(), Qt::LocalTime);
    }
}

void TestStatisticsValue::readsTimestampsOfZone()
{
    QFETCH(QByteArray, zone);
    const TimeZone timeZone(zone);
    Texts texts(43);
    for (int i = 0; i < 20000; ++i) {
        const QString text = i < 365 * 48 ? QStringLiteral("%1 %2:%3:00.000")
                                                .arg(QDate(2021, 1, 1).addDays(i / 48).toString(Qt::ISODate))
                                                .arg(i / 2 % 24, 2, 10, QLatin1Char('0'))
                                                .arg(i % 2 * 30, 2, 10, QLatin1Char('0'))
                                          : texts.time().toString(TimestampFormat);
        StatisticsValue figure = untouched();
        figure.SetStatsProperty(QStringLiteral("timestamp"), text);
        QCOMPARE(described(figure.timestamp), described(QDateTime::fromString(text, TimestampFormat)));
    }
}

void TestStatisticsValue::reads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char* name, const char* text, void (*change)(StatisticsValue&)) {
        StatisticsValue expected = untouched();
        change(expected);
        QTest::newRow(name) << latin1(text) << described(expected);
    };
    row("empty text", "", [](StatisticsValue&) {});
    row("missing keys stay", "komma=\"4\"", [](StatisticsValue& v) { v.komma = 4; });
    row("all fields and a later one",
        "value=\"1\" komma=\"1\" unit=\"t\" flags=\"1\" timestamp=\"\" komma=\"9\"",
        [](StatisticsValue& v) { v = StatisticsValue(1, 9, latin1("t"), flagBits(1), QDateTime(), true); });
    row("all fields and a character", "value=\"1\" komma=\"1\" unit=\"t\" flags=\"1\" timestamp=\"\"x",
        [](StatisticsValue& v) { v = StatisticsValue(1, 1, latin1("t"), flagBits(1), QDateTime(), true); });
    row("all fields, the last one open", "value=\"1\" komma=\"1\" unit=\"t\" flags=\"1\" timestamp=\"",
        [](StatisticsValue& v) { v = StatisticsValue(1, 1, latin1("t"), flagBits(1), QDateTime(), true); });
    row("any order", "unit=\"t\" value=\"8\"", [](StatisticsValue& v) {
        v.unit = latin1("t");
        v.value = 8;
    });
    row("later one of a repeated key", "value=\"1\" komma=\"1\" value=\"2\"", [](StatisticsValue& v) {
        v.value = 2;
        v.komma = 1;
    });
    row("later one of a repeated key is no number", "value=\"1\" value=\"x\"",
        [](StatisticsValue& v) { v.value = 0; });
    row("key in other letters", "Value=\"5\" KOMMA=\"5\"", [](StatisticsValue&) {});
    row("unknown key", "weight=\"5\" value=\"6\"", [](StatisticsValue& v) { v.value = 6; });
    row("validity is no key", "isValid=\"0\" valid=\"0\"", [](StatisticsValue&) {});
    row("two blanks make another key", "value=\"5\"  komma=\"6\" flags=\"7\"", [](StatisticsValue& v) {
        v.value = 5;
        v.flags = flagBits(7);
    });
    row("any separating character is skipped", "value=\"5\",komma=\"6\"", [](StatisticsValue& v) {
        v.value = 5;
        v.komma = 6;
    });
    row("without a separator the next key loses a letter", "value=\"5\"komma=\"6\"",
        [](StatisticsValue& v) { v.value = 5; });
    row("blank before the first key", " value=\"5\" komma=\"6\"", [](StatisticsValue& v) { v.komma = 6; });
    row("blank before the equals sign", "value =\"5\" komma=\"6\"", [](StatisticsValue& v) { v.komma = 6; });
    row("blank behind the equals sign", "value= \"5\" komma=\"6\"", [](StatisticsValue&) {});
    row("one blank at the end", "value=\"5\" ", [](StatisticsValue& v) { v.value = 5; });
    row("null timestamp", "timestamp=\"\"", [](StatisticsValue& v) { v.timestamp = QDateTime(); });
    row("unit ends at the first quote", "unit=\"a\"b\" value=\"5\"", [](StatisticsValue& v) {
        v.unit = latin1("a");
        // What follows is read as the key `" value`, two characters later.
    });
    row("unit with an equals sign", "unit=\"a=b\" value=\"5\"", [](StatisticsValue& v) {
        v.unit = latin1("a=b");
        v.value = 5;
    });
    row("unit with blanks", "unit=\" a b \"", [](StatisticsValue& v) { v.unit = latin1(" a b "); });
    row("empty unit", "unit=\"\"", [](StatisticsValue& v) { v.unit = QString(); });
}

void TestStatisticsValue::reads()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    StatisticsValue figure = untouched();
    figure.SetFromString(text);
    QCOMPARE(described(figure), expected);
    figure = untouched();
    figure.valid = false;
    figure.SetFromString(text);
    QVERIFY(!figure.valid);
}

void TestStatisticsValue::stopsWhereSearchDoesNotAdvance_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("value");
    QTest::addColumn<int>("pairs");

    // Without a pair ahead the first quote of the text is taken for the end of one, or the place before its start.
    QTest::newRow("two blanks at the end") << QStringLiteral("value=\"1\"  ") << qint64(1) << 2;
    QTest::newRow("rubbish at the end") << QStringLiteral("value=\"1\" rubbish") << qint64(1) << 2;
    QTest::newRow("two characters without a pair") << QStringLiteral("ab") << qint64(-77) << 2;
    QTest::newRow("one character without a pair") << QStringLiteral("a") << qint64(-77) << 1;
    QTest::newRow("one quote") << QStringLiteral("\"") << qint64(-77) << 1;
    QTest::newRow("quotes only") << QStringLiteral("\"\"\"\"\"\"") << qint64(-77) << 2;
    QTest::newRow("quote behind without a pair") << QStringLiteral("abc\"defgh") << qint64(-77) << 2;
    QTest::newRow("no closing quote") << QStringLiteral("value=\"5") << qint64(5) << 2;
    QTest::newRow("no closing quote of the second pair")
        << QStringLiteral("komma=\"1\" value=\"5") << qint64(5) << 2;
    QTest::newRow("only the beginning of a pair") << QStringLiteral("=\"") << qint64(-77) << 2;
}

void TestStatisticsValue::stopsWhereSearchDoesNotAdvance()
{
    QFETCH(QString, text);
    QFETCH(qint64, value);
    QFETCH(int, pairs);
    StatisticsValue figure = untouched();
    figure.SetFromString(text);
    QCOMPARE(figure.value, value);
    Map map;
    figure.ConvertStringToMap(text, &map);
    QCOMPARE(map, plainMap(text));
    QCOMPARE(map.size(), pairs);
}

void TestStatisticsValue::addsPair_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("next");

    const QString two = QStringLiteral("a=\"12\" b=\"3\"");
    QTest::newRow("first") << two << 0 << QStringLiteral("a") << QStringLiteral("12") << 7;
    QTest::newRow("second") << two << 7 << QStringLiteral("b") << QStringLiteral("3") << 13;
    QTest::newRow("key from the position on")
        << two << 6 << QStringLiteral(" b") << QStringLiteral("3") << 13;
    QTest::newRow("position at the equals sign") << two << 1 << QString() << QStringLiteral("12") << 7;
    QTest::newRow("position in a value") << two << 3 << QStringLiteral("12\" b") << QStringLiteral("3") << 13;
    QTest::newRow("no pair ahead: back to the first quote")
        << two << 11 << QStringLiteral("\"") << QStringLiteral("=") << 4;
    QTest::newRow("position behind the end") << two << 40 << QString() << QStringLiteral("=") << 4;
    QTest::newRow("no quote at all") << QStringLiteral("abc") << 0 << QStringLiteral("abc")
                                     << QStringLiteral("bc") << 1;
    QTest::newRow("no quote at all, further on")
        << QStringLiteral("abc") << 2 << QStringLiteral("c") << QStringLiteral("bc") << 1;
    QTest::newRow("no closing quote")
        << QStringLiteral("a=\"12") << 0 << QStringLiteral("a") << QStringLiteral("12") << 1;
    QTest::newRow("position from the end")
        << two << -6 << QStringLiteral("a=\"12\" b") << QStringLiteral("3") << 13;
    QTest::newRow("empty text") << QString() << 0 << QString() << QString() << 1;
    QTest::newRow("empty key and value") << QStringLiteral("=\"\"") << 0 << QString() << QString() << 4;
}

void TestStatisticsValue::addsPair()
{
    QFETCH(QString, text);
    QFETCH(int, position);
    QFETCH(QString, key);
    QFETCH(QString, value);
    StatisticsValue figure = untouched();
    Map map = {{QStringLiteral("kept"), QStringLiteral("1")}, {key, QStringLiteral("replaced")}};
    QTEST(figure.AddKeyValPair(text, position, &map), "next");
    QCOMPARE(map, (Map{{QStringLiteral("kept"), QStringLiteral("1")}, {key, value}}));
    QCOMPARE(described(figure), described(untouched()));

    Map plain = {{QStringLiteral("kept"), QStringLiteral("1")}};
    QTEST(plainAddPair(text, position, &plain), "next");
    QCOMPARE(map, plain);
}

void TestStatisticsValue::addsPairAtFarPositions()
{
    const QString text = QStringLiteral("a=\"12\" b=\"3\"");
    StatisticsValue figure = untouched();

    Map before;
    QCOMPARE(figure.AddKeyValPair(text, SmallestInt, &before), 7);
    QCOMPARE(before, (Map{{QStringLiteral("a"), QStringLiteral("12")}}));

    // Nothing is found from there on, as at the end of the text.
    Map behind;
    Map atEnd;
    QCOMPARE(figure.AddKeyValPair(text, LargestInt, &behind), plainAddPair(text, text.size(), &atEnd));
    QCOMPARE(behind, atEnd);
}

void TestStatisticsValue::setsProperty_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char* key, const char* text, void (*change)(StatisticsValue&)) {
        StatisticsValue expected = untouched();
        change(expected);
        QTest::addRow("%s = %s", key, text) << latin1(key) << latin1(text) << described(expected);
    };
    row("value", "-5", [](StatisticsValue& v) { v.value = -5; });
    row("komma", "x", [](StatisticsValue& v) { v.komma = 0; });
    row("unit", "\"t\"", [](StatisticsValue& v) { v.unit = latin1("\"t\""); });
    row("flags", "-1", [](StatisticsValue& v) { v.flags = flagBits(0xFFFFFFFF); });
    row("timestamp", "2021-03-05 14:07:09.042", [](StatisticsValue& v) { v.timestamp = sampleTime(); });
    row("timestamp", "soon", [](StatisticsValue& v) { v.timestamp = QDateTime(); });
    row("Value", "5", [](StatisticsValue&) {});
    row("value ", "5", [](StatisticsValue&) {});
    row("", "5", [](StatisticsValue&) {});
}

void TestStatisticsValue::setsProperty()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    QFETCH(QString, expected);
    StatisticsValue figure = untouched();
    figure.SetStatsProperty(key, text);
    QCOMPARE(described(figure), expected);
}

void TestStatisticsValue::setsPropertiesOfMap()
{
    StatisticsValue figure = untouched();
    Map map;
    figure.ConvertMapToStatsVal(&map);
    QCOMPARE(described(figure), described(untouched()));

    map = {{QStringLiteral("value"), QStringLiteral("123456")},
           {QStringLiteral("komma"), QStringLiteral("2")},
           {QStringLiteral("unit"), QStringLiteral("g")},
           {QStringLiteral("flags"), QStringLiteral("1")},
           {QStringLiteral("timestamp"), QStringLiteral("2021-03-05 14:07:09.042")},
           {QStringLiteral("other"), QStringLiteral("9")}};
    figure.ConvertMapToStatsVal(&map);
    QCOMPARE(described(figure), described(sample()));
    QCOMPARE(map.size(), 6);
}

void TestStatisticsValue::readsAsDescribed()
{
    QFETCH(QByteArray, zone);
    const TimeZone timeZone(zone);
    Texts texts(47);
    int changed = 0;
    for (int i = 0; i < 10000; ++i) {
        const QString text = texts.next();
        StatisticsValue expected = untouched();
        plainRead(text, &expected);

        StatisticsValue atOnce = untouched();
        atOnce.SetFromString(text);
        Map map;
        StatisticsValue byStep = untouched();
        byStep.ConvertStringToMap(text, &map);
        byStep.ConvertMapToStatsVal(&map);
        if (map != plainMap(text) || described(atOnce) != described(expected)
            || described(byStep) != described(expected)) {
            QFAIL(qPrintable(QStringLiteral("%1\nread:     %2\nby step:  %3\nexpected: %4")
                                 .arg(text, described(atOnce), described(byStep), described(expected))));
        }
        changed += described(expected) != described(untouched()) ? 1 : 0;

        const int position = texts.below(2 * text.size() + 3) - text.size();
        Map one;
        Map plainOne;
        const int next = byStep.AddKeyValPair(text, position, &one);
        if (next != plainAddPair(text, position, &plainOne) || one != plainOne) {
            QFAIL(qPrintable(QStringLiteral("pair at %1 of %2").arg(position).arg(text)));
        }
    }
    // Or else the texts would not be worth reading.
    QVERIFY2(changed > 4000, qPrintable(QStringLiteral("only %1 texts hold anything").arg(changed)));
}

QTEST_APPLESS_MAIN(TestStatisticsValue)
#include "tst_statisticsvalue.moc"
