// SPDX-License-Identifier: BSD-3-Clause
#include "HostFixture.h"
#include "IPlugin.h"
#include "SelectListItem.h"
#include "menu/SettingsModel.h"

#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace Brimvale;
using namespace Brimvale::Terminal;

/// The settings of the fixture with a menu, and what is kept of them.
class tst_SettingsModel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void availableWhileAPluginWithAMenuRuns();
    void notAvailableWithAFaultyMenuFile();
    void rowsOfAPage();
    void visibilityFollowsAValue();
    void backToTheTopAndOut();
    void wholeAndFreeDecimals();

    void yesNo();
    void yesNoThatMayNotBeToggled();
    void lockedItems();
    void numberGoesTheWholeWay();
    void numericDialogThatIsCancelled();
    void screenThatIsClosedOverANumericDialog();
    void refusedNumbers_data();
    void refusedNumbers();
    void acceptedNumbers_data();
    void acceptedNumbers();
    void textAndItsLength();
    void selection();
    void commandWithConfirmation();
    void commandThatChangesAnotherSetting();
    void help();
    void helpInGerman();
    void helpThatIsMissing();
    void refusedByTheMenu();
    void exceptions_data();
    void exceptions();
    void language();

    void setByAScript_data();
    void setByAScript();
    void shownTexts();

    void defaultsReachTheProfileAtTheStart();
    void valuesSurviveARestart();
    void valuesAreAppliedInTheOrderOfTheirNumbers();
    void appliedAtEveryStart();
    void storedValueThatCannotBeUsed_data();
    void storedValueThatCannotBeUsed();
    void storedParameterOfThePlugin();
    void settingsFileThatCannotBeWritten();
    void applyThatThrows();
    void pluginThatClosesInACall_data();
    void pluginThatClosesInACall();
    void setByThePlugin_data();
    void setByThePlugin();
    void setByThePluginWhatItsMenuRefuses();
    void setByThePluginThatFails();
    void selectionIsStoredByItsUniqueName_data();
    void selectionIsStoredByItsUniqueName();
    void uniqueNamesOfAMenuThatFails();

private:
    void start();
    void restart()
    {
        stop();
        start();
    }
    void stop();
    Host& host() { return *m_fixture->host; }
    QObject* plugin() { return host().plugins().activeObject(); }
    QStringList takeSteps()
    {
        const QStringList steps = plugin()->property("steps").toStringList();
        plugin()->setProperty("steps", QStringList());
        return steps;
    }
    QString row(int index)
    {
        const QModelIndex at = m_model->index(index);
        QStringList parts{
            at.data(SettingsModel::ItemIdRole).toString(), at.data(SettingsModel::KindRole).toString(),
            at.data(SettingsModel::TextRole).toString(), at.data(SettingsModel::ValueTextRole).toString(),
            at.data(SettingsModel::UnitRole).toString()};
        return parts.join(QLatin1Char('|'));
    }
    QStringList rows()
    {
        QStringList rows;
        for (int i = 0; i < m_model->rowCount(); ++i) {
            rows.append(row(i));
        }
        return rows;
    }
    QString shown(int id) { return m_model->shownText(id).value_or(QStringLiteral("(none)")); }
    /// Opens the page with the numbers.
    void openFilling()
    {
        QCOMPARE(m_model->openScreen(), QString());
        QCOMPARE(m_model->press(10), QString());
        takeSteps();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
    std::unique_ptr<HostFixture> m_fixture;
    std::unique_ptr<SettingsModel> m_model;
};

void tst_SettingsModel::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_file = m_folder->filePath(QStringLiteral("settings.ini"));
    start();
}

