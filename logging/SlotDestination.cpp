// SPDX-License-Identifier: BSD-3-Clause

#include "SlotDestination.h"

namespace QsLogging
{

SlotDestination::SlotDestination(QObject* receiver, const char* member)
    : m_valid(receiver && member
              && connect(this, SIGNAL(lineWritten(QString, int)), receiver, member, Qt::QueuedConnection))
{
}

void SlotDestination::write(const QString& message, Level level)
{
    emit lineWritten(message, level);
}

} // namespace QsLogging
