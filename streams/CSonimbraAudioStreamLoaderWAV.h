// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/counted_ptr.h"
#include "io/IFileSystem.h"

#include <sonimbra/IAudioStreamLoader.h>

namespace sn_internal {

/// Makes decoders for RIFF WAVE files.
class CSonimbraAudioStreamLoaderWAV final : public sonimbra::IAudioStreamLoader {
public:
    explicit CSonimbraAudioStreamLoaderWAV(io::IFileSystem* fileSystem);

    bool isALoadableFileExtension(const char* fileName) override;
    sonimbra::IAudioStream* createAudioStream(sonimbra::IFileReader* file) override;

private:
    counted_ptr<io::IFileSystem> FileSystem;
};

} // namespace sn_internal
