// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sn_internal {

/// The loops over samples that the mixer spends its time in beside resampling. Stereo frames are
/// interleaved; counts are in frames.
///
/// Every processor has the same results: the portable functions define them, and a file for a
/// processor family may do the same faster.

/// Factors of the two channels.
struct SGains {
    float left;
    float right;
};

/// What the voices of a block add up to, channel by channel.
struct SSums {
    std::int32_t* left;
    std::int32_t* right;
};

/// Clips two channels to 16 bits and interleaves them.
void interleave(const std::int32_t* left, const std::int32_t* right, std::int32_t frameCount,
                std::int16_t* target);

/// Clips one channel to 16 bits.
void narrow(const std::int32_t* mono, std::int32_t frameCount, std::int16_t* target);

/// Writes one channel to both channels of the target. The channel may stand in the target's second
/// half.
void spread(const std::int16_t* mono, std::int32_t frameCount, std::int16_t* target);

/// Scales in place. Results are truncated towards zero; what does not fit 16 bits saturates, and
/// NaN counts as too large.
void scale(std::int16_t* frames, std::int32_t frameCount, const SGains& gains);

/// Add frames to the sums, scaled like that; gains of null leave them as they are.
void addMono(const std::int16_t* frames, std::int32_t frameCount, const SGains* gains,
             const SSums& sums);
void addStereo(const std::int16_t* frames, std::int32_t frameCount, const SGains* gains,
               const SSums& sums);

namespace portable {

void interleave(const std::int32_t* left, const std::int32_t* right, std::int32_t frameCount,
                std::int16_t* target);
void narrow(const std::int32_t* mono, std::int32_t frameCount, std::int16_t* target);
void spread(const std::int16_t* mono, std::int32_t frameCount, std::int16_t* target);
void scale(std::int16_t* frames, std::int32_t frameCount, const SGains& gains);
void addMono(const std::int16_t* frames, std::int32_t frameCount, const SGains* gains,
             const SSums& sums);
void addStereo(const std::int16_t* frames, std::int32_t frameCount, const SGains* gains,
               const SSums& sums);

} // namespace portable
} // namespace sn_internal
