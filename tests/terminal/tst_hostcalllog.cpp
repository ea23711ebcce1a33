// SPDX-License-Identifier: BSD-3-Clause
#include "ActionBase.h"
#include "MesswertData.h"
#include "host/HostCallLog.h"

#include <QtTest>

#include <limits>
#include <memory>
#include <stdexcept>

using namespace Brimvale;
using namespace Brimvale::Terminal;

namespace
{

class ThrowingAction : public ActionBase
{
public:
    ThrowingAction()
        : ActionBase(nullptr)
    {
    }
    QString uid() const override { throw std::runtime_error("no uid"); }
};

} // namespace

class tst_HostCallLog : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void withoutArguments();
    void argumentTexts();
    void objects();
    void longTextsAreCut();
    void measuredValues();
    void anActionThatThrowsIsRecordedAllTheSame();

    void callsKeepTheirOrder();
    void theNewestOfEitherKindAreKept();
    void aCapacityBelowOneCountsAsOne();
    void contains();
    void clear();
    void trace();

private:
    std::unique_ptr<HostCallLog> m_log;
};

void tst_HostCallLog::init()
{
    m_log = std::make_unique<HostCallLog>(3);
}

void tst_HostCallLog::withoutArguments()
{
    m_log->query("ISystem::GetActionbar");
    QCOMPARE(m_log->calls(), QStringList{QStringLiteral("ISystem::GetActionbar()")});
}

void tst_HostCallLog::argumentTexts()
{
    m_log->command("I::A", 0, -1, true, false);
    m_log->command("I::B", 364.0, 0.5, std::numeric_limits<double>::quiet_NaN());
    m_log->command("I::C", QStringLiteral("a \"b\"\n\\"), QList<int>{1, 2});
    QCOMPARE(m_log->calls(),
             (QStringList{QStringLiteral("I::A(0, -1, true, false)"), QStringLiteral("I::B(364, 0.5, nan)"),
                          QStringLiteral("I::C(\"a \\\"b\\\"\\n\\\\\", [1, 2])")}));
}

void tst_HostCallLog::objects()
{
    QObject named;
    named.setObjectName(QStringLiteral("model"));
    ActionBase action(nullptr);
    action.setUid(QStringLiteral("plugin.tare"));
    m_log->command("I::A", static_cast<QObject*>(&named), static_cast<QObject*>(this),
                   static_cast<QObject*>(nullptr));
    m_log->command("I::B", static_cast<IAction*>(&action), static_cast<IAction*>(nullptr));
    QCOMPARE(m_log->calls(),
             (QStringList{QStringLiteral("I::A(model, tst_HostCallLog, null)"),
                          QStringLiteral("I::B(Brimvale::ActionBase(\"plugin.tare\"), null)")}));
}

void tst_HostCallLog::longTextsAreCut()
{
    m_log->command("I::A", QString(HostCallLog::MaximumTextLength, QLatin1Char('x')));
    m_log->command("I::A", QString(HostCallLog::MaximumTextLength + 1, QLatin1Char('x')));
    const QString kept(HostCallLog::MaximumTextLength, QLatin1Char('x'));
    QCOMPARE(m_log->calls(), (QStringList{QStringLiteral("I::A(\"%1\")").arg(kept),
                                          QStringLiteral("I::A(\"%1\u2026\")").arg(kept)}));
}

void tst_HostCallLog::measuredValues()
{
    MesswertData data;
    data.messwert = QStringLiteral("36.4");
    data.unit = QStringLiteral("g");
    m_log->command("I::A", data);
    data.unit.clear();
    m_log->command("I::A", data);
    data.errorText = QStringLiteral("Overload");
    m_log->command("I::A", data);
    QCOMPARE(m_log->calls(), (QStringList{QStringLiteral("I::A(MesswertData(\"36.4 g\"))"),
                                          QStringLiteral("I::A(MesswertData(\"36.4\"))"),
                                          QStringLiteral("I::A(MesswertData(\"Overload\"))")}));
}

void tst_HostCallLog::anActionThatThrowsIsRecordedAllTheSame()
{
    ThrowingAction action;
    m_log->command("I::A", static_cast<IAction*>(&action));
    QCOMPARE(m_log->calls(),
             QStringList{QStringLiteral("I::A(Brimvale::ActionBase(\"std::runtime_error: no uid\"))")});
}

void tst_HostCallLog::callsKeepTheirOrder()
{
    m_log->query("I::Q1");
    m_log->command("I::C1");
    m_log->command("I::C2");
    m_log->query("I::Q2");
    QCOMPARE(m_log->calls(), (QStringList{QStringLiteral("I::Q1()"), QStringLiteral("I::C1()"),
                                          QStringLiteral("I::C2()"), QStringLiteral("I::Q2()")}));
    QCOMPARE(m_log->total(), quint64(4));
}

void tst_HostCallLog::theNewestOfEitherKindAreKept()
{
    m_log->command("I::Done");
    for (int i = 0; i < 100; ++i) {
        m_log->query("I::Q", i);
    }
    QCOMPARE(m_log->calls(), (QStringList{QStringLiteral("I::Done()"), QStringLiteral("I::Q(97)"),
                                          QStringLiteral("I::Q(98)"), QStringLiteral("I::Q(99)")}));
    for (int i = 0; i < 4; ++i) {
        m_log->command("I::C", i);
    }
    QVERIFY(!m_log->contains(QStringLiteral("I::Done")));
    QCOMPARE(m_log->total(), quint64(105));
}

void tst_HostCallLog::aCapacityBelowOneCountsAsOne()
{
    HostCallLog log(0);
    log.command("I::A");
    log.command("I::B");
    QCOMPARE(log.calls(), QStringList{QStringLiteral("I::B()")});
}

void tst_HostCallLog::contains()
{
    m_log->command("IActionbar::SetEntry", 0, 0);
    m_log->query("ISystem::GetCurrentUnit");
    QVERIFY(m_log->contains(QStringLiteral("IActionbar::SetEntry(0, 0)")));
    QVERIFY(m_log->contains(QStringLiteral("SetEntry")));
    QVERIFY(m_log->contains(QStringLiteral("GetCurrentUnit")));
    QVERIFY(!m_log->contains(QStringLiteral("IActionbar::SetEntry(1, 0)")));
    QVERIFY(!m_log->contains(QString()));
}

void tst_HostCallLog::clear()
{
    m_log->command("I::A");
    m_log->query("I::B");
    m_log->clear();
    QVERIFY(m_log->calls().isEmpty());
    QCOMPARE(m_log->total(), quint64(0));
}

void tst_HostCallLog::trace()
{
    QStringList traced;
    m_log->command("I::A");
    m_log->setTrace([&traced](const QString& call) { traced.append(call); });
    m_log->command("I::B", 1);
    m_log->query("I::C");
    m_log->setTrace({});
    m_log->command("I::D");
    QCOMPARE(traced, (QStringList{QStringLiteral("I::B(1)"), QStringLiteral("I::C()")}));
}

QTEST_GUILESS_MAIN(tst_HostCallLog)

#include "tst_hostcalllog.moc"
