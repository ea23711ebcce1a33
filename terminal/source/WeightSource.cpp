// SPDX-License-Identifier: BSD-3-Clause
#include "source/WeightSource.h"

namespace Brimvale
{
namespace Terminal
{

WeightSource::WeightSource(QObject* parent)
    : QObject(parent)
{
    qRegisterMetaType<Reading>("Brimvale::Terminal::Reading");
}

WeightSource::~WeightSource() = default;

} // namespace Terminal
} // namespace Brimvale
