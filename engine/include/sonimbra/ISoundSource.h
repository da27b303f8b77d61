// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/E_STREAM_MODE.h>
#include <sonimbra/IFileReader.h>
#include <sonimbra/IVirtualRefCounted.h>
#include <sonimbra/SAudioStreamFormat.h>

namespace sn_internal::io {
class IFileSystem;
}

namespace sonimbra {

class ISound;

/// One playable sound, known to the engine by its name: a file, encoded data in memory, raw PCM
/// samples, or an alias of another source.
///
/// The engine's registry owns the sources: pointers that the engine hands out carry no reference.
/// grab() a source to keep it beyond its removal; it then plays nothing once the engine is gone.
/// The setters and getters may be called from any thread.
class ISoundSource : public IVirtualRefCounted {
public:
    /// The name it was registered under (UTF-8), owned by the source.
    virtual const char* getName() = 0;

    /// Whether to decode into memory or to stream. The first play or load replaces AutoDetect by
    /// its decision. Default: AutoDetect for files, NoStreaming for memory and PCM data.
    virtual void setStreamMode(E_STREAM_MODE mode) = 0;
    virtual E_STREAM_MODE getStreamMode() = 0;

    /// The length in milliseconds, -1 when it is not known. Opens the sound when it was not yet
    /// used, as do the next two and getSampleData().
    virtual std::int32_t getPlayLength() = 0;

    /// The format of the decoded sound; all zero when it cannot be opened.
    virtual SAudioStreamFormat getAudioFormat() = 0;

    /// True when sounds of this source can be moved to any position.
    virtual bool getIsSeekingSupported() = 0;

    /// The volume that its sounds start with, clamped to 0.0..1.0. Default: 1.0.
    virtual void setDefaultVolume(float volume) = 0;
    virtual float getDefaultVolume() = 0;

    /// The distance, in the application's units, below which its 3D sounds get no louder. A value
    /// not above 0 means the engine's default. Default: -1.0.
    virtual void setDefaultMinDistance(float minDistance) = 0;
    virtual float getDefaultMinDistance() = 0;

    /// The distance, in the application's units, beyond which its 3D sounds get no quieter. A value
    /// not above 0 means the engine's default. Default: -1.0.
    virtual void setDefaultMaxDistance(float maxDistance) = 0;
    virtual float getDefaultMaxDistance() = 0;

    /// Drops the decoded samples, so that the next play reads the file again. PCM sources keep
    /// theirs.
    virtual void forceReloadAtNextUse() = 0;

    /// Above so many bytes of decoded samples a source is streamed although its mode is
    /// NoStreaming. 0 or below switches the threshold off. Default: 2000000.
    virtual void setForcedStreamingThreshold(std::int32_t thresholdBytes) = 0;
    virtual std::int32_t getForcedStreamingThreshold() = 0;

    /// The decoded samples, getAudioFormat().getSampleDataSize() bytes owned by the source, or null
    /// when it is streamed. Valid until the source is reloaded or removed.
    virtual void* getSampleData() = 0;

    /// @name For the engine
    /// The engine calls these with its lock held.
    /// @{

    /// Decodes the sound, if it is not to be streamed, without playing it.
    virtual void loadNow(sn_internal::io::IFileSystem* fileSystem) = 0;

    /// Makes a new, paused sound with one reference for the caller, or null.
    virtual ISound* createSound(sn_internal::io::IFileSystem* fileSystem, bool looped, bool is3D,
                                bool enableSoundEffects, float minDistance, float maxDistance) = 0;

    /// Opens the encoded data. Returns a new reader with one reference for the caller, or null.
    virtual IFileReader* openFile(sn_internal::io::IFileSystem* fileSystem) = 0;
    /// @}
};

} // namespace sonimbra
