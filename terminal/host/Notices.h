// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_NOTICES_H
#define BRIMVALE_NOTICES_H

#include <QObject>
#include <QSet>
#include <QString>

namespace Brimvale
{
namespace Terminal
{

/// How grave a notice is.
enum class NoticeSeverity
{
    Info,    ///< What was done, e.g. a measurement was transferred.
    Warning, ///< Something was refused or is not there; the work goes on.
    Error    ///< Something has failed.
};

/// What the terminal has to tell the person in front of it. The services post, whoever shows notices listens
/// to posted().
class Notices : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(Notices)

public:
    explicit Notices(QObject* parent = nullptr);

    /// Posts a notice; an empty text is ignored.
    void post(NoticeSeverity severity, const QString& text);

    /// Posts as an error what the active plug-in did wrong while it was at work. The same text is posted once
    /// until forgetPluginFaults(), since a plug-in that fails at every reading would bury everything else.
    void postPluginFault(const QString& text);

    /// Another plug-in begins: its faults are posted anew.
    void forgetPluginFaults();

signals:
    void posted(Brimvale::Terminal::NoticeSeverity severity, const QString& text);

private:
    QSet<QString> m_pluginFaults;
};

} // namespace Terminal
} // namespace Brimvale

Q_DECLARE_METATYPE(Brimvale::Terminal::NoticeSeverity)

#endif // BRIMVALE_NOTICES_H
