// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/counted_ptr.h"
#include "streams/CSonimbraBufferedSamples.h"
#include "streams/CSonimbraBufferedSamplesAudioStream.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace sn_internal;
using namespace sn_test;

counted_ptr<sonimbra::IAudioStream> streamOf(const sonimbra::SAudioStreamFormat& format,
                                             const void* data) {
    const auto samples =
        counted_ptr<CSonimbraBufferedSamples>::adopt(new CSonimbraBufferedSamples(format, data));
    return counted_ptr<sonimbra::IAudioStream>::adopt(
        new CSonimbraBufferedSamplesAudioStream(samples.get()));
}

/// Whether a read of 10 stereo frames gives the ramp's frames in this range.
testing::AssertionResult reads(sonimbra::IAudioStream& stream, std::int32_t first,
                               std::int32_t count) {
    std::vector<std::int16_t> target(20);
    const std::int32_t got = stream.readFrames(target.data(), 10);
    target.resize(static_cast<std::size_t>(2 * got));
    return got == count ? isRamp16(target, 2, first) : testing::AssertionFailure() << got;
}

TEST(BufferedSamples, AcceptPositionsUpToTheirSizeInBytes) {
    const auto format = streamFormat(2, 100, 44100);
    const auto stream = streamOf(format, rampBytes(format, 0, 100).data());
    EXPECT_TRUE(reads(*stream.get(), 0, 10));
    EXPECT_TRUE(stream->setPosition(40));
    EXPECT_FALSE(stream->setPosition(401));
    EXPECT_TRUE(reads(*stream.get(), 40, 10)) << "a refused position moved it";
    EXPECT_TRUE(stream->setPosition(99));
    EXPECT_TRUE(reads(*stream.get(), 99, 1));
    EXPECT_TRUE(stream->setPosition(400));
    EXPECT_TRUE(reads(*stream.get(), 100, 0));
    // Times 60000 bytes a frame such a position wraps.
    const auto wide = streamOf(streamFormat(30000, 1, 44100), nullptr);
    EXPECT_TRUE(wide->setPosition(35792));
    EXPECT_TRUE(reads(*wide.get(), 0, 0));
    // So many bytes wrap to a negative size.
    EXPECT_TRUE(reads(*streamOf(streamFormat(2, 0x20000000, 44100), "").get(), 0, 0));
}

} // namespace
