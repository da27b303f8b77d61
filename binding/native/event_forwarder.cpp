// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "binding/native/conversions.h"

#include <mutex>

namespace sn_internal {

using sonimbra::ISound;

namespace {

/// Never destroyed, as sounds may outlive the program's own objects. Nothing is called with it
/// held.
std::mutex& orphanLock() {
    static std::mutex& lock = *new std::mutex;
    return lock;
}

EventForwarder* firstOrphan = nullptr;
std::uint64_t orphanCount = 0; ///< that there ever were

std::uint64_t orphansUntilNow() {
    const std::lock_guard lock(orphanLock());
    return orphanCount;
}

} // namespace

/// The set is ignored when the source goes before it.
bool EventForwarder::registerAt(ISound& sound, void* userData) {
    if (sound.getSoundSource() == nullptr || !attachTo(sound)) {
        return false;
    }
    sound.setSoundStopEventReceiver(this, userData);
    return sound.getSoundSource() != nullptr;
}

bool EventForwarder::attachTo(ISound& sound) {
    EState state = EState::New;
    if (!State.compare_exchange_strong(state, EState::Preparing)) {
        return state == EState::Registered && Sound == &sound;
    }
    sound.grab();
    Sound = &sound;
    ++Owners;
    State = EState::Registered;
    return true;
}

/// Whoever takes the state from Registered to Done leaves the sound. Until then the forwarder, and
/// the context with it, stays although its owner may be destroying it, in the callback as well.
void EventForwarder::OnSoundStopped(ISound* sound, sonimbra::E_STOP_EVENT_CAUSE cause,
                                    void* userData) {
    const EState before = State.exchange(EState::Done);
    if (before == EState::Registered) {
        callBack([&] { Callback(Context.get(), toFlat(sound), toFlat(cause), userData); });
        leaveSound();
    } else if (before == EState::Orphaned) {
        takeOrphans([this](const EventForwarder& orphan) { return &orphan == this; });
    }
}

void EventForwarder::destroy() {
    EState state = EState::Registered;
    if (State.compare_exchange_strong(state, EState::Checking)) {
        ISound* const sound = Sound;
        if (sound->getSoundSource() == nullptr && becomeOrphan()) {
            Context.end();
            drop(sound);
        } else {
            leaveSound();
        }
    }
    dropOwner();
}

bool EventForwarder::becomeOrphan() {
    const std::lock_guard lock(orphanLock());
    EState state = EState::Checking;
    if (!State.compare_exchange_strong(state, EState::Orphaned)) {
        return false;
    }
    Number = ++orphanCount;
    NextOrphan = std::exchange(firstOrphan, this);
    return true;
}

/// A later orphan may belong to a new sound at the same address.
bool EventForwarder::drop(ISound* sound) {
    const std::uint64_t last = orphansUntilNow();
    if (!sound->drop()) {
        return false;
    }
    takeOrphans([=](const EventForwarder& orphan) {
        return orphan.Sound == sound && orphan.Number <= last;
    });
    return true;
}

template <class F>
void EventForwarder::takeOrphans(F&& isMeant) {
    EventForwarder* taken = nullptr;
    {
        const std::lock_guard lock(orphanLock());
        for (EventForwarder** link = &firstOrphan; *link != nullptr;) {
            EventForwarder* const orphan = *link;
            if (isMeant(*orphan)) {
                *link = orphan->NextOrphan;
                orphan->NextOrphan = std::exchange(taken, orphan);
            } else {
                link = &orphan->NextOrphan;
            }
        }
    }
    while (taken != nullptr) {
        std::exchange(taken, taken->NextOrphan)->dropOwner();
    }
}

void EventForwarder::leaveSound() {
    drop(Sound);
    dropOwner();
}

void EventForwarder::dropOwner() {
    if (--Owners == 0) {
        delete this;
    }
}

} // namespace sn_internal
