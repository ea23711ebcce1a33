// SPDX-License-Identifier: BSD-3-Clause

#include "SlotDestination.h"

namespace QsLogging
{

SlotDestination::SlotDestination(QObject* receiver, const char* member)
    : m_valid(receiver
              && member
              // clang-format writes the blank that the signature has in the meta-object no more.
              && connect(this, SIGNAL(lineWritten(QString, int)), // clazy:exclude=connect-not-normalized
                         receiver, member, Qt::QueuedConnection))
{
}

void SlotDestination::write(const QString& message, Level level)
{
    emit lineWritten(message, level);
}

} // namespace QsLogging
