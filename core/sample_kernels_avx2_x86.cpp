// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// This file is compiled for processors with AVX2: nothing inline from elsewhere may be compiled
// here, because the linker could choose it for everybody.

#include "core/sample_kernels_x86.h"

#include <immintrin.h>

namespace sn_internal::avx2 {
namespace {

__m256i load(const std::int16_t* samples) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(samples));
}

/// Eight samples as 32 bits.
__m256i loadWidened(const std::int16_t* samples) {
    return _mm256_cvtepi16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(samples)));
}

void addTo(std::int32_t* sum, __m256i samples) {
    auto* const at = reinterpret_cast<__m256i*>(sum);
    _mm256_storeu_si256(at, _mm256_add_epi32(_mm256_loadu_si256(at), samples));
}

struct SAsTheyAre {
    explicit SAsTheyAre(const SGains*) {}
    __m256i left(__m256i samples) const { return samples; }
    __m256i right(__m256i samples) const { return samples; }
};

struct SScaled {
    explicit SScaled(const SGains* gains)
        : leftGain(_mm256_set1_ps(gains->left)), rightGain(_mm256_set1_ps(gains->right)) {}
    __m256i left(__m256i samples) const { return scaled(samples, leftGain); }
    __m256i right(__m256i samples) const { return scaled(samples, rightGain); }

    static __m256i scaled(__m256i samples, __m256 gain) {
        return _mm256_cvttps_epi32(_mm256_mul_ps(_mm256_cvtepi32_ps(samples), gain));
    }

    const __m256 leftGain;
    const __m256 rightGain;
};

template <class TScale>
void addMono8(const std::int16_t* frames, const TScale& scale, std::int32_t* left,
              std::int32_t* right) {
    const __m256i samples = loadWidened(frames);
    addTo(left, scale.left(samples));
    addTo(right, scale.right(samples));
}

/// A frame is a 32-bit number with the right sample in its upper half.
template <class TScale>
void addStereo8(const std::int16_t* frames, const TScale& scale, std::int32_t* left,
                std::int32_t* right) {
    const __m256i both = load(frames);
    addTo(left, scale.left(_mm256_srai_epi32(_mm256_slli_epi32(both, 16), 16)));
    addTo(right, scale.right(_mm256_srai_epi32(both, 16)));
}

template <class TScale>
std::int32_t addMonoAll(const std::int16_t* frames, std::int32_t frameCount, const SGains* gains,
                        const SSums& sums) {
    const TScale scale(gains);
    std::int32_t* const left = sums.left;
    std::int32_t* const right = sums.right;
    std::int32_t i = 0;
    for (; i + 16 <= frameCount; i += 16) {
        addMono8(frames + i, scale, left + i, right + i);
        addMono8(frames + i + 8, scale, left + i + 8, right + i + 8);
    }
    return i;
}

template <class TScale>
std::int32_t addStereoAll(const std::int16_t* frames, std::int32_t frameCount, const SGains* gains,
                          const SSums& sums) {
    const TScale scale(gains);
    std::int32_t* const left = sums.left;
    std::int32_t* const right = sums.right;
    std::int32_t i = 0;
    for (; i + 16 <= frameCount; i += 16) {
        addStereo8(frames + 2 * i, scale, left + i, right + i);
        addStereo8(frames + 2 * i + 16, scale, left + i + 8, right + i + 8);
    }
    return i;
}

} // namespace

std::int32_t addMonoBlocks(const std::int16_t* frames, std::int32_t frameCount, const SGains* gains,
                           const SSums& sums) {
    return gains != nullptr ? addMonoAll<SScaled>(frames, frameCount, gains, sums)
                            : addMonoAll<SAsTheyAre>(frames, frameCount, gains, sums);
}

std::int32_t addStereoBlocks(const std::int16_t* frames, std::int32_t frameCount,
                             const SGains* gains, const SSums& sums) {
    return gains != nullptr ? addStereoAll<SScaled>(frames, frameCount, gains, sums)
                            : addStereoAll<SAsTheyAre>(frames, frameCount, gains, sums);
}

} // namespace sn_internal::avx2
