// SPDX-License-Identifier: BSD-3-Clause
#include "StatisticsValue.h"

#include <QStringRef>
#include <QStringView>

#include <cstring>
#include <ctime>
#include <utility>

namespace Brimvale
{

namespace
{

const QLatin1String TimestampFormat("yyyy-MM-dd HH:mm:ss.zzz");
constexpr int TimestampLength = 23;

// Writing ----------------------------------------------------------------------------------------------------------
//
// The length of the text is worked out first, so that every character is written once, where it stands.

struct KeyValueForm
{
    static constexpr char16_t BeforeValue[] = u"value=\"";
    static constexpr char16_t BeforeKomma[] = u"\" komma=\"";
    static constexpr char16_t BeforeUnit[] = u"\" unit=\"";
    static constexpr char16_t BeforeFlags[] = u"\" flags=\"";
    static constexpr char16_t BeforeTimestamp[] = u"\" timestamp=\"";
    static constexpr char16_t End[] = u"\"";
};

struct DatabaseForm
{
    static constexpr char16_t BeforeValue[] = u"'";
    static constexpr char16_t BeforeKomma[] = u"','";
    static constexpr char16_t BeforeUnit[] = u"','";
    static constexpr char16_t BeforeFlags[] = u"','";
    static constexpr char16_t BeforeTimestamp[] = u"','";
    static constexpr char16_t End[] = u"'";
};

template <std::size_t Size>
constexpr int lengthOf(const char16_t (&)[Size])
{
    return static_cast<int>(Size) - 1;
}

template <std::size_t Size>
QChar* write(QChar* to, const char16_t (&piece)[Size])
{
    std::memcpy(to, piece, (Size - 1) * sizeof(QChar));
    return to + Size - 1;
}

QChar* write(QChar* to, const QString& text)
{
    std::memcpy(to, text.constData(), static_cast<std::size_t>(text.size()) * sizeof(QChar));
    return to + text.size();
}

/// Writes the last `count` digits of a number.
template <typename Unsigned>
QChar* writeDigits(QChar* to, Unsigned number, int count)
{
    for (QChar* next = to + count; next != to;) {
        *--next = QChar(static_cast<ushort>('0' + number % 10));
        number /= 10;
    }
    return to + count;
}

class Number
{
public:
    explicit Number(qint64 number)
        : m_isNegative(number < 0)
        // The magnitude of the smallest number is no qint64.
        , m_magnitude(m_isNegative ? 0 - static_cast<quint64>(number) : static_cast<quint64>(number))
    {
        // The largest magnitude, 2^63, has fewer digits than the largest bound, 10^19.
        for (quint64 bound = 10; m_magnitude >= bound; bound *= 10) {
            ++m_digits;
        }
    }

    int length() const { return m_digits + (m_isNegative ? 1 : 0); }

    QChar* write(QChar* to) const
    {
        if (m_isNegative) {
            *to++ = QLatin1Char('-');
        }
        return writeDigits(to, m_magnitude, m_digits);
    }

private:
    bool m_isNegative;
    quint64 m_magnitude;
    int m_digits = 1;
};

/// A time stamp as it is written, without the general formatting where the year has four digits.
class Timestamp
{
public:
    explicit Timestamp(const QDateTime& timestamp)
    {
        if (!timestamp.isValid()) {
            return;
        }
        timestamp.date().getDate(&m_year, &m_month, &m_day);
        if (m_year < 1 || m_year > 9999) {
            m_unusual = timestamp.toString(TimestampFormat);
            return;
        }
        m_isUsual = true;
        m_milliseconds = static_cast<unsigned>(timestamp.time().msecsSinceStartOfDay());
    }

    int length() const { return m_isUsual ? TimestampLength : m_unusual.size(); }

