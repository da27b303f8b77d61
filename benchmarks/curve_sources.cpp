// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// How the cost of a source goes with the number of registered ones.

#include "benchmarks/crowd.h"

#include <algorithm>

namespace benchmarks {
namespace {

using sonimbra::ISoundSource;

/// With few sources a round takes several engines: a round of one could not be measured.
std::vector<TOwned<sonimbra::IOfflineSoundEngine>> makeEngines(std::int64_t sourceCount) {
    std::vector<TOwned<sonimbra::IOfflineSoundEngine>> engines;
    for (std::int64_t i = 0; i < std::max<std::int64_t>(1, 1000 / sourceCount); ++i) {
        engines.push_back(makeEngine());
    }
    return engines;
}

std::int64_t sourcesInARound(std::int64_t sourceCount) {
    return std::max<std::int64_t>(1, 1000 / sourceCount) * sourceCount;
}

/// Calls prepare(engine) unmeasured and work(engine) measured for each engine of a round.
template <class TPrepare, class TWork>
void measureRounds(benchmark::State& state, TPrepare prepare, TWork work) {
    for (auto _ : state) {
        state.PauseTiming();
        auto engines = makeEngines(state.range(0));
        for (const auto& engine : engines) {
            prepare(*engine);
        }
        state.ResumeTiming();
        for (const auto& engine : engines) {
            work(*engine);
        }
        state.PauseTiming();
        engines.clear();
        state.ResumeTiming();
    }
    reportItemCost(state, sourcesInARound(state.range(0)));
}

void addSources(benchmark::State& state) {
    const auto names = makeNames(state.range(0), true);
    measureRounds(
        state, [](auto&) {}, [&](auto& engine) { addNames(engine, names); });
}

/// The first question for the order of the names sorts them.
void listSources(benchmark::State& state) {
    const auto names = makeNames(state.range(0), true);
    measureRounds(
        state, [&](auto& engine) { addNames(engine, names); },
        [](auto& engine) {
            for (std::int32_t i = 0; i < engine.getSoundSourceCount(); ++i) {
                benchmark::DoNotOptimize(engine.getSoundSource(i));
            }
        });
}

void removeAllSources(benchmark::State& state) {
    const auto names = makeNames(state.range(0), true);
    measureRounds(
        state, [&](auto& engine) { addNames(engine, names); },
        [](auto& engine) { engine.removeAllSoundSources(); });
}

void lookUpSources(benchmark::State& state) {
    const auto names = makeNames(state.range(0), true);
    const auto engine = makeEngine();
    addNames(*engine, names);
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine->getSoundSource(names[next].c_str(), false));
        next = next + 1 == names.size() ? 0 : next + 1;
    }
    reportItemCost(state, 1);
}

/// One of many goes and comes again.
void replaceSources(benchmark::State& state) {
    const auto names = makeNames(state.range(0), true);
    const auto engine = makeEngine();
    addNames(*engine, names);
    std::size_t next = 0;
    for (auto _ : state) {
        engine->removeSoundSource(names[next].c_str());
        engine->addSoundSourceFromFile(names[next].c_str());
        next = next + 1 == names.size() ? 0 : next + 1;
    }
    reportItemCost(state, 1);
}

void curveOfSources(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("n")->RangeMultiplier(10)->Range(1, 100000);
}

BENCHMARK(addSources)->Name("curve/sources/add")->Apply(curveOfSources);
BENCHMARK(listSources)->Name("curve/sources/list")->Apply(curveOfSources);
BENCHMARK(lookUpSources)->Name("curve/sources/look_up")->Apply(curveOfSources);
BENCHMARK(replaceSources)->Name("curve/sources/replace")->Apply(curveOfSources);
BENCHMARK(removeAllSources)->Name("curve/sources/remove_all")->Apply(curveOfSources);

} // namespace
} // namespace benchmarks
