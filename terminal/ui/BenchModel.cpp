// SPDX-License-Identifier: BSD-3-Clause
#include "BenchModel.h"

#include <algorithm>
#include <cmath>

namespace Brimvale
{
namespace Terminal
{

namespace
{

const int s_weightsOffered = 8;
const double s_levelRing = 0.35;     // of the vial's radius
const double s_tiltedBubbleX = 0.55; // where setLevel(false) moves the bubble: clearly outside the ring
const double s_tiltedBubbleY = -0.40;

double finiteOr0(double value)
{
    return std::isfinite(value) ? value : 0.0;
}

/// Limits \a value to -limit … limit; NaN gives 0, an infinity the end of its side.
double limited(double value, double minimum, double maximum)
{
    return std::isnan(value) ? 0.0 : std::min(std::max(value, minimum), maximum);
}

} // namespace

BenchModel::BenchModel(QObject* parent)
    : QObject(parent)
{
}

QStringList BenchModel::pages()
{
    return {QStringLiteral("scale"), QStringLiteral("units"), QStringLiteral("transfer"),
            QStringLiteral("printer")};
}

QString BenchModel::page() const
{
    return m_page;
}

bool BenchModel::available() const
{
    return m_available;
}

QVariantList BenchModel::weights() const
{
    QVariantList list;
    for (double grams : m_weights) {
        list.append(grams);
    }
    return list;
}

double BenchModel::load() const
{
    return m_load;
}

double BenchModel::capacity() const
{
    return m_capacity;
}

double BenchModel::readability() const
{
    return m_readability;
}

double BenchModel::noise() const
{
    return m_noise;
}

double BenchModel::maximumNoise() const
{
    return MaximumNoise;
}

double BenchModel::drift() const
{
    return m_drift;
}

double BenchModel::maximumDrift() const
{
    return MaximumDrift;
}

bool BenchModel::connected() const
{
    return m_connected;
}

double BenchModel::levelX() const
{
    return m_levelX;
}

double BenchModel::levelY() const
{
    return m_levelY;
}

bool BenchModel::level() const
{
    return std::hypot(m_levelX, m_levelY) <= s_levelRing;
}

double BenchModel::levelRing() const
{
    return s_levelRing;
}

bool BenchModel::calibrationDue() const
{
    return m_calibrationDue;
}

QObject* BenchModel::printer() const
{
    return m_printer;
}

void BenchModel::setPrinter(QObject* printer)
{
    if (m_printer != printer) {
        m_printer = printer;
        emit printerChanged();
    }
}

QStringList BenchModel::pluginFaults() const
{
    return m_pluginFaults;
}

void BenchModel::setPage(const QString& page)
{
    if (m_page != page && pages().contains(page)) {
        m_page = page;
        emit pageChanged(page);
    }
}

void BenchModel::setAvailable(bool available)
{
    if (m_available != available) {
        m_available = available;
        emit availableChanged(available);
    }
}

void BenchModel::setWeights(const QVector<double>& grams)
{
    QVector<double> weights;
    std::copy_if(grams.cbegin(), grams.cend(), std::back_inserter(weights),
                 [](double weight) { return std::isfinite(weight) && weight > 0.0; });
    if (m_weights != weights) {
        m_weights = weights;
        emit weightsChanged();
    }
}

void BenchModel::setLoad(double grams)
{
    const double load = finiteOr0(grams);
    if (m_load != load) {
        m_load = load;
        emit loadChanged(load);
    }
}

void BenchModel::setCapacity(double grams)
{
    const double capacity = std::max(finiteOr0(grams), 0.0);
    if (m_capacity == capacity) {
        return;
    }
    m_capacity = capacity;
    emit capacityChanged(capacity);
    if (capacity <= 0.0) {
        return;
    }

    // Downwards through 5, 2, 1 of each decade, from the decade of the capacity. Each weight is computed from its
    // decade alone, so that 0.1 is 0.1 and not the remainder of divisions.
    QVector<double> weights;
    for (int decade = int(std::floor(std::log10(capacity))); weights.size() < s_weightsOffered; --decade) {
        for (int step : {5, 2, 1}) {
            const double weight = decade < 0 ? step / std::pow(10.0, -decade) : step * std::pow(10.0, decade);
            if (weight <= capacity && weights.size() < s_weightsOffered) {
                weights.prepend(weight);
            }
        }
    }
    setWeights(weights);
}

void BenchModel::setReadability(double grams)
{
    const double readability = std::max(finiteOr0(grams), 0.0);
    if (m_readability != readability) {
        m_readability = readability;
        emit readabilityChanged(readability);
    }
}

void BenchModel::setNoise(double increments)
{
    const double noise = limited(increments, 0.0, MaximumNoise);
    if (m_noise != noise) {
        m_noise = noise;
        emit noiseChanged(noise);
    }
}

void BenchModel::setDrift(double gramsPerMinute)
{
    const double drift = limited(gramsPerMinute, -MaximumDrift, MaximumDrift);
    if (m_drift != drift) {
        m_drift = drift;
        emit driftChanged(drift);
    }
}

void BenchModel::setConnected(bool connected)
{
    if (m_connected != connected) {
        m_connected = connected;
        emit connectedChanged(connected);
    }
}

void BenchModel::moveBubble(double x, double y)
{
    double newX = limited(x, -1.0, 1.0);
    double newY = limited(y, -1.0, 1.0);
    const double distance = std::hypot(newX, newY);
    if (distance > 1.0) {
        newX /= distance;
        newY /= distance;
    }
    if (newX == m_levelX && newY == m_levelY) {
        return;
    }
    const bool levelBefore = level();
    m_levelX = newX;
    m_levelY = newY;
    emit bubbleMoved(newX, newY);
    if (level() != levelBefore) {
        emit levelChanged(level());
    }
}

void BenchModel::setLevel(bool wanted)
{
    if (level() == wanted) {
        return;
    }
    if (wanted) {
        moveBubble(0.0, 0.0);
    } else {
        moveBubble(s_tiltedBubbleX, s_tiltedBubbleY);
    }
}

void BenchModel::setCalibrationDue(bool due)
{
    if (m_calibrationDue != due) {
        m_calibrationDue = due;
        emit calibrationDueChanged(due);
    }
}

void BenchModel::setPluginFaults(const QStringList& faults)
{
    if (m_pluginFaults != faults) {
        m_pluginFaults = faults;
        emit pluginFaultsChanged();
    }
}

} // namespace Terminal
} // namespace Brimvale
