// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/counted_ptr.h"
#include "io/IFileSystem.h"

#include <sonimbra/IAudioStreamLoader.h>

#include <cstring>

namespace sn_internal {

/// What the built-in loaders share: the reference on the engine's file system and the making of
/// streams. Stream is a decoder that reads the file's header when it is constructed and tells by
/// isOpen() whether it could.
template <class Stream>
class CDecoderLoader : public sonimbra::IAudioStreamLoader {
public:
    explicit CDecoderLoader(io::IFileSystem* fileSystem)
        : FileSystem(counted_ptr<io::IFileSystem>::share(fileSystem)) {}

    sonimbra::IAudioStream* createAudioStream(sonimbra::IFileReader* file) override {
        auto stream = counted_ptr<Stream>::adopt(new Stream(file));
        return stream->isOpen() ? stream.release() : nullptr;
    }

protected:
    static bool contains(const char* fileName, const char* extension) {
        return fileName != nullptr && std::strstr(fileName, extension) != nullptr;
    }

private:
    counted_ptr<io::IFileSystem> FileSystem;
};

} // namespace sn_internal
