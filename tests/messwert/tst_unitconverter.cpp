// SPDX-License-Identifier: BSD-3-Clause
#include "UnitConverter.h"
#include "UnitDef.h"
#include "UnitsList.h"
#include "Utility.h"
#include "core/PowerOfTen.h"
#include "messwert/FixedPointText.h"

#include <QtTest>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

using namespace Brimvale;

namespace
{

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinite = std::numeric_limits<double>::infinity();
constexpr int LargestInt = std::numeric_limits<int>::max();
constexpr int SmallestInt = std::numeric_limits<int>::min();

/// A unit by its legal definition, and what the header states about the factor of the table.
struct LegalUnit
{
    const char* name;
    long double grams;    ///< grams of one unit
    double departure;     ///< relative departure of the factor from the definition
    double departureStep; ///< one step of the last digit in which the departure is stated
};

constexpr long double Grain = 0.06479891L;
constexpr long double Pound = 7000 * Grain;

const LegalUnit LegalUnits[] = {
    {"g", 1.0L, 0.0, 0.0},
    {"mg", 0.001L, 0.0, 0.0},
    {"kg", 1000.0L, 0.0, 0.0},
    {"GN", Grain, -1.91e-10, 1e-12},
    {"dwt", 24 * Grain, -5.79e-10, 1e-12},
    {"ozt", 480 * Grain, 9.76e-10, 1e-12},
    {"oz", Pound / 16, -1.41e-9, 1e-11},
    {"lb", Pound, -8.39e-10, 1e-12},
    {"ct", 0.2L, 0.0, 0.0},
    {"C.M.", 0.2L, 0.0, 0.0},
    {"tlh", 37.429L, -1.09e-9, 1e-11},
    {"tls", Pound / 12, -5.53e-8, 1e-10},
    {"tlt", 37.5L, 1.25e-9, 1e-11},
    {"mom", 3.75L, 1.25e-9, 1e-11},
    {"tola", 180 * Grain, 0.0, 0.0},
    {"bht", 15.2L, 0.0, 0.0},
};

/// What rounding a factor to double precision may add to a departure.
constexpr double FactorPrecision = 1.2e-16;

void addLegalUnits()
{
    QTest::addColumn<LegalUnit>("unit");
    for (const LegalUnit& unit : LegalUnits) {
        QTest::newRow(unit.name) << unit;
    }
}

QString unitName(const LegalUnit& unit)
{
    return QString::fromLatin1(unit.name);
}

/// The largest departure from the definition that the header allows.
double largestDeparture(const LegalUnit& unit)
{
    return std::fabs(unit.departure) + 0.5 * unit.departureStep + FactorPrecision;
}

void compareDeparture(long double unitsPerGram, const LegalUnit& unit)
{
    const auto departure = static_cast<double>(unitsPerGram * unit.grams - 1.0L);
    const double tolerance = 0.5 * unit.departureStep + FactorPrecision;
    QVERIFY2(std::fabs(departure - unit.departure) <= tolerance,
             qPrintable(QStringLiteral("the factor departs by %1, stated is %2")
                            .arg(departure, 0, 'e', 3)
                            .arg(unit.departure, 0, 'e', 3)));
}

UnitDef definition(const char* name, double factor, int format, int rounding, bool isInverse = false)
{
    return UnitDef(QString::fromLatin1(name), QLatin1String("print ") + QString::fromLatin1(name), factor,
                   format, rounding, isInverse, UnitDef::NoUnit);
}

/// A number to the last bit, unlike the comparison of doubles in QtTest, which is a rough one.
QString exact(double value)
{
    const bool isNegativeZero = value == 0.0 && std::signbit(value);
    return isNegativeZero ? QStringLiteral("-0") : QString::number(value, 'g', 17);
}

/// All members of a record as one text; doubles to the last bit.
QString described(const MesswertData& data)
{
    const auto flag = [](bool isSet) { return isSet ? 1 : 0; };
    return QStringLiteral("'%1' '%2' '%3' '%4' %5 %6 %7 %8 %9 ")
               .arg(data.messwert, data.unit, data.unitPrintName, data.errorText)
               .arg(data.stabilityValue)
               .arg(data.rangeNumber)
               .arg(data.eichDigit)
               .arg(data.decimals)
               .arg(data.resolutionReduction)
           + QStringLiteral("%1 %2 ").arg(exact(data.value), exact(data.tareValue))
           + QStringLiteral("%1%2%3%4%5%6%7 %8")
                 .arg(flag(data.isValid))
                 .arg(flag(data.isCalculated))
                 .arg(flag(data.isStable))
                 .arg(flag(data.net))
                 .arg(flag(data.isPresetTare))
                 .arg(flag(data.isGrobRange))
                 .arg(flag(data.isOverload))
                 .arg(data.registerNumber);
}

/// What a conversion is to fill in; the other members stay as in the empty record.
struct Filled
{
    QString text;
    QString unit;
    QString printName;
    int decimals;
    int reduction;
    double value;
    bool isGrobRange;

