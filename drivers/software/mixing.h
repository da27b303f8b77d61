// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sn_internal {

/// The arithmetic of the mixer on interleaved 16-bit stereo. Counts are in frames.

/// Factors of the two channels.
struct SGains {
    float left;
    float right;
};

/// Pan above 0 takes the right channel away, pan below 0 the left one, ten times as fast as it
/// grows: from 0.1 on one side is silent. Both gains carry the volume.
SGains gainsOf(float volume, float pan);

/// Scales samples in place and truncates towards zero. Values that do not fit 16 bits (a volume
/// above 1) saturate; gains within 0.000001 of one leave the samples as they are.
void applyGains(std::int16_t* samples, std::int32_t frameCount, const SGains& gains);

/// Adds samples to a sum.
void accumulate(const std::int16_t* samples, std::int32_t frameCount, std::int32_t* sum);

/// Clips a sum to 16 bits.
void clip(const std::int32_t* sum, std::int32_t frameCount, std::int16_t* target);

} // namespace sn_internal
