// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_HOSTCALLLOG_H
#define BRIMVALE_HOSTCALLLOG_H

#include <QList>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <deque>
#include <functional>

class QObject;

namespace Brimvale
{

class IAction;
class IPrintableItem;
class IStepFunction;
class ITrigger;
class MesswertData;

namespace Terminal
{

/// Every call that plug-ins and the library make into the host, as text, so that an author sees what the
/// plug-in asked for and a script can expect it.
///
/// A call is written as `IActionbar::SetEntry(0, 0)`: interface, operation, arguments. Texts are quoted, and
/// cut after MaximumTextLength characters. An object is its object name or its class, or `null`; an action,
/// step function, print item or trigger is its class with its uid, `ActionBase("weighing.tare")`. A measured
/// value is `MesswertData("36.4 g")`, or `MesswertData("Overload")` when it bears an error. A list stands in
/// brackets.
///
/// The log is bounded. The newest calls that only ask for something and the newest that bring something about
/// are kept, `capacity` of each, so that a display that reads the weight a hundred times a second does not
/// push out what was done.
class HostCallLog
{
public:
    static constexpr int DefaultCapacity = 5000;
    static constexpr int MaximumTextLength = 200;

    /// @param capacity calls of either kind that are kept; below 1 counts as 1.
    explicit HostCallLog(int capacity = DefaultCapacity);
    Q_DISABLE_COPY(HostCallLog)

    /// Records a call that asks for something and changes nothing. @p operation is "Interface::Operation".
    template <typename... Arguments>
    void query(const char* operation, const Arguments&... arguments)
    {
        add(m_queries, text(operation, {toText(arguments)...}));
    }

    /// Records a call that brings something about.
    template <typename... Arguments>
    void command(const char* operation, const Arguments&... arguments)
    {
        add(m_commands, text(operation, {toText(arguments)...}));
    }

    /// The kept calls in the order in which they were made.
    QStringList calls() const;

    /// Whether a kept call contains @p part. Nothing contains an empty text.
    bool contains(const QString& part) const;

    /// How many calls were recorded since construction or clear(), dropped ones included.
    quint64 total() const { return m_total; }

    /// Forgets all calls.
    void clear();

    /// Hands every further call to @p trace as well, as it is recorded; an empty function ends that.
    void setTrace(std::function<void(const QString& call)> trace);

private:
    struct Entry
    {
        quint64 number;
        QString text;
    };

    static QString toText(bool value);
    static QString toText(int value);
    static QString toText(double value);
    static QString toText(const QString& value);
    static QString toText(const QObject* object);
    static QString toText(const IAction* action);
    static QString toText(const IPrintableItem* item);
    static QString toText(const IStepFunction* function);
    static QString toText(const ITrigger* trigger);
    static QString toText(const MesswertData& value);
    template <typename T>
    static QString toText(const QList<T>& values)
    {
        QStringList texts;
        for (const T& value : values) {
            texts.append(toText(value));
        }
        return QLatin1Char('[') + texts.join(QLatin1String(", ")) + QLatin1Char(']');
    }
    static QString text(const char* operation, const QStringList& arguments);
    void add(std::deque<Entry>& calls, const QString& call);

    const std::size_t m_capacity;
    quint64 m_total = 0;
    std::deque<Entry> m_queries;
    std::deque<Entry> m_commands;
    std::function<void(const QString&)> m_trace;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_HOSTCALLLOG_H
