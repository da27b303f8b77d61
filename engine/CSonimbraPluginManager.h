// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/array.h"
#include "core/counted_ptr.h"
#include "io/IFileSystem.h"

namespace sonimbra {
class ISoundEngine;
}

namespace sn_internal {

/// Finds plug-in libraries by their names, loads them and lets them register what they bring.
///
/// An engine makes one for a single search. The search changes the process's working folder for a
/// while, so one at a time runs in the whole process. A caller that holds its engine's lock may
/// wait for that: a search takes the lock of no engine but the one it is for, which its caller
/// holds or nobody else has seen yet.
class CSonimbraPluginManager final : public sonimbra::IRefCounted {
public:
    /// The engine is what plug-ins are given; the manager keeps no reference to it.
    CSonimbraPluginManager(sonimbra::ISoundEngine* engine, io::IFileSystem* fileSystem);

    /// Searches the program's folder, then the working folder.
    void loadPluginsFromStartFolders();

    /// Searches a folder. Returns whether it could be entered.
    bool loadPlugins(const char* path);

    /// Loads a library of the working folder, unless this manager has tried that name before.
    void loadPlugin(const char* fileName);

private:
    void scanWorkingFolder();

    sonimbra::ISoundEngine* const Engine;
    const counted_ptr<io::IFileSystem> FileSystem;
    sonimbra::array<sonimbra::string<char>> TriedNames;
};

} // namespace sn_internal
