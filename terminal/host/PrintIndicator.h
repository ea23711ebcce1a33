// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTINDICATOR_H
#define BRIMVALE_PRINTINDICATOR_H

#include "IPrintIndicator.h"
#include "clock/Clock.h"

#include <QObject>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// Lights up when a print request was carried out, for LitMs of the terminal's clock.
class PrintIndicator : public QObject, public IPrintIndicator
{
    Q_OBJECT
    Q_DISABLE_COPY(PrintIndicator)

public:
    static constexpr int LitMs = 1000;

    /// @param clock not owned, must outlive the object.
    PrintIndicator(HostCallLog& calls, Clock& clock, QObject* parent = nullptr);
    ~PrintIndicator() override;

    // IPrintIndicator
    void SetPrintPressed(bool pressed) override;

    bool isLit() const { return m_lit; }

signals:
    void litChanged(bool lit);

private:
    void setLit(bool lit);

    HostCallLog& m_calls;
    Clock& m_clock;
    Clock::TimerId m_timer = 0;
    bool m_lit = false;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PRINTINDICATOR_H
