// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// What the engine costs beside mixing: the registry, starting sounds, the update cycle, and the
// memory of a playing sound.

#include "benchmarks/crowd.h"

#include <malloc.h>

namespace benchmarks {
namespace {

/// Adding every name as a file source, and asking once for the order.
void addSources(benchmark::State& state) {
    const auto names = makeNames(state.range(0), state.range(1) != 0);
    for (auto _ : state) {
        const auto engine = makeEngine();
        addNames(*engine, names);
        benchmark::DoNotOptimize(engine->getSoundSource(0));
    }
}
BENCHMARK(addSources)
    ->ArgNames({"sources", "shuffled"})
    ->ArgsProduct({{1000, 10000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

void lookUpSource(benchmark::State& state) {
    const auto names = makeNames(state.range(0), true);
    const auto engine = makeEngine();
    addNames(*engine, names);
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine->getSoundSource(names[next].c_str(), false));
        next = next + 1 == names.size() ? 0 : next + 1;
    }
}
BENCHMARK(lookUpSource)->ArgName("sources")->Arg(100)->Arg(10000);

void startSound(benchmark::State& state) {
    const SCrowd crowd(state.range(0), false);
    for (auto _ : state) {
        const TOwned<sonimbra::ISound> sound(crowd.engine->play2D(crowd.source, true, false, true));
        state.PauseTiming();
        sound->stop();
        crowd.engine->update();
        state.ResumeTiming();
    }
}
BENCHMARK(startSound)->ArgName("playing")->Arg(0)->Arg(1000)->Iterations(2000);

/// The cycle without mixing: 3D relations, reaping, events.
void updateCycle(benchmark::State& state) {
    const SCrowd crowd(state.range(0), state.range(1) != 0);
    for (auto _ : state) {
        crowd.engine->update();
    }
}
BENCHMARK(updateCycle)
    ->ArgNames({"playing", "is3D"})
    ->ArgsProduct({{1000, 10000}, {0, 1}})
    ->Unit(benchmark::kMicrosecond);

/// Heap memory of playing sounds beyond their source.
void soundMemory(benchmark::State& state) {
    const std::int64_t count = 1000;
    for (auto _ : state) {
        SCrowd crowd(0, false);
        const auto before = mallinfo2().uordblks;
        for (std::int64_t i = 0; i < count; ++i) {
            crowd.start(false, 0);
        }
        state.counters["bytes_per_sound"] =
            static_cast<double>(mallinfo2().uordblks - before) / count;
    }
}
BENCHMARK(soundMemory)->Iterations(1);

} // namespace
} // namespace benchmarks
