// SPDX-License-Identifier: BSD-3-Clause
#include "FormulationViewModel.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlError>
#include <QQuickItem>
#include <QQuickView>
#include <QSignalSpy>
#include <QtTest>

#include <SelectListItem.h>
#include <memory>

using namespace Brimvale;

/// The screen in the sizes that the terminal gives it.
class TestFormulationScreen : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void pages_data();
    void pages();
    void recipeIsTouched();
    void chosenRecipeIsInSight();
    void messages_data();
    void messages();
    void longTextsStayApart();
    void bars_data();
    void bars();

private:
    QQuickItem* item(const char* name) const
    {
        return m_view->rootObject()->findChild<QQuickItem*>(QLatin1String(name));
    }
    void setRecipes(int count, int current);

    QObject m_entries;
    std::unique_ptr<FormulationViewModel> m_model;
    std::unique_ptr<QQuickView> m_view;
    QList<QQmlError> m_warnings;
};

void TestFormulationScreen::init()
{
    m_warnings.clear();
    m_model = std::make_unique<FormulationViewModel>();
    setRecipes(3, 0);
    m_model->setTexts(QStringLiteral("Bread"), QStringLiteral("4 components, together 837.0 g"));
    m_view = std::make_unique<QQuickView>();
    connect(m_view->engine(), &QQmlEngine::warnings, this,
            [this](const QList<QQmlError>& warnings) { m_warnings += warnings; });
    m_view->rootContext()->setContextProperty(QStringLiteral("formulation"), m_model.get());
    m_view->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->resize(720, 208);
    m_view->setSource(QUrl(QStringLiteral("qrc:/formulation/FormulationScreen.qml")));
    QCOMPARE(m_view->status(), QQuickView::Ready);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void TestFormulationScreen::cleanup()
{
    m_view.reset();
    m_model.reset();
    for (const QQmlError& warning : qAsConst(m_warnings)) {
        qWarning("%s", qPrintable(warning.toString()));
    }
    QVERIFY(m_warnings.isEmpty());
}

void TestFormulationScreen::setRecipes(int count, int current)
{
    QList<QObject*> entries;
    for (int index = 0; index < count; ++index) {
        auto* const entry = new SelectListItem(&m_entries);
        entry->setName(QStringLiteral("Recipe %1").arg(index));
        entry->setSelected(index == current);
        entries.append(entry);
    }
    m_model->setRecipes(entries, current);
}

void TestFormulationScreen::pages_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<bool>("list");
    QTest::addColumn<bool>("title");
    QTest::addColumn<bool>("dosing");
    QTest::newRow("selection") << int(FormulationViewModel::Selection) << true << true << false;
    QTest::newRow("interrupted") << int(FormulationViewModel::Interrupted) << false << true << false;
    QTest::newRow("dosing") << int(FormulationViewModel::Dosing) << false << false << true;
}

void TestFormulationScreen::pages()
{
    QFETCH(int, page);
    m_model->setPage(static_cast<FormulationViewModel::Page>(page));
    QTEST(item("recipeList")->isVisible(), "list");
    QTEST(item("title")->isVisible(), "title");
    QTEST(item("dosing")->isVisible(), "dosing");
    QVERIFY(!item("message")->isVisible());
}

void TestFormulationScreen::recipeIsTouched()
{
    QSignalSpy chosen(m_model.get(), &FormulationViewModel::chosen);
    QTest::mouseClick(m_view.get(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 8 + 64 + 32));
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.first().first().toInt(), 1);
}

void TestFormulationScreen::chosenRecipeIsInSight()
{
    QQuickItem* const list = item("recipeList");
    for (const int current : {29, 0, 15}) {
        setRecipes(30, current);
        QTRY_COMPARE(list->property("currentIndex").toInt(), current);
        const double top = list->property("contentY").toDouble();
        QVERIFY2(current * 64.0 >= top - 1.0 && (current + 1) * 64.0 <= top + list->height() + 1.0,
                 qPrintable(QString::number(top)));
    }
}

