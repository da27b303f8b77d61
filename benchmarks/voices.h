// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>

/// The voices that every mixer plays, so that their costs can be compared.
namespace benchmarks {

/// What every mixer puts out, in blocks of this size.
constexpr std::int32_t OutputRate = 44100;
constexpr std::int32_t BlockFrames = 256;

/// One voice among the others: each has values of its own, and none is a gain of one.
struct SVoice {
    float volume;            ///< 0.2 to 0.8
    float pan;               ///< -0.9 (left) to 0.9
    std::int32_t startFrame; ///< loops and refills come at other times for each
};

/// A benchmark's arguments.
struct SVoices {
    /// Reads voices, channels, source rate, and if there is a fourth the speed in percent.
    explicit SVoices(const benchmark::State& state, bool withSpeed = false)
        : count(static_cast<std::int32_t>(state.range(0))),
          channels(static_cast<std::int32_t>(state.range(1))),
          rate(static_cast<std::int32_t>(state.range(2))),
          speed(withSpeed ? 0.01f * static_cast<float>(state.range(3)) : 1.0f) {}

    SVoice get(std::int32_t i) const;

    std::int32_t count;
    std::int32_t channels;
    std::int32_t rate;
    float speed;
};

/// Counts microseconds for one voice and one second of output, when an iteration makes one block.
void reportVoiceCost(benchmark::State& state, const SVoices& voices);

/// The arguments of the comparison: all rates at normal speed, and 44100 Hz at 1.1 as well, because
/// at the output's own rate some mixers copy instead of resampling.
void compareVoices(benchmark::internal::Benchmark* benchmark);

/// The same for a mixer that cannot change the speed.
void compareVoicesAtNormalSpeed(benchmark::internal::Benchmark* benchmark);

} // namespace benchmarks
