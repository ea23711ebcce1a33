// SPDX-License-Identifier: BSD-3-Clause
#include "WeighingParameters.h"

#include "IMSWParameterSource.h"
#include "IMenuList.h"
#include "IRangeSwitch.h"
#include "IStatusInfo.h"
#include "ISystem.h"
#include "IWeighingParameterService.h"
#include "core/Logging.h"

namespace Brimvale
{

namespace
{

constexpr int NoFixRangeSaved = -2;

} // namespace

// Each statement fetches the receiver first and the arguments from left to right, in an order that local variables
// fix.

WeighingParameters::WeighingParameters(QObject* parent, ISystem* system, IMenuList* menuList)
    : QObject(parent)
    , m_system(system)
    , m_menuList(menuList)
{
}

WeighingParameters::~WeighingParameters()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

bool WeighingParameters::InitStandardWeighingParameters()
{
    SaveCurrentWeighingParameters();
    SetStandardWeighingParameters();
    return true;
}

bool WeighingParameters::InitMSWWeighingParameters()
{
    SaveCurrentWeighingParameters();
    SetMSWWeighingParameters();
    return true;
}

bool WeighingParameters::ResetWeighingParameters()
{
    BRIMVALE_LOG_DEBUG("WeighingParameters::ResetWeighingParameters");
    const QString path = m_menuList->GetMenuFilePath();
    const QString owner = m_system->GetStatusInfo()->GetAddonText();
    const auto stored = [&](int index) {
        return m_system->GetStoredParameter(path, owner, QStringLiteral("system"), QString(), index);
    };

    IWeighingParameterService* service = m_system->GetWeighingParameterService();
    service->SetParameter2(stored(2), 0);
    service = m_system->GetWeighingParameterService();
    service->SetParameter0(stored(0));
    service = m_system->GetWeighingParameterService();
    service->SetParameter1(stored(1));
    service = m_system->GetWeighingParameterService();
    service->SetParameter3(stored(3));

    if (m_savedFixRange > NoFixRangeSaved) {
        m_system->GetRangeSwitch()->setFixRange(m_savedFixRange);
    }
    return true;
}

void WeighingParameters::SaveCurrentWeighingParameters()
{
    BRIMVALE_LOG_DEBUG("WeighingParameters::SaveCurrentWeighingParameters");
    m_savedFixRange = m_system->GetRangeSwitch()->getFixRange();
}

void WeighingParameters::SetStandardWeighingParameters()
{
    BRIMVALE_LOG_DEBUG("WeighingParameters::SetStandardWeighingParameters");
    const QString normal = QStringLiteral("normal");
    m_system->GetRangeSwitch()->SetRangeSelection(0);
    m_system->GetWeighingParameterService()->SetParameterProfile(QStringLiteral("standard"));
    m_system->GetWeighingParameterService()->SetParameter0(normal);
    m_system->GetWeighingParameterService()->SetParameter1(normal);
    m_system->GetWeighingParameterService()->SetParameter3(normal);
}

void WeighingParameters::SetMSWWeighingParameters()
{
    BRIMVALE_LOG_DEBUG("WeighingParameters::SetMSWWeighingParameters");
    IWeighingParameterService* service = m_system->GetWeighingParameterService();
    const QString parameter2 = m_system->GetMSWParameterSource()->GetMSWParameter2();
    const int range = m_system->GetRangeSwitch()->getCurrentRange();
    service->SetParameter2(parameter2, range);
    service = m_system->GetWeighingParameterService();
    service->SetParameter0(m_system->GetMSWParameterSource()->GetMSWParameter0());
    service = m_system->GetWeighingParameterService();
    service->SetParameter1(m_system->GetMSWParameterSource()->GetMSWParameter1());
    service = m_system->GetWeighingParameterService();
    service->SetParameter3(m_system->GetMSWParameterSource()->GetMSWParameter3());
}

} // namespace Brimvale