    QChar* write(QChar* to) const
    {
        if (!m_isUsual) {
            return Brimvale::write(to, m_unusual);
        }
        const unsigned seconds = m_milliseconds / 1000;
        const unsigned minutes = seconds / 60;
        to = writeField(to, static_cast<unsigned>(m_year), 4, '-');
        to = writeField(to, static_cast<unsigned>(m_month), 2, '-');
        to = writeField(to, static_cast<unsigned>(m_day), 2, ' ');
        to = writeField(to, minutes / 60, 2, ':');
        to = writeField(to, minutes % 60, 2, ':');
        to = writeField(to, seconds % 60, 2, '.');
        return writeDigits(to, m_milliseconds % 1000, 3);
    }

private:
    static QChar* writeField(QChar* to, unsigned number, int digits, char separator)
    {
        to = writeDigits(to, number, digits);
        *to = QLatin1Char(separator);
        return to + 1;
    }

    bool m_isUsual = false;
    int m_year = 0;
    int m_month = 0;
    int m_day = 0;
    unsigned m_milliseconds = 0;
    QString m_unusual;
};

template <typename Form>
QString writeFields(const StatisticsValue& figure)
{
    constexpr int FixedLength = lengthOf(Form::BeforeValue) + lengthOf(Form::BeforeKomma)
                                + lengthOf(Form::BeforeUnit) + lengthOf(Form::BeforeFlags)
                                + lengthOf(Form::BeforeTimestamp) + lengthOf(Form::End);
    const Number value(figure.value);
    const Number komma(figure.komma);
    const Number flags(static_cast<quint32>(static_cast<int>(figure.flags)));
    const Timestamp timestamp(figure.timestamp);

    QString text(FixedLength + value.length() + komma.length() + figure.unit.size() + flags.length()
                     + timestamp.length(),
                 Qt::Uninitialized);
    QChar* next = write(text.data(), Form::BeforeValue);
    next = write(value.write(next), Form::BeforeKomma);
    next = write(komma.write(next), Form::BeforeUnit);
    next = write(write(next, figure.unit), Form::BeforeFlags);
    next = write(flags.write(next), Form::BeforeTimestamp);
    write(timestamp.write(next), Form::End);
    return text;
}

// Reading ----------------------------------------------------------------------------------------------------------

/// Reads `count` digits; the result is negative when there is another character.
int readDigits(QStringView text, int position, int count)
{
    int number = 0;
    for (int i = position; i < position + count; ++i) {
        const int digit = text[i].unicode() - '0';
        if (digit < 0 || digit > 9) {
            return -1;
        }
        number = number * 10 + digit;
    }
    return number;
}

/// A decimal integer of 32 bits, 0 if the text is none. The usual form is read without the general conversion.
int readInteger(QStringView text)
{
    constexpr int SafeDigits = 9; // any number of nine digits fits in 32 bits
    const int size = static_cast<int>(text.size());
    const bool isNegative = size > 0 && text.front() == QLatin1Char('-');
    const int first = isNegative ? 1 : 0;
    if (size > first && size - first <= SafeDigits) {
        const int number = readDigits(text, first, size - first);
        if (number >= 0) {
            return isNegative ? -number : number;
        }
    }
    return text.toString().toInt();
}

/// Whether the offset from universal time changes on the day before, on, or after a date, whose year fits in an `int`.
bool isClockChangeNear(QDate date)
{
    constexpr qint64 SecondsPerDay = 86400;
    constexpr qint64 JulianDayOfEpoch = 2440588;
    const qint64 midnight = (date.toJulianDay() - JulianDayOfEpoch) * SecondsPerDay;
    const auto before = static_cast<std::time_t>(midnight - SecondsPerDay);
    const auto after = static_cast<std::time_t>(midnight + 2 * SecondsPerDay);
    std::tm atBefore = {};
    std::tm atAfter = {};
    ::localtime_r(&before, &atBefore);
    ::localtime_r(&after, &atAfter);
    return atBefore.tm_gmtoff != atAfter.tm_gmtoff;
}

/// A time stamp in the format, invalid if the text is none. Exactly written ones are read without the general parser,
/// except near a change of the clock: which of two equal times is meant, or that there is none, is the parser's rule.
QDateTime readTimestamp(QStringView text)
{
    constexpr int FirstYear = 1971;
    constexpr int LastYear = 2036; // 32-bit times end in 2038
    if (text.isEmpty()) {
        return QDateTime();
    }
    const auto hasSeparator = [&text](int position, char separator) {
        return text[position] == QLatin1Char(separator);
    };
    if (text.size() == TimestampLength && hasSeparator(4, '-') && hasSeparator(7, '-')
        && hasSeparator(10, ' ') && hasSeparator(13, ':') && hasSeparator(16, ':') && hasSeparator(19, '.')) {
        const int year = readDigits(text, 0, 4);
        const QDate date(year, readDigits(text, 5, 2), readDigits(text, 8, 2));
        const QTime time(readDigits(text, 11, 2), readDigits(text, 14, 2), readDigits(text, 17, 2),
                         readDigits(text, 20, 3));
        if (year >= FirstYear && year <= LastYear && date.isValid() && time.isValid()) {
            QDateTime timestamp(date, time);
            if (!isClockChangeNear(date)) {
                return timestamp;
            }
        }
    }
    return QDateTime::fromString(text.toString(), TimestampFormat);
}

template <std::size_t Size>
bool isKey(QStringView key, const char16_t (&name)[Size])
{
    return key.size() == static_cast<qsizetype>(Size) - 1
           && std::memcmp(key.utf16(), name, (Size - 1) * sizeof(char16_t)) == 0;
}

void setProperty(StatisticsValue& figure, QStringView key, QStringView text)
{
    if (isKey(key, u"value")) {
        figure.value = readInteger(text);
    } else if (isKey(key, u"komma")) {
        figure.komma = readInteger(text);
    } else if (isKey(key, u"unit")) {
        figure.unit = text.toString();
    } else if (isKey(key, u"flags")) {
        figure.flags = QFlags<StatisticsValue::StatisticsFlag>(readInteger(text));
    } else if (isKey(key, u"timestamp")) {
        figure.timestamp = readTimestamp(text);
    }
}

/// A pair as it stands in the text, and where the next one begins.
struct Pair
{
    QStringView key;
    QStringView text;
    int next = 0;
};

/// The place of the first quote from `position` on; -1 if there is none.
int findQuote(QStringView text, int position)
{
    const int size = static_cast<int>(text.size());
    const QChar* const data = text.data();
    for (int i = position; i < size; ++i) {
        if (data[i] == QLatin1Char('"')) {
            return i;
        }
    }
    return -1;
}

/// The place of the first `="` from `position` on; -1 if there is none.
int findEqualsAndQuote(QStringView text, int position)
{
    for (int quote = findQuote(text, position + 1); quote >= 0; quote = findQuote(text, quote + 1)) {
        if (text[quote - 1] == QLatin1Char('=')) {
            return quote - 1;
        }
    }
    return -1;
}

/// Finds the pair at `position`, which may lie outside the text; a negative one counts from its end.
Pair findPair(const QString& text, int position)
{
    // Further out nothing changes but that the sums below would overflow.
    position = qBound(-text.size() - 1, position, text.size() + 1);
    const QStringView all = text;
    const int equals = findEqualsAndQuote(all, position < 0 ? qMax(position + text.size(), 0) : position);
    const int quote = findQuote(all, equals + 2);
    const int next = quote + 2;
    if (Q_LIKELY(position >= 0 && equals >= 0 && quote >= 0)) {
        return {all.mid(position, equals - position), all.mid(equals + 2, quote - (equals + 2)), next};
    }
    // A search without result gives -1 and a negative length, which stands for all that follows.
    return {text.midRef(position, equals - position), text.midRef(equals + 2, quote - (equals + 2)), next};
}

/// Hands every pair to `use`, up to the end or to where the position does not advance, which would go on for ever.
template <typename Use>
void forEachPair(const QString& text, Use use)
{
    int position = 0;
    while (position < text.size()) {
        const Pair pair = findPair(text, position);
        use(pair);
        if (pair.next <= position) {
            return;
        }
        position = pair.next;
    }
}

/// The fields of a text that is exactly as `ToString()` writes it, which is nearly every text.
class WrittenFields
{
public:
    explicit WrittenFields(QStringView text)
        : m_rest(text)
        , m_isComplete(skip(KeyValueForm::BeforeValue) && take(&value) && skip(KeyValueForm::BeforeKomma)
                       && take(&komma) && skip(KeyValueForm::BeforeUnit) && take(&unit)
                       && skip(KeyValueForm::BeforeFlags) && take(&flags)
                       && skip(KeyValueForm::BeforeTimestamp) && take(&timestamp) && skip(KeyValueForm::End)
                       && m_rest.isEmpty())
    {
    }

