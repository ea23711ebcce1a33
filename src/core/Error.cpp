// SPDX-License-Identifier: BSD-3-Clause

#include "Error.h"

#include <type_traits>

namespace Brimvale
{

static_assert(std::is_trivially_copyable_v<
                  Error> && std::is_trivially_destructible_v<Error> && std::is_standard_layout_v<Error>,
              "plug-ins and the host copy the record as plain memory");

Error::Error()
    : Error(UnspecifiedType, UnknownSource, -1, 0, false)
{
}

Error::Error(ErrorTypes type, ErrorSources source, int code, int detail, bool flag)
    : source(source)
    , code(code)
    , detail(detail)
    , type(type)
    , flag(flag)
    , reserved1(0)
    , reserved2(0)
    , reserved3(0)
{
}

} // namespace Brimvale