    QString described() const
    {
        MesswertData data;
        data.messwert = text;
        data.unit = unit;
        data.unitPrintName = printName;
        data.decimals = decimals;
        data.resolutionReduction = reduction;
        data.value = value;
        data.isGrobRange = isGrobRange;
        return ::described(data);
    }
};

// The conversion once more, step by step and without any short cut ------------------------------------------------

double plainPower(double exponent)
{
    return std::pow(10.0, exponent);
}

QString plainText(double value, int places)
{
    // More places than this only make a text of more than ten characters longer.
    return QStringLiteral("%1").arg(value, 0, 'f', qMin(places, 20), QLatin1Char(' '));
}

QString plainValueString(double value, int decimals, int reduction)
{
    int places = decimals;
    if (reduction > 0 && reduction <= decimals) {
        places = decimals - reduction;
    }
    const QString text = plainText(value, places);
    if (text.size() > (text.startsWith(QLatin1Char('-')) ? 10 : 9)) {
        return QStringLiteral("OF");
    }
    return text;
}

void plainFill(MesswertData& data, double value, int maxReduction, bool reducible)
{
    if (reducible) {
        if (data.isGrobRange && data.decimals > 0) {
            data.decimals = data.decimals - 1;
        } else if (data.decimals < 0) {
            data.decimals = 0;
        }
        data.resolutionReduction = data.decimals < maxReduction ? data.decimals : maxReduction;
    }
    data.value = Utility::Round(value, data.decimals - data.resolutionReduction);
    data.messwert = plainValueString(data.value, data.decimals, data.resolutionReduction);
    if (data.messwert == QLatin1String("OF")) {
        data.unit = QString();
    }
}

MesswertData plainConversion(double digits, int decimals, int maxReduction, bool isGrobRange,
                             const UnitDef& unit)
{
    MesswertData data;
    const double factor = unit.getCalculatedFactor();
    double scaled = 0.0;
    if (unit.rounding() == 1) {
        scaled = digits * factor;
    } else {
        const double step = unit.rounding() * plainPower(decimals - unit.format());
        scaled = Utility::Round(factor * digits / step) * step;
    }
    data.unit = unit.name();
    data.unitPrintName = unit.printName();
    data.isGrobRange = isGrobRange;
    data.decimals = unit.format();
    plainFill(data, scaled / plainPower(decimals), maxReduction, decimals > 0);
    return data;
}

MesswertData plainConversion(double digits, int decimals, int maxReduction, bool isGrobRange,
                             const QString& unit)
{
    double factor = 0.0;
    int exponent = 0;
    UnitConverter().getUnitFactor(unit, &factor, &exponent);
    MesswertData data;
    const double whole = Utility::Round(digits * factor);
    data.unit = unit;
    data.isGrobRange = isGrobRange;
    data.decimals = decimals + exponent;
    plainFill(data, whole / plainPower(decimals + exponent), maxReduction, true);
    return data;
}

/// Values of all kinds that a scale, a plug-in or a fault may bring. The same seed gives the same values everywhere.
class Values
{
public:
    explicit Values(unsigned seed)
        : m_random(seed)
    {
    }

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    int between(int low, int high) { return low + below(high - low + 1); }

    double fraction() { return static_cast<double>(m_random()) / 4294967296.0; }

    double value()
    {
        const double magnitude = this->magnitude();
        return below(2) == 0 ? magnitude : -magnitude;
    }

private:
    double magnitude()
    {
        switch (below(8)) {
        case 0:
        case 1: // as the display has it
            return Utility::Round(fraction() * plainPower(between(-3, 9)), between(0, 7));
        case 2: // anything with about as many digits
            return fraction() * plainPower(between(-9, 10));
        case 3: // a tie, or next to one
        {
            const double tie =
                (below(2000000) + 0.5) / std::ldexp(1.0, between(0, 10)) / plainPower(between(0, 8));
            const int side = below(3);
            return side == 0 ? tie : std::nextafter(tie, side == 1 ? 0.0 : Infinite);
        }
        case 4: // at the limit of the digits
        {
            const double limit = plainPower(between(0, 10));
            const double distance = fraction() * plainPower(between(-9, 0));
            return below(2) == 0 ? limit - distance : limit + distance;
        }
        case 5: // tiny
            return fraction() * plainPower(between(-320, -5));
        case 6: // as many digits as a double holds, and more
            return fraction() * plainPower(between(12, 17));
        default:
            return rare();
        }
    }

    double rare()
    {
        static const double Rare[] = {0.0,
                                      1e15,
                                      999999999999999.9,
                                      1e16,
                                      1e22,
                                      1e300,
                                      Infinite,
                                      NotANumber,
                                      std::numeric_limits<double>::denorm_min(),
                                      std::numeric_limits<double>::max(),
                                      2147483647.5,
                                      4294967296.0,
                                      9223372036854775808.0};
        return Rare[below(sizeof(Rare) / sizeof(Rare[0]))];
    }

    std::mt19937 m_random;
};

/// How many texts are compared with those of the formatter.
int textCount()
{
    bool isNumber = false;
    const int wanted = qEnvironmentVariableIntValue("BRIMVALE_TEXT_COUNT", &isNumber);
    return isNumber ? wanted : 1000000;
}

} // namespace

Q_DECLARE_METATYPE(LegalUnit)

class TestUnitConverter : public QObject
{
    Q_OBJECT

private slots:
    void powersOfTen();
    void unitFactor_data();
    void unitFactor();
    void factorByName_data() { addLegalUnits(); }
    void factorByName();
    void factorOfDefinition_data() { addLegalUnits(); }
    void factorOfDefinition();
    void convertsAsLegallyDefined_data() { addLegalUnits(); }
    void convertsAsLegallyDefined();

    void roundsToPlaces_data();
    void roundsToPlaces();
    void roundsCarat_data();
    void roundsCarat();
    void caratRoundingIsForCaratOnly_data();
    void caratRoundingIsForCaratOnly();
    void caratRoundingLimits_data();
    void caratRoundingLimits();
    void roundsToInteger_data();
    void roundsToInteger();

    void digitValue_data();
    void digitValue();
    void valueString_data();
    void valueString();
    void resolutionReduction_data();
    void resolutionReduction();

    void convertsWithDefinition_data();
    void convertsWithDefinition();
    void convertsByName_data();
    void convertsByName();
    void convertsAsDescribed_data();
    void convertsAsDescribed();
    void extremeArguments_data();
    void extremeArguments();
    void textsAreThoseOfTheFormatter();
    void convertedTextsAreThoseOfTheFormatter();
};

void TestUnitConverter::powersOfTen()
{
    // The number next to the power, which std::pow() misses at 23 and, on some processors, at 126.
    for (int exponent = -330; exponent <= 308; ++exponent) {
        QCOMPARE(exact(powerOfTen(exponent)), exact(QStringLiteral("1e%1").arg(exponent).toDouble()));
    }
    QCOMPARE(powerOfTen(23), 1e23);
    QCOMPARE(powerOfTen(126), 1e126);
    QCOMPARE(powerOfTen(309), Infinite);
    QCOMPARE(powerOfTen(-400), 0.0);
    QCOMPARE(powerOfTen(std::numeric_limits<qint64>::max()), Infinite);
    QCOMPARE(powerOfTen(std::numeric_limits<qint64>::min()), 0.0);
}

