// SPDX-License-Identifier: BSD-3-Clause
//
// Set BRIMVALE_PICTURES to a directory to keep the pictures and look at them.
#include "TerminalFixture.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace Brimvale::Terminal;

/// The protocol menu: its model and what a person does on it.
class tst_ProtocolMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void opensFromTheApplicationMenu();
    void opensWithoutAnApplication();
    void closes_data();
    void closes();
    void showsTheItemsUnderTheirSections();
    void aTapAsksForAnItem_data();
    void aTapAsksForAnItem();
    void theKeysStepOn_data();
    void theKeysStepOn();
    void aChosenItemRefreshesItsRowOnly();
    void otherSectionsResetTheList();
    void tellsHowManyAreChosen();
    void anEmptyPartSaysSo();
    void longNamesAreNotCut();
    void operatorIsEntered_data();
    void operatorIsEntered();

private:
    ProtocolModel& model() { return *m_terminal->instrument.protocol(); }
    void open()
    {
        m_terminal->startApplication();
        model().setRows(rows());
        model().setSelection(QStringLiteral("Single weighing"), QStringLiteral("Everything"),
                             QStringLiteral("Print key"));
        model().setOpen(true);
        grab("protocol-menu.png");
    }
    static QVector<ProtocolRow> rows()
    {
        const auto row = [](const char* uid, const char* name, const char* section, bool chosen) {
            return ProtocolRow{QString::fromLatin1(uid), QString::fromUtf8(name), QString::fromUtf8(section),
                               chosen};
        };
        return {row("title", "Title", "Header: Receiving goods", true),
                row("date", "Date", "Header: General", true),
                row("gross", "Gross", "Values: Measurement", true),
                row("tare", "Tare weight", "Values: Measurement", false),
                row("net", "Net", "Values: Measurement", true),
                row("signature", "Signature", "Footer: General", false)};
    }
    void grab(const char* name)
    {
        // Lays the screen out, too.
        QString error;
        QVERIFY2(m_terminal->window.grab(QDir(m_folder).filePath(QLatin1String(name)), &error),
                 qPrintable(error));
    }

    QTemporaryDir m_temporary;
    QString m_folder;
    std::unique_ptr<TerminalFixture> m_terminal;
};

void tst_ProtocolMenu::init()
{
    m_folder = qEnvironmentVariable("BRIMVALE_PICTURES", m_temporary.path());
    m_terminal = std::make_unique<TerminalFixture>();
    QString error;
    QVERIFY2(m_terminal->window.load(&error), qPrintable(error));
}

void tst_ProtocolMenu::cleanup()
{
    QCOMPARE(m_terminal->window.takeQmlWarnings(), QStringList());
    m_terminal.reset();
}

void tst_ProtocolMenu::operatorIsEntered_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("entered");
    QTest::newRow("entered") << QStringLiteral("textEnter") << 1;
    QTest::newRow("cancelled") << QStringLiteral("textCancel") << 0;
}

void tst_ProtocolMenu::operatorIsEntered()
{
    QFETCH(QString, key);
    QFETCH(int, entered);
    open();
    model().setRows({{QStringLiteral("terminal.user"), QStringLiteral("Operator"),
                      QStringLiteral("Header: General"), true}});
    grab("operator-none.png");
    QVERIFY(m_terminal->textOf(QStringLiteral("operatorName")).startsWith(QLatin1String("Enter name")));
    model().setOperatorName(QStringLiteral("Ada Lovelace"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("operatorName")), QStringLiteral("Ada Lovelace"));
    QSignalSpy toggled(&model(), &ProtocolModel::itemToggled);
    QSignalSpy names(&model(), &ProtocolModel::operatorEntered);
    QVERIFY(m_terminal->tap(QStringLiteral("operatorKey")));
    grab("operator-dialog.png");
    QQuickItem* const input = m_terminal->shown(QStringLiteral("textInput"));
    QVERIFY(input);
    QCOMPARE(input->property("text").toString(), QStringLiteral("Ada Lovelace"));
    QVERIFY(input->hasActiveFocus());
    input->setProperty("text", QStringLiteral("Grace Hopper"));
    QVERIFY(m_terminal->tap(key));
    QCOMPARE(names.count(), entered);
    if (entered > 0)
        QCOMPARE(names.first().first().toString(), QStringLiteral("Grace Hopper"));
    QVERIFY(!m_terminal->shown(QStringLiteral("operatorDialog")));
    QVERIFY(model().isOpen());
    QCOMPARE(toggled.count(), 0); // The item stays chosen.
}

void tst_ProtocolMenu::opensFromTheApplicationMenu()
{
    m_terminal->startApplication();
    QVERIFY(m_terminal->tap(QStringLiteral("applicationKey")));
    grab("protocol-key.png");
    QVERIFY(!m_terminal->shown(QStringLiteral("protocolMenu")));
    QVERIFY(m_terminal->tap(QStringLiteral("protocolKey")));
    QVERIFY(model().isOpen());
    QVERIFY(m_terminal->shown(QStringLiteral("protocolMenu")));
    QVERIFY(!m_terminal->shown(QStringLiteral("applicationMenu")));
}

void tst_ProtocolMenu::opensWithoutAnApplication()
{
    QVERIFY(m_terminal->tap(QStringLiteral("applicationKey")));
    grab("protocol-key-alone.png");
    QVERIFY(m_terminal->tap(QStringLiteral("protocolKey")));
    QVERIFY(model().isOpen());
}

