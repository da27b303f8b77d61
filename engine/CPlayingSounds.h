// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/list.h"
#include "core/prefetch.h"
#include "engine/CSonimbraSound.h"

namespace sn_internal {

/// The playing sounds of an engine, in the order of starting, and those whose stop event is still
/// to be delivered. Holds one reference on each. To be used with the engine's lock held.
///
/// Receivers of stop events may do anything to the engine, so each pending sound is taken off its
/// list before its event goes out.
class CPlayingSounds {
public:
    using CList = sonimbra::list<CSonimbraSound*>;

    CPlayingSounds() = default;
    CPlayingSounds(const CPlayingSounds&) = delete;
    CPlayingSounds& operator=(const CPlayingSounds&) = delete;
    ~CPlayingSounds();

    /// Takes over the caller's reference.
    void add(counted_ptr<CSonimbraSound> sound);

    /// The playing sounds, to be walked only where nothing is started or stopped.
    const CList& getPlaying() const { return Playing; }

    /// Whether a playing sound's source satisfies a condition.
    template <class F>
    bool contains(F&& condition) const {
        for (CSonimbraSound* sound : Playing) {
            if (sound->isAttached() && condition(*sound->getAttachedSource())) {
                return true;
            }
        }
        return false;
    }

    /// Releases the finished sounds and calls refresh(sound) for the others, in one walk.
    template <class F>
    void update(F&& refresh) {
        auto ahead = Playing.begin();
        for (std::int32_t i = 0; i < FetchDistance; ++i) {
            fetchNext(ahead);
        }
        for (auto it = Playing.begin(); it != Playing.end();) {
            fetchNext(ahead);
            if ((*it)->isOver()) {
                it = reap(it);
            } else {
                refresh(**it);
                ++it;
            }
        }
    }

    /// Releases every sound, or every sound of one source.
    void reapAll();
    void reapSoundsOf(const sonimbra::ISoundSource* source);

    void deliverStopEvents();

    /// While it lives, stop events say that the sound was removed with its source.
    class CRemoval {
    public:
        explicit CRemoval(CPlayingSounds& sounds) : Sounds(sounds) { ++Sounds.RemovalCounter; }
        ~CRemoval() { --Sounds.RemovalCounter; }
        CRemoval(const CRemoval&) = delete;
        CRemoval& operator=(const CRemoval&) = delete;

    private:
        CPlayingSounds& Sounds;
    };

private:
    /// What the walk looks at of a sound: with thousands of them, none is in the cache any more.
    static constexpr std::size_t FetchedBytes = 256;
    static constexpr std::int32_t FetchDistance = 6;

    /// The iterator stays ahead of the walk, which erases only where it stands.
    void fetchNext(CList::iterator& ahead) const {
        if (ahead != Playing.end() && ++ahead != Playing.end()) {
            prefetch(*ahead, FetchedBytes);
        }
    }

    CList::iterator reap(CList::iterator it);

    CList Playing;
    CList Pending;
    std::int32_t RemovalCounter = 0;
};

} // namespace sn_internal
