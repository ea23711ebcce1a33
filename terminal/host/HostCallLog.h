// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_HOSTCALLLOG_H
#define BRIMVALE_HOSTCALLLOG_H

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <deque>
#include <functional>

class QObject;

namespace Brimvale
{

class MesswertData;

namespace Terminal
{

/// Every call that plug-ins and the library make into the host, as text, so that an author sees what the plug-in
/// asked for and a script can expect it.
///
/// A call is written as `IActionbar::SetEntry(0, 0)`: interface, operation, arguments. Texts are quoted, and cut after
/// MaximumTextLength characters; an object is its object name or its class, or `null`; a measured value is
/// `{36.4 g}`, or `{Overload}` for a reading without a weight.
///
/// The log is bounded. The newest calls that only ask for something and the newest that bring something about are
/// kept, `capacity` of each, so that a display that reads the weight a hundred times a second does not push out what
/// was done.
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
    static QString toText(const MesswertData& value);
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
