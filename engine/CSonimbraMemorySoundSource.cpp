// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "engine/CSonimbraMemorySoundSource.h"

#include "io/CMemoryReadFile.h"

#include <cstring>

namespace sn_internal {
namespace {

std::shared_ptr<const char[]> copyOf(const void* memory, std::int32_t sizeInBytes) {
    const auto size = static_cast<std::size_t>(sizeInBytes);
    std::shared_ptr<char[]> copy(new char[size]);
    std::memcpy(copy.get(), memory, size);
    return copy;
}

/// The caller's own memory, which nobody lets go of here.
std::shared_ptr<const char[]> borrowed(const void* memory) {
    return {std::shared_ptr<const char[]>(), static_cast<const char*>(memory)};
}

} // namespace

CSonimbraMemorySoundSource::CSonimbraMemorySoundSource(const CEngineLinkPtr& link, const char* name,
                                                       const void* memory, std::int32_t sizeInBytes,
                                                       bool copyMemory)
    : CSonimbraSoundSource(link, name, sonimbra::E_STREAM_MODE::NoStreaming),
      Data(copyMemory && memory != nullptr ? copyOf(memory, sizeInBytes) : borrowed(memory)),
      SizeInBytes(sizeInBytes) {
}

sonimbra::IFileReader* CSonimbraMemorySoundSource::openFile(io::IFileSystem*) {
    return new io::CMemoryReadFile(Data, SizeInBytes, getName());
}

} // namespace sn_internal
