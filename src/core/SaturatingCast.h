// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_SATURATINGCAST_H
#define BRIMVALE_SATURATINGCAST_H

/// \file
/// Private: conversion from floating point to an integer that is defined for every value.

#include <cmath>
#include <limits>
#include <type_traits>

namespace Brimvale
{

/// Returns the integer part of \a value (truncated towards zero). A value beyond the range of \a Integer
/// gives the limit of the range, a NaN gives 0.
template <typename Integer>
Integer saturatingCast(double value)
{
    static_assert(std::is_integral_v<Integer>);
    using Limits = std::numeric_limits<Integer>;
    // The first power of two beyond the range; the largest 64-bit integer itself is not a double.
    const double bound = std::ldexp(1.0, Limits::digits);
    if (std::isnan(value))
        return 0;
    if (value >= bound)
        return Limits::max();
    if (value <= static_cast<double>(Limits::min()))
        return Limits::min();
    return static_cast<Integer>(value);
}

} // namespace Brimvale

#endif // BRIMVALE_SATURATINGCAST_H
