// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/sample_kernels.h"

namespace sn_internal {

/// Pan above 0 takes the right channel away, pan below 0 the left one, ten times as fast as it
/// grows: from 0.1 on one side is silent. Both gains carry the volume;
/// one that is no number is silence.
SGains gainsOf(float volume, float pan);

/// Scales frames in place, unless the gains are one.
void applyGains(std::int16_t* samples, std::int32_t frameCount, const SGains& gains);

/// Within 0.000001, which leaves samples as they are.
bool areOne(const SGains& gains);

} // namespace sn_internal
