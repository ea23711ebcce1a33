// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SYSTEMREGISTERS_H
#define BRIMVALE_SYSTEMREGISTERS_H

#include "ISystemRegister.h"

#include <QObject>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class Scale;

/// The numbered registers of the scale, in digits of the gram reading.
///
/// Without a valid reading (overload, underload, unreadable, no connection) the gross weight is not a number (NaN):
/// there is none, neither 0 nor the last one. The current weight keeps the last value that was measured, for a
/// load-change detector takes what is no number as 0, which would make a change of load of a pulled cable. Before the
/// first reading it is not a number either. Whether there is a weight now is told by
/// `IRegisterValueProvider::GetMesswert()`.
class SystemRegisters : public ISystemRegister
{
public:
    /// @param scale not owned, must outlive the object. To be made before whoever passes the scale's readings on, so
    /// that the register is up to date when they arrive.
    SystemRegisters(HostCallLog& calls, const Scale& scale);
    Q_DISABLE_COPY(SystemRegisters)

    // ISystemRegister
    double GetRegisterValue(int registerNumber) override;

    /// The same registers for the terminal itself, whose questions are no calls of plug-ins.
    ISystemRegister& unlogged() { return m_quiet; }

private:
    struct Quiet : ISystemRegister
    {
        explicit Quiet(const Scale& source);
        double GetRegisterValue(int registerNumber) override;
        void update();

        const Scale& scale;
        double current;
    };

    HostCallLog& m_calls;
    Quiet m_quiet;
    QObject m_context; ///< Of the connections to the scale.
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SYSTEMREGISTERS_H
