// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "streams/CCubicChannels.h"
#include "streams/CSonimbraBufferedSamplesAudioStream.h"
#include "streams/CSonimbraSoftwareResampler.h"

#include <memory>

namespace sn_internal {

/// Turns any stream into signed 16-bit stereo at the output rate and any playback speed, exactly as
/// DUMB's cubic resampler does. Nothing is allocated while reading.
class CSonimbraSoftwareStreamResampler final : public CSonimbraSoftwareStreamResamplerBase {
public:
    CSonimbraSoftwareStreamResampler(std::int32_t outputRate, sonimbra::IAudioStream* source,
                                     CSonimbraBufferedSamplesAudioStream* samples);

    std::int32_t read(std::int16_t* target, std::int32_t frameCount, float speed) override;
    bool setPosition(std::int32_t sourceFrame) override;
    std::int32_t readChannels(std::int16_t* target, std::int32_t frameCount, float speed) override;
    std::int32_t getReadChannelCount() const override { return Channels.getChannelCount(); }
    void prefetchState() const override;
    void prefetchSamples(std::int32_t frameCount) const override;

private:
    static constexpr std::int32_t BufferFrames = CCubicChannels::BufferFrames;

    /// Source frames as 16 bits, in the buffer or, where they are such in memory already, there.
    struct SPortion {
        const std::int16_t* frames;
        std::int32_t frameCount;
    };

    void setSpeed(float speed);
    void restart();
    bool refill();
    SPortion nextPortion();
    SPortion viewPortion();
    std::int32_t fillBuffer();
    std::int32_t fillInPieces();
    std::int32_t readPiece(void* target, std::int32_t frameCount);

    float Speed = 0.0f;
    float Step = 0.0f; ///< source frames for one of the output, at that speed
    CCubicChannels Channels;
    CSonimbraBufferedSamplesAudioStream* View = nullptr; ///< the source, if its frames can be used
    std::unique_ptr<std::int16_t[]> Buffer;              ///< from the first portion that needs it
};

} // namespace sn_internal
