// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/CScriptedStream.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace sn_test {

/// The ramp: a signal whose every sample tells its frame and channel, so that a gap, a repeat, a
/// swap of channels or a wrong start shows. It repeats after 65521 frames (8 bit: 251).
std::int16_t rampSample16(std::int64_t frame, std::int32_t channel);

/// The ramp's frames from firstFrame on, in the layout of a stream of this format.
Bytes rampBytes(const sonimbra::SAudioStreamFormat& format, std::int64_t firstFrame,
                std::int32_t frameCount);

/// Interleaved 16-bit frames against the ramp; tells the first frame that differs.
testing::AssertionResult isRamp16(const std::vector<std::int16_t>& samples, std::int32_t channels,
                                  std::int64_t firstFrame = 0);

/// A format record in one line.
sonimbra::SAudioStreamFormat streamFormat(std::int32_t channels, std::int32_t frames,
                                          std::int32_t rate, std::int32_t bits = 16);

/// A decoder that delivers the ramp, as many frames as the format says. One reference for the
/// caller.
CScriptedStream* createRampStream(const sonimbra::SAudioStreamFormat& format);

} // namespace sn_test
