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
/// list before its event goes out. So may the decoders and files of the application, which are read
/// while the playing sounds are walked: what ends then is only marked, and released after the walk.
class CPlayingSounds {
public:
    using CList = sonimbra::list<CSonimbraSound*>;

    CPlayingSounds() = default;
    CPlayingSounds(const CPlayingSounds&) = delete;
    CPlayingSounds& operator=(const CPlayingSounds&) = delete;
    ~CPlayingSounds();

    /// Takes over the caller's reference.
    void add(counted_ptr<CSonimbraSound> sound);

    /// While it lives, no playing sound leaves the list and none is released; new ones come at its
    /// end.
    class CWalk {
    public:
        explicit CWalk(CPlayingSounds& sounds) : Sounds(sounds) { ++Sounds.Walks; }
        ~CWalk() { Sounds.endWalk(); }
        CWalk(const CWalk&) = delete;
        CWalk& operator=(const CWalk&) = delete;

    private:
        CPlayingSounds& Sounds;
    };

    /// The playing sounds, to be walked under a CWalk, or where nothing is started or stopped.
    const CList& getPlaying() const { return Playing; }

    /// Whether a playing sound's source satisfies a condition.
    template <class F>
    bool contains(F&& condition) const {
        for (CSonimbraSound* sound : Playing) {
            if (sound->isAttached() && !sound->isEnding() &&
                condition(*sound->getAttachedSource())) {
                return true;
            }
        }
        return false;
    }

    /// Releases the finished sounds and calls refresh(sound) for the others, in one walk.
    template <class F>
    void update(F&& refresh) {
        const CWalk walk(*this);
        auto ahead = Playing.begin();
        for (std::int32_t i = 0; i < FetchDistance; ++i) {
            fetchNext(ahead);
        }
        for (auto it = Playing.begin(); it != Playing.end();) {
            fetchNext(ahead);
            if ((*it)->isOver()) {
                it = Walks == 1 ? reap(it) : mark(it);
            } else {
                refresh(**it);
                ++it;
            }
        }
    }

    /// Releases every sound, or every sound of one source; inside a walk, after it.
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

    template <class F>
    void reapIf(F&& condition);
    CList::iterator reap(CList::iterator it);
    CList::iterator mark(CList::iterator it);
    void endWalk();

    CList Playing;
    CList Pending;
    std::int32_t RemovalCounter = 0;
    std::int32_t Walks = 0;
    bool HasMarked = false;
};

} // namespace sn_internal
