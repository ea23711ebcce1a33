// SPDX-License-Identifier: BSD-3-Clause
#include "ui/ActionListModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace Brimvale::Terminal;

Q_DECLARE_METATYPE(Brimvale::Terminal::ActionEntry)

class tst_ActionListModel : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void rolesHaveTheirNames();
    void rowGivesEveryRole();
    void invalidIndexGivesNothing();
    void otherButtonsReset();
    void sameButtonsRefreshOnlyWhatDiffers_data();
    void sameButtonsRefreshOnlyWhatDiffers();
    void equalButtonsSayNothing();
    void countIsNotifiedOnChangeOnly();
    void updateRefreshesOneButton();
    void updateOfUnknownButtonIsRefused();
    void clearRemovesAll();
    void press_data();
    void press();
    void pressSurvivesReplacedButtons();

private:
    static ActionEntry entry(const char* uid, const char* name)
    {
        return {QString::fromUtf8(uid), QString::fromUtf8(name)};
    }

    std::unique_ptr<ActionListModel> m_model;
};

void tst_ActionListModel::init()
{
    m_model = std::make_unique<ActionListModel>();
    new QAbstractItemModelTester(m_model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest,
                                 m_model.get());
    m_model->setActions({entry("tare", "Tare"), entry("zero", "Zero")});
}

void tst_ActionListModel::rolesHaveTheirNames()
{
    const QHash<int, QByteArray> names = m_model->roleNames();
    QCOMPARE(names.size(), 6);
    QCOMPARE(names.value(ActionListModel::UidRole), QByteArray("uid"));
    QCOMPARE(names.value(ActionListModel::NameRole), QByteArray("name"));
    QCOMPARE(names.value(ActionListModel::EnabledRole), QByteArray("enabled"));
    QCOMPARE(names.value(ActionListModel::ToggleRole), QByteArray("toggle"));
    QCOMPARE(names.value(ActionListModel::ToggleIndexRole), QByteArray("toggleIndex"));
    QCOMPARE(names.value(ActionListModel::MaxToggleIndexRole), QByteArray("maxToggleIndex"));
}

void tst_ActionListModel::rowGivesEveryRole()
{
    m_model->setActions(
        {{QStringLiteral("filter"), QStringLiteral("Filter"), false, true, 1, 2}, entry("a", "A")});
    const QModelIndex row = m_model->index(0);
    QCOMPARE(row.data(ActionListModel::UidRole).toString(), QStringLiteral("filter"));
    QCOMPARE(row.data(ActionListModel::NameRole).toString(), QStringLiteral("Filter"));
    QCOMPARE(row.data(ActionListModel::EnabledRole).toBool(), false);
    QCOMPARE(row.data(ActionListModel::ToggleRole).toBool(), true);
    QCOMPARE(row.data(ActionListModel::ToggleIndexRole).toInt(), 1);
    QCOMPARE(row.data(ActionListModel::MaxToggleIndexRole).toInt(), 2);
    QCOMPARE(m_model->index(1).data(ActionListModel::EnabledRole).toBool(), true);
}

void tst_ActionListModel::invalidIndexGivesNothing()
{
    QVERIFY(!m_model->data(QModelIndex(), ActionListModel::UidRole).isValid());
    QVERIFY(!m_model->data(m_model->index(0), Qt::UserRole + 99).isValid());
    QCOMPARE(m_model->rowCount(m_model->index(0)), 0);
}

void tst_ActionListModel::otherButtonsReset()
{
    QSignalSpy reset(m_model.get(), &QAbstractItemModel::modelReset);
    m_model->setActions({entry("zero", "Zero"), entry("tare", "Tare")});
    QCOMPARE(reset.count(), 1);
    QCOMPARE(m_model->actions().first().uid, QStringLiteral("zero"));
}

