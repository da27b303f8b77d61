// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "io/CFileList.h"

namespace sn_internal::io {

CFileList::CFileList() {
    char path[260];
    readWorkingDirectory(path, sizeof(path));
    Path = path;
    listWorkingDirectory(Files);
}

std::int32_t CFileList::getFileCount() {
    return static_cast<std::int32_t>(Files.size());
}

FileEntry* CFileList::entryAt(std::int32_t index) {
    const std::int32_t count = getFileCount();
    if (index < 0 || index > count) {
        return nullptr;
    }
    // The index equal to the count passes the check and finds an empty entry.
    return index == count ? &Behind : &Files[static_cast<std::uint32_t>(index)];
}

const char* CFileList::getFileName(std::int32_t index) {
    const FileEntry* entry = entryAt(index);
    return entry == nullptr ? nullptr : entry->Name.c_str();
}

const char* CFileList::getFullFileName(std::int32_t index) {
    FileEntry* entry = entryAt(index);
    if (entry == nullptr) {
        return nullptr;
    }
    if (entry->FullName.size() < entry->Name.size()) {
        entry->FullName = Path;
        entry->FullName.append(Path.size() > 3 ? "/" : nullptr);
        entry->FullName.append(entry->Name.c_str());
    }
    return entry->FullName.c_str();
}

bool CFileList::isDirectory(std::int32_t index) {
    const FileEntry* entry = entryAt(index);
    return entry != nullptr && entry->isDirectory;
}

} // namespace sn_internal::io
