// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/IAudioStreamLoader.h>
#include <sonimbra/IFileFactory.h>
#include <sonimbra/ISound.h>
#include <sonimbra/ISoundMixedOutputReceiver.h>
#include <sonimbra/ISoundSource.h>

namespace sn_internal {
class CSonimbraBufferedSamples;
}

namespace sonimbra {

/// An engine plays sounds through one output driver.
///
/// Unless said otherwise, operations take the engine's lock and may be called from any thread.
/// grab() and drop() count without a lock: keep them to one thread, or guard them yourself. The
/// engine's last reference must not be dropped from inside a callback. Dropping it stops every
/// sound.
///
/// Names and texts are UTF-8. Bad arguments (null names, null data) give null or false.
class ISoundEngine : public virtual IRefCounted {
public:
    /// "DirectSound8", "DirectSound", "winMM", "ALSA", "NULL" or "Offline"; "Unknown" from the
    /// common base.
    virtual const char* getDriverName() = 0;

    /// Plays a source without position. Returns the sound, with one reference for the caller, when
    /// track, startPaused or enableSoundEffects is set; otherwise null: the sound plays on its own.
    /// Also null when the sound cannot be opened (the log says why) or the driver makes no sounds.
    ///   looped              starts over at the end
    ///   startPaused         the sound waits for setIsPaused(false)
    ///   track               return the sound
    ///   enableSoundEffects  DirectSound8: makes the sound able to take effects. Such a sound does
    ///                       not play if it is shorter than 150 ms and not streamed
    virtual ISound* play2D(ISoundSource* source, bool looped = false, bool startPaused = false,
                           bool track = false, bool enableSoundEffects = false) = 0;

    /// Plays a file or a registered source by name; an unknown name is added as a file first, in
    /// automatic stream mode (streamMode is accepted for compatibility and has no effect).
    virtual ISound* play2D(const char* soundFileName, bool looped = false, bool startPaused = false,
                           bool track = false, E_STREAM_MODE streamMode = E_STREAM_MODE::AutoDetect,
                           bool enableSoundEffects = false) = 0;

    /// As play2D, at a position in the application's units.
    virtual ISound* play3D(ISoundSource* source, const vec3df& position, bool looped = false,
                           bool startPaused = false, bool track = false,
                           bool enableSoundEffects = false) = 0;
    virtual ISound* play3D(const char* soundFileName, const vec3df& position, bool looped = false,
                           bool startPaused = false, bool track = false,
                           E_STREAM_MODE streamMode = E_STREAM_MODE::AutoDetect,
                           bool enableSoundEffects = false) = 0;

    /// Ends every playing sound and delivers their stop events, with the cause
    /// SoundFinishedPlaying.
    virtual void stopAllSounds() = 0;

    /// Pauses or resumes every playing sound.
    virtual void setAllSoundsPaused(bool paused = true) = 0;

    /// @name Registry of sound sources
    /// @{

    /// The number of registered sources.
    virtual std::int32_t getSoundSourceCount() = 0;

    /// Looks a source up by its exact name. With addIfNotFound an unknown name is added as a file
    /// source (the file is opened at the first play). No reference for the caller; null when there
    /// is none.
    virtual ISoundSource* getSoundSource(const char* soundName, bool addIfNotFound = true) = 0;

    /// The source at an index of the registry, which is in the order of the names (bytes compared
    /// as signed characters, case-sensitive). Null outside 0..count-1.
    virtual ISoundSource* getSoundSource(std::int32_t index) = 0;

    /// Adds a file. With preload it is decoded at once, unless it is to be streamed. Null when the
    /// name exists already.
    virtual ISoundSource*
    addSoundSourceFromFile(const char* fileName,
                           E_STREAM_MODE streamMode = E_STREAM_MODE::AutoDetect,
                           bool preload = false) = 0;

    /// Adds an encoded file that stands in memory. Without copyMemory the bytes stay the caller's
    /// and must live as long as the source and what plays it. Null for empty memory and for a name
    /// that exists.
    virtual ISoundSource* addSoundSourceFromMemory(void* memory, std::int32_t sizeInBytes,
                                                   const char* soundName,
                                                   bool copyMemory = true) = 0;

    /// Adds raw samples in the given format; frames beyond sizeInBytes are left out. Otherwise as
    /// addSoundSourceFromMemory.
    virtual ISoundSource* addSoundSourceFromPCMData(void* memory, std::int32_t sizeInBytes,
                                                    const char* soundName,
                                                    const SAudioStreamFormat& format,
                                                    bool copyMemory = true) = 0;

    /// Adds a second name for a source, with its own default volume and distances; the rest is the
    /// base's. The alias keeps its base alive. Null when the name exists or baseSource is null.
    virtual ISoundSource* addSoundSourceAlias(ISoundSource* baseSource, const char* soundName) = 0;

