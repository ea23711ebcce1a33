// SPDX-License-Identifier: BSD-3-Clause
#include "measuring/StabilityDetector.h"

#include "source/DecimalText.h"

#include <QCoreApplication>
#include <QStringList>

#include <cmath>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// Part of an increment by which the sum of two rounding errors may lift a spread that is exactly at the
/// limit.
constexpr double SpreadTolerance = 1.0e-6;

} // namespace

bool StabilitySettings::isValid() const
{
    return seconds >= 0.05 && seconds <= 60.0 && increments >= 0.0 && increments <= 1000.0;
}

std::optional<StabilitySettings> StabilitySettings::parse(const QString& text, QString* error)
{
    const QStringList fields = text.split(QLatin1Char(','));
    if (fields.size() == 2) {
        const std::optional<DecimalText> seconds = DecimalText::parse(fields.at(0).trimmed().toUtf8());
        const std::optional<DecimalText> increments = DecimalText::parse(fields.at(1).trimmed().toUtf8());
        if (seconds && increments) {
            const StabilitySettings settings{seconds->value(), increments->value()};
            if (settings.isValid())
                return settings;
        }
    }
    if (error) {
        *error =
            QCoreApplication::translate(
                "StabilitySettings",
                "\"%1\" does not say what stable means: give seconds (0.05 to 60) and display increments "
                "(0 to 1000), separated by a comma, such as 1.0,1.")
                .arg(text);
    }
    return std::nullopt;
}

StabilityDetector::StabilityDetector(const StabilitySettings& settings)
    : m_settings(settings.isValid() ? settings : StabilitySettings())
    , m_spanMs(qRound64(m_settings.seconds * 1000.0))
{
}

void StabilityDetector::setIncrement(double grams)
{
    if (!(grams > 0.0) || grams == m_increment)
        return;
    m_increment = grams;
    judge();
}

void StabilityDetector::reset()
{
    m_entries.clear();
    m_smallest.clear();
    m_largest.clear();
    m_stable = false;
}

bool StabilityDetector::add(qint64 timeMs, double grams)
{
    if (!std::isfinite(grams)) {
        reset();
        return false;
    }
    if (!m_entries.empty()) {
        const qint64 lastMs = m_entries.back().timeMs;
        if (timeMs < lastMs || timeMs - lastMs > m_spanMs)
            reset();
    }
    const Entry entry{timeMs, grams, m_number++};
    m_entries.push_back(entry);
    while (!m_smallest.empty() && m_smallest.back().grams >= grams)
        m_smallest.pop_back();
    m_smallest.push_back(entry);
    while (!m_largest.empty() && m_largest.back().grams <= grams)
        m_largest.pop_back();
    m_largest.push_back(entry);

    // The first entry that is kept is the one that was current when the span began.
    while (m_entries.size() > 1 && m_entries[1].timeMs <= timeMs - m_spanMs)
        m_entries.pop_front();
    const quint64 first = m_entries.front().number;
    while (m_smallest.front().number < first)
        m_smallest.pop_front();
    while (m_largest.front().number < first)
        m_largest.pop_front();
    judge();
    return m_stable;
}

double StabilityDetector::spread() const
{
    return m_entries.empty() ? 0.0 : m_largest.front().grams - m_smallest.front().grams;
}

void StabilityDetector::judge()
{
    m_stable = !m_entries.empty() && m_entries.back().timeMs - m_entries.front().timeMs >= m_spanMs
               && spread() <= (m_settings.increments + SpreadTolerance) * m_increment;
}

} // namespace Terminal
} // namespace Brimvale
