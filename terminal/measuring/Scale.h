// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SCALE_H
#define BRIMVALE_SCALE_H

#include "measuring/Readability.h"
#include "measuring/StabilityDetector.h"
#include "source/Reading.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

class WeightSource;

/// What the terminal knows of its scale.
struct ScaleSettings
{
    std::optional<Readability> readability; ///< Unset: the source's, and 0.1 g until it is known.
    double capacity = 0.0;                  ///< Largest load in grams; 0: the source's.
    double coarseAbove =
        0.0; ///< Load in grams above which the increment is ten times as large; 0: one range only.
    StabilitySettings stability;
};

/// The scale: turns the readings of a source into gross, tare and net weight, stable or not, and carries out
/// zero and tare.
///
/// Weights are given in digits, whole numbers of steps of 10^-decimals() gram, rounded to the display
/// increment, half away from zero. Without a valid reading there is no weight: the values are not a number
/// and the texts are empty, never 0.
///
/// Zero. The zero point of the source when the terminal starts is the power-on zero. zero() moves the zero
/// point, within 2 % of the capacity about the power-on zero, and clears the tare. There is no automatic zero
/// tracking.
///
/// Ranges. With @c coarseAbove set, a gross load above it is shown in the coarse range. The fine range
/// returns when the gross load is at or below the limit by a coarse increment, so that the ranges do not
/// alternate on the limit.
class Scale : public QObject
{
    Q_OBJECT

public:
    /// Part of the capacity by which the zero point may be away from the power-on zero.
    static constexpr double ZeroRange = 0.02;
    /// Capacity in increments that the zero range is reckoned from where the capacity is not known.
    static constexpr double AssumedCapacityIncrements = 60000.0;
    /// A load above the capacity by more than this number of increments is an overload.
    static constexpr double OverloadIncrements = 9.0;
    /// Largest weight in digits that is shown; what is beyond is an overload.
    static constexpr double MaximumDigits = 999999999.0;

    /// Why an operation was refused.
    enum class Refusal
    {
        None,             ///< It was not.
        NotValid,         ///< There is no valid weight.
        NotStable,        ///< The weight is not stable.
        OutsideZeroRange, ///< Too far from the power-on zero.
        NegativeLoad,     ///< The gross weight is below zero.
        TareNotANumber,   ///< A preset tare that is no finite number.
        TareNegative,     ///< A preset tare below zero.
        TareAboveCapacity ///< A preset tare above the capacity.
    };
    Q_ENUM(Refusal)

    explicit Scale(const ScaleSettings& settings = {}, QObject* parent = nullptr);
    ~Scale() override;
    Q_DISABLE_COPY(Scale)

    /// Takes the readings of @p source (not owned; may be null) from now on, and its readability and capacity
    /// where the settings name none. Zero point, tare and stability begin anew, disconnected until the first
    /// reading. It neither starts nor stops a source. Take a source away with null before deleting it;
    /// otherwise the last weight stays.
    void setSource(WeightSource* source);
    WeightSource* source() const;

    // The state.

    /// The reading that the state comes from. Disconnected before the first.
    const Reading& lastReading() const { return m_reading; }
    Reading::Status status() const { return m_status; }
    bool isValid() const { return m_status == Reading::Status::Valid; }

    /// Valid, and judged stable by the StabilityDetector; a scale that says of itself that it is not stable
    /// is not.
    bool isStable() const { return m_stable; }

    /// For people: empty while valid, otherwise "Overload", "Underload", "Unreadable" or "No connection" in
    /// the language of the terminal.
    QString statusText() const;
    /// For people: what exactly is wrong. Often empty.
    QString statusDetail() const { return m_reading.detail; }

    bool isTareSet() const { return m_tareGrams != 0.0; }
    /// The tare was given as a number, not weighed.
    bool isPresetTare() const { return m_presetTare; }
    /// The weight is shown in the coarse range.
    bool isCoarseRange() const { return m_coarse; }

    // Values, in digits.

    /// Whole numbers in digits, rounded to incrementDigits(). grossDigits() and netDigits() are not a number
    /// without a valid reading; the tare always is one.
    double grossDigits() const;
    double netDigits() const;
    double tareDigits() const;

    /// The same in grams.
    double grossGrams() const;
    double netGrams() const;
    double tareGrams() const;

    /// Decimal places of the gram reading ("koma"). Changes only when a source's readability becomes known or
    /// finer.
    int decimals() const { return m_readability.decimals(); }
    Readability readability() const { return m_readability; }
    /// The display increment in digits; ten times as large in the coarse range.
    double incrementDigits() const;

    /// Largest load in grams; 0 when it is not known.
    double capacity() const;
    /// Largest weight in digits: the capacity, or MaximumDigits when it is not known.
    double upperLimitDigits() const;
    /// How far from the power-on zero zero() works, in grams.
    double zeroRangeGrams() const;
    /// Where the zero point is, in grams from the power-on zero.
    double zeroOffsetGrams() const { return m_zeroGrams; }

    /// Weights as text with decimals() places and a point, whatever the locale; never "-0.0". Empty without a
    /// valid reading (the tare's never is).
    QString grossText() const;
    QString netText() const;
    QString tareText() const;
    /// The same for any number of digits; empty when that is not finite.
    QString format(double digits) const;

    /// How many stable values have been reached.
    int stableCounter() const { return m_stableCounter; }

    // Operations. Each returns whether it was carried out; otherwise nothing has changed and lastRefusal()
    // tells why.

    /// Makes the present load the new zero and clears the tare. Needs a stable weight within the zero range.
    bool zero();

    /// Makes the present gross weight the tare. Needs a stable weight that is not below zero. On an empty
    /// scale (gross 0) there is nothing to tare: the tare is cleared.
    bool tare();

    /// Sets the tare by number, rounded to the fine range's increment; 0 clears it. Works without a valid
    /// weight.
    bool presetTare(double grams);

    /// Removes the tare. Always succeeds.
    bool clearTare();

    Refusal lastRefusal() const { return m_refusal; }
    /// lastRefusal() for people, with what to do about it; empty for Refusal::None.
    QString lastRefusalText() const;

public slots:
    /// Takes one reading. Called by the source's signal; tests call it directly.
    void processReading(const Brimvale::Terminal::Reading& reading);

signals:
    // After a reading they come in this order; the whole state is up to date before the first.

    /// A reading has been taken in, valid or not.
    void newMeasurement();

    /// A stable value has been reached after an unstable time: once for each. @p stableCounter counts them
    /// from 1.
    void loadChanged(int stableCounter, double netDigits);

    /// Something else than the weight has changed: status, its detail, stability, tare, zero point, range.
    /// Also sent after an operation that was carried out, which changes the weight without a reading.
    void stateChanged();

    /// decimals() has changed, and with it the meaning of a digit.
    void decimalsChanged(int decimals);

private:
    Reading::Status judge(const Reading& reading) const;
    void onSourceReadability(double grams);
    bool refuse(Refusal refusal);
    bool carriedOut();
    void updateRange();
    double rounded(double grams) const;

    const ScaleSettings m_settings;
    QPointer<WeightSource> m_source;
    Readability m_readability;
    StabilityDetector m_stability;

    Reading m_reading;
    Reading::Status m_status = Reading::Status::Disconnected;
    bool m_stable = false;
    int m_stableCounter = 0;

    double m_zeroGrams = 0.0;
    double m_tareGrams = 0.0;
    bool m_presetTare = false;
    bool m_coarse = false;
    Refusal m_refusal = Refusal::None;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SCALE_H
