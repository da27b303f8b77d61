// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "benchmarks/crowd.h"

#include <algorithm>
#include <random>

namespace benchmarks {

std::vector<std::string> makeNames(std::int64_t count, bool shuffled) {
    std::vector<std::string> names;
    for (std::int64_t i = 0; i < count; ++i) {
        names.push_back("sounds/effect_" + std::to_string(1000000 + i) + ".wav");
    }
    if (shuffled) {
        std::shuffle(names.begin(), names.end(), std::mt19937(1));
    }
    return names;
}

void addNames(sonimbra::ISoundEngine& engine, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        engine.addSoundSourceFromFile(name.c_str());
    }
}

SCrowd::SCrowd(std::int64_t count, bool is3D)
    : engine(makeEngine()),
      samples(makeSweep(2, OutputRate)),
      source(addSamples(*engine, "sweep", samples, 2, OutputRate)) {
    for (std::int64_t i = 0; i < count; ++i) {
        start(is3D, static_cast<float>(i));
    }
}

void SCrowd::start(bool is3D, float x) {
    if (is3D) {
        engine->play3D(source, sonimbra::vec3df(x, 0, 1), true);
    } else {
        engine->play2D(source, true);
    }
}

void reportItemCost(benchmark::State& state, std::int64_t items) {
    state.counters["ns_per_item"] = benchmark::Counter(
        static_cast<double>(items) / 1e9,
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

} // namespace benchmarks
