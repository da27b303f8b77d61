// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "io/disk.h"

#include "core/wide_text_win32.h"

#include <cerrno>
#include <cstdlib>
#include <cwchar>
#include <string>
#include <string_view>
#include <utility>

#include <direct.h>
#include <io.h>
#include <windows.h>

namespace sn_internal::io {
namespace {

class CFileSearch {
public:
    explicit CFileSearch(std::intptr_t handle) : Handle(handle) {}
    ~CFileSearch() {
        if (isOpen()) {
            _findclose(Handle);
        }
    }
    CFileSearch(const CFileSearch&) = delete;
    CFileSearch& operator=(const CFileSearch&) = delete;

    bool isOpen() const { return Handle != -1; }
    bool next(_wfinddata_t& found) const { return _wfindnext(Handle, &found) == 0; }

private:
    const std::intptr_t Handle;
};

FileEntry describe(const _wfinddata_t& found) {
    char name[4 * sizeof(found.name) / sizeof(found.name[0])];
    narrow(found.name, name, sizeof(name));
    FileEntry entry;
    entry.Name = name;
    entry.Size = static_cast<std::int32_t>(found.size);
    entry.isDirectory = (found.attrib & _A_SUBDIR) != 0;
    return entry;
}

using CWideText = std::unique_ptr<wchar_t, void (*)(void*)>;

CWideText workingDirectory() {
    return CWideText(_wgetcwd(nullptr, 0), std::free);
}

class CRememberedDirectory final : public IRememberedDirectory {
public:
    bool enter() const override { return Name && _wchdir(Name.get()) == 0; }
    bool isCurrent() const override {
        const CWideText current = workingDirectory();
        return Name && current && std::wcscmp(Name.get(), current.get()) == 0;
    }

private:
    const CWideText Name = workingDirectory();
};

/// Not by the platform's splitter, which takes the bytes for those of the process's code page: in
/// some of these the second byte of a character may be a separator.
const char* behindLastSeparator(const char* path) {
    const std::size_t last = std::string_view(path).find_last_of("\\/");
    if (last != std::string_view::npos) {
        return path + last + 1;
    }
    return path[0] != 0 && path[1] == ':' ? path + 2 : path;
}

} // namespace

std::FILE* openDiskFile(const char* name) {
    return _wfopen(widened(name).c_str(), L"rb");
}

std::int32_t measureDiskFile(std::FILE* file) {
    if (_fseeki64(file, 0, SEEK_END) != 0) {
        return -1;
    }
    const __int64 size = _ftelli64(file);
    if (size < 0 || size > INT32_MAX || _fseeki64(file, 0, SEEK_SET) != 0) {
        return -1;
    }
    return static_cast<std::int32_t>(size);
}

bool readWorkingDirectory(char* buffer, std::uint32_t size) {
    const CWideText folder = workingDirectory();
    if (!folder) {
        buffer[0] = 0;
        return false;
    }
    return narrow(folder.get(), buffer, size);
}

sonimbra::string<char> executablePath() {
    wchar_t path[LongestExecutablePath + 1] = L"";
    GetModuleFileNameW(nullptr, path, LongestExecutablePath);
    char name[4 * LongestExecutablePath + 1];
    narrow(path, name, sizeof(name));
    return name;
}

bool enterDirectory(const char* directory) {
    return _wchdir(widened(directory).c_str()) == 0;
}

std::unique_ptr<IRememberedDirectory> rememberWorkingDirectory() {
    auto folder = std::make_unique<CRememberedDirectory>();
    return folder->enter() ? std::move(folder) : nullptr;
}

bool makeDirectory(const char* directory) {
    return _wmkdir(widened(directory).c_str()) == 0 || errno == EEXIST;
}

sonimbra::string<char> directoryOf(const char* path) {
    return std::string(path, behindLastSeparator(path)).c_str();
}

sonimbra::string<char> basenameOf(const char* path) {
    return behindLastSeparator(path);
}

void listWorkingDirectory(sonimbra::array<FileEntry>& entries) {
    _wfinddata_t found = {};
    const CFileSearch search(_wfindfirst(L"*", &found));
    if (!search.isOpen()) {
        return;
    }
    do {
        entries.push_back(describe(found));
    } while (search.next(found));
}

} // namespace sn_internal::io
