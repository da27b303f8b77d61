// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "engine/CSonimbraSoundEngine.h"

namespace sn_internal {

class CSonimbraBufferedSamplesAudioStream;

class CSonimbraSoftwareSound;

/// An engine that mixes all sounds itself into one 16-bit stereo stream, for an output back end
/// that derives from it.
class CSonimbraSoftwareSoundEngine : public CSonimbraSoundEngine {
public:
    bool setMixedDataOutputReceiver(sonimbra::ISoundMixedOutputReceiver* receiver) override;
    sonimbra::ISound* createDriverSound(CSonimbraBufferedSamples* samples,
                                        sonimbra::ISoundSource* source, bool looped, bool is3D,
                                        float minDistance, float maxDistance,
                                        bool enableSoundEffects) override;
    sonimbra::ISound* createDriverStream(sonimbra::IAudioStream* stream,
                                         sonimbra::ISoundSource* source, bool looped, bool is3D,
                                         float minDistance, float maxDistance,
                                         bool enableSoundEffects) override;

protected:
    /// Frames of one output buffer: what back ends mix and queue at a time.
    static constexpr std::int32_t OutputBufferFrames = 256;
    static constexpr std::int32_t OutputChannels = 2;

    using CSonimbraSoundEngine::CSonimbraSoundEngine;

    /// Frames a second.
    virtual std::int32_t getOutputRate() const { return 44100; }

    /// Mixes frameCount frames into target and tells the receiver. The caller holds the lock.
    /// Nothing is allocated.
    void mix(std::int16_t* target, std::int32_t frameCount);

private:
    sonimbra::ISound* createSound(sonimbra::IAudioStream* stream,
                                  CSonimbraBufferedSamplesAudioStream* samples,
                                  sonimbra::ISoundSource* source, bool looped, float minDistance,
                                  float maxDistance);
    bool hasActiveSound() const;
    void mixBlock(std::int16_t* target, std::int32_t frameCount);

    sonimbra::ISoundMixedOutputReceiver* Receiver = nullptr;
};

} // namespace sn_internal
