// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTS_TESTKIT_STUBS_H
#define BRIMVALE_TESTS_TESTKIT_STUBS_H

#include "IAction.h"
#include "IPrintableItem.h"
#include "IStepFunction.h"
#include "ITrigger.h"
#include "IWorkflowStep.h"

#include <QObject>
#include <QVariant>

/// Objects that a plug-in hands to its host, each with the unique id "uid".

class StubAction : public QObject, public Brimvale::IAction
{
    Q_OBJECT

public:
    bool enabled() const override { return isEnabled; }
    QString name() const override { return QString(); }
    QString uid() const override { return QStringLiteral("uid"); }
    int getRank() const override { return 0; }
    void doAction() override { ++pressed; }
    void doAction(QVariant) override { }

    bool isEnabled = true;
    int pressed = 0;

signals:
    void actionUpdated() override;
    void workDone(QVariant data) override;
};

class StubItem : public QObject, public Brimvale::IPrintableItem
{
    Q_OBJECT

public:
    QString getName() const override { return QString(); }
    QString getUId() const override { return QStringLiteral("uid"); }
    QString getCategory() const override { return QString(); }
    int getRank() const override { return 0; }
    bool isEnabled(QFlags<Brimvale::ProtocolType>) const override { return true; }
    bool isAvailableIn(QFlags<Brimvale::ProtocolArea>) const override { return true; }
    void setValue() override { }
    bool Print(Brimvale::IPrinter*, Brimvale::IFormat*) override { return false; }
};

class StubTrigger : public QObject, public Brimvale::ITrigger
{
    Q_OBJECT

public:
    QString getName() const override { return QString(); }
    QString getUId() const override { return QStringLiteral("uid"); }
    bool isAvailableIn(QFlags<Brimvale::ProtocolArea>, Brimvale::ApplicationType) const override
    {
        return true;
    }
    bool Check() override { return true; }
    bool setTrigger(QVariant) override { return true; }
    bool setTrigger(QVariant, QVariant, QVariant) override { return true; }
    void doTrigger() override { }
    void setRunning(bool) override { }
    bool isRunning() override { return true; }
    bool isValueAvailable() override { return true; }

signals:
    void notifyTriggered(QString uid) override;
};

class StubStepFunction : public QObject, public Brimvale::IStepFunction
{
    Q_OBJECT

public:
    bool enabled() const override { return true; }
    QString name() const override { return QString(); }
    QString uid() const override { return QStringLiteral("uid"); }
    int getRank() const override { return 0; }
    bool isProcess() const override { return false; }
    void startFunction(QVariant, QVariant) override { }
    void prepareResultForScreen(QVariant, Brimvale::IWorkflowScreen*) override { }
    void reset() override { }
    void functionDone(QVariant) override { }

signals:
    void functionUpdated() override;
};

class StubStep : public QObject, public Brimvale::IWorkflowStep
{
    Q_OBJECT

public:
    int stepId() const override { return 3; }
    QString functionId() const override { return QStringLiteral("fill"); }
    QFlags<Brimvale::StepFunctionButtonFlag> getStepFunctionButtonsFlags() const override { return {}; }
    Brimvale::TriggerType preWorkflowTrigger() const override { return Brimvale::TriggerType::None; }
    Brimvale::IWorkflowScreen* preWorkflowScreen() const override { return nullptr; }
    Brimvale::TriggerType postWorkflowTrigger() const override { return Brimvale::TriggerType::None; }
    Brimvale::IWorkflowScreen* postWorkflowScreen() const override { return nullptr; }
    QString getActionButton() const override { return QString(); }
    QVariant getSettings() const override { return QVariant(); }
    QString getParameter() const override { return QString(); }
    bool isEnabled() override { return true; }
    bool isEqual(Brimvale::IWorkflowStep*) override { return false; }
};

#endif
