// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "benchmarks/voices.h"

namespace benchmarks {
namespace {

void addCases(benchmark::internal::Benchmark* benchmark, bool withFasterOnes) {
    benchmark->ArgNames({"voices", "channels", "rate", "speed"})->Unit(benchmark::kMicrosecond);
    for (const std::int64_t voices : {64, 256, 1024}) {
        for (const std::int64_t channels : {1, 2}) {
            benchmark->Args({voices, channels, 22050, 100});
            benchmark->Args({voices, channels, 44100, 100});
            if (withFasterOnes) {
                benchmark->Args({voices, channels, 44100, 110});
            }
        }
    }
}

} // namespace

SVoice SVoices::get(std::int32_t i) const {
    const float place = (static_cast<float>(i) + 0.5f) / static_cast<float>(count);
    return {0.2f + 0.6f * place, 1.8f * place - 0.9f, i * 7 % 1900};
}

void reportVoiceCost(benchmark::State& state, const SVoices& voices) {
    const double voiceSeconds = static_cast<double>(voices.count) * BlockFrames / OutputRate;
    state.counters["us_per_voice_second"] =
        benchmark::Counter(voiceSeconds / 1e6, benchmark::Counter::kIsIterationInvariantRate |
                                                   benchmark::Counter::kInvert);
}

void compareVoices(benchmark::internal::Benchmark* benchmark) {
    addCases(benchmark, true);
}

void compareVoicesAtNormalSpeed(benchmark::internal::Benchmark* benchmark) {
    addCases(benchmark, false);
}

} // namespace benchmarks
