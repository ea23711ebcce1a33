// SPDX-License-Identifier: BSD-3-Clause
#ifndef COUNTINGVIEWMODEL_H
#define COUNTINGVIEWMODEL_H

#include "CountingSettings.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <MesswertInfo.h>
#include <WarnInfo.h>

/// What the screen shows, and the entry of the settings on it. The host publishes it as "counting"; the terminal's main
/// display follows `messwertInfo`, which holds the count and, as the small display, the weight.
class CountingViewModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Brimvale::MesswertInfo* messwertInfo READ messwertInfo CONSTANT)
    Q_PROPERTY(QVariantList fields READ fields NOTIFY fieldsChanged)
    Q_PROPERTY(int parts READ parts NOTIFY fieldsChanged)
    Q_PROPERTY(QVariantList presets READ presets CONSTANT)
    Q_PROPERTY(int selected READ selected NOTIFY entryChanged)
    Q_PROPERTY(bool editing READ editing NOTIFY entryChanged)
    Q_PROPERTY(QString entry READ entry NOTIFY entryChanged)
    Q_PROPERTY(bool entryAcceptable READ entryAcceptable NOTIFY entryChanged)
    Q_PROPERTY(QString rangeText READ rangeText NOTIFY entryChanged)
    Q_PROPERTY(Kind checkKind READ checkKind NOTIFY checkChanged)
    Q_PROPERTY(QString checkText READ checkText NOTIFY checkChanged)
    Q_PROPERTY(Kind stateKind READ stateKind NOTIFY stateChanged)
    Q_PROPERTY(QString stateText READ stateText NOTIFY stateChanged)

public:
    /// What is to be told. The texts in brackets are its details.
    enum State
    {
        Nothing,
        // How things stand.
        NoReference, ///< [parts]
        Right,       ///< counts are right up to [count]
        TooSmall,    ///< the reference is: [error], at [count]; [parts] are to be added
        TooFew,      ///< so small that it cannot be optimised: [error], at [count]; [parts] are needed
        TooLight,    ///< the parts are, for this scale: [error], at [count]
        // What happened last.
        ReferenceTaken, ///< [parts], [piece weight]
        Optimised,      ///< the reference was: [parts]
        ReferenceDeleted,
        NotStable,       ///< not done for this reason
        NoWeight,        ///< not done for this reason
        NoCount,         ///< not done for this reason
        Negative,        ///< not done: the weight is
        NothingOn,       ///< no reference: less than [increment] is on the scale
        ReferenceNeeded, ///< not done without one
        MoreNeeded,      ///< not optimised: no more than the [parts] of the reference are on the scale
        AddedTooMany,    ///< not optimised: [parts] at once at most
        NotOptimisable,  ///< the reference is too small to be optimised
        NotWhole,        ///< not optimised: [count] is no whole number
        TargetTaken,     ///< [count]
        TargetTakenBack,
        WaitingForStable, ///< a print was requested, the weight is not stable yet
        Printed,
        NotPrinted, ///< there is no valid count
        NotRead,    ///< stored values were not usable: [file]
        NotKept     ///< the values could not be stored: [file]
    };

    /// How something is marked.
    enum Kind
    {
        Plain,
        Attention,
        Well,
        Wrong
    };
    Q_ENUM(Kind)

    explicit CountingViewModel(CountingSettings* settings);

    Brimvale::MesswertInfo* messwertInfo() const;

    /// Found by name: the base feeds the host's calibration and levelling warnings into the returned object.
    Q_INVOKABLE Brimvale::WarnInfo* warnInfo() const;

    /// The unit of a count.
    static QString pieceUnit();

    /// Maps with "title" and "text", by CountingSettings::Id.
    QVariantList fields() const;
    int parts() const;
    /// The numbers of parts that have a key of their own.
    static QVariantList presets();
    Q_INVOKABLE void chooseParts(int parts);
    /// Sets a value and tells the plug-in.
    void change(CountingSettings::Id id, int value);

    /// The number pad: for which value, whether it is open, what was typed, and whether that can be accepted.
    int selected() const { return m_selected; }
    bool editing() const { return m_editing; }
    QString entry() const { return m_entry; }
    bool entryAcceptable() const;
    QString rangeText() const;

    Q_INVOKABLE void openEntry(int field);
    /// A digit, or "<", which takes the last one off.
    Q_INVOKABLE void type(const QString& key);
    Q_INVOKABLE void acceptEntry();
    Q_INVOKABLE void cancelEntry();

    /// The count against the target; without a count, or without a target, there is no text.
    Kind checkKind() const;
    QString checkText() const;
    void setCheck(CountingSettings::Check check, int difference);

    /// What happened last is shown, and how things stand after that was cleared.
    Kind stateKind() const;
    QString stateText() const;
    void setStanding(State state, const QStringList& details = {});
    void setEvent(State state, const QStringList& details = {});
    /// The load has moved: what was told of the last one is over. What concerns the kept values stays.
    void clearEvent();

    void translateTexts();

signals:
    void settingsChanged(); ///< the person has changed one
    void fieldsChanged();
    void entryChanged();
    void checkChanged();
    void stateChanged();

private:
    struct Message
    {
        State state = Nothing;
        QStringList details;
    };

    const Message& shown() const { return m_event.state != Nothing ? m_event : m_standing; }
    void show(Message* place, State state, const QStringList& details);

    CountingSettings* m_settings;           ///< the plug-in's
    Brimvale::MesswertInfo* m_messwertInfo; ///< a child
    Brimvale::WarnInfo* m_warnInfo;         ///< a child
    int m_selected = CountingSettings::Parts;
    bool m_editing = false;
    QString m_entry;
    CountingSettings::Check m_check = CountingSettings::NoTarget;
    int m_difference = 0;
    Message m_standing;
    Message m_event;
};

#endif
