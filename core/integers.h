// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sn_internal {

/// 32-bit signed arithmetic that wraps around, computed without overflow.
constexpr std::int32_t wrap32(std::int64_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}
constexpr std::int32_t wrappingProduct(std::int32_t a, std::int32_t b) {
    return wrap32(std::int64_t(a) * b);
}
constexpr std::int32_t wrappingSum(std::int32_t a, std::int32_t b) {
    return wrap32(std::int64_t(a) + b);
}

/// Truncates towards zero; values that do not fit give the nearest limit, NaN gives 0.
constexpr std::int32_t truncatedToInt32(double value) {
    if (!(value > -2147483648.0)) {
        return value != value ? 0 : INT32_MIN;
    }
    return value < 2147483647.0 ? static_cast<std::int32_t>(value) : INT32_MAX;
}
constexpr std::uint32_t truncatedToUint32(double value) {
    if (!(value > 0.0)) {
        return 0;
    }
    return value < 4294967295.0 ? static_cast<std::uint32_t>(value) : UINT32_MAX;
}

/// Limits a float to a range; NaN gives the lower bound.
constexpr float limited(float value, float low, float high) {
    if (!(value > low)) {
        return low;
    }
    return value > high ? high : value;
}

} // namespace sn_internal
