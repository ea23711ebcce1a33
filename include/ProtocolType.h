// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROTOCOLTYPE_H
#define BRIMVALE_PROTOCOLTYPE_H

#include <QFlags>

namespace Brimvale
{

/// The kinds of protocol (print-out or data record) that the terminal makes. A print item names the kinds in
/// which it is enabled; the values are single bits and are combined into `QFlags<ProtocolType>`.
enum class ProtocolType : quint32
{
    Measurement = 0x01, ///< the record of one weighing
    Series = 0x02,      ///< the lines of a series of weighings
    Summary = 0x04,     ///< the closing record of a series: totals and statistics
    Calibration = 0x08, ///< the record of a calibration or adjustment
    Workflow = 0x10     ///< the record of a guided procedure
};

/// A set of protocol kinds.
using ProtocolTypes = QFlags<ProtocolType>;
Q_DECLARE_OPERATORS_FOR_FLAGS(ProtocolTypes)

} // namespace Brimvale

#endif
