// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTITEMDESCRIPTIONTEXT_H
#define BRIMVALE_PRINTITEMDESCRIPTIONTEXT_H

#include "PrintableItemBase.h"
#include "ProtocolDef.h"
#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// Prints a fixed text: a heading, a note, a line for a signature. An empty text is printed too.
///
/// The texts are held by pointer and read when they are needed: they belong to the plug-in, must outlive the item and
/// must not be null.
class BRIMVALE_EXPORT PrintItemDescriptionText : public PrintableItemBase
{
    Q_OBJECT
    Q_DISABLE_COPY(PrintItemDescriptionText)

public:
    /// \param withDescription whether the description column is printed before the text
    PrintItemDescriptionText(QObject* parent, const QString& uid, QString* name, ProtocolDef def,
                             QString* description, QString* text, bool withDescription, int rank,
                             QString* category);
    ~PrintItemDescriptionText() override;

    QString getName() const override;
    bool Print(IPrinter* printer, IFormat* format) override;

    /// Does nothing: there is no snapshot.
    void setValue() override;

    /// The category text given to the constructor, whatever the rank is.
    QString getCategory() const override;

    /// The text of the description column.
    QString getDiscription() const;

    /// The text to print.
    QString getText() const;

private:
    QString* m_namePtr;
    QString* m_descriptionPtr;
    QString* m_textPtr;
    QString* m_categoryPtr;
    bool m_withDescription;
};

} // namespace Brimvale

#endif
