// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

// What the fuzz targets share. Nothing is logged, because no logger is installed.

#include "core/counted_ptr.h"
#include "io/CMemoryReadFile.h"

#include <sonimbra/IAudioStream.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace fuzz {

inline void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// The target is exactly as large as the frames that are asked for, so that the sanitizer sees
/// every byte too many.
inline std::int32_t readSome(sonimbra::IAudioStream& stream, std::int32_t frameCount) {
    const auto frameSize = static_cast<std::size_t>(stream.getFormat().getFrameSize());
    std::vector<std::uint8_t> target(frameSize * static_cast<std::size_t>(frameCount));
    const std::int32_t got = stream.readFrames(target.data(), frameCount);
    require(got >= 0 && got <= frameCount);
    return got;
}

/// Null if the loader refuses the input.
template <class TLoader>
sn_internal::counted_ptr<sonimbra::IAudioStream> open(const std::uint8_t* data, std::size_t size) {
    using sn_internal::io::CMemoryReadFile;
    auto file = sn_internal::counted_ptr<CMemoryReadFile>::adopt(
        new CMemoryReadFile(data, static_cast<std::int32_t>(size), "fuzz", false));
    TLoader loader(nullptr);
    return sn_internal::counted_ptr<sonimbra::IAudioStream>::adopt(
        loader.createAudioStream(file.get()));
}

/// Reads up to 50 blocks, positions in the middle and at the start, and reads on.
template <class TLoader>
int play(const std::uint8_t* data, std::size_t size) {
    const auto stream = open<TLoader>(data, size);
    if (stream) {
        for (int block = 0; block < 50 && readSome(*stream.get(), 2048) != 0; ++block) {
        }
        for (const std::int32_t frame : {stream->getFormat().FrameCount / 2, 0}) {
            stream->setPosition(frame);
            readSome(*stream.get(), 2048);
        }
    }
    return 0;
}

} // namespace fuzz