void tst_SettingsModel::cleanup()
{
    stop();
    QFile::setPermissions(m_folder->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void tst_SettingsModel::start()
{
    HostSettings settings;
    settings.parameterFile = m_file;
    m_fixture = std::make_unique<HostFixture>(settings);
    m_model = std::make_unique<SettingsModel>(host().menuStore(), host().pluginProfiles(), host().notices());
    connect(&host(), &Host::activePluginChanged, m_model.get(), [this] {
        SettingsSubject subject;
        PluginManager& plugins = host().plugins();
        if (plugins.isRunning()) {
            subject = {plugins.activePlugin(), plugins.activeObject(), QStringLiteral("fixture_menu"),
                       plugins.activeName()};
        }
        m_model->setSubject(subject);
    });
    const LoadResult result =
        host().plugins().load(QStringLiteral(BRIMVALE_FIXTURE_DIRECTORY "/fixture_menu.so"));
    QVERIFY2(result.ok, qPrintable(result.message));
    QVERIFY(host().plugins().activate(0));
}

void tst_SettingsModel::stop()
{
    host().plugins().closeAll();
    m_model.reset();
    m_fixture.reset();
}

void tst_SettingsModel::availableWhileAPluginWithAMenuRuns()
{
    QVERIFY(m_model->isAvailable());
    m_model->openScreen();
    const QSignalSpy available(m_model.get(), &SettingsModel::availableChanged);
    const QSignalSpy open(m_model.get(), &SettingsModel::openChanged);
    host().plugins().closeAll();
    QVERIFY(!m_model->isAvailable());
    QVERIFY(!m_model->isOpen());
    QCOMPARE(m_model->rowCount(), 0);
    QCOMPARE(available.count(), 1);
    QCOMPARE(open.count(), 1);
    QCOMPARE(m_model->openScreen(), QStringLiteral("The application has no settings."));
}

void tst_SettingsModel::notAvailableWithAFaultyMenuFile()
{
    const LoadResult result = host().plugins().load(QStringLiteral(BRIMVALE_FIXTURE_DIRECTORY "/fixture.so"));
    QVERIFY(result.ok);
    host().plugins().activate(1);
    QVERIFY(host().plugins().waitUntilSettled());
    QVERIFY(!m_model->isAvailable()); // it has no menu
    QCOMPARE(m_fixture->notices, QStringList());
}

void tst_SettingsModel::rowsOfAPage()
{
    m_model->openScreen();
    QCOMPARE(m_model->title(), QStringLiteral("Fixture settings"));
    QCOMPARE(m_model->parentTitle(), QString());
    QCOMPARE(rows(),
             (QStringList{QStringLiteral("10|menu|Filling||"), QStringLiteral("20|bool|Tare first|On|"),
                          QStringLiteral("25|number|Tare limit|0.125|"), QStringLiteral("21|text|Batch||"),
                          QStringLiteral("22|command|Clear batch||"), QStringLiteral("23|command|Count||"),
                          QStringLiteral("24|bool|Sealed|Off|")}));
    m_model->press(10);
    QCOMPARE(m_model->title(), QStringLiteral("Filling"));
    QCOMPARE(m_model->parentTitle(), QStringLiteral("Fixture settings"));
    QCOMPARE(rows(),
             (QStringList{QStringLiteral("11|number|Target weight|500.0|g"),
                          QStringLiteral("12|number|Parts|5|"), QStringLiteral("13|selection|Mode|fine|")}));
    QCOMPARE(m_model->index(0).data(SettingsModel::HelpRole).toBool(), true);
    QCOMPARE(m_model->index(2).data(SettingsModel::HelpRole).toBool(), false);
}

void tst_SettingsModel::visibilityFollowsAValue()
{
    m_model->openScreen();
    QCOMPARE(m_model->rowCount(), 7);
    QCOMPARE(m_model->press(20), QString());
    QCOMPARE(m_model->rowCount(), 6);
    QCOMPARE(m_model->press(25), QStringLiteral("There is no setting 25 now."));
    QCOMPARE(m_model->press(20), QString());
    QCOMPARE(m_model->rowCount(), 7);
}

void tst_SettingsModel::backToTheTopAndOut()
{
    openFilling();
    m_model->back();
    QCOMPARE(m_model->title(), QStringLiteral("Fixture settings"));
    QVERIFY(m_model->isOpen());
    m_model->back();
    QVERIFY(!m_model->isOpen());
}

void tst_SettingsModel::wholeAndFreeDecimals()
{
    m_model->openScreen();
    QCOMPARE(m_model->set(25, QStringLiteral("0.250000")), QString());
    QCOMPARE(shown(25), QStringLiteral("0.25"));
    QCOMPARE(m_model->set(25, QStringLiteral("3")), QString());
    QCOMPARE(shown(25), QStringLiteral("3"));
}

void tst_SettingsModel::yesNo()
{
    m_model->openScreen();
    takeSteps();
    QCOMPARE(m_model->press(20), QString());
    QCOMPARE(m_model->index(1).data(SettingsModel::CheckedRole).toBool(), false);
    QCOMPARE(m_model->dialog(), QString());
    QCOMPARE(takeSteps(), (QStringList{QStringLiteral("SetItemValue 20 false"),
                                       QStringLiteral("ApplyProfileItem 20 false"),
                                       QStringLiteral("OnItemValueChanged 20")}));
}

void tst_SettingsModel::yesNoThatMayNotBeToggled()
{
    m_model->openScreen();
    QCOMPARE(m_model->index(6).data(SettingsModel::ChangeableRole).toBool(), false);
    QCOMPARE(m_model->press(24), QStringLiteral("\"Sealed\" cannot be changed now."));
    QCOMPARE(shown(24), QStringLiteral("Off"));
}

void tst_SettingsModel::lockedItems()
{
    m_model->openScreen();
    plugin()->setProperty("menuLocked", true);
    takeSteps();
    QCOMPARE(m_model->press(20), QStringLiteral("\"Tare first\" cannot be changed now."));
    QCOMPARE(m_model->press(10), QStringLiteral("\"Filling\" cannot be changed now."));
    QCOMPARE(m_model->index(1).data(SettingsModel::ChangeableRole).toBool(), false);
    QCOMPARE(takeSteps(), QStringList());
}

void tst_SettingsModel::numberGoesTheWholeWay()
{
    openFilling();
    QCOMPARE(m_model->press(11), QString());
    QCOMPARE(m_model->dialog(), QStringLiteral("number"));
    QCOMPARE(m_model->dialogTitle(), QStringLiteral("Target weight"));
    QCOMPARE(m_model->dialogText(), QStringLiteral("500.0"));
    QCOMPARE(m_model->dialogUnit(), QStringLiteral("g"));
    QCOMPARE(m_model->dialogRange(), QStringLiteral("1.0 to 1000.0"));
    QCOMPARE(m_model->dialogDecimals(), 1);
    QCOMPARE(m_model->isDialogSigned(), false);
    // The menu rounds to half grams.
    QCOMPARE(m_model->enter(QStringLiteral("250.7")), QString());
    QCOMPARE(m_model->dialog(), QString());
    QCOMPARE(takeSteps(), (QStringList{QStringLiteral("SetItemValue 11 250.7"),
                                       QStringLiteral("ApplyProfileItem 11 250.5"),
                                       QStringLiteral("OnItemValueChanged 11"),
                                       QStringLiteral("onNumericDialogClosed 11 entered 250.7")}));
    QCOMPARE(shown(11), QStringLiteral("250.5 g"));
}

void tst_SettingsModel::numericDialogThatIsCancelled()
{
    openFilling();
    m_model->press(11);
    m_model->cancel();
    QCOMPARE(m_model->dialog(), QString());
    QCOMPARE(takeSteps(), (QStringList{QStringLiteral("onNumericDialogClosed 11 cancelled 500.0")}));
    m_model->cancel();
    QCOMPARE(takeSteps(), QStringList());
}

void tst_SettingsModel::screenThatIsClosedOverANumericDialog()
{
    openFilling();
    m_model->press(11);
    m_model->closeScreen();
    QCOMPARE(takeSteps(), (QStringList{QStringLiteral("onNumericDialogClosed 11 cancelled 500.0")}));
}

void tst_SettingsModel::refusedNumbers_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");
    const QString noNumber = QStringLiteral("This is no number.");
    const QString outside = QStringLiteral("Enter a number from 1.0 to 1000.0.");
    const QString tooLarge = QStringLiteral("The number is too large.");
    QTest::newRow("nothing") << 11 << "" << noNumber;
    QTest::newRow("a word") << 11 << "ten" << noNumber;
    QTest::newRow("only a point") << 11 << "." << noNumber;
    QTest::newRow("only a sign") << 11 << "-" << noNumber;
    QTest::newRow("two points") << 11 << "1.2.3" << noNumber;
    QTest::newRow("exponent") << 11 << "1e2" << noNumber;
    QTest::newRow("not a number") << 11 << "nan" << noNumber;
    QTest::newRow("infinite") << 11 << "inf" << noNumber;
    QTest::newRow("below") << 11 << "0.9" << outside;
    QTest::newRow("above") << 11 << "1000.1" << outside;
    QTest::newRow("negative") << 11 << "-5" << outside;
    QTest::newRow("too many decimals") << 11 << "5.25"
                                       << "Decimals: at most 1.";
    QTest::newRow("too many decimals without a figure before") << 11 << ".25"
                                                               << "Decimals: at most 1.";
    QTest::newRow("decimals of a whole number") << 12 << "5.5"
                                                << "Enter a whole number.";
    QTest::newRow("not allowed by the menu") << 12 << "6"
                                             << "This value is not allowed.";
    QTest::newRow("beyond 32 bits") << 12 << "3000000001" << tooLarge;
    QTest::newRow("beyond every number") << 25 << QString(400, QLatin1Char('9')) << tooLarge;
}

void tst_SettingsModel::refusedNumbers()
{
    QFETCH(int, id);
    QFETCH(QString, text);
    QFETCH(QString, error);
    m_model->openScreen();
    takeSteps();
    QCOMPARE(m_model->pressAnywhere(id), QString());
    const QString before = shown(id);
    QCOMPARE(m_model->enter(text), error);
    QCOMPARE(m_model->dialog(), QStringLiteral("number"));
    QCOMPARE(m_model->dialogError(), error);
    QCOMPARE(m_model->dialogText(), text);
    QCOMPARE(shown(id), before);
    QCOMPARE(takeSteps(), QStringList());
    m_model->clearDialogError();
    QCOMPARE(m_model->dialogError(), QString());
}

void tst_SettingsModel::acceptedNumbers_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("lowest") << 11 << "1"
                            << "1.0 g";
    QTest::newRow("highest") << 11 << "1000.0"
                             << "1000.0 g";
    QTest::newRow("comma") << 11 << "2,5"
                           << "2.5 g";
    QTest::newRow("plus") << 11 << "+7"
                          << "7.0 g";
    QTest::newRow("point at the end") << 11 << "7."
                                      << "7.0 g";
    QTest::newRow("blanks") << 11 << " 7 "
                            << "7.0 g";
    QTest::newRow("whole") << 12 << "7"
                           << "7";
    QTest::newRow("negative whole") << 12 << "-7"
                                    << "-7";
    QTest::newRow("largest whole") << 12 << "2147483647"
                                   << "2147483647";
    QTest::newRow("no figure before the point") << 25 << ".5"
                                                << "0.5";
    QTest::newRow("minus zero") << 25 << "-0"
                                << "0";
}

