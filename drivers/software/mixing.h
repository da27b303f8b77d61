// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/sample_kernels.h"

namespace sn_internal {

/// Pan above 0 takes the right channel away, pan below 0 the left one, ten times as fast as it
/// grows: from 0.1 on one side is silent. Both gains carry the volume;
/// one that is no number is silence.
SGains gainsOf(float volume, float pan);

/// Scales samples in place; gains within 0.000001 of one leave them as they are.
void applyGains(std::int16_t* samples, std::int32_t frameCount, const SGains& gains);

/// The same, and adds them to a sum.
void mixIn(std::int16_t* samples, std::int32_t frameCount, const SGains& gains, std::int32_t* sum);

/// The same with one channel, which it spreads to the target first.
void mixInMono(const std::int16_t* mono, std::int16_t* target, std::int32_t frameCount,
               const SGains& gains, std::int32_t* sum);

} // namespace sn_internal