void tst_ActionListModel::sameButtonsRefreshOnlyWhatDiffers_data()
{
    QTest::addColumn<ActionEntry>("second");
    QTest::newRow("name") << entry("zero", "Null");
    QTest::newRow("enabled") << ActionEntry{QStringLiteral("zero"), QStringLiteral("Zero"), false};
    QTest::newRow("toggle") << ActionEntry{QStringLiteral("zero"), QStringLiteral("Zero"), true, true};
    QTest::newRow("toggle index") << ActionEntry{QStringLiteral("zero"), QStringLiteral("Zero"), true, false,
                                                 1};
    QTest::newRow("highest toggle index")
        << ActionEntry{QStringLiteral("zero"), QStringLiteral("Zero"), true, false, 0, 1};
}

void tst_ActionListModel::sameButtonsRefreshOnlyWhatDiffers()
{
    QFETCH(ActionEntry, second);
    QSignalSpy reset(m_model.get(), &QAbstractItemModel::modelReset);
    QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
    m_model->setActions({entry("tare", "Tare"), second});
    QCOMPARE(reset.count(), 0);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().at(0).toModelIndex().row(), 1);
    QCOMPARE(changed.first().at(1).toModelIndex().row(), 1);
    QVERIFY(m_model->actions().at(1) == second);
}

void tst_ActionListModel::equalButtonsSayNothing()
{
    QSignalSpy reset(m_model.get(), &QAbstractItemModel::modelReset);
    QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
    m_model->setActions({entry("tare", "Tare"), entry("zero", "Zero")});
    QCOMPARE(reset.count() + changed.count(), 0);
}

void tst_ActionListModel::countIsNotifiedOnChangeOnly()
{
    QSignalSpy count(m_model.get(), &ActionListModel::countChanged);
    m_model->setActions({entry("a", "A"), entry("b", "B")});
    QCOMPARE(count.count(), 0);
    m_model->setActions({entry("a", "A")});
    QCOMPARE(count.count(), 1);
    QCOMPARE(m_model->count(), 1);
}

void tst_ActionListModel::updateRefreshesOneButton()
{
    QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
    QVERIFY(m_model->updateAction({QStringLiteral("tare"), QStringLiteral("Tare"), false}));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().at(0).toModelIndex().row(), 0);
    QVERIFY(!m_model->actions().first().enabled);
}

void tst_ActionListModel::updateOfUnknownButtonIsRefused()
{
    QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
    QVERIFY(!m_model->updateAction(entry("print", "Print")));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(m_model->count(), 2);
}

void tst_ActionListModel::clearRemovesAll()
{
    m_model->clear();
    QCOMPARE(m_model->count(), 0);
}

void tst_ActionListModel::press_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<bool>("pressed");
    QTest::newRow("enabled") << QStringLiteral("a") << true;
    QTest::newRow("disabled") << QStringLiteral("b") << false;
    QTest::newRow("unknown") << QStringLiteral("c") << false;
    QTest::newRow("empty") << QString() << false;
}

void tst_ActionListModel::press()
{
    QFETCH(QString, uid);
    QFETCH(bool, pressed);
    m_model->setActions({entry("a", "A"), {QStringLiteral("b"), QStringLiteral("B"), false}});
    QSignalSpy spy(m_model.get(), &ActionListModel::actionPressed);
    QCOMPARE(m_model->press(uid), pressed);
    QCOMPARE(spy.count(), pressed ? 1 : 0);
    if (pressed) {
        QCOMPARE(spy.first().first().toString(), uid);
    }
}

void tst_ActionListModel::pressSurvivesReplacedButtons()
{
    QString seen;
    connect(m_model.get(), &ActionListModel::actionPressed, this, [this, &seen](const QString& uid) {
        m_model->clear();
        seen = uid;
    });
    QVERIFY(m_model->press(m_model->actions().first().uid));
    QCOMPARE(seen, QStringLiteral("tare"));
}

QTEST_GUILESS_MAIN(tst_ActionListModel)
#include "tst_actionlistmodel.moc"
