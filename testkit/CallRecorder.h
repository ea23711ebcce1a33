// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_CALLRECORDER_H
#define BRIMVALE_TESTKIT_CALLRECORDER_H

#include "TestKit/ArgumentText.h"
#include "TestKit/Text.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QStringList>

#include <any>
#include <functional>
#include <type_traits>

namespace Brimvale::TestKit
{

/// The list of calls and the scripted answers. Shared by all objects of a recording host.
///
/// A key names what a script is about: an operation ("ISystemRegister::GetRegisterValue") or one call of it
/// ("ISystemRegister::GetRegisterValue(74)").
class CallRecorder
{
public:
    /// Records a call of an operation that is answered by an empty value unless there is a scripted answer.
    template <typename Result = void, typename... Arguments>
    Result call(const Text& operation, const Arguments&... arguments)
    {
        if constexpr (std::is_void_v<Result>)
            begin(operation, {argumentText(arguments)...});
        else
            return callOr(Result(), operation, arguments...);
    }

    /// Records a call of an operation that is answered by `builtIn` unless there is a scripted answer.
    template <typename Result, typename... Arguments>
    Result callOr(const Result& builtIn, const Text& operation, const Arguments&... arguments)
    {
        const std::any answer = begin(operation, {argumentText(arguments)...});
        return answer.has_value() ? std::any_cast<Result>(answer) : builtIn;
    }

    void note(const QString& text) { m_entries.append({QString(), text}); }

    QStringList calls() const;
    QStringList callsTo(const QString& pattern) const;
    int callCount(const QString& operation) const;
    void clearCalls() { m_entries.clear(); }
    void ignore(const QString& pattern);
    void recordAll() { m_ignored.clear(); }

    void setAnswer(const QString& key, const std::any& answer);
    void queueAnswer(const QString& key, const std::any& answer);
    void setHook(const QString& key, const std::function<void()>& hook);
    QStringList unusedAnswers() const;

private:
    struct Entry
    {
        QString operation; ///< empty for what is not a call
        QString text;
    };

    struct Script
    {
        QList<std::any> queue;
        std::any answer;
        std::function<void()> hook;
        bool wasUsed = false;
    };

    std::any begin(const QString& operation, const QStringList& arguments);
    QList<QString> keysOf(const QString& operation, const QString& call) const;
    std::any takeAnswer(const QList<QString>& keys);

    QList<Entry> m_entries;
    QHash<QString, int> m_counts;
    QSet<QString> m_ignored;
    QHash<QString, Script> m_scripts;
};

} // namespace Brimvale::TestKit

#endif
