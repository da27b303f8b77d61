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

void scale(std::int16_t* frames, std::int32_t frameCount, const SGains& gains) {
    portable::scale(frames, frameCount, gains);
}

void addMono(const std::int16_t* frames, std::int32_t frameCount, const SGains* gains,
             const SSums& sums) {
    portable::addMono(frames, frameCount, gains, sums);
}

void addStereo(const std::int16_t* frames, std::int32_t frameCount, const SGains* gains,
               const SSums& sums) {
    portable::addStereo(frames, frameCount, gains, sums);
}

} // namespace sn_internal
