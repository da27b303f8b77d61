// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sn_internal {

/// Outputs from the middle of a buffer of source frames, where every tap lies in the buffer.
///
/// An output at position p with sub-position s (16 bits of fraction) is the sum over its four taps,
/// the frames p - 3 to p, of (sample * factor) >> 14. The factors come from a table by the upper 10
/// bits of s. Each product is rounded down by itself; the sum is clipped to 16 bits. DUMB's cubic
/// resampler at a volume of one gives the same for samples of 16 bits: its own shifts (by 4, 12 and
/// 32) amount to these 14, and none of them overflows.
struct SCubicRun {
    const std::int16_t* frames; ///< the frame at the position, with three more in front of it
    std::uint32_t subPosition;  ///< 0..65535
    std::uint32_t step;         ///< from one output to the next, 16 bits of fraction
    std::int32_t count;         ///< outputs; the last one's position is in the buffer
};

/// The loops for one kind of processor. Each set gives the same samples.
struct SCubicKernels {
    const char* name;
    void (*resampleMono)(const SCubicRun& run, std::int16_t* target);
    void (*resampleStereo)(const SCubicRun& run, std::int16_t* target);
};

/// Plain C++, which defines what the others do. They leave the end of a run to it.
namespace portable {
void resampleMono(const SCubicRun& run, std::int16_t* target);
void resampleStereo(const SCubicRun& run, std::int16_t* target);
} // namespace portable

extern const SCubicKernels PortableCubicKernels;

/// What a program can choose from on this processor, the fastest first, ended by null. The portable
/// ones are always there.
const SCubicKernels* const* getCubicKernels();

/// The factors of the four taps, by the upper 10 bits of the sub-position.
struct SCubicFactors {
    std::int16_t tap[4];
};
extern const SCubicFactors* const CubicFactors;

/// A run without its first outputs.
SCubicRun laterPart(const SCubicRun& run, std::int32_t done, std::int32_t channels);

} // namespace sn_internal
