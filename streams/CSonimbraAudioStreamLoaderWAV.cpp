// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraAudioStreamLoaderWAV.h"

#include "streams/CSonimbraAudioStreamWAV.h"

#include <cstring>

namespace sn_internal {

CSonimbraAudioStreamLoaderWAV::CSonimbraAudioStreamLoaderWAV(io::IFileSystem* fileSystem)
    : FileSystem(counted_ptr<io::IFileSystem>::share(fileSystem)) {
}

bool CSonimbraAudioStreamLoaderWAV::isALoadableFileExtension(const char* fileName) {
    return fileName != nullptr && std::strstr(fileName, ".wav") != nullptr;
}

sonimbra::IAudioStream*
CSonimbraAudioStreamLoaderWAV::createAudioStream(sonimbra::IFileReader* file) {
    auto stream = counted_ptr<CSonimbraAudioStreamWAV>::adopt(new CSonimbraAudioStreamWAV(file));
    return stream->isOpen() ? stream.release() : nullptr;
}

} // namespace sn_internal
