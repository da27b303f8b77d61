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
#include <string>
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
    constexpr std::int16_t mark = 12345;
    Frames target(2 * static_cast<std::size_t>(frameCount) + 1, mark);
    const std::int32_t got = resampler->read(target.data(), frameCount, speed);
    EXPECT_GE(got, 0);
    EXPECT_LE(got, frameCount);
    EXPECT_EQ(target.back(), mark);
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
    const std::uint16_t limits[] = {0x8000, 0x7fff};
    Bytes bytes;
    for (std::int32_t i = 0; i < format.FrameCount * format.ChannelCount; ++i) {
        const bool atLimit = random() % 3 == 0;
        const auto value = atLimit ? limits[random() % 2] : static_cast<std::uint16_t>(random());
        if (format.getSampleSize() == 1) {
            bytes.push_back(static_cast<std::uint8_t>(value >> 8));
        } else {
            append16(bytes, value);
        }
    }
    return bytes;
}

Frames expectedFrames(const sonimbra::SAudioStreamFormat& format, const Bytes& bytes,
                      std::int32_t portion, float step) {
    CResamplerReference reference(format, bytes, portion);
    return readAllBy([&](std::int32_t asked) { return reference.read(asked, step); });
}

std::string describe(const sonimbra::SAudioStreamFormat& format, std::int32_t portion,
                     float speed) {
    return std::to_string(format.ChannelCount) + " channels, " +
           std::to_string(8 * format.getSampleSize()) + " bits, " +
           std::to_string(format.SampleRate) + " Hz, portions of " + std::to_string(portion) +
           ", speed " + std::to_string(speed);
}

/// A comparison whose failure does not print a million samples.
testing::AssertionResult sameFrames(const Frames& actual, const Frames& expected) {
    const auto [a, e] =
        std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
    if (a == actual.end() && e == expected.end()) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << actual.size() / 2 << " frames instead of " << expected.size() / 2
           << ", first difference at sample " << a - actual.begin();
}

void expectDumb(const sonimbra::SAudioStreamFormat& format, std::int32_t portion, float speed,
                std::int32_t outputRate = 44100) {
    SCOPED_TRACE(describe(format, portion, speed));
    const Bytes bytes = noise(format, static_cast<std::uint32_t>(portion));
    const auto source = Source::adopt(new CScriptedStream(format, bytes));
    source->framesPerRead = portion;
    const float step =
        static_cast<float>(format.SampleRate) * speed / static_cast<float>(outputRate);
    const Frames expected = expectedFrames(format, bytes, portion, step);
    EXPECT_TRUE(sameFrames(readAll(resamplerOf(source, outputRate), speed), expected));
}

