// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/sample_kernels.h"

#include <algorithm>

namespace sn_internal::portable {
namespace {

std::int16_t clipped(std::int32_t sample) {
    return static_cast<std::int16_t>(std::clamp(sample, -32768, 32767));
}

/// The limit comes first in the inner call, so that NaN becomes that limit.
std::int16_t scaled(std::int16_t sample, float gain) {
    const float value = static_cast<float>(sample) * gain;
    return static_cast<std::int16_t>(
        static_cast<std::int32_t>(std::max(-32768.0f, std::min(32767.0f, value))));
}

/// Unsigned, so that a sum of more voices than anybody plays wraps around.
void addTo(std::int32_t& sum, std::int16_t sample) {
    sum = static_cast<std::int32_t>(static_cast<std::uint32_t>(sum) +
                                    static_cast<std::uint32_t>(sample));
}

/// One channel counts for both.
void add(const std::int16_t* frames, std::int32_t channels, std::int32_t frameCount,
         const SSums& sums) {
    for (std::int32_t i = 0; i < frameCount; ++i, frames += channels) {
        addTo(sums.left[i], frames[0]);
        addTo(sums.right[i], frames[channels - 1]);
    }
}

void addScaled(const std::int16_t* frames, std::int32_t channels, std::int32_t frameCount,
               const SGains& gains, const SSums& sums) {
    for (std::int32_t i = 0; i < frameCount; ++i, frames += channels) {
        addTo(sums.left[i], scaled(frames[0], gains.left));
        addTo(sums.right[i], scaled(frames[channels - 1], gains.right));
    }
}

} // namespace

void interleave(const std::int32_t* left, const std::int32_t* right, std::int32_t frameCount,
                std::int16_t* target) {
    for (std::int32_t i = 0; i < frameCount; ++i) {
        target[2 * i] = clipped(left[i]);
        target[2 * i + 1] = clipped(right[i]);
    }
}

void narrow(const std::int32_t* mono, std::int32_t frameCount, std::int16_t* target) {
    for (std::int32_t i = 0; i < frameCount; ++i) {
        target[i] = clipped(mono[i]);
    }
}

void spread(const std::int16_t* mono, std::int32_t frameCount, std::int16_t* target) {
    for (std::int32_t i = 0; i < frameCount; ++i) {
        const std::int16_t sample = mono[i];
        target[2 * i] = sample;
        target[2 * i + 1] = sample;
    }
}

void scale(std::int16_t* frames, std::int32_t frameCount, const SGains& gains) {
    for (std::int32_t i = 0; i < frameCount; ++i) {
        frames[2 * i] = scaled(frames[2 * i], gains.left);
        frames[2 * i + 1] = scaled(frames[2 * i + 1], gains.right);
    }
}

void addMono(const std::int16_t* frames, std::int32_t frameCount, const SGains* gains,
             const SSums& sums) {
    gains != nullptr ? addScaled(frames, 1, frameCount, *gains, sums)
                     : add(frames, 1, frameCount, sums);
}

void addStereo(const std::int16_t* frames, std::int32_t frameCount, const SGains* gains,
               const SSums& sums) {
    gains != nullptr ? addScaled(frames, 2, frameCount, *gains, sums)
                     : add(frames, 2, frameCount, sums);
}

} // namespace sn_internal::portable
