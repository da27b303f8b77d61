// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// SSE2, which every 64-bit x86 processor has. Compilers do not find the saturating pack by
// themselves: it takes the place of comparing, selecting and narrowing. Each function hands what is
// left of a block to its portable twin.

#include "core/sample_kernels_x86.h"

#include "core/processor.h"

#include <emmintrin.h>

namespace sn_internal {
namespace {

__m128i load(const void* source) {
    return _mm_loadu_si128(static_cast<const __m128i*>(source));
}

void store(void* target, __m128i value) {
    _mm_storeu_si128(static_cast<__m128i*>(target), value);
}

/// The lower and upper four of eight samples, as 32 bits.
__m128i lowerHalf(__m128i samples) {
    return _mm_srai_epi32(_mm_unpacklo_epi16(samples, samples), 16);
}
__m128i upperHalf(__m128i samples) {
    return _mm_srai_epi32(_mm_unpackhi_epi16(samples, samples), 16);
}

/// Products truncated to 32 bits. Where they fit, the saturating pack limits them to 16.
struct SFittingScale {
    static __m128i apply(__m128i samples, __m128 gains) {
        return _mm_cvttps_epi32(_mm_mul_ps(_mm_cvtepi32_ps(samples), gains));
    }
};

/// Where they may not, they are limited first (NaN to the upper limit: the minimum returns its
/// second operand then).
struct SLimitedScale {
    static __m128i apply(__m128i samples, __m128 gains) {
        const __m128 value = _mm_mul_ps(_mm_cvtepi32_ps(samples), gains);
        const __m128 low = _mm_min_ps(value, _mm_set1_ps(32767.0f));
        return _mm_cvttps_epi32(_mm_max_ps(low, _mm_set1_ps(-32768.0f)));
    }
};

template <class Scale>
std::int32_t scaleBlocks(std::int16_t* samples, std::int32_t frameCount, const SGains& gains) {
    const __m128 factors = _mm_setr_ps(gains.left, gains.right, gains.left, gains.right);
    std::int32_t i = 0;
    for (; i + 4 <= frameCount; i += 4) {
        const __m128i block = load(samples + 2 * i);
        store(samples + 2 * i, _mm_packs_epi32(Scale::apply(lowerHalf(block), factors),
                                               Scale::apply(upperHalf(block), factors)));
    }
    return i;
}

/// Whether any sample's product fits 32 bits; NaN does not.
bool isModerate(float gain) {
    return gain >= -60000.0f && gain <= 60000.0f;
}

/// Whether it fits 16 bits even.
bool isDamping(float gain) {
    return gain >= -0.9999f && gain <= 1.0f;
}

const bool HasAVX2 = hasAVX2();

bool isForAVX2(const SGains& gains) {
    return HasAVX2 && isDamping(gains.left) && isDamping(gains.right);
}

} // namespace

void interleave(const std::int32_t* left, const std::int32_t* right, std::int32_t frameCount,
                std::int16_t* target) {
    std::int32_t i = 0;
    for (; i + 4 <= frameCount; i += 4) {
        const __m128i packed = _mm_packs_epi32(load(left + i), load(right + i));
        store(target + 2 * i, _mm_unpacklo_epi16(packed, _mm_unpackhi_epi64(packed, packed)));
    }
    portable::interleave(left + i, right + i, frameCount - i, target + 2 * i);
}

void narrow(const std::int32_t* mono, std::int32_t frameCount, std::int16_t* target) {
    std::int32_t i = 0;
    for (; i + 8 <= frameCount; i += 8) {
        store(target + i, _mm_packs_epi32(load(mono + i), load(mono + i + 4)));
    }
    portable::narrow(mono + i, frameCount - i, target + i);
}

void spread(const std::int16_t* mono, std::int32_t frameCount, std::int16_t* target) {
    std::int32_t i = 0;
    for (; i + 8 <= frameCount; i += 8) {
        const __m128i samples = load(mono + i);
        store(target + 2 * i, _mm_unpacklo_epi16(samples, samples));
        store(target + 2 * i + 8, _mm_unpackhi_epi16(samples, samples));
    }
    portable::spread(mono + i, frameCount - i, target + 2 * i);
}

void scale(std::int16_t* samples, std::int32_t frameCount, const SGains& gains) {
    const std::int32_t i = isModerate(gains.left) && isModerate(gains.right)
                               ? scaleBlocks<SFittingScale>(samples, frameCount, gains)
                               : scaleBlocks<SLimitedScale>(samples, frameCount, gains);
    portable::scale(samples + 2 * i, frameCount - i, gains);
}

void accumulate(const std::int16_t* samples, std::int32_t frameCount, std::int32_t* sum) {
    std::int32_t i = HasAVX2 ? avx2::accumulateBlocks(samples, frameCount, sum) : 0;
    for (; i + 4 <= frameCount; i += 4) {
        const __m128i block = load(samples + 2 * i);
        std::int32_t* at = sum + 2 * i;
        store(at, _mm_add_epi32(load(at), lowerHalf(block)));
        store(at + 4, _mm_add_epi32(load(at + 4), upperHalf(block)));
    }
    portable::accumulate(samples + 2 * i, frameCount - i, sum + 2 * i);
}

void scaleAndAccumulate(std::int16_t* samples, std::int32_t frameCount, const SGains& gains,
                        std::int32_t* sum) {
    const std::int32_t i =
        isForAVX2(gains) ? avx2::dampAndAccumulateBlocks(samples, frameCount, gains, sum) : 0;
    scale(samples + 2 * i, frameCount - i, gains);
    accumulate(samples + 2 * i, frameCount - i, sum + 2 * i);
}

void spreadScaleAndAccumulate(const std::int16_t* mono, std::int16_t* target,
                              std::int32_t frameCount, const SGains& gains, std::int32_t* sum) {
    const std::int32_t i =
        isForAVX2(gains) ? avx2::spreadDampAndAccumulateBlocks(mono, target, frameCount, gains, sum)
                         : 0;
    spread(mono + i, frameCount - i, target + 2 * i);
    scaleAndAccumulate(target + 2 * i, frameCount - i, gains, sum + 2 * i);
}

void clip(const std::int32_t* sum, std::int32_t frameCount, std::int16_t* target) {
    std::int32_t i = 0;
    for (; i + 4 <= frameCount; i += 4) {
        const std::int32_t* at = sum + 2 * i;
        store(target + 2 * i, _mm_packs_epi32(load(at), load(at + 4)));
    }
    portable::clip(sum + 2 * i, frameCount - i, target + 2 * i);
}

} // namespace sn_internal
