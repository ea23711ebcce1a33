// SPDX-License-Identifier: BSD-3-Clause
//
// What is found of the objects that were made, while other threads make and destroy theirs.
#include "loading/Leftovers.h"

#include <QThread>
#include <QTimer>
#include <QtTest>

#include <array>
#include <atomic>
#include <memory>
#include <thread>

using namespace Brimvale::Terminal;

namespace
{

/// A class of the plug-in: what lies behind the vtable of QObject.
class Own : public QObject
{
    Q_OBJECT
};

bool isOwn(const QObject* object)
{
    return qobject_cast<const Own*>(object) != nullptr;
}

} // namespace

class TestLeftovers : public QObject
{
    Q_OBJECT

private slots:
    void findsObjectsAndTimers();
    void forgetsWhatIsDestroyed();
    void leavesOutObjectsOfAnotherThread();
    void otherThreadsMakeObjectsMeanwhile();
};

void TestLeftovers::findsObjectsAndTimers()
{
    Leftovers leftovers;
    const Own before;
    const int start = leftovers.begin();
    const Own first;
    const Own second;
    QTimer timer;
    timer.setObjectName(QStringLiteral("poll"));
    timer.start(60000);
    leftovers.end();
    const Own after;
    const Remains remains = Leftovers::of(start, isOwn);
    QCOMPARE(remains.objects, QStringList{QStringLiteral("2 Own")});
    QCOMPARE(remains.working, QStringList{QStringLiteral("timer QTimer \"poll\" of 60000 ms")});
}

void TestLeftovers::forgetsWhatIsDestroyed()
{
    Leftovers leftovers;
    const int start = leftovers.begin();
    auto object = std::make_unique<Own>();
    QVERIFY(!Leftovers::of(start, isOwn).isEmpty());
    object.reset();
    QVERIFY(Leftovers::of(start, isOwn).isEmpty());
}

void TestLeftovers::leavesOutObjectsOfAnotherThread()
{
    QThread thread; // need not run: the object is no longer this thread's
    Leftovers leftovers;
    const int start = leftovers.begin();
    Own object;
    object.moveToThread(&thread);
    QCOMPARE(Leftovers::of(start, isOwn).objects, QStringList());
}

void TestLeftovers::otherThreadsMakeObjectsMeanwhile()
{
    Leftovers leftovers;
    const int start = leftovers.begin();
    const Own object;
    std::atomic<int> made{0};
    std::atomic<bool> isDone{false};
    std::thread other([&] {
        while (!isDone) {
            const std::array<Own, 100> passing;
            made += static_cast<int>(passing.size());
        }
    });
    const QStringList expected{QStringLiteral("1 Own")};
    QStringList found = expected;
    for (int i = 0; i < 1000 || made < 1000; ++i) {
        found = Leftovers::of(start, isOwn).objects;
        if (found != expected)
            break;
    }
    isDone = true;
    other.join();
    QCOMPARE(found, expected);
}

QTEST_GUILESS_MAIN(TestLeftovers)

#include "tst_leftovers.moc"
