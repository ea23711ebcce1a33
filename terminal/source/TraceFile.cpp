// SPDX-License-Identifier: BSD-3-Clause
#include "source/TraceFile.h"

#include "source/DecimalText.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cmath>
#include <new>

namespace Brimvale
{
namespace Terminal
{
namespace
{

const char* const Header = "time_s,weight_g";
constexpr int MaximumLineLength = 1000;
constexpr int MaximumSamples = 20000000; ///< Two days at a hundred readings a second.

/// The messages, for translation.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TraceFile)
};

/// Reads a trace line by line and keeps where it is, for the messages.
class Reader
{
public:
    Reader(QIODevice& device, const QString& name)
        : m_device(device)
        , m_name(name)
    {
    }

    /// The next line without its end and without blanks around it; nothing at the end of the file or on a
    /// failure.
    std::optional<QByteArray> next()
    {
        QByteArray line = m_device.readLine(MaximumLineLength + 3);
        if (line.isEmpty())
            return std::nullopt;
        ++m_line;
        if (line.endsWith('\n'))
            line.chop(1);
        if (line.endsWith('\r'))
            line.chop(1);
        if (m_line == 1 && line.startsWith("\xEF\xBB\xBF"))
            line.remove(0, 3);
        // The length first: the cut end of a long line may be half a character.
        if (line.size() > MaximumLineLength && !line.contains('\0')) {
            fail(Texts::tr("the line is longer than %1 bytes; a line is a time and a weight, such as "
                           "\"0.250,12.5\".")
                     .arg(MaximumLineLength));
            return std::nullopt;
        }
        if (QString::fromUtf8(line).contains(QChar(QChar::ReplacementCharacter)) || line.contains('\0')) {
            fail(Texts::tr("this is not UTF-8 text; save the file as plain text in UTF-8."));
            return std::nullopt;
        }
        return line.trimmed();
    }

    void fail(const QString& message)
    {
        m_error = QStringLiteral("%1:%2: %3").arg(m_name, QString::number(qMax(1, m_line)), message);
    }

    bool hasFailed() const { return !m_error.isNull(); }
    QString error() const { return m_error; }
    int line() const { return m_line; }

private:
    QIODevice& m_device;
    const QString m_name;
    int m_line = 0;
    QString m_error;
};

QString quoted(const QByteArray& bytes)
{
    constexpr int Shown = 40;
    QString shown = QString::fromUtf8(bytes);
    if (shown.size() > Shown)
        shown = shown.left(Shown) + QStringLiteral("...");
    return QLatin1Char('"') + shown + QLatin1Char('"');
}

/// Reads one field as a number; fails with a message that names @p field.
std::optional<DecimalText> number(Reader& reader, const QByteArray& bytes, const QString& field)
{
    std::optional<DecimalText> number = DecimalText::parse(bytes);
    if (!number) {
        reader.fail(
            Texts::tr("the %1 %2 is not a number; write a plain decimal number with a point, such as 12.5.")
                .arg(field, quoted(bytes)));
    }
    return number;
}

} // namespace

std::optional<TraceFile> TraceFile::load(const QString& fileName, QString* error)
{
    QFile file(fileName);
    const auto fail = [&](const QString& message) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(fileName, message);
        return std::nullopt;
    };
    const QFileInfo info(fileName);
    if (fileName.isEmpty())
        return fail(Texts::tr("no file is named; write trace:FILE."));
    if (!info.exists())
        return fail(Texts::tr("there is no such file; check the path."));
    if (info.isDir())
        return fail(Texts::tr("this is a directory; name a recording in it."));
    if (!file.open(QIODevice::ReadOnly))
        return fail(
            Texts::tr("the file cannot be read (%1); check its permissions.").arg(file.errorString()));
    std::optional<TraceFile> trace;
    try {
        trace = parse(file, fileName, error);
    } catch (const std::bad_alloc&) {
        return fail(Texts::tr("there is not enough memory for it; cut the recording into parts."));
    }
    if (file.error() != QFileDevice::NoError)
        return fail(Texts::tr("the file cannot be read (%1).").arg(file.errorString()));
    return trace;
}

