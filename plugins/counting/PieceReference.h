// SPDX-License-Identifier: BSD-3-Clause
#ifndef PIECEREFERENCE_H
#define PIECEREFERENCE_H

#include <QString>

namespace Brimvale
{
class MesswertData;
} // namespace Brimvale

/// A weight as the scale shows it: a whole number of increments of 10^-decimals g. Computing with whole numbers, a count
/// of exactly two and a half pieces is two and a half, whatever the decimals.
struct ShownWeight
{
    double increments = 0.0;
    int decimals = 0;

    /// A reading in grams. Without a weight there are no increments.
    static ShownWeight ofGrams(const Brimvale::MesswertData& grams);
    /// The form of toText(); the decimals of the text count. No number, and one out of range, gives false.
    static bool fromText(const QString& text, ShownWeight* weight);
    QString toText() const; ///< `53.2`, in grams

    double grams() const;
    double incrementGrams() const;
};

/// How many pieces lie on the scale.
struct PieceCount
{
    int pieces = 0;         ///< rounded, halves away from zero
    double exact = 0.0;     ///< before rounding
    bool isTooMany = false; ///< beyond the largest count, at which `pieces` stays
};

/// Parts that were counted by hand, and their weight. It tells how many pieces another weight is, and how far such
/// counts can be trusted.
///
/// A net weight is the difference of two readings, each rounded to an increment d of the display. The rounding has the
/// standard deviation d / √12, the net weight therefore d / √6; twice that, U = 2 d / √6, is exceeded in one of twenty
/// cases. N pieces counted with a reference of n pieces and the weight W are off by no more than
///
///     E(N) = √((N · U)² + (n · U')²) / W
///
/// where U' belongs to the increment in which the N pieces are weighed. A count is right while E(N) < ½. Differences
/// between the pieces themselves come on top; no weighing of them all together shows these.
class PieceReference
{
public:
    static constexpr int LargestCount = 999999999;

    /// No reference.
    PieceReference() = default;
    PieceReference(const ShownWeight& weight, int parts);

    /// At least one part that weighs at least one increment.
    bool isValid() const;

    int parts() const { return m_parts; }
    const ShownWeight& weight() const { return m_weight; }

    // All below need a valid reference. `decimals` are those of the weight that is counted.

    double pieceGrams() const;
    PieceCount count(const ShownWeight& net) const;
    /// E(pieces).
    double uncertainty(double pieces, int decimals) const;
    /// The largest count that is right; 0 when none is.
    int rightUpTo(int decimals) const;
    /// How many parts a reference needs so that `pieces` are counted right; 0 when it would need more than that many,
    /// because the parts are too light for the scale.
    int partsNeeded(int pieces, int decimals) const;

private:
    ShownWeight m_weight;
    int m_parts = 0;
};

#endif
