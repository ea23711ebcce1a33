// SPDX-License-Identifier: BSD-3-Clause
#include "loading/Leftovers.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QMap>
#include <QObject>
#include <QThread>
#include <QTimer>
#include <QVector>
#include <QWindow>

#include <mutex>
#include <unordered_map>

// The table by which Qt tells debugging tools of its objects; its layout is versioned.
extern Q_CORE_EXPORT quintptr qtHookData[];

namespace Brimvale
{
namespace Terminal
{
namespace
{

enum Hook
{
    HookDataSize = 1,
    AddQObject = 3,
    RemoveQObject = 4
};
using Callback = void (*)(QObject*);

Callback s_outerAdd = nullptr;
Callback s_outerRemove = nullptr;
std::recursive_mutex s_mutex; // objects are made by any thread
int s_start = 0;              ///< The start of the plug-in that is at work; 0: none is.

/// The objects made since, each with its start. Never destroyed: exit() leaves the hooks in, and objects still go.
std::unordered_map<QObject*, int>& madeObjects()
{
    static auto& objects = *new std::unordered_map<QObject*, int>;
    return objects;
}

void onAdded(QObject* object)
{
    {
        const std::lock_guard<std::recursive_mutex> lock(s_mutex);
        if (s_start != 0)
            madeObjects().emplace(object, s_start);
    }
    if (s_outerAdd)
        s_outerAdd(object);
}

void onRemoved(QObject* object)
{
    {
        const std::lock_guard<std::recursive_mutex> lock(s_mutex);
        madeObjects().erase(object);
    }
    if (s_outerRemove)
        s_outerRemove(object);
}

bool hasHooks()
{
    return qtHookData[HookDataSize] > RemoveQObject;
}

Callback callbackOf(Hook hook)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): Qt keeps the addresses as numbers
    return reinterpret_cast<Callback>(qtHookData[hook]);
}

/// The object as an author knows it: class, and name when it has one.
QString described(const QObject* object)
{
    const QString name = object->objectName();
    const QString type = QString::fromLatin1(object->metaObject()->className());
    return name.isEmpty() ? type : type + QStringLiteral(" \"%1\"").arg(name);
}

/// What an object does, of itself and without being called; empty: nothing.
QString workOf(QObject* object, bool isOwn)
{
    if (const auto* const thread = qobject_cast<QThread*>(object)) {
        // The threads of Qt's pool end by themselves.
        const bool isPlain = isOwn || thread->metaObject() == &QThread::staticMetaObject;
        return isPlain && thread->isRunning() ? QStringLiteral("thread %1").arg(described(object))
                                              : QString();
    }
    if (const auto* const window = qobject_cast<QWindow*>(object))
        return window->isVisible() ? QStringLiteral("window %1").arg(described(object)) : QString();
    if (!isOwn && object->metaObject() != &QTimer::staticMetaObject)
        return QString();
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(object);
    return timers.isEmpty() ? QString()
                            : QStringLiteral("timer %1 of %2 ms")
                                  .arg(described(object), QString::number(timers.first().interval));
}

} // namespace

Leftovers::Leftovers()
{
    if (!hasHooks())
        return;
    s_outerAdd = callbackOf(AddQObject);
    s_outerRemove = callbackOf(RemoveQObject);
    qtHookData[AddQObject] = reinterpret_cast<quintptr>(&onAdded);
    qtHookData[RemoveQObject] = reinterpret_cast<quintptr>(&onRemoved);
}

Leftovers::~Leftovers()
{
    if (!hasHooks())
        return;
    qtHookData[AddQObject] = reinterpret_cast<quintptr>(s_outerAdd);
    qtHookData[RemoveQObject] = reinterpret_cast<quintptr>(s_outerRemove);
    const std::lock_guard<std::recursive_mutex> lock(s_mutex);
    s_start = 0;
    madeObjects().clear();
}

int Leftovers::begin()
{
    const std::lock_guard<std::recursive_mutex> lock(s_mutex);
    s_start = ++m_starts;
    return s_start;
}

void Leftovers::end()
{
    const std::lock_guard<std::recursive_mutex> lock(s_mutex);
    s_start = 0;
}

Remains Leftovers::of(int number, const std::function<bool(const QObject*)>& isOwn)
{
    // Held until the end, so that no object of another thread goes meanwhile. That thread may be in its constructor
    // or destructor, though, so it must not be looked at.
    const std::lock_guard<std::recursive_mutex> lock(s_mutex);
    QVector<QObject*> objects;
    for (const auto& [object, start] : madeObjects()) {
        if (start == number && object->thread() == QThread::currentThread())
            objects.append(object);
    }
    Remains remains;
    QMap<QString, int> idle;
    for (QObject* const object : qAsConst(objects)) {
        const bool own = isOwn(object);
        if (!own && object->parent() != nullptr)
            continue;
        const QString work = workOf(object, own);
        if (!work.isEmpty())
            remains.working.append(work);
        else if (own)
            ++idle[QString::fromLatin1(object->metaObject()->className())];
    }
    remains.working.sort();
    for (auto type = idle.cbegin(); type != idle.cend(); ++type)
        remains.objects.append(QStringLiteral("%1 %2").arg(*type).arg(type.key()));
    return remains;
}

} // namespace Terminal
} // namespace Brimvale
