// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "engine/CSonimbraSoundSource.h"

namespace sn_internal {

/// A second name for a source, with a default volume and distances of its own. Everything else is
/// the base's: sounds played through an alias are made by, and report, the base.
class CSonimbraSoundSourceAlias : public CSonimbraSoundSource {
public:
    CSonimbraSoundSourceAlias(const CEngineLinkPtr& link, const char* name,
                              sonimbra::ISoundSource* base)
        : CSonimbraSoundSource(link, name, sonimbra::E_STREAM_MODE::AutoDetect),
          Base(counted_ptr<sonimbra::ISoundSource>::share(base)) {}

    void setStreamMode(sonimbra::E_STREAM_MODE mode) override { Base->setStreamMode(mode); }
    sonimbra::E_STREAM_MODE getStreamMode() override { return Base->getStreamMode(); }
    std::int32_t getPlayLength() override { return Base->getPlayLength(); }
    sonimbra::SAudioStreamFormat getAudioFormat() override { return Base->getAudioFormat(); }
    bool getIsSeekingSupported() override { return Base->getIsSeekingSupported(); }
    void forceReloadAtNextUse() override { Base->forceReloadAtNextUse(); }
    void setForcedStreamingThreshold(std::int32_t bytes) override {
        Base->setForcedStreamingThreshold(bytes);
    }
    std::int32_t getForcedStreamingThreshold() override {
        return Base->getForcedStreamingThreshold();
    }
    void* getSampleData() override { return Base->getSampleData(); }
    void loadNow(io::IFileSystem* fileSystem) override { Base->loadNow(fileSystem); }
    sonimbra::ISound* createSound(io::IFileSystem* fileSystem, bool looped, bool is3D,
                                  bool enableSoundEffects, float minDistance,
                                  float maxDistance) override {
        return Base->createSound(fileSystem, looped, is3D, enableSoundEffects, minDistance,
                                 maxDistance);
    }

private:
    counted_ptr<sonimbra::ISoundSource> Base;
};

} // namespace sn_internal
