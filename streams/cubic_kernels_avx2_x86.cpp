// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// The same steps as with SSE2, two at a time; see there why they are exact. This file is compiled
// for processors with AVX2: nothing inline from elsewhere may be compiled here, because the linker
// could choose it for everybody.

#include "streams/cubic_kernels_x86.h"

#include <immintrin.h>

namespace sn_internal {
namespace {

const SCubicFactors* factorsAt(std::uint32_t offset) {
    return CubicFactors + (offset >> 6 & 1023);
}

__m128i loadHalf(const void* source) {
    return _mm_loadl_epi64(static_cast<const __m128i*>(source));
}

__m256i joined(__m128i low, __m128i high) {
    return _mm256_inserti128_si256(_mm256_castsi128_si256(low), high, 1);
}

void store(void* target, __m256i value) {
    _mm256_storeu_si256(static_cast<__m256i*>(target), value);
}

__m256i weighted(__m256i samples, __m256i factors) {
    const __m256i upper = _mm256_slli_epi16(_mm256_mulhi_epi16(samples, factors), 2);
    const __m256i lower = _mm256_srli_epi16(_mm256_mullo_epi16(samples, factors), 14);
    return _mm256_or_si256(upper, lower);
}

__m256i addPairs(__m256i weightedSamples) {
    return _mm256_madd_epi16(weightedSamples, _mm256_set1_epi16(1));
}

/// Two sets of four 16-bit numbers.
__m128i loadTwo(const void* low, const void* high) {
    return _mm_unpacklo_epi64(loadHalf(low), loadHalf(high));
}

/// The pair sums of the mono outputs at four offsets.
__m256i monoPairs(const std::int16_t* oldest, std::uint32_t a, std::uint32_t b, std::uint32_t c,
                  std::uint32_t d) {
    const __m256i samples = joined(loadTwo(oldest + (a >> 16), oldest + (b >> 16)),
                                   loadTwo(oldest + (c >> 16), oldest + (d >> 16)));
    const __m256i factors =
        joined(loadTwo(factorsAt(a), factorsAt(b)), loadTwo(factorsAt(c), factorsAt(d)));
    return addPairs(weighted(samples, factors));
}

void resampleMono(const SCubicRun& run, std::int16_t* target) {
    const std::int16_t* const oldest = run.frames - 3;
    const std::uint32_t step = run.step;
    std::uint32_t offset = run.subPosition;
    std::int32_t i = 0;
    for (; i + 8 <= run.count; i += 8, offset += 8 * step) {
        // Outputs 0, 1, 4, 5 and 2, 3, 6, 7: adding neighbours brings them into order.
        const __m256i first =
            monoPairs(oldest, offset, offset + step, offset + 4 * step, offset + 5 * step);
        const __m256i second = monoPairs(oldest, offset + 2 * step, offset + 3 * step,
                                         offset + 6 * step, offset + 7 * step);
        const __m256i sums = _mm256_hadd_epi32(first, second);
        const __m128i packed =
            _mm_packs_epi32(_mm256_castsi256_si128(sums), _mm256_extracti128_si256(sums, 1));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(target + i), packed);
    }
    portable::resampleMono(laterPart(run, i, 1), target + i);
}

/// The pair sums of the stereo outputs at two offsets, one in each half: left, right, left, right.
__m256i stereoPairs(const std::int16_t* oldest, std::uint32_t a, std::uint32_t b) {
    const __m256i samples =
        joined(_mm_loadu_si128(reinterpret_cast<const __m128i*>(oldest + 2 * (a >> 16))),
               _mm_loadu_si128(reinterpret_cast<const __m128i*>(oldest + 2 * (b >> 16))));
    const __m256i halves = joined(loadHalf(factorsAt(a)), loadHalf(factorsAt(b)));
    const __m256i products = weighted(samples, _mm256_unpacklo_epi16(halves, halves));
    // Taps 0 and 2 beside each other, and taps 1 and 3.
    return addPairs(_mm256_unpacklo_epi16(products, _mm256_unpackhi_epi64(products, products)));
}

/// Outputs a and b in the lower half, c and d in the upper one.
__m256i stereoSums(const std::int16_t* oldest, std::uint32_t a, std::uint32_t b, std::uint32_t c,
                   std::uint32_t d) {
    const __m256i first = stereoPairs(oldest, a, c);
    const __m256i second = stereoPairs(oldest, b, d);
    return _mm256_add_epi32(_mm256_unpacklo_epi64(first, second),
                            _mm256_unpackhi_epi64(first, second));
}

void resampleStereo(const SCubicRun& run, std::int16_t* target) {
    const std::int16_t* const oldest = run.frames - 6;
    const std::uint32_t step = run.step;
    std::uint32_t offset = run.subPosition;
    std::int32_t i = 0;
    for (; i + 8 <= run.count; i += 8, offset += 8 * step) {
        const __m256i first =
            stereoSums(oldest, offset, offset + step, offset + 4 * step, offset + 5 * step);
        const __m256i second = stereoSums(oldest, offset + 2 * step, offset + 3 * step,
                                          offset + 6 * step, offset + 7 * step);
        store(target + 2 * i, _mm256_packs_epi32(first, second));
    }
    portable::resampleStereo(laterPart(run, i, 2), target + 2 * i);
}

} // namespace

const SCubicKernels AVX2CubicKernels = {"AVX2", resampleMono, resampleStereo};

} // namespace sn_internal
