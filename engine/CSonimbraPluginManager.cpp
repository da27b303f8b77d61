// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "engine/CSonimbraPluginManager.h"

#include "core/log.h"
#include "core/no_throw.h"
#include "core/shared_library.h"
#include "engine/version.h"
#include "io/disk.h"

#include <sonimbra/export.h>

#include <memory>
#include <mutex>

namespace sn_internal {
namespace {

using PluginInit = void SONIMBRA_PLUGIN_CALL(sonimbra::ISoundEngine* engine, const char* version);

/// Enters a folder for as long as it lives. The working folder is not left without a way back.
class CVisit {
public:
    CVisit(io::IFileSystem& fileSystem, const char* folder)
        : Start(io::rememberWorkingDirectory()),
          HasEntered(Start && fileSystem.changeWorkingDirectoryTo(folder)) {}
    ~CVisit() {
        if (HasEntered) {
            Start->enter();
        }
    }
    CVisit(const CVisit&) = delete;
    CVisit& operator=(const CVisit&) = delete;

    bool hasEntered() const { return HasEntered; }
    bool isElsewhere() const { return HasEntered && !Start->isCurrent(); }

private:
    const std::unique_ptr<io::IRememberedDirectory> Start;
    const bool HasEntered;
};

/// Recursive, because a plug-in may make an engine of its own, which searches as well.
std::recursive_mutex& searchLock() {
    static std::recursive_mutex lock;
    return lock;
}

bool isPluginName(const sonimbra::string<char>& lowerCaseName) {
    return lowerCaseName.size() >= 8 && lowerCaseName.find("snp") == 0 &&
           lowerCaseName.find(SharedLibrarySuffix) >= 0;
}

void logError(const char* text, const char* fileName) {
    logTextWithHint(text, fileName, LogLevelError);
}

} // namespace

CSonimbraPluginManager::CSonimbraPluginManager(sonimbra::ISoundEngine* engine,
                                               io::IFileSystem* fileSystem)
    : Engine(engine), FileSystem(counted_ptr<io::IFileSystem>::share(fileSystem)) {
}

void CSonimbraPluginManager::loadPluginsFromStartFolders() {
    const std::lock_guard<std::recursive_mutex> lock(searchLock());
    const sonimbra::string<char> folder = FileSystem->getFileDir(io::executablePath().c_str());
    {
        const CVisit visit(*FileSystem.get(), folder.c_str());
        if (visit.isElsewhere()) {
            scanWorkingFolder();
        }
    }
    scanWorkingFolder();
}

bool CSonimbraPluginManager::loadPlugins(const char* path) {
    const std::lock_guard<std::recursive_mutex> lock(searchLock());
    const CVisit visit(*FileSystem.get(), path);
    if (visit.hasEntered()) {
        scanWorkingFolder();
    }
    return visit.hasEntered();
}

void CSonimbraPluginManager::scanWorkingFolder() {
    const auto files = counted_ptr<io::IFileList>::adopt(FileSystem->createFileList());
    for (std::int32_t i = 0; i < files->getFileCount(); ++i) {
        sonimbra::string<char> name(files->getFileName(i));
        name.make_lower();
        if (isPluginName(name)) {
            loadPlugin(name.c_str());
        }
    }
}

void CSonimbraPluginManager::loadPlugin(const char* fileName) {
    if (TriedNames.binary_search(fileName) >= 0) {
        return;
    }
    TriedNames.push_back(fileName);
    SSharedLibrary* library = loadSharedLibrary(fileName);
    if (library == nullptr) {
        logError("Could not load plugin", fileName);
        return;
    }
    auto* initialize =
        reinterpret_cast<PluginInit*>(findFunction(library, SONIMBRA_PLUGIN_ENTRY_NAME));
    if (initialize == nullptr) {
        logError("Could not find function 'sonimbraPluginInit' in plugin", fileName);
        return;
    }
    // One that throws must neither harm the application nor keep others from being loaded.
    withoutExceptions([&] { initialize(Engine, SONIMBRA_LIBRARY_VERSION); });
    logTextWithHint("Loaded plugin", fileName);
}

} // namespace sn_internal
