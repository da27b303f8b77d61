// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "benchmarks/tone.h"

#include <benchmark/benchmark.h>

/// Many sources, and many sounds at once.
namespace benchmarks {

/// File names as a game might have them, in order or not.
std::vector<std::string> makeNames(std::int64_t count, bool shuffled);

/// Adds every name as a file source; no file is looked at.
void addNames(sonimbra::ISoundEngine& engine, const std::vector<std::string>& names);

/// An engine with looping sounds of one cached source.
struct SCrowd {
    SCrowd(std::int64_t count, bool is3D);

    void start(bool is3D, float x);

    TOwned<sonimbra::IOfflineSoundEngine> engine;
    std::vector<std::int16_t> samples;
    sonimbra::ISoundSource* source;
};

/// Counts nanoseconds for one item, when an iteration works on so many of them.
void reportItemCost(benchmark::State& state, std::int64_t items);

} // namespace benchmarks
