// SPDX-License-Identifier: BSD-3-Clause
#include "CountingViewManager.h"

#include "CountingViewModel.h"

CountingViewManager::CountingViewManager(CountingViewModel* viewModel)
    : m_viewModel(viewModel)
{
}

void CountingViewManager::Setup(int mode)
{
    Q_UNUSED(mode) // there is one view only
    m_viewModel->cancelEntry();
}
