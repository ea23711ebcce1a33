// SPDX-License-Identifier: BSD-3-Clause
#include "CallRecorder.h"

#include "Operation.h"

#include <QRegularExpression>

#include <stdexcept>

namespace Brimvale::TestKit
{

namespace
{

[[noreturn]] void refuse(const QString& message)
{
    throw std::invalid_argument(message.toStdString());
}

[[noreturn]] void refuseUnknown(const QString& name)
{
    refuse(QStringLiteral("The recording host has no operation %1. Similar ones: %2.")
               .arg(name, similarOperations(name).join(QLatin1String(", "))));
}

QString operationOf(const QString& key)
{
    return key.left(key.indexOf(QLatin1Char('(')));
}

/// The number of arguments in the text of a call; -1 when the text is no call.
int argumentCount(const QString& call)
{
    const QString arguments = call.mid(call.indexOf(QLatin1Char('(')));
    int depth = 0;
    int count = 0;
    bool isQuoted = false;
    for (int i = 0; i < arguments.size(); ++i) {
        const QChar character = arguments[i];
        if (isQuoted) {
            if (character == QLatin1Char('\\'))
                ++i;
            else if (character == QLatin1Char('"'))
                isQuoted = false;
            continue;
        }
        if (character == QLatin1Char('"')) {
            isQuoted = true;
        } else if (character == QLatin1Char('(') || character == QLatin1Char('[')) {
            ++depth;
        } else if (character == QLatin1Char(')') || character == QLatin1Char(']')) {
            if (--depth == 0) {
                const bool isEnd = i == arguments.size() - 1;
                return !isEnd ? -1 : arguments == QLatin1String("()") ? 0 : count + 1;
            }
        } else if (character == QLatin1Char(',') && depth == 1) {
            ++count;
        }
    }
    return -1;
}

/// Checks that a key names a known operation, or a call of one with the right number of arguments.
const Operation& checkedOperation(const QString& key)
{
    const auto it = operations().constFind(operationOf(key));
    if (it == operations().constEnd())
        refuseUnknown(operationOf(key));
    if (key.contains(QLatin1Char('('))) {
        const int count = argumentCount(key);
        if (count < 0)
            refuse(QStringLiteral("%1 is not the text of a call.").arg(key));
        if (count != it->argumentCount)
            refuse(
                QStringLiteral("%1 has %2 arguments in the text %3, but takes %4.")
                    .arg(operationOf(key), QString::number(count), key, QString::number(it->argumentCount)));
    }
    return it.value();
}

QString answerTypeName(const std::any& answer)
{
    const QVariant* const variant = std::any_cast<QVariant>(&answer);
    return variant ? QStringLiteral("QVariant with %1").arg(QLatin1String(variant->typeName()))
                   : typeName(answer.type());
}

std::any checkedAnswer(const QString& key, const std::any& answer)
{
    const Operation& operation = checkedOperation(key);
    if (operation.answerType.isEmpty())
        refuse(QStringLiteral("%1 returns nothing, it cannot be answered.").arg(operationOf(key)));
    std::any converted = operation.convertAnswer(answer);
    if (!converted.has_value()) {
        QString message = QStringLiteral("%1 returns %2, the answer given is of type %3.")
                              .arg(operationOf(key), operation.answerType, answerTypeName(answer));
        if (operation.answerType.endsWith(QLatin1Char('*')))
            message += QStringLiteral(" An object of a derived class is given as answer<%1>(…).")
                           .arg(operation.answerType);
        refuse(message);
    }
    return converted;
}

/// The operations that a pattern means: a name with wildcards, or an interface.
QSet<QString> checkedPattern(const QString& pattern)
{
    const QString complete =
        pattern.contains(QLatin1String("::")) ? pattern : pattern + QStringLiteral("::*");
    const QRegularExpression expression(QRegularExpression::wildcardToRegularExpression(complete));
    const auto matches = [&expression](const QString& name) { return expression.match(name).hasMatch(); };
    QSet<QString> operationNames;
    for (auto it = operations().constBegin(); it != operations().constEnd(); ++it) {
        if (matches(it.key()) || matches(withoutLabel(it.key())))
            operationNames.insert(it.key());
    }
    if (operationNames.isEmpty())
        refuseUnknown(pattern);
    return operationNames;
}

} // namespace

QStringList CallRecorder::calls() const
{
    QStringList texts;
    for (const Entry& entry : m_entries)
        texts.append(entry.text);
    return texts;
}

QStringList CallRecorder::callsTo(const QString& pattern) const
{
    const QSet<QString> operationNames = checkedPattern(pattern);
    QStringList texts;
    for (const Entry& entry : m_entries) {
        if (operationNames.contains(entry.operation))
            texts.append(entry.text);
    }
    return texts;
}

int CallRecorder::callCount(const QString& operation) const
{
    int count = 0;
    const QSet<QString> names = checkedPattern(operation);
    for (const QString& name : names)
        count += m_counts.value(name);
    return count;
}

void CallRecorder::ignore(const QString& pattern)
{
    m_ignored.unite(checkedPattern(pattern));
}

void CallRecorder::setAnswer(const QString& key, const std::any& answer)
{
    m_scripts[key].answer = checkedAnswer(key, answer);
    m_scripts[key].wasUsed = false;
}

void CallRecorder::queueAnswer(const QString& key, const std::any& answer)
{
    m_scripts[key].queue.append(checkedAnswer(key, answer));
}

void CallRecorder::setHook(const QString& key, const std::function<void()>& hook)
{
    checkedOperation(key);
    m_scripts[key].hook = hook;
}

QStringList CallRecorder::unusedAnswers() const
{
    QStringList keys;
    for (auto it = m_scripts.constBegin(); it != m_scripts.constEnd(); ++it) {
        if (!it->queue.isEmpty() || (it->answer.has_value() && !it->wasUsed))
            keys.append(it.key());
    }
    keys.sort();
    return keys;
}

std::any CallRecorder::begin(const QString& operation, const QStringList& arguments)
{
    const auto known = operations().constFind(operation);
    if (known == operations().constEnd() || known->argumentCount != arguments.size())
        throw std::logic_error("not an operation of the recording host: " + operation.toStdString());

    const QString call =
        operation + QLatin1Char('(') + arguments.join(QLatin1String(", ")) + QLatin1Char(')');
    ++m_counts[operation];
    if (!m_ignored.contains(operation))
        m_entries.append({operation, call});

    const QList<QString> keys = keysOf(operation, call);
    for (const QString& key : keys) {
        // A copy, since the hook may set another one.
        if (const std::function<void()> hook = m_scripts.value(key).hook)
            hook();
    }
    return takeAnswer(keys);
}

QList<QString> CallRecorder::keysOf(const QString& operation, const QString& call) const
{
    QList<QString> keys{call, operation};
    const QString unlabelled = withoutLabel(operation);
    if (unlabelled != operation)
        keys << unlabelled + call.mid(operation.size()) << unlabelled;
    return keys;
}

std::any CallRecorder::takeAnswer(const QList<QString>& keys)
{
    for (const QString& key : keys) {
        const auto it = m_scripts.find(key);
        if (it == m_scripts.end())
            continue;
        if (!it->queue.isEmpty())
            return it->queue.takeFirst();
        if (it->answer.has_value()) {
            it->wasUsed = true;
            return it->answer;
        }
    }
    return {};
}

} // namespace Brimvale::TestKit
