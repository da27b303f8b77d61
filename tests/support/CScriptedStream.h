// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/wav.h"

#include <sonimbra/IAudioStream.h>

#include <cstdint>

namespace sn_test {

/// A decoder over samples in memory that counts what is asked of it and delivers in the portions
/// that a test wants.
class CScriptedStream : public sonimbra::IAudioStream {
public:
    /// The format's frame count is the caller's to choose; the samples say where the end is.
    CScriptedStream(const sonimbra::SAudioStreamFormat& format, Bytes samples);
    ~CScriptedStream() override;

    sonimbra::SAudioStreamFormat getFormat() override { return Format; }
    /// Accepts every frame from the first up to the end.
    bool setPosition(std::int32_t frame) override;
    bool getIsSeekingSupported() override { return seekingSupported; }
    std::int32_t readFrames(void* target, std::int32_t frameCountToRead) override;

    std::int32_t framesPerRead = INT32_MAX; ///< one read gives at most so many
    bool seekingSupported = true;           ///< otherwise only 0 is accepted

    std::int32_t position = 0;
    std::int32_t reads = 0;
    std::int32_t seeks = 0;

    /// How many of these exist: back at its old value when nothing was leaked.
    static std::int32_t alive;

private:
    sonimbra::SAudioStreamFormat Format;
    Bytes Samples;
    std::int32_t Frames = 0;
};

} // namespace sn_test
