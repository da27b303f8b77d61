// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/log.h"
#include "drivers/directsound/CStreamRing.h"

namespace sn_internal {

/// A sound that is decoded while it plays, on top of a generation's sound class: its buffer is a
/// ring that plays endlessly, and every update of the sound refills it.
template <class TSound>
class CDirectSoundStream : public TSound {
public:
    /// Grabs the stream.
    CDirectSoundStream(const SDirectSoundSoundArguments& arguments, sonimbra::IAudioStream* stream)
        : TSound(arguments), Ring(stream) {
        this->createBuffer(Ring.getFormat(), true);
        Ring.setDownmixed(this->isDownmixed());
        if (this->getBuffer() != nullptr) {
            this->refreshListenerRelation(); // fills the ring
        }
    }
    ~CDirectSoundStream() override {
        // The stream counts without atomics.
        const CScopedLock lock(this->getLock());
        Ring.dropStream();
    }

    void playBuffer() override {
        if (this->getBuffer() != nullptr && !this->startBuffer(DSBPLAY_LOOPING)) {
            logText("Failed playing stream");
        }
    }

    /// Takes effect at the end of the data.
    void setIsLooped(bool looped) override { CSonimbraSound::setIsLooped(looped); }

    void updateListenerRelation(float globalVolume, const sonimbra::vec3df& listenerPosition,
                                const sonimbra::vec3df& listenerLookDirection,
                                const sonimbra::vec3df& listenerUpVector, bool linearRolloff,
                                float rolloffFactor) override {
        if (this->getBuffer() != nullptr &&
            !Ring.refill(*this->getBuffer(), this->isLoopedFlagSet(), this->isPaused())) {
            this->releaseBuffer();
        }
        TSound::updateListenerRelation(globalVolume, listenerPosition, listenerLookDirection,
                                       listenerUpVector, linearRolloff, rolloffFactor);
    }

    std::uint32_t getPlayPosition() override {
        const CScopedLock lock(this->getLock());
        if (Ring.getFormat().SampleRate == 0) {
            return UINT32_MAX;
        }
        return this->isPlayable() ? Ring.getPlayPosition() : 0;
    }

    bool setPlayPosition(std::uint32_t milliseconds) override {
        const CScopedLock lock(this->getLock());
        return this->isPlayable() &&
               Ring.seek(*this->getBuffer(), milliseconds, this->isLoopedFlagSet());
    }

private:
    /// The ring's memory came back without its contents: it is written anew from where it plays.
    void refillLostBuffer() override { Ring.silence(*this->getBuffer()); }

    CStreamRing Ring;
};

} // namespace sn_internal
