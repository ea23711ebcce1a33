// SPDX-License-Identifier: BSD-3-Clause
#include "FullDisk.h"
#include "Progressbar.h"
#include "TerminalFixture.h"

#include <QCloseEvent>
#include <QFile>
#include <QImage>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

// The icons of plug-ins are SVG pictures. Their reader is a plug-in of Qt's, found at run time: linking its library would
// bring that of the widgets along.
#if defined(QT_SVG_LIB) || defined(QT_WIDGETS_LIB)
#error "the terminal links libraries that it does not use"
#endif

using namespace Brimvale;
using namespace Brimvale::Terminal;

class tst_TerminalWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // The window.
    void nothingIsThereBeforeLoad();
    void sizeFollowsTheBench();
    void closingIsReported();
    void pictureOfTheSameStateIsTheSame();
    void pictureShowsTheStateAtTheCall();
    void pictureWaitsForWhatStillLoads();
    void pictureThatCannotBeWrittenIsAnError();
    void pictureOnAFullDisk();
    void svgPicturesAreRead();

    // The screens of plug-ins.
    void screenFillsTheApplicationArea();
    void areaSaysWhetherThereAreApplications();
    void screenThatCannotBeLoadedIsReported_data();
    void screenThatCannotBeLoadedIsReported();
    void screenIsReplaced();
    void screenSeesObjectPublishedLater();
    void withdrawnObjectIsGone();
    void warningsOfAScreenAreCollected();
    void clearedScreenLeavesNothingBehind();
    void screenGoesBeforeItsDestroyedObject();
    void screenMayEndItselfFromItsHandler();
    void screenSetBeforeLoadIsShown();

    // The display.
    void displayShowsTheModel();
    void displayFallsBackToTheTerminals();
    void mark_data();
    void mark();
    void errorTakesThePlaceOfTheValue_data();
    void errorTakesThePlaceOfTheValue();
    void invalidValueIsNotShown();
    void hiddenDisplayIsEmpty();
    void decimalPointStays_data();
    void decimalPointStays();
    void unverifiedDigitsAreFramed_data();
    void unverifiedDigitsAreFramed();
    void smallDisplayShowsItsValue();
    void warningsFollowTheModel();
    void connectedComputersAreCounted();
    void sentWeightIsNotCutOff_data();
    void sentWeightIsNotCutOff();
    void failedPrintsAreRepeated_data();
    void failedPrintsAreRepeated();

    // What the person does.
    void tappedActionIsPressed();
    void disabledActionIsNotPressed();
    void terminalsActionsWithoutApplication();
    void eighthActionIsOnTheSecondPage();
    void pageIsKeptInRange();
    void printKey();
    void languageKey();
    void applicationIsChosen();
    void noticeIsDismissed();
    void noticeOffersToClose();
    void informationGoesByItself();
    void weightIsPutOnAndTakenOff();
    void loadIsCleared();
    void sliderAsksForAValue();
    void benchPageIsChosenByItsTab_data();
    void benchPageIsChosenByItsTab();
    void unitKeyIsTouched();
    void smallDisplayOfTheTerminal();
    void approvalIsAskedFor();
    void unitIsAskedFor();
    void parameterSetIsAskedFor_data();
    void parameterSetIsAskedFor();
    void transferIsAskedFor_data();
    void transferIsAskedFor();
    void detectorIsShown();
    void benchSwitches();
    void bubbleIsDragged();
    void benchWithARealSource();
    void faultsCanBeRead();

    void workflowBand_data();
    void workflowBand();
    void workflowMarksFollowTheirModel();
    void languageIsSwitchedAtRunTime();

private:
    QString file(const char* name) const { return m_directory.filePath(QString::fromUtf8(name)); }
    static QByteArray contentOf(const QString& path);

    QTemporaryDir m_directory;
    std::unique_ptr<TerminalFixture> m_terminal;
};

void tst_TerminalWindow::init()
{
    QVERIFY(m_directory.isValid());
    m_terminal = std::make_unique<TerminalFixture>();
    QString error;
    QVERIFY2(m_terminal->window.load(&error), qPrintable(error));
}

void tst_TerminalWindow::cleanup()
{
    // Nothing that any test did may have led to a warning.
    QCOMPARE(m_terminal->window.takeQmlWarnings(), QStringList());
    m_terminal.reset();
}

QByteArray tst_TerminalWindow::contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_TerminalWindow::nothingIsThereBeforeLoad()
{
    InstrumentModel instrument;
    BenchModel bench;
    WorkflowModel workflow;
    TerminalWindow window(instrument, bench, workflow);
    QVERIFY(!window.engine());
    QVERIFY(!window.rootItem());
    QVERIFY(!window.window());
    window.show();
    window.retranslate();
    window.clearPluginScreen();
    QString error;
    QVERIFY(!window.grab(file("none.png"), &error));
    QVERIFY2(error.contains(QStringLiteral("not loaded")), qPrintable(error));
    QVERIFY(!QFile::exists(file("none.png")));
}

void tst_TerminalWindow::sizeFollowsTheBench()
{
    QCOMPARE(m_terminal->window.size(), QSize(1360, 600));
    QCOMPARE(m_terminal->window.window()->size(), QSize(1360, 600));
    QVERIFY(m_terminal->shown(QStringLiteral("bench")));
    m_terminal->window.setBenchVisible(false);
    QCOMPARE(m_terminal->window.size(), QSize(1024, 600));
    QCOMPARE(m_terminal->window.window()->size(), QSize(1024, 600));
    QVERIFY(!m_terminal->shown(QStringLiteral("bench")));
}

void tst_TerminalWindow::closingIsReported()
{
    QSignalSpy closed(&m_terminal->window, &TerminalWindow::closed);
    QCloseEvent event;
    QCoreApplication::sendEvent(m_terminal->window.window(), &event);
    QCOMPARE(closed.count(), 1);
}

void tst_TerminalWindow::pictureOfTheSameStateIsTheSame()
{
    m_terminal->startApplication();
    QVERIFY(m_terminal->window.grab(file("first.png"), nullptr));

    TerminalFixture other;
    QVERIFY(other.window.load(nullptr));
    other.display.setMesswert(QStringLiteral("9.9"));
    other.startApplication();
    QVERIFY(other.window.grab(file("changed.png"), nullptr));
    other.display.setMesswert(m_terminal->display.messwert());
    QVERIFY(other.window.grab(file("second.png"), nullptr));

    QVERIFY(!contentOf(file("first.png")).isEmpty());
    QVERIFY(contentOf(file("first.png")) != contentOf(file("changed.png")));
    QCOMPARE(contentOf(file("second.png")), contentOf(file("first.png")));
}

void tst_TerminalWindow::pictureShowsTheStateAtTheCall()
{
    const QRect place(24, 56 + 56, 900, 128);
    QVERIFY(m_terminal->window.grab(file("value.png"), nullptr));
    m_terminal->terminalDisplay.setErrorText(QStringLiteral("Overload"));
    QVERIFY(m_terminal->window.grab(file("error.png"), nullptr));
    const auto redness = [&place](const QString& path) {
        const QColor color = QImage(path).pixelColor(place.topLeft() + QPoint(12, 12));
        return color.red() - color.green();
    };
    QVERIFY(redness(file("value.png")) < 20);
    QVERIFY(redness(file("error.png")) > 100);
}

void tst_TerminalWindow::pictureWaitsForWhatStillLoads()
{
    m_terminal->startApplication(QStringLiteral("BackgroundScreen.qml"));
    QVERIFY(m_terminal->window.grab(file("pending.png"), nullptr));
    QCOMPARE(QImage(file("pending.png")).pixelColor(400, 400), QColor(0, 255, 0));
}

