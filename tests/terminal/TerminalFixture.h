// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TERMINALFIXTURE_H
#define BRIMVALE_TERMINALFIXTURE_H

#include "InfoboxListItem.h"
#include "MesswertInfo.h"
#include "WarnInfo.h"
#include "ui/BenchModel.h"
#include "ui/InstrumentModel.h"
#include "ui/TerminalWindow.h"
#include "ui/WorkflowModel.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QObject>
#include <QPointF>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>
#include <QVariant>

#include <memory>

/// The view model of the stand-in screen.
class StandIn : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString title MEMBER m_title NOTIFY titleChanged)
    Q_PROPERTY(QVariantList figures MEMBER m_figures NOTIFY figuresChanged)

public:
    explicit StandIn(QObject* parent = nullptr)
        : QObject(parent)
    {
    }

    QString m_title = QStringLiteral("Receiving goods");
    QVariantList m_figures;

signals:
    void titleChanged();
    void figuresChanged();
    void leave();
};

/// A terminal as it stands on the desk: a scale of 3200 g, a stable weight, a running application.
struct TerminalFixture
{
    Brimvale::Terminal::InstrumentModel instrument;
    Brimvale::Terminal::BenchModel bench;
    Brimvale::MesswertInfo terminalDisplay{nullptr,
                                           QStringLiteral("0.0"),
                                           QStringLiteral("g"),
                                           true,
                                           0,
                                           true,
                                           false,
                                           false,
                                           0,
                                           QString(),
                                           QString(),
                                           false,
                                           0,
                                           true,
                                           false,
                                           0,
                                           QString(),
                                           QString(),
                                           QString(),
                                           0,
                                           1,
                                           false,
                                           false,
                                           true,
                                           true,
                                           true};
    Brimvale::MesswertInfo display{nullptr,
                                   QStringLiteral("1284.6"),
                                   QStringLiteral("g"),
                                   true,
                                   0,
                                   true,
                                   false,
                                   false,
                                   0,
                                   QStringLiteral("1.285"),
                                   QStringLiteral("kg"),
                                   false,
                                   0,
                                   true,
                                   false,
                                   0,
                                   QString(),
                                   QString(),
                                   QString(),
                                   40,
                                   1,
                                   false,
                                   false,
                                   true,
                                   true,
                                   true};
    Brimvale::WarnInfo warnings{nullptr, QStringLiteral("Levelling required"), QString(), false, false};
    StandIn standIn;
    Brimvale::Terminal::WorkflowModel workflow;
    Brimvale::Terminal::TerminalWindow window{instrument, bench, workflow};

    TerminalFixture()
    {
        using namespace Brimvale::Terminal;
        instrument.setTerminalDisplay(&terminalDisplay);
        instrument.setScalePlate(QStringLiteral("Max 3200 g    d = 0.1 g"));
        instrument.setSourceText(QStringLiteral("Simulated scale"));
        instrument.setDateTimeText(QStringLiteral("2024-03-05  14:07"));
        instrument.hostActions()->setActions({{QStringLiteral("zero"), QStringLiteral("Zero")},
                                              {QStringLiteral("tare"), QStringLiteral("Tare")}});
        bench.setCapacity(3200.0);
        bench.setReadability(0.1);
        bench.setLoad(1284.6);
        window.setAnimationsEnabled(false);
    }

    /// Brings an application to the front, as the host does.
    void startApplication(const QString& screen = QStringLiteral("StandInScreen.qml"))
    {
        using namespace Brimvale::Terminal;
        instrument.setPlugins(
            {{QStringLiteral("receiving"), QStringLiteral("Receiving goods"), QString(), true},
             {QStringLiteral("counting"), QStringLiteral("Counting"), QString(), false}});
        instrument.setDisplay(&display);
        instrument.setWarnings(&warnings);
        instrument.actions()->setActions({{QStringLiteral("zero"), QStringLiteral("Zero")},
                                          {QStringLiteral("tare"), QStringLiteral("Tare")},
                                          {QStringLiteral("record"), QStringLiteral("Record")},
                                          {QStringLiteral("clear"), QStringLiteral("Clear sum"), false}});
        instrument.setPrintEnabled(true);
        window.setContextObject(QStringLiteral("standIn"), &standIn);
        instrument.setPluginScreen(
            InstrumentModel::urlFromPath(QStringLiteral(TERMINAL_TEST_DATA "/") + screen));
    }

    /// The item of this name that a person sees; null when there is none.
    QQuickItem* shown(const QString& name) const { return shownIn(window.rootItem(), name); }

    static QQuickItem* shownIn(QQuickItem* item, const QString& name)
    {
        if (!item->isVisible()) {
            return nullptr;
        }
        if (item->objectName() == name) {
            return item;
        }
        for (QQuickItem* child : item->childItems()) {
            if (QQuickItem* found = shownIn(child, name)) {
                return found;
            }
        }
        return nullptr;
    }

    /// The text that the visible item of this name shows.
    QString textOf(const QString& name) const
    {
        const QQuickItem* item = shown(name);
        return item ? item->property("text").toString() : QString();
    }

    /// Taps a place of the window, in its pixels.
    void tap(const QPointF& place) const
    {
        send(QEvent::MouseButtonPress, place);
        send(QEvent::MouseButtonRelease, place);
    }

    /// Taps the middle of the visible item of this name. Returns false when there is none.
    bool tap(const QString& name) const
    {
        const QQuickItem* item = shown(name);
        if (!item) {
            return false;
        }
        tap(item->mapToScene(QPointF(item->width() / 2, item->height() / 2)));
        return true;
    }

    void send(QEvent::Type type, const QPointF& place) const
    {
        const bool released = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, place, place, place,
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          released ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.window(), &event);
    }
};

#endif // BRIMVALE_TERMINALFIXTURE_H
