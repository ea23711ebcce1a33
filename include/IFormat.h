// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IFORMAT_H
#define BRIMVALE_IFORMAT_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

class MesswertData;
struct FormattedValue;

/// The formatter of protocol lines. Each line operation returns the finished text, line ends included, for
/// `IPrinter::PrintLine()`; `layout` is what `IPrinter::GetPrintLayout()` gave. Implemented by the host.
class BRIMVALE_EXPORT IFormat
{
public:
    virtual ~IFormat();

    /// A line of text.
    virtual QString FormatText(int layout, const QString& text) = 0;

    /// A description followed by a text.
    virtual QString FormatDescriptionText(int layout, const QString& description, const QString& text) = 0;

    /// Name, value and unit in columns.
    virtual QString FormatNameValueUnit(int layout, const QString& name, const QString& value,
                                        const QString& unit) = 0;

    /// A value without name; with `sics` the body of a SICS weight answer.
    virtual QString FormatValue(int layout, const FormattedValue& value, bool sics) = 0;

    /// Name and value in columns. The library always passes false for `flag`, which is the host's.
    virtual QString FormatNameValue(int layout, const QString& name, const FormattedValue& value,
                                    bool flag) = 0;

    /// Lays a measured value out for printing. `out` comes with its flag bytes cleared and both texts
    /// empty.
    virtual void ConvertValue(const MesswertData& value, FormattedValue& out) = 0;
};

} // namespace Brimvale

#endif
