// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/counted_ptr.h"
#include "tests/support/wav.h"

#include <sonimbra/sonimbra.h>

#include <functional>
#include <string>
#include <vector>

namespace sn_test {

using Engine = sn_internal::counted_ptr<sonimbra::ISoundEngine>;
using OfflineEngine = sn_internal::counted_ptr<sonimbra::IOfflineSoundEngine>;
using Source = sn_internal::counted_ptr<sonimbra::ISoundSource>;
using Sound = sn_internal::counted_ptr<sonimbra::ISound>;

Engine nullEngine(int options = 0);
OfflineEngine offlineEngine(int options = 0);

/// Interleaved stereo; shorter when the engine did not render all that was asked.
std::vector<std::int16_t> rendered(sonimbra::IOfflineSoundEngine& engine, std::int32_t frames);

/// Registers frames of a square wave (44100 Hz, mono, 16 bit), copied.
sonimbra::ISoundSource* addSquareWave(sonimbra::ISoundEngine& engine, const char* name,
                                      std::int32_t frames);

/// Plays a source and keeps the sound.
Sound playTracked(sonimbra::ISoundEngine& engine, sonimbra::ISoundSource* source,
                  bool looped = false);

/// Keeps the stop events that it receives; an action may then do anything to the engine.
class CStopEvents : public sonimbra::ISoundStopEventReceiver {
public:
    struct SEvent {
        sonimbra::ISound* sound;
        sonimbra::E_STOP_EVENT_CAUSE cause;
        void* userData;
    };

    void OnSoundStopped(sonimbra::ISound* sound, sonimbra::E_STOP_EVENT_CAUSE cause,
                        void* userData) override;

    /// The causes as digits, in the order of arrival.
    std::string causes() const;

    std::vector<SEvent> events;
    std::function<void(sonimbra::ISound*)> action;
};

/// Opens one file and writes every question into a journal.
class CScriptedFactory : public sonimbra::IFileFactory {
public:
    CScriptedFactory(std::string name, Bytes bytes)
        : Name(std::move(name)), Content(std::move(bytes)) {}
    sonimbra::IFileReader* createFileReader(const char* filename) override;

    std::vector<std::string> journal;

private:
    const std::string Name;
    const Bytes Content;
};

/// Accepts names that end in its extension, and opens files by a function.
class CScriptedLoader : public sonimbra::IAudioStreamLoader {
public:
    using Open = std::function<sonimbra::IAudioStream*(sonimbra::IFileReader&)>;

    CScriptedLoader(std::string extension, Open open)
        : Extension(std::move(extension)), OpenFile(std::move(open)) {}
    bool isALoadableFileExtension(const char* fileName) override;
    sonimbra::IAudioStream* createAudioStream(sonimbra::IFileReader* file) override {
        return OpenFile(*file);
    }

    std::vector<std::string> names; ///< that it was asked about

private:
    const std::string Extension;
    const Open OpenFile;
};

/// Both belong to the engine.
CScriptedLoader* addLoader(sonimbra::ISoundEngine& engine, const char* extension,
                           CScriptedLoader::Open open);
CScriptedFactory* addFactory(sonimbra::ISoundEngine& engine, const std::string& name, Bytes bytes);

} // namespace sn_test
