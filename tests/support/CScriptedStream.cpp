// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/CScriptedStream.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace sn_test {

std::int32_t CScriptedStream::alive = 0;

CScriptedStream::CScriptedStream(const sonimbra::SAudioStreamFormat& format, Bytes samples)
    : Format(format), Samples(std::move(samples)) {
    if (format.getFrameSize() > 0) {
        Frames = static_cast<std::int32_t>(Samples.size()) / format.getFrameSize();
    }
    ++alive;
}

CScriptedStream::~CScriptedStream() {
    --alive;
}

bool CScriptedStream::setPosition(std::int32_t frame) {
    ++seeks;
    if (frame < 0 || frame > Frames || (frame > 0 && !seekingSupported)) {
        return false;
    }
    position = frame;
    return true;
}

std::int32_t CScriptedStream::readFrames(void* target, std::int32_t frameCountToRead) {
    ++reads;
    const std::int32_t n = std::min({frameCountToRead, framesPerRead, Frames - position});
    if (n <= 0) {
        return 0;
    }
    const std::int32_t frameSize = Format.getFrameSize();
    std::memcpy(target, Samples.data() + std::ptrdiff_t(position) * frameSize,
                static_cast<std::size_t>(n) * static_cast<std::size_t>(frameSize));
    position += n;
    return n;
}

} // namespace sn_test
