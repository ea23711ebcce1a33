// SPDX-License-Identifier: BSD-3-Clause
#include "app/GuardedApplication.h"

#include "app/QmlGuard.h"
#include "host/PluginGuard.h"

#include <QPointer>

namespace Brimvale
{
namespace Terminal
{

GuardedApplication::GuardedApplication(int& argc, char** argv)
    : QGuiApplication(argc, argv)
{
    QmlGuard::setReport([this](QObject* object, const QString& exception) { report(object, exception); });
}

GuardedApplication::~GuardedApplication()
{
    QmlGuard::setReport({});
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event)
{
    const RunningCode running(receiver->metaObject()->className(), codeOf(receiver));
    const QPointer<QObject> guarded(receiver);
    bool accepted = false;
    const auto exception = exceptionOf([&] { accepted = QGuiApplication::notify(receiver, event); });
    if (!exception)
        return accepted;
    report(guarded, *exception);
    return true;
}

void GuardedApplication::report(QObject* object, const QString& exception)
{
    QString name = QStringLiteral("an object that is gone");
    if (object) {
        name = QString::fromLatin1(object->metaObject()->className());
        if (!object->objectName().isEmpty())
            name += QStringLiteral(" \"%1\"").arg(object->objectName());
    }
    emit exceptionCaught(name, exception, object);
}

} // namespace Terminal
} // namespace Brimvale
