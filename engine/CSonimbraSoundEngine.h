// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/IThread.h"
#include "engine/CAudioStreamLoaderList.h"
#include "engine/CListener.h"
#include "engine/CPlayingSounds.h"
#include "engine/CSoundSourceRegistry.h"
#include "io/IFileSystem.h"

#include <sonimbra/E_SOUND_ENGINE_OPTIONS.h>
#include <sonimbra/ILogger.h>
#include <sonimbra/ISoundEngine.h>

namespace sn_internal {

/// The common base of every output driver's engine: listener, global parameters, sources, playing
/// sounds, decoders, and the update cycle.
///
/// Drivers override the hooks. A driver's constructor starts the engine's thread when everything
/// that the thread uses exists; its destructor stops the thread before it releases anything.
class CSonimbraSoundEngine : public virtual sonimbra::ISoundEngine, public IThread {
public:
    ~CSonimbraSoundEngine() override;

    const char* getDriverName() override { return "Unknown"; }
    sonimbra::ISound* play2D(sonimbra::ISoundSource* source, bool looped, bool startPaused,
                             bool track, bool enableSoundEffects) override;
    sonimbra::ISound* play2D(const char* soundFileName, bool looped, bool startPaused, bool track,
                             sonimbra::E_STREAM_MODE streamMode, bool enableSoundEffects) override;
    sonimbra::ISound* play3D(sonimbra::ISoundSource* source, const sonimbra::vec3df& position,
                             bool looped, bool startPaused, bool track,
                             bool enableSoundEffects) override;
    sonimbra::ISound* play3D(const char* soundFileName, const sonimbra::vec3df& position,
                             bool looped, bool startPaused, bool track,
                             sonimbra::E_STREAM_MODE streamMode, bool enableSoundEffects) override;
    void stopAllSounds() override;
    void setAllSoundsPaused(bool paused) override;

    std::int32_t getSoundSourceCount() override;
    sonimbra::ISoundSource* getSoundSource(const char* soundName, bool addIfNotFound) override;
    sonimbra::ISoundSource* getSoundSource(std::int32_t index) override;
    sonimbra::ISoundSource* addSoundSourceFromFile(const char* fileName,
                                                   sonimbra::E_STREAM_MODE streamMode,
                                                   bool preload) override;
    sonimbra::ISoundSource* addSoundSourceFromMemory(void* memory, std::int32_t sizeInBytes,
                                                     const char* soundName,
                                                     bool copyMemory) override;
    sonimbra::ISoundSource* addSoundSourceFromPCMData(void* memory, std::int32_t sizeInBytes,
                                                      const char* soundName,
                                                      const sonimbra::SAudioStreamFormat& format,
                                                      bool copyMemory) override;
    sonimbra::ISoundSource* addSoundSourceAlias(sonimbra::ISoundSource* baseSource,
                                                const char* soundName) override;
    void removeSoundSource(const char* name) override;
    void removeSoundSource(sonimbra::ISoundSource* source) override;
    void removeAllSoundSources() override;

    void setSoundVolume(float volume) override;
    float getSoundVolume() override;
    void setListenerPosition(const sonimbra::vec3df& position,
                             const sonimbra::vec3df& lookDirection,
                             const sonimbra::vec3df& velocityPerSecond,
                             const sonimbra::vec3df& upVector) override;
    void update() override;
    bool isCurrentlyPlaying(sonimbra::ISoundSource* source) override;
    bool isCurrentlyPlaying(const char* soundName) override;
    void registerAudioStreamLoader(sonimbra::IAudioStreamLoader* loader) override;
    bool isMultiThreaded() override { return (Options & sonimbra::MultiThreaded) != 0; }
    void addFileFactory(sonimbra::IFileFactory* fileFactory) override;
    void setDefault3DSoundMinDistance(float minDistance) override;
    float getDefault3DSoundMinDistance() override { return DefaultMinDistance; }
    void setDefault3DSoundMaxDistance(float maxDistance) override;
    float getDefault3DSoundMaxDistance() override { return DefaultMaxDistance; }
    void setRolloffFactor(float rolloff) override;
    void setDopplerEffectParameters(float, float) override {}
    bool loadPlugins(const char* path) override;
    void* getInternalAudioInterface() override { return InternalAudioInterface; }
    bool setMixedDataOutputReceiver(sonimbra::ISoundMixedOutputReceiver* receiver) override;
    sonimbra::ISound* playMusic(const char* musicFileName) override;
    std::int32_t queryDriver() override { return 0; }
    void setReservedFactor(float value) override { ReservedFactor = value; }
    float getReservedFactor() override { return ReservedFactor; }
    sonimbra::ISound* createDriverSound(CSonimbraBufferedSamples*, sonimbra::ISoundSource*, bool,
                                        bool, float, float, bool) override {
        return nullptr;
    }
    sonimbra::ISound* createDriverStream(sonimbra::IAudioStream*, sonimbra::ISoundSource*, bool,
                                         bool, float, float, bool) override {
        return nullptr;
    }
    bool isDriverInitialized() override { return true; }
    void onSourceRemoved(sonimbra::ISoundSource*) override {}
    void updateDriver() override;
    void updateSounds() override;

