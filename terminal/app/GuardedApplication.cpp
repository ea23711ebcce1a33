// SPDX-License-Identifier: BSD-3-Clause
#include "app/GuardedApplication.h"

#include "host/PluginGuard.h"

#include <QPointer>

namespace Brimvale
{
namespace Terminal
{

GuardedApplication::GuardedApplication(int& argc, char** argv)
    : QGuiApplication(argc, argv)
{
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event)
{
    const QPointer<QObject> guarded(receiver);
    bool accepted = false;
    const auto exception = exceptionOf([&] { accepted = QGuiApplication::notify(receiver, event); });
    if (!exception)
        return accepted;
    QString name = QStringLiteral("an object that is gone");
    if (guarded) {
        name = QString::fromLatin1(guarded->metaObject()->className());
        if (!guarded->objectName().isEmpty())
            name += QStringLiteral(" \"%1\"").arg(guarded->objectName());
    }
    emit exceptionCaught(name, *exception);
    return true;
}

} // namespace Terminal
} // namespace Brimvale
