// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/string.h"

#include <sonimbra/IFileReader.h>

#include <memory>

namespace sn_internal::io {

/// Reads a block of memory in place. With deleteMemoryWhenDropped it releases the block, an array
/// of char, when it is destroyed; otherwise the block stays the caller's.
class CMemoryReadFile final : public sonimbra::IFileReader {
public:
    CMemoryReadFile(const void* memory, std::int32_t len, const char* fileName,
                    bool deleteMemoryWhenDropped);
    /// Shares the memory.
    CMemoryReadFile(std::shared_ptr<const char[]> memory, std::int32_t len, const char* fileName);
    ~CMemoryReadFile() override;

    std::int32_t read(void* buffer, std::uint32_t sizeToRead) override;
    bool seek(std::int32_t finalPos, bool relativeMovement) override;
    std::int32_t getSize() override { return Len; }
    std::int32_t getPos() override { return static_cast<std::int32_t>(Pos); }
    const char* getFileName() override { return Filename.c_str(); }

private:
    sonimbra::string<char> Filename;
    const char* Buffer;
    std::int32_t Len;
    std::uint32_t Pos = 0;
    bool deleteMemoryWhenDropped;
    std::shared_ptr<const char[]> SharedMemory;
};

} // namespace sn_internal::io
