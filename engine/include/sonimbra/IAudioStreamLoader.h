// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/IAudioStream.h>
#include <sonimbra/IFileReader.h>

namespace sonimbra {

/// A factory of decoders for one file format. Register it with
/// ISoundEngine::registerAudioStreamLoader.
///
/// For each file the engine first asks the loaders, in the order of their registration, that accept
/// the name, then all of them; the first stream wins. The file stands at position 0 at each try.
/// Both operations are called with the engine's lock held.
class IAudioStreamLoader : public IRefCounted {
public:
    /// A quick test on the name alone (its letters A to Z already turned to lower case), without
    /// access to the file.
    virtual bool isALoadableFileExtension(const char* fileName) = 0;

    /// Returns a new stream with one reference for the caller, or null when the file is none of
    /// this loader's. The stream grabs the file for as long as it needs it.
    virtual IAudioStream* createAudioStream(IFileReader* file) = 0;
};

} // namespace sonimbra
