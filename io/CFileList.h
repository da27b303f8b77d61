// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/array.h"
#include "io/IFileSystem.h"
#include "io/disk.h"

namespace sn_internal::io {

class CFileList final : public IFileList {
public:
    CFileList();

    std::int32_t getFileCount() override;
    const char* getFileName(std::int32_t index) override;
    const char* getFullFileName(std::int32_t index) override;
    bool isDirectory(std::int32_t index) override;

private:
    /// Null for an index that fails the check.
    FileEntry* entryAt(std::int32_t index);

    sonimbra::string<char> Path;
    sonimbra::array<FileEntry> Files;
    FileEntry Behind;
};

} // namespace sn_internal::io
