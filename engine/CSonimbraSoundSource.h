// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/string.h"
#include "engine/CEngineLink.h"
#include "streams/CSonimbraBufferedSamples.h"

#include <sonimbra/IAudioStream.h>
#include <sonimbra/ISoundSource.h>

#include <atomic>

namespace sn_internal {

class CSonimbraSound;

/// A sound in a file, and the common base of the other sources: decides once between decoding into
/// memory and streaming, keeps the decoded samples, and has the engine's driver make sounds.
///
/// Single values are atomics; the format, the samples and the list of sounds stand under the
/// engine's lock.
class CSonimbraSoundSource : public sonimbra::ISoundSource {
public:
    CSonimbraSoundSource(const CEngineLinkPtr& link, const char* name,
                         sonimbra::E_STREAM_MODE mode);
    ~CSonimbraSoundSource() override;

    const char* getName() override { return Name.c_str(); }
    void setStreamMode(sonimbra::E_STREAM_MODE mode) override { StreamMode = mode; }
    sonimbra::E_STREAM_MODE getStreamMode() override { return StreamMode; }
    std::int32_t getPlayLength() override;
    sonimbra::SAudioStreamFormat getAudioFormat() override;
    bool getIsSeekingSupported() override;
    void setDefaultVolume(float volume) override;
    float getDefaultVolume() override { return DefaultVolume; }
    void setDefaultMinDistance(float minDistance) override { DefaultMinDistance = minDistance; }
    float getDefaultMinDistance() override;
    void setDefaultMaxDistance(float maxDistance) override { DefaultMaxDistance = maxDistance; }
    float getDefaultMaxDistance() override;
    void forceReloadAtNextUse() override;
    void setForcedStreamingThreshold(std::int32_t bytes) override {
        ForcedStreamingThreshold = bytes;
    }
    std::int32_t getForcedStreamingThreshold() override { return ForcedStreamingThreshold; }
    void* getSampleData() override;
    void loadNow(io::IFileSystem* fileSystem) override;
    sonimbra::ISound* createSound(io::IFileSystem* fileSystem, bool looped, bool is3D,
                                  bool enableSoundEffects, float minDistance,
                                  float maxDistance) override;
    sonimbra::IFileReader* openFile(io::IFileSystem* fileSystem) override;

    bool belongsTo(const CEngineLinkPtr& link) const { return Link == link; }

    /// What the driver keeps with the source for its later sounds: it is let go with the source, or
    /// with the samples that it was made from. With the engine's lock held.
    sonimbra::IRefCounted* getDriverData() const { return DriverData.get(); }
    void setDriverData(counted_ptr<sonimbra::IRefCounted> data) { DriverData = std::move(data); }

    /// The sounds made from this source know it by a bare pointer. They join here, leave when they
    /// are destroyed, and are cut off when the source is removed. With the engine's lock held.
    void attachSound(CSonimbraSound& sound);
    void detachSound(CSonimbraSound& sound);
    void detachAllSounds();

protected:
    ICriticalSection& getLock() const { return Link->getLock(); }
    CSonimbraSoundEngine* getEngine() const { return Link->getEngine(); }

    sonimbra::SAudioStreamFormat Format;
    counted_ptr<CSonimbraBufferedSamples> CachedSamples;

private:
    class CUse;
    class COpening;

    /// How a sound is to be made.
    struct SSoundRequest {
        bool looped;
        bool is3D;
        bool enableSoundEffects;
        float minDistance;
        float maxDistance;
    };

    /// Loads what has to be loaded and makes a sound; without a request it only loads.
    sonimbra::ISound* play(io::IFileSystem* fileSystem, const SSoundRequest* request);
    sonimbra::ISound* playStream(sonimbra::IAudioStream& stream, const SSoundRequest* request);
    sonimbra::ISound* makeSoundFromSamples(const SSoundRequest* request);
    void decideStreamMode();
    void decode(sonimbra::IAudioStream& stream);
    void makeSureFormatIsKnown();

    const CEngineLinkPtr Link;
    const sonimbra::string<char> Name;
    std::atomic<sonimbra::E_STREAM_MODE> StreamMode;
    std::atomic<std::int32_t> ForcedStreamingThreshold{2000000};
    std::atomic<float> DefaultMinDistance{-1.0f};
    std::atomic<float> DefaultMaxDistance{-1.0f};
    std::atomic<float> DefaultVolume{1.0f};
    bool SeekingSupported = true;
    bool IsOpening = false; ///< its file is being opened, and decoded if it stays in memory
    CSonimbraSound* FirstSound = nullptr;
    counted_ptr<sonimbra::IRefCounted> DriverData;
};

} // namespace sn_internal
