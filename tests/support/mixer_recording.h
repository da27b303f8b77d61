// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/engine_helpers.h"

#include <cstdint>
#include <string>
#include <vector>

namespace sn_test {

/// How a recording reaches the engine.
enum class EStorage {
    Pcm,         ///< raw samples; 8 or 16 bits
    DecodedWav,  ///< a WAV file in memory, decoded before it is played
    StreamedWav, ///< the same, read while it plays
};

/// Something to play, and the values that the mixer has to make of it.
struct SRecording {
    std::int32_t channels = 1;
    std::int32_t rate = 44100;
    std::int32_t bits = 16; ///< 8, 16 or 24
    EStorage storage = EStorage::Pcm;
    std::vector<std::int16_t> samples = {}; ///< as 16 bits; of 8 bits the low byte is 0

    std::int32_t frames() const { return static_cast<std::int32_t>(samples.size()) / channels; }
    /// The samples as they are stored. The third byte of 24 bits is no silence.
    Bytes bytes() const;
};

/// Noise over the whole range of values, the same for the same seed.
SRecording noise(SRecording shape, std::int32_t frames, std::uint32_t seed);

/// Mono, 44100 Hz: every sample has this value, or each is its own number 1, 2, 3, ...
SRecording constant(std::int16_t value, std::int32_t frames);
SRecording counting(std::int32_t frames);

/// Adds a recording under a new name and plays it, in space when there is a position.
Sound playRecording(sonimbra::ISoundEngine& engine, const SRecording& recording,
                    bool looped = false, const sonimbra::vec3df* position = nullptr);

} // namespace sn_test
