// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/wav.h"

#include <sonimbra/IAudioStream.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace sn_test {

/// The ramp: a signal whose every sample tells its frame and channel, so that a gap, a repeat, a
/// swap of channels or a wrong start shows. It repeats after 65521 frames (8 bit: 251).
std::int16_t rampSample16(std::int64_t frame, std::int32_t channel);
std::uint8_t rampSample8(std::int64_t frame, std::int32_t channel);

/// The ramp's frames from firstFrame on, in the layout of a stream of this format.
Bytes rampBytes(const sonimbra::SAudioStreamFormat& format, std::int64_t firstFrame,
                std::int32_t frameCount);

/// Interleaved 16-bit frames against the ramp; tells the first frame that differs.
testing::AssertionResult isRamp16(const std::vector<std::int16_t>& samples, std::int32_t channels,
                                  std::int64_t firstFrame = 0);

/// A format record in one line.
sonimbra::SAudioStreamFormat streamFormat(std::int32_t channels, std::int32_t frames,
                                          std::int32_t rate, std::int32_t bits = 16);

/// A decoder that delivers the ramp.
class CRampStream : public sonimbra::IAudioStream {
public:
    explicit CRampStream(const sonimbra::SAudioStreamFormat& format);
    ~CRampStream() override;

    sonimbra::SAudioStreamFormat getFormat() override { return Format; }
    bool setPosition(std::int32_t frame) override;
    bool getIsSeekingSupported() override { return seekingSupported; }
    std::int32_t readFrames(void* target, std::int32_t frameCountToRead) override;

    std::int32_t framesPerRead = INT32_MAX; ///< one read gives at most so many
    bool seekingSupported = true;           ///< otherwise only 0 is accepted

    std::int32_t position = 0;
    std::int32_t reads = 0;
    std::int32_t seeks = 0;

    /// How many of these exist.
    static std::int32_t alive;

private:
    sonimbra::SAudioStreamFormat Format;
};

} // namespace sn_test
