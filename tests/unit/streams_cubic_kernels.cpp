// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// Every set of kernels against DUMB alone: the same frames and the same states after every block,
// through thousands of random lives.

#include "streams/CCubicChannels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

namespace sn_internal {
namespace {

class CubicKernels : public testing::Test {
protected:
    ~CubicKernels() override { CCubicChannels::useKernels(*getCubicKernels()); }

    std::int32_t random(std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution<std::int32_t>(low, high)(Random);
    }
    template <class T>
    T oneOf(std::initializer_list<T> values) {
        return values.begin()[random(0, static_cast<std::int32_t>(values.size()) - 1)];
    }

    std::int32_t fillLength() {
        return oneOf({0, 1, 2, 3, 4, random(5, 40), random(5, 2048), 2048, 2048});
    }
    float step() {
        const float speed = oneOf({0.01f, 1.0f, 1.0f, static_cast<float>(random(1, 500)) / 100.0f});
        const float rate = oneOf({8000.0f, 22050.0f, 44100.0f, 44100.0f, 48000.0f, 192000.0f});
        return oneOf({rate * speed / 44100.0f, rate * speed / 44100.0f, 1e-9f + 1.0f / 65536.0f,
                      32767.0f, 1.0f});
    }

    /// The whole range, loud steps between the limits, or the lowest value alone.
    std::vector<std::int16_t> frames(std::int32_t samples) {
        const std::int32_t kind = random(0, 3);
        std::vector<std::int16_t> result;
        for (std::int32_t i = 0; i < samples; ++i) {
            const std::int32_t loud = oneOf({-32768, 32767});
            const std::int32_t any = random(-32768, 32767);
            const std::int32_t sample = kind == 0 ? loud : kind == 1 ? -32768 : any;
            result.push_back(static_cast<std::int16_t>(sample));
        }
        return result;
    }

    std::mt19937 Random{11};
};

/// One object that the kernels work on, and one that DUMB works on alone.
struct SPair {
    explicit SPair(bool stereo)
        : mixed(std::make_unique<CCubicChannels>(stereo)),
          plain(std::make_unique<CCubicChannels>(stereo)),
          channels(stereo ? 2 : 1) {}

    void take(std::vector<std::int16_t> frames, bool afresh) {
        const auto count = static_cast<std::int32_t>(frames.size()) / channels;
        for (CCubicChannels* object : {mixed.get(), plain.get()}) {
            object->endPortion();
            afresh ? object->restart(frames.data(), count)
                   : object->continueWith(frames.data(), count);
        }
        portion = std::move(frames);
    }

    std::int32_t read(const SCubicKernels* kernels, std::int32_t count, float step, bool heard) {
        std::vector<std::int16_t> got(static_cast<std::size_t>(2 * count)), expected(got);
        CCubicChannels::useKernels(kernels);
        const std::int32_t n = mixed->read(heard ? got.data() : nullptr, count, step);
        CCubicChannels::useKernels(nullptr);
        EXPECT_EQ(n, plain->read(heard ? expected.data() : nullptr, count, step));
        EXPECT_EQ(got, expected) << "at a step of " << step;
        for (std::int32_t channel = 0; channel < channels; ++channel) {
            expectSameState(mixed->getState(channel), plain->getState(channel));
        }
        return n;
    }

    static void expectSameState(const DUMB_RESAMPLER& a, const DUMB_RESAMPLER& b) {
        EXPECT_EQ(a.pos, b.pos);
        EXPECT_EQ(a.subpos, b.subpos);
        EXPECT_EQ(a.end, b.end);
        EXPECT_EQ(a.dir, b.dir);
        EXPECT_EQ(a.overshot, b.overshot);
        EXPECT_TRUE(std::equal(a.x.x24, a.x.x24 + 3, b.x.x24));
    }

    const std::unique_ptr<CCubicChannels> mixed, plain;
    const std::int32_t channels;
    std::vector<std::int16_t> portion; ///< exactly as long as it is, for the sanitizer
};

TEST_F(CubicKernels, EqualDumbThroughRandomLives) {
    for (const SCubicKernels* const* kernels = getCubicKernels(); *kernels != nullptr; ++kernels) {
        SCOPED_TRACE((*kernels)->name);
        for (std::int32_t life = 0; life < 2000 && !HasFailure(); ++life) {
            SPair pair(random(0, 1) == 1);
            float current = step();
            bool isUsedUp = true;
            for (std::int32_t block = 0; block < 12; ++block) {
                if (isUsedUp || random(0, 15) == 0) {
                    const std::int32_t count = fillLength();
                    pair.take(frames(pair.channels * count), block == 0 || random(0, 7) == 0);
                }
                current = random(0, 3) == 0 ? step() : current;
                const std::int32_t asked = oneOf({0, 1, random(2, 20), 256, random(1, 2048), 2048});
                isUsedUp = pair.read(*kernels, asked, current, random(0, 9) != 0) < asked;
            }
            EXPECT_FALSE(HasFailure()) << "life " << life;
        }
    }
}

} // namespace
} // namespace sn_internal
