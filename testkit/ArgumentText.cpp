// SPDX-License-Identifier: BSD-3-Clause
#include "TestKit/ArgumentText.h"

#include "FormattedValue.h"
#include "IAction.h"
#include "IPrintableItem.h"
#include "IStepFunction.h"
#include "ITrigger.h"
#include "IWorkflowStep.h"
#include "MesswertData.h"

#include <QLocale>
#include <QMetaObject>

#include <cmath>
#include <cstdlib>
#include <cxxabi.h>
#include <memory>

namespace Brimvale::TestKit
{

namespace
{

/// Builds `Name(member=value, …)` from the members that differ from those of the empty record.
class RecordText
{
public:
    template <typename T>
    RecordText& member(const char* name, const T& value, const T& empty)
    {
        if (!(value == empty))
            m_members.append(QLatin1String(name) + QLatin1Char('=') + argumentText(value));
        return *this;
    }

    QString toString(const char* recordName) const
    {
        return QLatin1String(recordName) + QLatin1Char('(') + m_members.join(QLatin1String(", "))
               + QLatin1Char(')');
    }

private:
    QStringList m_members;
};

template <typename Interface>
QString identifiedText(const Interface* object, const QString& identification)
{
    return objectText(dynamic_cast<const QObject*>(object), typeid(*object)) + QLatin1Char('(')
           + identification + QLatin1Char(')');
}

QString nullText()
{
    return QStringLiteral("null");
}

} // namespace

QString argumentText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString argumentText(int value)
{
    return QString::number(value);
}

QString argumentText(unsigned value)
{
    return QString::number(value);
}

QString argumentText(qint64 value)
{
    return QString::number(value);
}

QString argumentText(quint64 value)
{
    return QString::number(value);
}

QString argumentText(long value)
{
    return QString::number(value);
}

QString argumentText(unsigned long value)
{
    return QString::number(value);
}

QString argumentText(double value)
{
    if (value == 0.0)
        return std::signbit(value) ? QStringLiteral("-0") : QStringLiteral("0");
    const double magnitude = std::fabs(value);
    const bool isPlain = magnitude >= 1e-6 && magnitude < 1e15;
    return QString::number(value, isPlain ? 'f' : 'g', QLocale::FloatingPointShortest);
}

QString argumentText(char value)
{
    if (value > ' ' && value <= '~')
        return QStringLiteral("'%1'").arg(QLatin1Char(value));
    return QString::number(static_cast<unsigned char>(value));
}

QString argumentText(const char* utf8)
{
    return utf8 ? argumentText(QString::fromUtf8(utf8)) : nullText();
}

QString argumentText(const QString& value)
{
    QString text = QStringLiteral("\"");
    for (const QChar character : value) {
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
            if (character.category() == QChar::Other_Control)
                text += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
            else
                text += character;
        }
    }
    return text + QLatin1Char('"');
}

QString argumentText(const QVariant& value)
{
    if (!value.isValid())
        return QStringLiteral("QVariant()");
    QString text;
    // The record is declared to the meta-type system by whoever sends it, hence by its name.
    if (qstrcmp(value.typeName(), "Brimvale::MesswertData") == 0) {
        return QStringLiteral("QVariant(%1)")
            .arg(argumentText(*static_cast<const MesswertData*>(value.constData())));
    }
    switch (value.userType()) {
    case QMetaType::Bool:
        text = argumentText(value.toBool());
        break;
    case QMetaType::Double:
    case QMetaType::Float:
        text = argumentText(value.toDouble());
        break;
    case QMetaType::QVariantList: {
        const QVariantList list = value.toList();
        text = argumentText(list);
        break;
    }
    case QMetaType::QStringList: {
        const QList<QString> list = value.toStringList();
        text = argumentText(list);
        break;
    }
    case QMetaType::QString:
        text = argumentText(value.toString());
        break;
    default:
        if (value.canConvert<QObject*>()) {
            const QObject* const object = value.value<QObject*>();
            text = argumentText(object);
        } else {
            text = value.toString();
        }
    }
    return QStringLiteral("QVariant(%1, %2)").arg(QLatin1String(value.typeName()), text);
}

QString argumentText(const MesswertData& value)
{
    const MesswertData empty;
    return RecordText()
        .member("messwert", value.messwert, empty.messwert)
        .member("unit", value.unit, empty.unit)
        .member("unitPrintName", value.unitPrintName, empty.unitPrintName)
        .member("errorText", value.errorText, empty.errorText)
        .member("stabilityValue", value.stabilityValue, empty.stabilityValue)
        .member("rangeNumber", value.rangeNumber, empty.rangeNumber)
        .member("eichDigit", value.eichDigit, empty.eichDigit)
        .member("decimals", value.decimals, empty.decimals)
        .member("resolutionReduction", value.resolutionReduction, empty.resolutionReduction)
        .member("value", value.value, empty.value)
        .member("tareValue", value.tareValue, empty.tareValue)
        .member("isValid", value.isValid, empty.isValid)
        .member("isCalculated", value.isCalculated, empty.isCalculated)
        .member("isStable", value.isStable, empty.isStable)
        .member("net", value.net, empty.net)
        .member("isPresetTare", value.isPresetTare, empty.isPresetTare)
        .member("isGrobRange", value.isGrobRange, empty.isGrobRange)
        .member("isOverload", value.isOverload, empty.isOverload)
        .member("registerNumber", value.registerNumber, empty.registerNumber)
        .toString("MesswertData");
}

QString argumentText(const FormattedValue& value)
{
    const FormattedValue empty;
    return RecordText()
        .member("valueMark", value.valueMark, empty.valueMark)
        // A plain char has a sign on some processors only.
        .member("bracketedDigitCount", int(static_cast<signed char>(value.bracketedDigitCount)),
                int(static_cast<signed char>(empty.bracketedDigitCount)))
        .member("isStable", value.isStable, empty.isStable)
        .member("text", value.text, empty.text)
        .member("errorText", value.errorText, empty.errorText)
        .toString("FormattedValue");
}

QString argumentText(const Verbatim& value)
{
    return value.text;
}

QString argumentText(const IAction* value)
{
    return value ? identifiedText(value, argumentText(value->uid())) : nullText();
}

QString argumentText(const IPrintableItem* value)
{
    return value ? identifiedText(value, argumentText(value->getUId())) : nullText();
}

QString argumentText(const ITrigger* value)
{
    return value ? identifiedText(value, argumentText(value->getUId())) : nullText();
}

QString argumentText(const IStepFunction* value)
{
    return value ? identifiedText(value, argumentText(value->uid())) : nullText();
}

QString argumentText(const IWorkflowStep* value)
{
    return value ? identifiedText(value, argumentText(value->stepId()) + QStringLiteral(", ")
                                             + argumentText(value->functionId()))
                 : nullText();
}

QString unqualified(const QString& typeName)
{
    const int separator = typeName.lastIndexOf(QLatin1String("::"));
    return separator < 0 ? typeName : typeName.mid(separator + 2);
}

QString typeName(const std::type_info& type)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
    return QString::fromLatin1(status == 0 ? name.get() : type.name());
}

QString objectText(const QObject* object, const std::type_info& type)
{
    if (object && !object->objectName().isEmpty())
        return object->objectName();
    return unqualified(object ? QString::fromLatin1(object->metaObject()->className()) : typeName(type));
}

} // namespace Brimvale::TestKit
