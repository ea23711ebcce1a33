// SPDX-License-Identifier: BSD-3-Clause
#include "MesswertInfo.h"
#include "app/DisplayText.h"
#include "ui/InstrumentModel.h"

#include <QtTest>

#include <memory>

using Brimvale::MesswertInfo;
using Brimvale::Terminal::DisplayText;
using Brimvale::Terminal::InstrumentModel;

class TestDisplayText : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void withoutADisplay();
    void value();
    void line_data();
    void line();
    void everythingHidden();
    void valueHidden();
    void withoutAValue();
    void stabilityMarkThatIsHidden();
    void errorInPlaceOfTheValue();
    void lostConnection();

private:
    std::unique_ptr<InstrumentModel> m_instrument;
    std::unique_ptr<MesswertInfo> m_info;
};

void TestDisplayText::init()
{
    m_instrument = std::make_unique<InstrumentModel>();
    m_info =
        std::make_unique<MesswertInfo>(nullptr, QStringLiteral("36.4"), QStringLiteral("g"), true, 0, true,
                                       false, false, 0, QString(), QString(), false, 0, true, false, 0,
                                       QString(), QString(), QString(), 0, 1, false, false, true, true, true);
    m_instrument->setDisplay(m_info.get());
}

void TestDisplayText::withoutADisplay()
{
    m_instrument->setDisplay(nullptr);
    const DisplayText text = DisplayText::of(*m_instrument);
    QCOMPARE(text.value, QString());
    QCOMPARE(text.line(), QStringLiteral("nothing"));
}

void TestDisplayText::value()
{
    QCOMPARE(DisplayText::of(*m_instrument).value, QStringLiteral("36.4 g"));
}

void TestDisplayText::line_data()
{
    QTest::addColumn<int>("stability");
    QTest::addColumn<bool>("net");
    QTest::addColumn<QString>("line");
    QTest::newRow("stable") << 1 << false << "36.4 g  stable";
    QTest::newRow("unstable") << 0 << false << "36.4 g  unstable";
    QTest::newRow("stable net") << 1 << true << "36.4 g  stable  net";
    QTest::newRow("unstable net") << 0 << true << "36.4 g  unstable  net";
}

void TestDisplayText::line()
{
    QFETCH(int, stability);
    QFETCH(bool, net);
    QFETCH(QString, line);
    m_info->setStabilityValue(stability);
    m_info->setNetVisible(net);
    QCOMPARE(DisplayText::of(*m_instrument).line(), line);
}

void TestDisplayText::everythingHidden()
{
    m_info->setAllVisible(false);
    m_info->setErrorText(QStringLiteral("Overload"));
    QCOMPARE(DisplayText::of(*m_instrument).line(), QStringLiteral("nothing"));
}

void TestDisplayText::valueHidden()
{
    m_info->setMesswertVisible(false);
    QCOMPARE(DisplayText::of(*m_instrument).value, QString());
}

void TestDisplayText::withoutAValue()
{
    m_info->setMesswert(QString());
    QCOMPARE(DisplayText::of(*m_instrument).value, QString());
}

void TestDisplayText::stabilityMarkThatIsHidden()
{
    m_info->setStabilityVisible(false);
    QVERIFY(!DisplayText::of(*m_instrument).stable);
}

void TestDisplayText::errorInPlaceOfTheValue()
{
    m_info->setErrorText(QStringLiteral("Overload"));
    const DisplayText text = DisplayText::of(*m_instrument);
    QCOMPARE(text.value, QStringLiteral("Overload"));
    QVERIFY(text.error);
    QVERIFY(!text.stable);
    QCOMPARE(text.line(), QStringLiteral("Overload"));
}

void TestDisplayText::lostConnection()
{
    // The application goes on showing its last value; the screen does not.
    m_instrument->setSourceOk(false);
    QCOMPARE(DisplayText::of(*m_instrument).value, QStringLiteral("No connection to the scale"));
}

QTEST_GUILESS_MAIN(TestDisplayText)

#include "tst_displaytext.moc"