void tst_TerminalWindow::pictureThatCannotBeWrittenIsAnError()
{
    QString error;
    const QString path = file("no/such/folder.png");
    QVERIFY(!m_terminal->window.grab(path, &error));
    QVERIFY2(error.contains(path), qPrintable(error));
    QVERIFY(!m_terminal->window.grab(path, nullptr));
}

void tst_TerminalWindow::pictureOnAFullDisk()
{
    const QString path = file("full.png");
    QVERIFY(m_terminal->window.grab(path, nullptr));
    QFile earlier(path);
    QVERIFY(earlier.open(QIODevice::ReadOnly));
    const QByteArray picture = earlier.readAll();
    earlier.close();
    QString error;
    {
        const FullDisk disk(static_cast<rlim_t>(picture.size()) / 2);
        QVERIFY(!m_terminal->window.grab(path, &error));
    }
    QVERIFY2(error.startsWith(QLatin1String("The picture ") + path + QLatin1String(" cannot be written: ")),
             qPrintable(error));
    // No half of a picture, and the earlier one is still there.
    QVERIFY(earlier.open(QIODevice::ReadOnly));
    QVERIFY(earlier.readAll() == picture);
}

void tst_TerminalWindow::screenFillsTheApplicationArea()
{
    QSignalSpy loaded(&m_terminal->instrument, &InstrumentModel::screenLoaded);
    m_terminal->startApplication();
    QCOMPARE(loaded.count(), 1);
    QCOMPARE(loaded.first().at(0).toBool(), true);
    QCOMPARE(loaded.first().at(1).toString(), QString());

    QQuickItem* screen = m_terminal->window.pluginScreen();
    QVERIFY(screen);
    QVERIFY(!m_terminal->shown(QStringLiteral("noApplication")));
    QCOMPARE(screen->mapRectToScene(screen->boundingRect()), QRectF(0, 296, 1024, 208));

    InfoboxListItem line(nullptr, QString(), QStringLiteral("Items"), QStringLiteral("12"), false, true,
                         false);
    m_terminal->instrument.setInfoItems({&line});
    QVERIFY(m_terminal->shown(QStringLiteral("infoArea")));
    QCOMPARE(screen->mapRectToScene(screen->boundingRect()), QRectF(0, 296, 720, 208));
}

void tst_TerminalWindow::areaSaysWhetherThereAreApplications()
{
    const auto title = [this] { return m_terminal->textOf(QStringLiteral("noApplicationTitle")); };
    QCOMPARE(title(), QStringLiteral("No application is loaded"));
    m_terminal->instrument.setPlugins(
        {{QStringLiteral("counting"), QStringLiteral("Counting"), QString(), false}});
    QCOMPARE(title(), QStringLiteral("No application is running"));
    m_terminal->startApplication();
    QCOMPARE(title(), QString());
}

void tst_TerminalWindow::screenThatCannotBeLoadedIsReported_data()
{
    QTest::addColumn<QString>("screen");
    QTest::addColumn<QString>("message");
    const QString data = QStringLiteral("file://" TERMINAL_TEST_DATA "/");
    QTest::newRow("unknown type") << data + QStringLiteral("BrokenScreen.qml")
                                  << QStringLiteral("BrokenScreen.qml:6:5: NoSuchThing is not a type");
    QTest::newRow("no such file") << data + QStringLiteral("NoSuchScreen.qml")
                                  << QStringLiteral("NoSuchScreen.qml: No such file or directory");
    QTest::newRow("no item") << data + QStringLiteral("ObjectScreen.qml")
                             << QStringLiteral(
                                    "the root of a screen must be an Item, this one is a ObjectScreen");
    QTest::newRow("from a network") << QStringLiteral("http://localhost:1/Screen.qml")
                                    << QStringLiteral("a screen is loaded from a file or a resource");
    QTest::newRow("unknown scheme") << QStringLiteral("nowhere:Screen.qml")
                                    << QStringLiteral("a screen is loaded from a file or a resource");
}

void tst_TerminalWindow::screenThatCannotBeLoadedIsReported()
{
    QFETCH(QString, screen);
    QFETCH(QString, message);
    m_terminal->startApplication();
    QSignalSpy loaded(&m_terminal->instrument, &InstrumentModel::screenLoaded);
    m_terminal->instrument.setPluginScreen(QUrl(screen));
    QCOMPARE(loaded.count(), 1);
    QCOMPARE(loaded.first().at(0).toBool(), false);
    const QString errors = loaded.first().at(1).toString();
    QVERIFY2(errors.contains(message), qPrintable(errors));
    QVERIFY(!m_terminal->window.pluginScreen());
    QVERIFY(m_terminal->shown(QStringLiteral("screenFault")));

    // The next good screen takes the message away.
    m_terminal->startApplication();
    QVERIFY(m_terminal->window.pluginScreen());
    QVERIFY(!m_terminal->shown(QStringLiteral("screenFault")));
}

void tst_TerminalWindow::screenIsReplaced()
{
    m_terminal->startApplication();
    const QPointer<QQuickItem> first = m_terminal->window.pluginScreen();
    m_terminal->startApplication(QStringLiteral("BackgroundScreen.qml"));
    QVERIFY(m_terminal->window.pluginScreen());
    QVERIFY(m_terminal->window.pluginScreen() != first);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
}

void tst_TerminalWindow::screenSeesObjectPublishedLater()
{
    m_terminal->startApplication();
    QCOMPARE(m_terminal->textOf(QStringLiteral("title")), QStringLiteral("Receiving goods"));
    StandIn other;
    other.m_title = QStringLiteral("Counting");
    m_terminal->window.setContextObject(QStringLiteral("standIn"), &other);
    QCOMPARE(m_terminal->textOf(QStringLiteral("title")), QStringLiteral("Counting"));
    m_terminal->window.clearPluginScreen();
}

void tst_TerminalWindow::withdrawnObjectIsGone()
{
    m_terminal->window.setContextObject(QStringLiteral("standIn"), &m_terminal->standIn);
    m_terminal->window.setContextObject(QStringLiteral("standIn"), nullptr);
    m_terminal->instrument.setPluginScreen(
        InstrumentModel::urlFromPath(QStringLiteral(TERMINAL_TEST_DATA "/StandInScreen.qml")));
    const QStringList warnings = m_terminal->window.takeQmlWarnings();
    QVERIFY(!warnings.isEmpty());
    QVERIFY2(warnings.first().contains(QStringLiteral("standIn is not defined")),
             qPrintable(warnings.first()));
}

void tst_TerminalWindow::warningsOfAScreenAreCollected()
{
    QSignalSpy loaded(&m_terminal->instrument, &InstrumentModel::screenLoaded);
    m_terminal->startApplication(QStringLiteral("WarningScreen.qml"));
    QCOMPARE(loaded.first().at(0).toBool(), true);
    const QStringList warnings = m_terminal->window.takeQmlWarnings();
    QCOMPARE(warnings.size(), 1);
    QVERIFY2(warnings.first().contains(
                 QStringLiteral("WarningScreen.qml:6: ReferenceError: absent is not defined")),
             qPrintable(warnings.first()));
    QCOMPARE(m_terminal->window.takeQmlWarnings(), QStringList());
}

