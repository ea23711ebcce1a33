// SPDX-License-Identifier: BSD-3-Clause
#include "DensityViewModel.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlError>
#include <QQuickItem>
#include <QQuickView>
#include <QtTest>

/// The screen in the size that the terminal gives it.
class TestDensityScreen : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsValues();
    void keysAreLargeEnough();
    void steppers();
    void tapSelects();
    void entryByThePad();
    void wrongEntryIsMarked();

private:
    QQuickItem* item(const QString& name) const { return find(m_view->rootObject(), name); }
    /// What a Repeater has made has no parent but the one that shows it.
    static QQuickItem* find(QQuickItem* below, const QString& name);
    void tap(const char* name);

    Parameters m_parameters;
    std::unique_ptr<DensityViewModel> m_model;
    std::unique_ptr<QQuickView> m_view;
    QList<QQmlError> m_warnings;
};

void TestDensityScreen::init()
{
    m_warnings.clear();
    m_parameters = Parameters();
    m_model = std::make_unique<DensityViewModel>(&m_parameters);
    m_view = std::make_unique<QQuickView>();
    connect(m_view->engine(), &QQmlEngine::warnings, this,
            [this](const QList<QQmlError>& warnings) { m_warnings += warnings; });
    m_view->rootContext()->setContextProperty(QStringLiteral("density"), m_model.get());
    m_view->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->resize(720, 208);
    m_view->setSource(QUrl(QStringLiteral("qrc:/density/DensityScreen.qml")));
    QCOMPARE(m_view->status(), QQuickView::Ready);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void TestDensityScreen::cleanup()
{
    m_view.reset();
    m_model.reset();
    for (const QQmlError& warning : qAsConst(m_warnings)) {
        qWarning("%s", qPrintable(warning.toString()));
    }
    QVERIFY(m_warnings.isEmpty());
}

QQuickItem* TestDensityScreen::find(QQuickItem* below, const QString& name)
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

void TestDensityScreen::tap(const char* name)
{
    QQuickItem* const key = item(QString::fromUtf8(name));
    QVERIFY2(key != nullptr && key->isVisible(), name);
    const QPointF centre = key->mapToScene(QPointF(key->width() / 2, key->height() / 2));
    QVERIFY2(QRectF(0, 0, 720, 208).contains(centre), name);
    QTest::mouseClick(m_view.get(), Qt::LeftButton, Qt::NoModifier, centre.toPoint());
}

void TestDensityScreen::showsValues()
{
    QVERIFY(item(QStringLiteral("values"))->isVisible());
    QVERIFY(!item(QStringLiteral("pad"))->isVisible());
    QVERIFY(item(QStringLiteral("field4")) != nullptr);
}

void TestDensityScreen::keysAreLargeEnough()
{
    m_model->openEntry();
    for (const char* name : {"decrease", "increase", "cancel", "accept", "field0", "key1", "key<", "key."}) {
        QQuickItem* const key = item(QString::fromUtf8(name));
        QVERIFY2(key != nullptr, name);
        QVERIFY2(key->width() >= 60.0 && key->height() >= 60.0, name);
    }
    const QQuickItem* const lowest = item(QStringLiteral("key0"));
    QVERIFY(lowest->mapToScene(QPointF(0, lowest->height())).y() <= 208.0);
}

void TestDensityScreen::steppers()
{
    tap("increase");
    QCOMPARE(m_parameters.text(Parameters::Temperature), QStringLiteral("20.5"));
    tap("decrease");
    tap("decrease");
    QCOMPARE(m_parameters.text(Parameters::Temperature), QStringLiteral("19.5"));
}

void TestDensityScreen::tapSelects()
{
    tap("field2");
    QCOMPARE(m_model->selected(), int(Parameters::Pressure));
    QVERIFY(!m_model->editing());
    tap("field2");
    QVERIFY(m_model->editing());
}

void TestDensityScreen::entryByThePad()
{
    tap("field3");
    tap("field3");
    for (const char* key : {"key9", "key9", "key8", "key.", "key2", "key3", "key<", "key2"}) {
        tap(key);
    }
    QCOMPARE(m_model->entry(), QStringLiteral("998.2"));
    tap("accept");
    QVERIFY(!m_model->editing());
    QCOMPARE(m_parameters.text(Parameters::SampleDensity), QStringLiteral("998.2"));
    tap("field3");
    tap("key7");
    tap("cancel");
    QCOMPARE(m_parameters.text(Parameters::SampleDensity), QStringLiteral("998.2"));
}

void TestDensityScreen::wrongEntryIsMarked()
{
    tap("field0");
    tap("key9");
    tap("key9");
    QCOMPARE(item(QStringLiteral("range"))->property("text").toString(),
             QStringLiteral("Only 0.0 – 40.0 °C"));
    tap("accept"); // does nothing
    QVERIFY(m_model->editing());
}

QTEST_MAIN(TestDensityScreen)
#include "tst_densityscreen.moc"
