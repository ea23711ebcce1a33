// SPDX-License-Identifier: BSD-3-Clause
#include "print/PrintDevice.h"

namespace Brimvale
{
namespace Terminal
{

PrintDevice::PrintDevice(QObject* parent)
    : QObject(parent)
{
}

PrintDevice::~PrintDevice() = default;

} // namespace Terminal
} // namespace Brimvale
