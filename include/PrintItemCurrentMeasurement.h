// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTITEMCURRENTMEASUREMENT_H
#define BRIMVALE_PRINTITEMCURRENTMEASUREMENT_H

#include "MesswertData.h"
#include "PrintableItemBase.h"
#include "ProtocolDef.h"
#include "SharedLibsGlobal.h"

namespace Brimvale
{

class ISystem;

/// Prints the current measured value, with or without a name column, and answers with it on a SICS interface.
///
/// The plug-in keeps a `MesswertData` up to date; `setValue()` takes the snapshot that `Print()` prints.
class BRIMVALE_EXPORT PrintItemCurrentMeasurement : public PrintableItemBase
{
    Q_OBJECT
    Q_DISABLE_COPY(PrintItemCurrentMeasurement)

public:
    /// `source` is the live value and `system` the host; neither is owned, both must outlive the item. Without a
    /// source (null) nothing is printed. The rank is `CategorySort::measurement`; `parent` owns the item.
    PrintItemCurrentMeasurement(QObject* parent, const QString& uid, MesswertData* source, ProtocolDef def,
                                bool withDescription, ISystem* system);
    ~PrintItemCurrentMeasurement() override;

    /// "Current measurement", translated.
    QString getName() const override;

    /// Prints the snapshot: with a description as a line with a name column, otherwise as a value alone.
    ///
    /// In the output format "sics", and without a description, the text is completed to a SICS weight answer: the
    /// letter S (stable) or D (not stable) at index 2, for a text that begins with "o" one index later behind an
    /// inserted blank; "  I" for a value that cannot be given. Returns false without a source, else the printer's
    /// result.
    bool Print(IPrinter* printer, IFormat* format) override;

    /// Takes the snapshot. While a peak-hold value is shown, its flags replace those of stability and coarse range.
    void setValue() override;

    /// "Measurement", translated.
    QString getCategory() const override;

    /// The text of the name column: `getName()`.
    QString getDiscription() const;

public slots:
    /// Tells of a peak-hold value; the next `setValue()` applies its flags.
    void onShowPeakholdChanged(bool show, bool isStable, bool coarseRange);

private:
    MesswertData* m_source;
    bool m_withDescription;
    bool m_showPeakhold = false;
    bool m_peakholdStable = false;
    bool m_peakholdCoarseRange = false;
    ISystem* m_system;
    MesswertData m_snapshot;
};

} // namespace Brimvale

#endif
