// SPDX-License-Identifier: BSD-3-Clause
#include "host/Notices.h"

namespace Brimvale
{
namespace Terminal
{

Notices::Notices(QObject* parent)
    : QObject(parent)
{
    qRegisterMetaType<Brimvale::Terminal::NoticeSeverity>();
}

void Notices::post(NoticeSeverity severity, const QString& text)
{
    if (!text.isEmpty()) {
        emit posted(severity, text);
    }
}

void Notices::postPluginFault(const QString& text)
{
    // A text that is another one each time must not fill the memory either.
    const bool isOneTooMany = !m_pluginFaults.contains(text) && m_pluginFaults.size() >= MaximumPluginFaults;
    const QString told =
        isOneTooMany ? tr("The application fails again and again; further faults are only counted.") : text;
    const int count = ++m_pluginFaults[told];
    if (count == 1) {
        post(NoticeSeverity::Error, told);
    }
    emit pluginFault(told, count);
}

void Notices::forgetPluginFaults()
{
    m_pluginFaults.clear();
}

} // namespace Terminal
} // namespace Brimvale
