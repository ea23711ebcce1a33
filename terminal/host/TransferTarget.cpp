// SPDX-License-Identifier: BSD-3-Clause
#include "host/TransferTarget.h"

#include "host/HostCallLog.h"

#include <utility>

namespace Brimvale
{
namespace Terminal
{

TransferTarget::TransferTarget(HostCallLog& calls)
    : m_calls(calls)
{
}

TransferTarget::~TransferTarget() = default;

bool TransferTarget::IsActive()
{
    m_calls.query("ITransferTarget::IsActive");
    return isActive();
}

bool TransferTarget::isActive() const
{
    return m_output != nullptr && m_output->isActive();
}

void TransferTarget::setOutput(std::unique_ptr<TransferOutput> output)
{
    m_output = std::move(output);
}

} // namespace Terminal
} // namespace Brimvale
