// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_READING_H
#define BRIMVALE_READING_H

#include <QMetaType>
#include <QString>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

/// One reading of a weight source.
struct Reading
{
    enum class Status
    {
        Valid,       ///< grams is the weight.
        Overload,    ///< More load than the scale can weigh.
        Underload,   ///< Less than the scale can weigh, as when its pan is missing.
        Unreadable,  ///< Something arrived that is not a weight.
        Disconnected ///< Nothing arrives.
    };

    /// A weight of @p grams. @p stableMark is what the scale says of itself, if it says anything.
    static Reading valid(qint64 timeMs, double grams, std::optional<bool> stableMark = std::nullopt);

    /// A reading without a weight and why that is so.
    static Reading invalid(qint64 timeMs, Status status, const QString& detail = QString());

    bool isValid() const { return status == Status::Valid; }

    qint64 timeMs = 0; ///< Time of the terminal's clock, milliseconds since 1970 UTC.
    double grams; ///< Only for Status::Valid; otherwise not a number, so that no fault is ever taken for 0 g.
    Status status;
    std::optional<bool> stableMark; ///< The scale's own judgement (SICS S and D); most sources make none.
    QString detail;                 ///< For people: what is wrong. Empty for Status::Valid.

    /// No weight yet: disconnected.
    Reading();
};

} // namespace Terminal
} // namespace Brimvale

Q_DECLARE_METATYPE(Brimvale::Terminal::Reading)

#endif // BRIMVALE_READING_H
