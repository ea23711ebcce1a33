// SPDX-License-Identifier: BSD-3-Clause
#include "app/DisplayText.h"

#include "ui/InstrumentModel.h"

#include <QCoreApplication>
#include <QVariant>

namespace Brimvale
{
namespace Terminal
{

DisplayText DisplayText::of(const InstrumentModel& instrument)
{
    const QObject* const display = instrument.display();
    DisplayText text;
    if (!display || !display->property("allVisible").toBool())
        return text;
    QString error = display->property("errorText").toString();
    // As the screen does: without a connection an application's last value is none.
    if (error.isEmpty() && !instrument.sourceOk())
        error = QCoreApplication::translate("MainDisplay", "No connection to the scale");
    if (!error.isEmpty()) {
        text.value = error;
        text.error = true;
        return text;
    }
    if (display->property("messwertVisible").toBool()) {
        const QString unit = display->property("unit").toString();
        text.value = display->property("messwert").toString();
        if (!text.value.isEmpty() && !unit.isEmpty())
            text.value += QLatin1Char(' ') + unit;
    }
    text.stable =
        display->property("stabilityVisible").toBool() && display->property("stabilityValue").toInt() > 0;
    text.net = display->property("netVisible").toBool();
    text.coarse = display->property("isGrobRange").toBool();
    const QObject* small = display;
    if (!small->property("messwertKleinVisible").toBool())
        small = instrument.terminalDisplay();
    if (small && small->property("messwertKleinVisible").toBool()) {
        text.small = small->property("messwertKlein").toString();
        const QString unit = small->property("unitKlein").toString();
        if (!text.small.isEmpty() && !unit.isEmpty())
            text.small += QLatin1Char(' ') + unit;
    }
    return text;
}

QString DisplayText::line() const
{
    if (value.isEmpty())
        return QStringLiteral("nothing");
    QString line = value;
    if (!error)
        line += stable ? QStringLiteral("  stable") : QStringLiteral("  unstable");
    if (net)
        line += QStringLiteral("  net");
    return line;
}

} // namespace Terminal
} // namespace Brimvale