    /// The engine's thread.
    void run(const SThreadStart& start) override;

    /// Finds a decoder for a file; null, and a line in the log, when there is none. The caller
    /// holds the lock and gets one reference.
    sonimbra::IAudioStream* createAudioStreamForFile(sonimbra::IFileReader& file);

    /// Computes a sound's volume and pan from where the listener is. The caller holds the lock.
    void refreshListenerRelation(CSonimbraSound& sound);

protected:
    CSonimbraSoundEngine(io::IFileSystem* fileSystem, int options);

    /// For a driver's constructor: starts the update thread of a multi-threaded engine.
    void startEngineThread();
    /// For a driver's destructor: refuses new sounds and waits until the thread has ended.
    void stopEngineThread();
    /// For a driver's destructor: removes all sources, while the operations that receivers of stop
    /// events may call are still there, and cuts off sources and sounds that others still hold.
    void endSounds();
    /// For a driver's destructor: stops the thread, drops the decoders and ends the sounds.
    void shutDown();

    ICriticalSection& getLock() const { return Link->getLock(); }
    const CEngineLinkPtr& getLink() const { return Link; }
    CPlayingSounds& getSounds() { return Sounds; }
    const CPlayingSounds& getSounds() const { return Sounds; }
    void deliverStopEvents() { Sounds.deliverStopEvents(); }
    const CListener& getListener() const { return Listener; }
    float getRolloffFactor() const { return RolloffFactor; } ///< with the lock held
    /// Sets one of the native handles that the application may ask for, 0 to 4.
    void setInternalAudioInterface(std::int32_t index, void* handle) {
        InternalAudioInterface[index] = handle;
    }

    int Options;

private:
    struct SPlayOptions {
        bool looped;
        bool startPaused;
        bool track;
        bool enableSoundEffects;
    };

    void registerBuiltInLoaders();
    template <class TLoader>
    void registerBuiltInLoader();
    /// The source as one of this engine's own, or null.
    CSonimbraSoundSource* toOwnSource(sonimbra::ISoundSource* source) const;
    sonimbra::ISound* play(sonimbra::ISoundSource* source, const sonimbra::vec3df* position,
                           const SPlayOptions& options);
    sonimbra::ISound* start(CSonimbraSoundSource& source, const sonimbra::vec3df* position,
                            const SPlayOptions& options);
    sonimbra::ISound* playByName(const char* name, const sonimbra::vec3df* position,
                                 const SPlayOptions& options);
    bool isNameFree(const char* name) const;
    template <class TSource, class... Args>
    CSonimbraSoundSource* addSource(const char* name, Args&&... args);

    const CEngineLinkPtr Link;
    counted_ptr<io::IFileSystem> FileSystem;
    CSoundSourceRegistry Sources;
    CPlayingSounds Sounds;
    CAudioStreamLoaderList Loaders;
    CListener Listener;
    float SoundVolume = 1.0f;
    float RolloffFactor = 1.0f;
    std::atomic<float> ReservedFactor{1.0f};
    std::atomic<float> DefaultMinDistance{1.0f};
    std::atomic<float> DefaultMaxDistance{1000000000.0f};
    std::atomic<bool> IsThreadRunning{false};
    std::atomic<bool> IsStopRequested{false};
    sonimbra::ILogger* Logger;
    void* InternalAudioInterface[5] = {};
};

} // namespace sn_internal
