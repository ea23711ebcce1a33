// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "InfoValueUnit.h"
#include "WorkflowScreen.h"

#include <QPointer>
#include <QtTest>

#include <TestKit/CompareCalls.h>
#include <TestKit/LogCapture.h>
#include <TestKit/SignalRecorder.h>
#include <memory>

using namespace Brimvale;
using TestKit::LogCapture;
using TestKit::SignalRecorder;

class TestWorkflowScreen : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_screen.reset(); }

    void constructorStores();
    void recordOfTextsIsMappedByName();
    void recordHasItsTextsInOrder();
    void textsAreReadAtTheCall();
    void textsOfTheRecordAreReadAtTheCall();
    void nullTextsAreEmpty();
    void infoLinesAreReplaced_data();
    void infoLinesAreReplaced();
    void newScreenHasEmptyResults();
    void resultIsCopied_data();
    void resultIsCopied();
    void resultSignalsItsChangesInOrder_data() { resultIsCopied_data(); }
    void resultSignalsItsChangesInOrder();
    void resultMayBeSetToItself_data() { resultIsCopied_data(); }
    void resultMayBeSetToItself();
    void parentOwnsTheScreenWithItsResults();
    void isUsableThroughItsInterface();
    void answersToTheNamesOfItsInterface_data();
    void answersToTheNamesOfItsInterface();
    void declaresNothingToTheMetaObject();
    void destructorsWriteTheirLines();
    void destructorsWriteNothingAboveTrace();

private:
    QStringList texts() const
    {
        return {m_screen->leftButtonText(), m_screen->centerButtonText(), m_screen->rightButtonText(),
                m_screen->infoTextLine1(),  m_screen->infoTextLine2(),    m_screen->infoTextLine3()};
    }
    static QVariantList valuesOf(const InfoValueUnit& result)
    {
        return {result.isVisible(), result.info(), result.value(), result.unit()};
    }
    InfoValueUnit* result(bool first) { return first ? m_screen->getResult1() : m_screen->getResult2(); }
    void setResult(bool first, InfoValueUnit* source)
    {
        if (first)
            m_screen->setResult1(source);
        else
            m_screen->setResult2(source);
    }

    QString m_left, m_center, m_right, m_line1, m_line2, m_line3;
    std::unique_ptr<WorkflowScreen> m_screen;
};

void TestWorkflowScreen::init()
{
    m_left = QStringLiteral("left");
    m_center = QStringLiteral("center");
    m_right = QStringLiteral("right");
    m_line1 = QStringLiteral("line 1");
    m_line2 = QStringLiteral("line 2");
    m_line3 = QStringLiteral("line 3");
    m_screen =
        std::make_unique<WorkflowScreen>(nullptr, 5, &m_left, &m_center, &m_right,
                                         QStringLiteral("qrc:/fill.svg"), 2, &m_line1, &m_line2, &m_line3);
}

void TestWorkflowScreen::constructorStores()
{
    QCOMPARE(m_screen->screenType(), 5);
    QCOMPARE(m_screen->image(), QStringLiteral("qrc:/fill.svg"));
    QCOMPARE(m_screen->auxiliaryOn(), 2);
    QCOMPARE(texts(),
             (QStringList{QStringLiteral("left"), QStringLiteral("center"), QStringLiteral("right"),
                          QStringLiteral("line 1"), QStringLiteral("line 2"), QStringLiteral("line 3")}));
}

void TestWorkflowScreen::recordOfTextsIsMappedByName()
{
    WorkflowScreen::ScreenTexte record;
    record.leftButtonText = QStringLiteral("Back");
    record.centerButtonText = QStringLiteral("Tare");
    record.rightButtonText = QStringLiteral("Next");
    record.infoTextLine1 = QStringLiteral("1");
    record.infoTextLine2 = QStringLiteral("2");
    record.infoTextLine3 = QStringLiteral("3");
    m_screen = std::make_unique<WorkflowScreen>(nullptr, -1, &record, QStringLiteral("image"), 7);
    QCOMPARE(m_screen->screenType(), -1);
    QCOMPARE(m_screen->image(), QStringLiteral("image"));
    QCOMPARE(m_screen->auxiliaryOn(), 7);
    QCOMPARE(texts(), (QStringList{QStringLiteral("Back"), QStringLiteral("Tare"), QStringLiteral("Next"),
                                   QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}));
}

