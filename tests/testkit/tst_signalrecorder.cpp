// SPDX-License-Identifier: BSD-3-Clause
#include <QObject>
#include <QPointer>
#include <QtTest>

#include <TestKit/CompareCalls.h>
#include <TestKit/SignalRecorder.h>
#include <memory>
#include <stdexcept>

using namespace Brimvale::TestKit;

struct Unregistered
{
};

class Sender : public QObject
{
    Q_OBJECT

signals:
    void nothing();
    void values(bool flag, int number, double weight, const QString& text);
    void variant(const QVariant& value);
    void object(QObject* object);
    void withDefault(int number = 7);
    void unregistered(const Unregistered& value);
};

class DerivedSender : public Sender
{
    Q_OBJECT

signals:
    void more();
};

class TestSignalRecorder : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void allSignalsInOrder();
    void argumentsBySignature_data();
    void argumentsBySignature();
    void ownSignalsOfQObjectAreLeftOut();
    void oneSignal_data();
    void oneSignal();
    void unknownSignalIsRefused_data();
    void unknownSignalIsRefused();
    void signalOfAnotherClassIsRefused();
    void takingStartsAnew();
    void senderMayBeDestroyed();
    void receiversConnectedBeforeComeFirst();
    void sinkGetsSenderAndSignal();

private:
    std::unique_ptr<DerivedSender> m_sender;
};

void TestSignalRecorder::init()
{
    m_sender = std::make_unique<DerivedSender>();
}

void TestSignalRecorder::allSignalsInOrder()
{
    SignalRecorder recorder(m_sender.get());
    emit m_sender->more();
    emit m_sender->nothing();
    emit m_sender->withDefault();
    BRIMVALE_COMPARE_CALLS(recorder, "more()", "nothing()", "withDefault(7)");
}

void TestSignalRecorder::argumentsBySignature_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QString>("expected");

    QTest::newRow("basic types") << 0 << QStringLiteral("values(true, -3, 36.4, \"a\\\"b\")");
    QTest::newRow("variant") << 1 << QStringLiteral("variant(QVariant(int, 5))");
    QTest::newRow("object") << 2 << QStringLiteral("object(DerivedSender)");
    QTest::newRow("null object") << 3 << QStringLiteral("object(null)");
    QTest::newRow("type unknown to the meta-type system")
        << 4 << QStringLiteral("unregistered(<Unregistered>)");
}

void TestSignalRecorder::argumentsBySignature()
{
    QFETCH(int, signal);
    QFETCH(QString, expected);
    SignalRecorder recorder(m_sender.get());
    switch (signal) {
    case 0:
        emit m_sender->values(true, -3, 36.4, QStringLiteral("a\"b"));
        break;
    case 1:
        emit m_sender->variant(5);
        break;
    case 2:
        emit m_sender->object(m_sender.get());
        break;
    case 3:
        emit m_sender->object(nullptr);
        break;
    case 4:
        emit m_sender->unregistered({});
        break;
    }
    BRIMVALE_COMPARE_CALLS(recorder, expected);
}

void TestSignalRecorder::ownSignalsOfQObjectAreLeftOut()
{
    SignalRecorder recorder(m_sender.get());
    m_sender->setObjectName(QStringLiteral("name"));
    BRIMVALE_COMPARE_CALLS(recorder);
}

void TestSignalRecorder::oneSignal_data()
{
    QTest::addColumn<int>("form");

    QTest::newRow("signature") << 0;
    QTest::newRow("signature that is not normalised") << 1;
    QTest::newRow("SIGNAL()") << 2;
    QTest::newRow("member function") << 3;
    QTest::newRow("meta method") << 4;
}

void TestSignalRecorder::oneSignal()
{
    QFETCH(int, form);
    SignalRecorder recorder;
    switch (form) {
    case 0:
        recorder.record(m_sender.get(), "values(bool,int,double,QString)");
        break;
    case 1:
        recorder.record(m_sender.get(), "values( bool, int, double, const QString& )");
        break;
    case 2:
        recorder.record(m_sender.get(), SIGNAL(values(bool, int, double, const QString&)));
        break;
    case 3:
        recorder.record(m_sender.get(), &Sender::values);
        break;
    case 4:
        recorder.record(m_sender.get(), QMetaMethod::fromSignal(&Sender::values));
        break;
    }
    emit m_sender->nothing();
    emit m_sender->values(false, 1, 2.0, QString());
    BRIMVALE_COMPARE_CALLS(recorder, "values(false, 1, 2, \"\")");
}

void TestSignalRecorder::unknownSignalIsRefused_data()
{
    QTest::addColumn<QString>("signal");

    QTest::newRow("misspelt") << QStringLiteral("nothin()");
    QTest::newRow("other arguments") << QStringLiteral("nothing(int)");
    QTest::newRow("a slot") << QStringLiteral("deleteLater()");
    QTest::newRow("no signature") << QStringLiteral("nothing");
}

void TestSignalRecorder::unknownSignalIsRefused()
{
    QFETCH(QString, signal);
    SignalRecorder recorder;
    try {
        recorder.record(m_sender.get(), signal);
        QFAIL("not refused");
    } catch (const std::invalid_argument& error) {
        const QString message = QString::fromUtf8(error.what());
        QVERIFY2(message.startsWith(QLatin1String("DerivedSender has no signal ") + signal), error.what());
        QVERIFY2(message.contains(QLatin1String("nothing(), ")), error.what());
    }
}

void TestSignalRecorder::signalOfAnotherClassIsRefused()
{
    SignalRecorder recorder;
    QObject object;
    QVERIFY_EXCEPTION_THROWN(recorder.record(&object, &Sender::nothing), std::invalid_argument);
}

void TestSignalRecorder::takingStartsAnew()
{
    SignalRecorder recorder(m_sender.get());
    emit m_sender->nothing();
    QCOMPARE(recorder.calls(), QStringList{QStringLiteral("nothing()")});
    QCOMPARE(recorder.takeCalls(), QStringList{QStringLiteral("nothing()")});
    QCOMPARE(recorder.calls(), QStringList());

    emit m_sender->more();
    recorder.clearCalls();
    QCOMPARE(recorder.calls(), QStringList());
}

void TestSignalRecorder::senderMayBeDestroyed()
{
    SignalRecorder recorder(m_sender.get());
    emit m_sender->nothing();
    m_sender.reset();
    BRIMVALE_COMPARE_CALLS(recorder, "nothing()");
}

void TestSignalRecorder::receiversConnectedBeforeComeFirst()
{
    Sender second;
    connect(m_sender.get(), &Sender::nothing, &second, [&second] { emit second.withDefault(1); });
    SignalRecorder recorder;
    recorder.record(m_sender.get(), &Sender::nothing);
    recorder.recordAll(&second);
    emit m_sender->nothing();
    BRIMVALE_COMPARE_CALLS(recorder, "withDefault(1)", "nothing()");
}

void TestSignalRecorder::sinkGetsSenderAndSignal()
{
    QStringList texts;
    SignalRecorder recorder;
    recorder.setSink([&texts](const QString& sender, const QString& signal) { texts << sender << signal; });
    recorder.recordAll(m_sender.get());
    emit m_sender->nothing();
    QCOMPARE(texts, QStringList({QStringLiteral("DerivedSender"), QStringLiteral("nothing()")}));
    BRIMVALE_COMPARE_CALLS(recorder);
}

QTEST_GUILESS_MAIN(TestSignalRecorder)
#include "tst_signalrecorder.moc"
