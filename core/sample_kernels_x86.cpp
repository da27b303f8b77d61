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

void addTo(std::int32_t* sum, __m128i samples) {
    store(sum, _mm_add_epi32(load(sum), samples));
}

struct SAsTheyAre {
    __m128i left(__m128i samples) const { return samples; }
    __m128i right(__m128i samples) const { return samples; }
};

/// Products are limited (NaN to the upper limit: the minimum returns its second operand then), and
/// truncated.
struct SScaled {
    explicit SScaled(const SGains& gains)
        : leftGain(_mm_set1_ps(gains.left)), rightGain(_mm_set1_ps(gains.right)) {}
    __m128i left(__m128i samples) const { return scaled(samples, leftGain); }
    __m128i right(__m128i samples) const { return scaled(samples, rightGain); }

    static __m128i scaled(__m128i samples, __m128 gain) {
        const __m128 value = _mm_mul_ps(_mm_cvtepi32_ps(samples), gain);
        const __m128 low = _mm_min_ps(value, _mm_set1_ps(32767.0f));
        return _mm_cvttps_epi32(_mm_max_ps(low, _mm_set1_ps(-32768.0f)));
    }

    const __m128 leftGain;
    const __m128 rightGain;
};

/// Eight frames at a time, from frame i on; returns where it ends.
template <class TScale>
std::int32_t addMonoAll(const std::int16_t* frames, std::int32_t i, std::int32_t frameCount,
                        const TScale& scale, const SSums& sums) {
    for (; i + 8 <= frameCount; i += 8) {
        const __m128i samples = load(frames + i);
        addTo(sums.left + i, scale.left(lowerHalf(samples)));
        addTo(sums.right + i, scale.right(lowerHalf(samples)));
        addTo(sums.left + i + 4, scale.left(upperHalf(samples)));
        addTo(sums.right + i + 4, scale.right(upperHalf(samples)));
    }
    return i;
}

/// Four frames at a time. A frame is a 32-bit number with the right sample in its upper half.
template <class TScale>
std::int32_t addStereoAll(const std::int16_t* frames, std::int32_t i, std::int32_t frameCount,
                          const TScale& scale, const SSums& sums) {
    for (; i + 4 <= frameCount; i += 4) {
        const __m128i both = load(frames + 2 * i);
        addTo(sums.left + i, scale.left(_mm_srai_epi32(_mm_slli_epi32(both, 16), 16)));
        addTo(sums.right + i, scale.right(_mm_srai_epi32(both, 16)));
    }
    return i;
}

/// Whether the gain leaves any sample within 16 bits; NaN does not.
bool isDamping(float gain) {
    return gain >= -0.9999f && gain <= 1.0f;
}

const bool HasAVX2 = hasAVX2();

bool isForAVX2(const SGains* gains) {
    return HasAVX2 && (gains == nullptr || (isDamping(gains->left) && isDamping(gains->right)));
}

SSums laterPart(const SSums& sums, std::int32_t done) {
    return {sums.left + done, sums.right + done};
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

void scale(std::int16_t* frames, std::int32_t frameCount, const SGains& gains) {
    const SScaled scaled(gains);
    const __m128 factors = _mm_unpacklo_ps(scaled.leftGain, scaled.rightGain);
    std::int32_t i = 0;
    for (; i + 4 <= frameCount; i += 4) {
        const __m128i block = load(frames + 2 * i);
        store(frames + 2 * i, _mm_packs_epi32(SScaled::scaled(lowerHalf(block), factors),
                                              SScaled::scaled(upperHalf(block), factors)));
    }
    portable::scale(frames + 2 * i, frameCount - i, gains);
}

void addMono(const std::int16_t* frames, std::int32_t frameCount, const SGains* gains,
             const SSums& sums) {
    std::int32_t i = isForAVX2(gains) ? avx2::addMonoBlocks(frames, frameCount, gains, sums) : 0;
    if (i == frameCount) {
        return;
    }
    i = gains != nullptr ? addMonoAll(frames, i, frameCount, SScaled(*gains), sums)
                         : addMonoAll(frames, i, frameCount, SAsTheyAre(), sums);
    portable::addMono(frames + i, frameCount - i, gains, laterPart(sums, i));
}

void addStereo(const std::int16_t* frames, std::int32_t frameCount, const SGains* gains,
               const SSums& sums) {
    std::int32_t i = isForAVX2(gains) ? avx2::addStereoBlocks(frames, frameCount, gains, sums) : 0;
    if (i == frameCount) {
        return;
    }
    i = gains != nullptr ? addStereoAll(frames, i, frameCount, SScaled(*gains), sums)
                         : addStereoAll(frames, i, frameCount, SAsTheyAre(), sums);
    portable::addStereo(frames + 2 * i, frameCount - i, gains, laterPart(sums, i));
}

} // namespace sn_internal
