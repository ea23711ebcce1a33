// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_SIGNALRECORDER_H
#define BRIMVALE_TESTKIT_SIGNALRECORDER_H

#include "TestKit/Text.h"

#include <QMetaMethod>
#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

namespace Brimvale::TestKit
{

/// Records emitted signals with their arguments as one list of texts, such as `unitChanged()` or
/// `workDone(QVariant(int, 5))`, in the order in which they are emitted.
///
///     SignalRecorder recorder(&display);
///     display.setUnit(QStringLiteral("kg"));
///     BRIMVALE_COMPARE_CALLS(recorder, "unitChanged()");
///
/// Signals are recorded at once, after the receivers that were connected before. A sender may be destroyed
/// at any time.
class SignalRecorder
{
    Q_DISABLE_COPY(SignalRecorder)

public:
    SignalRecorder();

    /// Records all signals of `sender`, see recordAll().
    explicit SignalRecorder(const QObject* sender);

    ~SignalRecorder();

    /// Records all signals that the class of `sender` and its bases declare, except those of QObject.
    void recordAll(const QObject* sender);

    /// Records one signal, given as `"unitChanged()"` or `SIGNAL(unitChanged())`. Throws std::invalid_argument
    /// when the sender has no such signal.
    void record(const QObject* sender, const Text& signal);

    /// Records one signal, given as `&MesswertInfo::unitChanged`.
    template <typename Class, typename... Arguments>
    void record(const QObject* sender, void (Class::*signal)(Arguments...))
    {
        record(sender, QMetaMethod::fromSignal(signal));
    }

    /// Records one signal. Throws std::invalid_argument when it is not a signal of the sender.
    void record(const QObject* sender, const QMetaMethod& signal);

    /// What has been recorded.
    QStringList calls() const { return m_calls; }

    /// What has been recorded; the list starts anew.
    QStringList takeCalls();

    void clearCalls() { m_calls.clear(); }

    /// Hands every text to `sink` instead of keeping it, with the name of the sender's class or object.
    void setSink(const std::function<void(const QString& sender, const QString& signal)>& sink);

private:
    class Receiver;

    std::unique_ptr<Receiver> m_receiver;
    QStringList m_calls;
};

} // namespace Brimvale::TestKit

#endif
