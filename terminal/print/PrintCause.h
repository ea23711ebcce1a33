// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTCAUSE_H
#define BRIMVALE_PRINTCAUSE_H

#include <QByteArray>
#include <QJsonObject>
#include <QMetaType>
#include <QString>
#include <QStringList>

namespace Brimvale
{
namespace Terminal
{

/// Why printing has failed, in whole sentences that tell the person what is wrong and what to do. A cause outlives the
/// language in which it came about, and the terminal: it is put into words whenever it is shown.
class PrintCause
{
public:
    /// None.
    PrintCause() = default;
    /// A text that is the same in all languages.
    PrintCause(const QString& text); // Implicit: such a text is a cause.
    /// @param context, source  what is translated, as QCoreApplication::translate() takes it; mark the source with
    ///                         QT_TR_NOOP().
    /// @param arguments        for the places %1 and %2 of the text.
    PrintCause(const char* context, const char* source, const QStringList& arguments = {});

    bool isEmpty() const { return m_source.isEmpty(); }
    /// In the present language.
    QString text() const;

    QJsonObject toJson() const;
    static PrintCause fromJson(const QJsonObject& object);

private:
    QByteArray m_context;
    QByteArray m_source;
    QStringList m_arguments;
};

} // namespace Terminal
} // namespace Brimvale

Q_DECLARE_METATYPE(Brimvale::Terminal::PrintCause)

#endif // BRIMVALE_PRINTCAUSE_H
