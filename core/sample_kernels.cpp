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
        target[2 * i] = mono[i];
        target[2 * i + 1] = mono[i];
    }
}

void scale(std::int16_t* samples, std::int32_t frameCount, const SGains& gains) {
    for (std::int32_t i = 0; i < frameCount; ++i) {
        samples[2 * i] = scaled(samples[2 * i], gains.left);
        samples[2 * i + 1] = scaled(samples[2 * i + 1], gains.right);
    }
}

void accumulate(const std::int16_t* samples, std::int32_t frameCount, std::int32_t* sum) {
    for (std::int32_t i = 0; i < 2 * frameCount; ++i) {
        // Unsigned, so that a sum of more voices than anybody plays wraps around.
        sum[i] = static_cast<std::int32_t>(static_cast<std::uint32_t>(sum[i]) +
                                           static_cast<std::uint32_t>(samples[i]));
    }
}

void scaleAndAccumulate(std::int16_t* samples, std::int32_t frameCount, const SGains& gains,
                        std::int32_t* sum) {
    portable::scale(samples, frameCount, gains);
    portable::accumulate(samples, frameCount, sum);
}

void spreadScaleAndAccumulate(const std::int16_t* mono, std::int16_t* target,
                              std::int32_t frameCount, const SGains& gains, std::int32_t* sum) {
    portable::spread(mono, frameCount, target);
    portable::scaleAndAccumulate(target, frameCount, gains, sum);
}

void clip(const std::int32_t* sum, std::int32_t frameCount, std::int16_t* target) {
    for (std::int32_t i = 0; i < 2 * frameCount; ++i) {
        target[i] = clipped(sum[i]);
    }
}

} // namespace sn_internal::portable
