// SPDX-License-Identifier: BSD-3-Clause
#include "host/CalibrationService.h"

#include "host/HostCallLog.h"

namespace Brimvale
{
namespace Terminal
{

CalibrationService::CalibrationService(HostCallLog& calls, QObject* parent)
    : QObject(parent)
    , m_calls(calls)
{
}

QString CalibrationService::GetCalibrationWarningText()
{
    m_calls.query("ICalibrationService::GetCalibrationWarningText");
    return m_due ? tr("Calibration required") : QString();
}

bool CalibrationService::setDue(bool due)
{
    if (m_due == due) {
        return false;
    }
    m_due = due;
    emit notifyCalibrationWarningChanged();
    return true;
}

void CalibrationService::retranslate()
{
    if (m_due) {
        emit notifyCalibrationWarningChanged();
    }
}

} // namespace Terminal
} // namespace Brimvale