void TestUnitConverter::unitFactor_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("exponent");

    QTest::newRow("gram") << QStringLiteral("g") << 1.0 << 0;
    QTest::newRow("milligram") << QStringLiteral("mg") << 1.0 << -3;
    QTest::newRow("kilogram") << QStringLiteral("kg") << 1.0 << 3;
    QTest::newRow("grain") << QStringLiteral("GN") << 1.543235835 << -1;
    QTest::newRow("pennyweight") << QStringLiteral("dwt") << 0.643014931 << 0;
    QTest::newRow("troy ounce") << QStringLiteral("ozt") << 0.321507466 << 1;
    QTest::newRow("ounce") << QStringLiteral("oz") << 0.352739619 << 1;
    QTest::newRow("pound") << QStringLiteral("lb") << 2.20462262 << 3;
    QTest::newRow("carat") << QStringLiteral("ct") << 5.0 << 0;
    QTest::newRow("metric carat") << QStringLiteral("C.M.") << 5.0 << 0;
    QTest::newRow("tael of Hong Kong") << QStringLiteral("tlh") << 0.267172513 << 1;
    QTest::newRow("tael of Singapore") << QStringLiteral("tls") << 0.2645547 << 1;
    QTest::newRow("tael of Taiwan") << QStringLiteral("tlt") << 0.266666667 << 1;
    QTest::newRow("momme") << QStringLiteral("mom") << 0.266666667 << 0;
    QTest::newRow("tola") << QStringLiteral("tola") << 1.0 / 1.16638038 << 1;
    QTest::newRow("baht") << QStringLiteral("bht") << 1.0 / 1.52 << 1;

    QTest::newRow("kilogram in capitals") << QStringLiteral("KG") << 1.0 << 0;
    QTest::newRow("grain in small letters") << QStringLiteral("gn") << 1.0 << 0;
    QTest::newRow("carat without points") << QStringLiteral("CM") << 1.0 << 0;
    QTest::newRow("blank behind") << QStringLiteral("kg ") << 1.0 << 0;
    QTest::newRow("blank before") << QStringLiteral(" kg") << 1.0 << 0;
    QTest::newRow("longer name") << QStringLiteral("tolas") << 1.0 << 0;
    QTest::newRow("print name of the baht") << QStringLiteral("baht") << 1.0 << 0;
    QTest::newRow("empty") << QString() << 1.0 << 0;
    QTest::newRow("null character before") << (QString(QChar()) + QStringLiteral("kg")) << 1.0 << 0;
    QTest::newRow("null character behind") << (QStringLiteral("kg") + QChar()) << 1.0 << 0;
    // Its code units begin with those of another name when only the low bytes are looked at.
    QTest::newRow("other alphabet") << QString(QChar(0x016B)) + QString(QChar(0x0167)) << 1.0 << 0;
}

void TestUnitConverter::unitFactor()
{
    QFETCH(QString, unit);
    QFETCH(double, factor);
    QFETCH(int, exponent);
    double foundFactor = NotANumber;
    int foundExponent = 77;
    UnitConverter().getUnitFactor(unit, &foundFactor, &foundExponent);
    QCOMPARE(exact(foundFactor), exact(factor));
    QCOMPARE(foundExponent, exponent);
}

void TestUnitConverter::factorByName()
{
    QFETCH(LegalUnit, unit);
    double factor = 0.0;
    int exponent = 0;
    UnitConverter().getUnitFactor(unitName(unit), &factor, &exponent);
    compareDeparture(factor / std::pow(10.0L, exponent), unit);
}

void TestUnitConverter::factorOfDefinition()
{
    QFETCH(LegalUnit, unit);
    UnitsList units(nullptr, 3);
    const UnitDef found = units.getUnitByName(unitName(unit));
    QCOMPARE(found.name(), unitName(unit));
    const auto factor = static_cast<long double>(found.factor());
    compareDeparture(found.isInverse() ? 1.0L / factor : factor, unit);
}

void TestUnitConverter::convertsAsLegallyDefined()
{
    QFETCH(LegalUnit, unit);
    constexpr int Decimals = 3;
    UnitConverter converter;
    UnitsList units(nullptr, Decimals);
    const UnitDef definition = units.getUnitByName(unitName(unit));
    double factor = 0.0;
    int exponent = 0;
    converter.getUnitFactor(unitName(unit), &factor, &exponent);

    Values values(11);
    for (int i = 0; i < 20000; ++i) {
        // Grams up to 1 kg, and what they are by definition.
        const double digits = values.between(-1000000, 1000000);
        const long double legal = digits / 1000.0L / unit.grams;
        const long double departure = std::fabs(legal) * largestDeparture(unit);
        const long double binary = std::fabs(legal) * 1e-15L + 2e-14L;

        const MesswertData defined = converter.ConvertDigitToUnit(digits, Decimals, 0, false, definition);
        const long double definedStep = definition.rounding() * std::pow(10.0L, -definition.format());
        const long double definedError = std::fabs(defined.value - legal);
        if (definedError > departure + definedStep / 2 + binary) {
            QFAIL(qPrintable(QStringLiteral("%1 digits give %2, by definition %3")
                                 .arg(digits)
                                 .arg(defined.value, 0, 'g', 17)
                                 .arg(static_cast<double>(legal), 0, 'g', 17)));
        }

        // By name a value is rounded to a whole number of 10^-(decimals + exponent), then to the places shown.
        const MesswertData named = converter.ConvertDigitToUnit(digits, Decimals, 0, false, unitName(unit));
        const long double namedStep = std::pow(10.0L, -(Decimals + exponent));
        const long double namedError = std::fabs(named.value - legal);
        if (namedError > departure + namedStep / 2 + binary) {
            QFAIL(qPrintable(QStringLiteral("%1 digits give %2 by name, by definition %3")
                                 .arg(digits)
                                 .arg(named.value, 0, 'g', 17)
                                 .arg(static_cast<double>(legal), 0, 'g', 17)));
        }

        // And back: one digit of the unit is `factor` digits or the inverse.
        const double back = converter.GetDigitValue(named.value, Decimals, unitName(unit), 0);
        if (std::fabs(back - digits) > 0.5 / factor + 0.5) {
            QFAIL(qPrintable(QStringLiteral("%1 digits come back as %2").arg(digits).arg(back)));
        }
    }
}

void TestUnitConverter::roundsToPlaces_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("k");
    QTest::addColumn<bool>("oneMore");
    QTest::addColumn<double>("rounded");

    QTest::newRow("whole") << 1234.4 << 0 << false << 1234.0;
    QTest::newRow("half away from zero") << 1234.5 << 0 << false << 1235.0;
    QTest::newRow("negative half away from zero") << -1234.5 << 0 << false << -1235.0;
    QTest::newRow("tens by one more") << 1234.5 << 0 << true << 1230.0;
    QTest::newRow("tens") << 1235.0 << 1 << false << 1240.0;
    QTest::newRow("hundreds by one more") << 1250.0 << 1 << true << 1300.0;
    QTest::newRow("hundreds") << 1249.0 << 2 << false << 1200.0;
    QTest::newRow("thousands") << -1500.0 << 3 << false << -2000.0;
    QTest::newRow("negative k counts as 0") << 1234.4 << -1 << false << 1234.0;
    QTest::newRow("very negative k counts as 0") << 1234.4 << SmallestInt << false << 1234.0;
    QTest::newRow("negative k with one more") << 1236.0 << -3 << true << 1240.0;
    QTest::newRow("below half a step") << 4999.0 << 4 << false << 0.0;
    // The tolerance of so coarse a rounding is larger than any value.
    QTest::newRow("k of a thousand") << 1e18 << 1000 << true << Infinite;
    QTest::newRow("largest k") << 1.0 << LargestInt << true << Infinite;
    QTest::newRow("not a number") << NotANumber << 1 << false << 0.0;
}

