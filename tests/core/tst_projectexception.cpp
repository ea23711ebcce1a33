// SPDX-License-Identifier: BSD-3-Clause

#include "LogRecorder.h"
#include "ProjectException.h"

#include <QFuture>
#include <QFutureInterface>
#include <QtTest>

#include <cstring>
#include <memory>
#include <thread>

using Brimvale::ProjectException;

namespace
{

QString destructorLine(const void* object)
{
    return QStringLiteral("TRACE Running destructor ->  0x%1 ").arg(quintptr(object), 0, 16);
}

} // namespace

class TestProjectException : public QObject
{
    Q_OBJECT

private slots:
    void storesTheMessage_data();
    void storesTheMessage();
    void whatIsThatOfTheStandardException();
    void raiseThrowsACopy();
    void raiseThrowsItsOwnTypeFromTheBaseClass();
    void cloneIsAnOwnObjectOfTheSameType();
    void copiesAreIndependent();
    void canBeCaughtAs_data();
    void canBeCaughtAs();
    void isRethrownInAnotherThread();
    void travelsThroughAFuture();
    void destructorIsTraced();
    void everyCopyIsTraced();
    void destructorIsSilentAboveTrace_data();
    void destructorIsSilentAboveTrace();
};

void TestProjectException::storesTheMessage_data()
{
    QTest::addColumn<QString>("message");

    QTest::newRow("empty") << QString();
    QTest::newRow("plain") << QStringLiteral("header mismatch");
    QTest::newRow("not ASCII") << QStringLiteral("Größe µg");
}

void TestProjectException::storesTheMessage()
{
    QFETCH(QString, message);
    QCOMPARE(ProjectException(message).Message(), message);
}

void TestProjectException::whatIsThatOfTheStandardException()
{
    const ProjectException exception(QStringLiteral("header mismatch"));
    QCOMPARE(exception.what(), std::exception().what());
}

void TestProjectException::raiseThrowsACopy()
{
    const ProjectException exception(QStringLiteral("header mismatch"));
    bool caught = false;
    try {
        exception.raise();
    } catch (const ProjectException& thrown) {
        caught = true;
        QVERIFY(&thrown != &exception);
        QCOMPARE(thrown.Message(), exception.Message());
    }
    QVERIFY(caught);
}

void TestProjectException::raiseThrowsItsOwnTypeFromTheBaseClass()
{
    const ProjectException exception(QStringLiteral("header mismatch"));
    const QException& base = exception;
    bool caught = false;
    try {
        base.raise();
    } catch (const ProjectException& thrown) {
        caught = true;
        QCOMPARE(thrown.Message(), QStringLiteral("header mismatch"));
    }
    QVERIFY(caught);
}

void TestProjectException::cloneIsAnOwnObjectOfTheSameType()
{
    std::unique_ptr<QException> clone;
    {
        const ProjectException exception(QStringLiteral("header mismatch"));
        const QException& base = exception;
        clone.reset(base.clone());
        QVERIFY(clone.get() != &base);
    }
    const auto* const exception = dynamic_cast<const ProjectException*>(clone.get());
    QVERIFY(exception);
    QCOMPARE(exception->Message(), QStringLiteral("header mismatch"));
}

void TestProjectException::copiesAreIndependent()
{
    ProjectException first(QStringLiteral("first"));
    const ProjectException copy(first);
    first = ProjectException(QStringLiteral("second"));
    QCOMPARE(copy.Message(), QStringLiteral("first"));
    QCOMPARE(first.Message(), QStringLiteral("second"));
}

void TestProjectException::canBeCaughtAs_data()
{
    QTest::addColumn<int>("type");

    QTest::newRow("ProjectException") << 0;
    QTest::newRow("QException") << 1;
    QTest::newRow("std::exception") << 2;
}

void TestProjectException::canBeCaughtAs()
{
    QFETCH(int, type);
    int caught = -1;
    const auto thrower = [] { throw ProjectException(QStringLiteral("header mismatch")); };
    switch (type) {
    case 0:
        try {
            thrower();
        } catch (const ProjectException&) {
            caught = 0;
        }
        break;
    case 1:
        try {
            thrower();
        } catch (const QException&) {
            caught = 1;
        }
        break;
    default:
        try {
            thrower();
        } catch (const std::exception&) {
            caught = 2;
        }
        break;
    }
    QCOMPARE(caught, type);
}

void TestProjectException::isRethrownInAnotherThread()
{
    std::unique_ptr<QException> captured;
    std::thread([&captured] {
        try {
            throw ProjectException(QStringLiteral("header mismatch"));
        } catch (const QException& exception) {
            captured.reset(exception.clone());
        }
    }).join();
    QVERIFY(captured);

    QString message;
    try {
        captured->raise();
    } catch (const ProjectException& exception) {
        message = exception.Message();
    }
    QCOMPARE(message, QStringLiteral("header mismatch"));
}

void TestProjectException::travelsThroughAFuture()
{
    QFutureInterface<void> promise;
    promise.reportStarted();
    QFuture<void> future = promise.future();
    std::thread worker([&promise] {
        promise.reportException(ProjectException(QStringLiteral("header mismatch")));
        promise.reportFinished();
    });

    QString message;
    try {
        future.waitForFinished();
    } catch (const ProjectException& exception) {
        message = exception.Message();
    }
    worker.join();
    QCOMPARE(message, QStringLiteral("header mismatch"));
}

void TestProjectException::destructorIsTraced()
{
    const LogRecorder log(QsLogging::TraceLevel);
    QString line;
    {
        const ProjectException exception(QStringLiteral("header mismatch"));
        line = destructorLine(&exception);
        QCOMPARE(log.lines(), QStringList());
    }
    QCOMPARE(log.lines(), QStringList(line));
}

void TestProjectException::everyCopyIsTraced()
{
    const LogRecorder log(QsLogging::TraceLevel);
    const auto exception = std::make_unique<ProjectException>(QStringLiteral("header mismatch"));
    QException* const clone = exception->clone();
    const QString line = destructorLine(clone);
    delete clone;
    QCOMPARE(log.lines(), QStringList(line));
}

void TestProjectException::destructorIsSilentAboveTrace_data()
{
    QTest::addColumn<int>("level");

    QTest::newRow("debug") << int(QsLogging::DebugLevel);
    QTest::newRow("info") << int(QsLogging::InfoLevel);
    QTest::newRow("off") << int(QsLogging::OffLevel);
}

void TestProjectException::destructorIsSilentAboveTrace()
{
    QFETCH(int, level);
    const LogRecorder log(static_cast<QsLogging::Level>(level));
    {
        const ProjectException exception(QStringLiteral("header mismatch"));
    }
    QCOMPARE(log.lines(), QStringList());
}

QTEST_APPLESS_MAIN(TestProjectException)
#include "tst_projectexception.moc"
