// SPDX-License-Identifier: BSD-3-Clause
#include "DensityViewManager.h"

#include "DensityViewModel.h"

DensityViewManager::DensityViewManager(DensityViewModel* viewModel)
    : m_viewModel(viewModel)
{
}

void DensityViewManager::Setup(int mode)
{
    Q_UNUSED(mode) // there is one view only
    m_viewModel->cancelEntry();
}