void TestUnitConverter::roundsToPlaces()
{
    QFETCH(double, value);
    QFETCH(int, k);
    QFETCH(bool, oneMore);
    QFETCH(double, rounded);
    // Utility::Round() adds 1e-14, which is lost in numbers of this size.
    QCOMPARE(exact(UnitConverter().Round(value, k, oneMore)), exact(rounded));
}

void TestUnitConverter::roundsCarat_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<bool>("oneMore");
    QTest::addColumn<int>("k");
    QTest::addColumn<double>("rounded");

    // The value is 1234.6 in steps of 5. Without the step the multiples of 1, 10, 100, 1000 next to it are 1235, 1230,
    // 1200, 1000; with it, those of 10, 100, 1000 next to 6173 are 6170, 6200, 6000: 1234, 1240, 1200.
    const QString single = QStringLiteral("single");
    const QString other = QStringLiteral("multi");
    const struct
    {
        const QString& mode;
        bool oneMore;
        int k;
        double rounded;
    } rows[] = {
        {single, false, -1, 1235.0}, {single, false, 0, 1235.0}, {single, false, 1, 1234.0},
        {single, false, 2, 1240.0},  {single, false, 3, 1200.0}, {single, true, -1, 1230.0},
        {single, true, 0, 1230.0},   {single, true, 1, 1240.0},  {single, true, 2, 1200.0},
        {other, false, -1, 1235.0},  {other, false, 0, 1235.0},  {other, false, 1, 1230.0},
        {other, false, 2, 1240.0},   {other, false, 3, 1200.0},  {other, true, -1, 1230.0},
        {other, true, 0, 1230.0},    {other, true, 1, 1240.0},   {other, true, 2, 1200.0},
    };
    for (const auto& row : rows) {
        QTest::addRow("mode %s, %s, k %d", qPrintable(row.mode), row.oneMore ? "one more" : "no more", row.k)
            << row.mode << row.oneMore << row.k << row.rounded;
    }
    QTest::newRow("empty mode is another one") << QString() << false << 1 << 1230.0;
    QTest::newRow("mode in capitals is another one") << QStringLiteral("SINGLE") << false << 1 << 1230.0;
}

void TestUnitConverter::roundsCarat()
{
    QFETCH(QString, mode);
    QFETCH(bool, oneMore);
    QFETCH(int, k);
    QFETCH(double, rounded);
    UnitConverter converter;
    for (const char* name : {"ct", "C.M."}) {
        const UnitDef unit = definition(name, 5.0, 2, 5);
        QCOMPARE(exact(converter.Round(1234.6, k, oneMore, unit, mode)), exact(rounded));
        QCOMPARE(exact(converter.Round(-1234.6, k, oneMore, unit, mode)), exact(-rounded));
    }
}

void TestUnitConverter::caratRoundingIsForCaratOnly_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<int>("rounding");
    QTest::addColumn<double>("rounded");

    QTest::newRow("carat") << QStringLiteral("ct") << 5 << 1234.0;
    QTest::newRow("metric carat") << QStringLiteral("C.M.") << 5 << 1234.0;
    QTest::newRow("carat with every step") << QStringLiteral("ct") << 1 << 1230.0;
    QTest::newRow("metric carat with every step") << QStringLiteral("C.M.") << 1 << 1230.0;
    QTest::newRow("carat with steps of 2") << QStringLiteral("ct") << 2 << 1235.0;
    QTest::newRow("carat in capitals") << QStringLiteral("CT") << 5 << 1230.0;
    QTest::newRow("gram with steps") << QStringLiteral("g") << 5 << 1230.0;
}

void TestUnitConverter::caratRoundingIsForCaratOnly()
{
    QFETCH(QString, unit);
    QFETCH(int, rounding);
    QFETCH(double, rounded);
    UnitDef carat = definition("", 5.0, 2, rounding);
    carat.setName(unit);
    QCOMPARE(exact(UnitConverter().Round(1234.6, 1, false, carat, QStringLiteral("single"))), exact(rounded));
}

void TestUnitConverter::caratRoundingLimits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("rounding");
    QTest::addColumn<int>("k");
    QTest::addColumn<double>("rounded");

    QTest::newRow("largest integer") << 1e12 << 5 << 1 << 2147483647.0;
    QTest::newRow("smallest integer") << -1e12 << 5 << 1 << -2147483647.0;
    QTest::newRow("infinite") << Infinite << 5 << 1 << 2147483647.0;
    QTest::newRow("not a number") << NotANumber << 5 << 1 << 0.0;
    QTest::newRow("no step") << 1234.0 << 0 << 1 << 0.0;
    QTest::newRow("negative step") << 1234.6 << -5 << 1 << 1234.0;
    QTest::newRow("largest k") << 1234.0 << 5 << LargestInt << 2147483647.0;
}

void TestUnitConverter::caratRoundingLimits()
{
    QFETCH(double, value);
    QFETCH(int, rounding);
    QFETCH(int, k);
    const double rounded =
        UnitConverter().Round(value, k, false, definition("ct", 5.0, 2, rounding), QStringLiteral("single"));
    QTEST(rounded, "rounded");
    QVERIFY(rounded != 0.0 || !std::signbit(rounded));
}

void TestUnitConverter::roundsToInteger_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("rounded");

    QTest::newRow("half") << 2.5 << 3.0;
    QTest::newRow("negative half") << -2.5 << -3.0;
    QTest::newRow("below half") << 2.4999999 << 2.0;
    QTest::newRow("half less a little") << 0.49999999999999994 << 1.0; // the tolerance of 1e-14
    QTest::newRow("large") << 3e9 << 2147483647.0;
    QTest::newRow("large negative") << -3e9 << -2147483647.0;
    QTest::newRow("not a number") << NotANumber << 0.0;
}

void TestUnitConverter::roundsToInteger()
{
    QFETCH(double, value);
    QFETCH(double, rounded);
    QCOMPARE(exact(UnitConverter().RoundToInt(value)), exact(rounded));
}