// The buttons stand from right to left.
void TestWorkflowScreen::recordHasItsTextsInOrder()
{
    WorkflowScreen::ScreenTexte record{QStringLiteral("1"),      QStringLiteral("2"),
                                       QStringLiteral("3"),      QStringLiteral("right"),
                                       QStringLiteral("center"), QStringLiteral("left")};
    const QString* const first = &record.infoTextLine1;
    QCOMPARE(first, reinterpret_cast<const QString*>(&record));
    QCOMPARE(&record.infoTextLine2 - first, 1);
    QCOMPARE(&record.infoTextLine3 - first, 2);
    QCOMPARE(&record.rightButtonText - first, 3);
    QCOMPARE(&record.centerButtonText - first, 4);
    QCOMPARE(&record.leftButtonText - first, 5);
    QCOMPARE(sizeof record, 6 * sizeof(QString));
    m_screen = std::make_unique<WorkflowScreen>(nullptr, 0, &record, QString(), 0);
    QCOMPARE(m_screen->leftButtonText(), QStringLiteral("left"));
    QCOMPARE(m_screen->rightButtonText(), QStringLiteral("right"));
}

void TestWorkflowScreen::textsAreReadAtTheCall()
{
    for (QString* text : {&m_left, &m_center, &m_right, &m_line1, &m_line2, &m_line3})
        text->append(QStringLiteral(" 2"));
    QCOMPARE(texts(), (QStringList{QStringLiteral("left 2"), QStringLiteral("center 2"),
                                   QStringLiteral("right 2"), QStringLiteral("line 1 2"),
                                   QStringLiteral("line 2 2"), QStringLiteral("line 3 2")}));
}

void TestWorkflowScreen::textsOfTheRecordAreReadAtTheCall()
{
    WorkflowScreen::ScreenTexte record;
    m_screen = std::make_unique<WorkflowScreen>(nullptr, 0, &record, QString(), 0);
    QCOMPARE(texts().join(QString()), QString());
    record.leftButtonText = QStringLiteral("Zurück");
    record.infoTextLine3 = QStringLiteral("drei");
    QCOMPARE(m_screen->leftButtonText(), QStringLiteral("Zurück"));
    QCOMPARE(m_screen->infoTextLine3(), QStringLiteral("drei"));
}

void TestWorkflowScreen::nullTextsAreEmpty()
{
    m_screen = std::make_unique<WorkflowScreen>(nullptr, 0, nullptr, nullptr, nullptr, QString(), 0, nullptr,
                                                nullptr, nullptr);
    for (const QString& text : texts())
        QCOMPARE(text, QString());
    QCOMPARE(texts().size(), 6);
}

void TestWorkflowScreen::infoLinesAreReplaced_data()
{
    QTest::addColumn<int>("line");
    QTest::newRow("line 1") << 3;
    QTest::newRow("line 2") << 4;
    QTest::newRow("line 3") << 5;
}

void TestWorkflowScreen::infoLinesAreReplaced()
{
    QFETCH(int, line);
    SignalRecorder recorder(m_screen.get());
    const auto set = [&](QString* text) {
        if (line == 3)
            m_screen->setInfoTextLine1(text);
        else if (line == 4)
            m_screen->setInfoTextLine2(text);
        else
            m_screen->setInfoTextLine3(text);
    };
    QStringList expected = texts();
    QString other = QStringLiteral("other");
    set(&other);
    expected[line] = other;
    QCOMPARE(texts(), expected);
    other = QStringLiteral("later");
    expected[line] = other;
    QCOMPARE(texts(), expected);
    set(nullptr);
    expected[line].clear();
    QCOMPARE(texts(), expected);
    QCOMPARE(other, QStringLiteral("later"));
    BRIMVALE_COMPARE_CALLS(recorder);
}

void TestWorkflowScreen::newScreenHasEmptyResults()
{
    WorkflowScreen::ScreenTexte record;
    WorkflowScreen fromRecord(nullptr, 0, &record, QString(), 0);
    for (WorkflowScreen* screen : {m_screen.get(), &fromRecord}) {
        QVERIFY(screen->getResult1() != screen->getResult2());
        for (InfoValueUnit* result : {screen->getResult1(), screen->getResult2()}) {
            QVERIFY(result);
            QCOMPARE(result->parent(), screen);
            QCOMPARE(valuesOf(*result), (QVariantList{false, QString(), QString(), QString()}));
        }
    }
}

void TestWorkflowScreen::resultIsCopied_data()
{
    QTest::addColumn<bool>("first");
    QTest::newRow("result 1") << true;
    QTest::newRow("result 2") << false;
}

