// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PLUGINGUARD_H
#define BRIMVALE_PLUGINGUARD_H

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

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PLUGINGUARD_H