void TestUnitConverter::digitValue_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<int>("fraction");
    QTest::addColumn<double>("digits");

    const QString gram = QStringLiteral("g");
    QTest::newRow("gram") << 12.34 << 2 << gram << 0 << 1234.0;
    QTest::newRow("gram, negative") << -12.34 << 2 << gram << 0 << -1234.0;
    QTest::newRow("gram, rounded") << 12.345 << 2 << gram << 0 << 1235.0;
    QTest::newRow("gram, one decimal of a digit") << 12.3456 << 2 << gram << 1 << 1234.6;
    QTest::newRow("gram, two decimals of a digit") << 12.3456 << 2 << gram << 2 << 1234.56;
    QTest::newRow("gram, tens of digits") << 12.3456 << 2 << gram << -1 << 1230.0;
    QTest::newRow("gram without decimals") << 12.5 << 0 << gram << 0 << 13.0;
    QTest::newRow("gram with negative decimals") << 1234.0 << -2 << gram << 0 << 12.0;
    QTest::newRow("kilogram") << 1.5 << 2 << QStringLiteral("kg") << 0 << 150000.0;
    QTest::newRow("milligram") << 1500.0 << 2 << QStringLiteral("mg") << 0 << 150.0;
    QTest::newRow("ounce") << 3.52739619 << 2 << QStringLiteral("oz") << 0 << 10000.0;
    QTest::newRow("grain") << 15.43235835 << 3 << QStringLiteral("GN") << 0 << 1000.0;
    QTest::newRow("carat, one decimal of a digit") << 0.12 << 2 << QStringLiteral("ct") << 1 << 2.4;
    QTest::newRow("unknown unit is the gram") << 12.34 << 2 << QStringLiteral("KG") << 0 << 1234.0;
    QTest::newRow("too large") << 1e12 << 2 << gram << 0 << 2147483647.0;
    QTest::newRow("too large with decimals of a digit") << 1e12 << 2 << gram << 2 << 21474836.47;
    QTest::newRow("infinite") << -Infinite << 2 << gram << 0 << -2147483647.0;
    QTest::newRow("not a number") << NotANumber << 2 << gram << 0 << 0.0;
    QTest::newRow("largest decimals") << 1.0 << LargestInt << QStringLiteral("kg") << 0 << 2147483647.0;
    QTest::newRow("smallest decimals") << 1.0 << SmallestInt << QStringLiteral("GN") << 0 << 0.0;
    QTest::newRow("largest decimals and fraction") << 1.0 << LargestInt << gram << LargestInt << 0.0;
}

void TestUnitConverter::digitValue()
{
    QFETCH(double, value);
    QFETCH(int, decimals);
    QFETCH(QString, unit);
    QFETCH(int, fraction);
    QFETCH(double, digits);
    QCOMPARE(exact(UnitConverter().GetDigitValue(value, decimals, unit, fraction)), exact(digits));
}

void TestUnitConverter::valueString_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("reduction");
    QTest::addColumn<QString>("text");

    const QString overflow = QStringLiteral("OF");
    QTest::newRow("no reduction") << 1.5 << 2 << 0 << QStringLiteral("1.50");
    QTest::newRow("reduction") << 1.54 << 2 << 1 << QStringLiteral("1.5");
    QTest::newRow("reduction by all decimals") << 1.5 << 2 << 2 << QStringLiteral("2");
    QTest::newRow("reduction beyond the decimals") << 1.5 << 2 << 3 << QStringLiteral("1.50");
    QTest::newRow("negative reduction") << 1.5 << 2 << -1 << QStringLiteral("1.50");
    QTest::newRow("no decimals") << 1234.0 << 0 << 0 << QStringLiteral("1234");
    QTest::newRow("no decimals to reduce") << 1234.0 << 0 << 1 << QStringLiteral("1234");
    QTest::newRow("negative decimals give six") << 1.5 << -1 << 0 << QStringLiteral("1.500000");
    QTest::newRow("negative decimals with a reduction") << 1.5 << -2 << 1 << QStringLiteral("1.500000");
    QTest::newRow("zero") << 0.0 << 2 << 0 << QStringLiteral("0.00");
    QTest::newRow("negative zero has no sign") << -0.0 << 2 << 0 << QStringLiteral("0.00");
    QTest::newRow("negative, rounded to zero") << -0.001 << 2 << 0 << QStringLiteral("-0.00");
    QTest::newRow("tie goes away from zero") << 2.5 << 0 << 0 << QStringLiteral("3");
    QTest::newRow("negative tie goes away from zero") << -0.125 << 2 << 0 << QStringLiteral("-0.13");
    QTest::newRow("below a tie in binary") << 1.005 << 2 << 0 << QStringLiteral("1.00");
    QTest::newRow("nine characters") << 123456.78 << 2 << 0 << QStringLiteral("123456.78");
    QTest::newRow("ten characters") << 1234567.89 << 2 << 0 << overflow;
    QTest::newRow("nine characters and the sign") << -123456.78 << 2 << 0 << QStringLiteral("-123456.78");
    QTest::newRow("sign, seven digits and one decimal")
        << -1234567.8 << 1 << 0 << QStringLiteral("-1234567.8");
    QTest::newRow("ten characters and the sign") << -1234567.89 << 2 << 0 << overflow;
    QTest::newRow("nine digits") << 999999999.0 << 0 << 0 << QStringLiteral("999999999");
    QTest::newRow("nine digits rounded up to ten") << 999999999.5 << 0 << 0 << overflow;
    QTest::newRow("negative, nine digits rounded up to ten") << -999999999.5 << 0 << 0 << overflow;
    QTest::newRow("rounded up to ten characters") << 999999.996 << 2 << 0 << overflow;
    QTest::newRow("rounded down to nine characters") << 999999.994 << 2 << 0 << QStringLiteral("999999.99");
    QTest::newRow("reduction makes it fit") << 1234567.89 << 2 << 2 << QStringLiteral("1234568");
    QTest::newRow("seven places fit") << 0.1234567 << 7 << 0 << QStringLiteral("0.1234567");
    QTest::newRow("eight places do not") << 0.12345678 << 8 << 0 << overflow;
    QTest::newRow("zero with eight places") << 0.0 << 8 << 0 << overflow;
    QTest::newRow("not a number") << NotANumber << 2 << 0 << QStringLiteral("nan");
    QTest::newRow("infinite") << Infinite << 2 << 0 << QStringLiteral("inf");
    QTest::newRow("negative infinite") << -Infinite << 0 << 0 << QStringLiteral("-inf");
    QTest::newRow("infinite with more places than any text")
        << Infinite << LargestInt << 0 << QStringLiteral("inf");
    QTest::newRow("more places than any text") << 1.0 << LargestInt << 0 << overflow;
    QTest::newRow("more places than any text, one reduced") << 1.0 << LargestInt << 1 << overflow;
    QTest::newRow("most places reduced to two")
        << 1.0 << LargestInt << LargestInt - 2 << QStringLiteral("1.00");
    QTest::newRow("smallest decimals") << 1.0 << SmallestInt << 0 << QStringLiteral("1.000000");
    QTest::newRow("largest value") << std::numeric_limits<double>::max() << 0 << 0 << overflow;
    QTest::newRow("largest value, negative decimals")
        << std::numeric_limits<double>::max() << -1 << 0 << overflow;
}

