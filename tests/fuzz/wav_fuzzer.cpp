// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// The first bytes of the input are a script of reads and seeks, the rest is the file. Nothing is
// logged, because no logger is installed.

#include "core/counted_ptr.h"
#include "io/CMemoryReadFile.h"
#include "streams/CSonimbraAudioStreamLoaderWAV.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

using sn_internal::counted_ptr;

constexpr std::size_t ScriptSteps = 16;
constexpr std::int32_t MostFramesPerStep = 4096;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// The target is exactly as large as the frames that are asked for, so that the sanitizer sees
/// every byte too many.
void readSome(sonimbra::IAudioStream& stream, std::int32_t frameCount) {
    const auto frameSize = static_cast<std::size_t>(stream.getFormat().getFrameSize());
    std::vector<std::uint8_t> target(frameSize * static_cast<std::size_t>(frameCount));
    const std::int32_t got = stream.readFrames(target.data(), frameCount);
    require(got >= 0 && got <= frameCount);
}

/// One byte: its upper bit chooses between reading and positioning, the rest says how far.
void step(sonimbra::IAudioStream& stream, std::uint8_t command) {
    const std::int32_t amount = command & 0x7f;
    if (command < 0x80) {
        readSome(stream, amount * amount * MostFramesPerStep / (0x7f * 0x7f));
    } else {
        stream.setPosition(amount < 0x40 ? amount - 8 : 1 << (amount & 0x1f));
    }
}

void run(const std::uint8_t* script, const std::uint8_t* content, std::size_t size) {
    auto file =
        counted_ptr<sn_internal::io::CMemoryReadFile>::adopt(new sn_internal::io::CMemoryReadFile(
            content, static_cast<std::int32_t>(size), "fuzz.wav", false));
    sn_internal::CSonimbraAudioStreamLoaderWAV loader(nullptr);
    const auto stream =
        counted_ptr<sonimbra::IAudioStream>::adopt(loader.createAudioStream(file.get()));
    if (!stream) {
        return;
    }
    const std::int32_t frameSize = stream->getFormat().getFrameSize();
    require(frameSize == 1 || frameSize == 2 || frameSize == 4);
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
