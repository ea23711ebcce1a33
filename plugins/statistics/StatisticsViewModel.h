// SPDX-License-Identifier: BSD-3-Clause
#ifndef STATISTICSVIEWMODEL_H
#define STATISTICSVIEWMODEL_H

#include "SeriesPlot.h"

#include <QObject>
#include <QString>
#include <QVariantList>

#include <WarnInfo.h>

/// What the screen shows. The host publishes it as "statistics". The weight stays the terminal's own display.
class StatisticsViewModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY seriesChanged)
    Q_PROPERTY(QString unit READ unit NOTIFY seriesChanged)
    Q_PROPERTY(QVariantList points READ points NOTIFY seriesChanged)
    Q_PROPERTY(QVariantList ticks READ ticks NOTIFY seriesChanged)
    Q_PROPERTY(double mean READ mean NOTIFY seriesChanged)
    Q_PROPERTY(double bandTop READ bandTop NOTIFY seriesChanged)
    Q_PROPERTY(double bandBottom READ bandBottom NOTIFY seriesChanged)
    Q_PROPERTY(int firstNumber READ firstNumber NOTIFY seriesChanged)
    Q_PROPERTY(int lastNumber READ lastNumber NOTIFY seriesChanged)
    Q_PROPERTY(QString threshold READ threshold NOTIFY thresholdChanged)
    Q_PROPERTY(bool canDecrease READ canDecrease NOTIFY thresholdChanged)
    Q_PROPERTY(bool canIncrease READ canIncrease NOTIFY thresholdChanged)
    Q_PROPERTY(bool automatic READ automatic NOTIFY thresholdChanged)
    Q_PROPERTY(bool confirming READ confirming NOTIFY confirmingChanged)
    Q_PROPERTY(Kind stateKind READ stateKind NOTIFY stateChanged)
    Q_PROPERTY(QString stateText READ stateText NOTIFY stateChanged)

public:
    /// What happened last.
    enum State
    {
        Ready,
        WaitingForStable,
        Recorded,    ///< detail: number of the weighing
        Undone,      ///< detail: number of the weighing
        Cleared,     ///<
        Exported,    ///< detail: file
        NoWeight,    ///<
        OtherUnit,   ///< detail: unit of the series
        SeriesFull,  ///< detail: count
        NotStored,   ///< detail: why
        NotExported, ///< detail: why
        SetAside,    ///< detail: name of the damaged file
        NoAutomatic  ///< the threshold is not below the limit of the scale
    };

    /// How a state is marked.
    enum Kind
    {
        Plain,
        Attention,
        Well,
        Wrong
    };
    Q_ENUM(Kind)

    StatisticsViewModel();

    /// Found by name: the base feeds the host's calibration and levelling warnings into the returned object.
    Q_INVOKABLE Brimvale::WarnInfo* warnInfo() const;

    int count() const { return m_count; }
    QString unit() const { return m_unit; }
    QVariantList points() const { return m_plot.points; }
    QVariantList ticks() const { return m_plot.ticks; }
    double mean() const { return m_plot.mean; }
    double bandTop() const { return m_plot.bandTop; }
    double bandBottom() const { return m_plot.bandBottom; }
    int firstNumber() const { return m_plot.firstNumber; }
    int lastNumber() const { return m_plot.lastNumber; }
    void setSeries(const WeighingSeries& series);

    QString threshold() const { return m_threshold; }
    bool canDecrease() const { return m_canDecrease; }
    bool canIncrease() const { return m_canIncrease; }
    bool automatic() const { return m_automatic; }
    void setThreshold(const QString& text, bool canDecrease, bool canIncrease, bool automatic);

    /// Whether the person is asked if the series is to be cleared.
    bool confirming() const { return m_confirming; }
    void setConfirming(bool confirming);

    State state() const { return m_state; }
    Kind stateKind() const;
    QString stateText() const;
    void setState(State state, const QString& detail = QString());

    void translateTexts();

signals:
    void seriesChanged();
    void thresholdChanged();
    void confirmingChanged();
    void stateChanged();

    // From the screen.
    void thresholdStepRequested(int step); ///< -1 or 1
    void clearAnswered(bool clear);

private:
    Brimvale::WarnInfo* m_warnInfo; ///< a child
    int m_count = 0;
    QString m_unit;
    SeriesPlot m_plot;
    QString m_threshold;
    bool m_canDecrease = false;
    bool m_canIncrease = false;
    bool m_automatic = false;
    bool m_confirming = false;
    State m_state = Ready;
    QString m_detail;
};

#endif
