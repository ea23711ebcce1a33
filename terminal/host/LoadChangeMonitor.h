// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_LOADCHANGEMONITOR_H
#define BRIMVALE_LOADCHANGEMONITOR_H

#include "LoadChange.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

namespace Brimvale
{
namespace Terminal
{

class Scale;
class Weighing;

/// Shows what a load-change detector does, and says why it fired or did not.
///
/// The detector is looked at after it has taken in each reading and each stable weight.
class LoadChangeMonitor : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(LoadChangeMonitor)

public:
    /// Why the detector is in the state in which it is.
    enum class Reason
    {
        Off,          ///< It does not run, or there is none.
        NoReading,    ///< There is no valid weight.
        NotLatched,   ///< It has no band: it waits for a stable weight.
        BelowMinimum, ///< It has no band: the stable weight is not above the minimum.
        InsideBand,   ///< The weight lies in the band.
        LeftBand      ///< It has fired.
    };
    Q_ENUM(Reason)

    /// @param find returns the detector that is shown, null for none. It is asked at every reading, since plug-ins make
    /// and delete theirs. Nothing is owned; weighing and scale must outlive the object.
    LoadChangeMonitor(Weighing& weighing, const Scale& scale, std::function<LoadChange*()> find,
                      QObject* parent = nullptr);

    /// The detector that is shown; null for none.
    LoadChange* detector() const { return m_detector; }
    /// The stable weight, in digits, about which the band was laid; not a number before the first band.
    double reference() const { return m_reference; }
    /// How often it has fired since it is shown.
    int triggerCount() const { return m_triggerCount; }

    Reason reason() const { return m_reason; }
    /// reason() for people, with the figures that count.
    QString reasonText() const { return m_reasonText; }
    /// How it left the band the last time; empty: it has not yet.
    QString lastTriggerText() const;

    /// Looks for the detector and its state anew, as after a change of settings.
    void update();

signals:
    /// Something of all this may have changed.
    void changed();

private:
    void find();
    void onTriggered();
    void judge();
    QString grams(double digits) const;

    const Scale& m_scale;
    const std::function<LoadChange*()> m_find;
    QPointer<LoadChange> m_detector;
    qint32 m_bandLow = 0; ///< As it was before the reading that is taken in.
    qint32 m_bandHigh = 0;
    double m_reference;
    int m_triggerCount = 0;
    Reason m_reason = Reason::Off;
    QString m_reasonText;
    double m_triggerValue = 0.0; ///< What left the band the last time, and the bound that it went beyond.
    double m_triggerBound = 0.0;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_LOADCHANGEMONITOR_H
