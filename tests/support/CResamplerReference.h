// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/wav.h"

#include <sonimbra/SAudioStreamFormat.h>

#include <dumb.h>

#include <cstdint>
#include <vector>

namespace sn_test {

/// What the stream resampler must give, sample for sample, for a source that arrives in portions:
/// DUMB's resampler called directly, one state for each channel.
///
/// The source lies in memory in one piece with silence in front, so what a continued state looks
/// back to is what really came before. Blocks matter: the right channel is resampled only where the
/// left one still gave something.
class CResamplerReference {
public:
    /// The bytes hold as many frames, mono or stereo, as the format says.
    CResamplerReference(const sonimbra::SAudioStreamFormat& format, const Bytes& bytes,
                        std::int32_t portion);

    /// Interleaved stereo frames; fewer than asked at the end.
    std::vector<std::int16_t> read(std::int32_t frameCount, float step);

private:
    class CChannel {
    public:
        CChannel(const sonimbra::SAudioStreamFormat& format, const Bytes& bytes,
                 std::int32_t channel);
        void setRange(std::int32_t first, std::int32_t count);
        std::int32_t resample(std::vector<sample_t>& target, std::int32_t count, float step);

    private:
        std::vector<sample_t> Line;
        DUMB_RESAMPLER State;
    };

    bool refill();
    void append(std::vector<std::int16_t>& frames, std::int32_t count) const;

    CChannel Left;
    CChannel Right;
    std::vector<sample_t> LeftBlock;
    std::vector<sample_t> RightBlock;
    bool IsStereo;
    std::int32_t FrameCount;
    std::int32_t Portion;
    std::int32_t Next = 0;
};

} // namespace sn_test
