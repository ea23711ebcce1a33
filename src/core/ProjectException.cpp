// SPDX-License-Identifier: BSD-3-Clause

#include "ProjectException.h"

#include "core/Logging.h"

#include <utility>

namespace Brimvale
{

ProjectException::ProjectException(QString message)
    : m_message(std::move(message))
{
}

ProjectException::~ProjectException() noexcept
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

void ProjectException::raise() const
{
    throw *this;
}

ProjectException* ProjectException::clone() const
{
    return new ProjectException(*this);
}

QString ProjectException::Message() const
{
    return m_message;
}

} // namespace Brimvale
