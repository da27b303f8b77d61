// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/integers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace sn_internal;

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(Integers, WrapAround) {
    EXPECT_EQ(wrappingSum(INT32_MAX, 1), INT32_MIN);
    EXPECT_EQ(wrappingSum(INT32_MIN, -1), INT32_MAX);
    EXPECT_EQ(wrappingProduct(0x40000000, 4), 0);
    EXPECT_EQ(wrappingProduct(0x20000001, 8), 8);
    EXPECT_EQ(wrappingProduct(INT32_MIN, -1), INT32_MIN);
    EXPECT_EQ(wrap32(0xffffffffll), -1);
}

TEST(Integers, TruncateWithinTheirLimits) {
    const struct {
        double value;
        std::int32_t asSigned;
        std::uint32_t asUnsigned;
    } cases[] = {
        {1.999, 1, 1},
        {-1.999, -1, 0},
        {-0.5, 0, 0},
        {2147483646.9, INT32_MAX - 1, 2147483646u},
        {2147483647.9, INT32_MAX, 2147483647u},
        {4294967294.9, INT32_MAX, 4294967294u},
        {4294967296.0, INT32_MAX, UINT32_MAX},
        {-2147483648.9, INT32_MIN, 0},
        {1e300, INT32_MAX, UINT32_MAX},
        {-1e300, INT32_MIN, 0},
        {Infinity, INT32_MAX, UINT32_MAX},
        {-Infinity, INT32_MIN, 0},
        {NaN, 0, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(truncatedToInt32(c.value), c.asSigned) << c.value;
        EXPECT_EQ(truncatedToUint32(c.value), c.asUnsigned) << c.value;
    }
}

TEST(Integers, LimitFloats) {
    EXPECT_EQ(limited(0.5f, 0, 1), 0.5f);
    EXPECT_EQ(limited(-0.5f, 0, 1), 0.0f);
    EXPECT_EQ(limited(1.5f, 0, 1), 1.0f);
    EXPECT_EQ(limited(std::nanf(""), 0.25f, 1), 0.25f);
}

} // namespace
