// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SICSSCALE_H
#define BRIMVALE_SICSSCALE_H

#include "MesswertData.h"
#include "PrintItemCurrentMeasurement.h"

#include <QByteArray>
#include <QObject>

namespace Brimvale
{

class IFormat;

namespace Terminal
{

class Host;
class Scale;

/// The terminal's scale as SICS clients see it: its weight as an answer line, zero and tare. All answers end with CR
/// LF.
///
/// A weight answer is the current-measurement print item, printed in the output format "sics": the formatter lays the
/// body out, the item puts the letter of the stability in, and here only the letter of the command is put on the blank
/// in front.
class SicsScale : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SicsScale)

public:
    /// @param host, scale, format not owned; they must outlive the object.
    /// @param serialNumber        what the answer to `@` tells.
    SicsScale(Host& host, Scale& scale, IFormat& format, const QString& serialNumber,
              QObject* parent = nullptr);
    ~SicsScale() override;

    /// Whether there is a weight, although it may be moving.
    bool isValid() const;
    bool isStable() const;
    /// The net weight in grams; not a number without a valid reading.
    double netGrams() const;
    /// The display increment in grams.
    double incrementGrams() const;

    /// `S S     100.00 g`, `S D ...` while it is moving, `S +` and `S -` beyond the range, `S I` without a weight.
    QByteArray weightAnswer();

    /// Sets zero: `Z A`, or why not: `Z +`, `Z -` beyond the zero range, `Z I` without a stable weight.
    QByteArray zero();

    /// Tares: `T S     100.00 g` with the new tare, or why not: `T +`, `T -` beyond the range, `T I` without a stable
    /// weight.
    QByteArray tare();

    /// `I4 A "serial number"`.
    QByteArray resetAnswer() const;

signals:
    /// A reading has been taken in, valid or not.
    void updated();

private:
    QByteArray answer(char id, const MesswertData& value);
    QByteArray refusal(char id) const;

    Host& m_host;
    Scale& m_scale;
    IFormat& m_format;
    const QByteArray m_serialNumber;
    MesswertData m_value; ///< What the print item reads.
    PrintItemCurrentMeasurement m_item;
    QByteArray m_weightAnswer; ///< Of the present reading; empty until somebody asks for it.
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SICSSCALE_H
