// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/prefetch.h"
#include "core/sample_kernels.h"
#include "engine/CSonimbraSound.h"
#include "streams/CSonimbraSoftwareResampler.h"

namespace sn_internal {

class CMixBlock;

/// A sound of the software mixer: pulls frames from a stream resampler and applies volume and pan.
/// It plays as long as it holds a resampler.
class CSonimbraSoftwareSound : public CSonimbraSound {
public:
    /// Grabs the stream. The samples are the stream once more when it is one over samples in
    /// memory, null otherwise.
    CSonimbraSoftwareSound(const CEngineLinkPtr& link, CSonimbraSoundSource* source,
                           sonimbra::IAudioStream* stream,
                           CSonimbraBufferedSamplesAudioStream* samples, std::int32_t outputRate,
                           bool looped, float minDistance, float maxDistance);
    ~CSonimbraSoftwareSound() override;

    void setBufferVolume(float volume) override { BufferVolume = volume; }
    void setBufferPan(float pan) override { BufferPan = pan; }
    bool setPlaybackSpeed(float speed) override;
    float getPlaybackSpeed() override;
    std::uint32_t getPlayPosition() override;
    bool setPlayPosition(std::uint32_t milliseconds) override;
    bool isBufferFinished() override { return !Resampler || IsReleased; }
    void updateListenerRelation(float globalVolume, const sonimbra::vec3df& listenerPosition,
                                const sonimbra::vec3df& listenerLookDirection,
                                const sonimbra::vec3df& listenerUpVector, bool linearRolloff,
                                float rolloffFactor) override;
    void releaseBuffer() override;

    /// @name For the mixer, with the engine's lock held
    /// @{

    /// A sound that is neither finished nor cut off from its source. It may be paused.
    bool isActive() const { return Resampler && !IsReleased && isAttached() && !isEnding(); }
    bool isAudible() const { return BufferVolume != 0.0f; }

    /// Bring the sound into the cache, one stage after the other, a few sounds before it is
    /// rendered.
    void prefetchSound() const { prefetch(this, sizeof(*this)); }
    void prefetchState() const;
    void prefetchSamples(std::int32_t frameCount) const;

    /// Adds its frames to a block, with volume and pan applied, and advances. A sound that ends
    /// fills the rest and is finished afterwards.
    void render(CMixBlock& block);
    /// @}

private:
    class CReading;

    void renderFrames(CMixBlock& block);
    SGains getGains() const;
    void renderEnd(CMixBlock& block, const std::int16_t* frames, std::int32_t rendered);
    void startOver(std::int16_t* target, std::int32_t frameCount, std::int32_t rendered);
    void finish(std::int16_t* target, std::int32_t frameCount, std::int32_t rendered);

    float BufferVolume = 1.0f;
    float BufferPan = 0.0f;
    float PlaybackSpeed = 1.0f;
    std::uint32_t PlayedFrames = 0; ///< at the output rate: frames produced times speed
    counted_ptr<CSonimbraSoftwareStreamResamplerBase> Resampler;
    bool IsReading = false;  ///< from the resampler, which may call the application
    bool IsReleased = false; ///< while it was reading: the resampler goes afterwards
};

} // namespace sn_internal
