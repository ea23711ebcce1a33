// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_REGISTERVALUEPROVIDER_H
#define BRIMVALE_REGISTERVALUEPROVIDER_H

#include "IRegisterValueProvider.h"
#include "MesswertData.h"

#include <QCoreApplication>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class Scale;

/// Registers as measured values.
///
/// The only unit is the gram. A reading without a weight bears no text and no number (`value` is NaN),
/// isValid false and what is wrong as errorText: "Overload", "Underload", "Unreadable" or "No connection". So
/// do an unknown register and an unknown unit, with errorText naming them. Tare (73) and upper limit (90) are
/// known without a reading too.
class RegisterValueProvider : public IRegisterValueProvider
{
    Q_DECLARE_TR_FUNCTIONS(Brimvale::Terminal::RegisterValueProvider)

public:
    /// The units that the terminal shows, as `ISystem::GetCurrentUnit()` numbers them.
    enum Unit
    {
        Gram = 0
    };

    /// `MesswertData::stabilityValue`.
    enum Stability
    {
        NoIndicator = -1, ///< none is shown: not a live reading, or no weight
        Unstable = 0,
        Stable = 1
    };

    /// @param scale not owned, must outlive the object.
    RegisterValueProvider(HostCallLog& calls, const Scale& scale);
    Q_DISABLE_COPY(RegisterValueProvider)

    // IRegisterValueProvider
    MesswertData GetMesswert(int unit, int registerNumber) override;

    /// A register in grams, for the terminal's own display and outputs.
    MesswertData reading(int registerNumber) const;

private:
    HostCallLog& m_calls;
    const Scale& m_scale;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_REGISTERVALUEPROVIDER_H
