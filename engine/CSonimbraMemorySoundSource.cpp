// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "engine/CSonimbraMemorySoundSource.h"

#include "io/CMemoryReadFile.h"

#include <cstring>

namespace sn_internal {
namespace {

const char* copyOf(const void* memory, std::int32_t sizeInBytes) {
    auto* copy = new char[static_cast<std::size_t>(sizeInBytes)];
    std::memcpy(copy, memory, static_cast<std::size_t>(sizeInBytes));
    return copy;
}

} // namespace

CSonimbraMemorySoundSource::CSonimbraMemorySoundSource(const CEngineLinkPtr& link, const char* name,
                                                       const void* memory, std::int32_t sizeInBytes,
                                                       bool copyMemory)
    : CSonimbraSoundSource(link, name, sonimbra::E_STREAM_MODE::NoStreaming),
      Data(copyMemory && memory != nullptr ? copyOf(memory, sizeInBytes)
                                           : static_cast<const char*>(memory)),
      SizeInBytes(sizeInBytes),
      OwnsCopy(copyMemory && memory != nullptr) {
}

CSonimbraMemorySoundSource::~CSonimbraMemorySoundSource() {
    const CScopedLock lock(getLock());
    detachAllSounds(); // a streamed sound may still read the data
    if (OwnsCopy) {
        delete[] Data;
    }
}

sonimbra::IFileReader* CSonimbraMemorySoundSource::openFile(io::IFileSystem*) {
    return new io::CMemoryReadFile(Data, SizeInBytes, getName(), false);
}

} // namespace sn_internal
