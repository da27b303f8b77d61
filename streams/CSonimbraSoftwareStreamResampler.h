// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "streams/CSonimbraSoftwareResampler.h"

#include <dumb.h>

namespace sn_internal {

/// Turns any stream into signed 16-bit stereo at the output rate and any playback speed, by DUMB's
/// cubic resampler. Works in fixed buffers; nothing is allocated while reading.
class CSonimbraSoftwareStreamResampler final : public CSonimbraSoftwareStreamResamplerBase {
public:
    CSonimbraSoftwareStreamResampler(std::int32_t outputRate, sonimbra::IAudioStream* source);

    std::int32_t read(std::int16_t* target, std::int32_t frameCount, float speed) override;
    bool setPosition(std::int32_t sourceFrame) override;
    void prefetchState() const override;
    void prefetchSamples(std::int32_t frameCount, float speed) const override;

private:
    static constexpr std::int32_t BufferFrames = 2048;
    static constexpr std::int32_t GuardSamples = 3;

    /// One channel's source samples and its resampler. After a refill with a step above one, the
    /// resampler looks up to three samples in front of the buffer: they stand there.
    struct SChannel {
        DUMB_RESAMPLER resampler;
        sample_t guard[GuardSamples];
        sample_t samples[BufferFrames];

        void reset(std::int32_t count);
        void continueWith(std::int32_t count);
        void keepLastSamples(std::int32_t count);
    };

    bool isStereo() const { return SourceFormat.ChannelCount == 2; }
    float getStep(float speed) const;
    std::int32_t readBlock(std::int16_t* target, std::int32_t frameCount, float step);
    void restart();
    bool refill();
    std::int32_t fillBuffers();
    std::int32_t readPiece(void* scratch, std::int32_t frameCount);
    void convert(const void* scratch, std::int32_t firstFrame, std::int32_t frameCount);

    std::int32_t BufferedFrames = 0;
    SChannel Left;
    SChannel Right;
};

} // namespace sn_internal
