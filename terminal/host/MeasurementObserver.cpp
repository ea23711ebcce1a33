// SPDX-License-Identifier: BSD-3-Clause
#include "host/MeasurementObserver.h"

#include "host/HostCallLog.h"

#include <limits>

namespace Brimvale
{
namespace Terminal
{

MeasurementObserver::MeasurementObserver(HostCallLog& calls, QObject* parent)
    : QObject(parent)
    , m_calls(calls)
    , m_grossDigits(std::numeric_limits<double>::quiet_NaN())
    , m_tareDigits(std::numeric_limits<double>::quiet_NaN())
{
}

void MeasurementObserver::OnMeasurementTransferred(MesswertData current, MesswertData previous)
{
    m_calls.command("IMeasurementObserver::OnMeasurementTransferred", current, previous);
    m_current = current;
    m_previous = previous;
}

void MeasurementObserver::OnSystemRegistersRead(double register72, double register73)
{
    m_calls.command("IMeasurementObserver::OnSystemRegistersRead", register72, register73);
    m_grossDigits = register72;
    m_tareDigits = register73;
    emit registersRead();
}

} // namespace Terminal
} // namespace Brimvale
