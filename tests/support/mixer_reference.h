// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/CResamplerReference.h"
#include "tests/support/mixer_recording.h"

#include <optional>
#include <vector>

namespace sn_test {

using Frames16 = std::vector<std::int16_t>; ///< interleaved stereo

struct SReferenceListener {
    sonimbra::vec3df position{0, 0, 0};
    sonimbra::vec3df look{1, 1, 0};
    sonimbra::vec3df up{0, 1, 0};
    float volume = 1.0f;
    bool linearRolloff = false;
};

/// A sound of the mixer, written down once more and plainly: what it adds to each buffer, sample
/// for sample. Its operations have the names of those of sonimbra::ISound.
class CReferenceVoice {
public:
    CReferenceVoice(const SRecording& recording, bool looped, const sonimbra::vec3df* position);
    CReferenceVoice(const CReferenceVoice&) = delete;
    CReferenceVoice& operator=(const CReferenceVoice&) = delete;

    void setVolume(float volume) { Volume = volume; }
    void setPan(float pan) { Pan = pan; }
    void setPlaybackSpeed(float speed);
    void setPlayPosition(std::uint32_t milliseconds);
    std::uint32_t getPlayPosition() const;
    void setIsPaused(bool paused) { Paused = paused; }
    void setIsLooped(bool looped) { Looped = looped; }
    void stop() { Finished = true; }
    bool isFinished() const { return Finished; }
    void setPosition(const sonimbra::vec3df& position) { Position = position; }
    void setMinDistance(float distance) { MinDistance = distance; }
    void setMaxDistance(float distance) { MaxDistance = distance; }

    /// Computes volume and pan.
    void hear(const SReferenceListener& listener);
    /// Adds one buffer to the sum. The scratch buffer keeps what it got from the sound before.
    void mix(Frames16& scratch, std::vector<std::int32_t>& sum);

private:
    void moveTo(std::int32_t frame);
    void render(Frames16& buffer);
    std::int32_t renderPart(std::int16_t* target, std::int32_t frames);

    const SRecording Recording;
    std::optional<CResamplerReference> Source; ///< from where it stands to its end
    std::uint32_t PlayedFrames = 0;
    bool Looped;
    bool Paused = false;
    bool Finished = false;
    const bool Is3D;
    sonimbra::vec3df Position;
    float MinDistance = 1.0f;
    float MaxDistance = 1000000000.0f;
    float Volume = 1.0f;
    float Pan = 0.0f;
    float Speed = 1.0f;
    float HeardVolume = 1.0f;
    float HeardPan = 0.0f;
};

} // namespace sn_test
