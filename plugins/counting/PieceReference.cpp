// SPDX-License-Identifier: BSD-3-Clause
#include "PieceReference.h"

#include <QtGlobal>

#include <MesswertData.h>
#include <cmath>

namespace
{

constexpr int MostDecimals = 9;
constexpr double LargestIncrements = 1e15; // a double counts so far in whole numbers

double powerOfTen(int exponent)
{
    return std::pow(10.0, exponent);
}

/// U of a net weight, in grams.
double netUncertainty(int decimals)
{
    return 2.0 / std::sqrt(6.0) * powerOfTen(-decimals);
}

/// The root, or 0 below it and for what is no number.
double rootOrZero(double square)
{
    return square > 0.0 ? std::sqrt(square) : 0.0;
}

} // namespace

// Weight -----------------------------------------------------------------------------------------------------------

ShownWeight ShownWeight::ofGrams(const Brimvale::MesswertData& grams)
{
    ShownWeight weight;
    weight.decimals = qBound(0, grams.decimals - grams.resolutionReduction, MostDecimals);
    if (grams.isValid && !std::isnan(grams.value)) {
        weight.increments = qBound(-LargestIncrements, std::round(grams.value * powerOfTen(weight.decimals)),
                                   LargestIncrements);
    }
    return weight;
}

bool ShownWeight::fromText(const QString& text, ShownWeight* weight)
{
    const int point = text.indexOf(QLatin1Char('.'));
    const int decimals = point < 0 ? 0 : text.size() - point - 1;
    bool isNumber = false;
    const double increments = std::round(text.toDouble(&isNumber) * powerOfTen(decimals));
    if (!isNumber || decimals > MostDecimals || !(std::abs(increments) <= LargestIncrements)) {
        return false;
    }
    weight->increments = increments;
    weight->decimals = decimals;
    return true;
}

QString ShownWeight::toText() const
{
    return QString::number(grams(), 'f', decimals);
}

double ShownWeight::grams() const
{
    return increments / powerOfTen(decimals);
}

double ShownWeight::incrementGrams() const
{
    return 1.0 / powerOfTen(decimals);
}

// Reference --------------------------------------------------------------------------------------------------------

PieceReference::PieceReference(const ShownWeight& weight, int parts)
    : m_weight(weight)
    , m_parts(parts)
{
}

bool PieceReference::isValid() const
{
    return m_parts > 0 && m_weight.increments >= 1.0;
}

double PieceReference::pieceGrams() const
{
    return m_weight.grams() / m_parts;
}

PieceCount PieceReference::count(const ShownWeight& net) const
{
    // Both weights in the finer increments of the two, so that the quotient is one of whole numbers.
    const int decimals = qMax(net.decimals, m_weight.decimals);
    const double weighed = net.increments * powerOfTen(decimals - net.decimals);
    const double reference = m_weight.increments * powerOfTen(decimals - m_weight.decimals);

    PieceCount count;
    count.exact = weighed * m_parts / reference;
    const double rounded = std::round(count.exact);
    count.isTooMany = std::abs(rounded) > LargestCount;
    count.pieces = static_cast<int>(qBound(double(-LargestCount), rounded, double(LargestCount)));
    return count;
}

double PieceReference::uncertainty(double pieces, int decimals) const
{
    return std::hypot(pieces * netUncertainty(m_weight.decimals), m_parts * netUncertainty(decimals))
           / m_weight.grams();
}

int PieceReference::rightUpTo(int decimals) const
{
    // E(N) = ½, solved for N.
    const double half = m_weight.grams() / 2.0;
    const double ofCount = m_parts * netUncertainty(decimals);
    const double pieces = rootOrZero(half * half - ofCount * ofCount) / netUncertainty(m_weight.decimals);
    // Strictly below ½.
    return static_cast<int>(qBound(0.0, std::ceil(pieces) - 1.0, double(LargestCount)));
}

int PieceReference::partsNeeded(int pieces, int decimals) const
{
    // E(N) = ½ with W = n · piece, solved for n.
    const double half = pieceGrams() / 2.0;
    const double ofCount = netUncertainty(decimals);
    const double root = rootOrZero(half * half - ofCount * ofCount);
    const double needed =
        root > 0.0 ? std::floor(pieces * netUncertainty(m_weight.decimals) / root) + 1.0 : HUGE_VAL;
    return needed <= pieces ? static_cast<int>(needed) : 0;
}