void TestFormulationScreen::messages_data()
{
    QTest::addColumn<int>("severity");
    QTest::addColumn<QString>("ground");
    QTest::newRow("info") << int(FormulationViewModel::Info) << "#f8faf9";
    QTest::newRow("attention") << int(FormulationViewModel::Attention) << "#f4b63c";
    QTest::newRow("wrong") << int(FormulationViewModel::Wrong) << "#f8faf9";
}

void TestFormulationScreen::messages()
{
    QFETCH(int, severity);
    m_model->setMessage(QStringLiteral("Something is to be said."),
                        static_cast<FormulationViewModel::Severity>(severity));
    QVERIFY(item("message")->isVisible());
    QTEST(item("message")->property("color").toString(), "ground");
    m_model->setPage(FormulationViewModel::Dosing);
    QVERIFY(!item("message")->isVisible());
}

void TestFormulationScreen::longTextsStayApart()
{
    const QString text = QStringLiteral("a long text that does not end ").repeated(20);
    m_model->setTexts(text, text);
    m_model->setMessage(text, FormulationViewModel::Wrong);
    for (const auto page : {FormulationViewModel::Selection, FormulationViewModel::Interrupted}) {
        m_model->setPage(page);
        const QQuickItem* const words = item("text");
        const QQuickItem* const message = item("message");
        const double end = words->mapToScene(QPointF(0.0, words->height())).y();
        QVERIFY2(end <= message->y(), qPrintable(QStringLiteral("%1 > %2").arg(end).arg(message->y())));
        QVERIFY(message->y() + message->height() <= 208.0);
    }
}

void TestFormulationScreen::bars_data()
{
    QTest::addColumn<double>("coarse");
    QTest::addColumn<double>("fine");
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("color");
    QTest::newRow("nothing") << 0.0 << 0.0 << int(FormulationViewModel::TooLittle) << "Still to add"
                             << "#0b6b7a";
    QTest::newRow("half") << 0.5 << 0.0 << int(FormulationViewModel::TooLittle) << "Still to add"
                          << "#0b6b7a";
    QTest::newRow("within") << 0.99 << 0.45 << int(FormulationViewModel::Within) << "Within tolerance"
                            << "#1e8e50";
    QTest::newRow("far too much") << 1.0 << 1.0 << int(FormulationViewModel::TooMuch) << "Too much"
                                  << "#b3261e";
    QTest::newRow("no weight") << 0.0 << 0.0 << int(FormulationViewModel::NoWeight) << "No weight"
                               << "";
}

void TestFormulationScreen::bars()
{
    QFETCH(double, coarse);
    QFETCH(double, fine);
    QFETCH(int, level);
    QFETCH(QString, color);
    m_view->resize(720, 136); // below the band of the workflow
    m_model->setPage(FormulationViewModel::Dosing);
    FormulationViewModel::Component component;
    component.remaining = QStringLiteral("12.5");
    component.coarse = coarse;
    component.fine = fine;
    component.level = static_cast<FormulationViewModel::Level>(level);
    m_model->setComponent(component);

    const QQuickItem* const bar = item("coarseBar");
    const QQuickItem* const mark = item("fineMark");
    const double full = bar->parentItem()->width() - 2.0;
    QCOMPARE(bar->width(), full * coarse);
    const bool isWeight = level != FormulationViewModel::NoWeight;
    QCOMPARE(mark->isVisible(), isWeight);
    QVERIFY(mark->x() >= 0.0);
    QVERIFY(mark->x() + mark->width() <= mark->parentItem()->width());
    if (level == FormulationViewModel::Within) {
        const QQuickItem* const band = item("toleranceBand");
        const double middle = mark->x() + mark->width() / 2.0;
        QVERIFY(middle >= band->x() && middle <= band->x() + band->width());
        QCOMPARE(middle, mark->parentItem()->width() * fine);
    }
    if (isWeight) {
        QCOMPARE(mark->property("color").toString(), color);
    }
    QTEST(item("remainingTitle")->property("text").toString(), "title");
    QCOMPARE(item("remaining")->property("text").toString(),
             isWeight ? QStringLiteral("12.5") : QStringLiteral("–"));
    const QQuickItem* const remaining = item("remaining");
    QVERIFY(remaining->mapToScene(QPointF(0.0, remaining->height())).y() <= 136.0);
}

QTEST_MAIN(TestFormulationScreen)
#include "tst_formulationscreen.moc"
