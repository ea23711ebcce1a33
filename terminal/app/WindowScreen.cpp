// SPDX-License-Identifier: BSD-3-Clause
#include "app/WindowScreen.h"

#include "ui/InstrumentModel.h"
#include "ui/TerminalWindow.h"

namespace Brimvale
{
namespace Terminal
{

WindowScreen::WindowScreen(InstrumentModel& instrument, TerminalWindow& window)
    : m_instrument(instrument)
    , m_window(window)
{
}

void WindowScreen::setContextObject(const QString& name, QObject* object)
{
    m_window.setContextObject(name, object);
}

void WindowScreen::showScreen(const QUrl& screen)
{
    // The same screen again is loaded anew.
    m_instrument.setPluginScreen(QUrl());
    m_instrument.setPluginScreen(screen);
}

void WindowScreen::clearScreen()
{
    m_window.clearPluginScreen();
}

} // namespace Terminal
} // namespace Brimvale
