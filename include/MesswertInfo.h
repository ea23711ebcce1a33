// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_MESSWERTINFO_H
#define BRIMVALE_MESSWERTINFO_H

#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>

namespace Brimvale
{

class MesswertData;

/// The display model of a measured value: what the screen's main display, small display (the "Klein"
/// properties), bar graph and indicators bind to.
///
/// Every setter stores the value and emits the property's notify signal only when the value differs from
/// the stored one, and touches no other property. Properties and signals stand in the meta-object in the
/// order declared here; the two orders differ. The setters of the resolution reductions keep their misspelt
/// names, which existing code binds to.
///
/// The pointer type is known to the meta-type system as "MesswertInfo*". Used on the thread of the user
/// interface; signals are emitted from within the setters.
class BRIMVALE_EXPORT MesswertInfo : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(MesswertInfo)
    Q_PROPERTY(QString messwert READ messwert WRITE setMesswert NOTIFY messwertChanged)
    Q_PROPERTY(QString unit READ unit WRITE setUnit NOTIFY unitChanged)
    Q_PROPERTY(
        bool messwertVisible READ messwertVisible WRITE setMesswertVisible NOTIFY messwertVisibleChanged)
    Q_PROPERTY(int eichDigit READ eichDigit WRITE setEichDigit NOTIFY eichDigitChanged)
    Q_PROPERTY(bool isValid READ isValid WRITE setIsValid NOTIFY isValidChanged)
    Q_PROPERTY(bool isCalculated READ isCalculated WRITE setIsCalculated NOTIFY isCalculatedChanged)
    Q_PROPERTY(bool isGrobRange READ isGrobRange WRITE setIsGrobRange NOTIFY isGrobRangeChanged)
    Q_PROPERTY(int resolutionReduction READ resolutionReduction WRITE setResoluionReduction NOTIFY
                   resolutionReductionChanged)
    Q_PROPERTY(QString messwertKlein READ messwertKlein WRITE setMesswertKlein NOTIFY messwertKleinChanged)
    Q_PROPERTY(QString unitKlein READ unitKlein WRITE setUnitKlein NOTIFY unitKleinChanged)
    Q_PROPERTY(bool messwertKleinVisible READ messwertKleinVisible WRITE setMesswertKleinVisible NOTIFY
                   messwertKleinVisibleChanged)
    Q_PROPERTY(int eichDigitKlein READ eichDigitKlein WRITE setEichDigitKlein NOTIFY eichDigitKleinChanged)
    Q_PROPERTY(bool isValidKlein READ isValidKlein WRITE setIsValidKlein NOTIFY isValidKleinChanged)
    Q_PROPERTY(
        bool isGrobRangeKlein READ isGrobRangeKlein WRITE setIsGrobRangeKlein NOTIFY isGrobRangeKleinChanged)
    Q_PROPERTY(int resolutionReductionKlein READ resolutionReductionKlein WRITE setResoluionReductionKlein
                   NOTIFY resolutionReductionKleinChanged)
    Q_PROPERTY(QString netText READ netText WRITE setNetText NOTIFY netTextChanged)
    Q_PROPERTY(QString ptText READ ptText WRITE setPtText NOTIFY ptTextChanged)
    Q_PROPERTY(QString errorText READ errorText WRITE setErrorText NOTIFY errorTextChanged)
    Q_PROPERTY(int bargraphValue READ bargraphValue WRITE setBargraphValue NOTIFY bargraphValueChanged)
    Q_PROPERTY(int stabilityValue READ stabilityValue WRITE setStabilityValue NOTIFY stabilityValueChanged)
    Q_PROPERTY(bool netVisible READ netVisible WRITE setNetVisible NOTIFY netVisibleChanged)
    Q_PROPERTY(bool ptVisible READ ptVisible WRITE setPtVisible NOTIFY ptVisibleChanged)
    Q_PROPERTY(
        bool bargraphVisible READ bargraphVisible WRITE setBargraphVisible NOTIFY bargraphVisibleChanged)
    Q_PROPERTY(
        bool stabilityVisible READ stabilityVisible WRITE setStabilityVisible NOTIFY stabilityVisibleChanged)
    Q_PROPERTY(bool allVisible READ allVisible WRITE setAllVisible NOTIFY allVisibleChanged)

public:
    /// Stores the initial value of every property, in the order of the properties, without a signal, and
    /// calls `translateText()`. `parent` owns the model.
    MesswertInfo(QObject* parent, const QString& messwert, const QString& unit, bool messwertVisible,
                 int eichDigit, bool isValid, bool isCalculated, bool isGrobRange, int resolutionReduction,
                 const QString& messwertKlein, const QString& unitKlein, bool messwertKleinVisible,
                 int eichDigitKlein, bool isValidKlein, bool isGrobRangeKlein, int resolutionReductionKlein,
                 const QString& netText, const QString& ptText, const QString& errorText, int bargraphValue,
                 int stabilityValue, bool netVisible, bool ptVisible, bool bargraphVisible,
                 bool stabilityVisible, bool allVisible);
    ~MesswertInfo() override;

