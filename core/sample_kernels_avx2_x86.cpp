// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// This file is compiled for processors with AVX2: nothing inline from elsewhere may be compiled
// here, because the linker could choose it for everybody.

#include "core/sample_kernels_x86.h"

#include <immintrin.h>

namespace sn_internal::avx2 {
namespace {

/// Eight samples as 32 bits.
__m256i loadWidened(const std::int16_t* samples) {
    return _mm256_cvtepi16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(samples)));
}

void addTo(std::int32_t* sum, __m256i values) {
    auto* const at = reinterpret_cast<__m256i*>(sum);
    _mm256_storeu_si256(at, _mm256_add_epi32(_mm256_loadu_si256(at), values));
}

__m256i damped(__m256i samples, __m256 gains) {
    return _mm256_cvttps_epi32(_mm256_mul_ps(_mm256_cvtepi32_ps(samples), gains));
}

/// Eight stereo frames from the left and the right samples: 0, 1, 4, 5 and 2, 3, 6, 7 as 32 bits,
/// added and stored.
void addFrames(__m256i left, __m256i right, std::int16_t* target, std::int32_t* sum) {
    const __m256i low = _mm256_unpacklo_epi32(left, right);
    const __m256i high = _mm256_unpackhi_epi32(left, right);
    addTo(sum, _mm256_permute2x128_si256(low, high, 0x20));
    addTo(sum + 8, _mm256_permute2x128_si256(low, high, 0x31));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(target), _mm256_packs_epi32(low, high));
}

} // namespace

std::int32_t accumulateBlocks(const std::int16_t* samples, std::int32_t frameCount,
                              std::int32_t* sum) {
    std::int32_t i = 0;
    for (; i + 8 <= frameCount; i += 8) {
        addTo(sum + 2 * i, loadWidened(samples + 2 * i));
        addTo(sum + 2 * i + 8, loadWidened(samples + 2 * i + 8));
    }
    return i;
}

std::int32_t dampAndAccumulateBlocks(std::int16_t* samples, std::int32_t frameCount,
                                     const SGains& gains, std::int32_t* sum) {
    const __m256 factors = _mm256_setr_ps(gains.left, gains.right, gains.left, gains.right,
                                          gains.left, gains.right, gains.left, gains.right);
    std::int32_t i = 0;
    for (; i + 8 <= frameCount; i += 8) {
        const __m256i first = damped(loadWidened(samples + 2 * i), factors);
        const __m256i second = damped(loadWidened(samples + 2 * i + 8), factors);
        addTo(sum + 2 * i, first);
        addTo(sum + 2 * i + 8, second);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(samples + 2 * i),
                            _mm256_permute4x64_epi64(_mm256_packs_epi32(first, second), 0xd8));
    }
    return i;
}

std::int32_t spreadDampAndAccumulateBlocks(const std::int16_t* mono, std::int16_t* target,
                                           std::int32_t frameCount, const SGains& gains,
                                           std::int32_t* sum) {
    const __m256 leftGain = _mm256_set1_ps(gains.left);
    const __m256 rightGain = _mm256_set1_ps(gains.right);
    std::int32_t i = 0;
    for (; i + 8 <= frameCount; i += 8) {
        const __m256 samples = _mm256_cvtepi32_ps(loadWidened(mono + i));
        addFrames(_mm256_cvttps_epi32(_mm256_mul_ps(samples, leftGain)),
                  _mm256_cvttps_epi32(_mm256_mul_ps(samples, rightGain)), target + 2 * i,
                  sum + 2 * i);
    }
    return i;
}

} // namespace sn_internal::avx2
