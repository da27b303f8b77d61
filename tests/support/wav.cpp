// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/wav.h"

#include <utility>

namespace sn_test {

void append16(Bytes& bytes, std::uint32_t value) {
    bytes.push_back(static_cast<std::uint8_t>(value));
    bytes.push_back(static_cast<std::uint8_t>(value >> 8));
}

void append32(Bytes& bytes, std::uint32_t value) {
    append16(bytes, value);
    append16(bytes, value >> 16);
}

Bytes packed16(const std::vector<std::int16_t>& samples) {
    Bytes bytes;
    for (const std::int16_t sample : samples) {
        append16(bytes, static_cast<std::uint16_t>(sample));
    }
    return bytes;
}

Bytes countingBytes(std::size_t count) {
    Bytes bytes(count);
    for (std::size_t i = 0; i < count; ++i) {
        bytes[i] = static_cast<std::uint8_t>(i % 251);
    }
    return bytes;
}

SWavChunk formatChunk(const SWavFormat& format, std::size_t extraBytes) {
    SWavChunk chunk{"fmt ", {}};
    append16(chunk.payload, format.tag);
    append16(chunk.payload, format.channels);
    append32(chunk.payload, format.sampleRate);
    append32(chunk.payload, format.sampleRate * format.bytesPerFrame());
    append16(chunk.payload, format.bytesPerFrame());
    append16(chunk.payload, format.bits);
    chunk.payload.resize(chunk.payload.size() + extraBytes);
    return chunk;
}

SWavChunk dataChunk(Bytes samples, std::optional<std::uint32_t> declaredSize) {
    return SWavChunk{"data", std::move(samples), declaredSize};
}

Bytes riffFile(const std::vector<SWavChunk>& chunks) {
    Bytes body = {'W', 'A', 'V', 'E'};
    for (const SWavChunk& chunk : chunks) {
        body.insert(body.end(), chunk.id.begin(), chunk.id.end());
        append32(body,
                 chunk.declaredSize.value_or(static_cast<std::uint32_t>(chunk.payload.size())));
        body.insert(body.end(), chunk.payload.begin(), chunk.payload.end());
    }
    Bytes file = {'R', 'I', 'F', 'F'};
    append32(file, static_cast<std::uint32_t>(body.size()));
    file.insert(file.end(), body.begin(), body.end());
    return file;
}

Bytes wavFile(const SWavFormat& format, const Bytes& samples) {
    return riffFile({formatChunk(format), dataChunk(samples)});
}

} // namespace sn_test
