// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CBufferLock.h"
#include "drivers/directsound/CReusableDSSoundBuffers.h"
#include "drivers/directsound/directsound_generation.h"
#include "engine/CSonimbraSound.h"
#include "streams/CSonimbraBufferedSamples.h"

#include <sonimbra/SAudioStreamFormat.h>

namespace sn_internal {

/// How a DirectSound engine wants a sound.
struct SDirectSoundSoundArguments {
    CEngineLinkPtr link;
    CSonimbraSoundSource* source;
    IDirectSound* device;
    CDirectSoundResourcesPtr resources;
    bool looped;
    float minDistance;
    float maxDistance;
    bool globalFocus;   ///< plays on when the application loses the focus
    bool wants3DBuffer; ///< 3D by DirectSound, not in software
    bool wantsEffects;  ///< a buffer that can take effects; never shared
};

/// A sound in one secondary buffer of DirectSound, for both generations. The buffer of a static
/// sound is filled once, and shared with the source's other sounds where that is possible.
class CDirectSoundSound : public CSonimbraSound {
public:
    /// A static sound.
    CDirectSoundSound(const SDirectSoundGeneration& generation,
                      const SDirectSoundSoundArguments& arguments,
                      CSonimbraBufferedSamples* samples);
    ~CDirectSoundSound() override;

    void stopBuffer() override;
    void playBuffer() override;
    bool isBufferFinished() override;
    void setBufferPan(float pan) override;
    void setBufferVolume(float volume) override;
    void releaseBuffer() override;
    void updateListenerRelation(float globalVolume, const sonimbra::vec3df& listenerPosition,
                                const sonimbra::vec3df& listenerLookDirection,
                                const sonimbra::vec3df& listenerUpVector, bool linearRolloff,
                                float rolloffFactor) override;
    void setIsLooped(bool looped) override;
    std::uint32_t getPlayPosition() override;
    bool setPlayPosition(std::uint32_t milliseconds) override;
    bool setPlaybackSpeed(float speed) override;
    float getPlaybackSpeed() override;

protected:
    /// Without a buffer, for streams.
    CDirectSoundSound(const SDirectSoundGeneration& generation,
                      const SDirectSoundSoundArguments& arguments);

    /// Makes a buffer for the frames of the format. Where a 3D buffer is wanted and there are more
    /// channels, it takes the first one only.
    void createBuffer(const sonimbra::SAudioStreamFormat& format, bool isStream);

    /// Starts the buffer; a lost one is filled anew first.
    bool startBuffer(DWORD flags);

    /// Fills the buffer again after DirectSound has taken its memory away and given it back.
    virtual void refillLostBuffer();

    /// Neither cut off from its source nor released.
    bool isPlayable() const { return isAttached() && Buffer; }

    IDirectSoundBuffer* getBuffer() const { return Buffer.get(); }
    bool isDownmixed() const { return IsDownmixed; }

private:
    void computeBytesPerSecond(const sonimbra::SAudioStreamFormat& format);
    bool shareBuffer();
    void offerBuffer();
    void fill(const CSonimbraBufferedSamples& samples);
    void copyInto(const CBufferLock& memory, const CSonimbraBufferedSamples& samples) const;
    /// What new buffers are asked for, and null for nothing.
    com_ptr<IDirectSoundBuffer> usable(com_ptr<IDirectSoundBuffer> created) const;
    DWORD getBufferFlags(bool isStream) const;
    bool knowsCreationFrequency();

    const SDirectSoundGeneration& Generation;
    const CDirectSoundResourcesPtr Resources;
    IDirectSound* const Device; ///< the engine's; used while the sound is constructed
    com_ptr<IDirectSoundBuffer> Buffer;
    com_ptr<IDirectSound3DBuffer> Buffer3D;
    counted_ptr<CSonimbraBufferedSamples> Samples; ///< of a static sound
    counted_ptr<CReusableDSSoundBuffers> Reusable; ///< the source's, while this sound takes part
    std::int32_t CreationFrequency = -1;
    std::uint32_t BytesPerSecond = 0;
    const bool GlobalFocus;
    const bool Wants3DBuffer;
    const bool WantsEffects;
    bool IsDownmixed = false;
};

} // namespace sn_internal