std::optional<TraceFile> TraceFile::parse(QIODevice& device, const QString& name, QString* error)
{
    Reader reader(device, name);
    const auto failed = [&]() -> std::optional<TraceFile> {
        if (error)
            *error = reader.error();
        return std::nullopt;
    };
    const auto fail = [&](const QString& message) {
        reader.fail(message);
        return failed();
    };

    const std::optional<QByteArray> header = reader.next();
    if (reader.hasFailed())
        return failed();
    if (!header)
        return fail(
            Texts::tr("the file is empty; its first line must be \"%1\".").arg(QLatin1String(Header)));
    if (*header != Header) {
        return fail(Texts::tr("the first line is %1; it must be the header \"%2\".")
                        .arg(quoted(*header), QLatin1String(Header)));
    }

    TraceFile trace;
    int blankLine = 0;
    while (const std::optional<QByteArray> line = reader.next()) {
        if (line->isEmpty()) {
            if (blankLine == 0)
                blankLine = reader.line();
            continue;
        }
        if (blankLine != 0) {
            return fail(
                Texts::tr("line %1 is blank and more follows; remove the blank line.").arg(blankLine));
        }
        const QList<QByteArray> fields = line->split(',');
        if (fields.size() != 2) {
            return fail(
                Texts::tr(
                    "%1: 2 columns expected, %2 found; a line is a time and a weight with a decimal point, "
                    "separated by one comma, such as \"0.250,12.5\".")
                    .arg(quoted(*line), QString::number(fields.size())));
        }
        const std::optional<DecimalText> time = number(reader, fields.at(0).trimmed(), Texts::tr("time"));
        if (!time)
            return failed();
        const std::optional<DecimalText> weight = number(reader, fields.at(1).trimmed(), Texts::tr("weight"));
        if (!weight)
            return failed();

        const double seconds = time->value();
        if (!(seconds >= 0.0 && seconds <= MaximumSeconds)) {
            return fail(Texts::tr("the time %1 is out of range; it must lie between 0 and %2 seconds.")
                            .arg(quoted(fields.at(0).trimmed()))
                            .arg(MaximumSeconds, 0, 'f', 0));
        }
        const double grams = weight->value();
        if (!(std::fabs(grams) <= MaximumGrams)) {
            return fail(Texts::tr("the weight %1 is out of range; it must lie between -%2 and %2 grams.")
                            .arg(quoted(fields.at(1).trimmed()))
                            .arg(MaximumGrams, 0, 'f', 0));
        }
        const qint64 timeMs = qRound64(seconds * 1000.0);
        if (!trace.m_samples.isEmpty() && timeMs < trace.m_samples.last().timeMs) {
            return fail(
                Texts::tr("the time goes back to %1 s after %2 s; put the lines in the order of their times.")
                    .arg(QString::fromLatin1(fields.at(0).trimmed()),
                         QString::number(static_cast<double>(trace.m_samples.last().timeMs) / 1000.0, 'f',
                                         3)));
        }
        // Time without a reading is computed as well, second by second.
        const qint64 previousMs = trace.m_samples.isEmpty() ? 0 : trace.m_samples.last().timeMs;
        if (timeMs - previousMs > MaximumGapSeconds * qint64(1000)) {
            return fail(
                Texts::tr(
                    "there is no reading between %1 s and %2 s, which is more than a day; the times are "
                    "seconds since the start of the recording: subtract what is too much.")
                    .arg(QString::number(static_cast<double>(previousMs) / 1000.0, 'f', 3),
                         QString::fromLatin1(fields.at(0).trimmed())));
        }
        if (trace.m_samples.size() >= MaximumSamples) {
            return fail(Texts::tr("there are more than %1 readings; cut the recording into parts.")
                            .arg(MaximumSamples));
        }
        trace.m_samples.append({timeMs, grams});
        if (trace.m_decimalsLine == 0 || weight->decimals() > trace.m_decimals) {
            trace.m_decimals = weight->decimals();
            trace.m_decimalsLine = reader.line();
        }
    }
    if (reader.hasFailed())
        return failed();
    if (trace.m_samples.isEmpty())
        return fail(Texts::tr("there are no readings after the header; add lines such as \"0.250,12.5\"."));
    return trace;
}

} // namespace Terminal
} // namespace Brimvale
