// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_NOTICES_H
#define BRIMVALE_NOTICES_H

#include <QHash>
#include <QObject>
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

    /// Of one start of a plug-in so many different faults are told, and no more.
    static constexpr int MaximumPluginFaults = 20;

    /// Posts as an error what the active plug-in did wrong while it was at work. The same text is posted once
    /// until forgetPluginFaults(), since a plug-in that fails at every reading would bury everything else; then it is
    /// counted.
    void postPluginFault(const QString& text);

    /// Another plug-in begins: its faults are posted anew.
    void forgetPluginFaults();

signals:
    void posted(Brimvale::Terminal::NoticeSeverity severity, const QString& text);
    /// The active plug-in did this wrong for the @p count th time; after posted() when it is the first.
    void pluginFault(const QString& text, int count);

private:
    QHash<QString, int> m_pluginFaults; ///< How often each came.
};

} // namespace Terminal
} // namespace Brimvale

Q_DECLARE_METATYPE(Brimvale::Terminal::NoticeSeverity)

#endif // BRIMVALE_NOTICES_H
