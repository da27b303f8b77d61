// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/sample_kernels.h"

namespace sn_internal {

void interleave(const std::int32_t* left, const std::int32_t* right, std::int32_t frameCount,
                std::int16_t* target) {
    portable::interleave(left, right, frameCount, target);
}

void narrow(const std::int32_t* mono, std::int32_t frameCount, std::int16_t* target) {
    portable::narrow(mono, frameCount, target);
}

void spread(const std::int16_t* mono, std::int32_t frameCount, std::int16_t* target) {
    portable::spread(mono, frameCount, target);
}

void scale(std::int16_t* samples, std::int32_t frameCount, const SGains& gains) {
    portable::scale(samples, frameCount, gains);
}

void accumulate(const std::int16_t* samples, std::int32_t frameCount, std::int32_t* sum) {
    portable::accumulate(samples, frameCount, sum);
}

void scaleAndAccumulate(std::int16_t* samples, std::int32_t frameCount, const SGains& gains,
                        std::int32_t* sum) {
    portable::scaleAndAccumulate(samples, frameCount, gains, sum);
}

void spreadScaleAndAccumulate(const std::int16_t* mono, std::int16_t* target,
                              std::int32_t frameCount, const SGains& gains, std::int32_t* sum) {
    portable::spreadScaleAndAccumulate(mono, target, frameCount, gains, sum);
}

void clip(const std::int32_t* sum, std::int32_t frameCount, std::int16_t* target) {
    portable::clip(sum, frameCount, target);
}

} // namespace sn_internal
