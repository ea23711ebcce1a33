// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_BENCHMODEL_H
#define BRIMVALE_BENCHMODEL_H

#include "BenchTransferModel.h"
#include "BenchUnitsModel.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVector>

namespace Brimvale
{
namespace Terminal
{

/// The bench beside the terminal: what a person does to the scale with their hands.
///
/// It is shown by the bench panel (context property "bench"). Both sides write it: the panel when the person moves a
/// control, the host when a script or the scale itself changes something. Each setter emits its signal, with the new
/// value, only on change, so that connecting both ways makes no loop.
class BenchModel : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(BenchModel)

    /// The page that the panel shows: one of pages(). Initially "scale".
    Q_PROPERTY(QString page READ page WRITE setPage NOTIFY pageChanged)
    /// What the units page shows. Constant; its properties change.
    Q_PROPERTY(QObject* units READ unitsObject CONSTANT)
    /// What the transfer page shows. Constant; its properties change.
    Q_PROPERTY(QObject* transfer READ transferObject CONSTANT)
    /// Whether the weight source is simulated, so that weights, noise, drift and the cable are in our hands. While
    /// false those controls are disabled and the panel says why; level and calibration stay usable. Initially true.
    Q_PROPERTY(bool available READ available WRITE setAvailable NOTIFY availableChanged)
    /// Weights that can be put on, in grams, in the order shown (at most eight are shown).
    Q_PROPERTY(QVariantList weights READ weights NOTIFY weightsChanged)
    /// What lies on the scale, in grams, as the simulated load cell sees it without noise.
    Q_PROPERTY(double load READ load WRITE setLoad NOTIFY loadChanged)
    /// Capacity of the scale in grams; 0 when unknown.
    Q_PROPERTY(double capacity READ capacity WRITE setCapacity NOTIFY capacityChanged)
    /// Readability of the scale in grams, which decides the decimals of the load; 0 when unknown.
    Q_PROPERTY(double readability READ readability WRITE setReadability NOTIFY readabilityChanged)
    /// Noise of the load cell in display increments (standard deviation), 0 to maximumNoise.
    Q_PROPERTY(double noise READ noise WRITE setNoise NOTIFY noiseChanged)
    /// Upper end of the noise control, in display increments.
    Q_PROPERTY(double maximumNoise READ maximumNoise CONSTANT)
    /// Drift of the load cell in grams per minute, -maximumDrift to maximumDrift.
    Q_PROPERTY(double drift READ drift WRITE setDrift NOTIFY driftChanged)
    /// Upper end of the drift control, in grams per minute.
    Q_PROPERTY(double maximumDrift READ maximumDrift CONSTANT)
    /// Whether the cable of the load cell is plugged in. Initially true.
    Q_PROPERTY(bool connected READ connected WRITE setConnected NOTIFY connectedChanged)
    /// Where the bubble of the level stands, to the right of the centre, -1 to 1 of the vial's radius.
    Q_PROPERTY(double levelX READ levelX NOTIFY bubbleMoved)
    /// Where the bubble of the level stands, below the centre, -1 to 1 of the vial's radius.
    Q_PROPERTY(double levelY READ levelY NOTIFY bubbleMoved)
    /// Whether the bubble stands within the ring, so that the scale is level. Initially true.
    Q_PROPERTY(bool level READ level WRITE setLevel NOTIFY levelChanged)
    /// Radius of the vial's ring, as a part of the vial's radius.
    Q_PROPERTY(double levelRing READ levelRing CONSTANT)
    /// Whether the calibration is due. Initially false.
    Q_PROPERTY(bool calibrationDue READ calibrationDue WRITE setCalibrationDue NOTIFY calibrationDueChanged)
    /// The printer, a PrinterModel; null: there is none.
    Q_PROPERTY(QObject* printer READ printer NOTIFY printerChanged)
    /// Why plug-ins could not be loaded or started: one text per fault, shown in a panel.
    Q_PROPERTY(QStringList pluginFaults READ pluginFaults WRITE setPluginFaults NOTIFY pluginFaultsChanged)

public:
    static constexpr double MaximumNoise = 5.0;  ///< In display increments.
    static constexpr double MaximumDrift = 10.0; ///< In grams per minute.

