// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_RUNNINGCODE_H
#define BRIMVALE_RUNNINGCODE_H

#include <QString>
#include <QtGlobal>

class QObject;

namespace Brimvale
{
namespace Terminal
{

/// What the thread of the event loop is executing while the object exists: an event of an object, an operation of a
/// plug-in. Whoever has to tell that it does not come back, or that it has crashed, asks for the innermost one, from
/// any thread or from a signal handler.
class RunningCode
{
public:
    /// @param what lives as long as the process: the name of a class or of an operation.
    /// @param code an address in the code or data of whoever provides it; null: not known.
    explicit RunningCode(const char* what, const void* code = nullptr);
    ~RunningCode();
    Q_DISABLE_COPY(RunningCode)

    struct State
    {
        const char* what = nullptr; ///< Null: nothing that was named.
        const void* code = nullptr;
        quint32 beat = 0; ///< Another one as soon as something else is executed.
        bool idle = false;
    };
    static State state();

    /// The event loop waits, or has something to do again.
    static void setIdle(bool idle);

private:
    const char* const m_outerWhat;
    const void* const m_outerCode;
};

/// The table of virtual operations of the object: an address in the library that its class belongs to.
const void* codeOf(const QObject* object);

/// The file of the library that an address lies in, as it was loaded; empty: not known.
QString libraryOf(const void* code);

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_RUNNINGCODE_H
