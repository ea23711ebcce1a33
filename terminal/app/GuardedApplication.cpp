// SPDX-License-Identifier: BSD-3-Clause
#include "app/GuardedApplication.h"

#include "app/QmlGuard.h"
#include "host/PluginGuard.h"

#include <QPointer>
#include <QThread>

#include <optional>

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
    // The events of every thread come here.
    std::optional<RunningCode> running;
    if (QThread::currentThread() == thread())
        running.emplace(receiver->metaObject()->className(), codeOf(receiver));
    const QPointer<QObject> guarded(receiver);
    bool accepted = false;
    const auto exception = exceptionOf([&] { accepted = QGuiApplication::notify(receiver, event); });
    if (!exception)
        return accepted;
    report(guarded, *exception);
    return true;
}

bool GuardedApplication::event(QEvent* event)
{
    if (event->type() == QEvent::Quit)
        emit sessionEnds();
    return QGuiApplication::event(event);
}

void GuardedApplication::report(QObject* object, const QString& exception)
{
    QString name = QStringLiteral("an object that is gone");
    if (object) {
        name = QString::fromLatin1(object->metaObject()->className());
        if (!object->objectName().isEmpty())
            name += QStringLiteral(" \"%1\"").arg(object->objectName());
    }
    // Whoever is told later must not use an object that its own thread may delete meanwhile.
    emit exceptionCaught(name, exception, QThread::currentThread() == thread() ? object : nullptr);
}

} // namespace Terminal
} // namespace Brimvale