void tst_SettingsModel::acceptedNumbers()
{
    QFETCH(int, id);
    QFETCH(QString, text);
    m_model->openScreen();
    QCOMPARE(m_model->pressAnywhere(id), QString());
    QCOMPARE(m_model->enter(text), QString());
    QTEST(shown(id), "shown");
}

void tst_SettingsModel::textAndItsLength()
{
    m_model->openScreen();
    QCOMPARE(m_model->press(21), QString());
    QCOMPARE(m_model->dialog(), QStringLiteral("text"));
    QCOMPARE(m_model->dialogMaximumLength(), 12);
    QCOMPARE(m_model->enter(QStringLiteral("1234567890123")), QStringLiteral("Characters: at most 12."));
    QCOMPARE(m_model->enter(QStringLiteral("Größe \"7\", a")), QString());
    QCOMPARE(shown(21), QStringLiteral("Größe \"7\", a"));
    restart();
    m_model->openScreen();
    QCOMPARE(shown(21), QStringLiteral("Größe \"7\", a"));
}

void tst_SettingsModel::selection()
{
    openFilling();
    QCOMPARE(m_model->press(13), QString());
    QCOMPARE(m_model->dialog(), QStringLiteral("selection"));
    QStringList choices;
    for (QObject* const object : m_model->dialogChoices()) {
        const auto* const choice = qobject_cast<SelectListItem*>(object);
        QVERIFY(choice);
        choices.append(choice->name() + (choice->selected() ? QStringLiteral("*") : QString()));
    }
    QCOMPARE(choices.join(QLatin1Char(' ')), QStringLiteral("coarse fine* both"));
    QCOMPARE(m_model->choose(3), QStringLiteral("There is no such entry."));
    QCOMPARE(m_model->choose(-1), QStringLiteral("There is no such entry."));
    QCOMPARE(m_model->choose(2), QString());
    QCOMPARE(m_model->dialog(), QString());
    QCOMPARE(takeSteps().first(), QStringLiteral("SetItemValue 13 b"));
    QCOMPARE(shown(13), QStringLiteral("both"));
}

