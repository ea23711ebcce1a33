// SPDX-License-Identifier: BSD-3-Clause
#include "print/PrintCause.h"

#include <QCoreApplication>
#include <QJsonArray>

namespace Brimvale
{
namespace Terminal
{
namespace
{

const QString Context = QStringLiteral("context");
const QString Source = QStringLiteral("source");
const QString Arguments = QStringLiteral("arguments");

} // namespace

PrintCause::PrintCause(const QString& text)
    : m_source(text.toUtf8())
{
}

PrintCause::PrintCause(const char* context, const char* source, const QStringList& arguments)
    : m_context(context)
    , m_source(source)
    , m_arguments(arguments)
{
}

QString PrintCause::text() const
{
    if (m_context.isEmpty())
        return QString::fromUtf8(m_source);
    QString text = QCoreApplication::translate(m_context, m_source);
    switch (m_arguments.size()) {
    case 0:
        return text;
    case 1:
        return text.arg(m_arguments.at(0));
    default:
        return text.arg(m_arguments.at(0), m_arguments.at(1));
    }
}

QJsonObject PrintCause::toJson() const
{
    return {{Context, QString::fromUtf8(m_context)},
            {Source, QString::fromUtf8(m_source)},
            {Arguments, QJsonArray::fromStringList(m_arguments)}};
}

PrintCause PrintCause::fromJson(const QJsonObject& object)
{
    PrintCause cause;
    cause.m_context = object.value(Context).toString().toUtf8();
    cause.m_source = object.value(Source).toString().toUtf8();
    const QJsonArray arguments = object.value(Arguments).toArray();
    for (const QJsonValue& argument : arguments)
        cause.m_arguments.append(argument.toString());
    return cause;
}

} // namespace Terminal
} // namespace Brimvale
