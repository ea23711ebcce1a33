// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTITEMREGVALUECURRENTUNIT_H
#define BRIMVALE_PRINTITEMREGVALUECURRENTUNIT_H

#include "MesswertData.h"
#include "PrintableItemBase.h"
#include "ProtocolDef.h"
#include "SharedLibsGlobal.h"

namespace Brimvale
{

class ISystem;

/// Prints a system register as a measured value in the unit that is shown now.
///
/// The texts are held by pointer and read when they are needed: they belong to the plug-in, must outlive the item and
/// must not be null.
class BRIMVALE_EXPORT PrintItemRegValueCurrentUnit : public PrintableItemBase
{
    Q_OBJECT
    Q_DISABLE_COPY(PrintItemRegValueCurrentUnit)

public:
    /// Makes an item that prints the empty record until the first `setValue()`.
    ///
    /// \param flag1,flag2 kept for the plug-in; the item reads neither
    /// \param withDescription whether the name column is printed
    /// \param system the host; not owned, must outlive the item
    PrintItemRegValueCurrentUnit(QObject* parent, const QString& uid, QString* name, ProtocolDef def,
                                 int registerNumber, bool flag1, bool flag2, bool withDescription,
                                 QString* description, int rank, QString* category, ISystem* system);
    ~PrintItemRegValueCurrentUnit() override;

    QString getName() const override;

    /// Prints the snapshot with a blank for the mark of the value and no digits in brackets.
    bool Print(IPrinter* printer, IFormat* format) override;

    /// Takes the snapshot: the register's value in the unit shown now.
    void setValue() override;

    /// The category text given to the constructor, whatever the rank is.
    QString getCategory() const override;

    /// The text of the name column.
    QString getDiscription() const;

private:
    QString* m_namePtr;
    QString* m_descriptionPtr;
    QString* m_categoryPtr;
    ISystem* m_system;
    MesswertData m_snapshot;
    int m_registerNumber;
    bool m_flag1;
    bool m_flag2;
    bool m_withDescription;
};

} // namespace Brimvale

#endif
