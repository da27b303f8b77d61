// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/software/mixing.h"

#include "core/integers.h"

#include <cmath>

namespace sn_internal {
namespace {

bool isOne(float gain) {
    return std::fabs(gain - 1.0f) <= 0.000001f;
}

/// A position in 3D may be no number, and an infinite volume leaves none of a silent side.
float numberOrSilence(float gain) {
    return std::isnan(gain) ? 0.0f : gain;
}

} // namespace

bool areOne(const SGains& gains) {
    return isOne(gains.left) && isOne(gains.right);
}

SGains gainsOf(float volume, float pan) {
    SGains gains = {1.0f, 1.0f};
    if (pan > 0.0f) {
        gains.right = limited(1.0f - 10.0f * pan, 0.0f, 1.0f);
    } else if (pan < 0.0f) {
        gains.left = limited(1.0f + 10.0f * pan, 0.0f, 1.0f);
    }
    return {numberOrSilence(gains.left * volume), numberOrSilence(gains.right * volume)};
}

void applyGains(std::int16_t* samples, std::int32_t frameCount, const SGains& gains) {
    if (areOne(gains)) {
        return;
    }
    scale(samples, frameCount, gains);
}

} // namespace sn_internal
