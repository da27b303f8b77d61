// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// SSE2, which every 64-bit x86 processor has.
//
// A product of two 16-bit numbers comes in two halves. Shifted right by 14 it fits 16 bits, because
// no factor is above 16384: it consists of the upper half's lower 14 bits and the lower half's
// upper 2 bits. Products rounded down one by one may then be added in pairs, as multiplications by
// one.

#include "streams/cubic_kernels_x86.h"

#include "core/processor.h"

#include <emmintrin.h>

namespace sn_internal {
namespace {

__m128i load(const void* source) {
    return _mm_loadu_si128(static_cast<const __m128i*>(source));
}

/// Four 16-bit numbers.
__m128i loadHalf(const void* source) {
    return _mm_loadl_epi64(static_cast<const __m128i*>(source));
}

void store(void* target, __m128i value) {
    _mm_storeu_si128(static_cast<__m128i*>(target), value);
}

void storeHalf(void* target, __m128i value) {
    _mm_storel_epi64(static_cast<__m128i*>(target), value);
}

const SCubicFactors* factorsAt(std::uint32_t offset) {
    return CubicFactors + (offset >> 6 & 1023);
}

/// (sample * factor) >> 14 in each of eight places.
__m128i weighted(__m128i samples, __m128i factors) {
    const __m128i upper = _mm_slli_epi16(_mm_mulhi_epi16(samples, factors), 2);
    const __m128i lower = _mm_srli_epi16(_mm_mullo_epi16(samples, factors), 14);
    return _mm_or_si128(upper, lower);
}

__m128i addPairs(__m128i weightedSamples) {
    return _mm_madd_epi16(weightedSamples, _mm_set1_epi16(1));
}

/// Four sums of two pairs each: the sums of the low halves, then those of the high halves.
__m128i addHalves(__m128i first, __m128i second) {
    const __m128 a = _mm_castsi128_ps(first);
    const __m128 b = _mm_castsi128_ps(second);
    return _mm_add_epi32(_mm_castps_si128(_mm_shuffle_ps(a, b, _MM_SHUFFLE(2, 0, 2, 0))),
                         _mm_castps_si128(_mm_shuffle_ps(a, b, _MM_SHUFFLE(3, 1, 3, 1))));
}

/// The pair sums of two mono outputs.
__m128i monoPairs(const std::int16_t* frames, std::uint32_t offset, std::uint32_t step) {
    const std::uint32_t next = offset + step;
    const __m128i samples = _mm_unpacklo_epi64(loadHalf(frames + (offset >> 16) - 3),
                                               loadHalf(frames + (next >> 16) - 3));
    const __m128i factors =
        _mm_unpacklo_epi64(loadHalf(factorsAt(offset)), loadHalf(factorsAt(next)));
    return addPairs(weighted(samples, factors));
}

void resampleMono(const SCubicRun& run, std::int16_t* target) {
    std::uint32_t offset = run.subPosition;
    std::int32_t i = 0;
    for (; i + 4 <= run.count; i += 4, offset += 4 * run.step) {
        const __m128i sums = addHalves(monoPairs(run.frames, offset, run.step),
                                       monoPairs(run.frames, offset + 2 * run.step, run.step));
        storeHalf(target + i, _mm_packs_epi32(sums, sums));
    }
    portable::resampleMono(laterPart(run, i, 1), target + i);
}

/// The pair sums of one stereo output: left, right, left, right.
__m128i stereoPairs(const std::int16_t* frames, std::uint32_t offset) {
    const __m128i half = loadHalf(factorsAt(offset));
    const __m128i products =
        weighted(load(frames + 2 * static_cast<std::ptrdiff_t>(offset >> 16) - 6),
                 _mm_unpacklo_epi16(half, half));
    // Taps 0 and 2 beside each other, and taps 1 and 3.
    return addPairs(_mm_unpacklo_epi16(products, _mm_unpackhi_epi64(products, products)));
}

/// Two stereo outputs.
__m128i stereoSums(const std::int16_t* frames, std::uint32_t offset, std::uint32_t step) {
    const __m128i first = stereoPairs(frames, offset);
    const __m128i second = stereoPairs(frames, offset + step);
    return _mm_add_epi32(_mm_unpacklo_epi64(first, second), _mm_unpackhi_epi64(first, second));
}

void resampleStereo(const SCubicRun& run, std::int16_t* target) {
    std::uint32_t offset = run.subPosition;
    std::int32_t i = 0;
    for (; i + 4 <= run.count; i += 4, offset += 4 * run.step) {
        const __m128i first = stereoSums(run.frames, offset, run.step);
        const __m128i second = stereoSums(run.frames, offset + 2 * run.step, run.step);
        store(target + 2 * i, _mm_packs_epi32(first, second));
    }
    portable::resampleStereo(laterPart(run, i, 2), target + 2 * i);
}

} // namespace

const SCubicKernels SSE2CubicKernels = {"SSE2", resampleMono, resampleStereo};

const SCubicKernels* const* getCubicKernels() {
    static const SCubicKernels* const all[] = {&AVX2CubicKernels, &SSE2CubicKernels,
                                               &PortableCubicKernels, nullptr};
    return hasAVX2() ? all : all + 1;
}

} // namespace sn_internal
