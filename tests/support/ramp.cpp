// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/ramp.h"

namespace sn_test {

std::int16_t rampSample16(std::int64_t frame, std::int32_t channel) {
    return static_cast<std::int16_t>((frame + 20011 * channel) % 65521 - 32760);
}

Bytes rampBytes(const sonimbra::SAudioStreamFormat& format, std::int64_t firstFrame,
                std::int32_t frameCount) {
    Bytes bytes;
    for (std::int64_t frame = firstFrame; frame < firstFrame + frameCount; ++frame) {
        for (std::int32_t channel = 0; channel < format.ChannelCount; ++channel) {
            if (format.SampleFormat == sonimbra::E_SAMPLE_FORMAT::Unsigned8Bit) {
                bytes.push_back(static_cast<std::uint8_t>((frame + 83 * channel) % 251 + 2));
            } else {
                append16(bytes, static_cast<std::uint16_t>(rampSample16(frame, channel)));
            }
        }
    }
    return bytes;
}

testing::AssertionResult isRamp16(const std::vector<std::int16_t>& samples, std::int32_t channels,
                                  std::int64_t firstFrame) {
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const std::int64_t frame = firstFrame + static_cast<std::int64_t>(i) / channels;
        const std::int32_t channel = static_cast<std::int32_t>(i) % channels;
        const std::int16_t expected = rampSample16(frame, channel);
        if (samples[i] != expected) {
            return testing::AssertionFailure()
                   << "frame " << frame << ", channel " << channel << " (sample " << i << " of "
                   << samples.size() << "): " << samples[i] << " instead of " << expected;
        }
    }
    return testing::AssertionSuccess();
}

sonimbra::SAudioStreamFormat streamFormat(std::int32_t channels, std::int32_t frames,
                                          std::int32_t rate, std::int32_t bits) {
    sonimbra::SAudioStreamFormat format;
    format.ChannelCount = channels;
    format.FrameCount = frames;
    format.SampleRate = rate;
    format.SampleFormat = bits == 8 ? sonimbra::E_SAMPLE_FORMAT::Unsigned8Bit
                                    : sonimbra::E_SAMPLE_FORMAT::Signed16Bit;
    return format;
}

CScriptedStream* createRampStream(const sonimbra::SAudioStreamFormat& format) {
    return new CScriptedStream(format, rampBytes(format, 0, format.FrameCount));
}

} // namespace sn_test
