// SPDX-License-Identifier: BSD-3-Clause
#ifndef STATISTICSVIEWMANAGER_H
#define STATISTICSVIEWMANAGER_H

#include <QObject>

#include <IPluginViewManager.h>

class StatisticsViewModel;

/// Sets the plug-in's one view up when the host asks for it.
class StatisticsViewManager : public QObject, public Brimvale::IPluginViewManager
{
    Q_OBJECT

public:
    explicit StatisticsViewManager(StatisticsViewModel* viewModel);

    void Setup(int mode) override;

private:
    StatisticsViewModel* m_viewModel;
};

#endif
