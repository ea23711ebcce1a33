// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WINDOWSCREEN_H
#define BRIMVALE_WINDOWSCREEN_H

#include "host/ScreenHost.h"

namespace Brimvale
{
namespace Terminal
{

class InstrumentModel;
class TerminalWindow;

/// Shows the screens of plug-ins in the application area of the terminal's window.
class WindowScreen : public ScreenHost
{
public:
    /// Nothing is owned; both must outlive the object.
    WindowScreen(InstrumentModel& instrument, TerminalWindow& window);

    void setContextObject(const QString& name, QObject* object) override;
    /// InstrumentModel::screenLoaded() tells the outcome.
    void showScreen(const QUrl& screen) override;
    void clearScreen() override;

private:
    InstrumentModel& m_instrument;
    TerminalWindow& m_window;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_WINDOWSCREEN_H
