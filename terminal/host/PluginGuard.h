// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PLUGINGUARD_H
#define BRIMVALE_PLUGINGUARD_H

#include "host/RunningCode.h"

#include <QString>

#include <optional>
#include <utility>

namespace Brimvale
{
namespace Terminal
{

/// The exception that is being handled, in words: its type and what it says. Only to be called in a catch
/// block.
QString currentExceptionText();

/// Runs code of a plug-in and lets no exception out. Returns nothing when the code came back, otherwise the
/// exception in words.
template <typename Code>
std::optional<QString> exceptionOf(Code&& code)
{
    try {
        std::forward<Code>(code)();
        return std::nullopt;
    } catch (...) {
        return currentExceptionText();
    }
}

/// The same; @p operation names what is called, for whoever must tell that it does not come back.
template <typename Code>
std::optional<QString> exceptionOf(const char* operation, Code&& code)
{
    const RunningCode running(operation);
    return exceptionOf(std::forward<Code>(code));
}

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PLUGINGUARD_H
