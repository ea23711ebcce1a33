// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_OPERATION_H
#define BRIMVALE_TESTKIT_OPERATION_H

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <any>
#include <cstddef>
#include <functional>
#include <type_traits>

namespace Brimvale::TestKit
{

/// What is known of an operation that the recording host answers: enough to refuse a wrong answer when it is
/// given, not when the operation is called.
struct Operation
{
    int argumentCount = 0;
    QString answerType; ///< empty for an operation that returns nothing

    /// The answer in the type of the operation; empty when it does not fit.
    std::function<std::any(const std::any&)> convertAnswer;
};

/// All operations by name: "IActionbar::SetEntry"; of interfaces that have several objects also with the
/// object's label: "ITransferTarget#5::IsActive".
const QMap<QString, Operation>& operations();

/// The name of `operation` without the label of its object.
QString withoutLabel(const QString& operation);

/// The names of known operations that are most like `name`, the most similar first.
QStringList similarOperations(const QString& name);

namespace Detail
{

template <typename Result>
std::any convertAnswer(const std::any& answer)
{
    if (answer.type() == typeid(Result))
        return answer;
    if constexpr (std::is_pointer_v<Result>) {
        if (answer.type() == typeid(std::nullptr_t))
            return Result(nullptr);
    } else if constexpr (std::is_same_v<Result, QVariant>) {
        if (const bool* truth = std::any_cast<bool>(&answer))
            return QVariant(*truth);
        if (const int* number = std::any_cast<int>(&answer))
            return QVariant(*number);
        if (const double* number = std::any_cast<double>(&answer))
            return QVariant(*number);
        if (const QString* text = std::any_cast<QString>(&answer))
            return QVariant(*text);
    } else {
        if constexpr (std::is_same_v<Result, double>) {
            if (const int* number = std::any_cast<int>(&answer))
                return double(*number);
        }
        if constexpr (
            std::is_same_v<
                Result,
                bool> || std::is_same_v<Result, int> || std::is_same_v<Result, double> || std::is_same_v<Result, QString>) {
            const QVariant* variant = std::any_cast<QVariant>(&answer);
            if (variant && variant->userType() == qMetaTypeId<Result>())
                return variant->value<Result>();
        }
    }
    return {};
}

} // namespace Detail

} // namespace Brimvale::TestKit

#endif
