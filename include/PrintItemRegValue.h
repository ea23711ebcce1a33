// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTITEMREGVALUE_H
#define BRIMVALE_PRINTITEMREGVALUE_H

#include "PrintableItemBase.h"
#include "ProtocolDef.h"
#include "SharedLibsGlobal.h"

namespace Brimvale
{

class ISystemRegister;

/// Prints a system register as a number with a fixed count of decimal places.
///
/// The texts are held by pointer and read when they are needed, so that a change of language shows with the next print:
/// they belong to the plug-in, must outlive the item and, the unit excepted, must not be null.
class BRIMVALE_EXPORT PrintItemRegValue : public PrintableItemBase
{
    Q_OBJECT
    Q_DISABLE_COPY(PrintItemRegValue)

public:
    /// Makes an item and reads the register once.
    ///
    /// \param unit the unit behind the number; null for none
    /// \param withDescription whether the description column is printed
    /// \param registers the host's; not owned, must outlive the item
    PrintItemRegValue(QObject* parent, const QString& uid, QString* name, ProtocolDef def, int registerNumber,
                      int decimals, QString* unit, bool withDescription, QString* description, int rank,
                      QString* category, ISystemRegister* registers);
    ~PrintItemRegValue() override;

    QString getName() const override;
    bool Print(IPrinter* printer, IFormat* format) override;

    /// Reads the register and builds the value text: the number with the unit, or "-" alone for a value that is none.
    void setValue() override;

    /// The category text given to the constructor, whatever the rank is.
    QString getCategory() const override;

    /// The text of the description column.
    QString getDiscription() const;

    /// The unit text; empty when there is none.
    QString getUnit() const;

private:
    QString* m_namePtr;
    QString* m_descriptionPtr;
    QString* m_unitPtr;
    QString* m_categoryPtr;
    ISystemRegister* m_registers;
    int m_registerNumber;
    int m_decimals;
    bool m_withDescription;
    QString m_valueText;
};

} // namespace Brimvale

#endif
