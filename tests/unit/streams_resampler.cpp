// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/counted_ptr.h"
#include "streams/CSonimbraSoftwareResampler.h"
#include "tests/support/CResamplerReference.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

namespace {

using namespace sn_internal;
using namespace sn_test;

using Frames = std::vector<std::int16_t>; // interleaved stereo
using Resampler = counted_ptr<CSonimbraSoftwareStreamResamplerBase>;
using Source = counted_ptr<CScriptedStream>;

constexpr std::int32_t BufferFrames = 2048;

Resampler resamplerOf(const Source& source, std::int32_t outputRate = 44100) {
    return Resampler::adopt(createStreamResampler(outputRate, source.get()));
}

Frames read(const Resampler& resampler, std::int32_t frameCount, float speed) {
    Frames target(2 * static_cast<std::size_t>(frameCount));
    const std::int32_t got = resampler->read(target.data(), frameCount, speed);
    target.resize(2 * static_cast<std::size_t>(got));
    return target;
}

/// Everything up to the end, in blocks of uneven sizes.
template <class F>
Frames readAllBy(F&& readBlock) {
    const std::int32_t blocks[] = {1, 700, 256, 2048, 3, 5000};
    Frames all;
    for (std::size_t i = 0;; ++i) {
        const std::int32_t asked = blocks[i % std::size(blocks)];
        const Frames piece = readBlock(asked);
        all.insert(all.end(), piece.begin(), piece.end());
        if (piece.size() < 2 * static_cast<std::size_t>(asked)) {
            return all;
        }
    }
}

Frames readAll(const Resampler& resampler, float speed) {
    return readAllBy([&](std::int32_t asked) { return read(resampler, asked, speed); });
}

/// Noise with many samples at the limits, so that the interpolation swings beyond them.
Bytes noise(const sonimbra::SAudioStreamFormat& format, std::uint32_t seed) {
    std::mt19937 random(seed);
    Bytes bytes;
    for (std::int32_t i = 0; i < format.FrameCount * format.ChannelCount; ++i) {
        const std::uint32_t value = random() % 3 == 0 ? 0x8000 - random() % 2 : random() % 65536;
        if (format.getSampleSize() == 1) {
            bytes.push_back(static_cast<std::uint8_t>(value >> 8));
        } else {
            append16(bytes, value);
        }
    }
    return bytes;
}

void expectDumb(const sonimbra::SAudioStreamFormat& format, std::int32_t portion, float speed,
                std::int32_t outputRate = 44100) {
    SCOPED_TRACE(testing::Message()
                 << format.ChannelCount << " channels, " << format.FrameCount << " frames, "
                 << format.SampleRate << " Hz, portions of " << portion << ", speed " << speed);
    const Bytes bytes = noise(format, static_cast<std::uint32_t>(portion));
    const auto source = Source::adopt(new CScriptedStream(format, bytes));
    source->framesPerRead = portion;
    const float step =
        static_cast<float>(format.SampleRate) * speed / static_cast<float>(outputRate);
    CResamplerReference reference(format, bytes, portion);
    const Frames expected =
        readAllBy([&](std::int32_t asked) { return reference.read(asked, step); });
    // A failure need not print a million samples.
    EXPECT_TRUE(readAll(resamplerOf(source, outputRate), speed) == expected);
}

TEST(StreamResampler, EqualsDumbAtEveryRateAndSpeed) {
    for (const std::int32_t rate : {8000, 44100, 48000, 192000}) {
        for (const float speed : {0.01f, 0.5f, 1.0f, 1.26f, 5.0f}) {
            const std::int32_t frames = speed < 0.1f ? 2100 : 2 * BufferFrames + 500;
            for (const std::int32_t channels : {1, 2}) {
                expectDumb(streamFormat(channels, frames, rate, 8), BufferFrames, speed);
                expectDumb(streamFormat(channels, frames, rate, 16), BufferFrames, speed);
            }
        }
    }
    expectDumb(streamFormat(2, 5000, 44100), BufferFrames, 1.0f, 22050);
}

TEST(StreamResampler, EqualsDumbAcrossRefillsOfEveryLength) {
    for (std::int32_t portion = 1; portion <= 12; ++portion) {
        for (const float speed : {0.3f, 1.0f, 1.5f, 2.0f, 2.7f, 3.0f, 4.1f, 5.0f}) {
            for (const std::int32_t frames : {1, 2, 3, 4, 5, 12, 13, 100, 101}) {
                expectDumb(streamFormat(2, frames, 44100), portion, speed);
            }
            expectDumb(streamFormat(1, 60, 44100, 8), portion, speed);
        }
    }
    // Steps that jump over whole buffers.
    expectDumb(streamFormat(2, 300, 192000), 3, 5.0f);
    expectDumb(streamFormat(2, 30000, 2000000000), BufferFrames, 0.5f);
}

TEST(StreamResampler, PassesFramesThroughAndStaysAtItsEnd) {
    const auto source = Source::adopt(createRampStream(streamFormat(2, 7000, 88200)));
    source->framesPerRead = 100;
    const auto resampler = resamplerOf(source);
    const Frames frames = readAll(resampler, 0.5f);
    EXPECT_TRUE(isRamp16(frames, 2));
    EXPECT_EQ(frames.size() / 2, 6998u) << "the last two frames stay behind in the interpolation";
    EXPECT_TRUE(read(resampler, 100, 0.01f).empty());
}

TEST(StreamResampler, ChangesItsSpeedAndPlaceOnTheWay) {
    const auto source = Source::adopt(createRampStream(streamFormat(2, 10000, 44100)));
    const auto resampler = resamplerOf(source);
    EXPECT_TRUE(isRamp16(read(resampler, 2046, 1.0f), 2));
    EXPECT_EQ(source->position, BufferFrames) << "read ahead by more than a buffer";
    EXPECT_EQ(read(resampler, 10, 2.0f).at(18), rampSample16(2046 + 18, 0));
    EXPECT_TRUE(isRamp16(read(resampler, 100, 1.0f), 2, 2066));
    EXPECT_FALSE(resampler->setPosition(10001));
    EXPECT_FALSE(resampler->setPosition(-1));
    EXPECT_TRUE(isRamp16(read(resampler, 100, 1.0f), 2, 2166)) << "a refused move moved it";
    for (const std::int32_t frame : {0, 2048, 9990}) {
        read(resampler, 333, 0.7f);
        EXPECT_TRUE(resampler->setPosition(frame));
        const Frames frames = read(resampler, 8, 1.0f);
        EXPECT_EQ(frames.size(), 16u);
        EXPECT_TRUE(isRamp16(frames, 2, frame));
    }
}

TEST(StreamResampler, SurvivesOddFormatsAndSteps) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    const struct {
        std::int32_t channels;
        std::int32_t rate;
        float speed;
        std::size_t frames;            ///< of 300 stereo frames, up to 500
    } cases[] = {{6, 44100, 1.0f, 98}, // silence
                 {0, 44100, 1.0f, 0},  {INT32_MIN, 44100, 1.0f, 0}, {5000, 44100, 1.0f, 0},
                 {2, 0, 1.0f, 0},      {2, INT32_MIN, 5.0f, 0},     {2, 44100, -infinity, 0},
                 {2, 44100, nan, 0},   {2, 44100, infinity, 1},     {2, INT32_MAX, 5.0f, 1},
                 {2, 1, 0.01f, 500}};
    for (const auto& c : cases) {
        const auto source = Source::adopt(
            new CScriptedStream(streamFormat(c.channels, 300, c.rate), Bytes(1200, 0x55)));
        const Frames frames = read(resamplerOf(source), 500, c.speed);
        EXPECT_EQ(frames.size() / 2, c.frames) << c.channels << ", " << c.rate << ", " << c.speed;
        EXPECT_TRUE(c.channels == 2 ||
                    std::count(frames.begin(), frames.end(), 0) == 196 * (c.frames > 0));
    }
    EXPECT_TRUE(read(resamplerOf(Source()), 100, 1.0f).empty());
}

} // namespace
