// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TERMINATIONSIGNALS_H
#define BRIMVALE_TERMINATIONSIGNALS_H

#include <QObject>
#include <QSocketNotifier>

namespace Brimvale
{
namespace Terminal
{

/// Turns SIGINT (Ctrl+C) and SIGTERM into a Qt signal, so that the terminal ends in good order. A second one ends the
/// process at once. At most one object of it may exist at a time.
class TerminationSignals : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(TerminationSignals)

public:
    explicit TerminationSignals(QObject* parent = nullptr);
    ~TerminationSignals() override;

    /// The number of the signal that came; 0: none.
    int received() const { return m_received; }

signals:
    void terminationRequested(int signalNumber);

private:
    void onReadable();

    int m_readEnd = -1;
    int m_received = 0;
    QSocketNotifier* m_notifier = nullptr;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_TERMINATIONSIGNALS_H
