// SPDX-License-Identifier: BSD-3-Clause
#include "Inputs.h"

#include "UnitsList.h"

#include <cmath>
#include <cstring>
#include <limits>

using namespace Brimvale;

namespace
{

template <typename Value, int Size>
Value oneOf(Inputs& inputs, const Value (&values)[Size])
{
    return values[inputs.below(Size)];
}

double fromBits(quint64 bits)
{
    double value;
    static_assert(sizeof(value) == sizeof(bits));
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

quint64 toBits(double value)
{
    quint64 bits;
    std::memcpy(&bits, &value, sizeof(bits));
    return bits;
}

} // namespace

// The generator "splitmix64", which is defined by these lines alone.
quint64 Inputs::bits()
{
    m_state += 0x9E3779B97F4A7C15;
    quint64 mixed = m_state;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
    return mixed ^ (mixed >> 31);
}

double Inputs::number()
{
    using Limits = std::numeric_limits<double>;
    static const double Edges[] = {0.0,
                                   0.5,
                                   1.0,
                                   1e-14,
                                   1e-13,
                                   Limits::denorm_min(),
                                   Limits::min(),
                                   std::nextafter(Limits::min(), 0.0),
                                   Limits::epsilon(),
                                   Limits::max(),
                                   Limits::infinity(),
                                   Limits::quiet_NaN(),
                                   32767.5,
                                   65535.5,
                                   2147483646.5,
                                   2147483647.0,
                                   2147483647.5,
                                   2147483648.0,
                                   2147483649.0,
                                   4294967295.5,
                                   4294967296.0,
                                   999999999.5,
                                   9007199254740991.0,
                                   9007199254740992.0,
                                   9223372036854774784.0,
                                   9223372036854775808.0,
                                   18446744073709551615.0};
    switch (below(6)) {
    case 0: {
        const double edge = oneOf(*this, Edges);
        return flag() ? -edge : edge;
    }
    case 1:
        return fromBits(bits());
    case 2:
        return integer();
    case 3:
        return static_cast<double>(longInteger());
    default:
        return decimal();
    }
}

double Inputs::decimal()
{
    static const double Powers[] = {1.0, 10.0, 100.0, 1000.0, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
    const int kind = below(4);
    double value = below(static_cast<int>(oneOf(*this, Powers)) + 1);
    if (kind != 0)
        value += 0.5;
    value /= oneOf(*this, Powers);
    if (kind == 1)
        value = fromBits(toBits(value) + 1);
    else if (kind == 2)
        value = fromBits(toBits(value) - 1);
    return flag() ? -value : value;
}

int Inputs::integer()
{
    using Limits = std::numeric_limits<int>;
    static const int Edges[] = {0,
                                1,
                                -1,
                                -2,
                                127,
                                128,
                                -129,
                                255,
                                256,
                                32767,
                                32768,
                                -32769,
                                65535,
                                65536,
                                99,
                                100,
                                1000000000,
                                -1000000000,
                                999999999,
                                Limits::max(),
                                Limits::max() - 1,
                                Limits::min(),
                                Limits::min() + 1};
    switch (below(3)) {
    case 0:
        return oneOf(*this, Edges);
    case 1:
        return below(2001) - 1000;
    default:
        return static_cast<int>(static_cast<quint32>(bits()));
    }
}

qint64 Inputs::longInteger()
{
    using Limits = std::numeric_limits<qint64>;
    static const qint64 Edges[] = {Q_INT64_C(2147483648),
                                   Q_INT64_C(-2147483649),
                                   Q_INT64_C(4294967295),
                                   Q_INT64_C(4294967296),
                                   Q_INT64_C(-4294967297),
                                   Q_INT64_C(9999999999),
                                   Limits::max(),
                                   Limits::max() - 1,
                                   Limits::min(),
                                   Limits::min() + 1,
                                   Q_INT64_C(1000000000000000000)};
    switch (below(3)) {
    case 0:
        return oneOf(*this, Edges);
    case 1:
        return integer();
    default:
        return static_cast<qint64>(bits()) >> below(64);
    }
}

int Inputs::places()
{
    static const int Edges[] = {-400, -324, -323, -309, -308, -100, -23, -22,
                                22,   23,   100,  308,  309,  323,  324, 400};
    switch (below(16)) {
    case 0:
        return oneOf(*this, Edges);
    case 1:
        return integer();
    case 2:
        return below(41) - 20;
    default:
        return below(9);
    }
}

QString Inputs::text()
{
    // Among them: no ASCII, beyond 16 bits, half of a surrogate pair, marks of the formats, blanks, a null.
    static const QString Pieces[] = {
        QString(),
        QStringLiteral("g"),
        QStringLiteral("kg"),
        QStringLiteral("Brutto"),
        QStringLiteral("12.34"),
        QStringLiteral(" "),
        QString(QChar(0x00A0)),
        QStringLiteral("\t"),
        QStringLiteral("\r\n"),
        QStringLiteral("\""),
        QStringLiteral("'"),
        QStringLiteral("="),
        QStringLiteral("value=\"7\""),
        QStringLiteral("<sub>"),
        QStringLiteral("</sub>"),
        QStringLiteral("<sup>"),
        QStringLiteral("</s"),
        QStringLiteral("%1"),
        QStringLiteral("%L2"),
        QString::fromUtf8("µg"),
        QString::fromUtf8("Größe ß"),
        QString::fromUtf8("ÄÖÜäöü"),
        QString::fromUtf8("\u20AC"),
        QString::fromUtf8("\u6F22\u5B57"),
        QString::fromUtf8("\U0001F9EA"),
        QString(QChar(0xD83E)),
        QString(QChar(0)),
        QString(QChar(0xFFFF)),
        QString(QChar(0x00FF)),
        QString(QChar(0x0080)),
    };
    QString result;
    const int repeat = below(200) == 0 ? 300 : 1;
    const int count = below(5);
    for (int i = 0; i < count * repeat; ++i)
        result += oneOf(*this, Pieces);
    return result;
}

QString Inputs::unitName()
{
    static const char* const Names[] = {"g",    "mg",  "kg",  "GN",  "dwt", "ozt",  "oz",  "lb", "ct",
                                        "C.M.", "tlh", "tls", "tlt", "mom", "tola", "bht", "KG", "baht"};
    return below(20) == 0 ? text() : QString::fromLatin1(oneOf(*this, Names));
}

QString Inputs::numberText()
{
    static const char* const Texts[] = {"",
                                        "-",
                                        "+7",
                                        " 7",
                                        "7 ",
                                        "007",
                                        "0x10",
                                        "1e3",
                                        "1.5",
                                        "1,5",
                                        "12a",
                                        "2147483647",
                                        "2147483648",
                                        "-2147483648",
                                        "-2147483649",
                                        "4294967295",
                                        "4294967296",
                                        "4294967297",
                                        "9223372036854775807",
                                        "9223372036854775808",
                                        "-9223372036854775809",
                                        "18446744073709551616",
                                        "99999999999999999999999999",
                                        "inf",
                                        "nan",
                                        "-0",
                                        "1e400",
                                        "4.9e-324",
                                        "2e-324",
                                        "453.59237",
                                        "\xC3\xBC",
                                        "\xD9\xA1"}; // the Arabic digit one
    switch (below(4)) {
    case 0:
        return QString::fromUtf8(oneOf(*this, Texts));
    case 1:
        return QString::number(longInteger());
    case 2:
        return QString::number(integer());
    default:
        return QString::number(below(1000));
    }
}

// Draws that are arguments stand in braces, which are evaluated from left to right by every compiler.

UnitDef Inputs::unit()
{
    if (below(3) != 0) {
        UnitsList units(nullptr, below(9));
        return units.getUnitByName(unitName());
    }
    return {unitName(),
            text(),
            number(),
            places(),
            flag() ? 5 : integer(),
            flag(),
            static_cast<UnitDef::UnitEnableFlag>(bits() & 0xFFFF)};
}

QDateTime Inputs::timestamp()
{
    constexpr qint64 MillisecondsOfMostYears = Q_INT64_C(4000) * 366 * 86400 * 1000;
    switch (below(6)) {
    case 0:
        return QDateTime();
    case 1: // also the hour that the clock leaves out, and the one that it shows twice
        return QDateTime{QDate{1965 + below(90), flag() ? 3 : 10, 24 + below(8)},
                         QTime{below(5), below(60), below(60), below(1000)}};
    case 2:
        return QDateTime{QDate{below(12000) - 1000, 1 + below(12), 1 + below(31)},
                         QTime{below(24), below(60), below(60), below(1000)}};
    default:
        return QDateTime::fromMSecsSinceEpoch(
            static_cast<qint64>(bits() % static_cast<quint64>(MillisecondsOfMostYears))
            - MillisecondsOfMostYears / 2);
    }
}
