// SPDX-License-Identifier: BSD-3-Clause
#include "StatisticsValue.h"

#include <QStringRef>

#include <utility>

namespace Brimvale
{

namespace
{

const QLatin1String TimestampFormat("yyyy-MM-dd HH:mm:ss.zzz");
constexpr int TimestampLength = 23;

// Writing ----------------------------------------------------------------------------------------------------------

template <int Size>
constexpr QLatin1String literal(const char (&text)[Size])
{
    return QLatin1String(text, Size - 1);
}

/// Text of a known length that is filled from left to right.
class TextFiller
{
public:
    explicit TextFiller(int length)
        : m_text(length, Qt::Uninitialized)
        , m_next(m_text.data())
    {
    }

    void add(QLatin1String text)
    {
        for (const char c : text) {
            *m_next++ = QLatin1Char(c);
        }
    }

    void add(const QString& text) { m_next = std::copy(text.cbegin(), text.cend(), m_next); }

    QString text() const { return m_text; }

private:
    QString m_text;
    QChar* m_next;
};

/// The decimal digits of a number, made without an allocation.
class DecimalDigits
{
public:
    explicit DecimalDigits(qint64 number)
    {
        // The magnitude of the smallest number is no qint64.
        quint64 rest = number < 0 ? 0 - static_cast<quint64>(number) : static_cast<quint64>(number);
        do {
            *--m_begin = static_cast<char>('0' + rest % 10);
            rest /= 10;
        } while (rest != 0);
        if (number < 0) {
            *--m_begin = '-';
        }
    }

    QLatin1String text() const { return QLatin1String(m_begin, m_buffer + sizeof(m_buffer)); }

private:
    char m_buffer[20]; // 19 digits and a sign
    char* m_begin = m_buffer + sizeof(m_buffer);
};

/// A time stamp as it is written, made without the general formatting where the year has four digits.
class TimestampText
{
public:
    explicit TimestampText(const QDateTime& timestamp)
    {
        if (!timestamp.isValid()) {
            return;
        }
        int year = 0;
        int month = 0;
        int day = 0;
        timestamp.date().getDate(&year, &month, &day);
        if (year < 1 || year > 9999) {
            m_unusual = timestamp.toString(TimestampFormat).toLatin1();
            return;
        }
        const QTime time = timestamp.time();
        char* next = m_usual;
        next = addDigits(next, year, 4, '-');
        next = addDigits(next, month, 2, '-');
        next = addDigits(next, day, 2, ' ');
        next = addDigits(next, time.hour(), 2, ':');
        next = addDigits(next, time.minute(), 2, ':');
        next = addDigits(next, time.second(), 2, '.');
        addDigits(next, time.msec(), 3, '\0');
        m_length = TimestampLength;
    }

    QLatin1String text() const
    {
        return m_length > 0 ? QLatin1String(m_usual, m_length) : QLatin1String(m_unusual);
    }

private:
    static char* addDigits(char* next, int number, int count, char separator)
    {
        for (int i = count - 1; i >= 0; --i) {
            next[i] = static_cast<char>('0' + number % 10);
            number /= 10;
        }
        next[count] = separator;
        return next + count + 1;
    }

