// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/string.h"

#include <sonimbra/IFileReader.h>

#include <cstdio>

namespace sn_internal::io {

/// Reads a file on disk. The file system hands out only readers whose file is open.
class CReadFile final : public sonimbra::IFileReader {
public:
    explicit CReadFile(const char* fileName);
    ~CReadFile() override;

    bool isOpen() const { return File != nullptr; }

    std::int32_t read(void* buffer, std::uint32_t sizeToRead) override;
    bool seek(std::int32_t finalPos, bool relativeMovement) override;
    std::int32_t getSize() override { return FileSize; }
    std::int32_t getPos() override;
    const char* getFileName() override { return Filename.c_str(); }

private:
    void openFile();

    sonimbra::string<char> Filename;
    std::FILE* File = nullptr;
    std::int32_t FileSize = 0;
};

} // namespace sn_internal::io