void TestUnitConverter::valueString()
{
    QFETCH(double, value);
    QFETCH(int, decimals);
    QFETCH(int, reduction);
    QTEST(UnitConverter().GetValueString(value, decimals, reduction), "text");
}

void TestUnitConverter::resolutionReduction_data()
{
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("requested");
    QTest::addColumn<int>("reduction");

    QTest::newRow("requested") << 3 << 1 << 1;
    QTest::newRow("limited by the decimals") << 2 << 5 << 2;
    QTest::newRow("none") << 3 << 0 << 0;
    QTest::newRow("negative") << 3 << -1 << -1;
    QTest::newRow("negative decimals") << -2 << 1 << -2;
    QTest::newRow("equal") << 2 << 2 << 2;
    QTest::newRow("extremes") << LargestInt << SmallestInt << SmallestInt;
}

void TestUnitConverter::resolutionReduction()
{
    QFETCH(int, decimals);
    QFETCH(int, requested);
    QTEST(UnitConverter().CalculateResolutionReduction(decimals, requested, false), "reduction");
    QTEST(UnitConverter().CalculateResolutionReduction(decimals, requested, true), "reduction");
}

void TestUnitConverter::convertsWithDefinition_data()
{
    QTest::addColumn<double>("digits");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("maxReduction");
    QTest::addColumn<bool>("isGrobRange");
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("rounding");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("shownDecimals");
    QTest::addColumn<int>("reduction");
    QTest::addColumn<double>("value");

    const auto row = [](const char* name, double digits, int decimals, int maxReduction, bool isGrobRange,
                        double factor, int format, int rounding, const char* text, int shownDecimals,
                        int reduction, double value) {
        QTest::newRow(name) << digits << decimals << maxReduction << isGrobRange << factor << format
                            << rounding << QString::fromLatin1(text) << shownDecimals << reduction << value;
    };
    constexpr double Rest = 1e-14; // what the rounding adds
    row("plain", 1234, 2, 0, false, 1.0, 2, 1, "12.34", 2, 0, 12.34 + Rest);
    row("negative", -1234, 2, 0, false, 1.0, 2, 1, "-12.34", 2, 0, -12.34 - Rest);
    row("zero", 0, 2, 0, false, 1.0, 2, 1, "0.00", 2, 0, 0.0);
    row("negative zero", -0.0, 2, 0, false, 1.0, 2, 1, "0.00", 2, 0, 0.0);
    row("factor", 10000, 2, 0, false, 0.0352739619, 3, 1, "3.527", 3, 0, 3.527 + Rest);
    row("fewer decimals than the reading", 1235, 2, 0, false, 1.0, 1, 1, "12.4", 1, 0, 12.4 + Rest);
    row("coarse range shows one decimal less", 1234, 2, 0, true, 1.0, 2, 1, "12.3", 1, 0, 12.3 + Rest);
    row("coarse range without decimals", 1234, 2, 0, true, 1.0, 0, 1, "12", 0, 0, 12.0 + Rest);
    row("coarse range and negative format", 1234, 2, 0, true, 1.0, -1, 1, "12", 0, 0, 12.0 + Rest);
    row("reduction", 1236, 2, 1, false, 1.0, 2, 1, "12.4", 2, 1, 12.4 + Rest);
    row("reduction beyond the decimals", 1234, 2, 5, false, 1.0, 2, 1, "12", 2, 2, 12.0 + Rest);
    row("reduction in the coarse range", 1236, 2, 1, true, 1.0, 2, 1, "12", 1, 1, 12.0 + Rest);
    row("reduction limited in the coarse range", 1236, 2, 5, true, 1.0, 2, 1, "12", 1, 1, 12.0 + Rest);
    row("negative reduction shows all decimals", 1236, 2, -1, false, 1.0, 1, 1, "12.4", 1, -1, 12.36 + Rest);
    row("negative format counts as none", 1234, 2, 1, false, 1.0, -1, 1, "12", 0, 0, 12.0 + Rest);
    row("no decimals: negative format stays", 1236, 0, 0, false, 1.0, -1, 1, "OF", -1, 0, 1240.0);
    row("no decimals: negative format of a short value", 6, 0, 0, false, 1.0, -1, 1, "10.000000", -1, 0,
        10.0 + Rest);
    row("no decimals: nothing is reduced", 1234, 0, 2, true, 1.0, 1, 1, "1234.0", 1, 0, 1234.0);
    row("negative decimals: nothing is reduced", 12, -2, 1, true, 1.0, 1, 1, "1200.0", 1, 0, 1200.0);
    row("rounding step", 1234, 2, 0, false, 1.0, 2, 5, "12.35", 2, 0, 12.35 + Rest);
    row("rounding step, down", 1232, 2, 0, false, 1.0, 2, 5, "12.30", 2, 0, 12.3 + Rest);
    row("rounding step, negative", -1234, 2, 0, false, 1.0, 2, 5, "-12.35", 2, 0, -12.35 - Rest);
    row("rounding step of carat", 1234, 2, 0, false, 5.0, 2, 5, "61.70", 2, 0, 61.7 + Rest);
    row("rounding step in a coarser place", 1234, 3, 0, false, 5.0, 1, 5, "6.0", 1, 0, 6.0 + Rest);
    row("rounding step in a finer place", 12, 1, 0, false, 0.77, 2, 5, "0.90", 2, 0, 0.9 + Rest);
    row("rounding step beyond 32 bits", 1e13, 2, 0, false, 1.0, 0, 5, "OF", 0, 0, 10737418235.0);
    row("rounding step 0 gives no number", 1234, 2, 0, false, 1.0, 2, 0, "0.00", 2, 0, 0.0);
    row("overflow keeps the value", 123456789, 2, 0, false, 1.0, 2, 1, "OF", 2, 0, 1234567.89);
    row("overflow of a negative value", -123456789, 2, 0, false, 1.0, 2, 1, "OF", 2, 0, -1234567.89);
    row("overflow avoided by the reduction", 123456789, 2, 1, false, 1.0, 2, 1, "1234567.9", 2, 1, 1234567.9);
    row("overflow avoided by the coarse range", 123456789, 2, 0, true, 1.0, 2, 1, "1234567.9", 1, 0,
        1234567.9);
    row("longest text", 12345678, 2, 0, false, 1.0, 2, 1, "123456.78", 2, 0, 123456.78);
    row("no digits", NotANumber, 2, 0, false, 1.0, 2, 1, "0.00", 2, 0, 0.0);
    row("factor 0", 1234, 2, 0, false, 0.0, 2, 1, "0.00", 2, 0, 0.0);
}

