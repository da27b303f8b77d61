// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "io/CMemoryReadFile.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace sn_internal::io {

CMemoryReadFile::CMemoryReadFile(const void* memory, std::int32_t len, const char* fileName,
                                 bool deleteMemory)
    : Filename(fileName),
      Buffer(static_cast<const char*>(memory)),
      Len(memory != nullptr && len > 0 ? len : 0),
      deleteMemoryWhenDropped(deleteMemory) {
}

CMemoryReadFile::CMemoryReadFile(std::shared_ptr<const char[]> memory, std::int32_t len,
                                 const char* fileName)
    : CMemoryReadFile(memory.get(), len, fileName, false) {
    SharedMemory = std::move(memory);
}

CMemoryReadFile::~CMemoryReadFile() {
    if (deleteMemoryWhenDropped) {
        delete[] Buffer;
    }
}

std::int32_t CMemoryReadFile::read(void* buffer, std::uint32_t sizeToRead) {
    const std::uint32_t n = std::min(sizeToRead, static_cast<std::uint32_t>(Len) - Pos);
    if (n == 0) {
        return 0;
    }
    std::memcpy(buffer, Buffer + Pos, n);
    Pos += n;
    return static_cast<std::int32_t>(n);
}

bool CMemoryReadFile::seek(std::int32_t finalPos, bool relativeMovement) {
    // Unsigned, so that a target in front of the block is beyond its end.
    const std::uint32_t target =
        static_cast<std::uint32_t>(finalPos) + (relativeMovement ? Pos : 0);
    if (target > static_cast<std::uint32_t>(Len)) {
        return false;
    }
    Pos = target;
    return true;
}

} // namespace sn_internal::io