void tst_TerminalWindow::clearedScreenLeavesNothingBehind()
{
    auto model = std::make_unique<StandIn>();
    m_terminal->startApplication();
    m_terminal->window.setContextObject(QStringLiteral("standIn"), model.get());
    const QPointer<QQuickItem> screen = m_terminal->window.pluginScreen();

    m_terminal->window.clearPluginScreen();
    QVERIFY(!m_terminal->window.pluginScreen());
    QVERIFY(m_terminal->instrument.pluginScreen().isEmpty());
    emit model->titleChanged();
    model.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!screen);

    // What was published for one plug-in does not reach the next one.
    m_terminal->instrument.setPluginScreen(
        InstrumentModel::urlFromPath(QStringLiteral(TERMINAL_TEST_DATA "/StandInScreen.qml")));
    const QStringList warnings = m_terminal->window.takeQmlWarnings();
    QVERIFY(!warnings.isEmpty());
    QVERIFY2(warnings.first().contains(QStringLiteral("standIn is not defined")),
             qPrintable(warnings.first()));
}

void tst_TerminalWindow::screenGoesBeforeItsDestroyedObject()
{
    auto model = std::make_unique<StandIn>();
    m_terminal->startApplication();
    m_terminal->window.setContextObject(QStringLiteral("standIn"), model.get());
    model.reset();
    QVERIFY(!m_terminal->window.pluginScreen());
    QVERIFY(m_terminal->instrument.pluginScreen().isEmpty());
    QCOMPARE(m_terminal->window.takeQmlWarnings(), QStringList());
    QVERIFY(m_terminal->window.grab(file("after.png"), nullptr));
}

void tst_TerminalWindow::screenMayEndItselfFromItsHandler()
{
    auto model = std::make_unique<StandIn>();
    m_terminal->startApplication();
    m_terminal->window.setContextObject(QStringLiteral("standIn"), model.get());
    connect(model.get(), &StandIn::leave, this, [this, &model] {
        m_terminal->window.clearPluginScreen();
        model.release()->deleteLater();
    });
    QVERIFY(m_terminal->tap(QStringLiteral("leave")));
    QVERIFY(!model);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!m_terminal->window.pluginScreen());
    QVERIFY(m_terminal->window.grab(file("ended.png"), nullptr));
}

void tst_TerminalWindow::screenSetBeforeLoadIsShown()
{
    TerminalFixture terminal;
    QSignalSpy loaded(&terminal.instrument, &InstrumentModel::screenLoaded);
    terminal.startApplication();
    QCOMPARE(loaded.count(), 0);
    QVERIFY(terminal.window.load(nullptr));
    QCOMPARE(loaded.count(), 1);
    QVERIFY(terminal.window.pluginScreen());
    QCOMPARE(terminal.window.takeQmlWarnings(), QStringList());
}

void tst_TerminalWindow::displayShowsTheModel()
{
    m_terminal->startApplication();
    QCOMPARE(m_terminal->textOf(QStringLiteral("value")), QStringLiteral("1284.6"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("unit")), QStringLiteral("g"));
    m_terminal->display.setMesswert(QStringLiteral("0.42"));
    m_terminal->display.setUnit(QStringLiteral("kg"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("value")), QStringLiteral("0.42"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("unit")), QStringLiteral("kg"));
    m_terminal->display.setBargraphValue(63);
    QCOMPARE(m_terminal->shown(QStringLiteral("barGraph"))->property("value").toInt(), 63);
    m_terminal->display.setBargraphVisible(false);
    QVERIFY(!m_terminal->shown(QStringLiteral("barGraph")));
}

void tst_TerminalWindow::displayFallsBackToTheTerminals()
{
    auto display =
        std::make_unique<MesswertInfo>(nullptr, QStringLiteral("77.7"), QStringLiteral("g"), true, 0, true,
                                       false, false, 0, QString(), QString(), false, 0, true, false, 0,
                                       QString(), QString(), QString(), 0, 1, false, false, true, true, true);
    m_terminal->startApplication();
    m_terminal->instrument.setDisplay(display.get());
    QCOMPARE(m_terminal->textOf(QStringLiteral("value")), QStringLiteral("77.7"));
    display.reset();
    QCOMPARE(m_terminal->textOf(QStringLiteral("value")), QStringLiteral("0.0"));
}

void tst_TerminalWindow::mark_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QString>("item");
    QTest::newRow("net") << QByteArray("netVisible") << QStringLiteral("netMark");
    QTest::newRow("preset tare") << QByteArray("ptVisible") << QStringLiteral("ptMark");
    QTest::newRow("coarse range") << QByteArray("isGrobRange") << QStringLiteral("coarseMark");
    QTest::newRow("calculated") << QByteArray("isCalculated") << QStringLiteral("calculatedMark");
    QTest::newRow("stability") << QByteArray("stabilityVisible") << QStringLiteral("stabilityMark");
}

void tst_TerminalWindow::mark()
{
    QFETCH(QByteArray, property);
    QFETCH(QString, item);
    m_terminal->startApplication();
    m_terminal->display.setProperty(property, true);
    QVERIFY(m_terminal->shown(item));
    m_terminal->display.setProperty(property, false);
    QVERIFY(!m_terminal->shown(item));
    // An error leaves no mark of the value it replaces.
    m_terminal->display.setProperty(property, true);
    m_terminal->display.setErrorText(QStringLiteral("Overload"));
    QVERIFY(!m_terminal->shown(item));
}

void tst_TerminalWindow::errorTakesThePlaceOfTheValue_data()
{
    QTest::addColumn<QString>("errorText");
    QTest::addColumn<bool>("sourceOk");
    QTest::addColumn<QString>("shown");
    QTest::newRow("error of the reading") << QStringLiteral("Overload") << true << QStringLiteral("Overload");
    QTest::newRow("connection lost") << QString() << false << QStringLiteral("No connection to the scale");
    QTest::newRow("both") << QStringLiteral("Cable out") << false << QStringLiteral("Cable out");
}

void tst_TerminalWindow::errorTakesThePlaceOfTheValue()
{
    QFETCH(QString, errorText);
    QFETCH(bool, sourceOk);
    QFETCH(QString, shown);
    m_terminal->startApplication();
    m_terminal->display.setMesswertKleinVisible(true);
    QVERIFY(m_terminal->shown(QStringLiteral("smallDisplay")));
    m_terminal->display.setErrorText(errorText);
    m_terminal->instrument.setSourceOk(sourceOk);
    QCOMPARE(m_terminal->textOf(QStringLiteral("errorText")), shown);
    for (const char* item : {"value", "unit", "smallDisplay", "barGraph"}) {
        QVERIFY2(!m_terminal->shown(QString::fromUtf8(item)), item);
    }
    m_terminal->display.setErrorText(QString());
    m_terminal->instrument.setSourceOk(true);
    QVERIFY(!m_terminal->shown(QStringLiteral("errorText")));
    QVERIFY(m_terminal->shown(QStringLiteral("value")));
}

void tst_TerminalWindow::invalidValueIsNotShown()
{
    m_terminal->startApplication();
    m_terminal->display.setIsValid(false);
    QVERIFY(!m_terminal->textOf(QStringLiteral("value")).contains(QStringLiteral("1284")));
    QVERIFY(!m_terminal->shown(QStringLiteral("unit")));
}

void tst_TerminalWindow::hiddenDisplayIsEmpty()
{
    m_terminal->startApplication();
    m_terminal->display.setMesswertVisible(false);
    QVERIFY(!m_terminal->shown(QStringLiteral("value")));
    QVERIFY(m_terminal->shown(QStringLiteral("barGraph")));
    m_terminal->display.setMesswertVisible(true);
    m_terminal->display.setErrorText(QStringLiteral("Overload"));
    m_terminal->display.setAllVisible(false);
    for (const char* item : {"value", "unit", "error", "barGraph", "stabilityMark"}) {
        QVERIFY2(!m_terminal->shown(QString::fromUtf8(item)), item);
    }
}

