// SPDX-License-Identifier: BSD-3-Clause
//
// Runs the tst_*.qml of this folder on the terminal's own components.
#include "InfoItemIcon.h"
#include "InfoValueUnit.h"
#include "InfoboxListItem.h"
#include "SelectListItem.h"

#include <QObject>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QtQuickTest>

static void initResources()
{
    Q_INIT_RESOURCE(terminal_ui);
}

/// Makes the library's models, and changes them as a program does: through their setters.
class Models : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    Q_INVOKABLE QObject* selectListItem(const QString& name, const QString& date, const QString& information,
                                        bool selected, bool isProtected)
    {
        return new Brimvale::SelectListItem(this, name, date, 0, information, selected, isProtected);
    }
    Q_INVOKABLE void select(QObject* item, bool selected)
    {
        qobject_cast<Brimvale::SelectListItem*>(item)->setSelected(selected);
    }
    Q_INVOKABLE void protect(QObject* item, bool isProtected)
    {
        qobject_cast<Brimvale::SelectListItem*>(item)->setProtected(isProtected);
    }
    Q_INVOKABLE void setTexts(QObject* item, const QString& name, const QString& date,
                              const QString& information)
    {
        auto* const entry = qobject_cast<Brimvale::SelectListItem*>(item);
        entry->setName(name);
        entry->setDate(date);
        entry->setAdditionalInformation(information);
    }

    Q_INVOKABLE QObject* line(const QString& group, const QString& title, const QString& value, bool bold,
                              bool rightAligned, bool invalid)
    {
        return new Brimvale::InfoboxListItem(this, group, title, value, bold, rightAligned, invalid);
    }
    Q_INVOKABLE void setLine(QObject* item, const QString& property, const QVariant& value)
    {
        auto* const line = qobject_cast<Brimvale::InfoboxListItem*>(item);
        if (property == QLatin1String("itemGroupTitle"))
            line->setItemGroupTitle(value.toString());
        else if (property == QLatin1String("itemValueTitle"))
            line->setItemValueTitle(value.toString());
        else if (property == QLatin1String("itemValue"))
            line->setItemValue(value.toString());
        else if (property == QLatin1String("isGroupTitleBold"))
            line->setIsGroupTitleBold(value.toBool());
        else if (property == QLatin1String("isItemValueRightAligned"))
            line->setIsItemValueRightAligned(value.toBool());
        else if (property == QLatin1String("isItemValueInvalid"))
            line->setIsItemValueInvalid(value.toBool());
        else
            qFatal("no such property");
    }
    Q_INVOKABLE QObject* icon(const QString& value, const QString& unit, const QString& image)
    {
        return new Brimvale::InfoItemIcon(this, value, unit, image);
    }
    Q_INVOKABLE QObject* valueUnit(bool visible, const QString& info, const QString& value,
                                   const QString& unit)
    {
        return new Brimvale::InfoValueUnit(this, visible, info, value, unit);
    }
    Q_INVOKABLE void show(QObject* item, bool visible)
    {
        qobject_cast<Brimvale::InfoValueUnit*>(item)->setVisble(visible);
    }
};

class Setup : public QObject
{
    Q_OBJECT

public slots:
    void applicationAvailable()
    {
        initResources();
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    }
    void qmlEngineAvailable(QQmlEngine* engine)
    {
        engine->rootContext()->setContextProperty(QStringLiteral("models"), new Models(engine));
    }
};

QUICK_TEST_MAIN_WITH_SETUP(tst_terminalqml, Setup)
#include "main.moc"
