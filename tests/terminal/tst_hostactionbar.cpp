// SPDX-License-Identifier: BSD-3-Clause
#include "ActionBase.h"
#include "ActionBaseToggle.h"
#include "host/ActionBar.h"
#include "host/HostCallLog.h"
#include "host/Notices.h"
#include "host/StoredParameters.h"

#include <QSignalSpy>
#include <QtTest>

#include <memory>
#include <stdexcept>

using namespace Brimvale;
using namespace Brimvale::Terminal;

namespace
{

/// What presses do.
class Worker : public QObject
{
    Q_OBJECT

public:
    int presses = 0;
    QObject* victim = nullptr;
    bool throws = false;

public slots:
    QVariant work(QVariant data)
    {
        ++presses;
        delete victim;
        victim = nullptr;
        if (throws) {
            throw std::runtime_error("worn out");
        }
        return data;
    }
};

class UnreadableAction : public ActionBase
{
public:
    using ActionBase::ActionBase;
    bool enabled() const override { throw std::runtime_error("unreadable"); }
};

/// An action that is no QObject.
class BareAction : public IAction
{
public:
    bool enabled() const override { return true; }
    QString name() const override { return QString(); }
    QString uid() const override { return QString(); }
    int getRank() const override { return 0; }
    void doAction() override { }
    void doAction(QVariant) override { }
    void actionUpdated() override { }
    void workDone(QVariant) override { }
};

} // namespace

class tst_HostActionBar : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void actionsStandByRankThenUid();
    void anActionIsAddedOnce();
    void aUidIsTakenOnce();
    void whatIsNoActionIsReported();
    void removing();
    void aDestroyedActionDisappears();
    void anUpdatedActionIsReadAgain();
    void aNewRankMovesTheAction();
    void toggleStates();
    void anUnchangedBarSaysNothing();
    void anUnreadableActionShowsDisabled();

    void pressing();
    void aDisabledActionIsNotPressed();
    void theWholeBarIsDisabled();
    void anActionMayDestroyItself();
    void aThrowingWorkerIsReported();

    void entriesPlaceActions();
    void anEntryOfNoActionIsWithoutEffect();
    void anEntryBeyondTheBarIsReported_data();
    void anEntryBeyondTheBarIsReported();
    void storedEntriesAreAppliedInTwoSteps();
    void entriesOfAnotherOwnerAreNotApplied();
    void clearing();

private:
    ActionBase* add(const char* uid, int rank);
    QStringList uids() const;

    std::unique_ptr<HostCallLog> m_calls;
    std::unique_ptr<Notices> m_noticeBoard;
    std::unique_ptr<StoredParameters> m_parameters;
    std::unique_ptr<Worker> m_worker;
    std::unique_ptr<QObject> m_owner; ///< Of the actions.
    std::unique_ptr<ActionBar> m_bar;
    QStringList m_notices;
};

void tst_HostActionBar::init()
{
    m_bar.reset();
    m_notices.clear();
    m_calls = std::make_unique<HostCallLog>();
    m_noticeBoard = std::make_unique<Notices>();
    connect(m_noticeBoard.get(), &Notices::posted, this,
            [this](NoticeSeverity, const QString& text) { m_notices.append(text); });
    m_parameters = std::make_unique<StoredParameters>(QString());
    m_worker = std::make_unique<Worker>();
    m_owner = std::make_unique<QObject>();
    m_bar = std::make_unique<ActionBar>(*m_calls, *m_noticeBoard, *m_parameters);
}

ActionBase* tst_HostActionBar::add(const char* uid, int rank)
{
    auto* const action = new ActionBase(m_owner.get());
    action->setUid(QString::fromLatin1(uid));
    action->setName(QString::fromLatin1(uid).toUpper());
    action->setRank(rank);
    action->setEnable(true);
    action->setWorker(m_worker.get(), m_worker->metaObject()->method(
                                          m_worker->metaObject()->indexOfMethod("work(QVariant)")));
    m_bar->AddAction(action);
    return action;
}

QStringList tst_HostActionBar::uids() const
{
    QStringList uids;
    const QVector<ActionState> actions = m_bar->actions();
    for (const ActionState& action : actions) {
        uids.append(action.uid);
    }
    return uids;
}

void tst_HostActionBar::actionsStandByRankThenUid()
{
    QSignalSpy changed(m_bar.get(), &ActionBar::actionsChanged);
    add("c", 10);
    add("b", 20);
    add("a", 20);
    add("d", 5);
    QCOMPARE(uids().join(QLatin1Char(' ')), QStringLiteral("d c a b"));
    QCOMPARE(m_bar->actions().at(0).name, QStringLiteral("D"));
    QVERIFY(m_bar->actions().at(0).enabled);
    QVERIFY(!m_bar->actions().at(0).toggle);
    QCOMPARE(changed.count(), 4);
}