void tst_SettingsModel::commandWithConfirmation()
{
    m_model->openScreen();
    QCOMPARE(m_model->set(21, QStringLiteral("A7")), QString());
    takeSteps();
    QCOMPARE(m_model->press(22), QString());
    QCOMPARE(m_model->dialog(), QStringLiteral("confirmation"));
    QCOMPARE(m_model->dialogText(), QStringLiteral("Clear the name of the batch?"));
    m_model->cancel();
    QCOMPARE(takeSteps(), QStringList());
    QCOMPARE(m_model->confirm(), QStringLiteral("Nothing is asked for."));
    m_model->press(22);
    QCOMPARE(m_model->confirm(), QString());
    QCOMPARE(takeSteps().first(), QStringLiteral("ExecuteCommand 22"));
    QCOMPARE(shown(21), QString());
}

void tst_SettingsModel::commandThatChangesAnotherSetting()
{
    m_model->openScreen();
    QCOMPARE(m_model->press(23), QString());
    QCOMPARE(shown(12), QStringLiteral("7"));
    restart();
    m_model->openScreen();
    QCOMPARE(shown(12), QStringLiteral("7"));
}

void tst_SettingsModel::help()
{
    openFilling();
    QCOMPARE(m_model->showHelp(11), QString());
    QCOMPARE(m_model->dialog(), QStringLiteral("help"));
    QCOMPARE(m_model->dialogTitle(), QStringLiteral("Target weight"));
    QCOMPARE(m_model->dialogText(),
             QStringLiteral("**Target weight** is what is filled into one package.\n"));
    QCOMPARE(m_model->dialogFormat(), QStringLiteral("markdown"));
    m_model->back();
    QCOMPARE(m_model->dialog(), QString());
    QCOMPARE(m_model->title(), QStringLiteral("Filling"));
}

void tst_SettingsModel::helpInGerman()
{
    m_model->setLanguage(QStringLiteral("de"));
    openFilling();
    m_model->showHelp(11);
    QCOMPARE(m_model->dialogText(), QStringLiteral("Das **Zielgewicht** kommt in eine Packung.\n"));
}

