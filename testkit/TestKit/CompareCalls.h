// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_COMPARECALLS_H
#define BRIMVALE_TESTKIT_COMPARECALLS_H

#include "TestKit/Text.h"

#include <QStringList>

#include <type_traits>

/// Compares everything that a RecordingHost or SignalRecorder has recorded with a whole expected list, and starts
/// the list anew. The expected list is any number of texts and `QStringList`s, joined in order; none at all means
/// that nothing may have been recorded.
///
///     BRIMVALE_COMPARE_CALLS(host, "IActionbar::Refresh()", startCalls(), "ISystem::GetPluginController()");
///
/// Instead of a recorder a `QStringList` can be given: `BRIMVALE_COMPARE_CALLS(host.callsTo("IActionbar"), …)`.
///
/// When the lists differ the test fails and leaves the current function, with a message that names the first
/// difference and shows both lists side by side.
#define BRIMVALE_COMPARE_CALLS(...)                                                                          \
    do {                                                                                                     \
        if (!::Brimvale::TestKit::compareCalls(__FILE__, __LINE__, __VA_ARGS__))                             \
            return;                                                                                          \
    } while (false)

namespace Brimvale::TestKit
{

/// A description of the difference between two lists: the first line that differs, then both lists side by side,
/// where `<` marks a line that is expected only and `>` one that was recorded only. Empty when they are equal.
QString callDifference(const QStringList& recorded, const QStringList& expected);

/// Makes the current test fail when the lists differ; returns whether they are equal.
bool compareCallLists(const char* file, int line, const QStringList& recorded, const QStringList& expected);

namespace Detail
{

inline void append(QStringList& list, const QStringList& texts)
{
    list.append(texts);
}

inline void append(QStringList& list, const Text& text)
{
    list.append(text.toString());
}

} // namespace Detail

/// What BRIMVALE_COMPARE_CALLS() calls.
template <typename Recorder, typename... Expected>
bool compareCalls(const char* file, int line, Recorder&& recorder, const Expected&... expected)
{
    QStringList expectedCalls;
    (Detail::append(expectedCalls, expected), ...);
    if constexpr (std::is_convertible_v<Recorder, QStringList>)
        return compareCallLists(file, line, recorder, expectedCalls);
    else
        return compareCallLists(file, line, recorder.takeCalls(), expectedCalls);
}

} // namespace Brimvale::TestKit

#endif
