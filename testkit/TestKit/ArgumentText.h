// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_ARGUMENTTEXT_H
#define BRIMVALE_TESTKIT_ARGUMENTTEXT_H

#include <QList>
#include <QObject>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <type_traits>
#include <typeinfo>

namespace Brimvale
{

class IAction;
class IPrintableItem;
class IStepFunction;
class ITrigger;
class IWorkflowStep;
class MesswertData;
struct FormattedValue;

namespace TestKit
{

/// \file
/// How an argument is written in a recorded call.
///
/// | type | text |
/// |---|---|
/// | `bool` | `true`, `false` |
/// | integer, enumerator | decimal number |
/// | `double` | the shortest number that reads back as the same value: `500`, `0.1`, `-1e+21`; `nan`, `inf`, `-inf` |
/// | `QString` | in double quotes; `\"`, `\\`, `\n`, `\r`, `\t` and `\u001b` for other control characters |
/// | `QVariant` | `QVariant(int, 5)`, `QVariant(QString, "a")`; `QVariant()` when invalid |
/// | `MesswertData` | `MesswertData(messwert="36.4", unit="g", value=36.4)`: every member that differs from the empty record, in the order of the members; `MesswertData()` for the empty record |
/// | `FormattedValue` | in the same way: `FormattedValue(isStable=true, text="36.4 g")` |
/// | pointer to an object | its object name, otherwise its class name without namespace; `null` |
/// | `IAction*`, `IPrintableItem*`, `ITrigger*`, `IStepFunction*` | the object and its unique id: `ActionBase("tare")` |
/// | `IWorkflowStep*` | the object, its step id and function id: `WorkflowStep(1, "fill")` |
/// | list | `[1, 2]` |
/// | pointer that is to be filled | `out`; `null` |

/// A text that stands in a call as it is, without quotes.
struct Verbatim
{
    QString text;
};

QString argumentText(bool value);
QString argumentText(int value);
QString argumentText(unsigned value);
QString argumentText(qint64 value);
QString argumentText(quint64 value);
QString argumentText(long value);
QString argumentText(unsigned long value);
QString argumentText(double value);
QString argumentText(char value);
QString argumentText(const char* utf8);
QString argumentText(const QString& value);
QString argumentText(const QVariant& value);
QString argumentText(const MesswertData& value);
QString argumentText(const FormattedValue& value);
QString argumentText(const Verbatim& value);
QString argumentText(const IAction* value);
QString argumentText(const IPrintableItem* value);
QString argumentText(const ITrigger* value);
QString argumentText(const IStepFunction* value);
QString argumentText(const IWorkflowStep* value);

/// `typeName` without its namespaces.
QString unqualified(const QString& typeName);

/// The name of a type as it is written in the source.
QString typeName(const std::type_info& type);

/// The text of an object that may or may not be a `QObject`; `object` is null when it is none.
QString objectText(const QObject* object, const std::type_info& type);

/// The text of an object of any class with virtual operations.
template <typename T>
QString argumentText(const T* value)
{
    static_assert(std::is_polymorphic_v<T>, "only objects with virtual operations have a name at run time");
    return value ? objectText(dynamic_cast<const QObject*>(value), typeid(*value)) : QStringLiteral("null");
}

template <typename Enum, std::enable_if_t<std::is_enum_v<Enum>, int> = 0>
QString argumentText(Enum value)
{
    return argumentText(static_cast<qint64>(value));
}

template <typename First, typename Second>
QString argumentText(const QPair<First, Second>& value)
{
    return QLatin1Char('(') + argumentText(value.first) + QLatin1String(", ") + argumentText(value.second)
           + QLatin1Char(')');
}

template <typename T>
QString argumentText(const QList<T>& values)
{
    QStringList texts;
    for (const T& value : values)
        texts.append(argumentText(value));
    return QLatin1Char('[') + texts.join(QLatin1String(", ")) + QLatin1Char(']');
}

/// A pointer through which the callee hands something back.
template <typename T>
Verbatim out(const T* pointer)
{
    return {pointer ? QStringLiteral("out") : QStringLiteral("null")};
}

} // namespace TestKit
} // namespace Brimvale

#endif