void TestUnitConverter::convertsWithDefinition()
{
    QFETCH(double, digits);
    QFETCH(int, decimals);
    QFETCH(int, maxReduction);
    QFETCH(bool, isGrobRange);
    QFETCH(double, factor);
    QFETCH(int, format);
    QFETCH(int, rounding);
    QFETCH(QString, text);
    QFETCH(int, shownDecimals);
    QFETCH(int, reduction);
    QFETCH(double, value);
    const bool isOverflow = text == QLatin1String("OF");
    const MesswertData data = UnitConverter().ConvertDigitToUnit(
        digits, decimals, maxReduction, isGrobRange, definition("unit", factor, format, rounding));
    const Filled expected = {text,
                             isOverflow ? QString() : QStringLiteral("unit"),
                             QStringLiteral("print unit"),
                             shownDecimals,
                             reduction,
                             value,
                             isGrobRange};
    QCOMPARE(described(data), expected.described());
}

void TestUnitConverter::convertsByName_data()
{
    QTest::addColumn<double>("digits");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("maxReduction");
    QTest::addColumn<bool>("isGrobRange");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("shownDecimals");
    QTest::addColumn<int>("reduction");
    QTest::addColumn<double>("value");

    const auto row = [](const char* name, double digits, int decimals, int maxReduction, bool isGrobRange,
                        const char* unit, const char* text, int shownDecimals, int reduction, double value) {
        QTest::newRow(name) << digits << decimals << maxReduction << isGrobRange << QString::fromLatin1(unit)
                            << QString::fromLatin1(text) << shownDecimals << reduction << value;
    };
    constexpr double Rest = 1e-14;
    row("gram", 1234567, 2, 0, false, "g", "12345.67", 2, 0, 12345.67);
    row("overflow keeps the value", 123456789, 2, 0, false, "g", "OF", 2, 0, 1234567.89);
    row("negative", -1234, 2, 0, false, "g", "-12.34", 2, 0, -12.34 - Rest);
    row("kilogram", 1234567, 2, 0, false, "kg", "12.34567", 5, 0, 12.34567 + Rest);
    row("milligram", 1234, 3, 0, false, "mg", "1234", 0, 0, 1234.0);
    row("milligram of a coarse reading", 1234, 2, 0, false, "mg", "12340", 0, 0, 12340.0);
    row("ounce", 10000, 2, 0, false, "oz", "3.527", 3, 0, 3.527 + Rest);
    row("rounded to whole digits before", 1, 2, 0, false, "oz", "0.000", 3, 0, 0.0);
    row("grain without decimals", 100, 0, 0, false, "GN", "1540", 0, 0, 1540.0);
    row("coarse range", 1234, 2, 0, true, "g", "12.3", 1, 0, 12.3 + Rest);
    row("coarse range without decimals", 1234, 0, 0, true, "g", "1234", 0, 0, 1234.0);
    row("coarse range, negative decimals", 12, -1, 0, true, "g", "120", 0, 0, 120.0 + Rest);
    row("reduction", 1236, 2, 1, false, "g", "12.4", 2, 1, 12.4 + Rest);
    row("reduction without decimals of the reading", 1236, 0, 2, false, "kg", "1.2", 3, 2, 1.2 + Rest);
    row("reduction beyond the decimals", 1234, 2, 5, false, "g", "12", 2, 2, 12.0 + Rest);
    row("negative decimals count as none", 1234, -2, 1, false, "g", "123400", 0, 0, 123400.0);
    row("no rounding step of carat", 1234, 2, 0, false, "ct", "61.70", 2, 0, 61.7 + Rest);
    row("finer than the rounding step of carat", 1233, 2, 0, false, "C.M.", "61.65", 2, 0, 61.65 + Rest);
    row("unknown unit is the gram under its name", 1234, 2, 0, false, "KG", "12.34", 2, 0, 12.34 + Rest);
    row("no digits", NotANumber, 2, 0, false, "g", "0.00", 2, 0, 0.0);
    row("digits beyond 32 bits", 1e12, 4, 0, false, "g", "OF", 4, 0, 214748.3647);
}

void TestUnitConverter::convertsByName()
{
    QFETCH(double, digits);
    QFETCH(int, decimals);
    QFETCH(int, maxReduction);
    QFETCH(bool, isGrobRange);
    QFETCH(QString, unit);
    QFETCH(QString, text);
    QFETCH(int, shownDecimals);
    QFETCH(int, reduction);
    QFETCH(double, value);
    const bool isOverflow = text == QLatin1String("OF");
    const MesswertData data =
        UnitConverter().ConvertDigitToUnit(digits, decimals, maxReduction, isGrobRange, unit);
    const Filled expected = {
        text, isOverflow ? QString() : unit, QString(), shownDecimals, reduction, value, isGrobRange};
    QCOMPARE(described(data), expected.described());
}

void TestUnitConverter::convertsAsDescribed_data()
{
    QTest::addColumn<bool>("byName");
    QTest::newRow("with a definition") << false;
    QTest::newRow("by name") << true;
}