void tst_HostActionBar::anActionIsAddedOnce()
{
    ActionBase* const action = add("a", 1);
    m_bar->AddAction(action);
    QCOMPARE(uids(), QStringList{QStringLiteral("a")});
    QVERIFY(m_notices.isEmpty());
    // Nor does it announce itself twice.
    QSignalSpy changed(m_bar.get(), &ActionBar::actionsChanged);
    action->setName(QStringLiteral("new"));
    QCOMPARE(changed.count(), 1);
}

void tst_HostActionBar::aUidIsTakenOnce()
{
    add("a", 1);
    add("a", 2);
    QCOMPARE(uids(), QStringList{QStringLiteral("a")});
    QCOMPARE(m_notices.size(), 1);
    QVERIFY2(m_notices.at(0).contains(QStringLiteral("has the same uid \"a\"")), qPrintable(m_notices.at(0)));
}

void tst_HostActionBar::whatIsNoActionIsReported()
{
    BareAction bare;
    m_bar->AddAction(nullptr);
    m_bar->AddAction(&bare);
    QVERIFY(m_bar->actions().isEmpty());
    QCOMPARE(
        m_notices,
        (QStringList{QStringLiteral("An action that is null was not added to the action bar."),
                     QStringLiteral("An action that is no QObject was not added to the action bar. Derive it "
                                    "from ActionBase.")}));
}

void tst_HostActionBar::removing()
{
    ActionBase* const action = add("a", 1);
    add("b", 2);
    m_bar->RemoveAction(action);
    QCOMPARE(uids(), QStringList{QStringLiteral("b")});
    m_bar->RemoveAction(action);
    m_bar->RemoveAction(nullptr);
    QCOMPARE(uids(), QStringList{QStringLiteral("b")});
    // It is not listened to any more.
    QSignalSpy changed(m_bar.get(), &ActionBar::actionsChanged);
    action->setName(QStringLiteral("new"));
    QCOMPARE(changed.count(), 0);
}

void tst_HostActionBar::aDestroyedActionDisappears()
{
    ActionBase* const action = add("a", 1);
    add("b", 2);
    QSignalSpy changed(m_bar.get(), &ActionBar::actionsChanged);
    delete action;
    QCOMPARE(uids(), QStringList{QStringLiteral("b")});
    QCOMPARE(changed.count(), 1);
    m_bar->Refresh();
    QVERIFY(!m_bar->press(QStringLiteral("a")));
}

void tst_HostActionBar::anUpdatedActionIsReadAgain()
{
    ActionBase* const action = add("a", 1);
    QSignalSpy changed(m_bar.get(), &ActionBar::actionsChanged);
    action->setName(QStringLiteral("Tare"));
    action->setEnable(false);
    QCOMPARE(m_bar->actions().at(0).name, QStringLiteral("Tare"));
    QVERIFY(!m_bar->actions().at(0).enabled);
    QCOMPARE(changed.count(), 2);
}

void tst_HostActionBar::aNewRankMovesTheAction()
{
    ActionBase* const action = add("a", 1);
    add("b", 2);
    action->setRank(3);
    QCOMPARE(uids().join(QLatin1Char(' ')), QStringLiteral("b a"));
}

void tst_HostActionBar::toggleStates()
{
    ActionBaseToggle toggle(nullptr);
    toggle.setUid(QStringLiteral("t"));
    toggle.setEnable(true);
    m_bar->AddAction(&toggle);
    QVERIFY(!m_bar->actions().at(0).toggle); // one state only
    toggle.setMaxToggleIndex(2);
    toggle.setToggleIndex(1);
    const ActionState state = m_bar->actions().at(0);
    QVERIFY(state.toggle);
    QCOMPARE(state.toggleIndex, 1);
    QCOMPARE(state.maxToggleIndex, 2);
}

void tst_HostActionBar::anUnchangedBarSaysNothing()
{
    add("a", 1);
    QSignalSpy changed(m_bar.get(), &ActionBar::actionsChanged);
    m_bar->Refresh();
    m_bar->SetEnabled(1);
    m_bar->SetEntry(0, 0);
    QCOMPARE(changed.count(), 0);
}

void tst_HostActionBar::anUnreadableActionShowsDisabled()
{
    UnreadableAction action(nullptr);
    action.setUid(QStringLiteral("u"));
    action.setName(QStringLiteral("Odd"));
    m_bar->AddAction(&action);
    QCOMPARE(uids(), QStringList{QStringLiteral("u")});
    QVERIFY(!m_bar->actions().at(0).enabled);
    QCOMPARE(m_notices, QStringList{QStringLiteral(
                            "The action \"Odd\" cannot be shown: std::runtime_error: unreadable")});
}

void tst_HostActionBar::pressing()
{
    add("a", 1);
    QVERIFY(m_bar->press(QStringLiteral("a")));
    QCOMPARE(m_worker->presses, 1);
    QVERIFY(!m_bar->press(QStringLiteral("b")));
    QCOMPARE(m_worker->presses, 1);
}

void tst_HostActionBar::aDisabledActionIsNotPressed()
{
    add("a", 1)->setEnable(false);
    QVERIFY(!m_bar->press(QStringLiteral("a")));
    QCOMPARE(m_worker->presses, 0);
}

