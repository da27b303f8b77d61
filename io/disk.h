// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/array.h"
#include "core/string.h"

#include <cstdint>
#include <cstdio>
#include <memory>

namespace sn_internal::io {

/// One entry of a folder.
struct FileEntry {
    sonimbra::string<char> Name;
    sonimbra::string<char> FullName; ///< built at the first request
    std::int32_t Size = 0;
    bool isDirectory = false;
};

/// What the file system asks of the operating system. Names are UTF-8.

/// Opens a file for reading untranslated bytes; null when it cannot be opened or is no file.
std::FILE* openDiskFile(const char* name);

/// The size of an open file in bytes, -1 when it cannot be told or does not fit 32 bits. The
/// position is at the start afterwards.
std::int32_t measureDiskFile(std::FILE* file);

/// Writes the current folder into buffer; false (and an empty text) when it does not fit.
bool readWorkingDirectory(char* buffer, std::uint32_t size);

/// The full name of the running program, cut behind this many characters; empty when it cannot be
/// told.
constexpr std::uint32_t LongestExecutablePath = 1024;
sonimbra::string<char> executablePath();

bool enterDirectory(const char* directory);

/// The folder that was the current one when this was made. It can be entered again however long its
/// name is, and except on Windows whatever the name has become meanwhile.
class IRememberedDirectory {
public:
    virtual ~IRememberedDirectory() = default;
    virtual bool enter() const = 0;
    /// Whether it is the current folder now.
    virtual bool isCurrent() const = 0;
};

/// Null when there would be no way back to the current folder.
std::unique_ptr<IRememberedDirectory> rememberWorkingDirectory();

/// Makes a folder; true also when it exists already.
bool makeDirectory(const char* directory);

/// The folder part of a path, with its separator, and the part behind it.
sonimbra::string<char> directoryOf(const char* path);
sonimbra::string<char> basenameOf(const char* path);

/// Appends the entries of the current folder, in the order in which the system reports them.
void listWorkingDirectory(sonimbra::array<FileEntry>& entries);

} // namespace sn_internal::io
