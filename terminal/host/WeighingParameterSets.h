// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WEIGHINGPARAMETERSETS_H
#define BRIMVALE_WEIGHINGPARAMETERSETS_H

#include "IWeighingParameters.h"

#include <QtGlobal>

namespace Brimvale
{

class IMenuList;
class ISystem;

namespace Terminal
{

/// The switch between sets of weighing parameters that every plug-in gets at its initialisation: "standard", the MSW
/// set, and back to the stored "system" values.
class WeighingParameterSets : public IWeighingParameters
{
public:
    /// @param system, menuList not owned, must outlive the object.
    WeighingParameterSets(ISystem& system, IMenuList& menuList);
    Q_DISABLE_COPY(WeighingParameterSets)

    // IWeighingParameters
    bool InitStandardWeighingParameters() override;
    bool InitMSWWeighingParameters() override;
    bool ResetWeighingParameters() override;

private:
    static constexpr int NoneSaved = -2;

    ISystem& m_system;
    IMenuList& m_menuList;
    int m_savedFixRange = NoneSaved;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_WEIGHINGPARAMETERSETS_H