void tst_HostActionBar::theWholeBarIsDisabled()
{
    add("a", 1);
    m_bar->SetEnabled(0);
    QVERIFY(!m_bar->actions().at(0).enabled);
    QVERIFY(!m_bar->press(QStringLiteral("a")));
    m_bar->SetEnabled(1);
    QVERIFY(m_bar->press(QStringLiteral("a")));
    QCOMPARE(m_worker->presses, 1);
}

void tst_HostActionBar::anActionMayDestroyItself()
{
    m_worker->victim = add("a", 1);
    QVERIFY(m_bar->press(QStringLiteral("a")));
    QCOMPARE(m_worker->presses, 1);
    QVERIFY(m_bar->actions().isEmpty());
}

void tst_HostActionBar::aThrowingWorkerIsReported()
{
    add("a", 1);
    m_worker->throws = true;
    QVERIFY(m_bar->press(QStringLiteral("a")));
    QVERIFY(m_bar->press(QStringLiteral("a")));
    QCOMPARE(m_worker->presses, 2);
    // Once, until another plug-in runs.
    QCOMPARE(m_notices, QStringList{QStringLiteral("The action \"A\" failed: std::runtime_error: worn out")});
    m_noticeBoard->forgetPluginFaults();
    QVERIFY(m_bar->press(QStringLiteral("a")));
    QCOMPARE(m_notices.size(), 2);
}

void tst_HostActionBar::entriesPlaceActions()
{
    add("a", 10);
    add("b", 20);
    add("c", 30);
    m_bar->SetEntry(0, 30);
    QCOMPARE(uids().join(QLatin1Char(' ')), QStringLiteral("c a b"));
    m_bar->SetEntry(2, 10);
    QCOMPARE(uids().join(QLatin1Char(' ')), QStringLiteral("c b a"));
    m_bar->SetEntry(0, 0);
    QCOMPARE(uids().join(QLatin1Char(' ')), QStringLiteral("b c a"));
    m_bar->SetEntry(2, 0);
    QCOMPARE(uids().join(QLatin1Char(' ')), QStringLiteral("a b c"));
}

void tst_HostActionBar::anEntryOfNoActionIsWithoutEffect()
{
    add("a", 10);
    add("b", 20);
    m_bar->SetEntry(0, 99);
    m_bar->SetEntry(9, 10); // beyond the last: the end
    QCOMPARE(uids().join(QLatin1Char(' ')), QStringLiteral("b a"));
}

void tst_HostActionBar::anEntryBeyondTheBarIsReported_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("negative") << -1;
    QTest::newRow("too large") << int(ActionBar::EntryCount);
}

void tst_HostActionBar::anEntryBeyondTheBarIsReported()
{
    QFETCH(int, index);
    m_bar->SetEntry(index, 1);
    QCOMPARE(m_notices,
             QStringList{
                 QStringLiteral("The action bar has no entry %1: entries are numbered 0 to 31.").arg(index)});
    QCOMPARE(m_bar->entry(index), 0);
}

void tst_HostActionBar::storedEntriesAreAppliedInTwoSteps()
{
    m_parameters->setValue(QStringLiteral("actionbar/7"), QStringLiteral("user"), QStringLiteral("actionbar"),
                           0, QStringLiteral("20"));
    add("a", 10);
    add("b", 20);
    m_bar->LoadEntries(7, QStringLiteral("user"));
    QCOMPARE(uids().join(QLatin1Char(' ')), QStringLiteral("a b"));
    m_bar->Refresh();
    QCOMPARE(uids().join(QLatin1Char(' ')), QStringLiteral("a b"));
    m_bar->ApplyEntries(7, QStringLiteral("user"));
    QCOMPARE(uids().join(QLatin1Char(' ')), QStringLiteral("b a"));
    QCOMPARE(m_bar->entry(0), 20);
}

void tst_HostActionBar::entriesOfAnotherOwnerAreNotApplied()
{
    m_parameters->setValue(QStringLiteral("actionbar/7"), QStringLiteral("user"), QStringLiteral("actionbar"),
                           0, QStringLiteral("20"));
    add("a", 10);
    add("b", 20);
    m_bar->LoadEntries(7, QStringLiteral("user"));
    m_bar->ApplyEntries(8, QStringLiteral("user"));
    m_bar->ApplyEntries(7, QStringLiteral("other"));
    QCOMPARE(uids().join(QLatin1Char(' ')), QStringLiteral("a b"));
}

void tst_HostActionBar::clearing()
{
    add("a", 10);
    m_bar->SetEntry(0, 10);
    m_bar->SetEnabled(0);
    QSignalSpy changed(m_bar.get(), &ActionBar::actionsChanged);
    m_bar->clear();
    QVERIFY(m_bar->actions().isEmpty());
    QCOMPARE(m_bar->entry(0), 0);
    QVERIFY(m_bar->isEnabled());
    QCOMPARE(changed.count(), 1);
}

QTEST_GUILESS_MAIN(tst_HostActionBar)

#include "tst_hostactionbar.moc"