    char m_usual[TimestampLength + 1];
    int m_length = 0;
    QByteArray m_unusual;
};

/// The five fields with the texts before, between and after them.
QString writeFields(const StatisticsValue& figure, const QLatin1String (&fixed)[6])
{
    const DecimalDigits value(figure.value);
    const DecimalDigits komma(figure.komma);
    const DecimalDigits flags(static_cast<quint32>(static_cast<int>(figure.flags)));
    const TimestampText timestamp(figure.timestamp);

    int length = value.text().size() + komma.text().size() + figure.unit.size() + flags.text().size()
                 + timestamp.text().size();
    for (const QLatin1String& text : fixed) {
        length += text.size();
    }
    TextFiller filler(length);
    filler.add(fixed[0]);
    filler.add(value.text());
    filler.add(fixed[1]);
    filler.add(komma.text());
    filler.add(fixed[2]);
    filler.add(figure.unit);
    filler.add(fixed[3]);
    filler.add(flags.text());
    filler.add(fixed[4]);
    filler.add(timestamp.text());
    filler.add(fixed[5]);
    return filler.text();
}

// Reading ----------------------------------------------------------------------------------------------------------

/// A decimal integer of 32 bits, 0 if the text is none. The usual form is read without the general conversion.
int readInteger(const QStringRef& text)
{
    constexpr int SafeDigits = 9; // any number of nine digits fits in 32 bits
    const bool isNegative = text.startsWith(QLatin1Char('-'));
    const int first = isNegative ? 1 : 0;
    const int digits = text.size() - first;
    if (digits < 1 || digits > SafeDigits) {
        return text.toInt();
    }
    int number = 0;
    for (int i = first; i < text.size(); ++i) {
        const int digit = text.at(i).unicode() - '0';
        if (digit < 0 || digit > 9) {
            return text.toInt();
        }
        number = number * 10 + digit;
    }
    return isNegative ? -number : number;
}

/// Reads `count` digits; the result is negative when there is another character.
int readDigits(const QStringRef& text, int position, int count)
{
    int number = 0;
    for (int i = position; i < position + count; ++i) {
        const int digit = text.at(i).unicode() - '0';
        if (digit < 0 || digit > 9) {
            return -1;
        }
        number = number * 10 + digit;
    }
    return number;
}

/// A time stamp in the format, invalid if the text is none. Exactly written ones are read without the general parser.
QDateTime readTimestamp(const QStringRef& text)
{
    if (text.isEmpty()) {
        return QDateTime();
    }
    const auto hasSeparator = [&text](int position, char separator) {
        return text.at(position) == QLatin1Char(separator);
    };
    if (text.size() == TimestampLength && hasSeparator(4, '-') && hasSeparator(7, '-')
        && hasSeparator(10, ' ') && hasSeparator(13, ':') && hasSeparator(16, ':') && hasSeparator(19, '.')) {
        const QDate date(readDigits(text, 0, 4), readDigits(text, 5, 2), readDigits(text, 8, 2));
        const QTime time(readDigits(text, 11, 2), readDigits(text, 14, 2), readDigits(text, 17, 2),
                         readDigits(text, 20, 3));
        if (date.isValid() && date.year() > 0 && time.isValid()) {
            const QDateTime timestamp(date, time);
            if (timestamp.isValid()) {
                return timestamp;
            }
        }
    }
    return QDateTime::fromString(text.toString(), TimestampFormat);
}

void setProperty(StatisticsValue& figure, const QStringRef& key, const QStringRef& text)
{
    if (key == QLatin1String("value")) {
        figure.value = readInteger(text);
    } else if (key == QLatin1String("komma")) {
        figure.komma = readInteger(text);
    } else if (key == QLatin1String("unit")) {
        figure.unit = text.toString();
    } else if (key == QLatin1String("flags")) {
        figure.flags = QFlags<StatisticsValue::StatisticsFlag>(readInteger(text));
    } else if (key == QLatin1String("timestamp")) {
        figure.timestamp = readTimestamp(text);
    }
}

/// A pair as it stands in the text, and where the next one begins.
struct Pair
{
    QStringRef key;
    QStringRef text;
    int next;
};

Pair findPair(const QString& text, int position)
{
    const int equals = text.indexOf(QLatin1String("=\""), position);
    const int quote = text.indexOf(QLatin1Char('"'), equals + 2);
    // A search without result gives -1 and a negative length, which stands for all that follows.
    return {text.midRef(position, equals - position), text.midRef(equals + 2, quote - (equals + 2)),
            quote + 2};
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
    static constexpr QLatin1String Fixed[] = {literal("value=\""),        literal("\" komma=\""),
                                              literal("\" unit=\""),      literal("\" flags=\""),
                                              literal("\" timestamp=\""), literal("\"")};
    return writeFields(*this, Fixed);
}

QString StatisticsValue::ToDbString() const
{
    static constexpr QLatin1String Fixed[] = {literal("'"),   literal("','"), literal("','"),
                                              literal("','"), literal("','"), literal("'")};
    return writeFields(*this, Fixed);
}

void StatisticsValue::SetFromString(QString text)
{
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
    setProperty(*this, QStringRef(&key), QStringRef(&text));
}

} // namespace Brimvale
