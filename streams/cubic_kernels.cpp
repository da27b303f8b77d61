// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/cubic_kernels.h"

#include <algorithm>
#include <array>

namespace sn_internal {
namespace {

constexpr std::int32_t FactorCount = 1024;

/// The outer taps' factor: -t^3/2 + t^2 - t/2 in steps of 1/1024, with 14 bits of fraction. Each
/// power is rounded by itself; the squares and cubes fit 32 bits without a sign.
constexpr std::int32_t outerFactor(std::uint32_t t) {
    return -static_cast<std::int32_t>(t * t * t >> 17) + static_cast<std::int32_t>(t * t >> 6) -
           static_cast<std::int32_t>(t << 3);
}

/// The inner taps' factor: 3t^3/2 - 5t^2/2 + 1.
constexpr std::int32_t innerFactor(std::uint32_t t) {
    return static_cast<std::int32_t>(3 * t * t * t >> 17) -
           static_cast<std::int32_t>(5 * t * t >> 7) + (1 << 14);
}

/// The later two taps see the curve from the other side.
constexpr std::array<SCubicFactors, FactorCount> makeFactors() {
    std::array<SCubicFactors, FactorCount> table = {};
    for (std::uint32_t t = 0; t < FactorCount; ++t) {
        const std::int32_t factors[] = {outerFactor(t), innerFactor(t),
                                        innerFactor(FactorCount - t), outerFactor(FactorCount - t)};
        for (std::size_t i = 0; i < 4; ++i) {
            table[t].tap[i] = static_cast<std::int16_t>(factors[i]);
        }
    }
    return table;
}

alignas(64) constexpr std::array<SCubicFactors, FactorCount> Factors = makeFactors();

/// Rounded down: a shift of a negative number is an arithmetic one.
std::int32_t weighted(std::int16_t sample, std::int16_t factor) {
    return sample * factor >> 14;
}

std::int16_t interpolated(const std::int16_t* newest, std::int32_t channels,
                          const SCubicFactors& factors) {
    const std::int32_t sum = weighted(newest[-3 * channels], factors.tap[0]) +
                             weighted(newest[-2 * channels], factors.tap[1]) +
                             weighted(newest[-channels], factors.tap[2]) +
                             weighted(newest[0], factors.tap[3]);
    return static_cast<std::int16_t>(std::clamp(sum, -32768, 32767));
}

} // namespace

const SCubicFactors* const CubicFactors = Factors.data();

namespace portable {

void resampleMono(const SCubicRun& run, std::int16_t* target) {
    std::uint32_t offset = run.subPosition;
    for (std::int32_t i = 0; i < run.count; ++i, offset += run.step) {
        target[i] = interpolated(run.frames + (offset >> 16), 1, Factors[offset >> 6 & 1023]);
    }
}

void resampleStereo(const SCubicRun& run, std::int16_t* target) {
    std::uint32_t offset = run.subPosition;
    for (std::int32_t i = 0; i < run.count; ++i, offset += run.step) {
        const std::int16_t* const frame = run.frames + 2 * (offset >> 16);
        const SCubicFactors& factors = Factors[offset >> 6 & 1023];
        target[2 * i] = interpolated(frame, 2, factors);
        target[2 * i + 1] = interpolated(frame + 1, 2, factors);
    }
}

} // namespace portable

const SCubicKernels PortableCubicKernels = {"portable", portable::resampleMono,
                                            portable::resampleStereo};

SCubicRun laterPart(const SCubicRun& run, std::int32_t done, std::int32_t channels) {
    const std::uint32_t offset = run.subPosition + static_cast<std::uint32_t>(done) * run.step;
    return {run.frames + channels * static_cast<std::int32_t>(offset >> 16), offset & 0xffff,
            run.step, run.count - done};
}

} // namespace sn_internal