    /// Removes a source: its sounds are stopped, with the cause SoundStoppedBySourceRemoval.
    virtual void removeSoundSource(const char* name) = 0;
    virtual void removeSoundSource(ISoundSource* source) = 0;
    virtual void removeAllSoundSources() = 0;
    /// @}

    /// Master volume, multiplied with every sound's own. Default: 1.0. A change on an engine
    /// without thread runs an update at once.
    virtual void setSoundVolume(float volume) = 0;
    virtual float getSoundVolume() = 0;

    /// Places the listener, in the application's units. Takes effect with the next update. Does not
    /// take the lock. After creation: position (0, 0, 0), look direction (1, 1, 0), velocity
    /// (0, 0, 0), up vector (0, 1, 0).
    virtual void setListenerPosition(const vec3df& position, const vec3df& lookDirection,
                                     const vec3df& velocityPerSecond = vec3df(0, 0, 0),
                                     const vec3df& upVector = vec3df(0, 1, 0)) = 0;

    /// Runs one update cycle: 3D relations, output buffers, finished sounds, stop events. Does
    /// nothing on a multi-threaded engine, which updates itself.
    virtual void update() = 0;

    /// True while a sound of the source plays or is paused. Sounds played through an alias count
    /// for the alias's base.
    virtual bool isCurrentlyPlaying(ISoundSource* source) = 0;
    /// The same by the source's exact name.
    virtual bool isCurrentlyPlaying(const char* soundName) = 0;

    /// Adds a decoder; the engine grabs it. Null is ignored.
    virtual void registerAudioStreamLoader(IAudioStreamLoader* loader) = 0;

    /// True when the engine was created with the MultiThreaded option.
    virtual bool isMultiThreaded() = 0;

    /// Adds an opener of files, asked before the disk, in the order of adding; the engine grabs it.
    /// Null is ignored.
    virtual void addFileFactory(IFileFactory* fileFactory) = 0;

    /// Minimum distance for sources that have none of their own. Stored when 0 or more, without the
    /// lock. Default: 1.0.
    virtual void setDefault3DSoundMinDistance(float minDistance) = 0;
    virtual float getDefault3DSoundMinDistance() = 0;

    /// Maximum distance for sources that have none of their own. Stored when above 0, without the
    /// lock. Default: 1000000000.0.
    virtual void setDefault3DSoundMaxDistance(float maxDistance) = 0;
    virtual float getDefault3DSoundMaxDistance() = 0;

    /// Rolloff factor of hardware 3D, clamped to 0.0..10.0. Default: 1.0. Software 3D does not use
    /// it.
    virtual void setRolloffFactor(float rolloff) = 0;

    /// Doppler factors of hardware 3D; other drivers ignore them.
    virtual void setDopplerEffectParameters(float dopplerFactor = 1.0f,
                                            float distanceFactor = 1.0f) = 0;

    /// Loads the plug-in libraries of a folder (UTF-8); see docs/writing_a_plugin.md. Returns
    /// whether the folder could be entered, false for null; what became of each library stands in
    /// the log. The process's working folder changes during the call. One engine in a process
    /// searches at a time; others wait.
    virtual bool loadPlugins(const char* path) = 0;

    /// Five pointers with the driver's native handles, owned by the engine; null where a driver has
    /// none.
    virtual void* getInternalAudioInterface() = 0;

    /// Sets who receives the mixed output, null for nobody. The receiver stays the caller's and
    /// must be unset before it is destroyed. Returns false on drivers that do not mix in software.
    virtual bool setMixedDataOutputReceiver(ISoundMixedOutputReceiver* receiver) = 0;

    /// Reserved; returns null.
    virtual ISound* playMusic(const char* musicFileName) = 0;

    /// @name Reserved and for drivers
    /// @{

    /// Reserved for drivers; 0 from the common base.
    virtual std::int32_t queryDriver() = 0;
    /// A stored value without effect. Default: 1.0.
    virtual void setReservedFactor(float value) = 0;
    virtual float getReservedFactor() = 0;

    /// Makes a paused sound from decoded samples, with one reference for the caller; null when the
    /// driver makes none. Called with the lock held, as are the next ones.
    virtual ISound* createDriverSound(sn_internal::CSonimbraBufferedSamples* samples,
                                      ISoundSource* source, bool looped, bool is3D,
                                      float minDistance, float maxDistance,
                                      bool enableSoundEffects) = 0;
    /// The same from a decoder, which the sound grabs.
    virtual ISound* createDriverStream(IAudioStream* stream, ISoundSource* source, bool looped,
                                       bool is3D, float minDistance, float maxDistance,
                                       bool enableSoundEffects) = 0;
    /// True when the driver has started up.
    virtual bool isDriverInitialized() = 0;
    /// A source leaves the registry: the driver frees what it cached for it.
    virtual void onSourceRemoved(ISoundSource* source) = 0;
    /// One update cycle.
    virtual void updateDriver() = 0;
    /// The per-sound part of it: 3D relations, reaping of finished sounds.
    virtual void updateSounds() = 0;
    /// @}
};

} // namespace sonimbra
