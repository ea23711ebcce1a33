// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WARNINFO_H
#define BRIMVALE_WARNINFO_H

#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>

namespace Brimvale
{

/// The two warnings of a plug-in's screen: levelling required and calibration required.
///
/// The plug-in's view model owns one and offers it through an invokable method `warnInfo()`; `PluginBase` then feeds
/// it from the host's services when the plug-in's `PluginId` asks for them. The screen can read the properties but
/// not write them. A setter emits the notify signal only when the value changes.
class BRIMVALE_EXPORT WarnInfo : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(WarnInfo)
    Q_PROPERTY(QString levellingRequiredText READ levellingRequiredText NOTIFY levellingRequiredTextChanged)
    Q_PROPERTY(
        QString calibrationRequiredText READ calibrationRequiredText NOTIFY calibrationRequiredTextChanged)
    Q_PROPERTY(
        bool levellingRequiredVisible READ levellingRequiredVisible NOTIFY levellingRequiredVisibleChanged)
    Q_PROPERTY(bool calibrationRequiredVisible READ calibrationRequiredVisible NOTIFY
                   calibrationRequiredVisibleChanged)

public:
    /// Stores the texts and flags and calls `translateText()`, which replaces the levelling text at once.
    ///
    /// Mind the order: the flags are crossed with respect to the texts. `calibrationVisible` comes first and belongs
    /// to the second text, `levellingVisible` comes last and belongs to the first. `parent` owns the object.
    WarnInfo(QObject* parent, QString levellingText, QString calibrationText, bool calibrationVisible,
             bool levellingVisible);
    ~WarnInfo() override;

    /// The text of the levelling warning, translated.
    QString levellingRequiredText() const;
    /// Sets the text of the levelling warning.
    void setLevellingRequiredText(QString text);

    /// The text of the calibration warning, as the host's calibration service gives it.
    QString calibrationRequiredText() const;
    /// Sets the text of the calibration warning.
    void setCalibrationRequiredText(QString text);

    /// Whether the levelling warning is shown.
    bool levellingRequiredVisible() const;
    /// Shows or hides the levelling warning.
    void setLevellingRequiredVisible(bool visible);

    /// Whether the calibration warning is shown.
    bool calibrationRequiredVisible() const;
    /// Shows or hides the calibration warning.
    void setCalibrationRequiredVisible(bool visible);

    /// Translates "Levelling required" again, after a change of language. The change is announced only while the
    /// levelling warning is visible. The calibration text comes translated from the host and is not touched.
    void translateText();

signals:
    void levellingRequiredTextChanged();
    void calibrationRequiredTextChanged();
    void levellingRequiredVisibleChanged();
    void calibrationRequiredVisibleChanged();

private:
    QString m_levellingRequiredText;
    QString m_calibrationRequiredText;
    bool m_levellingRequiredVisible;
    bool m_calibrationRequiredVisible;
};

} // namespace Brimvale

#endif
