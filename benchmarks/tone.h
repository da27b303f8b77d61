// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "benchmarks/voices.h"

#include <sonimbra/sonimbra.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace benchmarks {

struct SDrop {
    template <class T>
    void operator()(T* object) const {
        object->drop();
    }
};
template <class T>
using TOwned = std::unique_ptr<T, SDrop>;

/// Interleaved 16-bit samples that use the whole range: two seconds of a sweep.
std::vector<std::int16_t> makeSweep(std::int32_t channelCount, std::int32_t sampleRate);

sonimbra::SAudioStreamFormat formatOf(const std::vector<std::int16_t>& samples,
                                      std::int32_t channelCount, std::int32_t sampleRate);

/// A silent-logging offline engine.
TOwned<sonimbra::IOfflineSoundEngine> makeEngine();

/// Registers the samples under a name.
sonimbra::ISoundSource* addSamples(sonimbra::ISoundEngine& engine, const char* name,
                                   std::vector<std::int16_t>& samples, std::int32_t channelCount,
                                   std::int32_t sampleRate);

/// Plays these voices, each looped and with values of its own; returns the engine.
TOwned<sonimbra::IOfflineSoundEngine> playVoices(const SVoices& voices);

/// Measures the mixing of these voices.
void mixVoices(benchmark::State& state, const SVoices& voices);

} // namespace benchmarks
