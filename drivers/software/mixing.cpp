// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/software/mixing.h"

#include "core/integers.h"

#include <algorithm>
#include <cmath>

namespace sn_internal {
namespace {

bool isOne(float gain) {
    return std::fabs(gain - 1.0f) <= 0.000001f;
}

/// The limits come first in both calls, so that NaN becomes a limit too.
std::int16_t scaled(std::int16_t sample, float gain) {
    const float value = static_cast<float>(sample) * gain;
    return static_cast<std::int16_t>(
        static_cast<std::int32_t>(std::max(-32768.0f, std::min(32767.0f, value))));
}

} // namespace

SGains gainsOf(float volume, float pan) {
    SGains gains = {1.0f, 1.0f};
    if (pan > 0.0f) {
        gains.right = limited(1.0f - 10.0f * pan, 0.0f, 1.0f);
    } else if (pan < 0.0f) {
        gains.left = limited(1.0f + 10.0f * pan, 0.0f, 1.0f);
    }
    return {gains.left * volume, gains.right * volume};
}

void applyGains(std::int16_t* samples, std::int32_t frameCount, const SGains& gains) {
    if (isOne(gains.left) && isOne(gains.right)) {
        return;
    }
    for (std::int32_t i = 0; i < frameCount; ++i) {
        samples[2 * i] = scaled(samples[2 * i], gains.left);
        samples[2 * i + 1] = scaled(samples[2 * i + 1], gains.right);
    }
}

void accumulate(const std::int16_t* samples, std::int32_t frameCount, std::int32_t* sum) {
    for (std::int32_t i = 0; i < 2 * frameCount; ++i) {
        sum[i] += samples[i];
    }
}

void clip(const std::int32_t* sum, std::int32_t frameCount, std::int16_t* target) {
    for (std::int32_t i = 0; i < 2 * frameCount; ++i) {
        target[i] = static_cast<std::int16_t>(std::clamp(sum[i], -32768, 32767));
    }
}

} // namespace sn_internal
