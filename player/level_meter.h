// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>

#include <sonimbra/ISoundMixedOutputReceiver.h>

namespace player {

/// The largest absolute sample of a block, 0..32768.
inline std::int32_t peakOf(const std::int16_t* samples, std::size_t count) {
    std::int32_t peak = 0;
    for (std::size_t i = 0; i < count; ++i) {
        peak = std::max(peak, std::abs(std::int32_t{samples[i]}));
    }
    return peak;
}

/// Watches the mixed output: the engine's thread writes, the player's thread reads.
class LevelMeter : public sonimbra::ISoundMixedOutputReceiver {
public:
    void OnAudioDataReady(const void* data, std::int32_t byteCount, std::int32_t) override {
        const std::size_t samples = static_cast<std::size_t>(byteCount) / sizeof(std::int16_t);
        const std::int32_t peak = peakOf(static_cast<const std::int16_t*>(data), samples);
        Peak = std::max(Peak.load(), peak); // one writer; a reset in between costs one block
        Frames += samples / 2;
    }

    /// The peak since the last call.
    std::int32_t takePeak() { return Peak.exchange(0); }

    /// Frames that the engine has mixed so far.
    std::uint64_t frames() const { return Frames; }

private:
    std::atomic<std::int32_t> Peak{0};
    std::atomic<std::uint64_t> Frames{0};
};

} // namespace player
