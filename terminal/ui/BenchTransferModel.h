// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_BENCHTRANSFERMODEL_H
#define BRIMVALE_BENCHTRANSFERMODEL_H

#include <QObject>
#include <QString>
#include <QVariantList>

#include <limits>

namespace Brimvale
{
namespace Terminal
{

/// What the bench shows of the automatic transfer and of a load-change detector. Weights are in grams; those that are
/// not there are not a number.
struct BenchTransferState
{
    static constexpr double None = std::numeric_limits<double>::quiet_NaN();

    // The terminal's own setting.
    QString mode; ///< "off", "absolute", "percent", "absolute-fixed" or "percent-fixed".
    double threshold = 0.0;
    double minimumLoad = 0.0;
    QString decision; ///< What became of the last stable weight after a trigger.

    // The detector that is shown.
    QString owner;    ///< Whose it is.
    QString modeText; ///< Its mode with the range, in words; empty: it does not run.
    int state = -1;   ///< LoadChange::State; -1: it does not run.
    double reference = None;
    double bandLow = None;
    double bandHigh = None;
    double value = None;  ///< Register 74.
    QString registerText; ///< The same in digits, as the detector reads it.
    int decimals = 1;     ///< Of the weights.
    int triggerCount = 0;
    QString reason;      ///< Why it fired or did not.
    QString lastTrigger; ///< How it left the band the last time.
};

/// The transfer page of the bench ("bench.transfer"). The host sets the state.
class BenchTransferModel : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(BenchTransferModel)

    Q_PROPERTY(QString mode READ mode NOTIFY changed)
    Q_PROPERTY(double threshold READ threshold NOTIFY changed)
    Q_PROPERTY(double minimumLoad READ minimumLoad NOTIFY changed)
    Q_PROPERTY(QString decision READ decision NOTIFY changed)
    Q_PROPERTY(QString owner READ owner NOTIFY changed)
    Q_PROPERTY(QString modeText READ modeText NOTIFY changed)
    Q_PROPERTY(int state READ detectorState NOTIFY changed)
    Q_PROPERTY(double reference READ reference NOTIFY changed)
    Q_PROPERTY(double bandLow READ bandLow NOTIFY changed)
    Q_PROPERTY(double bandHigh READ bandHigh NOTIFY changed)
    Q_PROPERTY(double value READ value NOTIFY changed)
    Q_PROPERTY(QString registerText READ registerText NOTIFY changed)
    Q_PROPERTY(int decimals READ decimals NOTIFY changed)
    Q_PROPERTY(int triggerCount READ triggerCount NOTIFY changed)
    Q_PROPERTY(QString reason READ reason NOTIFY changed)
    Q_PROPERTY(QString lastTrigger READ lastTrigger NOTIFY changed)

public:
    explicit BenchTransferModel(QObject* parent = nullptr)
        : QObject(parent)
    {
    }

    QString mode() const { return m_state.mode; }
    double threshold() const { return m_state.threshold; }
    double minimumLoad() const { return m_state.minimumLoad; }
    QString decision() const { return m_state.decision; }
    QString owner() const { return m_state.owner; }
    QString modeText() const { return m_state.modeText; }
    int detectorState() const { return m_state.state; }
    double reference() const { return m_state.reference; }
    double bandLow() const { return m_state.bandLow; }
    double bandHigh() const { return m_state.bandHigh; }
    double value() const { return m_state.value; }
    QString registerText() const { return m_state.registerText; }
    int decimals() const { return m_state.decimals; }
    int triggerCount() const { return m_state.triggerCount; }
    QString reason() const { return m_state.reason; }
    QString lastTrigger() const { return m_state.lastTrigger; }

    const BenchTransferState& state() const { return m_state; }
    /// Comes with every reading; the page is told each time.
    void setState(const BenchTransferState& state)
    {
        m_state = state;
        emit changed();
    }

    /// The next threshold up or down from @p threshold: 1, 2, 5, 10, ... grams or percent, percent up to 50.
    Q_INVOKABLE static double nextThreshold(double threshold, bool percent, bool up)
    {
        const double series[] = {0.1, 0.2, 0.5, 1, 2, 5, 10, 20, 50, 100, 200, 500, 1000};
        const int first = percent ? 3 : 0;
        const int last = percent ? 8 : 12;
        double found = up ? series[last] : series[first];
        for (int i = first; i <= last; ++i) {
            if (up && series[i] > threshold && series[i] < found)
                found = series[i];
            if (!up && series[i] < threshold)
                found = series[i];
        }
        return found;
    }

signals:
    void changed();

    /// The person asks for another setting; the mode as in BenchTransferState.
    void settingsRequested(const QString& mode, double threshold, double minimumLoad);

private:
    BenchTransferState m_state;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_BENCHTRANSFERMODEL_H
