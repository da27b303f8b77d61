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

void CPlayingSounds::reapAll() {
    while (!Playing.empty()) {
        reap(Playing.begin());
    }
}

void CPlayingSounds::reapSoundsOf(const sonimbra::ISoundSource* source) {
    for (auto it = Playing.begin(); it != Playing.end();) {
        if ((*it)->getAttachedSource() == source) {
            it = reap(it);
        } else {
            ++it;
        }
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