void tst_TerminalWindow::decimalPointStays_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("reduction");
    QTest::addColumn<QString>("point");
    QTest::newRow("other digits") << QStringLiteral("1111.11") << 0 << QStringLiteral("point");
    QTest::newRow("fewer digits") << QStringLiteral("0.00") << 0 << QStringLiteral("point");
    QTest::newRow("negative") << QStringLiteral("-888.88") << 0 << QStringLiteral("point");
    QTest::newRow("one digit taken off") << QStringLiteral("1234.5") << 1 << QStringLiteral("point");
    QTest::newRow("all decimals taken off") << QStringLiteral("1234") << 2 << QStringLiteral("emptyPoint");
}

void tst_TerminalWindow::decimalPointStays()
{
    QFETCH(QString, text);
    QFETCH(int, reduction);
    QFETCH(QString, point);
    m_terminal->startApplication();
    const auto place = [this](const QString& name) {
        QQuickItem* item = m_terminal->shownIn(m_terminal->shown(QStringLiteral("value")), name);
        return item ? item->mapRectToScene(item->boundingRect()) : QRectF();
    };
    m_terminal->display.setMesswert(QStringLiteral("1234.56"));
    QVERIFY(m_terminal->window.grab(file("before.png"), nullptr));
    const QRectF before = place(QStringLiteral("point"));
    QVERIFY(!before.isEmpty());

    m_terminal->display.setMesswert(text);
    m_terminal->display.setResoluionReduction(reduction);
    QVERIFY(m_terminal->window.grab(file("after.png"), nullptr));
    QCOMPARE(place(point), before);
}

void tst_TerminalWindow::unverifiedDigitsAreFramed_data()
{
    QTest::addColumn<int>("eichDigit");
    QTest::addColumn<QStringList>("kinds"); // from the right
    const QString digit = QStringLiteral("digit");
    const QString framed = QStringLiteral("framed");
    const QString point = QStringLiteral("point");
    QTest::newRow("none") << 0 << QStringList{digit, digit, point, digit};
    QTest::newRow("last") << 1 << QStringList{framed, digit, point, digit};
    QTest::newRow("last two") << 2 << QStringList{framed, framed, point, digit};
    QTest::newRow("across the point") << 3 << QStringList{framed, framed, point, framed};
    QTest::newRow("negative count") << -1 << QStringList{digit, digit, point, digit};
}

void tst_TerminalWindow::unverifiedDigitsAreFramed()
{
    QFETCH(int, eichDigit);
    QFETCH(QStringList, kinds);
    m_terminal->startApplication();
    m_terminal->display.setMesswert(QStringLiteral("1.25"));
    m_terminal->display.setEichDigit(eichDigit);
    QStringList shown;
    const QVariantList cells = m_terminal->shown(QStringLiteral("value"))->property("cells").toList();
    for (const QVariant& cell : cells) {
        shown.append(cell.toMap().value(QStringLiteral("kind")).toString());
    }
    QCOMPARE(shown, kinds);
}

void tst_TerminalWindow::smallDisplayShowsItsValue()
{
    m_terminal->startApplication();
    QVERIFY(!m_terminal->shown(QStringLiteral("smallDisplay")));
    m_terminal->display.setMesswertKleinVisible(true);
    QCOMPARE(m_terminal->textOf(QStringLiteral("smallValue")), QStringLiteral("1.285"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("smallUnit")), QStringLiteral("kg"));
    m_terminal->display.setIsValidKlein(false);
    QVERIFY(!m_terminal->textOf(QStringLiteral("smallValue")).contains(QStringLiteral("1.285")));
    QVERIFY(!m_terminal->shown(QStringLiteral("smallUnit")));
}

void tst_TerminalWindow::connectedComputersAreCounted()
{
    QVERIFY(!m_terminal->shown(QStringLiteral("sicsClients")));
    m_terminal->instrument.setSicsClients(0);
    QVERIFY(m_terminal->shown(QStringLiteral("sicsClients")));
    QCOMPARE(m_terminal->textOf(QStringLiteral("sicsClients")), QStringLiteral("0"));
    m_terminal->instrument.setSicsClients(12);
    QCOMPARE(m_terminal->textOf(QStringLiteral("sicsClients")), QStringLiteral("12"));
    m_terminal->instrument.setSicsClients(-1);
    QVERIFY(!m_terminal->shown(QStringLiteral("sicsClients")));
}

void tst_TerminalWindow::sentWeightIsNotCutOff_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << QStringLiteral("Sent: 123456.78 C.M.");
    QTest::newRow("German") << QStringLiteral("Gesendet: 0.5000 kg");
    QTest::newRow("German, longest") << QStringLiteral("Gesendet: -123456.78 C.M.");
    QTest::newRow("German, not sent") << QStringLiteral("Nicht gesendet: 123456.78 C.M.");
}

void tst_TerminalWindow::sentWeightIsNotCutOff()
{
    QFETCH(QString, text);
    m_terminal->startApplication();
    m_terminal->instrument.setStatusText(text);
    m_terminal->instrument.setSourceText(QStringLiteral("Simulierte Waage"));
    m_terminal->instrument.setDateTimeText(QStringLiteral("01.01.2026  08:00"));
    m_terminal->instrument.setSicsClients(12);
    for (const char* name : {"statusText", "sourceText"}) {
        const QQuickItem* const item = m_terminal->shown(QString::fromLatin1(name));
        QVERIFY2(!item->property("truncated").toBool(), name);
    }
    // The name of the application keeps its room.
    const QQuickItem* const key = m_terminal->shown(QStringLiteral("applicationKey"));
    QVERIFY2(key->width() >= key->property("naturalWidth").toReal(),
             qPrintable(QString::number(key->width())));
}

void tst_TerminalWindow::failedPrintsAreRepeated_data()
{
    QTest::addColumn<bool>("application");
    QTest::newRow("no application") << false;
    QTest::newRow("application") << true;
}

void tst_TerminalWindow::failedPrintsAreRepeated()
{
    QFETCH(bool, application);
    if (application)
        m_terminal->startApplication();
    m_terminal->instrument.setStatusText(QStringLiteral("Sent: 36.4 g"));
    QVERIFY(!m_terminal->shown(QStringLiteral("repeatPrints")));
    m_terminal->instrument.setFailedPrints(2);
    QVERIFY(m_terminal->shown(QStringLiteral("repeatPrints")));
    QVERIFY(m_terminal->textOf(QStringLiteral("repeatPrintsText")).contains(QLatin1Char('2')));
    QSignalSpy repeated(&m_terminal->instrument, &InstrumentModel::repeatPrintsPressed);
    QVERIFY(m_terminal->tap(QStringLiteral("repeatPrints")));
    QCOMPARE(repeated.count(), 1);
    m_terminal->instrument.setFailedPrints(0);
    QVERIFY(!m_terminal->shown(QStringLiteral("repeatPrints")));
}

