// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_REGISTERVALUEPROVIDER_H
#define BRIMVALE_REGISTERVALUEPROVIDER_H

#include "IRegisterValueProvider.h"
#include "MesswertData.h"

#include <QCoreApplication>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class Scale;
class Units;

/// Registers as measured values.
///
/// Units are numbered as in Units; any of the scale can be asked for. A reading without a weight bears no text and no number (`value` is NaN),
/// isValid false and what is wrong as errorText: "Overload", "Underload", "Unreadable" or "No connection". So
/// do an unknown register and an unknown unit, with errorText naming them. Tare (73) and upper limit (90) are
/// known without a reading too.
class RegisterValueProvider : public IRegisterValueProvider
{
    Q_DECLARE_TR_FUNCTIONS(Brimvale::Terminal::RegisterValueProvider)

public:
    /// `MesswertData::stabilityValue`.
    enum Stability
    {
        NoIndicator = -1, ///< none is shown: not a live reading, or no weight
        Unstable = 0,
        Stable = 1
    };

    /// @param scale, units not owned, must outlive the object.
    RegisterValueProvider(HostCallLog& calls, const Scale& scale, const Units& units);
    Q_DISABLE_COPY(RegisterValueProvider)

    // IRegisterValueProvider
    MesswertData GetMesswert(int unit, int registerNumber) override;

    /// A register in the unit of the main display, for the terminal's own display and outputs.
    MesswertData reading(int registerNumber) const;
    /// A register in the unit @p unit.
    MesswertData reading(int registerNumber, const QString& unit) const;
    /// A register in grams with all decimal places of the scale, for computers: what limits the display, such as digits
    /// that are left out and its width, does not touch it.
    MesswertData grams(int registerNumber) const;

private:
    std::optional<double> digitsOf(int registerNumber) const;

    HostCallLog& m_calls;
    const Scale& m_scale;
    const Units& m_units;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_REGISTERVALUEPROVIDER_H