void tst_SettingsModel::helpThatIsMissing()
{
    openFilling();
    const QString error = QStringLiteral("The help text :/fixture/missing.md cannot be read.");
    QCOMPARE(m_model->showHelp(12), error);
    QCOMPARE(m_model->dialog(), QString());
    QCOMPARE(m_fixture->notices, (QStringList{QStringLiteral("warning: ") + error}));
}

void tst_SettingsModel::refusedByTheMenu()
{
    openFilling();
    plugin()->setProperty("menuRefuses", true);
    m_model->press(11);
    QCOMPARE(m_model->enter(QStringLiteral("7")), QStringLiteral("The application has refused the value."));
    QCOMPARE(m_model->dialog(), QStringLiteral("number"));
    QCOMPARE(takeSteps(), (QStringList{QStringLiteral("SetItemValue 11 7")}));
    restart();
    m_model->openScreen();
    QCOMPARE(shown(11), QStringLiteral("500.0 g"));
}

void tst_SettingsModel::exceptions_data()
{
    QTest::addColumn<QString>("operation");
    for (const char* const operation :
         {"GetMenuName", "IsItemVisible", "IsItemEnabled", "IsItemBoolValueAllowedToToggle", "GetItemValue",
          "SetItemValue", "GetItemText", "GetItemUnit", "GetItemRange", "GetSelectionList",
          "IsItemValueValid", "OnItemValueChanged", "ExecuteCommand", "GetHelpFilePath",
          "onNumericDialogClosed"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation);
    }
}

void tst_SettingsModel::exceptions()
{
    QFETCH(QString, operation);
    plugin()->setProperty("menuFault", operation);
    // Everything that a person can do, whatever comes of it.
    for (const int id : {20, 25, 21, 22, 23, 24, 10, 11, 12, 13}) {
        m_model->openScreen();
        m_model->pressAnywhere(id);
        m_model->enter(QStringLiteral("7"));
        m_model->choose(0);
        m_model->confirm();
        m_model->showHelp(id);
        m_model->back();
    }
    m_model->closeScreen();
    QCOMPARE(m_fixture->noticesWith(QStringLiteral("failed in %1()").arg(operation)),
             (QStringList{QStringLiteral("error: The menu of the application \"Fixture\" failed in %1(): "
                                         "std::runtime_error: ")
                              .arg(operation)
                          + (operation == QLatin1String("onNumericDialogClosed")
                                 ? QStringLiteral("the fixture failed on purpose")
                                 : QStringLiteral("the menu failed on purpose"))}));
    // The plug-in goes on.
    QVERIFY(host().plugins().isRunning());
    plugin()->setProperty("menuFault", QString());
    m_model->openScreen();
    QCOMPARE(m_model->set(11, QStringLiteral("33")), QString());
    QCOMPARE(shown(11), QStringLiteral("33.0 g"));
}

void tst_SettingsModel::language()
{
    openFilling();
    m_model->press(11);
    host().setLanguage(QStringLiteral("de"));
    m_model->setLanguage(QStringLiteral("de"));
    QCOMPARE(m_model->title(), QStringLiteral("Abfüllen"));
    QCOMPARE(m_model->parentTitle(), QStringLiteral("Einstellungen des Prüflings"));
    QCOMPARE(m_model->dialogTitle(), QStringLiteral("Zielgewicht"));
    QCOMPARE(rows(), (QStringList{QStringLiteral("11|number|Zielgewicht|500.0|g"),
                                  QStringLiteral("12|number|Stücke|5|"),
                                  QStringLiteral("13|selection|Betriebsart|fein|")}));
    m_model->cancel();
    m_model->back();
    m_model->press(22);
    QCOMPARE(m_model->dialogText(), QStringLiteral("Den Namen der Charge leeren?"));
    host().setLanguage(QStringLiteral("en"));
    m_model->setLanguage(QStringLiteral("en"));
    QCOMPARE(m_model->dialogText(), QStringLiteral("Clear the name of the batch?"));
    QCOMPARE(m_model->title(), QStringLiteral("Fixture settings"));
}

void tst_SettingsModel::setByAScript_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QString>("shown");
    QTest::newRow("number on another page") << 11 << "12.5"
                                            << ""
                                            << "12.5 g";
    QTest::newRow("on") << 20 << "on"
                        << ""
                        << "On";
    QTest::newRow("off") << 20 << "off"
                         << ""
                         << "Off";
    QTest::newRow("neither") << 20 << "yes"
                             << "A yes/no is set to on or off."
                             << "On";
    QTest::newRow("name") << 13 << "coarse"
                          << ""
                          << "coarse";
    QTest::newRow("value") << 13 << "b"
                           << ""
                           << "both";
    QTest::newRow("no entry") << 13 << "medium"
                              << "There is no entry \"medium\"; there are: coarse, fine, both."
                              << "fine";
    QTest::newRow("command") << 23 << "1"
                             << "\"Count\" has no value."
                             << "Count";
    QTest::newRow("no item") << 99 << "1"
                             << "There is no setting 99 now."
                             << "(none)";
}