void tst_TerminalWindow::warningsFollowTheModel()
{
    m_terminal->startApplication();
    QVERIFY(!m_terminal->shown(QStringLiteral("levellingWarning")));
    QVERIFY(!m_terminal->shown(QStringLiteral("calibrationWarning")));
    m_terminal->warnings.setLevellingRequiredVisible(true);
    QCOMPARE(m_terminal->textOf(QStringLiteral("levellingWarning")), QStringLiteral("Levelling required"));
    m_terminal->warnings.setCalibrationRequiredText(QStringLiteral("Calibration due since Monday"));
    m_terminal->warnings.setCalibrationRequiredVisible(true);
    QCOMPARE(m_terminal->textOf(QStringLiteral("calibrationWarning")),
             QStringLiteral("Calibration due since Monday"));
    m_terminal->instrument.setWarnings(nullptr);
    QVERIFY(!m_terminal->shown(QStringLiteral("levellingWarning")));
    QVERIFY(!m_terminal->shown(QStringLiteral("calibrationWarning")));
}

void tst_TerminalWindow::tappedActionIsPressed()
{
    m_terminal->startApplication();
    QSignalSpy pressed(m_terminal->instrument.actions(), &ActionListModel::actionPressed);
    QVERIFY(m_terminal->tap(QStringLiteral("action:tare")));
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(pressed.first().first().toString(), QStringLiteral("tare"));
}

void tst_TerminalWindow::disabledActionIsNotPressed()
{
    m_terminal->startApplication();
    QSignalSpy pressed(m_terminal->instrument.actions(), &ActionListModel::actionPressed);
    QVERIFY(m_terminal->tap(QStringLiteral("action:clear")));
    QCOMPARE(pressed.count(), 0);
    m_terminal->instrument.actions()->updateAction(
        {QStringLiteral("clear"), QStringLiteral("Clear sum"), true});
    QVERIFY(m_terminal->tap(QStringLiteral("action:clear")));
    QCOMPARE(pressed.count(), 1);
}

void tst_TerminalWindow::terminalsActionsWithoutApplication()
{
    QSignalSpy pressed(m_terminal->instrument.hostActions(), &ActionListModel::actionPressed);
    QVERIFY(m_terminal->tap(QStringLiteral("action:zero")));
    QCOMPARE(pressed.count(), 1);
    // An application without actions has an empty bar, not the terminal's.
    m_terminal->startApplication();
    m_terminal->instrument.actions()->clear();
    QVERIFY(!m_terminal->shown(QStringLiteral("action:zero")));
}

void tst_TerminalWindow::eighthActionIsOnTheSecondPage()
{
    const auto actions = [](int count) {
        QVector<ActionEntry> entries;
        for (int i = 0; i < count; ++i) {
            entries.append({QString::number(i), QStringLiteral("Key %1").arg(i)});
        }
        return entries;
    };
    m_terminal->startApplication();
    m_terminal->instrument.actions()->setActions(actions(7));
    QVERIFY(!m_terminal->shown(QStringLiteral("pageKey")));
    QVERIFY(m_terminal->shown(QStringLiteral("action:6")));

    m_terminal->instrument.actions()->setActions(actions(8));
    QVERIFY(m_terminal->shown(QStringLiteral("action:5")));
    QVERIFY(!m_terminal->shown(QStringLiteral("action:6")));
    QVERIFY(m_terminal->tap(QStringLiteral("pageKey")));
    QVERIFY(!m_terminal->shown(QStringLiteral("action:5")));
    QSignalSpy pressed(m_terminal->instrument.actions(), &ActionListModel::actionPressed);
    QVERIFY(m_terminal->tap(QStringLiteral("action:7")));
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(pressed.first().first().toString(), QStringLiteral("7"));
    QVERIFY(m_terminal->tap(QStringLiteral("pageKey")));
    QVERIFY(m_terminal->shown(QStringLiteral("action:0")));
}

void tst_TerminalWindow::pageIsKeptInRange()
{
    m_terminal->startApplication();
    QVector<ActionEntry> entries;
    for (int i = 0; i < 9; ++i) {
        entries.append({QString::number(i), QString::number(i)});
    }
    m_terminal->instrument.actions()->setActions(entries);
    QVERIFY(m_terminal->tap(QStringLiteral("pageKey")));
    m_terminal->instrument.actions()->setActions(entries.mid(0, 3));
    QVERIFY(m_terminal->shown(QStringLiteral("action:0")));
}

void tst_TerminalWindow::printKey()
{
    QSignalSpy pressed(&m_terminal->instrument, &InstrumentModel::printPressed);
    QVERIFY(m_terminal->tap(QStringLiteral("printKey")));
    QCOMPARE(pressed.count(), 0);
    m_terminal->instrument.setPrintEnabled(true);
    QVERIFY(m_terminal->tap(QStringLiteral("printKey")));
    QCOMPARE(pressed.count(), 1);
}

void tst_TerminalWindow::languageKey()
{
    QSignalSpy selected(&m_terminal->instrument, &InstrumentModel::languageSelected);
    QVERIFY(m_terminal->tap(QStringLiteral("languageKey")));
    QCOMPARE(selected.takeFirst().first().toString(), QStringLiteral("de"));
    // The key asks, the host decides.
    QCOMPARE(m_terminal->instrument.language(), QStringLiteral("en"));
    m_terminal->instrument.setLanguage(QStringLiteral("de"));
    QVERIFY(m_terminal->tap(QStringLiteral("languageKey")));
    QCOMPARE(selected.takeFirst().first().toString(), QStringLiteral("en"));
}

void tst_TerminalWindow::applicationIsChosen()
{
    m_terminal->startApplication();
    QSignalSpy selected(&m_terminal->instrument, &InstrumentModel::pluginSelected);
    QVERIFY(m_terminal->tap(QStringLiteral("applicationKey")));
    QVERIFY(m_terminal->shown(QStringLiteral("applicationMenu")));
    QVERIFY(m_terminal->window.grab(file("menu.png"), nullptr)); // lays the list out
    QVERIFY(m_terminal->tap(QStringLiteral("application:counting")));
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.first().first().toInt(), 1);
    QVERIFY(!m_terminal->shown(QStringLiteral("applicationMenu")));

    // A tap beside the list closes it and does nothing else.
    QVERIFY(m_terminal->tap(QStringLiteral("applicationKey")));
    QSignalSpy pressed(m_terminal->instrument.actions(), &ActionListModel::actionPressed);
    m_terminal->tap(m_terminal->shown(QStringLiteral("action:tare"))->mapToScene(QPointF(40, 40)));
    QVERIFY(!m_terminal->shown(QStringLiteral("applicationMenu")));
    QCOMPARE(pressed.count(), 0);
    QCOMPARE(selected.count(), 1);
}

void tst_TerminalWindow::noticeIsDismissed()
{
    m_terminal->instrument.showNotice(InstrumentModel::Severity::Warning,
                                      QStringLiteral("Tare refused: the weight is not stable"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("noticeText")),
             QStringLiteral("Tare refused: the weight is not stable"));
    QVERIFY(!m_terminal->shown(QStringLiteral("noticeTitle")));
    QVERIFY(m_terminal->tap(QStringLiteral("dismissNotice")));
    QVERIFY(!m_terminal->instrument.noticeVisible());
    QVERIFY(!m_terminal->shown(QStringLiteral("notice")));
}

