// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/software/CSonimbraNULLSoundEngine.h"

#include "core/log.h"
#include "drivers/software/null_engine.h"

namespace sn_internal {

CSonimbraNULLSoundEngine::CSonimbraNULLSoundEngine(io::IFileSystem* fileSystem, int options)
    : CSonimbraSoundEngine(fileSystem, options) {
    startEngineThread();
    logText("Using NULL driver");
}

CSonimbraNULLSoundEngine::~CSonimbraNULLSoundEngine() {
    shutDown();
}

sonimbra::ISoundEngine* createNullEngine(io::IFileSystem* fileSystem, int options) {
    return new CSonimbraNULLSoundEngine(fileSystem, options);
}

} // namespace sn_internal
