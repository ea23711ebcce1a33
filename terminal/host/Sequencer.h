// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SEQUENCER_H
#define BRIMVALE_SEQUENCER_H

#include "ISequencer.h"

#include <QObject>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// Passes on what plug-ins tell of their start, their end and their prints; the PluginManager acts on it.
class Sequencer : public QObject, public ISequencer
{
    Q_OBJECT
    Q_DISABLE_COPY(Sequencer)

public:
    explicit Sequencer(HostCallLog& calls, QObject* parent = nullptr);

    // ISequencer
    void Continue() override;
    void PluginClosed() override;
    void SetPrintPending(bool pending) override;
    void NotifyHostEvent(QString event) override;
    void NotifyMeasurementTransferred() override;

    /// Whether a print was requested and not yet carried out.
    bool isPrintPending() const { return m_printPending; }

signals:
    /// The start-up goes on after the add-ons.
    void continued();
    /// The plug-in that was closing has closed.
    void pluginClosed();
    void hostEvent(const QString& event);
    void measurementTransferred();

private:
    HostCallLog& m_calls;
    bool m_printPending = false;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SEQUENCER_H