void tst_SettingsModel::setByAScript()
{
    QFETCH(int, id);
    QFETCH(QString, text);
    QCOMPARE(m_model->set(11, QStringLiteral("5")), QStringLiteral("The settings are not open."));
    m_model->openScreen();
    QTEST(m_model->set(id, text), "error");
    QTEST(shown(id), "shown");
}

void tst_SettingsModel::shownTexts()
{
    QVERIFY(!m_model->shownText(11));
    m_model->openScreen();
    QCOMPARE(shown(10), QStringLiteral("Filling"));
    QCOMPARE(shown(11), QStringLiteral("500.0 g"));
    QCOMPARE(shown(23), QStringLiteral("Count"));
    m_model->press(20);
    QVERIFY(!m_model->shownText(25));
}

void tst_SettingsModel::defaultsReachTheProfileAtTheStart()
{
    const QStringList applied = takeSteps().filter(QStringLiteral("ApplyProfileItem"));
    QCOMPARE(applied,
             (QStringList{QStringLiteral("ApplyProfileItem 11 500"), QStringLiteral("ApplyProfileItem 12 5"),
                          QStringLiteral("ApplyProfileItem 13 f"), QStringLiteral("ApplyProfileItem 20 true"),
                          QStringLiteral("ApplyProfileItem 24 false"),
                          QStringLiteral("ApplyProfileItem 25 0.125")}));
    // Nothing was set, so nothing is stored.
    QVERIFY(!QFile::exists(m_file));
}

void tst_SettingsModel::valuesSurviveARestart()
{
    m_model->openScreen();
    QCOMPARE(m_model->set(25, QStringLiteral("0.1")), QString());
    QCOMPARE(m_model->set(11, QStringLiteral("12.5")), QString());
    QCOMPARE(m_model->set(12, QStringLiteral("9")), QString());
    QCOMPARE(m_model->set(13, QStringLiteral("both")), QString());
    QCOMPARE(m_model->set(20, QStringLiteral("off")), QString());
    restart();
    const QStringList applied = takeSteps().filter(QStringLiteral("ApplyProfileItem"));
    QCOMPARE(applied,
             (QStringList{
                 QStringLiteral("ApplyProfileItem 11 12.5"), QStringLiteral("ApplyProfileItem 12 9"),
                 QStringLiteral("ApplyProfileItem 13 b"), QStringLiteral("ApplyProfileItem 20 false"),
                 QStringLiteral("ApplyProfileItem 24 false"), QStringLiteral("ApplyProfileItem 25 0.1")}));
    m_model->openScreen();
    QCOMPARE(shown(11), QStringLiteral("12.5 g"));
    QCOMPARE(shown(20), QStringLiteral("Off"));
}

void tst_SettingsModel::valuesAreAppliedInTheOrderOfTheirNumbers()
{
    // Set in another order, and of another number of figures, so that neither time nor text decides.
    m_model->openScreen();
    for (const int id : {25, 12, 11}) {
        QCOMPARE(m_model->set(id, QStringLiteral("3")), QString());
    }
    restart();
    QStringList numbers;
    for (const QString& step : takeSteps().filter(QStringLiteral("ApplyProfileItem"))) {
        numbers.append(step.section(QLatin1Char(' '), 1, 1));
    }
    QCOMPARE(numbers.join(QLatin1Char(' ')), QStringLiteral("11 12 13 20 24 25"));
}

void tst_SettingsModel::appliedAtEveryStart()
{
    host().plugins().deactivate();
    QVERIFY(host().plugins().waitUntilSettled());
    host().plugins().activate(0);
    QVERIFY(host().plugins().waitUntilSettled());
    QCOMPARE(takeSteps().filter(QStringLiteral("ApplyProfileItem 11 500")).size(), 2);
}

void tst_SettingsModel::storedValueThatCannotBeUsed_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("applied");
    QTest::newRow("outside of what the menu allows") << 11 << "5000"
                                                     << "500";
    QTest::newRow("no number") << 11 << "much"
                               << "500";
    QTest::newRow("infinite") << 25 << "inf"
                              << "0.125";
    QTest::newRow("not whole") << 12 << "7.5"
                               << "5";
    QTest::newRow("neither yes nor no") << 20 << "1"
                                        << "true";
}

