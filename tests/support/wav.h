// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sn_test {

using Bytes = std::vector<std::uint8_t>;

void append16(Bytes& bytes, std::uint32_t value);
void append32(Bytes& bytes, std::uint32_t value);

/// 16-bit samples as they lie in a file.
Bytes packed16(const std::vector<std::int16_t>& samples);

/// Bytes that differ from their neighbours: 0, 1, ..., 250, 0, ...
Bytes countingBytes(std::size_t count);

/// One chunk of a RIFF file. The size that it declares may be a lie; its payload is never padded.
struct SWavChunk {
    std::string id;
    Bytes payload;
    std::optional<std::uint32_t> declaredSize = std::nullopt;
};

struct SWavFormat {
    std::uint16_t channels = 2;
    std::uint32_t sampleRate = 44100;
    std::uint16_t bits = 16;
    std::uint16_t tag = 1;

    std::uint32_t bytesPerFrame() const { return channels * (bits / 8u); }
};

SWavChunk formatChunk(const SWavFormat& format, std::size_t extraBytes = 0);
SWavChunk dataChunk(Bytes samples, std::optional<std::uint32_t> declaredSize = std::nullopt);

/// A file of these chunks in this order, with an honest RIFF size.
Bytes riffFile(const std::vector<SWavChunk>& chunks);

/// The usual file: a format chunk, then a data chunk.
Bytes wavFile(const SWavFormat& format, const Bytes& samples);

} // namespace sn_test
