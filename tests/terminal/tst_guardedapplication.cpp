// SPDX-License-Identifier: BSD-3-Clause
#include "app/GuardedApplication.h"
#include "host/RunningCode.h"

#include <QSignalSpy>
#include <QThread>
#include <QTimer>
#include <QtTest>

#include <stdexcept>

using Brimvale::Terminal::GuardedApplication;
using Brimvale::Terminal::RunningCode;

namespace
{

/// An object whose event handler fails.
class Failing : public QObject
{
    Q_OBJECT

public:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::User)
            throw std::runtime_error("the event failed");
        if (event->type() == QEvent::User + 1) {
            delete this;
            throw 5;
        }
        return QObject::event(event);
    }
};

GuardedApplication& application()
{
    return *static_cast<GuardedApplication*>(QCoreApplication::instance());
}

} // namespace

class TestGuardedApplication : public QObject
{
    Q_OBJECT

private slots:
    void exceptionOfAnEventHandler();
    void nameOfTheObject();
    void objectThatIsGone();
    void queuedSlotAndTimer_data();
    void queuedSlotAndTimer();
    void theLoopGoesOn();
    void otherEventsKeepTheirResult();
    void eventOfAnotherThreadIsNotWhatTheLoopExecutes();
    void exceptionInAnotherThread();
};

void TestGuardedApplication::exceptionOfAnEventHandler()
{
    QSignalSpy spy(&application(), &GuardedApplication::exceptionCaught);
    Failing object;
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&object, &event);
    QCOMPARE(spy.size(), 1);
    QVERIFY(spy.at(0).at(0).toString().contains(QLatin1String("Failing")));
    QVERIFY2(spy.at(0).at(1).toString().contains(QLatin1String("the event failed")),
             qPrintable(spy.at(0).at(1).toString()));
}

void TestGuardedApplication::nameOfTheObject()
{
    QSignalSpy spy(&application(), &GuardedApplication::exceptionCaught);
    Failing object;
    object.setObjectName(QStringLiteral("poller"));
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&object, &event);
    QVERIFY(spy.at(0).at(0).toString().endsWith(QLatin1String(" \"poller\"")));
}

void TestGuardedApplication::objectThatIsGone()
{
    QSignalSpy spy(&application(), &GuardedApplication::exceptionCaught);
    QCoreApplication::postEvent(new Failing, new QEvent(static_cast<QEvent::Type>(QEvent::User + 1)));
    QCoreApplication::processEvents();
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("an object that is gone"));
}

void TestGuardedApplication::queuedSlotAndTimer_data()
{
    QTest::addColumn<bool>("timer");
    QTest::newRow("queued slot") << false;
    QTest::newRow("timer") << true;
}

void TestGuardedApplication::queuedSlotAndTimer()
{
    QFETCH(bool, timer);
    QSignalSpy spy(&application(), &GuardedApplication::exceptionCaught);
    QObject object;
    const auto fail = [] { throw std::logic_error("wrong"); };
    if (timer)
        QTimer::singleShot(0, &object, fail);
    else
        QMetaObject::invokeMethod(&object, fail, Qt::QueuedConnection);
    QTRY_COMPARE(spy.size(), 1);
    QVERIFY(spy.at(0).at(1).toString().contains(QLatin1String("wrong")));
}

void TestGuardedApplication::theLoopGoesOn()
{
    QSignalSpy spy(&application(), &GuardedApplication::exceptionCaught);
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [] { throw std::runtime_error("first"); });
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
    QCOMPARE(spy.size(), 1);
}

void TestGuardedApplication::otherEventsKeepTheirResult()
{
    QSignalSpy spy(&application(), &GuardedApplication::exceptionCaught);
    QObject object;
    QEvent unknown(QEvent::WhatsThis);
    QVERIFY(!QCoreApplication::sendEvent(&object, &unknown));
    QCOMPARE(spy.size(), 0);
}

void TestGuardedApplication::eventOfAnotherThreadIsNotWhatTheLoopExecutes()
{
    QThread thread;
    QObject object;
    object.moveToThread(&thread);
    thread.start();
    RunningCode::State before;
    RunningCode::State seen;
    {
        const RunningCode running("StartPlugin()");
        before = RunningCode::state();
        QMetaObject::invokeMethod(
            &object, [&seen] { seen = RunningCode::state(); }, Qt::BlockingQueuedConnection);
    }
    thread.quit();
    QVERIFY(thread.wait());
    QCOMPARE(QByteArray(seen.what), QByteArray("StartPlugin()"));
    QCOMPARE(seen.beat, before.beat);
}

void TestGuardedApplication::exceptionInAnotherThread()
{
    QObject context;
    QString receiver;
    QString exception;
    QObject* told = &context;
    connect(&application(), &GuardedApplication::exceptionCaught, &context,
            [&](const QString& name, const QString& text, QObject* object) {
                receiver = name;
                exception = text;
                told = object;
            });
    QThread thread;
    Failing object;
    object.moveToThread(&thread);
    QCoreApplication::postEvent(&object, new QEvent(QEvent::User));
    thread.start();
    QTRY_VERIFY(!exception.isEmpty());
    thread.quit();
    QVERIFY(thread.wait());
    QVERIFY2(exception.contains(QLatin1String("the event failed")), qPrintable(exception));
    QVERIFY2(receiver.contains(QLatin1String("Failing")), qPrintable(receiver));
    QVERIFY(told == nullptr);
}

int main(int argc, char** argv)
{
    GuardedApplication application(argc, argv);
    TestGuardedApplication test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_guardedapplication.moc"