void tst_SettingsModel::storedValueThatCannotBeUsed()
{
    QFETCH(int, id);
    QFETCH(QString, stored);
    QFETCH(QString, applied);
    stop();
    {
        QSettings file(m_file, QSettings::IniFormat);
        file.setValue(QStringLiteral("user/fixture_menu/:/fixture/menu.json/%1").arg(id), stored);
    }
    start();
    QVERIFY(takeSteps().contains(QStringLiteral("ApplyProfileItem %1 %2").arg(id).arg(applied)));
    host().plugins().closeAll();
    stop();
    // The notice comes while the plug-in is loaded, and the value is kept for whoever looks for it.
    QSettings file(m_file, QSettings::IniFormat);
    QCOMPARE(file.value(QStringLiteral("user/fixture_menu/:/fixture/menu.json/%1").arg(id)).toString(),
             stored);
    start();
    QCOMPARE(m_fixture->notices.size(), 1);
    QVERIFY2(m_fixture->notices.first().startsWith(
                 QStringLiteral("warning: The stored value \"%1\" of the setting ").arg(stored)),
             qPrintable(m_fixture->notices.first()));
}

void tst_SettingsModel::storedParameterOfThePlugin()
{
    m_model->openScreen();
    QCOMPARE(m_model->set(11, QStringLiteral("12.5")), QString());
    QCOMPARE(host().system().GetStoredParameter(QStringLiteral(":/fixture/menu.json"), QStringLiteral("user"),
                                                QStringLiteral("fixture_menu"), QString(), 11),
             QStringLiteral("12.5"));
}

void tst_SettingsModel::settingsFileThatCannotBeWritten()
{
    stop();
    // A folder in the place of the file: not even root can write it.
    QVERIFY(QDir().mkpath(m_file + QStringLiteral("/x")));
    start();
    m_model->openScreen();
    QCOMPARE(m_model->set(11, QStringLiteral("12.5")), QString());
    QCOMPARE(shown(11), QStringLiteral("12.5 g"));
    QCOMPARE(m_fixture
                 ->noticesWith(QStringLiteral("error: The setting holds until the terminal ends, but was not "
                                              "stored. "))
                 .size(),
             1);
}

void tst_SettingsModel::applyThatThrows()
{
    host().plugins().deactivate();
    QVERIFY(host().plugins().waitUntilSettled());
    host().plugins().plugin(0)->GetSelfRefAsQObject()->setProperty("menuFault",
                                                                   QStringLiteral("ApplyProfileItem"));
    host().plugins().activate(0);
    QVERIFY(host().plugins().waitUntilSettled());
    QVERIFY(host().plugins().isRunning());
    QCOMPARE(m_fixture->notices,
             (QStringList{
                 QStringLiteral("error: The application failed in ApplyProfileItem() while it was given its "
                                "settings: std::runtime_error: the fixture failed on purpose")}));
    // The others were applied nevertheless.
    QVERIFY(takeSteps().contains(QStringLiteral("ApplyProfileItem 25 0.125")));
}

namespace
{

/// Acts once, when the fixture notes a step that begins so.
class AtStep : public QObject
{
public:
    AtStep(QObject* plugin, const QString& step, std::function<void()> action)
        : m_step(step)
        , m_action(std::move(action))
    {
        plugin->installEventFilter(this);
    }

    bool eventFilter(QObject* plugin, QEvent* event) override
    {
        const QStringList steps = plugin->property("steps").toStringList();
        if (event->type() == QEvent::DynamicPropertyChange && m_action && !steps.isEmpty()
            && steps.last().startsWith(m_step)) {
            std::exchange(m_action, nullptr)();
        }
        return false;
    }

private:
    const QString m_step;
    std::function<void()> m_action;
};

} // namespace

void tst_SettingsModel::pluginThatClosesInACall_data()
{
    QTest::addColumn<QString>("step");
    QTest::addColumn<int>("id");
    QTest::newRow("SetItemValue") << "SetItemValue" << 11;
    QTest::newRow("ApplyProfileItem") << "ApplyProfileItem" << 11;
    QTest::newRow("OnItemValueChanged") << "OnItemValueChanged" << 11;
    QTest::newRow("onNumericDialogClosed") << "onNumericDialogClosed" << 11;
    QTest::newRow("ExecuteCommand") << "ExecuteCommand" << 23;
}

void tst_SettingsModel::pluginThatClosesInACall()
{
    QFETCH(QString, step);
    QFETCH(int, id);
    m_model->openScreen();
    const AtStep closing(plugin(), step, [this] { host().plugins().deactivate(); });
    if (id == 11) {
        m_model->set(11, QStringLiteral("12.5"));
    } else {
        m_model->pressAnywhere(id);
    }
    QVERIFY(host().plugins().waitUntilSettled());
    QVERIFY(!m_model->isAvailable());
    QVERIFY(!m_model->isOpen());
    QCOMPARE(m_model->dialog(), QString());
    QCOMPARE(m_model->rowCount(), 0);
    QCOMPARE(m_fixture->notices, QStringList());
    // Nothing is stored under a name that is no plug-in's.
    const QSettings file(m_file, QSettings::IniFormat);
    for (const QString& key : file.allKeys()) {
        QVERIFY2(key.startsWith(QStringLiteral("user/fixture_menu/")), qPrintable(key));
    }
}