    /// Returns the measured value of the main display, formatted.
    QString messwert() const;
    /// Sets the measured value of the main display, formatted.
    void setMesswert(const QString& messwert);

    /// Returns the unit beside the main value.
    QString unit() const;
    /// Sets the unit beside the main value.
    void setUnit(const QString& unit);

    /// Returns whether the main display is shown.
    bool messwertVisible() const;
    /// Sets whether the main display is shown.
    void setMesswertVisible(bool messwertVisible);

    /// Returns count of trailing digits that are not verified.
    int eichDigit() const;
    /// Sets count of trailing digits that are not verified.
    void setEichDigit(int eichDigit);

    /// Returns whether the main value is valid.
    bool isValid() const;
    /// Sets whether the main value is valid.
    void setIsValid(bool isValid);

    /// Returns whether the main value is calculated and not directly weighed.
    bool isCalculated() const;
    /// Sets whether the main value is calculated and not directly weighed.
    void setIsCalculated(bool isCalculated);

    /// Returns whether the main value lies in the coarse range.
    bool isGrobRange() const;
    /// Sets whether the main value lies in the coarse range.
    void setIsGrobRange(bool isGrobRange);

    /// Returns count of trailing digits taken off the main value.
    int resolutionReduction() const;
    /// Sets count of trailing digits taken off the main value.
    void setResoluionReduction(int resolutionReduction);

    /// Returns the value of the small display, formatted.
    QString messwertKlein() const;
    /// Sets the value of the small display, formatted.
    void setMesswertKlein(const QString& messwertKlein);

    /// Returns the unit beside the small value.
    QString unitKlein() const;
    /// Sets the unit beside the small value.
    void setUnitKlein(const QString& unitKlein);

    /// Returns whether the small display is shown.
    bool messwertKleinVisible() const;
    /// Sets whether the small display is shown.
    void setMesswertKleinVisible(bool messwertKleinVisible);

    /// Returns as `eichDigit`, for the small display.
    int eichDigitKlein() const;
    /// Sets as `eichDigit`, for the small display.
    void setEichDigitKlein(int eichDigitKlein);

    /// Returns as `isValid`, for the small display.
    bool isValidKlein() const;
    /// Sets as `isValid`, for the small display.
    void setIsValidKlein(bool isValidKlein);

    /// Returns as `isGrobRange`, for the small display.
    bool isGrobRangeKlein() const;
    /// Sets as `isGrobRange`, for the small display.
    void setIsGrobRangeKlein(bool isGrobRangeKlein);

    /// Returns as `resolutionReduction`, for the small display.
    int resolutionReductionKlein() const;
    /// Sets as `resolutionReduction`, for the small display.
    void setResoluionReductionKlein(int resolutionReductionKlein);

    /// Returns the mark of a net value.
    QString netText() const;
    /// Sets the mark of a net value.
    void setNetText(const QString& netText);

