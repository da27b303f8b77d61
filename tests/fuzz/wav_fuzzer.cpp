// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// The first bytes of the input are a script of reads and seeks, the rest is the file.

#include "streams/CSonimbraAudioStreamLoaderWAV.h"
#include "tests/fuzz/stream_driver.h"

namespace {

constexpr std::size_t ScriptSteps = 16;
constexpr std::int32_t MostFramesPerStep = 4096;

/// One byte: its upper bit chooses between reading and positioning, the rest says how far.
void step(sonimbra::IAudioStream& stream, std::uint8_t command) {
    const std::int32_t amount = command & 0x7f;
    if (command < 0x80) {
        fuzz::readSome(stream, amount * amount * MostFramesPerStep / (0x7f * 0x7f));
    } else {
        stream.setPosition(amount < 0x40 ? amount - 8 : 1 << (amount & 0x1f));
    }
}

void run(const std::uint8_t* script, const std::uint8_t* content, std::size_t size) {
    const auto stream = fuzz::open<sn_internal::CSonimbraAudioStreamLoaderWAV>(content, size);
    if (!stream) {
        return;
    }
    const std::int32_t frameSize = stream->getFormat().getFrameSize();
    fuzz::require(frameSize == 1 || frameSize == 2 || frameSize == 4);
    for (std::size_t i = 0; i < ScriptSteps; ++i) {
        step(*stream.get(), script[i]);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size >= ScriptSteps) {
        run(data, data + ScriptSteps, size - ScriptSteps);
    }
    return 0;
}
