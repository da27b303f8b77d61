// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "engine/CSonimbraSound.h"
#include "engine/CSonimbraSoundEngine.h"

#include <string>
#include <vector>

namespace sn_test {

/// What a sound was told about the listener.
struct SListenerRelation {
    float globalVolume;
    sonimbra::vec3df position;
    sonimbra::vec3df lookDirection;
    sonimbra::vec3df upVector;
    bool linearRolloff;
    float rolloffFactor;

    bool operator==(const SListenerRelation&) const = default;
};

/// A sound without playback: keeps what its hooks were told, in order, and ends when a test wants
/// it to. It has the software drivers' volume and pan.
class CScriptedSound : public sn_internal::CSonimbraSound {
public:
    CScriptedSound(const sn_internal::CEngineLinkPtr& link,
                   sn_internal::CSonimbraSoundSource* source, bool looped, float minDistance,
                   float maxDistance);
    ~CScriptedSound() override { --alive; }

    void updateListenerRelation(float globalVolume, const sonimbra::vec3df& listenerPosition,
                                const sonimbra::vec3df& listenerLookDirection,
                                const sonimbra::vec3df& listenerUpVector, bool linearRolloff,
                                float rolloffFactor) override;
    void stopBuffer() override { calls += "stop "; }
    void playBuffer() override { calls += "play "; }
    void releaseBuffer() override;
    bool isBufferFinished() override { return finished; }
    void setBufferPan(float pan) override { bufferPan = pan; }
    void setBufferVolume(float volume) override { bufferVolume = volume; }

    std::string calls;
    SListenerRelation relation = {};
    float bufferPan = 99.0f;
    float bufferVolume = 99.0f;
    bool finished = false;

    /// How many of these exist: back at its old value when nothing was leaked.
    static std::int32_t alive;
};

/// What the driver was asked for.
struct SDriverRequest {
    sonimbra::ISoundSource* source;
    bool isStream;
    std::int32_t frames; ///< in memory, or as the stream says
    bool looped;
    bool is3D;
    bool enableSoundEffects;
    float minDistance;
    float maxDistance;

    bool operator==(const SDriverRequest&) const = default;
};

/// The engine's common base with a driver that writes down what it is told.
class CScriptedEngine final : public sn_internal::CSonimbraSoundEngine {
public:
    CScriptedEngine(sn_internal::io::IFileSystem* fileSystem, int options)
        : CSonimbraSoundEngine(fileSystem, options) {}
    ~CScriptedEngine() override { stopEngineThread(); }

    sonimbra::ISound* createDriverSound(sn_internal::CSonimbraBufferedSamples* samples,
                                        sonimbra::ISoundSource* source, bool looped, bool is3D,
                                        float minDistance, float maxDistance,
                                        bool enableSoundEffects) override;
    sonimbra::ISound* createDriverStream(sonimbra::IAudioStream* stream,
                                         sonimbra::ISoundSource* source, bool looped, bool is3D,
                                         float minDistance, float maxDistance,
                                         bool enableSoundEffects) override;
    void onSourceRemoved(sonimbra::ISoundSource* source) override;

    bool makesSounds = true;
    std::vector<SDriverRequest> requests;
    std::vector<CScriptedSound*> sounds; ///< all that were made; some may be gone
    std::string removedSources;          ///< their names

private:
    sonimbra::ISound* make(const SDriverRequest& request);
};

using ScriptedEngine = sn_internal::counted_ptr<CScriptedEngine>;

/// A multi-threaded one has no thread, so that it is seen what happens without one.
ScriptedEngine scriptedEngine(int options = 0);

} // namespace sn_test
