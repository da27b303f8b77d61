// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sonimbra {

/// Layout of one sample.
enum class E_SAMPLE_FORMAT : std::int32_t {
    Unsigned8Bit = 0, ///< 8 bits, unsigned, silence at 128
    Signed16Bit = 1,  ///< 16 bits, signed, little-endian
};

/// What a stream or a block of samples consists of. A frame is one sample for each channel,
/// interleaved in channel order (left before right).
///
/// The derived sizes wrap around like 32-bit integers when a record holds absurd values.
struct SAudioStreamFormat {
    std::int32_t ChannelCount = 0; ///< interleaved channels in a frame; built-in decoders: 1 or 2
    std::int32_t FrameCount = 0;   ///< frames in the whole stream; -1 when the length is not known
    std::int32_t SampleRate = 0;   ///< frames a second
    E_SAMPLE_FORMAT SampleFormat = E_SAMPLE_FORMAT::Unsigned8Bit;

    /// Bytes in one sample: 1 for Unsigned8Bit, 2 for any other value.
    constexpr std::int32_t getSampleSize() const {
        return SampleFormat == E_SAMPLE_FORMAT::Unsigned8Bit ? 1 : 2;
    }
    /// Bytes in one frame.
    constexpr std::int32_t getFrameSize() const { return product(getSampleSize(), ChannelCount); }
    /// Bytes in the whole stream; not above 0 when the length is not known.
    constexpr std::int32_t getSampleDataSize() const { return product(getFrameSize(), FrameCount); }
    /// Bytes in a second of audio.
    constexpr std::int32_t getBytesPerSecond() const { return product(getFrameSize(), SampleRate); }

private:
    static constexpr std::int32_t product(std::int32_t a, std::int32_t b) {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) *
                                         static_cast<std::uint32_t>(b));
    }
};

} // namespace sonimbra