    explicit BenchModel(QObject* parent = nullptr);

    /// The names of the pages, in the order of their tabs: "scale", "units", "transfer", "printer".
    static QStringList pages();

    BenchUnitsModel& units() { return m_units; }
    BenchTransferModel& transfer() { return m_transfer; }

    QString page() const;
    bool available() const;
    QVariantList weights() const;
    double load() const;
    double capacity() const;
    double readability() const;
    double noise() const;
    double maximumNoise() const;
    double drift() const;
    double maximumDrift() const;
    bool connected() const;
    double levelX() const;
    double levelY() const;
    bool level() const;
    double levelRing() const;
    bool calibrationDue() const;
    QObject* printer() const;
    QStringList pluginFaults() const;

    /// Shows a page; a name that is none of pages() changes nothing.
    void setPage(const QString& page);
    void setAvailable(bool available);
    /// Replaces the weights on offer; those that are not above 0 and finite are left out.
    void setWeights(const QVector<double>& grams);
    /// Sets the load; a value that is not finite counts as 0.
    void setLoad(double grams);
    /// Sets the capacity and offers weights that suit it: the eight largest of the 1-2-5 series up to the capacity,
    /// ascending. A value that is negative or not finite counts as 0 (unknown), which leaves the weights as they are.
    void setCapacity(double grams);
    /// Sets the readability; a value that is negative or not finite counts as 0.
    void setReadability(double grams);
    /// Sets the noise, limited to its range; NaN counts as 0.
    void setNoise(double increments);
    /// Sets the drift, limited to its range; NaN counts as 0.
    void setDrift(double gramsPerMinute);
    void setConnected(bool connected);
    /// Moves the bubble; a position outside the vial is moved to its wall, NaN counts as 0. Emits bubbleMoved() and,
    /// when the bubble enters or leaves the ring, levelChanged().
    Q_INVOKABLE void moveBubble(double x, double y);
    /// Levels the scale (bubble to the centre) or tilts it (bubble clearly outside the ring); nothing moves when the
    /// scale already is as asked.
    void setLevel(bool level);
    void setCalibrationDue(bool due);
    /// @param printer not owned.
    void setPrinter(QObject* printer);
    void setPluginFaults(const QStringList& faults);

signals:
    // What the person does with the weights; the host answers with setLoad().
    /// A weight of \a grams is put on the scale.
    void putOn(double grams);
    /// A weight of \a grams is taken off the scale.
    void takeOff(double grams);
    /// Everything is taken off the scale.
    void clear();

    // Changes of the properties, by the person or by the host.
    void pageChanged(const QString& page);
    void availableChanged(bool available);
    void weightsChanged();
    void loadChanged(double grams);
    void capacityChanged(double grams);
    void readabilityChanged(double grams);
    void noiseChanged(double increments);
    void driftChanged(double gramsPerMinute);
    void connectedChanged(bool connected);
    void bubbleMoved(double x, double y);
    void levelChanged(bool level);
    void calibrationDueChanged(bool due);
    void printerChanged();
    void pluginFaultsChanged();

private:
    QObject* unitsObject() { return &m_units; }
    QObject* transferObject() { return &m_transfer; }

    BenchUnitsModel m_units;
    BenchTransferModel m_transfer;
    QString m_page = pages().constFirst();
    bool m_available = true;
    QVector<double> m_weights;
    double m_load = 0.0;
    double m_capacity = 0.0;
    double m_readability = 0.0;
    double m_noise = 0.0;
    double m_drift = 0.0;
    bool m_connected = true;
    double m_levelX = 0.0;
    double m_levelY = 0.0;
    bool m_calibrationDue = false;
    QPointer<QObject> m_printer;
    QStringList m_pluginFaults;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_BENCHMODEL_H
