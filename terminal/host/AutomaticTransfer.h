// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_AUTOMATICTRANSFER_H
#define BRIMVALE_AUTOMATICTRANSFER_H

#include "LoadChange.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

namespace Brimvale
{

class ISystemRegister;

namespace Terminal
{

class Scale;
class Weighing;

/// How the automatic transfer is set.
struct AutomaticTransferSettings
{
    enum Mode
    {
        Off = -1,
        Absolute = ILoadChange::Absolute,
        Percent = ILoadChange::Percent,
        AbsoluteFixed = ILoadChange::AbsoluteFixed,
        PercentFixed = ILoadChange::PercentFixed
    };

    Mode mode = Off;
    double threshold = 0.0;   ///< Half the band: grams, or percent of the reference.
    double minimumLoad = 0.0; ///< Grams; only heavier loads are transferred, and at least 20 increments.

    bool isPercent() const { return mode == Percent || mode == PercentFixed; }
    bool isFixed() const { return mode == AbsoluteFixed || mode == PercentFixed; }

    /// The names of the modes as they are written in scripts and in the settings file: "off", "absolute", "percent",
    /// "absolute-fixed", "percent-fixed".
    static QStringList modeNames();
    static QString nameOf(Mode mode);
    /// @p ok tells whether @p name is one of them; Off when it is not.
    static Mode modeOf(const QString& name, bool* ok);
};

/// Transfers the measurement by itself when a new load has been put on, by means of the load-change detector.
///
/// Absolute and percent: a band lies about the last stable weight. A weight that leaves it triggers; the next stable
/// weight is transferred when it is heavier than the minimum load, and in any case the band is laid about it.
///
/// Fixed: the first stable weight above the minimum load is the reference, as a pattern, and is not transferred. What
/// leaves its band triggers, and the next stable weight that lies in the band again is transferred.
///
/// While the running application detects changes of load by itself, nothing is transferred; the band follows the weight.
class AutomaticTransfer : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(AutomaticTransfer)

public:
    /// A load must be heavier than so many increments, so that the empty scale is none.
    static constexpr double MinimumIncrements = 20.0;

    /// Nothing is owned, everything must outlive the object.
    AutomaticTransfer(Weighing& weighing, ISystemRegister& registers, const Scale& scale,
                      QObject* parent = nullptr);

    /// Sets mode and threshold and starts the detector anew. On failure nothing has changed, and @p error (may be null)
    /// tells what is wrong and what would be right.
    bool setSettings(const AutomaticTransferSettings& settings, QString* error = nullptr);
    const AutomaticTransferSettings& settings() const { return m_settings; }

    /// @p detects tells whether the running application has a load-change detector of its own at work. The terminal then
    /// leaves the transfer to it, since both would transfer the same load.
    void setApplicationDetects(std::function<bool()> detects) { m_applicationDetects = std::move(detects); }
    /// It is switched on, but the application detects by itself.
    bool isLeftToApplication() const;

    LoadChange* detector() { return &m_detector; }
    /// What became of the last stable weight after a trigger; empty: there was none yet.
    QString decision() const { return m_decision; }

signals:
    /// The present measurement is to be transferred.
    void transferDue();
    void settingsChanged();
    void decisionChanged();

private:
    QString faultOf(const AutomaticTransferSettings& settings) const;
    void restart();
    void onTriggered();
    void onStableWeight(int counter, double digits);
    void decide(int counter, double digits);
    double minimumDigits() const;
    unsigned long range() const;

    const Scale& m_scale;
    AutomaticTransferSettings m_settings;
    LoadChange m_detector;
    QString m_decision;
    std::function<bool()> m_applicationDetects;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_AUTOMATICTRANSFER_H
