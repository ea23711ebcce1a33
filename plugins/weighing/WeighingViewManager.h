// SPDX-License-Identifier: BSD-3-Clause
#ifndef WEIGHINGVIEWMANAGER_H
#define WEIGHINGVIEWMANAGER_H

#include <QObject>

#include <IPluginViewManager.h>

class WeighingViewModel;

/// Sets the plug-in's one view up when the host asks for it.
class WeighingViewManager : public QObject, public Brimvale::IPluginViewManager
{
    Q_OBJECT

public:
    explicit WeighingViewManager(WeighingViewModel* viewModel);

    void Setup(int mode) override;

private:
    WeighingViewModel* m_viewModel;
};

#endif
