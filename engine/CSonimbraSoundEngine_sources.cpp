// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// The engine's operations on its sources.

#include "core/CVirtualUnknown.h"
#include "core/log.h"
#include "core/no_throw.h"
#include "engine/CSonimbraMemorySoundSource.h"
#include "engine/CSonimbraPurePCMSoundSource.h"
#include "engine/CSonimbraSoundEngine.h"
#include "engine/CSonimbraSoundSourceAlias.h"

namespace sn_internal {

using sonimbra::ISoundSource;

namespace {

bool isUsableMemory(const void* memory, std::int32_t sizeInBytes, const char* soundName) {
    if (memory != nullptr && sizeInBytes >= 1) {
        return soundName != nullptr;
    }
    logTextWithHint("Cannot add sound source from empty memory", soundName);
    return false;
}

} // namespace

std::int32_t CSonimbraSoundEngine::getSoundSourceCount() {
    const CScopedLock lock(getLock());
    return Sources.getCount();
}

ISoundSource* CSonimbraSoundEngine::getSoundSource(const char* soundName, bool addIfNotFound) {
    if (soundName == nullptr) {
        return nullptr;
    }
    const CScopedLock lock(getLock());
    CSonimbraSoundSource* found = Sources.find(soundName);
    if (found != nullptr || !addIfNotFound) {
        return found;
    }
    return addSource<CSonimbraSoundSource>(soundName, sonimbra::E_STREAM_MODE::AutoDetect);
}

ISoundSource* CSonimbraSoundEngine::getSoundSource(std::int32_t index) {
    const CScopedLock lock(getLock());
    return Sources.get(index);
}

bool CSonimbraSoundEngine::isNameFree(const char* name) const {
    if (Sources.find(name) == nullptr) {
        return true;
    }
    logTextWithHint("Cannot add sound source, it exists already", name);
    return false;
}

template <class TSource, class... Args>
CSonimbraSoundSource* CSonimbraSoundEngine::addSource(const char* name, Args&&... args) {
    CSonimbraSoundSource* const none = nullptr;
    return withoutExceptions(none, [&] {
        return Sources.add(counted_ptr<CSonimbraSoundSource>::adopt(
            new sonimbra::CVirtualUnknown<TSource>(Link, name, std::forward<Args>(args)...)));
    });
}

ISoundSource* CSonimbraSoundEngine::addSoundSourceFromFile(const char* fileName,
                                                           sonimbra::E_STREAM_MODE streamMode,
                                                           bool preload) {
    const CScopedLock lock(getLock());
    if (fileName == nullptr || !isNameFree(fileName)) {
        return nullptr;
    }
    CSonimbraSoundSource* source = addSource<CSonimbraSoundSource>(fileName, streamMode);
    if (source != nullptr && preload && streamMode != sonimbra::E_STREAM_MODE::Streaming) {
        source->loadNow(FileSystem.get());
    }
    return Sources.find(fileName); // null when a file of the application has removed it meanwhile
}

ISoundSource* CSonimbraSoundEngine::addSoundSourceFromMemory(void* memory, std::int32_t sizeInBytes,
                                                             const char* soundName,
                                                             bool copyMemory) {
    const CScopedLock lock(getLock());
    if (!isUsableMemory(memory, sizeInBytes, soundName) || !isNameFree(soundName)) {
        return nullptr;
    }
    return addSource<CSonimbraMemorySoundSource>(soundName, memory, sizeInBytes, copyMemory);
}

ISoundSource* CSonimbraSoundEngine::addSoundSourceFromPCMData(
    void* memory, std::int32_t sizeInBytes, const char* soundName,
    const sonimbra::SAudioStreamFormat& format, bool copyMemory) {
    const CScopedLock lock(getLock());
    if (!isUsableMemory(memory, sizeInBytes, soundName) || !isNameFree(soundName)) {
        return nullptr;
    }
    return addSource<CSonimbraPurePCMSoundSource>(soundName, memory, sizeInBytes, format,
                                                  copyMemory);
}

ISoundSource* CSonimbraSoundEngine::addSoundSourceAlias(ISoundSource* baseSource,
                                                        const char* soundName) {
    const CScopedLock lock(getLock());
    if (soundName == nullptr || toOwnSource(baseSource) == nullptr || !isNameFree(soundName)) {
        return nullptr;
    }
    return addSource<CSonimbraSoundSourceAlias>(soundName, baseSource);
}

void CSonimbraSoundEngine::removeSoundSource(const char* name) {
    if (name == nullptr) {
        return;
    }
    const CScopedLock lock(getLock());
    if (CSonimbraSoundSource* source = Sources.find(name)) {
        removeSoundSource(source);
    } else {
        logTextWithHint("Cannot find sound source to remove", name);
    }
}

void CSonimbraSoundEngine::removeSoundSource(ISoundSource* source) {
    if (source == nullptr) {
        return;
    }
    const CScopedLock lock(getLock());
    // Held, so that no new source can take its address while receivers do what they like.
    const auto own = counted_ptr<CSonimbraSoundSource>::share(Sources.find(source));
    {
        const CPlayingSounds::CRemoval removal(Sounds);
        Sounds.reapSoundsOf(source);
        Sounds.deliverStopEvents();
    }
    if (own && Sources.find(source) != nullptr) { // a receiver may have removed it
        onSourceRemoved(own.get());
        own->detachAllSounds();
        Sources.remove(own.get());
    }
}

void CSonimbraSoundEngine::removeAllSoundSources() {
    const CScopedLock lock(getLock());
    const CPlayingSounds::CRemoval removal(Sounds);
    stopAllSounds();
    for (std::int32_t i = 0; i < Sources.getCount(); ++i) {
        onSourceRemoved(Sources.get(i));
        Sources.get(i)->detachAllSounds();
    }
    Sources.removeAll();
}

} // namespace sn_internal
