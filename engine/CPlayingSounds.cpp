// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "engine/CPlayingSounds.h"

#include "engine/CSonimbraSoundSource.h"

namespace sn_internal {

CPlayingSounds::~CPlayingSounds() {
    for (CSonimbraSound* sound : Playing) {
        sound->drop();
    }
    for (CSonimbraSound* sound : Pending) {
        sound->drop();
    }
}

void CPlayingSounds::add(counted_ptr<CSonimbraSound> sound) {
    Playing.push_back(sound.get());
    sound.release();
}

CPlayingSounds::CList::iterator CPlayingSounds::reap(CList::iterator it) {
    CSonimbraSound* sound = *it;
    sound->releaseBuffer();
    if (sound->hasStopEventReceiver()) {
        return Playing.moveToEndOf(Pending, it);
    }
    const CList::iterator following = Playing.erase(it);
    sound->drop();
    return following;
}

CPlayingSounds::CList::iterator CPlayingSounds::mark(CList::iterator it) {
    (*it)->markAsEnding();
    HasMarked = true;
    return ++it;
}

/// Letting go of a sound's stream may call the application as well, so this is a walk itself. What
/// it starts then is none of those that are meant.
template <class F>
void CPlayingSounds::reapIf(F&& condition) {
    const CWalk walk(*this);
    auto it = Playing.begin();
    for (std::uint32_t i = Playing.getSize(); i > 0; --i) {
        if (!condition(**it)) {
            ++it;
        } else {
            it = Walks == 1 ? reap(it) : mark(it);
        }
    }
}

void CPlayingSounds::reapAll() {
    reapIf([](const CSonimbraSound&) { return true; });
}

void CPlayingSounds::reapSoundsOf(const sonimbra::ISoundSource* source) {
    reapIf([source](const CSonimbraSound& sound) { return sound.getAttachedSource() == source; });
}

void CPlayingSounds::endWalk() {
    if (--Walks == 0 && HasMarked) {
        HasMarked = false;
        reapIf([](const CSonimbraSound& sound) { return sound.isEnding(); });
    }
}

void CPlayingSounds::deliverStopEvents() {
    while (!Pending.empty()) {
        CSonimbraSound* sound = *Pending.begin();
        Pending.erase(Pending.begin());
        sound->deliverStopEvent(RemovalCounter > 0);
        sound->drop();
    }
}

} // namespace sn_internal
