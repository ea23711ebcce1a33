// SPDX-License-Identifier: BSD-3-Clause
#ifndef FILLINGPLUGIN_H
#define FILLINGPLUGIN_H

#include <QList>
#include <QMetaMethod>

#include <ActionBase.h>
#include <IPluginViewManager.h>
#include <PluginBase.h>
#include <StepFunctionBase.h>
#include <WorkflowScreen.h>

namespace Brimvale
{
class IWorkflowStep;
} // namespace Brimvale

class FillingModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double target READ target NOTIFY changed)
    Q_PROPERTY(QString progress READ progress NOTIFY changed)

public:
    double target() const { return m_target; }
    QString progress() const { return m_progress; }
    void setTarget(double target)
    {
        m_target = target;
        emit changed();
    }
    void setProgress(const QString& progress)
    {
        m_progress = progress;
        emit changed();
    }

signals:
    void changed();

private:
    double m_target = 0.0;
    QString m_progress;
};

class FillingViewManager : public QObject, public Brimvale::IPluginViewManager
{
    Q_OBJECT

public:
    void Setup(int) override { }
};

/// The plug-in of the guides to menus and to workflows. What stands between the marks is printed there.
class FillingPlugin : public Brimvale::PluginBase
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Brimvale.Plugin.IPlugin" FILE "filling.json")

public:
    FillingPlugin();
    ~FillingPlugin() override;

    QString GetPluginName(bool translated) override;
    QString GetPluginIcon() override;
    void ApplyProfileItem(int id, QVariant value) override;
    void TranslateWarnInfo() override;

protected:
    void FillPluginId(Brimvale::PluginId& id) override;
    Brimvale::IMenuList* CreatePluginMenu() override;
    QObject* CreateViewModel() override;
    QString GetViewModelName() override;
    QString GetPluginScreen() override;
    Brimvale::IPluginViewManager* CreateViewManager() override;
    void InitActionbar() override;
    bool PostStartPlugin() override;
    bool PostInitPluginAndAddons() override;

private slots:
    QVariant weighIn(QVariant argument, QVariant data);
    void show(QVariant result, Brimvale::IWorkflowScreen* screen);
    void takeBack();
    QVariant start(QVariant data);
    void onStep(int step);
    void onFinished(bool completed);

private:
    void translateTexts();
    QMetaMethod method(const char* signature) const;

    Brimvale::ActionBase m_startAction;
    FillingModel* m_model = nullptr;                 ///< deleted by the base when the plug-in closes
    Brimvale::StepFunctionBase* m_weighIn = nullptr; ///< a child of m_pluginObject
    Brimvale::WorkflowScreen::ScreenTexte m_texts;
    Brimvale::WorkflowScreen::ScreenTexte m_resultTexts;
    QList<Brimvale::IWorkflowStep*> m_steps;
};

#endif