void TestWorkflowScreen::resultIsCopied()
{
    QFETCH(bool, first);
    InfoValueUnit source(nullptr, true, QStringLiteral("Net"), QStringLiteral("12.5"), QStringLiteral("g"));
    InfoValueUnit* const before = result(first);
    InfoValueUnit* const other = result(!first);
    setResult(first, &source);
    const QVariantList values{true, QStringLiteral("Net"), QStringLiteral("12.5"), QStringLiteral("g")};
    QCOMPARE(valuesOf(*result(first)), values);
    QCOMPARE(result(first), before);
    QCOMPARE(result(!first), other);
    QCOMPARE(valuesOf(*other), (QVariantList{false, QString(), QString(), QString()}));
    QCOMPARE(source.parent(), nullptr);

    source.setVisble(false);
    source.setInfo(QStringLiteral("Gross"));
    source.setValue(QStringLiteral("13"));
    source.setUnit(QStringLiteral("kg"));
    QCOMPARE(valuesOf(*result(first)), values);
}

void TestWorkflowScreen::resultSignalsItsChangesInOrder()
{
    QFETCH(bool, first);
    SignalRecorder recorder(result(first));
    recorder.recordAll(result(!first));
    recorder.recordAll(m_screen.get());
    InfoValueUnit source(nullptr, true, QStringLiteral("Net"), QStringLiteral("12.5"), QStringLiteral("g"));
    setResult(first, &source);
    BRIMVALE_COMPARE_CALLS(recorder, "visibleChanged()", "infoChanged()", "valueChanged()", "unitChanged()");
    setResult(first, &source);
    BRIMVALE_COMPARE_CALLS(recorder);
    source.setValue(QStringLiteral("13"));
    setResult(first, &source);
    BRIMVALE_COMPARE_CALLS(recorder, "valueChanged()");
}

void TestWorkflowScreen::resultMayBeSetToItself()
{
    QFETCH(bool, first);
    InfoValueUnit source(nullptr, true, QStringLiteral("Net"), QStringLiteral("12.5"), QStringLiteral("g"));
    setResult(first, &source);
    SignalRecorder recorder(result(first));
    setResult(first, result(first));
    QCOMPARE(valuesOf(*result(first)), valuesOf(source));
    BRIMVALE_COMPARE_CALLS(recorder);
}

void TestWorkflowScreen::parentOwnsTheScreenWithItsResults()
{
    auto parent = std::make_unique<QObject>();
    auto* const screen = m_screen.release();
    screen->setParent(parent.get());
    const QPointer<QObject> guard = screen;
    const QPointer<QObject> result1 = screen->getResult1();
    const QPointer<QObject> result2 = screen->getResult2();
    parent.reset();
    QVERIFY(guard.isNull());
    QVERIFY(result1.isNull());
    QVERIFY(result2.isNull());
    QCOMPARE(m_left, QStringLiteral("left"));
}

void TestWorkflowScreen::isUsableThroughItsInterface()
{
    QObject* const object = m_screen.get();
    IWorkflowScreen* const screen = qobject_cast<IWorkflowScreen*>(object);
    QCOMPARE(screen, static_cast<IWorkflowScreen*>(m_screen.get()));
    screen->setInfoTextLine2(&m_left);
    QCOMPARE(screen->infoTextLine2(), QStringLiteral("left"));
    QCOMPARE(screen->getResult1(), m_screen->getResult1());
    QCOMPARE(screen->screenType(), 5);
}

void TestWorkflowScreen::answersToTheNamesOfItsInterface_data()
{
    QTest::addColumn<bool>("isInterface");
    QTest::newRow("IWorkflowScreen") << true;
    QTest::newRow("Brimvale.Workflow.IWorkflowScreen/1.0") << true;
    QTest::newRow("Brimvale.Workflow.IWorkflowScreen") << false;
    QTest::newRow("WorkflowScreen") << false;
}

void TestWorkflowScreen::answersToTheNamesOfItsInterface()
{
    QFETCH(bool, isInterface);
    IWorkflowScreen* const face = isInterface ? m_screen.get() : nullptr;
    QCOMPARE(m_screen->qt_metacast(QTest::currentDataTag()), static_cast<void*>(face));
}

void TestWorkflowScreen::declaresNothingToTheMetaObject()
{
    const QMetaObject& type = WorkflowScreen::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::WorkflowScreen");
    QCOMPARE(type.superClass(), &QObject::staticMetaObject);
    QCOMPARE(ObjectTest::methodsOf(type), QStringList());
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList());
}

void TestWorkflowScreen::destructorsWriteTheirLines()
{
    LogCapture log;
    const QStringList lines{ObjectTest::destructorLine("Brimvale::WorkflowScreen", m_screen.get()),
                            ObjectTest::destructorLine("Brimvale::InfoValueUnit", m_screen->getResult1()),
                            ObjectTest::destructorLine("Brimvale::InfoValueUnit", m_screen->getResult2())};
    m_screen.reset();
    QCOMPARE(log.lines(), lines);
}

void TestWorkflowScreen::destructorsWriteNothingAboveTrace()
{
    LogCapture log(QsLogging::DebugLevel);
    m_screen.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestWorkflowScreen)
#include "tst_workflowscreen.moc"