void tst_TerminalWindow::noticeOffersToClose()
{
    InstrumentModel& instrument = m_terminal->instrument;
    QSignalSpy closed(&instrument, &InstrumentModel::closeRequested);
    const auto tell = [&instrument] {
        instrument.showNotice(InstrumentModel::Severity::Error, QStringLiteral("It failed"),
                              QStringLiteral("Receiving goods"));
        instrument.setNoticeOffersClose(true);
    };
    tell();
    QVERIFY(!m_terminal->shown(QStringLiteral("dismissNotice")));
    QVERIFY(m_terminal->tap(QStringLiteral("keepRunning")));
    QVERIFY(!instrument.noticeVisible());
    QCOMPARE(closed.count(), 0);
    tell();
    instrument.setNoticeCount(3);
    QCOMPARE(m_terminal->textOf(QStringLiteral("noticeTitle")), QStringLiteral("Receiving goods (3 times)"));
    QVERIFY(m_terminal->tap(QStringLiteral("closeApplication")));
    QVERIFY(!instrument.noticeVisible());
    QCOMPARE(closed.count(), 1);
    // The next notice is about something else.
    instrument.showNotice(InstrumentModel::Severity::Warning, QStringLiteral("Tare refused"));
    QVERIFY(!m_terminal->shown(QStringLiteral("closeApplication")));
    QVERIFY(m_terminal->shown(QStringLiteral("dismissNotice")));
}

void tst_TerminalWindow::informationGoesByItself()
{
    // Only the timer's state is looked at: how long it waits is no matter of this test.
    QObject* timer = m_terminal->window.rootItem()->findChild<QObject*>(QStringLiteral("noticeTimer"));
    QVERIFY(timer);
    const auto running = [timer] { return timer->property("running").toBool(); };
    m_terminal->instrument.showNotice(InstrumentModel::Severity::Info, QStringLiteral("headless"));
    QVERIFY(!running());
    m_terminal->window.setAnimationsEnabled(true);
    m_terminal->instrument.showNotice(InstrumentModel::Severity::Info, QStringLiteral("attended"));
    QVERIFY(running());
    m_terminal->instrument.showNotice(InstrumentModel::Severity::Error, QStringLiteral("stays"));
    QVERIFY(!running());
    m_terminal->instrument.showNotice(InstrumentModel::Severity::Info, QStringLiteral("attended"));
    QVERIFY(QMetaObject::invokeMethod(timer, "triggered"));
    QVERIFY(!m_terminal->instrument.noticeVisible());
    QVERIFY(!running());
}

void tst_TerminalWindow::weightIsPutOnAndTakenOff()
{
    QSignalSpy putOn(&m_terminal->bench, &BenchModel::putOn);
    QSignalSpy takeOff(&m_terminal->bench, &BenchModel::takeOff);
    QVERIFY(m_terminal->tap(QStringLiteral("putOn:200")));
    QCOMPARE(putOn.count(), 1);
    QCOMPARE(putOn.first().first().toDouble(), 200.0);
    QCOMPARE(takeOff.count(), 0);
    QVERIFY(m_terminal->tap(QStringLiteral("takeOff:50")));
    QCOMPARE(takeOff.count(), 1);
    QCOMPARE(takeOff.first().first().toDouble(), 50.0);
    QCOMPARE(putOn.count(), 1);
}

void tst_TerminalWindow::loadIsCleared()
{
    QSignalSpy clear(&m_terminal->bench, &BenchModel::clear);
    QCOMPARE(m_terminal->textOf(QStringLiteral("benchLoad")), QStringLiteral("1284.6 g"));
    QVERIFY(m_terminal->tap(QStringLiteral("clearKey")));
    QCOMPARE(clear.count(), 1);
    m_terminal->bench.setLoad(0.0);
    QCOMPARE(m_terminal->textOf(QStringLiteral("benchLoad")), QStringLiteral("0.0 g"));
    QVERIFY(m_terminal->tap(QStringLiteral("clearKey")));
    QCOMPARE(clear.count(), 1);
}

void tst_TerminalWindow::sliderAsksForAValue()
{
    const QQuickItem* noise = m_terminal->shown(QStringLiteral("noise"));
    QVERIFY(noise);
    m_terminal->tap(noise->mapToScene(QPointF(noise->width() / 2, 38)));
    QCOMPARE(m_terminal->bench.noise(), 2.5);
    m_terminal->tap(noise->mapToScene(QPointF(noise->width() - 1, 38)));
    QCOMPARE(m_terminal->bench.noise(), 5.0);
    const QQuickItem* drift = m_terminal->shown(QStringLiteral("drift"));
    m_terminal->tap(drift->mapToScene(QPointF(1, 38)));
    QCOMPARE(m_terminal->bench.drift(), -10.0);
    // The handle follows what the host sets, too.
    m_terminal->bench.setDrift(0.0);
    QCOMPARE(m_terminal->shownIn(m_terminal->shown(QStringLiteral("drift")), QStringLiteral("valueText"))
                 ->property("text")
                 .toString(),
             QStringLiteral("0.0 g/min"));
}

void tst_TerminalWindow::benchPageIsChosenByItsTab_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("item");
    QTest::newRow("units") << "units"
                           << "benchUnitsPage";
    QTest::newRow("transfer") << "transfer"
                              << "benchTransferPage";
    QTest::newRow("printer") << "printer"
                             << "benchPrinterPage";
}

void tst_TerminalWindow::benchPageIsChosenByItsTab()
{
    QFETCH(QString, page);
    QFETCH(QString, item);
    QVERIFY(m_terminal->shown(QStringLiteral("benchScalePage")));
    QVERIFY(!m_terminal->shown(item));
    QVERIFY(m_terminal->tap(QStringLiteral("benchTab:") + page));
    QCOMPARE(m_terminal->bench.page(), page);
    QVERIFY(m_terminal->shown(item));
    QVERIFY(!m_terminal->shown(QStringLiteral("benchScalePage")));
    m_terminal->bench.setPage(QStringLiteral("scale"));
    QVERIFY(m_terminal->shown(QStringLiteral("benchScalePage")));
    QVERIFY(!m_terminal->shown(item));
}

void tst_TerminalWindow::unitKeyIsTouched()
{
    QSignalSpy spy(&m_terminal->instrument, &InstrumentModel::unitPressed);
    QVERIFY(m_terminal->tap(QStringLiteral("unitKey")));
    QCOMPARE(spy.count(), 1);
    // Beside an application as well.
    m_terminal->startApplication();
    QVERIFY(m_terminal->tap(QStringLiteral("unitKey")));
    QCOMPARE(spy.count(), 2);
    m_terminal->display.setErrorText(QStringLiteral("Overload"));
    QVERIFY(!m_terminal->shown(QStringLiteral("unitKey")));
}

void tst_TerminalWindow::smallDisplayOfTheTerminal()
{
    m_terminal->startApplication();
    QVERIFY(!m_terminal->shown(QStringLiteral("smallDisplay")));
    m_terminal->terminalDisplay.setMesswertKlein(QStringLiteral("2.8323"));
    m_terminal->terminalDisplay.setUnitKlein(QStringLiteral("lb"));
    m_terminal->terminalDisplay.setMesswertKleinVisible(true);
    QVERIFY(m_terminal->shown(QStringLiteral("smallDisplay")));
    QCOMPARE(m_terminal->textOf(QStringLiteral("smallValue")), QStringLiteral("2.8323"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("smallUnit")), QStringLiteral("lb"));
    m_terminal->display.setMesswertKleinVisible(true);
    QCOMPARE(m_terminal->textOf(QStringLiteral("smallUnit")), QStringLiteral("kg"));
}

