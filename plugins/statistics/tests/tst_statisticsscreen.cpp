// SPDX-License-Identifier: BSD-3-Clause
#include "StatisticsViewModel.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlError>
#include <QQuickItem>
#include <QQuickView>
#include <QSignalSpy>
#include <QTranslator>
#include <QtTest>

using namespace Brimvale;

/// The screen in the size that the terminal gives it.
class TestStatisticsScreen : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void withoutWeighings();
    void plotOfASeries();
    void numbersStandApart();
    void damagedFileIsToldWhole_data();
    void damagedFileIsToldWhole();
    void thresholdKeys();
    void keysThatCannotBePressed();
    void clearQuestion();

private:
    void fill(int count);
    QQuickItem* item(const char* name) const
    {
        return m_view->rootObject()->findChild<QQuickItem*>(QLatin1String(name));
    }
    void tap(const char* name);

    std::unique_ptr<StatisticsViewModel> m_model;
    std::unique_ptr<QQuickView> m_view;
    QList<QQmlError> m_warnings;
};

void TestStatisticsScreen::init()
{
    m_warnings.clear();
    m_model = std::make_unique<StatisticsViewModel>();
    m_view = std::make_unique<QQuickView>();
    connect(m_view->engine(), &QQmlEngine::warnings, this,
            [this](const QList<QQmlError>& warnings) { m_warnings += warnings; });
    m_view->rootContext()->setContextProperty(QStringLiteral("statistics"), m_model.get());
    m_view->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->resize(720, 208);
    m_view->setSource(QUrl(QStringLiteral("qrc:/statistics/StatisticsScreen.qml")));
    QCOMPARE(m_view->status(), QQuickView::Ready);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void TestStatisticsScreen::cleanup()
{
    m_view.reset();
    m_model.reset();
    for (const QQmlError& warning : qAsConst(m_warnings)) {
        qWarning("%s", qPrintable(warning.toString()));
    }
    QVERIFY(m_warnings.isEmpty());
}

void TestStatisticsScreen::fill(int count)
{
    WeighingSeries series;
    for (int i = 0; i < count; ++i) {
        series.append(StatisticsValue(1000 + i % 3, 1, QStringLiteral("g"), StatisticsValue::NoFlag,
                                      QDateTime::currentDateTime(), true));
    }
    m_model->setSeries(series);
}

void TestStatisticsScreen::tap(const char* name)
{
    QQuickItem* const key = item(name);
    QVERIFY2(key != nullptr, name);
    const QPointF centre = key->mapToScene(QPointF(key->width() / 2, key->height() / 2));
    QTest::mouseClick(m_view.get(), Qt::LeftButton, Qt::NoModifier, centre.toPoint());
}

void TestStatisticsScreen::withoutWeighings()
{
    QVERIFY(!item("plot")->isVisible());
    QVERIFY(item("message")->isVisible());
    QVERIFY(!item("question")->isVisible());
}

void TestStatisticsScreen::plotOfASeries()
{
    fill(1);
    QVERIFY(item("plot")->isVisible());
    QVERIFY(!item("band")->isVisible()); // one weighing has no deviation
    fill(1000);
    QVERIFY(item("band")->isVisible());
    QVERIFY(item("band")->y() >= 0.0);
    QVERIFY(item("band")->y() + item("band")->height() <= item("plot")->height());
    QVERIFY(item("mean")->y() > item("band")->y());
}

void TestStatisticsScreen::numbersStandApart()
{
    fill(100000);
    QVector<QRectF> places;
    const QList<QQuickItem*> parts = item("plot")->childItems();
    for (const QQuickItem* part : parts) {
        if (part->objectName() == QLatin1String("number") || part->objectName() == QLatin1String("unit")) {
            places.append(part->mapRectToScene(part->boundingRect()));
        }
    }
    QCOMPARE(places.size(), 3);
    for (int i = 0; i < places.size(); ++i) {
        QVERIFY(QRectF(0, 0, 720, 208).contains(places.at(i)));
        for (int k = 0; k < i; ++k) {
            QVERIFY(!places.at(i).intersects(places.at(k)));
        }
    }
}

void TestStatisticsScreen::damagedFileIsToldWhole_data()
{
    QTest::addColumn<QString>("translation");
    QTest::newRow("English") << QString();
    QTest::newRow("German") << QStringLiteral(STATISTICS_TRANSLATION);
}

void TestStatisticsScreen::damagedFileIsToldWhole()
{
    QFETCH(QString, translation);
    QTranslator translator;
    if (!translation.isEmpty()) {
        QVERIFY(translator.load(translation));
        QVERIFY(QCoreApplication::installTranslator(&translator));
    }
    m_model->setState(StatisticsViewModel::SetAside, QStringLiteral("series.damaged-10.sqlite"));
    QVERIFY(!item("messageText")->property("truncated").toBool());
}

void TestStatisticsScreen::thresholdKeys()
{
    m_model->setThreshold(QStringLiteral("1 g"), true, true, true);
    QSignalSpy steps(m_model.get(), &StatisticsViewModel::thresholdStepRequested);
    tap("decrease");
    tap("increase");
    QCOMPARE(steps.count(), 2);
    QCOMPARE(steps.at(0).first().toInt(), -1);
    QCOMPARE(steps.at(1).first().toInt(), 1);
    for (const char* key : {"decrease", "increase", "keep", "clear"}) {
        QVERIFY2(item(key)->width() >= 60.0 && item(key)->height() >= 60.0, key);
    }
}

void TestStatisticsScreen::keysThatCannotBePressed()
{
    QSignalSpy steps(m_model.get(), &StatisticsViewModel::thresholdStepRequested);
    m_model->setThreshold(QStringLiteral("1 g"), false, false, true); // at both ends
    tap("decrease");
    tap("increase");
    m_model->setThreshold(QStringLiteral("1 g"), true, true, false); // not recording by itself
    tap("decrease");
    tap("increase");
    QCOMPARE(steps.count(), 0);
}

void TestStatisticsScreen::clearQuestion()
{
    fill(12);
    m_model->setConfirming(true);
    QVERIFY(item("question")->isVisible());
    QVERIFY(!item("message")->isVisible());
    QSignalSpy answers(m_model.get(), &StatisticsViewModel::clearAnswered);
    tap("keep");
    tap("clear");
    QCOMPARE(answers.count(), 2);
    QVERIFY(!answers.at(0).first().toBool());
    QVERIFY(answers.at(1).first().toBool());
}

QTEST_MAIN(TestStatisticsScreen)
#include "tst_statisticsscreen.moc"
