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
    if (!m_pluginFaults.contains(text)) {
        m_pluginFaults.insert(text);
        post(NoticeSeverity::Error, text);
    }
}

void Notices::forgetPluginFaults()
{
    m_pluginFaults.clear();
}

} // namespace Terminal
} // namespace Brimvale