void tst_ProtocolMenu::closes_data()
{
    QTest::addColumn<QString>("by");
    QTest::newRow("the key") << QStringLiteral("protocolDone");
    QTest::newRow("a tap on the weight") << QStringLiteral("mainDisplay");
}

void tst_ProtocolMenu::closes()
{
    QFETCH(QString, by);
    open();
    QSignalSpy pressed(m_terminal->instrument.actions(), &ActionListModel::actionPressed);
    QVERIFY(m_terminal->tap(by));
    QVERIFY(!model().isOpen());
    QVERIFY(!m_terminal->shown(QStringLiteral("protocolMenu")));
    QCOMPARE(pressed.count(), 0);
}

void tst_ProtocolMenu::showsTheItemsUnderTheirSections()
{
    open();
    const QQuickItem* const gross = m_terminal->shown(QStringLiteral("protocolItem:gross"));
    const QQuickItem* const tare = m_terminal->shown(QStringLiteral("protocolItem:tare"));
    QVERIFY(gross);
    QVERIFY(tare);
    QVERIFY(tare->y() > gross->y());
    // Every key is as high as a finger needs it.
    QVERIFY(gross->height() >= 44);
    QCOMPARE(m_terminal->textOf(QStringLiteral("selected:kind")), QStringLiteral("Single weighing"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("selected:part")), QStringLiteral("Everything"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("selected:trigger")), QStringLiteral("Print key"));
}

void tst_ProtocolMenu::aTapAsksForAnItem_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<bool>("chosen");
    QTest::newRow("not chosen") << QStringLiteral("tare") << true;
    QTest::newRow("chosen") << QStringLiteral("gross") << false;
}

void tst_ProtocolMenu::aTapAsksForAnItem()
{
    QFETCH(QString, uid);
    open();
    QSignalSpy toggled(&model(), &ProtocolModel::itemToggled);
    QVERIFY(m_terminal->tap(QStringLiteral("protocolItem:") + uid));
    QCOMPARE(toggled.count(), 1);
    QCOMPARE(toggled.first().at(0).toString(), uid);
    QTEST(toggled.first().at(1).toBool(), "chosen");
    QVERIFY(model().isOpen());
}

void tst_ProtocolMenu::theKeysStepOn_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("told");
    for (const char* name : {"kind", "part", "trigger"}) {
        QTest::addRow("next %s", name) << QStringLiteral("next:") + QLatin1String(name)
                                       << QString::fromLatin1(name) + QStringLiteral(" 1");
        QTest::addRow("previous %s", name) << QStringLiteral("previous:") + QLatin1String(name)
                                           << QString::fromLatin1(name) + QStringLiteral(" -1");
    }
}

void tst_ProtocolMenu::theKeysStepOn()
{
    QFETCH(QString, key);
    open();
    QStringList told;
    const auto record = [&told](const char* name) {
        return [&told, name](int step) {
            told.append(QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(step));
        };
    };
    connect(&model(), &ProtocolModel::kindStepped, this, record("kind"));
    connect(&model(), &ProtocolModel::partStepped, this, record("part"));
    connect(&model(), &ProtocolModel::triggerStepped, this, record("trigger"));
    QVERIFY(m_terminal->tap(key));
    QTEST(told.join(QLatin1Char(' ')), "told");
}

void tst_ProtocolMenu::aChosenItemRefreshesItsRowOnly()
{
    open();
    QSignalSpy changed(&model(), &ProtocolModel::dataChanged);
    QSignalSpy reset(&model(), &ProtocolModel::modelReset);
    QVector<ProtocolRow> changedRows = rows();
    changedRows[3].chosen = true;
    model().setRows(changedRows);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().at(0).toModelIndex().row(), 3);
    QCOMPARE(reset.count(), 0);
    model().setRows(changedRows);
    QCOMPARE(changed.count(), 1);
}

void tst_ProtocolMenu::otherSectionsResetTheList()
{
    open();
    QSignalSpy reset(&model(), &ProtocolModel::modelReset);
    QVector<ProtocolRow> changedRows = rows();
    changedRows[0].section = QStringLiteral("Kopf");
    model().setRows(changedRows);
    QCOMPARE(reset.count(), 1);
    changedRows.removeLast();
    model().setRows(changedRows);
    QCOMPARE(reset.count(), 2);
    QCOMPARE(model().rowCount(), 5);
}

void tst_ProtocolMenu::tellsHowManyAreChosen()
{
    open();
    QCOMPARE(model().count(), 6);
    QCOMPARE(model().chosenCount(), 4);
}

void tst_ProtocolMenu::anEmptyPartSaysSo()
{
    open();
    model().setRows({});
    QCOMPARE(model().count(), 0);
    grab("protocol-menu-empty.png");
}

void tst_ProtocolMenu::longNamesAreNotCut()
{
    open();
    QVector<ProtocolRow> longRows = rows();
    longRows[2].name =
        QStringLiteral("Bruttogewicht der zweiten Teilprobe nach der Trocknung bei 105 °C einschließlich "
                       "des Tiegels und des Deckels");
    model().setRows(longRows);
    model().setSelection(QStringLiteral("Geführter Ablauf"), QStringLiteral("SICS-Antwort"),
                         QStringLiteral("Das Gewicht der Teilprobe ist stabil"));
    grab("protocol-menu-long.png");
    const QQuickItem* const row = m_terminal->shown(QStringLiteral("protocolItem:gross"));
    QVERIFY(row);
    QVERIFY(row->height() > 44);
}

QTEST_MAIN(tst_ProtocolMenu)
#include "tst_protocolmenu.moc"
