// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/sample_kernels.h"

/// For processors with AVX2 only. Each works on whole blocks and returns how many frames it did.
/// Gains, if there are any, leave no sample outside 16 bits.
namespace sn_internal::avx2 {

std::int32_t addMonoBlocks(const std::int16_t* frames, std::int32_t frameCount, const SGains* gains,
                           const SSums& sums);
std::int32_t addStereoBlocks(const std::int16_t* frames, std::int32_t frameCount,
                             const SGains* gains, const SSums& sums);

} // namespace sn_internal::avx2
