// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_SLOTDESTINATION_H
#define BRIMVALE_SLOTDESTINATION_H

#include "QsLogDest.h"

#include <QObject>

namespace QsLogging
{

/// Passes lines on to a member of an object, see DestinationFactory::MakeFunctorDestination().
class SlotDestination final : public QObject, public Destination
{
    Q_OBJECT

public:
    SlotDestination(QObject* receiver, const char* member);

    void write(const QString& message, Level level) override;
    bool isValid() override { return m_valid; }

signals:
    void lineWritten(const QString& message, int level);

private:
    bool m_valid;
};

} // namespace QsLogging

#endif // BRIMVALE_SLOTDESTINATION_H
