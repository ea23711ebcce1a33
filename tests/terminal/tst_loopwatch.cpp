// SPDX-License-Identifier: BSD-3-Clause
//
// The watch of the event loop and the event loop, each on its thread.
#include "app/LoopWatch.h"
#include "host/RunningCode.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>
#include <QThread>
#include <QtTest>

#include <TestKit/LogCapture.h>

using namespace Brimvale::Terminal;
using Brimvale::TestKit::LogCapture;

namespace
{

constexpr int LimitMs = 50;

/// Holds up the event loop until the log has said so of @p what @p times times. On a slow machine it may say so of other
/// things before.
void holdUp(const char* what, const QObject* object, int times)
{
    LogCapture log(QsLogging::WarnLevel);
    const RunningCode running(what, codeOf(object));
    const QRegularExpression line(
        QStringLiteral(" by %1 in .*libQt5Core").arg(QRegularExpression::escape(QLatin1String(what))));
    while (log.lines().filter(line).size() < times)
        QThread::msleep(1);
}

} // namespace

class TestLoopWatch : public QObject
{
    Q_OBJECT

private slots:
    void tellsWhatHoldsUpTheLoop();
    void tellsOfTheNextOne();
    void endsWithoutWaitingForItsNextLook();
};

void TestLoopWatch::tellsWhatHoldsUpTheLoop()
{
    LoopWatch watch(LimitMs);
    QStringList told;
    connect(&watch, &LoopWatch::blocked, this,
            [&told](const QString& what, const QString& library, qint64 ms) {
                QVERIFY(ms >= LimitMs);
                told.append(QStringLiteral("%1 in %2").arg(what, QFileInfo(library).fileName()));
            });
    const QObject object;
    holdUp("StartPlugin()", &object, 3);
    QCOMPARE(told, QStringList());
    QTRY_VERIFY(told.contains(QStringLiteral("StartPlugin() in libQt5Core.so.5")));
}

void TestLoopWatch::tellsOfTheNextOne()
{
    LoopWatch watch(LimitMs);
    QStringList told;
    connect(&watch, &LoopWatch::blocked, this, [&told](const QString& what) { told.append(what); });
    const QObject object;
    holdUp("StartPlugin()", &object, 1);
    QTRY_VERIFY(told.contains(QStringLiteral("StartPlugin()")));
    holdUp("ClosePlugin()", &object, 1);
    QTRY_VERIFY(told.contains(QStringLiteral("ClosePlugin()")));
}

void TestLoopWatch::endsWithoutWaitingForItsNextLook()
{
    {
        // It would look again after six minutes, when the test has long been ended.
        const LoopWatch watch(3600000);
        RunningCode::setIdle(true);
    }
    QVERIFY(!RunningCode::state().idle);
}

QTEST_GUILESS_MAIN(TestLoopWatch)

#include "tst_loopwatch.moc"
