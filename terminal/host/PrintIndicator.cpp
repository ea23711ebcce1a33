// SPDX-License-Identifier: BSD-3-Clause
#include "host/PrintIndicator.h"

#include "host/HostCallLog.h"

namespace Brimvale
{
namespace Terminal
{

PrintIndicator::PrintIndicator(HostCallLog& calls, Clock& clock, QObject* parent)
    : QObject(parent)
    , m_calls(calls)
    , m_clock(clock)
{
}

PrintIndicator::~PrintIndicator()
{
    m_clock.cancel(m_timer);
}

void PrintIndicator::SetPrintPressed(bool pressed)
{
    m_calls.command("IPrintIndicator::SetPrintPressed", pressed);
    m_clock.cancel(m_timer);
    m_timer = pressed ? m_clock.callAfter(LitMs, [this] { setLit(false); }) : 0;
    setLit(pressed);
}

void PrintIndicator::setLit(bool lit)
{
    if (m_lit != lit) {
        m_lit = lit;
        emit litChanged(lit);
    }
}

} // namespace Terminal
} // namespace Brimvale
