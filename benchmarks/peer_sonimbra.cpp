// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// The library's own rows in the comparison with other mixers: one for each set of kernels.

#include "benchmarks/kernels.h"
#include "benchmarks/tone.h"
#include "benchmarks/voices.h"

namespace benchmarks {
namespace {

void mixBySonimbra(benchmark::State& state, const std::string& kernels) {
    const CKernelChoice choice(kernels);
    const SVoices voices(state, true);
    const auto engine = makeEngine();
    auto samples = makeSweep(voices.channels, voices.rate);
    sonimbra::ISoundSource* source =
        addSamples(*engine, "sweep", samples, voices.channels, voices.rate);
    for (std::int32_t i = 0; i < voices.count; ++i) {
        startVoice(*engine, source, voices, i);
    }
    std::int16_t target[2 * BlockFrames];
    for (auto _ : state) {
        engine->renderFrames(target, BlockFrames);
        benchmark::DoNotOptimize(target);
    }
    reportVoiceCost(state, voices);
}

[[maybe_unused]] const bool Registered = [] {
    for (const std::string& name : getKernelNames()) {
        benchmark::RegisterBenchmark(("peers/Sonimbra_" + name).c_str(), mixBySonimbra, name)
            ->Apply(compareVoices);
    }
    return true;
}();

} // namespace
} // namespace benchmarks
