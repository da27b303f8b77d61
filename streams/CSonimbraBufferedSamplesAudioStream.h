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

private:
    counted_ptr<CSonimbraBufferedSamples> Samples;
    std::int32_t ReadPosition = 0; ///< in bytes
};

} // namespace sn_internal
