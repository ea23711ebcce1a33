// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_BENCHUNITSMODEL_H
#define BRIMVALE_BENCHUNITSMODEL_H

#include <QObject>
#include <QString>
#include <QStringList>

namespace Brimvale
{
namespace Terminal
{

/// What the bench shows of units, approved operation and weighing parameters.
struct BenchUnitsState
{
    QStringList offered;
    QString mainUnit;
    QString smallUnit; ///< Empty: none of its own.
    bool approvedUnitsOnly = false;
    bool caratAllowed = false;
    bool auxiliaryDigit = false;
    int minimumDecimals = 0;
    int reducedDigits = 0;
    QString parameterSet;    ///< The set of weighing parameters in force, in words.
    QString parameterValues; ///< Its values.

    friend bool operator==(const BenchUnitsState& a, const BenchUnitsState& b)
    {
        return a.offered == b.offered && a.mainUnit == b.mainUnit && a.smallUnit == b.smallUnit
               && a.approvedUnitsOnly == b.approvedUnitsOnly && a.caratAllowed == b.caratAllowed
               && a.auxiliaryDigit == b.auxiliaryDigit && a.minimumDecimals == b.minimumDecimals
               && a.reducedDigits == b.reducedDigits && a.parameterSet == b.parameterSet
               && a.parameterValues == b.parameterValues;
    }
};

/// The units page of the bench ("bench.units"). The host sets the state; what the person touches comes as a request,
/// and the state shows what became of it.
class BenchUnitsModel : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(BenchUnitsModel)

    Q_PROPERTY(QStringList offered READ offered NOTIFY changed)
    Q_PROPERTY(QString mainUnit READ mainUnit NOTIFY changed)
    Q_PROPERTY(QString smallUnit READ smallUnit NOTIFY changed)
    Q_PROPERTY(bool approvedUnitsOnly READ approvedUnitsOnly NOTIFY changed)
    Q_PROPERTY(bool caratAllowed READ caratAllowed NOTIFY changed)
    Q_PROPERTY(bool auxiliaryDigit READ auxiliaryDigit NOTIFY changed)
    Q_PROPERTY(int minimumDecimals READ minimumDecimals NOTIFY changed)
    Q_PROPERTY(int reducedDigits READ reducedDigits NOTIFY changed)
    Q_PROPERTY(QString parameterSet READ parameterSet NOTIFY changed)
    Q_PROPERTY(QString parameterValues READ parameterValues NOTIFY changed)

public:
    explicit BenchUnitsModel(QObject* parent = nullptr)
        : QObject(parent)
    {
    }

    QStringList offered() const { return m_state.offered; }
    QString mainUnit() const { return m_state.mainUnit; }
    QString smallUnit() const { return m_state.smallUnit; }
    bool approvedUnitsOnly() const { return m_state.approvedUnitsOnly; }
    bool caratAllowed() const { return m_state.caratAllowed; }
    bool auxiliaryDigit() const { return m_state.auxiliaryDigit; }
    int minimumDecimals() const { return m_state.minimumDecimals; }
    int reducedDigits() const { return m_state.reducedDigits; }
    QString parameterSet() const { return m_state.parameterSet; }
    QString parameterValues() const { return m_state.parameterValues; }

    const BenchUnitsState& state() const { return m_state; }
    void setState(const BenchUnitsState& state)
    {
        if (!(state == m_state)) {
            m_state = state;
            emit changed();
        }
    }

signals:
    void changed();

    // What the person asks for.
    void mainUnitRequested(const QString& name);
    void approvedUnitsOnlyRequested(bool on);
    void caratAllowedRequested(bool on);
    void auxiliaryDigitRequested(bool on);
    void minimumDecimalsRequested(int decimals);
    void reducedDigitsRequested(int digits);
    /// "standard", "msw", or "system" to restore the user's own.
    void parameterSetRequested(const QString& set);

private:
    BenchUnitsState m_state;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_BENCHUNITSMODEL_H
