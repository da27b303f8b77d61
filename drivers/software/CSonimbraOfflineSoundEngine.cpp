// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/software/CSonimbraOfflineSoundEngine.h"

#include "core/log.h"
#include "drivers/software/offline_engine.h"

#include <algorithm>

namespace sn_internal {

CSonimbraOfflineSoundEngine::CSonimbraOfflineSoundEngine(io::IFileSystem* fileSystem, int options)
    : CSonimbraSoftwareSoundEngine(fileSystem, options) {
    logText("Using Offline driver");
}

CSonimbraOfflineSoundEngine::~CSonimbraOfflineSoundEngine() {
    shutDown();
}

std::int32_t CSonimbraOfflineSoundEngine::renderFrames(std::int16_t* target,
                                                       std::int32_t frameCount) {
    if (target == nullptr || frameCount < 1) {
        return 0;
    }
    for (std::int32_t done = 0; done < frameCount;) {
        const std::int32_t taken = renderPiece(target, frameCount - done);
        target += OutputChannels * taken;
        done += taken;
    }
    return frameCount;
}

std::int32_t CSonimbraOfflineSoundEngine::renderPiece(std::int16_t* target,
                                                      std::int32_t frameCount) {
    const CScopedLock lock(getLock());
    if (TakenFrames == OutputBufferFrames) {
        renderBuffer();
    }
    const std::int32_t taken = std::min(frameCount, OutputBufferFrames - TakenFrames);
    std::copy_n(Buffer + OutputChannels * TakenFrames, OutputChannels * taken, target);
    TakenFrames += taken;
    return taken;
}

/// What a device driver does in its update, for one buffer.
void CSonimbraOfflineSoundEngine::renderBuffer() {
    updateSounds();
    mix(Buffer, OutputBufferFrames);
    TakenFrames = 0;
    deliverStopEvents();
}

sonimbra::IOfflineSoundEngine* createOfflineEngine(io::IFileSystem* fileSystem, int options) {
    return new CSonimbraOfflineSoundEngine(fileSystem, options);
}

} // namespace sn_internal
