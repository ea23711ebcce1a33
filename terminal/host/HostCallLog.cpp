// SPDX-License-Identifier: BSD-3-Clause
#include "host/HostCallLog.h"

#include "IAction.h"
#include "IPrintableItem.h"
#include "IStepFunction.h"
#include "ITrigger.h"
#include "MesswertData.h"
#include "host/PluginGuard.h"

#include <QLocale>
#include <QMetaObject>
#include <QObject>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Brimvale
{
namespace Terminal
{

namespace
{

QString nullText()
{
    return QStringLiteral("null");
}

QString quoted(const QString& value)
{
    const QString shown = value.left(HostCallLog::MaximumTextLength);
    QString text = QStringLiteral("\"");
    for (const QChar character : shown) {
        switch (character.unicode()) {
        case '"':
            text += QLatin1String("\\\"");
            break;
        case '\\':
            text += QLatin1String("\\\\");
            break;
        case '\n':
            text += QLatin1String("\\n");
            break;
        case '\r':
            text += QLatin1String("\\r");
            break;
        case '\t':
            text += QLatin1String("\\t");
            break;
        default:
            if (character.category() == QChar::Other_Control) {
                text += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
            } else {
                text += character;
            }
        }
    }
    if (value.size() > HostCallLog::MaximumTextLength) {
        text += QChar(0x2026); // an ellipsis
    }
    return text + QLatin1Char('"');
}

QString nameOf(const QObject* object)
{
    return object->objectName().isEmpty() ? QString::fromLatin1(object->metaObject()->className())
                                          : object->objectName();
}

/// The class of an object that a plug-in offers through an interface, and its uid, which the plug-in
/// supplies.
template <typename Interface, typename Uid>
QString offeredText(const Interface* offered, const char* interfaceName, Uid&& uid)
{
    if (offered == nullptr) {
        return nullText();
    }
    const QObject* const object = dynamic_cast<const QObject*>(offered);
    const QString name = object != nullptr ? nameOf(object) : QString::fromLatin1(interfaceName);
    QString uidText;
    const auto exception = exceptionOf([&] { uidText = uid(); });
    return name + QLatin1Char('(') + quoted(exception ? *exception : uidText) + QLatin1Char(')');
}

} // namespace

HostCallLog::HostCallLog(int capacity)
    : m_capacity(static_cast<std::size_t>(std::max(1, capacity)))
{
}

QStringList HostCallLog::calls() const
{
    QStringList calls;
    calls.reserve(static_cast<int>(m_queries.size() + m_commands.size()));
    auto query = m_queries.begin();
    auto command = m_commands.begin();
    while (query != m_queries.end() || command != m_commands.end()) {
        const bool takeQuery =
            command == m_commands.end() || (query != m_queries.end() && query->number < command->number);
        calls.append(takeQuery ? (query++)->text : (command++)->text);
    }
    return calls;
}

bool HostCallLog::contains(const QString& part) const
{
    const auto matches = [&part](const Entry& entry) { return entry.text.contains(part); };
    return !part.isEmpty()
           && (std::any_of(m_commands.begin(), m_commands.end(), matches)
               || std::any_of(m_queries.begin(), m_queries.end(), matches));
}

void HostCallLog::clear()
{
    m_queries.clear();
    m_commands.clear();
    m_total = 0;
}

void HostCallLog::setTrace(std::function<void(const QString&)> trace)
{
    m_trace = std::move(trace);
}

QString HostCallLog::toText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString HostCallLog::toText(int value)
{
    return QString::number(value);
}

QString HostCallLog::toText(double value)
{
    const double magnitude = std::fabs(value);
    const bool plain = magnitude == 0.0 || (magnitude >= 1e-6 && magnitude < 1e15);
    return QString::number(value, plain ? 'f' : 'g', QLocale::FloatingPointShortest);
}

QString HostCallLog::toText(const QString& value)
{
    return quoted(value);
}

QString HostCallLog::toText(const QObject* object)
{
    return object != nullptr ? nameOf(object) : nullText();
}

QString HostCallLog::toText(const IAction* action)
{
    return offeredText(action, "IAction", [action] { return action->uid(); });
}

QString HostCallLog::toText(const IPrintableItem* item)
{
    return offeredText(item, "IPrintableItem", [item] { return item->getUId(); });
}

QString HostCallLog::toText(const IStepFunction* function)
{
    return offeredText(function, "IStepFunction", [function] { return function->uid(); });
}

QString HostCallLog::toText(const ITrigger* trigger)
{
    return offeredText(trigger, "ITrigger", [trigger] { return trigger->getUId(); });
}

QString HostCallLog::toText(const MesswertData& value)
{
    QString text = value.errorText;
    if (text.isEmpty()) {
        text = value.unit.isEmpty() ? value.messwert : value.messwert + QLatin1Char(' ') + value.unit;
    }
    return QStringLiteral("MesswertData(") + quoted(text) + QLatin1Char(')');
}

QString HostCallLog::text(const char* operation, const QStringList& arguments)
{
    return QLatin1String(operation) + QLatin1Char('(') + arguments.join(QLatin1String(", "))
           + QLatin1Char(')');
}

void HostCallLog::add(std::deque<Entry>& calls, const QString& call)
{
    calls.push_back({m_total++, call});
    if (calls.size() > m_capacity) {
        calls.pop_front();
    }
    if (m_trace) {
        m_trace(call);
    }
}

} // namespace Terminal
} // namespace Brimvale
