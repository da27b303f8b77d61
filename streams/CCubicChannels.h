// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "streams/cubic_kernels.h"

#include <dumb.h>

namespace sn_internal {

/// One or two channels of 16-bit frames, and DUMB's cubic resampler on each of them.
///
/// DUMB defines every sample. Its own calls make the starts and ends of each portion of frames; the
/// kernels take over the long middle, on the same state records, and leave them as DUMB would have.
/// What is a mere copy needs no calls at the portions' borders either.
/// Nothing is allocated.
class CCubicChannels {
public:
    /// The most frames in a portion, and in a read.
    static constexpr std::int32_t BufferFrames = 2048;

    explicit CCubicChannels(bool stereo) : ChannelCount(stereo ? 2 : 1) {}
    CCubicChannels(const CCubicChannels&) = delete;
    CCubicChannels& operator=(const CCubicChannels&) = delete;

    /// Forgets the portion; call it before its frames go.
    void endPortion();

    /// The next portion, interleaved: from a new beginning, or following the last one. The frames
    /// stay the caller's until endPortion.
    void restart(const std::int16_t* frames, std::int32_t frameCount);
    void continueWith(const std::int16_t* frames, std::int32_t frameCount);

    std::int32_t getChannelCount() const { return ChannelCount; }

    /// Writes up to frameCount frames (at most BufferFrames), interleaved; null as the target moves
    /// on without writing. Returns how many; fewer than asked when the portion has been used up.
    std::int32_t read(std::int16_t* target, std::int32_t frameCount, float step);

    /// Bring what the next read needs into the cache.
    void prefetchState() const;
    void prefetchFrames(float sourceFrames) const;

    const DUMB_RESAMPLER& getState(std::int32_t channel) const { return States[channel]; }

    /// Chooses the kernels for every object in the process, null for DUMB's calls alone: the
    /// samples are the same. Default: the fastest, or none if the build says so.
    static void useKernels(const SCubicKernels* kernels);

private:
    static constexpr std::int32_t GuardSamples = 3;

    bool isStereo() const { return ChannelCount == 2; }
    void keepLastSamples(std::int32_t channel);
    std::int32_t readInParts(const SCubicKernels& kernels, std::int16_t* target,
                             std::int32_t frameCount, float step);
    bool isForKernels(std::int32_t step) const;
    bool isCopy(std::int32_t step) const;
    bool remembersPast(std::int32_t channel) const;
    std::int16_t sampleAt(std::int32_t channel, long frame) const;
    std::int32_t getReach(std::int32_t step) const;
    void copy(std::int16_t* target, std::int32_t count) const;
    std::int32_t countForDumb(std::int32_t remaining, std::int32_t step) const;
    void readByKernels(const SCubicKernels& kernels, std::int16_t* target, std::int32_t count,
                       std::int32_t step);
    void advance(std::int32_t channel, std::int32_t count, std::int32_t step);
    std::int32_t readByDumb(std::int16_t* target, std::int32_t count, float step, bool both);
    std::int32_t callDumb(std::int32_t channel, sample_t* target, std::int32_t count, float step);

    const std::int32_t ChannelCount;
    std::int32_t FrameCount = 0;
    const std::int16_t* Frames = nullptr;
    DUMB_RESAMPLER States[2];
    std::int16_t Past[2][GuardSamples] = {}; ///< the last frames of the portion before
};

} // namespace sn_internal
