// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTJOB_H
#define BRIMVALE_PRINTJOB_H

#include "IPrinter.h"

#include <QString>
#include <QStringList>

namespace Brimvale
{
namespace Terminal
{

/// What a print-out is for.
enum class PrintFormat
{
    Paper, ///< To be read: it goes to the printer.
    Sics   ///< SICS answers: they go to the connected computers. ISystem::GetProtocolFormatName() is "sics".
};

/// A print-out that is being put together: the printer that print items print into. It takes the finished blocks;
/// PrintQueue::submit() then brings them onto paper, all of them or, after a fault, the rest of them.
class PrintJob : public IPrinter
{
public:
    static constexpr int DefaultLayout = 40;
    /// The most that a print-out may have, in characters: a plug-in that never stops printing is stopped.
    static constexpr int MaximumCharacters = 1000000;

    /// @param title  names the print-out on the screen and in files; empty is fine.
    /// @param layout columns of a line, as Formatter takes them.
    explicit PrintJob(const QString& title = QString(), int layout = DefaultLayout,
                      PrintFormat format = PrintFormat::Paper);

    int GetPrintLayout() override { return m_layout; }

    /// Adds a block. An empty one is nothing and is accepted. In a SICS print-out the answer of the print item gets
    /// its command letter here: "  S     100.00 g" is "S S     100.00 g".
    /// @return false, with nothing added, when the print-out has grown beyond MaximumCharacters.
    bool PrintLine(const QString& text) override;

    const QString& title() const { return m_title; }
    int layout() const { return m_layout; }
    PrintFormat format() const { return m_format; }
    const QStringList& blocks() const { return m_blocks; }
    bool isEmpty() const { return m_blocks.isEmpty(); }

    /// The whole print-out, each line ended by '\n'.
    QString text() const { return text(m_blocks); }
    static QString text(const QStringList& blocks);

private:
    QString m_title;
    int m_layout;
    PrintFormat m_format;
    QStringList m_blocks;
    int m_characters = 0;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PRINTJOB_H
