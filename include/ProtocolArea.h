// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROTOCOLAREA_H
#define BRIMVALE_PROTOCOLAREA_H

#include <QFlags>

namespace Brimvale
{

/// The parts of a protocol in which a print item or a trigger may stand. The values are single bits and are
/// combined into `QFlags<ProtocolArea>`.
enum class ProtocolArea : quint32
{
    Header = 0x01, ///< printed once, before the first measurement
    Body = 0x02,   ///< printed for each measurement
    Footer = 0x04, ///< printed once, after the last measurement
    Sics = 0x08    ///< the weight answer on the data interface
};

/// A set of protocol areas.
using ProtocolAreas = QFlags<ProtocolArea>;
Q_DECLARE_OPERATORS_FOR_FLAGS(ProtocolAreas)

} // namespace Brimvale

#endif
