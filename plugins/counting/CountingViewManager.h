// SPDX-License-Identifier: BSD-3-Clause
#ifndef COUNTINGVIEWMANAGER_H
#define COUNTINGVIEWMANAGER_H

#include <QObject>

#include <IPluginViewManager.h>

class CountingViewModel;

/// Sets the plug-in's one view up when the host asks for it.
class CountingViewManager : public QObject, public Brimvale::IPluginViewManager
{
    Q_OBJECT

public:
    explicit CountingViewManager(CountingViewModel* viewModel);

    void Setup(int mode) override;

private:
    CountingViewModel* m_viewModel;
};

#endif
