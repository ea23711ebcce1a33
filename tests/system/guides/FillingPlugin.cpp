// SPDX-License-Identifier: BSD-3-Clause
#include "FillingPlugin.h"

#include "FillingMenu.h"

#include <IActionbar.h>
#include <IRegisterValueProvider.h>
#include <ISystem.h>
#include <ISystemRegister.h>
#include <IWfM.h>
#include <IWorkflowScreen.h>
#include <MesswertData.h>
#include <StepFunctionBase.h>
#include <WorkflowStep.h>

using namespace Brimvale;

FillingPlugin::FillingPlugin()
    : m_startAction(nullptr)
{
}

FillingPlugin::~FillingPlugin()
{
    delete m_settingsProfile;
}

QString FillingPlugin::GetPluginName(bool)
{
    return QStringLiteral("Filling");
}

QString FillingPlugin::GetPluginIcon()
{
    return QString();
}

void FillingPlugin::FillPluginId(PluginId& id)
{
    id.identifier = QStringLiteral("filling");
    id.kind = QStringLiteral("plugin");
}

QObject* FillingPlugin::CreateViewModel()
{
    m_model = new FillingModel;
    return m_model;
}

QString FillingPlugin::GetViewModelName()
{
    return QStringLiteral("filling");
}

QString FillingPlugin::GetPluginScreen()
{
    return QStringLiteral(":/filling/Filling.qml");
}

IPluginViewManager* FillingPlugin::CreateViewManager()
{
    return new FillingViewManager;
}

// clang-format off
// guide: plug-in
IMenuList* FillingPlugin::CreatePluginMenu()
{
    auto* const menu = new FillingMenu(*m_settingsProfile, *this, this); // the profile exists already
    menu->initMenuListBase(m_system);                                    // before anybody uses it
    return menu;
}

void FillingPlugin::ApplyProfileItem(int id, QVariant value)
{
    if (id == FillingMenu::Target)
        m_model->setTarget(value.toDouble());
}
// guide: end
// guide: workflow
bool FillingPlugin::PostStartPlugin()
{
    m_pluginObject = new QObject; // parent of what lives from the start to the close

    m_weighIn = new StepFunctionBase(m_pluginObject);
    m_weighIn->setUid(QStringLiteral("recipe.weighIn"));
    m_weighIn->setEnable(true);
    m_weighIn->setWorker(this, method("weighIn(QVariant,QVariant)"));
    m_weighIn->setScreenWorker(this, method("show(QVariant,Brimvale::IWorkflowScreen*)"));
    m_weighIn->setResetWorker(this, method("takeBack()"));
    m_system->GetWorkflowManager()->AddStepFunction(m_weighIn);

    translateTexts();
    // The texts are members of the plug-in and live as long as the screens.
    auto* const before = new WorkflowScreen(m_pluginObject, 0, &m_texts, QStringLiteral(":/filling/flour.svg"), 0);
    auto* const after = new WorkflowScreen(m_pluginObject, 0, &m_resultTexts, QString(), 0);
    m_steps = {new WorkflowStep(m_pluginObject, 1, QStringLiteral("recipe.weighIn"),
                                StepFunctionButtonFlag::Back | StepFunctionButtonFlag::Repeat | StepFunctionButtonFlag::Abort,
                                TriggerType::StableValue, before, TriggerType::Button, after,
                                QString(), QVariant(), QStringLiteral("flour"), [] { return true; })};
    return true;
}

void FillingPlugin::translateTexts()
{
    m_weighIn->setName(tr("Weigh in"));
    m_texts.infoTextLine1 = tr("Add 125.0 g of wheat flour");
}

void FillingPlugin::TranslateWarnInfo() // at a change of the language
{
    translateTexts();
}

// The workers are slots or Q_INVOKABLE. They are named by their signature without blanks, the types as the header of
// the plug-in has them: "Brimvale::IWorkflowScreen*", or "IWorkflowScreen*" where it is written so.
QMetaMethod FillingPlugin::method(const char* signature) const
{
    const int index = metaObject()->indexOfMethod(signature);
    Q_ASSERT_X(index >= 0, "method", signature); // otherwise it would never be called, without a word
    return metaObject()->method(index);
}

QVariant FillingPlugin::weighIn(QVariant, QVariant)
{
    const MesswertData net = m_system->GetRegisterValueProvider()->GetMesswert(
        m_system->GetCurrentUnit(), ISystemRegister::CurrentRegister);
    return QString(net.messwert + QLatin1Char(' ') + net.unit);
}

void FillingPlugin::show(QVariant result, IWorkflowScreen*)
{
    m_resultTexts.infoTextLine1 = tr("Weighed in %1").arg(result.toString());
}

void FillingPlugin::takeBack()
{
    m_resultTexts.infoTextLine1.clear();
}

QVariant FillingPlugin::start(QVariant) // the worker of an action
{
    return m_system->GetWorkflowManager()->StartWorkflow(m_steps);
}
// guide: end

bool FillingPlugin::PostInitPluginAndAddons()
{
    // guide: signals
    QObject* const workflows = dynamic_cast<QObject*>(m_system->GetWorkflowManager());
    connect(workflows, SIGNAL(NotifyWorkflowStepEntered(int)), this, SLOT(onStep(int)));
    connect(workflows, SIGNAL(NotifyWorkflowFinished(bool)), this, SLOT(onFinished(bool)));
    // guide: end
    return true;
}
// clang-format on

void FillingPlugin::InitActionbar()
{
    PluginBase::InitActionbar();
    m_startAction.setUid(QStringLiteral("recipe.start"));
    m_startAction.setName(tr("Start"));
    m_startAction.setEnable(true);
    m_startAction.setWorker(this, method("start(QVariant)"));
    m_system->GetActionbar()->AddAction(&m_startAction);
}

void FillingPlugin::onStep(int step)
{
    m_model->setProgress(tr("Step %1").arg(step));
}

void FillingPlugin::onFinished(bool completed)
{
    m_model->setProgress(completed ? tr("Done") : tr("Abandoned"));
}
