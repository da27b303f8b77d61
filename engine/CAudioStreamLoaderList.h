// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/array.h"

#include <sonimbra/IAudioStreamLoader.h>

namespace sn_internal {

/// The decoders' factories of an engine, in the order of their registration. Holds one reference on
/// each. To be used with the engine's lock held.
class CAudioStreamLoaderList {
public:
    CAudioStreamLoaderList() = default;
    CAudioStreamLoaderList(const CAudioStreamLoaderList&) = delete;
    CAudioStreamLoaderList& operator=(const CAudioStreamLoaderList&) = delete;
    ~CAudioStreamLoaderList() { dropAll(); }

    void add(sonimbra::IAudioStreamLoader* loader);
    void dropAll();

    /// Finds a decoder: first among the loaders that accept the name, then among all. Returns a new
    /// stream with one reference for the caller; null, and a line in the log, when there is none.
    sonimbra::IAudioStream* createAudioStream(sonimbra::IFileReader& file);

private:
    sonimbra::array<sonimbra::IAudioStreamLoader*> Loaders;
};

} // namespace sn_internal
