// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/integers.h"

#include <algorithm>
#include <cmath>

namespace sn_internal {

/// A gain as DirectSound's hundredths of a decibel: 1000 times its natural logarithm, cut off
/// towards zero, from 0 down to -10000, which stands for silence.
inline std::int32_t toHundredthsOfDecibel(float gain) {
    constexpr float silence = 4.539993e-05f; // e to the power of -10
    if (!(gain > silence)) {
        return -10000;
    }
    return std::clamp(truncatedToInt32(1000.0 * std::log(static_cast<double>(gain))), -10000, 0);
}

} // namespace sn_internal