TEST(StreamResampler, EqualsDumbAtEveryRateAndSpeed) {
    for (const std::int32_t rate : {8000, 22050, 44100, 48000, 192000}) {
        for (const float speed : {0.01f, 0.5f, 1.0f, 1.26f, 2.0f, 5.0f}) {
            const std::int32_t frames = speed < 0.1f ? 2100 : 2 * BufferFrames + 500;
            for (const std::int32_t channels : {1, 2}) {
                expectDumb(streamFormat(channels, frames, rate, 8), BufferFrames, speed);
                expectDumb(streamFormat(channels, frames, rate, 16), BufferFrames, speed);
            }
        }
    }
    expectDumb(streamFormat(2, 5000, 44100), BufferFrames, 1.0f, 22050);
    expectDumb(streamFormat(2, 5000, 44100), BufferFrames, 1.0f, 96000);
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

TEST(StreamResampler, PassesFramesThroughAtStepOne) {
    // The last two frames stay behind in the interpolation.
    for (const std::int32_t portion : {3, 100, INT32_MAX}) {
        for (const std::int32_t rate : {44100, 88200}) {
            const auto source = Source::adopt(createRampStream(streamFormat(2, 7000, rate)));
            source->framesPerRead = portion;
            const float speed = 44100.0f / static_cast<float>(rate);
            const Frames frames = readAll(resamplerOf(source), speed);
            EXPECT_TRUE(isRamp16(frames, 2)) << portion << ", " << rate;
            EXPECT_EQ(frames.size() / 2, 6998u);
        }
    }
}

TEST(StreamResampler, WidensEightBitsAndDoublesMono) {
    const Bytes samples = {0, 1, 127, 128, 129, 255, 128, 128};
    const auto source = Source::adopt(new CScriptedStream(streamFormat(1, 8, 44100, 8), samples));
    const Frames expected = {-32768, -32768, -32512, -32512, -256,  -256,
                             0,      0,      256,    256,    32512, 32512};
    EXPECT_EQ(readAll(resamplerOf(source), 1.0f), expected);
}

TEST(StreamResampler, ReadsAheadByBuffersOnly) {
    const auto source = Source::adopt(createRampStream(streamFormat(2, 10000, 44100)));
    const auto resampler = resamplerOf(source);
    EXPECT_EQ(source->position, BufferFrames);
    read(resampler, 2046, 1.0f);
    EXPECT_EQ(source->position, BufferFrames);
    read(resampler, 1, 1.0f);
    EXPECT_EQ(source->position, 2 * BufferFrames);
}

TEST(StreamResampler, ChangesItsSpeedOnTheWay) {
    const auto source = Source::adopt(createRampStream(streamFormat(2, 10000, 44100)));
    const auto resampler = resamplerOf(source);
    EXPECT_TRUE(isRamp16(read(resampler, 100, 1.0f), 2));
    const Frames fast = read(resampler, 10, 2.0f);
    for (std::int32_t i = 0; i < 10; ++i) {
        EXPECT_EQ(fast[static_cast<std::size_t>(2 * i)], rampSample16(100 + 2 * i, 0));
    }
    EXPECT_TRUE(isRamp16(read(resampler, 100, 1.0f), 2, 120));
}

TEST(StreamResampler, StaysAtItsEndUntilItIsMoved) {
    const auto source = Source::adopt(createRampStream(streamFormat(2, 500, 44100)));
    const auto resampler = resamplerOf(source);
    EXPECT_EQ(read(resampler, 600, 1.0f).size() / 2, 498u);
    for (const float speed : {1.0f, 0.01f, 5.0f}) {
        EXPECT_TRUE(read(resampler, 100, speed).empty());
    }
    EXPECT_TRUE(resampler->setPosition(0));
    EXPECT_TRUE(isRamp16(read(resampler, 498, 1.0f), 2));
    EXPECT_TRUE(read(resampler, 1, 1.0f).empty());
}

TEST(StreamResampler, StartsAfreshWhereItIsMoved) {
    const auto format = streamFormat(2, 6000, 44100);
    const Bytes bytes = noise(format, 9);
    const auto source = Source::adopt(new CScriptedStream(format, bytes));
    const auto resampler = resamplerOf(source);
    for (const float speed : {1.0f, 0.7f, 3.3f}) {
        for (const std::int32_t frame : {0, 1, 2047, 2048, 3000, 5997, 5999, 6000}) {
            read(resampler, 333, speed);
            ASSERT_TRUE(resampler->setPosition(frame));
            auto rest = format;
            rest.FrameCount -= frame;
            const Bytes restBytes(bytes.begin() + frame * 4, bytes.end());
            EXPECT_TRUE(sameFrames(readAll(resampler, speed),
                                   expectedFrames(rest, restBytes, BufferFrames, speed)))
                << frame << " at " << speed;
        }
    }
}

TEST(StreamResampler, GoesOnWhenAMoveIsRefused) {
    const auto source = Source::adopt(createRampStream(streamFormat(2, 5000, 44100)));
    const auto resampler = resamplerOf(source);
    read(resampler, 100, 1.0f);
    EXPECT_FALSE(resampler->setPosition(5001));
    EXPECT_FALSE(resampler->setPosition(-1));
    EXPECT_TRUE(isRamp16(read(resampler, 4000, 1.0f), 2, 100));
}

Source withChannels(std::int32_t channels) {
    return Source::adopt(
        new CScriptedStream(streamFormat(channels, 3000, 44100), Bytes(3000u * 12, 0x55)));
}

TEST(StreamResampler, PlaysOtherChannelCountsAsSilence) {
    for (const std::int32_t channels : {3, 4, 6}) {
        const Frames frames = readAll(resamplerOf(withChannels(channels)), 1.0f);
        EXPECT_EQ(frames, Frames(2 * (3000 * 6 / channels - 2), 0)) << channels;
    }
}

TEST(StreamResampler, EndsWhereNothingCanBeRead) {
    for (const std::int32_t channels : {0, -1, INT32_MIN, 5000, INT32_MAX}) {
        EXPECT_TRUE(readAll(resamplerOf(withChannels(channels)), 1.0f).empty()) << channels;
    }
    const auto empty = Source::adopt(createRampStream(streamFormat(2, 0, 44100)));
    EXPECT_TRUE(readAll(resamplerOf(empty), 1.0f).empty());
}

TEST(StreamResampler, EndsWithoutAForwardStep) {
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    const struct {
        std::int32_t rate;
        float speed;
    } cases[] = {{0, 1.0f},
                 {-1, 1.0f},
                 {INT32_MIN, 5.0f},
                 {44100, 0.0f},
                 {44100, -1.0f},
                 {44100, nan},
                 {44100, -std::numeric_limits<float>::infinity()}};
    for (const auto& c : cases) {
        const auto source = Source::adopt(createRampStream(streamFormat(2, 100, c.rate)));
        EXPECT_TRUE(readAll(resamplerOf(source), c.speed).empty()) << c.rate << ", " << c.speed;
    }
}

TEST(StreamResampler, SurvivesExtremeSteps) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const struct {
        std::int32_t rate;
        float speed;
        std::size_t most; ///< frames
    } cases[] = {{INT32_MAX, 5.0f, 2}, {44100, infinity, 2}, {44100, 1e30f, 2}, {1, 0.01f, 5000}};
    for (const auto& c : cases) {
        const auto source = Source::adopt(createRampStream(streamFormat(2, 4000, c.rate)));
        const Frames frames = read(resamplerOf(source), 5000, c.speed);
        EXPECT_GE(frames.size() / 2, 1u);
        EXPECT_LE(frames.size() / 2, c.most);
        EXPECT_TRUE(isRamp16(Frames(frames.begin(), frames.begin() + 2), 2));
    }
}