void tst_TerminalWindow::approvalIsAskedFor()
{
    BenchUnitsModel& units = m_terminal->bench.units();
    m_terminal->bench.setPage(QStringLiteral("units"));
    QSignalSpy unitsOnly(&units, &BenchUnitsModel::approvedUnitsOnlyRequested);
    QSignalSpy carat(&units, &BenchUnitsModel::caratAllowedRequested);
    QSignalSpy auxiliary(&units, &BenchUnitsModel::auxiliaryDigitRequested);
    QSignalSpy decimals(&units, &BenchUnitsModel::minimumDecimalsRequested);
    QSignalSpy reduced(&units, &BenchUnitsModel::reducedDigitsRequested);
    BenchUnitsState state;
    state.caratAllowed = true;
    state.minimumDecimals = 2;
    state.reducedDigits = 3;
    units.setState(state);
    QVERIFY(m_terminal->tap(QStringLiteral("approvedUnitsOnly")));
    QCOMPARE(unitsOnly.value(0).value(0).toBool(), true);
    QVERIFY(m_terminal->tap(QStringLiteral("caratAllowed")));
    QCOMPARE(carat.count(), 1);
    QCOMPARE(carat.value(0).value(0).toBool(), false);
    QVERIFY(m_terminal->tap(QStringLiteral("auxiliaryDigit")));
    QCOMPARE(auxiliary.value(0).value(0).toBool(), true);
    const auto step = [this](const char* stepper, const char* key) {
        const QQuickItem* item =
            m_terminal->shownIn(m_terminal->shown(QString::fromLatin1(stepper)), QString::fromLatin1(key));
        m_terminal->tap(item->mapToScene(QPointF(item->width() / 2, item->height() / 2)));
    };
    step("minimumDecimals", "more");
    QCOMPARE(decimals.value(0).value(0).toInt(), 3);
    step("minimumDecimals", "less");
    QCOMPARE(decimals.value(1).value(0).toInt(), 1);
    step("reducedDigits", "more"); // the highest already
    QCOMPARE(reduced.count(), 0);
    step("reducedDigits", "less");
    QCOMPARE(reduced.value(0).value(0).toInt(), 2);
}

void tst_TerminalWindow::unitIsAskedFor()
{
    BenchUnitsModel& units = m_terminal->bench.units();
    m_terminal->bench.setPage(QStringLiteral("units"));
    BenchUnitsState state;
    state.offered = QStringList{QStringLiteral("g"), QStringLiteral("kg")};
    units.setState(state);
    QSignalSpy spy(&units, &BenchUnitsModel::mainUnitRequested);
    QVERIFY(m_terminal->tap(QStringLiteral("offered:kg")));
    QCOMPARE(spy.value(0).value(0).toString(), QStringLiteral("kg"));
    QVERIFY(!m_terminal->shown(QStringLiteral("offered:ct")));
}

void tst_TerminalWindow::parameterSetIsAskedFor_data()
{
    QTest::addColumn<QString>("set");
    for (const char* const set : {"standard", "msw", "system"})
        QTest::newRow(set) << set;
}

void tst_TerminalWindow::parameterSetIsAskedFor()
{
    QFETCH(QString, set);
    BenchUnitsModel& units = m_terminal->bench.units();
    m_terminal->bench.setPage(QStringLiteral("units"));
    BenchUnitsState state;
    state.parameterSet = QStringLiteral("The set in force");
    units.setState(state);
    QSignalSpy spy(&units, &BenchUnitsModel::parameterSetRequested);
    QVERIFY(m_terminal->tap(QStringLiteral("parameters:") + set));
    QCOMPARE(spy.value(0).value(0).toString(), set);
    QCOMPARE(m_terminal->textOf(QStringLiteral("parameterSet")), QStringLiteral("The set in force"));
}

void tst_TerminalWindow::transferIsAskedFor_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<double>("threshold");
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<double>("askedThreshold");
    QTest::newRow("from off to grams") << "off" << 0.0 << "transferAbsolute"
                                       << ""
                                       << "absolute" << 10.0;
    QTest::newRow("from off to percent") << "off" << 0.0 << "transferPercent"
                                         << ""
                                         << "percent" << 10.0;
    QTest::newRow("off") << "absolute" << 5.0 << "transferOff"
                         << ""
                         << "off" << 5.0;
    QTest::newRow("percent instead of grams") << "absolute-fixed" << 500.0 << "transferPercent"
                                              << ""
                                              << "percent-fixed" << 10.0;
    QTest::newRow("fixed") << "percent" << 20.0 << "transferFixed"
                           << ""
                           << "percent-fixed" << 20.0;
    QTest::newRow("no longer fixed") << "absolute-fixed" << 5.0 << "transferFixed"
                                     << ""
                                     << "absolute" << 5.0;
    QTest::newRow("more") << "absolute" << 5.0 << "transferThreshold"
                          << "more"
                          << "absolute" << 10.0;
    QTest::newRow("less") << "absolute" << 5.0 << "transferThreshold"
                          << "less"
                          << "absolute" << 2.0;
    QTest::newRow("no more percent") << "percent" << 50.0 << "transferThreshold"
                                     << "more"
                                     << "percent" << 50.0;
}

void tst_TerminalWindow::transferIsAskedFor()
{
    QFETCH(QString, mode);
    QFETCH(double, threshold);
    QFETCH(QString, control);
    QFETCH(QString, key);
    BenchTransferModel& transfer = m_terminal->bench.transfer();
    m_terminal->bench.setPage(QStringLiteral("transfer"));
    BenchTransferState state;
    state.mode = mode;
    state.threshold = threshold;
    state.minimumLoad = 7.0;
    transfer.setState(state);
    QSignalSpy spy(&transfer, &BenchTransferModel::settingsRequested);
    const QQuickItem* item = m_terminal->shown(control);
    if (!key.isEmpty())
        item = m_terminal->shownIn(m_terminal->shown(control), key);
    QVERIFY(item);
    m_terminal->tap(item->mapToScene(QPointF(item->width() / 2, item->height() / 2)));
    QCOMPARE(spy.count(), 1);
    QTEST(spy.first().at(0).toString(), "asked");
    QTEST(spy.first().at(1).toDouble(), "askedThreshold");
    QCOMPARE(spy.first().at(2).toDouble(), 7.0);
}

void tst_TerminalWindow::detectorIsShown()
{
    BenchTransferModel& transfer = m_terminal->bench.transfer();
    m_terminal->bench.setPage(QStringLiteral("transfer"));
    QVERIFY(!m_terminal->shown(QStringLiteral("band")));
    BenchTransferState state;
    state.state = 1;
    state.reference = 500.0;
    state.bandLow = -495.0;
    state.bandHigh = 505.0;
    state.registerText = QStringLiteral("5000");
    state.triggerCount = 3;
    state.reason = QStringLiteral("inside the band");
    transfer.setState(state);
    QVERIFY(m_terminal->shown(QStringLiteral("band")));
    QCOMPARE(m_terminal->textOf(QStringLiteral("detectorState")), QStringLiteral("Watching"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("transferReason")), QStringLiteral("inside the band"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("reference")), QStringLiteral("500.0 g"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("bandLow")), QStringLiteral("\u2212495.0 g"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("bandHigh")), QStringLiteral("505.0 g"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("register74")), QStringLiteral("5000"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("triggers")), QStringLiteral("3"));
}

void tst_TerminalWindow::benchSwitches()
{
    QVERIFY(m_terminal->tap(QStringLiteral("connected")));
    QVERIFY(!m_terminal->bench.connected());
    QVERIFY(m_terminal->tap(QStringLiteral("calibrationDue")));
    QVERIFY(m_terminal->bench.calibrationDue());
    QVERIFY(m_terminal->tap(QStringLiteral("levelKey")));
    QVERIFY(!m_terminal->bench.level());
    QVERIFY(m_terminal->tap(QStringLiteral("levelKey")));
    QVERIFY(m_terminal->bench.level());
}

