// SPDX-License-Identifier: BSD-3-Clause
#include "CountingViewModel.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlError>
#include <QQuickItem>
#include <QQuickView>
#include <QtTest>

/// The screen in the size that the terminal gives it.
class TestCountingScreen : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsValues();
    void keysAreLargeEnough();
    void presetIsChosen();
    void tapOpensThePad();
    void entryByThePad();
    void wrongEntryIsMarked();
    void check_data();
    void check();
    void longestMessagesFit_data();
    void longestMessagesFit();

private:
    QQuickItem* item(const char* name) const { return find(m_view->rootObject(), QString::fromUtf8(name)); }
    /// What a Repeater has made has no parent but the one that shows it.
    static QQuickItem* find(QQuickItem* below, const QString& name);
    void tap(const char* name);
    QString text(const char* name) const { return item(name)->property("text").toString(); }

    CountingSettings m_settings;
    std::unique_ptr<CountingViewModel> m_model;
    std::unique_ptr<QQuickView> m_view;
    QList<QQmlError> m_warnings;
};

void TestCountingScreen::init()
{
    m_warnings.clear();
    m_settings = CountingSettings();
    m_model = std::make_unique<CountingViewModel>(&m_settings);
    m_view = std::make_unique<QQuickView>();
    connect(m_view->engine(), &QQmlEngine::warnings, this,
            [this](const QList<QQmlError>& warnings) { m_warnings += warnings; });
    m_view->rootContext()->setContextProperty(QStringLiteral("counting"), m_model.get());
    m_view->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->resize(720, 208);
    m_view->setSource(QUrl(QStringLiteral("qrc:/counting/CountingScreen.qml")));
    QCOMPARE(m_view->status(), QQuickView::Ready);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void TestCountingScreen::cleanup()
{
    m_view.reset();
    m_model.reset();
    for (const QQmlError& warning : qAsConst(m_warnings)) {
        qWarning("%s", qPrintable(warning.toString()));
    }
    QVERIFY(m_warnings.isEmpty());
}

QQuickItem* TestCountingScreen::find(QQuickItem* below, const QString& name)
{
    const QList<QQuickItem*> children = below->childItems();
    for (QQuickItem* child : children) {
        QQuickItem* const found = child->objectName() == name ? child : find(child, name);
        if (found != nullptr) {
            return found;
        }
    }
    return nullptr;
}

void TestCountingScreen::tap(const char* name)
{
    QQuickItem* const key = item(name);
    QVERIFY2(key != nullptr && key->isVisible(), name);
    const QPointF centre = key->mapToScene(QPointF(key->width() / 2, key->height() / 2));
    QVERIFY2(QRectF(0, 0, 720, 208).contains(centre), name);
    QTest::mouseClick(m_view.get(), Qt::LeftButton, Qt::NoModifier, centre.toPoint());
}

void TestCountingScreen::showsValues()
{
    QVERIFY(item("values")->isVisible());
    QVERIFY(!item("pad")->isVisible());
    QVERIFY(!item("check")->isVisible());
    QCOMPARE(text("message"), QString());
    m_model->setStanding(CountingViewModel::Right, {QStringLiteral("325")});
    QCOMPARE(text("message"), QStringLiteral("Counts are right up to 325 pcs"));
    m_model->setEvent(CountingViewModel::Printed);
    QCOMPARE(text("message"), QStringLiteral("Count sent"));
    m_model->clearEvent();
    QCOMPARE(text("message"), QStringLiteral("Counts are right up to 325 pcs"));
}

void TestCountingScreen::keysAreLargeEnough()
{
    m_model->openEntry(CountingSettings::Parts);
    for (const char* name :
         {"preset5", "preset100", "field0", "field1", "field2", "cancel", "accept", "key1", "key<", "key0"}) {
        QQuickItem* const key = item(name);
        QVERIFY2(key != nullptr, name);
        QVERIFY2(key->width() >= 60.0 && key->height() >= 60.0, name);
        const QRectF place = key->mapRectToScene(QRectF(0, 0, key->width(), key->height()));
        QVERIFY2(QRectF(0, 0, 720, 208).contains(place), name);
    }
}

void TestCountingScreen::presetIsChosen()
{
    QVERIFY(item("preset10")->property("chosen").toBool());
    tap("preset50");
    QCOMPARE(m_model->parts(), 50);
    QVERIFY(item("preset50")->property("chosen").toBool());
    QVERIFY(!item("preset10")->property("chosen").toBool());
    QVERIFY(!item("field0")->property("chosen").toBool());
    m_model->chooseParts(25);
    QVERIFY(!item("preset50")->property("chosen").toBool());
    QVERIFY(item("field0")->property("chosen").toBool());
}

void TestCountingScreen::tapOpensThePad()
{
    tap("field2");
    QVERIFY(m_model->editing());
    QCOMPARE(m_model->selected(), int(CountingSettings::Tolerance));
    QVERIFY(item("pad")->isVisible());
    QVERIFY(!item("values")->isVisible());
    QCOMPARE(text("range"), QStringLiteral("0 – 999999"));
    QCOMPARE(text("entry"), QStringLiteral("± 0"));
}

void TestCountingScreen::entryByThePad()
{
    tap("field1");
    for (const char* key : {"key2", "key5", "key0", "key7", "key<"}) {
        tap(key);
    }
    QCOMPARE(text("entry"), QStringLiteral("250"));
    tap("accept");
    QVERIFY(!m_model->editing());
    QCOMPARE(m_settings.value(CountingSettings::Target), 250);
    tap("field1");
    tap("key9");
    tap("cancel");
    QVERIFY(!m_model->editing());
    QCOMPARE(m_settings.value(CountingSettings::Target), 250);
}

void TestCountingScreen::wrongEntryIsMarked()
{
    tap("field0");
    tap("key0");
    QCOMPARE(text("range"), QStringLiteral("Only 1 – 9999"));
    tap("accept"); // does nothing
    QVERIFY(m_model->editing());
}

void TestCountingScreen::check_data()
{
    QTest::addColumn<int>("check");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("under") << int(CountingSettings::Under) << "3 missing" << QColor("#F4B63C");
    QTest::newRow("reached") << int(CountingSettings::Reached) << "Target reached" << QColor("#1E8E50");
    QTest::newRow("over") << int(CountingSettings::Over) << "3 too many" << QColor("#B3261E");
}

void TestCountingScreen::check()
{
    QFETCH(int, check);
    m_model->setCheck(static_cast<CountingSettings::Check>(check), 3);
    QVERIFY(item("check")->isVisible());
    QTEST(text("checkText"), "text");
    QTEST(item("check")->property("color").value<QColor>(), "colour");
    m_model->setCheck(CountingSettings::NoTarget, 0);
    QVERIFY(!item("check")->isVisible());
}

void TestCountingScreen::longestMessagesFit_data()
{
    QTest::addColumn<int>("state");
    QTest::newRow("too small") << int(CountingViewModel::TooSmall);
    QTest::newRow("too few") << int(CountingViewModel::TooFew);
    QTest::newRow("too light") << int(CountingViewModel::TooLight);
    QTest::newRow("taken") << int(CountingViewModel::ReferenceTaken);
    QTest::newRow("added too many") << int(CountingViewModel::AddedTooMany);
    QTest::newRow("not optimisable") << int(CountingViewModel::NotOptimisable);
}

void TestCountingScreen::longestMessagesFit()
{
    QFETCH(int, state);
    const QString most = QStringLiteral("999999999");
    m_model->setEvent(static_cast<CountingViewModel::State>(state), {most, most, most});
    QVERIFY(!text("message").isEmpty());
    QVERIFY(!item("message")->property("truncated").toBool());
    m_model->setEvent(CountingViewModel::NotRead, {QString(500, QLatin1Char('x'))});
    QVERIFY(item("message")->property("truncated").toBool());
}

QTEST_MAIN(TestCountingScreen)
#include "tst_countingscreen.moc"
