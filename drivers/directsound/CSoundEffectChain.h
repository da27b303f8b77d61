// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <array>
#include <cstddef>
#include <variant>

#include <dsound.h>

namespace sn_internal {

/// The parameter block of one of the effects; its type tells the effect.
using SoundEffectParameters =
    std::variant<DSFXChorus, DSFXCompressor, DSFXDistortion, DSFXEcho, DSFXFlanger, DSFXGargle,
                 DSFXI3DL2Reverb, DSFXParamEq, DSFXWavesReverb>;

struct SRunningSoundEffect {
    GUID effectClass;
    SoundEffectParameters parameters;
};

/// The effects of one sound, in the order in which they were enabled first. What it holds is what
/// was asked for: DirectSound may have refused it. Call it with the engine's lock held.
class CSoundEffectChain {
public:
    /// Adds the effect, or replaces its parameters; tells whether it was added.
    bool put(const SoundEffectParameters& parameters);

    /// Tells whether the effect was there.
    bool remove(REFGUID effectClass);
    void clear() { Count = 0; }
    bool holds(REFGUID effectClass) const;

    /// Puts exactly these effects into the path of a buffer, which must not be playing.
    void build(IDirectSoundBuffer8& buffer) const;

    /// Hands the parameters to their effect, where the buffer's path has it.
    static void push(IDirectSoundBuffer8& buffer, const SoundEffectParameters& parameters);

private:
    static constexpr std::size_t MaxCount = std::variant_size_v<SoundEffectParameters>;

    std::array<SRunningSoundEffect, MaxCount> Effects = {}; ///< at most one of each class
    std::size_t Count = 0;
};

} // namespace sn_internal
