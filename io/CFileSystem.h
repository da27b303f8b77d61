// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/array.h"
#include "io/IFileSystem.h"

namespace sn_internal::io {

class CFileSystem final : public IFileSystem {
public:
    ~CFileSystem() override;

    sonimbra::IFileReader* createAndOpenFile(const char* filename) override;
    sonimbra::string<char> getFileDir(const char* filename) override;
    sonimbra::string<char> getFileBasename(const char* filename) override;
    const char* getWorkingDirectory() override;
    bool changeWorkingDirectoryTo(const char* directory) override;
    bool createDirectory(const char* directory) override;
    bool existFile(const char* filename) override;
    void addFileFactory(sonimbra::IFileFactory* factory) override;
    IFileList* createFileList() override;

private:
    sonimbra::array<sonimbra::IFileFactory*> FileFactories;
    char WorkingDirectory[1024] = "";
};

} // namespace sn_internal::io
