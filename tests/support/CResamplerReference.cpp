// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/CResamplerReference.h"

#include <algorithm>

namespace sn_test {
namespace {

constexpr std::int32_t BufferFrames = 2048;
constexpr std::size_t LookBack = 3;

} // namespace

CResamplerReference::CChannel::CChannel(const sonimbra::SAudioStreamFormat& format,
                                        const Bytes& bytes, std::int32_t channel)
    : Line(LookBack, 0) {
    for (std::int32_t frame = 0; frame < format.FrameCount; ++frame) {
        const auto i = static_cast<std::size_t>(frame * format.ChannelCount + channel);
        if (format.getSampleSize() == 1) {
            Line.push_back((bytes[i] - 128) * 256);
        } else {
            Line.push_back(static_cast<std::int16_t>(bytes[2 * i] | bytes[2 * i + 1] << 8));
        }
    }
}

void CResamplerReference::CChannel::setRange(std::int32_t first, std::int32_t count) {
    sample_t* begin = Line.data() + LookBack + first;
    if (first == 0) {
        dumb_reset_resampler(&State, begin, 1, 0, 0, count);
    }
    State.src = begin;
    State.pos = State.subpos = 0;
    State.end = count;
    State.dir = 1;
}

std::int32_t CResamplerReference::CChannel::resample(std::vector<sample_t>& target,
                                                     std::int32_t count, float step) {
    target.assign(static_cast<std::size_t>(count), 0);
    return static_cast<std::int32_t>(dumb_resample_1_1(&State, target.data(), count, 1.0f, step));
}

CResamplerReference::CResamplerReference(const sonimbra::SAudioStreamFormat& format,
                                         const Bytes& bytes, std::int32_t portion)
    : Left(format, bytes, 0),
      Right(format, bytes, format.ChannelCount - 1),
      IsStereo(format.ChannelCount == 2),
      FrameCount(format.FrameCount),
      Portion(std::min(portion, BufferFrames)) {
    refill();
}

std::vector<std::int16_t> CResamplerReference::read(std::int32_t frameCount, float step) {
    std::vector<std::int16_t> frames;
    std::int32_t remaining = frameCount;
    while (remaining > 0) {
        const std::int32_t block = std::min(remaining, BufferFrames);
        const std::int32_t got = Left.resample(LeftBlock, block, step);
        if (got > 0) {
            if (IsStereo) {
                Right.resample(RightBlock, block, step);
            }
            append(frames, got);
            remaining -= got;
        } else if (!refill()) {
            break;
        }
    }
    return frames;
}

bool CResamplerReference::refill() {
    const std::int32_t count = std::min(Portion, FrameCount - Next);
    Left.setRange(Next, count);
    Right.setRange(Next, count);
    Next += count;
    return count > 0;
}

void CResamplerReference::append(std::vector<std::int16_t>& frames, std::int32_t count) const {
    const std::vector<sample_t>& right = IsStereo ? RightBlock : LeftBlock;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        for (const sample_t sample : {LeftBlock[i], right[i]}) {
            frames.push_back(static_cast<std::int16_t>(std::clamp(sample, -32768, 32767)));
        }
    }
}

} // namespace sn_test
