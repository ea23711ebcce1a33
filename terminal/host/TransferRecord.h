// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TRANSFERRECORD_H
#define BRIMVALE_TRANSFERRECORD_H

#include "MesswertData.h"

#include <QDateTime>
#include <QMetaType>

namespace Brimvale
{
namespace Terminal
{

/// One measurement that was handed over for the outputs.
struct TransferRecord
{
    QDateTime time;       ///< Time of the terminal's clock, UTC.
    MesswertData current; ///< The measurement as the plug-in gave it.
    MesswertData gross;
    MesswertData tare;
    bool taken = false; ///< Whether at least one output took it.
};

} // namespace Terminal
} // namespace Brimvale

Q_DECLARE_METATYPE(Brimvale::Terminal::TransferRecord)

#endif // BRIMVALE_TRANSFERRECORD_H