void tst_TerminalWindow::bubbleIsDragged()
{
    const QQuickItem* vial = m_terminal->shown(QStringLiteral("vial"));
    const QPointF centre = vial->mapToScene(QPointF(vial->width() / 2, vial->height() / 2));
    m_terminal->send(QEvent::MouseButtonPress, centre);
    QVERIFY(m_terminal->bench.level());
    m_terminal->send(QEvent::MouseMove, centre + QPointF(30, 0));
    QVERIFY(!m_terminal->bench.level());
    QVERIFY(m_terminal->bench.levelX() > 0.5);
    QCOMPARE(m_terminal->bench.levelY(), 0.0);
    m_terminal->send(QEvent::MouseMove, centre + QPointF(0, 500));
    QCOMPARE(m_terminal->bench.levelY(), 1.0);
    m_terminal->send(QEvent::MouseButtonRelease, centre + QPointF(0, 500));
}

void tst_TerminalWindow::benchWithARealSource()
{
    QVERIFY(!m_terminal->shown(QStringLiteral("notSimulated")));
    m_terminal->bench.setAvailable(false);
    QVERIFY(m_terminal->shown(QStringLiteral("notSimulated")));
    QVERIFY(!m_terminal->shown(QStringLiteral("weights")));
    QVERIFY(!m_terminal->shown(QStringLiteral("clearKey")));
    QVERIFY(m_terminal->tap(QStringLiteral("noise")));
    QCOMPARE(m_terminal->bench.noise(), 0.0);
    QVERIFY(m_terminal->tap(QStringLiteral("connected")));
    QVERIFY(m_terminal->bench.connected());
    QVERIFY(m_terminal->tap(QStringLiteral("levelKey")));
    QVERIFY(!m_terminal->bench.level());
    QVERIFY(m_terminal->tap(QStringLiteral("calibrationDue")));
    QVERIFY(m_terminal->bench.calibrationDue());
}

void tst_TerminalWindow::faultsCanBeRead()
{
    QVERIFY(!m_terminal->shown(QStringLiteral("faultsKey")));
    QVERIFY(m_terminal->shown(QStringLiteral("noApplication")));
    m_terminal->bench.setPluginFaults({QStringLiteral("counting.so: not a plug-in")});
    QVERIFY(m_terminal->shown(QStringLiteral("pluginFaults")));
    QVERIFY(!m_terminal->shown(QStringLiteral("noApplication")));
    QVERIFY(m_terminal->tap(QStringLiteral("faultsKey")));
    QVERIFY(m_terminal->shown(QStringLiteral("benchFaults")));
    QVERIFY(m_terminal->tap(QStringLiteral("closeFaults")));
    QVERIFY(!m_terminal->shown(QStringLiteral("benchFaults")));
    // With an application running, its screen is what the area shows.
    m_terminal->startApplication();
    QVERIFY(!m_terminal->shown(QStringLiteral("pluginFaults")));
    QVERIFY(m_terminal->shown(QStringLiteral("faultsKey")));
}

void tst_TerminalWindow::workflowBand_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("state");
    const QString instruction = QStringLiteral("Add 125.0 g of flour");
    const QString limits = QStringLiteral("122.5 g to 127.5 g");
    QTest::newRow("one line") << QStringList{instruction} << QString() << QStringLiteral("Waiting");
    QTest::newRow("empty second line")
        << QStringList{instruction, QString()} << QString() << QStringLiteral("Waiting");
    QTest::newRow("second line") << QStringList{instruction, limits} << QString() << limits;
    QTest::newRow("fault") << QStringList{instruction, limits} << QStringLiteral("It failed")
                           << QStringLiteral("It failed");
    QTest::newRow("long lines") << QStringList{QString(200, QLatin1Char('w')), QString(200, QLatin1Char('m'))}
                                << QString() << QString(200, QLatin1Char('m'));
}

/// Beside the instruction stands what is waited for, unless there is something better to say; they never overlap.
void tst_TerminalWindow::workflowBand()
{
    QFETCH(QStringList, lines);
    QFETCH(QString, fault);
    m_terminal->startApplication();
    WorkflowView view;
    view.running = true;
    view.screenType = WorkflowView::Band;
    view.lines = lines;
    view.waiting = QStringLiteral("Waiting");
    view.fault = fault;
    m_terminal->workflow.setView(view);
    QTEST(m_terminal->textOf(QStringLiteral("workflowState")), "state");
    QCOMPARE(m_terminal->textOf(QStringLiteral("workflowLine1")), lines.first());
    const QQuickItem* const line = m_terminal->shown(QStringLiteral("workflowLine1"));
    const QQuickItem* const state = m_terminal->shown(QStringLiteral("workflowState"));
    const QRectF lineArea = line->mapRectToScene(line->boundingRect());
    const QRectF stateArea = state->mapRectToScene(state->boundingRect());
    QVERIFY(lineArea.width() > 100.0);
    QVERIFY(stateArea.width() > 40.0);
    QVERIFY2(lineArea.right() <= stateArea.left(),
             qPrintable(QStringLiteral("%1 > %2").arg(lineArea.right()).arg(stateArea.left())));
}

void tst_TerminalWindow::workflowMarksFollowTheirModel()
{
    m_terminal->startApplication();
    QList<QObject*> marks;
    Progressbar progress(nullptr, marks, 0, true);
    WorkflowView view;
    view.running = true;
    view.lines = QStringList{QStringLiteral("Add flour")};
    m_terminal->workflow.setView(view);
    m_terminal->workflow.setProgress(&progress);
    const QQuickItem* const row = m_terminal->shown(QStringLiteral("workflowProgress"));
    QVERIFY(row);
    const auto count = [row] {
        int shown = 0;
        for (const QQuickItem* item : row->childItems())
            shown += item->objectName() == QLatin1String("mark") ? 1 : 0;
        return shown;
    };
    for (const int steps : {5, 2, 0, 3}) {
        progress.setSteps(steps);
        progress.setStepDone(0, true);
        QCOMPARE(count(), steps);
    }
    QCOMPARE(m_terminal->window.takeQmlWarnings(), QStringList());
    m_terminal->workflow.setProgress(nullptr);
}

void tst_TerminalWindow::languageIsSwitchedAtRunTime()
{
    m_terminal->startApplication();
    m_terminal->display.setNetVisible(true);
    QCOMPARE(m_terminal->textOf(QStringLiteral("printKey")), QStringLiteral("Print"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("netMark")), QStringLiteral("NET"));
    m_terminal->instrument.setLanguage(QStringLiteral("de"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("printKey")), QStringLiteral("Drucken"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("netMark")), QStringLiteral("NETTO"));
    m_terminal->instrument.setLanguage(QStringLiteral("en"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("printKey")), QStringLiteral("Print"));
    // A text that the application gives goes before the terminal's own.
    m_terminal->display.setNetText(QStringLiteral("Net"));
    QCOMPARE(m_terminal->textOf(QStringLiteral("netMark")), QStringLiteral("Net"));
}

void tst_TerminalWindow::svgPicturesAreRead()
{
    const QByteArray svg(R"(<svg xmlns="http://www.w3.org/2000/svg" width="8" height="8">)"
                         R"(<rect width="8" height="8" fill="#ff0000"/></svg>)");
    const QImage image = QImage::fromData(svg, "svg");
    QVERIFY2(!image.isNull(), "the package libqt5svg5 is missing");
    QCOMPARE(image.pixelColor(4, 4), QColor(Qt::red));
}

QTEST_MAIN(tst_TerminalWindow)
#include "tst_terminalwindow.moc"
