// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TERMINALITEMS_H
#define BRIMVALE_TERMINALITEMS_H

#include "IPrintableItem.h"

#include <QCoreApplication>
#include <QList>
#include <QObject>
#include <QString>

namespace Brimvale
{
namespace Terminal
{

class Clock;

/// The terminal's own print items, which every protocol can have: date, time, operator and serial number. Their uids
/// begin with "terminal.". They are enabled for every kind of protocol, and stand in header, body and footer.
class TerminalItems
{
    Q_DECLARE_TR_FUNCTIONS(Brimvale::Terminal::TerminalItems)

public:
    /// @param clock     the time of the date and the time; not owned, must outlive the object.
    /// @param localTime print the time of the machine's time zone; otherwise UTC, which is the same everywhere.
    TerminalItems(const Clock& clock, bool localTime);
    Q_DISABLE_COPY(TerminalItems)

    QList<IPrintableItem*> items() const { return m_items; }

    /// The language ("en", "de") in which the date is written.
    void setLanguage(const QString& language) { m_language = language; }

    /// Who works at the terminal; empty prints "-".
    QString operatorName() const { return m_operatorName; }
    void setOperatorName(const QString& name) { m_operatorName = name; }

    /// The serial number of the terminal; empty prints "-".
    QString serialNumber() const { return m_serialNumber; }
    void setSerialNumber(const QString& number) { m_serialNumber = number; }

private:
    const Clock& m_clock;
    const bool m_localTime;
    QString m_language;
    QString m_operatorName;
    QString m_serialNumber;
    QObject m_owner;
    QList<IPrintableItem*> m_items; ///< Owned by m_owner.
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_TERMINALITEMS_H
