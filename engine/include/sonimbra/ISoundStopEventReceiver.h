// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sonimbra {

class ISound;

/// Why a sound ended.
enum class E_STOP_EVENT_CAUSE : std::int32_t {
    SoundFinishedPlaying = 0,        ///< it reached its end (or stopAllSounds was called)
    SoundStoppedByUser = 1,          ///< ISound::stop was called
    SoundStoppedBySourceRemoval = 2, ///< its source, or the engine, was removed
};

/// Told once when a sound has ended; set it with ISound::setSoundStopEventReceiver.
class ISoundStopEventReceiver {
public:
    virtual ~ISoundStopEventReceiver() {}

    /// Called with the engine's lock held: on the thread that is inside stopAllSounds(), the
    /// removal of a source, or the engine's end; for sounds that end by themselves or by
    /// ISound::stop on the engine's thread when the engine is multi-threaded, else on the thread
    /// that is inside update(), setSoundVolume() or renderFrames(). Every operation of engine,
    /// sounds and sources may be called from here, dropping the sound included; only the engine's
    /// last reference must not be dropped here.
    virtual void OnSoundStopped(ISound* sound, E_STOP_EVENT_CAUSE cause, void* userData) = 0;
};

} // namespace sonimbra
