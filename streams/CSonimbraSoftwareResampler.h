// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/counted_ptr.h"

#include <sonimbra/IAudioStream.h>

namespace sn_internal {

class CSonimbraBufferedSamplesAudioStream;

/// Something that delivers signed 16-bit stereo at an output rate.
class CSonimbraSoftwareResampler : public sonimbra::IRefCounted {
public:
    explicit CSonimbraSoftwareResampler(std::int32_t outputRate) : OutputRate(outputRate) {}

    /// Writes up to frameCount frames to target at a playback speed; returns how many it wrote.
    /// Fewer than asked means that the source has ended. A target of null is moved over only.
    virtual std::int32_t read(std::int16_t* target, std::int32_t frameCount, float speed) = 0;

    /// Moves to a frame of the source.
    virtual bool setPosition(std::int32_t sourceFrame) = 0;

protected:
    const std::int32_t OutputRate; ///< frames a second
};

/// Passes a stream's frames on as they are; without a stream it reads nothing.
class CSonimbraSoftwareStreamResamplerBase : public CSonimbraSoftwareResampler {
public:
    CSonimbraSoftwareStreamResamplerBase(std::int32_t outputRate, sonimbra::IAudioStream* source);

    std::int32_t read(std::int16_t* target, std::int32_t frameCount, float speed) override;
    bool setPosition(std::int32_t sourceFrame) override;

    /// As read, with the channels that the source has: one, or two.
    virtual std::int32_t readChannels(std::int16_t* target, std::int32_t frameCount, float speed) {
        return read(target, frameCount, speed);
    }
    virtual std::int32_t getReadChannelCount() const { return 2; }

    /// Bring what the next read needs into the cache: first the state, and when that is there the
    /// samples of a block.
    virtual void prefetchState() const {}
    virtual void prefetchSamples(std::int32_t) const {}

    /// The source's format with two channels and the output rate.
    const sonimbra::SAudioStreamFormat& getFormat() const { return Format; }
    const sonimbra::SAudioStreamFormat& getSourceFormat() const { return SourceFormat; }

protected:
    counted_ptr<sonimbra::IAudioStream> Source;
    sonimbra::SAudioStreamFormat Format;
    sonimbra::SAudioStreamFormat SourceFormat;
};

/// Makes a resampler with one reference for the caller: a cubic one for a stream (also when the
/// rates are equal), the bare base for null.
///   samples  the source, when it is a stream over samples in memory: they are read in place then
CSonimbraSoftwareStreamResamplerBase*
createStreamResampler(std::int32_t outputRate, sonimbra::IAudioStream* source,
                      CSonimbraBufferedSamplesAudioStream* samples = nullptr);

} // namespace sn_internal
