// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// The kernels of this processor against their portable twins, for every length of a block's end.

#include "core/sample_kernels.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

namespace sn_internal {
namespace {

constexpr std::int32_t LongestBlock = 19;

class SampleKernels : public testing::Test {
protected:
    /// 16-bit samples, or 32-bit ones in and around the 16-bit range and at its limits.
    template <class T>
    std::vector<T> makeSamples(std::int32_t limit) {
        std::uniform_int_distribution<std::int32_t> anywhere(-limit - 1, limit);
        std::vector<T> samples;
        for (std::int32_t i = 0; i < 2 * LongestBlock; ++i) {
            const std::int32_t sample = anywhere(Random);
            samples.push_back(
                static_cast<T>(sample % 5 == 0 ? (sample < 0 ? -limit - 1 : limit) : sample));
        }
        return samples;
    }

    std::mt19937 Random{7};
};

TEST_F(SampleKernels, InterleaveAndSpreadLikeTheirTwins) {
    for (std::int32_t n = 0; n <= LongestBlock; ++n) {
        const auto left = makeSamples<std::int32_t>(70000);
        const auto right = makeSamples<std::int32_t>(INT32_MAX);
        std::vector<std::int16_t> target(2 * LongestBlock, 77), expected(target);
        interleave(left.data(), right.data(), n, target.data());
        portable::interleave(left.data(), right.data(), n, expected.data());
        EXPECT_EQ(target, expected) << n;
        spreadMono(right.data(), n, target.data());
        portable::spreadMono(right.data(), n, expected.data());
        EXPECT_EQ(target, expected) << n;
    }
}

TEST_F(SampleKernels, ScaleLikeTheirTwins) {
    const float inf = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const SGains table[] = {{0.5f, 1.0f},    {0.999999f, 0.333f}, {3.0f, -1.0f}, {-0.7f, -40000.0f},
                            {1e-30f, 1e30f}, {inf, -inf},         {nan, 0.0f},   {0.0f, nan}};
    for (const SGains& gains : table) {
        for (std::int32_t n = 0; n <= LongestBlock; ++n) {
            auto samples = makeSamples<std::int16_t>(32767);
            auto expected = samples;
            scale(samples.data(), n, gains);
            portable::scale(expected.data(), n, gains);
            EXPECT_EQ(samples, expected) << gains.left << " " << gains.right << " " << n;
        }
    }
}

TEST_F(SampleKernels, AccumulateAndClipLikeTheirTwins) {
    for (std::int32_t n = 0; n <= LongestBlock; ++n) {
        const auto samples = makeSamples<std::int16_t>(32767);
        auto sum = makeSamples<std::int32_t>(100000);
        auto expectedSum = sum;
        accumulate(samples.data(), n, sum.data());
        portable::accumulate(samples.data(), n, expectedSum.data());
        EXPECT_EQ(sum, expectedSum) << n;
        std::vector<std::int16_t> target(2 * LongestBlock, 77), expected(target);
        clip(sum.data(), n, target.data());
        portable::clip(expectedSum.data(), n, expected.data());
        EXPECT_EQ(target, expected) << n;
    }
}

TEST(PortableKernels, TruncateSaturateAndClip) {
    std::int16_t samples[] = {-3, 3, 30000, -30000, 1, 1};
    portable::scale(samples, 3, {0.5f, 1.5f});
    const std::int16_t expected[] = {-1, 4, 15000, -32768, 0, 1};
    EXPECT_TRUE(std::equal(std::begin(samples), std::end(samples), std::begin(expected)));
    const std::int32_t sum[] = {32768, -32769, 32767, -32768};
    std::int16_t target[4];
    portable::clip(sum, 2, target);
    const std::int16_t clipped[] = {32767, -32768, 32767, -32768};
    EXPECT_TRUE(std::equal(std::begin(target), std::end(target), std::begin(clipped)));
}

} // namespace
} // namespace sn_internal