TEST(StreamResampler, TellsBothFormats) {
    const auto source = Source::adopt(createRampStream(streamFormat(1, 123, 8000, 8)));
    const auto resampler = resamplerOf(source, 48000);
    EXPECT_EQ(resampler->getFormat().ChannelCount, 2);
    EXPECT_EQ(resampler->getFormat().SampleRate, 48000);
    EXPECT_EQ(resampler->getFormat().FrameCount, 123);
    EXPECT_EQ(resampler->getFormat().SampleFormat, sonimbra::E_SAMPLE_FORMAT::Unsigned8Bit);
    EXPECT_EQ(resampler->getSourceFormat().ChannelCount, 1);
    EXPECT_EQ(resampler->getSourceFormat().SampleRate, 8000);
}

TEST(StreamResampler, WithoutASourceReadsNothing) {
    const auto bare = Resampler::adopt(createStreamResampler(44100, nullptr));
    EXPECT_TRUE(read(bare, 100, 1.0f).empty());
    EXPECT_FALSE(bare->setPosition(0));
}

TEST(StreamResampler, HoldsItsSourceAndLetsItGo) {
    const std::int32_t before = CScriptedStream::alive;
    auto source = Source::adopt(createRampStream(streamFormat(2, 100, 44100)));
    auto resampler = resamplerOf(source);
    source.reset();
    EXPECT_TRUE(isRamp16(read(resampler, 98, 1.0f), 2));
    resampler.reset();
    EXPECT_EQ(CScriptedStream::alive, before);
}

} // namespace
