// SPDX-License-Identifier: BSD-3-Clause
#include "UnitsList.h"

#include "IApprovedMode.h"
#include "core/Logging.h"

#include <limits>

namespace Brimvale
{

namespace
{

UnitDef defaultGram()
{
    const QString gram = QStringLiteral("g");
    return UnitDef(gram, gram, 1.0, 4, 1, false, UnitDef::Gram);
}

} // namespace

UnitsList::UnitsList(QObject* parent, int decimals)
    : QObject(parent)
    , m_referenceUnit(defaultGram())
{
    InitFixUnits(decimals);
}

UnitsList::~UnitsList()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

QStringList UnitsList::getUnitNames(IApprovedMode* mode, int minDecimals, int enableMask)
{
    QStringList names;
    // A copy: the host may rebuild the list while it is asked.
    const QMap<QString, UnitDef> units = m_units;
    for (UnitDef unit : units) {
        bool offered = true;
        if (mode->IsModeActive(IApprovedMode::ApprovedUnitsOnly)) {
            offered = isApprovedUnit(unit, mode, minDecimals);
        }
        if (mode->IsModeActive(IApprovedMode::CaratAllowed) && unit.name() == QLatin1String("ct")) {
            offered = true;
        }
        if (offered && unit.CheckEnableFlag(enableMask)) {
            names.append(unit.name());
        }
    }
    names.sort(Qt::CaseInsensitive);
    return names;
}

QStringList UnitsList::getApprovedUnitNames(IApprovedMode* mode, int minDecimals)
{
    QStringList names;
    const QMap<QString, UnitDef> units = m_units;
    for (const UnitDef& unit : units) {
        if (isApprovedUnit(unit, mode, minDecimals)) {
            names.append(unit.name());
        }
    }
    names.sort(Qt::CaseInsensitive);
    return names;
}

bool UnitsList::getUnitByName(const QString& name, UnitDef& out)
{
    const auto unit = m_units.constFind(name);
    if (unit == m_units.constEnd()) {
        return false;
    }
    out = unit.value();
    return true;
}

UnitDef UnitsList::getUnitByName(const QString& name)
{
    const auto unit = m_units.constFind(name);
    return unit == m_units.constEnd() ? defaultGram() : unit.value();
}

bool UnitsList::UnitListContainsName(QString name)
{
    return m_units.contains(name);
}

void UnitsList::setReferenzUnit(QString name)
{
    if (!UnitListContainsName(name)) {
        return;
    }
    // A list of its own may know names that this map does not hold; they read as the gram.
    m_referenceUnit = m_units.value(name, defaultGram());
    emit notifyReferenceUnitChanged(name);
}

UnitDef UnitsList::getReferenzUnit()
{
    return m_referenceUnit;
}

QString UnitsList::getReferenzUnitName()
{
    return m_referenceUnit.name();
}

void UnitsList::InitFixUnits(int decimals)
{
    if (decimals < 0) {
        BRIMVALE_LOG_WARN("UnitsList::InitFixUnits, cannot intialize fix units with negative koma.");
        return;
    }
    m_units.clear();

    const auto insert = [this](const char* name, const char* printName, double factor, bool isInverse,
                               int format, int rounding, UnitDef::UnitEnableFlag enableFlag) {
        const QString key = QLatin1String(name);
        m_units.insert(
            key, UnitDef(key, QLatin1String(printName), factor, format, rounding, isInverse, enableFlag));
    };
    // The largest format is then that of a count of decimals too large to be one.
    const int k = qMin(decimals, std::numeric_limits<int>::max() - 3);
    // Units per gram, or grams per unit where inverted.
    insert("g", "g", 1.0, false, k, 1, UnitDef::Gram);
    if (k > 2) {
        insert("mg", "mg", 1000.0, false, k - 3, 1, UnitDef::Milligram);
    }
    if (k <= 4) {
        insert("kg", "kg", 0.001, false, k + 3, 1, UnitDef::Kilogram);
    }
    insert("GN", "GN", 15.43235835, false, k - 1, 1, UnitDef::Grain);
    insert("dwt", "dwt", 0.643014931, false, k, 1, UnitDef::Pennyweight);
    insert("ozt", "ozt", 0.0321507466, false, k + 1, 1, UnitDef::TroyOunce);
    insert("oz", "oz", 0.0352739619, false, k + 1, 1, UnitDef::Ounce);
    insert("lb", "lb", 0.00220462262, false, k + 3, 1, UnitDef::Pound);
    insert("ct", "ct", 5.0, false, k, 5, UnitDef::Carat);
    insert("C.M.", "C.M.", 5.0, false, k, 5, UnitDef::MetricCarat);
    insert("tlh", "tlh", 0.0267172513, false, k + 1, 1, UnitDef::TaelHongKong);
    insert("tls", "tls", 0.02645547, false, k + 1, 1, UnitDef::TaelSingapore);
    insert("tlt", "tlt", 0.0266666667, false, k + 1, 1, UnitDef::TaelTaiwan);
    insert("mom", "mom", 0.266666667, false, k, 1, UnitDef::Momme);
    insert("tola", "tola", 11.6638038, true, k + 1, 1, UnitDef::Tola);
    insert("bht", "baht", 15.2, true, k + 1, 1, UnitDef::Baht);
}

bool UnitsList::isApprovedUnit(UnitDef unit, IApprovedMode* mode, int minDecimals)
{
    const QString name = unit.name();
    if (name != QLatin1String("g") && name != QLatin1String("mg") && name != QLatin1String("kg")) {
        return false;
    }
    if (mode->IsModeActive(IApprovedMode::MinimumDecimals)
        || mode->IsModeActive(IApprovedMode::MinimumDecimalsExtended)) {
        return unit.format() >= minDecimals;
    }
    return true;
}

} // namespace Brimvale
