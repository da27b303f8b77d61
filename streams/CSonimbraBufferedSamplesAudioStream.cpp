// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraBufferedSamplesAudioStream.h"

#include "core/integers.h"

#include <algorithm>
#include <cstring>

namespace sn_internal {

CSonimbraBufferedSamplesAudioStream::CSonimbraBufferedSamplesAudioStream(
    CSonimbraBufferedSamples* samples)
    : Samples(counted_ptr<CSonimbraBufferedSamples>::share(samples)) {
}

bool CSonimbraBufferedSamplesAudioStream::setPosition(std::int32_t frame) {
    const sonimbra::SAudioStreamFormat& format = Samples->getFormat();
    if (frame < 0 || frame > format.getSampleDataSize()) {
        return false;
    }
    ReadPosition = wrappingProduct(frame, format.getFrameSize());
    return true;
}

CSonimbraBufferedSamplesAudioStream::SView
CSonimbraBufferedSamplesAudioStream::viewFrames(std::int32_t frameCountToRead) {
    const sonimbra::SAudioStreamFormat& format = Samples->getFormat();
    const std::int32_t frameSize = format.getFrameSize();
    const auto* data = static_cast<const unsigned char*>(Samples->getData());
    if (data == nullptr || frameSize < 1 || ReadPosition < 0) {
        return {nullptr, 0};
    }
    const std::int64_t wanted = std::int64_t(frameSize) * frameCountToRead;
    const std::int64_t available = std::int64_t(format.getSampleDataSize()) - ReadPosition;
    const std::int64_t k = std::min(wanted, available);
    if (k <= 0) {
        return {nullptr, 0};
    }
    const unsigned char* const begin = data + ReadPosition;
    ReadPosition += static_cast<std::int32_t>(k);
    return {begin, static_cast<std::int32_t>(k / frameSize)};
}

bool CSonimbraBufferedSamplesAudioStream::isAlignedFor16Bit() const {
    return reinterpret_cast<std::uintptr_t>(Samples->getData()) % alignof(std::int16_t) == 0;
}

std::int32_t CSonimbraBufferedSamplesAudioStream::readFrames(void* target,
                                                             std::int32_t frameCountToRead) {
    const SView view = viewFrames(frameCountToRead);
    if (view.frameCount > 0) {
        const auto frameSize = static_cast<std::size_t>(Samples->getFormat().getFrameSize());
        std::memcpy(target, view.frames, static_cast<std::size_t>(view.frameCount) * frameSize);
    }
    return view.frameCount;
}

} // namespace sn_internal