void tst_SettingsModel::setByThePlugin_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("stored");
    QTest::newRow("number") << 11 << QVariant(12.5) << "12.5";
    QTest::newRow("whole number") << 12 << QVariant(9) << "9";
    QTest::newRow("selection") << 13 << QVariant(QStringLiteral("b")) << "b";
    QTest::newRow("yes/no") << 20 << QVariant(false) << "false";
    QTest::newRow("text") << 21 << QVariant(QStringLiteral("A 7")) << "A 7";
}

void tst_SettingsModel::setByThePlugin()
{
    QFETCH(int, id);
    QFETCH(QVariant, value);
    QFETCH(QString, stored);
    const QString key = QStringLiteral("user/fixture_menu/:/fixture/menu.json/%1").arg(id);
    const auto storedNow = [&] { return QSettings(m_file, QSettings::IniFormat).value(key).toString(); };
    const QVariant before =
        host().storedParameters().value(QStringLiteral(":/fixture/menu.json"), QStringLiteral("user"),
                                        QStringLiteral("fixture_menu"), QString(), id);
    QCOMPARE(before.toString(), QString());

    // By a key: as soon as the plug-in has done what it is for.
    plugin()->setProperty("settingOfAction", QVariantList{id, value});
    QVERIFY(host().pressAction(QStringLiteral("fixture.action")));
    QCOMPARE(storedNow(), stored);
    QCOMPARE(QSettings(m_file, QSettings::IniFormat).allKeys(), QStringList{key});

    // Otherwise: when it closes.
    QVERIFY(QFile::remove(m_file));
    stop();
    start();
    host().plugins().activePlugin()->SetProfileItem(id, value, QString());
    QVERIFY(!QFile::exists(m_file));
    restart();
    QCOMPARE(storedNow(), stored);
    QVERIFY(takeSteps().contains(QStringLiteral("ApplyProfileItem %1 %2").arg(id).arg(value.toString())));
    QCOMPARE(m_fixture->notices, QStringList());
}

void tst_SettingsModel::setByThePluginWhatItsMenuRefuses()
{
    IPlugin* const running = host().plugins().activePlugin();
    running->SetProfileItem(11, 5000.0, QString());
    running->SetProfileItem(12, 7, QString());
    restart();
    const QStringList applied = takeSteps();
    QVERIFY(applied.contains(QStringLiteral("ApplyProfileItem 11 500")));
    QVERIFY(applied.contains(QStringLiteral("ApplyProfileItem 12 7")));
    QCOMPARE(m_fixture->notices, QStringList());
}

void tst_SettingsModel::setByThePluginThatFails()
{
    host().plugins().activePlugin()->SetProfileItem(12, 7, QString());
    plugin()->setProperty("menuFault", QStringLiteral("GetItemValue"));
    QVERIFY(host().plugins().closeAll());
    QVERIFY(!QFile::exists(m_file));
    QCOMPARE(m_fixture->noticesWith(QStringLiteral("error: The application failed in GetItemValue()")).size(),
             1);
}

void tst_SettingsModel::selectionIsStoredByItsUniqueName_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("applied");
    QTest::newRow("with a unique name") << "coarse"
                                        << "coarse flow"
                                        << "c";
    QTest::newRow("without one") << "both"
                                 << "b"
                                 << "b";
}

void tst_SettingsModel::selectionIsStoredByItsUniqueName()
{
    QFETCH(QString, chosen);
    QFETCH(QString, stored);
    QFETCH(QString, applied);
    m_model->openScreen();
    QCOMPARE(m_model->set(13, chosen), QString());
    QCOMPARE(QSettings(m_file, QSettings::IniFormat)
                 .value(QStringLiteral("user/fixture_menu/:/fixture/menu.json/13"))
                 .toString(),
             stored);
    restart();
    QVERIFY(takeSteps().contains(QStringLiteral("ApplyProfileItem 13 ") + applied));
    m_model->openScreen();
    QCOMPARE(shown(13), chosen);
}

void tst_SettingsModel::uniqueNamesOfAMenuThatFails()
{
    m_model->openScreen();
    plugin()->setProperty("menuFault", QStringLiteral("GetUniqueNameFromIndexInSelectionList"));
    QCOMPARE(m_model->set(13, QStringLiteral("coarse")), QString());
    QCOMPARE(QSettings(m_file, QSettings::IniFormat)
                 .value(QStringLiteral("user/fixture_menu/:/fixture/menu.json/13"))
                 .toString(),
             QStringLiteral("c")); // the value itself, which is read as well
    QCOMPARE(m_fixture->notices.size(), 1);
}

QTEST_GUILESS_MAIN(tst_SettingsModel)
#include "tst_settingsmodel.moc"