void TestUnitConverter::convertsAsDescribed()
{
    QFETCH(bool, byName);
    const char* const names[] = {"g",    "mg",  "kg",  "GN",  "dwt", "ozt",  "oz",  "lb",   "ct",
                                 "C.M.", "tlh", "tls", "tlt", "mom", "tola", "bht", "other"};
    UnitConverter converter;
    Values values(21);
    for (int i = 0; i < 200000; ++i) {
        const double digits = values.below(4) == 0 ? values.value() : values.between(-3000000, 3000000);
        const int decimals = values.between(-3, 8);
        const int maxReduction = values.between(-2, 4);
        const bool isGrobRange = values.below(2) == 0;
        const char* const name = names[values.below(sizeof(names) / sizeof(names[0]))];
        const int rounding = values.below(2) == 0 ? 1 : values.between(-2, 10);
        const UnitDef unit =
            definition(name, values.below(50) == 0 ? values.value() : 5.0 * values.fraction(),
                       values.between(-3, 9), rounding, values.below(4) == 0);
        const QString unitName = QString::fromLatin1(name);
        const MesswertData data =
            byName ? converter.ConvertDigitToUnit(digits, decimals, maxReduction, isGrobRange, unitName)
                   : converter.ConvertDigitToUnit(digits, decimals, maxReduction, isGrobRange, unit);
        const MesswertData plain =
            byName ? plainConversion(digits, decimals, maxReduction, isGrobRange, unitName)
                   : plainConversion(digits, decimals, maxReduction, isGrobRange, unit);
        if (described(data) != described(plain)) {
            QFAIL(qPrintable(QStringLiteral("%1 digits with %2 decimals, reduction %3, coarse %4, unit %5 "
                                            "(factor %6, format %7, rounding %8): %9 instead of ")
                                 .arg(digits, 0, 'g', 17)
                                 .arg(decimals)
                                 .arg(maxReduction)
                                 .arg(isGrobRange)
                                 .arg(unitName)
                                 .arg(unit.getCalculatedFactor(), 0, 'g', 17)
                                 .arg(unit.format())
                                 .arg(unit.rounding())
                                 .arg(described(data))
                             + described(plain)));
        }
    }
}

void TestUnitConverter::extremeArguments_data()
{
    QTest::addColumn<double>("digits");
    for (double digits : {0.0, 1.0, -1.0, 1e300, -1e300, Infinite, -Infinite, NotANumber}) {
        QTest::addRow("%g", digits) << digits;
    }
}

void TestUnitConverter::extremeArguments()
{
    // Nothing but a text and a number is asked for; that nothing undefined happens, the sanitizers see.
    QFETCH(double, digits);
    UnitConverter converter;
    const int counts[] = {SmallestInt, SmallestInt + 1, -400, 0, 400, LargestInt - 1, LargestInt};
    for (int decimals : counts) {
        for (int reduction : counts) {
            for (int format : counts) {
                for (int rounding : {SmallestInt, 0, 1, 5, LargestInt}) {
                    const MesswertData data = converter.ConvertDigitToUnit(
                        digits, decimals, reduction, true, definition("unit", Infinite, format, rounding));
                    QVERIFY(!data.messwert.isEmpty());
                    QVERIFY(!std::isnan(data.value));
                    QCOMPARE(data.unit.isEmpty(), data.messwert == QLatin1String("OF"));
                }
            }
            for (const char* name : {"g", "kg", "mg"}) {
                const MesswertData data = converter.ConvertDigitToUnit(digits, decimals, reduction, false,
                                                                       QString::fromLatin1(name));
                QVERIFY(!data.messwert.isEmpty());
                QVERIFY(!std::isnan(data.value));
            }
            QVERIFY(!converter.GetValueString(digits, decimals, reduction).isEmpty());
            QVERIFY(!std::isnan(converter.Round(digits, decimals, true)));
        }
    }
}

void TestUnitConverter::textsAreThoseOfTheFormatter()
{
    const int count = textCount();
    UnitConverter converter;
    Values values(31);
    int shown = 0;
    for (int i = 0; i < count; ++i) {
        const double value = values.value();
        const int places = values.below(12) == 0 ? values.between(-130, -1) : values.between(0, 12);
        const QString full = QStringLiteral("%1").arg(value, 0, 'f', places, QLatin1Char(' '));
        const int longest = full.startsWith(QLatin1Char('-')) ? 10 : 9;
        const bool isTooLong = full.size() > longest;

        const QString bare = fixedPointText(value, places);
        const QString text = converter.GetValueString(value, places, 0);
        if (isTooLong ? !bare.isNull() || text != QLatin1String("OF") : bare != full || text != full) {
            QFAIL(qPrintable(QStringLiteral("%1 with %2 places: '%3', bare '%4', of the formatter '%5'")
                                 .arg(value, 0, 'g', 17)
                                 .arg(places)
                                 .arg(text, bare, full)));
        }
        shown += isTooLong ? 0 : 1;
    }
    // Or else the texts compared would be few.
    QVERIFY2(shown > count / 3, qPrintable(QStringLiteral("only %1 texts are shown").arg(shown)));
}

void TestUnitConverter::convertedTextsAreThoseOfTheFormatter()
{
    const char* const names[] = {"g", "mg", "kg", "GN", "ozt", "oz", "lb", "ct", "tola", "bht"};
    const int count = textCount();
    UnitConverter converter;
    Values values(41);
    int shown = 0;
    int negativeZeros = 0;
    for (int i = 0; i < count; ++i) {
        const double digits = values.below(4) == 0 ? values.value() : values.between(-3000000, 3000000);
        const int decimals = values.between(-2, 6);
        const int maxReduction = values.between(-1, 3);
        const bool isGrobRange = values.below(2) == 0;
        const char* const name = names[values.below(sizeof(names) / sizeof(names[0]))];
        const double factor = values.below(2) == 0 ? 1.0 : 5.0 * values.fraction();
        const int rounding = values.below(2) == 0 ? 1 : values.between(2, 10);
        const MesswertData data =
            i % 2 == 0 ? converter.ConvertDigitToUnit(digits, decimals, maxReduction, isGrobRange,
                                                      QString::fromLatin1(name))
                       : converter.ConvertDigitToUnit(
                           digits, decimals, maxReduction, isGrobRange,
                           definition(name, factor, values.between(-2, 8), rounding, values.below(4) == 0));
        const QString text = plainValueString(data.value, data.decimals, data.resolutionReduction);
        if (data.messwert != text) {
            QFAIL(qPrintable(QStringLiteral("%1 with %2 decimals, %3 reduced: '%4', of the formatter '%5'")
                                 .arg(data.value, 0, 'g', 17)
                                 .arg(data.decimals)
                                 .arg(data.resolutionReduction)
                                 .arg(data.messwert, text)));
        }
        shown += text == QLatin1String("OF") ? 0 : 1;
        negativeZeros += digits == 0.0 && std::signbit(digits) ? 1 : 0;
    }
    // Or else there would be little to compare.
    QVERIFY2(shown > count / 3, qPrintable(QStringLiteral("only %1 texts are shown").arg(shown)));
    QVERIFY(negativeZeros > 0);
}

QTEST_APPLESS_MAIN(TestUnitConverter)
#include "tst_unitconverter.moc"
