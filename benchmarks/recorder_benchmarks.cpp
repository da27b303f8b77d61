// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// What it costs to keep an hour of recorded audio, which comes in blocks of half a second.

#include "recording/CRecordedData.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace benchmarks {
namespace {

using Clock = std::chrono::steady_clock;

/// At 44100 Hz in stereo the bound comes before the hour is over.
void recordAnHour(benchmark::State& state) {
    const auto blockBytes = static_cast<std::uint32_t>(state.range(0) * state.range(1)); // of 0.5 s
    const std::vector<std::uint8_t> block(blockBytes, 1);
    Clock::duration longest{};
    std::uint32_t kept = 0;
    for (auto _ : state) {
        sn_internal::CRecordedData data;
        for (int i = 0; i < 7200; ++i) {
            const Clock::time_point start = Clock::now();
            data.append(block.data(), blockBytes);
            longest = std::max(longest, Clock::now() - start);
        }
        kept = data.size();
    }
    state.counters["kept_bytes"] = kept;
    state.counters["longest_block_ms"] = std::chrono::duration<double, std::milli>(longest).count();
    state.counters["time_per_block"] = benchmark::Counter(
        7200, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(recordAnHour)
    ->ArgNames({"rate", "channels"})
    ->Args({44100, 2})
    ->Args({22000, 1})
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace benchmarks
