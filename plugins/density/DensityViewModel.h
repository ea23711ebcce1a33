// SPDX-License-Identifier: BSD-3-Clause
#ifndef DENSITYVIEWMODEL_H
#define DENSITYVIEWMODEL_H

#include "Parameters.h"

#include <QObject>
#include <QString>
#include <QVariantList>

#include <MesswertInfo.h>
#include <WarnInfo.h>

/// What the screen shows, and the entry of the parameters on it. The host publishes it as "density"; the terminal's main
/// display follows `messwertInfo`, which holds the corrected weight and, as the small display, the reading.
class DensityViewModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Brimvale::MesswertInfo* messwertInfo READ messwertInfo CONSTANT)
    Q_PROPERTY(QVariantList fields READ fields NOTIFY parametersChanged)
    Q_PROPERTY(int selected READ selected NOTIFY selectedChanged)
    Q_PROPERTY(QString rangeText READ rangeText NOTIFY selectedChanged)
    Q_PROPERTY(bool editing READ editing NOTIFY entryChanged)
    Q_PROPERTY(QString entry READ entry NOTIFY entryChanged)
    Q_PROPERTY(bool entryAcceptable READ entryAcceptable NOTIFY entryChanged)
    Q_PROPERTY(Kind stateKind READ stateKind NOTIFY stateChanged)
    Q_PROPERTY(QString stateText READ stateText NOTIFY stateChanged)

public:
    /// What happened last.
    enum State
    {
        Ready,
        WaitingForStable, ///< a print was requested, the weight is not stable yet
        Printed,          ///< the corrected weight was handed over
        NoWeight,         ///< a print was refused: there is no valid weight
        NotRead,          ///< stored values were not usable
        NotKept           ///< the values could not be stored
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

    explicit DensityViewModel(Parameters* parameters);

    Brimvale::MesswertInfo* messwertInfo() const;

    /// Found by name: the base feeds the host's calibration and levelling warnings into the returned object.
    Q_INVOKABLE Brimvale::WarnInfo* warnInfo() const;

    /// Maps with "title", "text" and "unit", by Parameters::Id.
    QVariantList fields() const;
    int selected() const { return m_selected; }
    QString rangeText() const;

    /// The number pad: whether it is open, what was typed, and whether that can be accepted.
    bool editing() const { return m_editing; }
    QString entry() const { return m_entry; }
    bool entryAcceptable() const;

    Q_INVOKABLE void select(int field);
    Q_INVOKABLE void step(int direction);
    Q_INVOKABLE void openEntry();
    /// A digit, "." or "<", which takes the last character off.
    Q_INVOKABLE void type(const QString& key);
    Q_INVOKABLE void acceptEntry();
    Q_INVOKABLE void cancelEntry();

    Kind stateKind() const;
    QString stateText() const;
    void setState(State state, const QString& detail = QString());
    /// Whether a corrected weight is shown.
    void setCorrected(bool isCorrected);

    void translateTexts();

signals:
    void parametersChanged(); ///< the person has changed one
    void selectedChanged();
    void entryChanged();
    void stateChanged();

private:
    Parameters* m_parameters;               ///< the plug-in's
    Brimvale::MesswertInfo* m_messwertInfo; ///< a child
    Brimvale::WarnInfo* m_warnInfo;         ///< a child
    int m_selected = 0;
    bool m_editing = false;
    QString m_entry;
    State m_state = Ready;
    bool m_isCorrected = false;
    QString m_detail;
};

#endif
