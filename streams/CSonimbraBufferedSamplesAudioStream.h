// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/counted_ptr.h"
#include "streams/CSonimbraBufferedSamples.h"

#include <sonimbra/IAudioStream.h>

namespace sn_internal {

/// Reads decoded samples back as a stream.
class CSonimbraBufferedSamplesAudioStream final : public sonimbra::IAudioStream {
public:
    explicit CSonimbraBufferedSamplesAudioStream(CSonimbraBufferedSamples* samples);

    sonimbra::SAudioStreamFormat getFormat() override { return Samples->getFormat(); }

    /// Accepts 0 up to the data size, which is the number of bytes, not of frames; from a frame
    /// beyond the end nothing is read.
    bool setPosition(std::int32_t frame) override;
    std::int32_t readFrames(void* target, std::int32_t frameCountToRead) override;

    /// Frames where they stand. They stay valid as long as the samples have this data.
    struct SView {
        const void* frames;
        std::int32_t frameCount;
    };

    /// What readFrames would copy; moves on as it does.
    SView viewFrames(std::int32_t frameCountToRead);

    /// Whether the views may be read as 16-bit numbers. Only samples of the application's own
    /// memory may be such that they may not.
    bool isAlignedFor16Bit() const;

private:
    counted_ptr<CSonimbraBufferedSamples> Samples;
    std::int32_t ReadPosition = 0; ///< in bytes
};

} // namespace sn_internal
