// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// The kernels of this processor against their portable twins, for every length of a block's end.

#include "core/sample_kernels.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <vector>

namespace sn_internal {
namespace {

constexpr std::int32_t LongestBlock = 37;

class SampleKernels : public testing::Test {
protected:
    /// Samples within these limits, every fifth one the lowest.
    template <class T>
    std::vector<T> makeSamples(std::int32_t limit) {
        std::uniform_int_distribution<std::int32_t> anywhere(-limit - 1, limit);
        std::vector<T> samples;
        for (std::int32_t i = 0; i < 2 * LongestBlock; ++i) {
            const std::int32_t sample = anywhere(Random);
            samples.push_back(static_cast<T>(sample % 5 == 0 ? -limit - 1 : sample));
        }
        return samples;
    }

    std::mt19937 Random{7};
};

TEST_F(SampleKernels, ConvertLikeTheirTwins) {
    for (std::int32_t n = 0; n <= LongestBlock; ++n) {
        const auto left = makeSamples<std::int32_t>(70000);
        const auto right = makeSamples<std::int32_t>(INT32_MAX);
        std::vector<std::int16_t> target(5 * LongestBlock, 77), expected(target);
        interleave(left.data(), right.data(), n, target.data());
        portable::interleave(left.data(), right.data(), n, expected.data());
        narrow(right.data(), n, target.data() + 2 * LongestBlock);
        portable::narrow(right.data(), n, expected.data() + 2 * LongestBlock);
        spread(target.data(), n, target.data() + 3 * LongestBlock);
        portable::spread(expected.data(), n, expected.data() + 3 * LongestBlock);
        EXPECT_EQ(target, expected) << n;
        spread(target.data() + n, n, target.data()); // from its own second half
        portable::spread(std::vector<std::int16_t>(expected).data() + n, n, expected.data());
        EXPECT_EQ(target, expected) << n;
    }
}

TEST_F(SampleKernels, ScaleAndAddLikeTheirTwins) {
    constexpr float inf = std::numeric_limits<float>::infinity();
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    for (const SGains& gains : {SGains{0.999999f, 0.333f},
                                {-0.5f, 1.0f},
                                {1.001f, 0.5f},
                                {1.0f, -1.0f},
                                {3.0f, -40000.0f},
                                {inf, 0.0f},
                                {-inf, nan}}) {
        for (std::int32_t n = 0; n <= LongestBlock; ++n) {
            SCOPED_TRACE(std::to_string(gains.left) + " " + std::to_string(n));
            auto samples = makeSamples<std::int16_t>(32767);
            auto expected = samples;
            auto left = makeSamples<std::int32_t>(INT32_MAX), right(left), expectedLeft(left),
                 expectedRight(left);
            const SSums sums = {left.data(), right.data()};
            const SSums expectedSums = {expectedLeft.data(), expectedRight.data()};
            for (const SGains* factors : {&gains, static_cast<const SGains*>(nullptr)}) {
                addMono(samples.data(), n, factors, sums);
                portable::addMono(samples.data(), n, factors, expectedSums);
                addStereo(samples.data(), n, factors, sums);
                portable::addStereo(samples.data(), n, factors, expectedSums);
            }
            EXPECT_EQ(left, expectedLeft);
            EXPECT_EQ(right, expectedRight);
            scale(samples.data(), n, gains);
            portable::scale(expected.data(), n, gains);
            EXPECT_EQ(samples, expected);
        }
    }
}

} // namespace
} // namespace sn_internal
