// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "io/disk.h"

#include <cerrno>
#include <climits>
#include <string>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace sn_internal::io {
namespace {

const char* behindLastSeparator(const char* path) {
    const char* name = path;
    for (const char* c = path; *c != 0; ++c) {
        if (*c == '/') {
            name = c + 1;
        }
    }
    return name;
}

/// Opened as a place only: that needs no right to read the folder, as going back needs none.
class CRememberedDirectory final : public IRememberedDirectory {
public:
    ~CRememberedDirectory() override {
        if (Descriptor >= 0) {
            close(Descriptor);
        }
    }

    bool enter() const override { return fchdir(Descriptor) == 0; }
    bool isCurrent() const override {
        struct stat remembered = {};
        struct stat current = {};
        return fstat(Descriptor, &remembered) == 0 && stat(".", &current) == 0 &&
               remembered.st_dev == current.st_dev && remembered.st_ino == current.st_ino;
    }

private:
    const int Descriptor = open(".", O_PATH | O_DIRECTORY | O_CLOEXEC);
};

FileEntry describe(const char* name) {
    FileEntry entry;
    entry.Name = name;
    struct stat status = {};
    if (stat(name, &status) == 0) {
        entry.Size = static_cast<std::int32_t>(status.st_size);
        entry.isDirectory = S_ISDIR(status.st_mode);
    }
    return entry;
}

} // namespace

std::FILE* openDiskFile(const char* name) {
    // Opening a folder succeeds here, and opening a pipe would wait for its writer.
    struct stat status = {};
    if (stat(name, &status) != 0 || !S_ISREG(status.st_mode)) {
        return nullptr;
    }
    return std::fopen(name, "rb");
}

std::int32_t measureDiskFile(std::FILE* file) {
    if (std::fseek(file, 0, SEEK_END) != 0) {
        return -1;
    }
    const long size = std::ftell(file);
    if (size < 0 || size > INT_MAX || std::fseek(file, 0, SEEK_SET) != 0) {
        return -1;
    }
    return static_cast<std::int32_t>(size);
}

bool readWorkingDirectory(char* buffer, std::uint32_t size) {
    if (getcwd(buffer, size) != nullptr) {
        return true;
    }
    buffer[0] = 0;
    return false;
}

sonimbra::string<char> executablePath() {
    char path[LongestExecutablePath + 1] = "";
    const ssize_t length = readlink("/proc/self/exe", path, LongestExecutablePath);
    path[length < 0 ? 0 : length] = 0;
    return path;
}

bool enterDirectory(const char* directory) {
    return chdir(directory) == 0;
}

std::unique_ptr<IRememberedDirectory> rememberWorkingDirectory() {
    auto folder = std::make_unique<CRememberedDirectory>();
    return folder->enter() ? std::move(folder) : nullptr;
}

bool makeDirectory(const char* directory) {
    return mkdir(directory, 0777) == 0 || errno == EEXIST;
}

sonimbra::string<char> directoryOf(const char* path) {
    return std::string(path, behindLastSeparator(path)).c_str();
}

sonimbra::string<char> basenameOf(const char* path) {
    return behindLastSeparator(path);
}

void listWorkingDirectory(sonimbra::array<FileEntry>& entries) {
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir("."), closedir);
    if (!folder) {
        return;
    }
    while (const dirent* found = readdir(folder.get())) {
        entries.push_back(describe(found->d_name));
    }
}

} // namespace sn_internal::io
