// SPDX-License-Identifier: BSD-3-Clause
#include "WeighingViewManager.h"

#include "WeighingViewModel.h"

WeighingViewManager::WeighingViewManager(WeighingViewModel* viewModel)
    : m_viewModel(viewModel)
{
}

void WeighingViewManager::Setup(int mode)
{
    Q_UNUSED(mode) // there is one view only
    m_viewModel->setPrintState(WeighingViewModel::Ready);
}
