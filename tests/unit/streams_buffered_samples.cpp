// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/counted_ptr.h"
#include "streams/CSonimbraBufferedSamples.h"
#include "streams/CSonimbraBufferedSamplesAudioStream.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

using namespace sn_internal;
using namespace sn_test;

using Samples = counted_ptr<CSonimbraBufferedSamples>;
using Stream = counted_ptr<sonimbra::IAudioStream>;

Samples samplesOf(const sonimbra::SAudioStreamFormat& format, const void* data) {
    return Samples::adopt(new CSonimbraBufferedSamples(format, data));
}

Samples rampSamples(const sonimbra::SAudioStreamFormat& format) {
    return samplesOf(format, rampBytes(format, 0, format.FrameCount).data());
}

Stream streamOf(const Samples& samples) {
    return Stream::adopt(new CSonimbraBufferedSamplesAudioStream(samples.get()));
}

std::vector<std::int16_t> read16(sonimbra::IAudioStream& stream, std::int32_t frames) {
    std::vector<std::int16_t> target(
        static_cast<std::size_t>(std::max(frames, 0) * stream.getFormat().ChannelCount));
    const std::int32_t got = stream.readFrames(target.data(), frames);
    target.resize(static_cast<std::size_t>(got * stream.getFormat().ChannelCount));
    return target;
}

TEST(BufferedSamples, CopyWhatTheyAreGiven) {
    const auto format = streamFormat(2, 50, 44100);
    Bytes bytes = rampBytes(format, 0, 50);
    const Samples samples = samplesOf(format, bytes.data());
    const Bytes before = bytes;
    bytes.assign(bytes.size(), 0);
    EXPECT_EQ(std::memcmp(samples->getData(), before.data(), before.size()), 0);
}

TEST(BufferedSamples, WithoutDataAreZero) {
    const Samples samples = samplesOf(streamFormat(2, 5000, 44100, 8), nullptr);
    const auto* data = static_cast<const std::uint8_t*>(samples->getData());
    EXPECT_EQ(std::count(data, data + 10000, 0), 10000);
}

TEST(BufferedSamples, WithoutASizeHoldNothing) {
    const sonimbra::SAudioStreamFormat formats[] = {
        streamFormat(2, 0, 44100),          streamFormat(2, -1, 44100),
        streamFormat(0, 100, 44100),        streamFormat(-1, 100, 44100),
        streamFormat(2, 0x40000000, 44100), // 2^32 bytes wrap to none
        streamFormat(2, 0x20000000, 44100), // 2^31 bytes wrap to a negative size
    };
    for (const auto& format : formats) {
        const char block[1] = {};
        const Samples samples = samplesOf(format, block);
        EXPECT_EQ(samples->getData(), nullptr) << format.ChannelCount << ", " << format.FrameCount;
        char target[8];
        EXPECT_EQ(streamOf(samples)->readFrames(target, 1), 0);
    }
}

TEST(BufferedSamplesStream, DeliversEveryFrameOnce) {
    const Samples samples = rampSamples(streamFormat(2, 1000, 44100));
    const Stream stream = streamOf(samples);
    EXPECT_EQ(stream->getFormat().FrameCount, 1000);
    EXPECT_TRUE(stream->getIsSeekingSupported());
    std::vector<std::int16_t> all;
    for (std::int32_t step = 1; all.size() < 2000; step = step * 3 % 101) {
        const auto piece = read16(*stream.get(), step);
        ASSERT_FALSE(piece.empty());
        all.insert(all.end(), piece.begin(), piece.end());
    }
    EXPECT_TRUE(isRamp16(all, 2));
    EXPECT_TRUE(read16(*stream.get(), 1).empty());
}

TEST(BufferedSamplesStream, KeepsItsSamplesAlive) {
    auto samples = rampSamples(streamFormat(1, 10, 44100));
    const Stream first = streamOf(samples);
    const Stream second = streamOf(samples);
    samples.reset();
    EXPECT_TRUE(isRamp16(read16(*first.get(), 4), 1));
    EXPECT_TRUE(isRamp16(read16(*second.get(), 10), 1)) << "each stream has its own position";
}

TEST(BufferedSamplesStream, AcceptsPositionsUpToTheSizeInBytes) {
    const Samples samples = rampSamples(streamFormat(2, 100, 44100));
    const Stream stream = streamOf(samples);
    EXPECT_TRUE(stream->setPosition(40));
    EXPECT_TRUE(isRamp16(read16(*stream.get(), 10), 2, 40));
    for (const std::int32_t refused : {401, -1, INT32_MAX, INT32_MIN}) {
        EXPECT_FALSE(stream->setPosition(refused)) << refused;
    }
    EXPECT_TRUE(isRamp16(read16(*stream.get(), 10), 2, 50)) << "a refused position moved it";
    for (const std::int32_t beyond : {100, 101, 399, 400}) {
        EXPECT_TRUE(stream->setPosition(beyond)) << beyond;
        EXPECT_TRUE(read16(*stream.get(), 10).empty()) << beyond;
    }
    EXPECT_TRUE(stream->setPosition(99));
    const auto last = read16(*stream.get(), 10);
    EXPECT_EQ(last.size(), 2u);
    EXPECT_TRUE(isRamp16(last, 2, 99));
}

TEST(BufferedSamplesStream, ReadsNothingForNoFrames) {
    const Samples samples = rampSamples(streamFormat(1, 10, 44100));
    const Stream stream = streamOf(samples);
    read16(*stream.get(), 3);
    for (const std::int32_t none : {0, -1, -3, INT32_MIN}) {
        EXPECT_EQ(stream->readFrames(nullptr, none), 0) << none;
    }
    EXPECT_TRUE(isRamp16(read16(*stream.get(), 10), 1, 3)) << "a count below 1 moved it";
}

TEST(BufferedSamplesStream, SurvivesPositionsThatWrapAround) {
    // Accepted, because so many bytes are there; but times 60000 bytes a frame they wrap.
    const Samples samples = samplesOf(streamFormat(30000, 1, 44100), nullptr);
    const Stream stream = streamOf(samples);
    for (const std::int32_t frame : {60000, 50000, 35792}) {
        ASSERT_TRUE(stream->setPosition(frame));
        EXPECT_TRUE(read16(*stream.get(), 1).empty()) << frame;
    }
}

} // namespace
