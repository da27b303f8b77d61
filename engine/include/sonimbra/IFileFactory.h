// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/IFileReader.h>

namespace sonimbra {

/// Opens files on the application's behalf, for example out of an archive. Install it with
/// ISoundEngine::addFileFactory; the engine then asks it for every file before it looks on disk.
class IFileFactory : public virtual IRefCounted {
public:
    /// Returns a new reader with one reference for the caller, or null when this factory does not
    /// handle the name (UTF-8, as passed to the engine). Called with the engine's lock held; the
    /// engine may be called from inside, also to remove the source that is being opened (copy the
    /// name first if it is used afterwards).
    virtual IFileReader* createFileReader(const char* filename) = 0;
};

} // namespace sonimbra
