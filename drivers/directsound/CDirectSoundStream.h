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
        refill();
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
        const auto buffer = com_ptr<IDirectSoundBuffer>::share(this->getBuffer());
        return this->isPlayable() &&
               Ring.seek(*buffer.get(), milliseconds, this->isLoopedFlagSet());
    }

private:
    void refill() {
        // A decoder may stop the sound from inside.
        const auto buffer = com_ptr<IDirectSoundBuffer>::share(this->getBuffer());
        if (!buffer) {
            return;
        }
        if (!Ring.refill(*buffer.get(), this->isLoopedFlagSet(), this->isPaused())) {
            this->releaseBuffer();
        } else if (Ring.takeRecovery() && !this->isPaused()) {
            playBuffer();
        }
    }

    void refillLostBuffer() override {
        const auto buffer = com_ptr<IDirectSoundBuffer>::share(this->getBuffer());
        Ring.recover(*buffer.get(), this->isLoopedFlagSet());
        Ring.takeRecovery(); // it is being started already
    }

    CStreamRing Ring;
};

} // namespace sn_internal
