// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/string.h"

#include <sonimbra/IFileFactory.h>

namespace sn_internal::io {

/// The entries of one folder, as they were when the list was made.
class IFileList : public virtual sonimbra::IRefCounted {
public:
    virtual std::int32_t getFileCount() = 0;
    /// The three take an index below the file count; texts belong to the list.
    virtual const char* getFileName(std::int32_t index) = 0;
    virtual const char* getFullFileName(std::int32_t index) = 0;
    virtual bool isDirectory(std::int32_t index) = 0;
};

/// Opens files for an engine: the application's file factories first, then the disk; and offers
/// the few services on folders that loading plug-ins needs.
class IFileSystem : public virtual sonimbra::IRefCounted {
public:
    /// Returns a new reader with one reference for the caller, or null.
    virtual sonimbra::IFileReader* createAndOpenFile(const char* filename) = 0;
    /// Drive and folder of a path, with the trailing separator.
    virtual sonimbra::string<char> getFileDir(const char* filename) = 0;
    /// File name with its extension.
    virtual sonimbra::string<char> getFileBasename(const char* filename) = 0;
    /// Valid until the next call; empty when it is longer than 1023 bytes.
    virtual const char* getWorkingDirectory() = 0;
    virtual bool changeWorkingDirectoryTo(const char* directory) = 0;
    /// True also when the folder exists already.
    virtual bool createDirectory(const char* directory) = 0;
    /// Whether a file on disk can be opened; factories are not asked.
    virtual bool existFile(const char* filename) = 0;
    /// Grabs the factory; null is ignored.
    virtual void addFileFactory(sonimbra::IFileFactory* factory) = 0;
    /// Returns a new list of the current folder, with one reference for the caller.
    virtual IFileList* createFileList() = 0;
};

} // namespace sn_internal::io
