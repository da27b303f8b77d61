// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "engine/CSonimbraSound.h"

#include "core/no_throw.h"
#include "engine/CSonimbraSoundEngine.h"
#include "engine/CSonimbraSoundSource.h"
#include "engine/software_3d.h"

namespace sn_internal {

using sonimbra::vec3df;

CSonimbraSound::CSonimbraSound(const CEngineLinkPtr& link, CSonimbraSoundSource* source,
                               bool looped, float minDistance, float maxDistance)
    : Link(link),
      MinDistance(minDistance),
      MaxDistance(maxDistance),
      Source(source),
      Looped(looped) {
    const CScopedLock lock(getLock());
    Source->attachSound(*this);
}

CSonimbraSound::~CSonimbraSound() {
    const CScopedLock lock(getLock());
    if (Source != nullptr) {
        Source->detachSound(*this);
    }
}

sonimbra::ISoundSource* CSonimbraSound::getSoundSource() {
    const CScopedLock lock(getLock());
    return isAttached() ? Source : nullptr;
}

void CSonimbraSound::setIsPaused(bool paused) {
    const CScopedLock lock(getLock());
    if (!isAttached() || paused == Paused) {
        return;
    }
    if (paused) {
        stopBuffer();
    } else {
        refreshListenerRelation();
        playBuffer();
    }
    Paused = paused;
}

bool CSonimbraSound::getIsPaused() {
    const CScopedLock lock(getLock());
    return Paused;
}

void CSonimbraSound::stop() {
    const auto held = counted_ptr<CSonimbraSound>::share(this); // its decoder may drop it
    const CScopedLock lock(getLock());
    if (isAttached()) {
        StoppedByUser = true;
        releaseBuffer();
    }
}

float CSonimbraSound::getVolume() {
    const CScopedLock lock(getLock());
    return isAttached() ? Volume : 0.0f;
}

void CSonimbraSound::setVolume(float volume) {
    const CScopedLock lock(getLock());
    if (isAttached()) {
        Volume = volume;
    }
}

void CSonimbraSound::setPan(float pan) {
    const CScopedLock lock(getLock());
    if (isAttached()) {
        Pan = pan;
    }
}

float CSonimbraSound::getPan() {
    const CScopedLock lock(getLock());
    return Pan;
}

bool CSonimbraSound::isLooped() {
    const CScopedLock lock(getLock());
    return isAttached() && Looped;
}

void CSonimbraSound::setIsLooped(bool looped) {
    const CScopedLock lock(getLock());
    if (isAttached()) {
        Looped = looped;
    }
}

bool CSonimbraSound::isFinished() {
    const CScopedLock lock(getLock());
    return isOver();
}

void CSonimbraSound::setMinDistance(float minDistance) {
    const CScopedLock lock(getLock());
    if (isAttached()) {
        MinDistance = minDistance;
    }
}

float CSonimbraSound::getMinDistance() {
    const CScopedLock lock(getLock());
    return MinDistance;
}

void CSonimbraSound::setMaxDistance(float maxDistance) {
    const CScopedLock lock(getLock());
    if (isAttached()) {
        MaxDistance = maxDistance;
    }
}

float CSonimbraSound::getMaxDistance() {
    const CScopedLock lock(getLock());
    return MaxDistance;
}

void CSonimbraSound::setPosition(const vec3df& position) {
    const CScopedLock lock(getLock());
    if (isAttached()) {
        Position = position;
    }
}

vec3df CSonimbraSound::getPosition() {
    const CScopedLock lock(getLock());
    return isAttached() ? Position : vec3df();
}

void CSonimbraSound::setVelocity(const vec3df& velocity) {
    const CScopedLock lock(getLock());
    if (isAttached()) {
        Velocity = velocity;
    }
}

vec3df CSonimbraSound::getVelocity() {
    const CScopedLock lock(getLock());
    return isAttached() ? Velocity : vec3df();
}

std::int32_t CSonimbraSound::getPlayLength() {
    const CScopedLock lock(getLock());
    return isAttached() ? Source->getPlayLength() : 0;
}

void CSonimbraSound::setSoundStopEventReceiver(sonimbra::ISoundStopEventReceiver* receiver,
                                               void* userData) {
    const CScopedLock lock(getLock());
    if (isAttached()) {
        StopEventReceiver = receiver;
        UserData = userData;
    }
}

void CSonimbraSound::deliverStopEvent(bool removedWithSource) {
    using sonimbra::E_STOP_EVENT_CAUSE;
    if (StopEventReceiver == nullptr) {
        return;
    }
    auto cause = E_STOP_EVENT_CAUSE::SoundFinishedPlaying;
    if (removedWithSource || Source == nullptr) {
        cause = E_STOP_EVENT_CAUSE::SoundStoppedBySourceRemoval;
    } else if (StoppedByUser) {
        cause = E_STOP_EVENT_CAUSE::SoundStoppedByUser;
    }
    withoutExceptions([&] { StopEventReceiver->OnSoundStopped(this, cause, UserData); });
}

void CSonimbraSound::refreshListenerRelation() {
    if (CSonimbraSoundEngine* const engine = Link->getEngine()) {
        engine->refreshListenerRelation(*this);
    }
}

void CSonimbraSound::apply3DInSoftware(float globalVolume, const vec3df& listenerPosition,
                                       const vec3df& lookDirection, const vec3df& upVector,
                                       bool linearRolloff) {
    const float volume = Volume * globalVolume;
    if (!Is3D) {
        setBufferPan(Pan);
        setBufferVolume(volume);
        return;
    }
    const SDistanceRange range = {MinDistance, MaxDistance};
    setBufferPan(panTowards(Position, listenerPosition, lookDirection, upVector));
    setBufferVolume(
        volumeAtDistance(volume, listenerPosition.getDistanceFrom(Position), range, linearRolloff));
}

} // namespace sn_internal
