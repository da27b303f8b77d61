// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/sample_kernels.h"

/// For processors with AVX2 only. Each works on whole blocks and returns how many frames it did.
namespace sn_internal::avx2 {

std::int32_t accumulateBlocks(const std::int16_t* samples, std::int32_t frameCount,
                              std::int32_t* sum);

/// For gains that leave no sample outside 16 bits.
std::int32_t dampAndAccumulateBlocks(std::int16_t* samples, std::int32_t frameCount,
                                     const SGains& gains, std::int32_t* sum);
std::int32_t spreadDampAndAccumulateBlocks(const std::int16_t* mono, std::int16_t* target,
                                           std::int32_t frameCount, const SGains& gains,
                                           std::int32_t* sum);

} // namespace sn_internal::avx2
