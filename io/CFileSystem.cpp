// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "io/CFileSystem.h"

#include "core/counted_ptr.h"
#include "io/CFileList.h"
#include "io/CReadFile.h"
#include "io/disk.h"

namespace sn_internal::io {

CFileSystem::~CFileSystem() {
    for (sonimbra::IFileFactory* factory : FileFactories) {
        factory->drop();
    }
}

sonimbra::IFileReader* CFileSystem::createAndOpenFile(const char* filename) {
    if (filename == nullptr) {
        return nullptr;
    }
    // By index: a factory may add others while it is asked.
    for (std::uint32_t i = 0; i < FileFactories.size(); ++i) {
        if (sonimbra::IFileReader* reader = FileFactories[i]->createFileReader(filename)) {
            return reader;
        }
    }
    auto file = counted_ptr<CReadFile>::adopt(new CReadFile(filename));
    return file->isOpen() ? file.release() : nullptr;
}

sonimbra::string<char> CFileSystem::getFileDir(const char* filename) {
    return filename == nullptr ? sonimbra::string<char>() : directoryOf(filename);
}

sonimbra::string<char> CFileSystem::getFileBasename(const char* filename) {
    return filename == nullptr ? sonimbra::string<char>() : basenameOf(filename);
}

const char* CFileSystem::getWorkingDirectory() {
    readWorkingDirectory(WorkingDirectory, sizeof(WorkingDirectory));
    return WorkingDirectory;
}

bool CFileSystem::changeWorkingDirectoryTo(const char* directory) {
    return directory != nullptr && enterDirectory(directory);
}

bool CFileSystem::createDirectory(const char* directory) {
    return directory != nullptr && makeDirectory(directory);
}

bool CFileSystem::existFile(const char* filename) {
    std::FILE* file = filename == nullptr ? nullptr : openDiskFile(filename);
    if (file == nullptr) {
        return false;
    }
    std::fclose(file);
    return true;
}

void CFileSystem::addFileFactory(sonimbra::IFileFactory* factory) {
    if (factory != nullptr) {
        FileFactories.push_back(factory);
        factory->grab();
    }
}

IFileList* CFileSystem::createFileList() {
    return new CFileList;
}

} // namespace sn_internal::io
