// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "engine/locking.h"

#include "engine/CSonimbraSound.h"
#include "engine/CSonimbraSoundEngine.h"
#include "engine/CSonimbraSoundSource.h"

namespace sn_internal {

namespace {

/// Makes the lock, which the library keeps for itself, known here.
template <class T>
struct SAccess : T {
    using T::getLock;
};

template <class T, class I>
ICriticalSection* lockOfOwn(I& object) {
    auto* const own = dynamic_cast<T*>(&object);
    return own == nullptr ? nullptr : &(own->*(&SAccess<T>::getLock))();
}

} // namespace

ICriticalSection* lockOf(sonimbra::ISoundEngine& engine) {
    return lockOfOwn<CSonimbraSoundEngine>(engine);
}

ICriticalSection* lockOf(sonimbra::ISoundSource& source) {
    return lockOfOwn<CSonimbraSoundSource>(source);
}

ICriticalSection* lockOf(sonimbra::ISound& sound) {
    return lockOfOwn<CSonimbraSound>(sound);
}

} // namespace sn_internal
