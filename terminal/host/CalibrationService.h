// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_CALIBRATIONSERVICE_H
#define BRIMVALE_CALIBRATIONSERVICE_H

#include "ICalibrationService.h"

#include <QObject>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// Whether the scale must be calibrated, as the bench says.
class CalibrationService : public QObject, public ICalibrationService
{
    Q_OBJECT
    Q_DISABLE_COPY(CalibrationService)

public:
    explicit CalibrationService(HostCallLog& calls, QObject* parent = nullptr);

    // ICalibrationService
    QString GetCalibrationWarningText() override;

    bool isDue() const { return m_due; }
    /// Returns whether that is a change.
    bool setDue(bool due);

    /// The language has changed: the warning, if there is one, is announced anew.
    void retranslate();

signals:
    void notifyCalibrationWarningChanged();

private:
    HostCallLog& m_calls;
    bool m_due = false;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_CALIBRATIONSERVICE_H
