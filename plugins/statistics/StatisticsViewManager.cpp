// SPDX-License-Identifier: BSD-3-Clause
#include "StatisticsViewManager.h"

#include "StatisticsViewModel.h"

StatisticsViewManager::StatisticsViewManager(StatisticsViewModel* viewModel)
    : m_viewModel(viewModel)
{
}

void StatisticsViewManager::Setup(int mode)
{
    Q_UNUSED(mode) // there is one view only
    m_viewModel->setConfirming(false);
}
