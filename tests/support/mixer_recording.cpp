// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/mixer_recording.h"

#include "tests/support/ramp.h"

#include <atomic>
#include <numeric>
#include <random>

namespace sn_test {

Bytes SRecording::bytes() const {
    Bytes result;
    for (const std::int16_t sample : samples) {
        if (bits == 8) {
            result.push_back(static_cast<std::uint8_t>(sample / 256 + 128));
            continue;
        }
        if (bits == 24) {
            result.push_back(0x5a);
        }
        append16(result, static_cast<std::uint16_t>(sample));
    }
    return result;
}

SRecording noise(SRecording shape, std::int32_t frames, std::uint32_t seed) {
    std::mt19937 random(seed);
    shape.samples.resize(static_cast<std::size_t>(frames * shape.channels));
    for (std::int16_t& sample : shape.samples) {
        sample = static_cast<std::int16_t>(random() & (shape.bits == 8 ? 0xff00u : 0xffffu));
    }
    return shape;
}

SRecording constant(std::int16_t value, std::int32_t frames) {
    SRecording recording;
    recording.samples.assign(static_cast<std::size_t>(frames), value);
    return recording;
}

SRecording counting(std::int32_t frames) {
    SRecording recording = constant(0, frames);
    std::iota(recording.samples.begin(), recording.samples.end(), std::int16_t(1));
    return recording;
}

Sound playRecording(sonimbra::ISoundEngine& engine, const SRecording& recording, bool looped,
                    const sonimbra::vec3df* position) {
    static std::atomic<int> recordings{0};
    const std::string name = "recording " + std::to_string(++recordings);
    Bytes bytes = recording.bytes();
    sonimbra::ISoundSource* source = nullptr;
    if (recording.storage == EStorage::Pcm) {
        source = engine.addSoundSourceFromPCMData(
            bytes.data(), static_cast<std::int32_t>(bytes.size()), name.c_str(),
            streamFormat(recording.channels, recording.frames(), recording.rate, recording.bits));
    } else {
        bytes = wavFile({static_cast<std::uint16_t>(recording.channels),
                         static_cast<std::uint32_t>(recording.rate),
                         static_cast<std::uint16_t>(recording.bits)},
                        bytes);
        source = engine.addSoundSourceFromMemory(
            bytes.data(), static_cast<std::int32_t>(bytes.size()), name.c_str());
    }
    if (source != nullptr && recording.storage == EStorage::StreamedWav) {
        source->setStreamMode(sonimbra::E_STREAM_MODE::Streaming);
    }
    return Sound::adopt(position != nullptr ? engine.play3D(source, *position, looped, false, true)
                                            : engine.play2D(source, looped, false, true));
}

} // namespace sn_test
