// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sn_internal {

/// The loops over samples that the mixer spends its time in beside resampling. Stereo is
/// interleaved; counts are in frames.
///
/// Every processor has the same results: the portable functions define them, and a file for a
/// processor family may do the same faster.

/// Factors of the two channels.
struct SGains {
    float left;
    float right;
};

/// Clips two channels to 16 bits and interleaves them.
void interleave(const std::int32_t* left, const std::int32_t* right, std::int32_t frameCount,
                std::int16_t* target);

/// Clips one channel to 16 bits.
void narrow(const std::int32_t* mono, std::int32_t frameCount, std::int16_t* target);

/// Writes one channel to both channels of the target.
void spread(const std::int16_t* mono, std::int32_t frameCount, std::int16_t* target);

/// Scales in place. Results are truncated towards zero; what does not fit 16 bits saturates, and
/// NaN counts as too large.
void scale(std::int16_t* samples, std::int32_t frameCount, const SGains& gains);

/// Adds samples to a sum.
void accumulate(const std::int16_t* samples, std::int32_t frameCount, std::int32_t* sum);

/// Both in one pass.
void scaleAndAccumulate(std::int16_t* samples, std::int32_t frameCount, const SGains& gains,
                        std::int32_t* sum);

/// The same after spreading one channel to both of the target.
void spreadScaleAndAccumulate(const std::int16_t* mono, std::int16_t* target,
                              std::int32_t frameCount, const SGains& gains, std::int32_t* sum);

/// Clips a sum to 16 bits.
void clip(const std::int32_t* sum, std::int32_t frameCount, std::int16_t* target);

namespace portable {

void interleave(const std::int32_t* left, const std::int32_t* right, std::int32_t frameCount,
                std::int16_t* target);
void narrow(const std::int32_t* mono, std::int32_t frameCount, std::int16_t* target);
void spread(const std::int16_t* mono, std::int32_t frameCount, std::int16_t* target);
void scale(std::int16_t* samples, std::int32_t frameCount, const SGains& gains);
void accumulate(const std::int16_t* samples, std::int32_t frameCount, std::int32_t* sum);
void scaleAndAccumulate(std::int16_t* samples, std::int32_t frameCount, const SGains& gains,
                        std::int32_t* sum);
void spreadScaleAndAccumulate(const std::int16_t* mono, std::int16_t* target,
                              std::int32_t frameCount, const SGains& gains, std::int32_t* sum);
void clip(const std::int32_t* sum, std::int32_t frameCount, std::int16_t* target);

} // namespace portable
} // namespace sn_internal
