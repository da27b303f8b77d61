// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "engine/CSonimbraSoundEngine.h"

#include "core/integers.h"
#include "core/log.h"
#include "core/no_throw.h"
#include "engine/CSonimbraPluginManager.h"
#include "engine/version.h"
#include "streams/CSonimbraAudioStreamLoaderMOD.h"
#include "streams/CSonimbraAudioStreamLoaderOGG.h"
#include "streams/CSonimbraAudioStreamLoaderWAV.h"

#include <chrono>
#include <cstring>
#include <thread>

namespace sn_internal {

using sonimbra::ISound;
using sonimbra::ISoundSource;
using sonimbra::vec3df;

namespace {

/// Between two update cycles of the engine's thread.
constexpr std::chrono::milliseconds UpdateInterval(50);

constexpr std::uint32_t HighestThreadPriority = 4;

ISound* const NoSound = nullptr;

} // namespace

CSonimbraSoundEngine::CSonimbraSoundEngine(io::IFileSystem* fileSystem, int options)
    : Options(options),
      Link(std::make_shared<CEngineLink>(this)),
      FileSystem(counted_ptr<io::IFileSystem>::share(fileSystem)),
      Logger(acquireLogger(options)) {
    logText("Sonimbra sound library version " SONIMBRA_LIBRARY_VERSION);
    registerBuiltInLoaders();
    if ((options & sonimbra::LoadPlugins) != 0) {
        withoutExceptions([this] {
            CSonimbraPluginManager(this, FileSystem.get()).loadPluginsFromStartFolders();
        });
    }
}

CSonimbraSoundEngine::~CSonimbraSoundEngine() {
    shutDown();
    {
        const CScopedLock lock(getLock());
        FileSystem.reset();
    }
    releaseLogger(Logger);
}

template <class TLoader>
void CSonimbraSoundEngine::registerBuiltInLoader() {
    const auto loader = counted_ptr<TLoader>::adopt(new TLoader(FileSystem.get()));
    registerAudioStreamLoader(loader.get());
}

void CSonimbraSoundEngine::registerBuiltInLoaders() {
    registerBuiltInLoader<CSonimbraAudioStreamLoaderWAV>();
    registerBuiltInLoader<CSonimbraAudioStreamLoaderOGG>();
    registerBuiltInLoader<CSonimbraAudioStreamLoaderMOD>();
}

void CSonimbraSoundEngine::startEngineThread() {
    if (!isMultiThreaded()) {
        return;
    }
    // Set here, not by the thread, so that an engine dropped at once waits for it.
    IsThreadRunning = true;
    if (!withoutExceptions(false, [this] { return startThread(this, 0, HighestThreadPriority); })) {
        IsThreadRunning = false;
    }
}

void CSonimbraSoundEngine::stopEngineThread() {
    IsStopRequested = true;
    while (IsThreadRunning) {
        std::this_thread::sleep_for(UpdateInterval / 2);
    }
}

void CSonimbraSoundEngine::shutDown() {
    stopEngineThread();
    const CScopedLock lock(getLock());
    Loaders.dropAll();
    endSounds();
}

/// The link is cut here, under the lock, and not where the common engine is destroyed: a thread
/// that uses a sound in between must not find an engine whose class is half gone.
void CSonimbraSoundEngine::endSounds() {
    const CScopedLock lock(getLock());
    removeAllSoundSources();
    Link->forgetEngine();
}

void CSonimbraSoundEngine::run(const SThreadStart&) {
    while (!IsStopRequested) {
        withoutExceptions([this] { updateDriver(); });
        std::this_thread::sleep_for(UpdateInterval);
    }
    IsThreadRunning = false;
}

CSonimbraSoundSource* CSonimbraSoundEngine::toOwnSource(ISoundSource* source) const {
    auto* own = dynamic_cast<CSonimbraSoundSource*>(source);
    return own != nullptr && own->belongsTo(Link) ? own : nullptr;
}

ISound* CSonimbraSoundEngine::play2D(ISoundSource* source, bool looped, bool startPaused,
                                     bool track, bool enableSoundEffects) {
    return play(source, nullptr, {looped, startPaused, track, enableSoundEffects});
}

ISound* CSonimbraSoundEngine::play2D(const char* soundFileName, bool looped, bool startPaused,
                                     bool track, sonimbra::E_STREAM_MODE, bool enableSoundEffects) {
    return playByName(soundFileName, nullptr, {looped, startPaused, track, enableSoundEffects});
}

ISound* CSonimbraSoundEngine::play3D(ISoundSource* source, const vec3df& position, bool looped,
                                     bool startPaused, bool track, bool enableSoundEffects) {
    return play(source, &position, {looped, startPaused, track, enableSoundEffects});
}

ISound* CSonimbraSoundEngine::play3D(const char* soundFileName, const vec3df& position, bool looped,
                                     bool startPaused, bool track, sonimbra::E_STREAM_MODE,
                                     bool enableSoundEffects) {
    return playByName(soundFileName, &position, {looped, startPaused, track, enableSoundEffects});
}

ISound* CSonimbraSoundEngine::playByName(const char* name, const vec3df* position,
                                         const SPlayOptions& options) {
    const CScopedLock lock(getLock()); // no other thread may remove the source in between
    return play(getSoundSource(name, true), position, options);
}

ISound* CSonimbraSoundEngine::play(ISoundSource* source, const vec3df* position,
                                   const SPlayOptions& options) {
    CSonimbraSoundSource* own = toOwnSource(source);
    if (own == nullptr || IsStopRequested) {
        return nullptr;
    }
    const CScopedLock lock(getLock());
    return withoutExceptions(NoSound, [&] { return start(*own, position, options); });
}

ISound* CSonimbraSoundEngine::start(CSonimbraSoundSource& source, const vec3df* position,
                                    const SPlayOptions& options) {
    // Opening it may call the application, which may remove it.
    const auto held = counted_ptr<CSonimbraSoundSource>::share(&source);
    const float maxDistance = source.getDefaultMaxDistance();
    const float minDistance = source.getDefaultMinDistance();
    auto sound = counted_ptr<CSonimbraSound>::adopt(static_cast<CSonimbraSound*>(
        source.createSound(FileSystem.get(), options.looped, position != nullptr,
                           options.enableSoundEffects, minDistance, maxDistance)));
    if (!sound) {
        return nullptr;
    }
    if (position != nullptr) {
        sound->setIs3D();
        sound->setPosition(*position);
    }
    sound->setVolume(source.getDefaultVolume());
    refreshListenerRelation(*sound.get());
    if (!options.startPaused) {
        sound->setIsPaused(false);
    }
    CSonimbraSound* playing = sound.get();
    Sounds.add(std::move(sound));
    if (!options.track && !options.startPaused && !options.enableSoundEffects) {
        return nullptr;
    }
    playing->grab();
    return playing;
}

void CSonimbraSoundEngine::refreshListenerRelation(CSonimbraSound& sound) {
    sound.updateListenerRelation(SoundVolume, Listener.Position.load(),
                                 Listener.LookDirection.load(), Listener.UpVector.load(),
                                 (Options & sonimbra::LinearRolloff) != 0, RolloffFactor);
}

void CSonimbraSoundEngine::stopAllSounds() {
    const CScopedLock lock(getLock());
    Sounds.reapAll();
    Sounds.deliverStopEvents();
}

void CSonimbraSoundEngine::setAllSoundsPaused(bool paused) {
    const CScopedLock lock(getLock());
    const CPlayingSounds::CWalk walk(Sounds);
    for (CSonimbraSound* sound : Sounds.getPlaying()) {
        sound->setIsPaused(paused);
    }
}

void CSonimbraSoundEngine::setSoundVolume(float volume) {
    const CScopedLock lock(getLock());
    if (volume == SoundVolume) {
        return;
    }
    SoundVolume = volume;
    if (!isMultiThreaded()) {
        updateDriver();
    }
}

float CSonimbraSoundEngine::getSoundVolume() {
    const CScopedLock lock(getLock());
    return SoundVolume;
}

void CSonimbraSoundEngine::setListenerPosition(const vec3df& position, const vec3df& lookDirection,
                                               const vec3df& velocityPerSecond,
                                               const vec3df& upVector) {
    Listener.Position.store(position);
    Listener.LookDirection.store(lookDirection);
    Listener.Velocity.store(velocityPerSecond);
    Listener.UpVector.store(upVector);
}

void CSonimbraSoundEngine::update() {
    if (!isMultiThreaded()) {
        updateDriver();
    }
}

void CSonimbraSoundEngine::updateDriver() {
    const CScopedLock lock(getLock());
    updateSounds();
    Sounds.deliverStopEvents();
}

void CSonimbraSoundEngine::updateSounds() {
    const CScopedLock lock(getLock());
    Sounds.update([this](CSonimbraSound& sound) { refreshListenerRelation(sound); });
}

bool CSonimbraSoundEngine::isCurrentlyPlaying(ISoundSource* source) {
    const CScopedLock lock(getLock());
    return Sounds.contains(
        [source](const CSonimbraSoundSource& played) { return &played == source; });
}

bool CSonimbraSoundEngine::isCurrentlyPlaying(const char* soundName) {
    if (soundName == nullptr) {
        return false;
    }
    const CScopedLock lock(getLock());
    return Sounds.contains([soundName](CSonimbraSoundSource& played) {
        return std::strcmp(played.getName(), soundName) == 0;
    });
}

void CSonimbraSoundEngine::registerAudioStreamLoader(sonimbra::IAudioStreamLoader* loader) {
    if (loader != nullptr) {
        const CScopedLock lock(getLock());
        withoutExceptions([&] { Loaders.add(loader); });
    }
}

sonimbra::IAudioStream*
CSonimbraSoundEngine::createAudioStreamForFile(sonimbra::IFileReader& file) {
    return Loaders.createAudioStream(file);
}

void CSonimbraSoundEngine::addFileFactory(sonimbra::IFileFactory* fileFactory) {
    const CScopedLock lock(getLock());
    withoutExceptions([&] { FileSystem->addFileFactory(fileFactory); });
}

bool CSonimbraSoundEngine::loadPlugins(const char* path) {
    const CScopedLock lock(getLock());
    return withoutExceptions(
        false, [&] { return CSonimbraPluginManager(this, FileSystem.get()).loadPlugins(path); });
}

void CSonimbraSoundEngine::setDefault3DSoundMinDistance(float minDistance) {
    if (minDistance >= 0.0f) {
        DefaultMinDistance = minDistance;
    }
}

void CSonimbraSoundEngine::setDefault3DSoundMaxDistance(float maxDistance) {
    if (maxDistance > 0.0f) {
        DefaultMaxDistance = maxDistance;
    }
}

void CSonimbraSoundEngine::setRolloffFactor(float rolloff) {
    const CScopedLock lock(getLock());
    RolloffFactor = limited(rolloff, 0.0f, 10.0f);
}

bool CSonimbraSoundEngine::setMixedDataOutputReceiver(sonimbra::ISoundMixedOutputReceiver*) {
    logText("Error: This sound driver does not support MixedDataOutputReceivers. Use a software "
            "driver.");
    return false;
}

ISound* CSonimbraSoundEngine::playMusic(const char*) {
    logText("playMusic() is not implemented in this version, yet. Sorry");
    return nullptr;
}

} // namespace sn_internal