    /// Whether all fields were found and nothing else. Otherwise they are of no use.
    bool isComplete() const { return m_isComplete; }

    QStringView value;
    QStringView komma;
    QStringView unit;
    QStringView flags;
    QStringView timestamp;

private:
    template <std::size_t Size>
    bool skip(const char16_t (&piece)[Size])
    {
        constexpr qsizetype Length = Size - 1;
        if (m_rest.size() < Length || !isKey(m_rest.left(Length), piece)) {
            return false;
        }
        m_rest = m_rest.mid(Length);
        return true;
    }

    /// Takes all up to the next quote.
    bool take(QStringView* field)
    {
        const int quote = findQuote(m_rest, 0);
        if (quote < 0) {
            return false;
        }
        *field = m_rest.left(quote);
        m_rest = m_rest.mid(quote);
        return true;
    }

    QStringView m_rest;
    bool m_isComplete;
};

} // namespace

StatisticsValue::StatisticsValue(long long value, int komma, QString unit, QFlags<StatisticsFlag> flags,
                                 QDateTime timestamp, bool isValid)
    : value(value)
    , komma(komma)
    , unit(std::move(unit))
    , flags(flags)
    , timestamp(std::move(timestamp))
    , valid(isValid)
{
}

StatisticsValue::StatisticsValue(const StatisticsValue& other) = default;

StatisticsValue& StatisticsValue::operator=(const StatisticsValue& other) = default;

StatisticsValue::~StatisticsValue() = default;

void StatisticsValue::Reset()
{
    value = 0;
    komma = 0;
    unit = QString();
    flags = {};
    timestamp = QDateTime();
    valid = false;
}

bool StatisticsValue::isEqual(const StatisticsValue* other)
{
    // Every member is compared, without an early exit.
    bool equal = komma == other->komma;
    equal &= value == other->value;
    equal &= unit == other->unit;
    equal &= flags == other->flags;
    equal &= timestamp == other->timestamp;
    equal &= valid == other->valid;
    return equal;
}

bool StatisticsValue::isValid()
{
    return valid;
}

void StatisticsValue::setIsValid(bool isValid)
{
    if (valid != isValid) {
        valid = isValid;
    }
}

QString StatisticsValue::ToString() const
{
    return writeFields<KeyValueForm>(*this);
}

QString StatisticsValue::ToDbString() const
{
    return writeFields<DatabaseForm>(*this);
}

void StatisticsValue::SetFromString(QString text)
{
    const WrittenFields fields(text);
    if (fields.isComplete()) {
        value = readInteger(fields.value);
        komma = readInteger(fields.komma);
        unit = fields.unit.toString();
        flags = QFlags<StatisticsFlag>(readInteger(fields.flags));
        timestamp = readTimestamp(fields.timestamp);
        return;
    }
    // Without the map of the single steps: pairs set their members one after the other, so that of a repeated key
    // the last counts here too.
    forEachPair(text, [this](const Pair& pair) { setProperty(*this, pair.key, pair.text); });
}

void StatisticsValue::ConvertStringToMap(QString text, QMap<QString, QString>* map)
{
    forEachPair(text, [map](const Pair& pair) { map->insert(pair.key.toString(), pair.text.toString()); });
}

int StatisticsValue::AddKeyValPair(QString text, int position, QMap<QString, QString>* map)
{
    const Pair pair = findPair(text, position);
    map->insert(pair.key.toString(), pair.text.toString());
    return pair.next;
}

void StatisticsValue::ConvertMapToStatsVal(const QMap<QString, QString>* map)
{
    for (auto entry = map->constBegin(); entry != map->constEnd(); ++entry) {
        SetStatsProperty(entry.key(), entry.value());
    }
}

void StatisticsValue::SetStatsProperty(QString key, QString text)
{
    setProperty(*this, key, text);
}

} // namespace Brimvale
