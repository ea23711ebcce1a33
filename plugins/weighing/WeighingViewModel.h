// SPDX-License-Identifier: BSD-3-Clause
#ifndef WEIGHINGVIEWMODEL_H
#define WEIGHINGVIEWMODEL_H

#include <QObject>
#include <QString>

#include <MesswertInfo.h>
#include <WarnInfo.h>

/// What the screen shows. The host publishes it as "weighing"; the terminal's main display follows `messwertInfo`.
class WeighingViewModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Brimvale::MesswertInfo* messwertInfo READ messwertInfo CONSTANT)
    Q_PROPERTY(PrintState printState READ printState NOTIFY printStateChanged)
    Q_PROPERTY(QString lastTransfer READ lastTransfer NOTIFY lastTransferChanged)
    Q_PROPERTY(int transferCount READ transferCount NOTIFY lastTransferChanged)
    Q_PROPERTY(bool printOnlyStable READ printOnlyStable NOTIFY settingsChanged)
    Q_PROPERTY(QString minimumWeight READ minimumWeight NOTIFY settingsChanged)
    Q_PROPERTY(bool automaticRefused READ automaticRefused NOTIFY automaticRefusedChanged)

public:
    /// How far a print request has come.
    enum PrintState
    {
        Ready,            ///< nothing requested
        WaitingForStable, ///< requested, the weight is not stable yet
        Printed,          ///< the last request was served
        BelowMinimum,     ///< the last request was refused: the weight is too small
        NoWeight          ///< the last request was refused: there is no valid weight
    };
    Q_ENUM(PrintState)

    WeighingViewModel();

    Brimvale::MesswertInfo* messwertInfo() const;

    /// Found by name: the base feeds the host's calibration and levelling warnings into the returned object.
    Q_INVOKABLE Brimvale::WarnInfo* warnInfo() const;

    PrintState printState() const;
    void setPrintState(PrintState state);

    QString lastTransfer() const;
    int transferCount() const;
    void setLastTransfer(const QString& text, int count);

    bool printOnlyStable() const;
    QString minimumWeight() const;
    void setSettings(bool printOnlyStable, const QString& minimumWeight);

    /// Whether printing at a change of load is chosen and its threshold does not suit the scale.
    bool automaticRefused() const;
    void setAutomaticRefused(bool refused);

    void translateTexts();

signals:
    void printStateChanged();
    void lastTransferChanged();
    void settingsChanged();
    void automaticRefusedChanged();

private:
    Brimvale::MesswertInfo* m_messwertInfo; ///< a child
    Brimvale::WarnInfo* m_warnInfo;         ///< a child
    PrintState m_printState = Ready;
    QString m_lastTransfer;
    int m_transferCount = 0;
    bool m_printOnlyStable = true;
    QString m_minimumWeight;
    bool m_automaticRefused = false;
};

#endif
