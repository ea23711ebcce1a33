// SPDX-License-Identifier: BSD-3-Clause
#ifndef DENSITYVIEWMANAGER_H
#define DENSITYVIEWMANAGER_H

#include <QObject>

#include <IPluginViewManager.h>

class DensityViewModel;

/// Sets the plug-in's one view up when the host asks for it.
class DensityViewManager : public QObject, public Brimvale::IPluginViewManager
{
    Q_OBJECT

public:
    explicit DensityViewManager(DensityViewModel* viewModel);

    void Setup(int mode) override;

private:
    DensityViewModel* m_viewModel;
};

#endif