    /// Returns the mark of a preset tare.
    QString ptText() const;
    /// Sets the mark of a preset tare.
    void setPtText(const QString& ptText);

    /// Returns the error of the reading; empty when there is none.
    QString errorText() const;
    /// Sets the error of the reading; empty when there is none.
    void setErrorText(const QString& errorText);

    /// Returns the length of the bar graph in percent.
    int bargraphValue() const;
    /// Sets the length of the bar graph in percent.
    void setBargraphValue(int bargraphValue);

    /// Returns the stability indicator.
    int stabilityValue() const;
    /// Sets the stability indicator.
    void setStabilityValue(int stabilityValue);

    /// Returns whether the net mark is shown.
    bool netVisible() const;
    /// Sets whether the net mark is shown.
    void setNetVisible(bool netVisible);

    /// Returns whether the preset-tare mark is shown.
    bool ptVisible() const;
    /// Sets whether the preset-tare mark is shown.
    void setPtVisible(bool ptVisible);

    /// Returns whether the bar graph is shown.
    bool bargraphVisible() const;
    /// Sets whether the bar graph is shown.
    void setBargraphVisible(bool bargraphVisible);

    /// Returns whether the stability indicator is shown.
    bool stabilityVisible() const;
    /// Sets whether the stability indicator is shown.
    void setStabilityVisible(bool stabilityVisible);

    /// Returns whether the display is shown at all.
    bool allVisible() const;
    /// Sets whether the display is shown at all.
    void setAllVisible(bool allVisible);

    /// Does nothing: the texts arrive translated. Kept as the place where a model of the terminal
    /// translates its own texts after a change of language.
    void translateText();

    /// Loads the main display from a reading, which must not be null and is not kept.
    /// In this order, through the setters: value, unit, stability indicator (hidden when `stabilityValue`
    /// is -1, shown for any other value, 0 included), net mark, preset-tare mark (always switched off),
    /// coarse range, resolution reduction, verification digits, validity, calculated mark, error text. The
    /// small display, the texts of the marks, the bar graph, `messwertVisible` and `allVisible` stay as
    /// they are.
    void setFromMesswertData(MesswertData* data);

signals:
    /// \name Changes of the properties
    /// Each is emitted after the value of its property was set, as the setter says.
    ///@{
    void messwertChanged();
    void unitChanged();
    void messwertVisibleChanged();
    void isGrobRangeChanged();
    void eichDigitChanged();
    void isValidChanged();
    void isCalculatedChanged();
    void resolutionReductionChanged();
    void messwertKleinChanged();
    void unitKleinChanged();
    void messwertKleinVisibleChanged();
    void eichDigitKleinChanged();
    void isValidKleinChanged();
    void isGrobRangeKleinChanged();
    void resolutionReductionKleinChanged();
    void netTextChanged();
    void ptTextChanged();
    void errorTextChanged();
    void bargraphValueChanged();
    void stabilityValueChanged();
    void netVisibleChanged();
    void ptVisibleChanged();
    void bargraphVisibleChanged();
    void stabilityVisibleChanged();
    void allVisibleChanged();
    ///@}

private:
    QString m_messwert;
    QString m_unit;
    bool m_messwertVisible;
    int m_eichDigit;
    bool m_isValid;
    bool m_isCalculated;
    bool m_isGrobRange;
    int m_resolutionReduction;
    QString m_messwertKlein;
    QString m_unitKlein;
    bool m_messwertKleinVisible;
    int m_eichDigitKlein;
    bool m_isValidKlein;
    bool m_isGrobRangeKlein;
    int m_resolutionReductionKlein;
    QString m_netText;
    QString m_ptText;
    QString m_errorText;
    int m_bargraphValue;
    int m_stabilityValue;
    bool m_netVisible;
    bool m_ptVisible;
    bool m_bargraphVisible;
    bool m_stabilityVisible;
    bool m_allVisible;
};

} // namespace Brimvale

#endif
