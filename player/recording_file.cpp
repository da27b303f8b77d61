// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/recording_file.h"

#include <algorithm>
#include <utility>

#include "player/level_meter.h"

namespace player {
namespace {

std::int32_t peakOfBytes(const std::uint8_t* samples, std::size_t count) {
    std::int32_t peak = 0;
    for (std::size_t i = 0; i < count; ++i) {
        peak = std::max(peak, std::abs(samples[i] - 128) * 256);
    }
    return peak;
}

std::int32_t peakOfFrames(const void* data, const WavFormat& format, std::uint32_t frames) {
    const std::size_t count = std::size_t{frames} * format.channels;
    return format.bits == 8 ? peakOfBytes(static_cast<const std::uint8_t*>(data), count)
                            : peakOf(static_cast<const std::int16_t*>(data), count);
}

} // namespace

RecordingFile::RecordingFile(std::string utf8Name, const WavFormat& format,
                             std::uint32_t frameLimit)
    : Name(std::move(utf8Name)), Format(format), FrameLimit(frameLimit) {
}

void RecordingFile::OnAudioDataRecorded(const void* data, std::int32_t byteCount) {
    const std::uint32_t captured = static_cast<std::uint32_t>(byteCount) / Format.frameBytes();
    const std::uint32_t frameCount = std::min(captured, FrameLimit - Frames);
    if (Closed) {
        return;
    }
    const bool written = write(data, frameCount);
    Frames = Output.frameCount();
    Closed = !written || Frames == FrameLimit;
}

bool RecordingFile::write(const void* data, std::uint32_t frameCount) {
    const std::int32_t peak = peakOfFrames(data, Format, frameCount);
    HighestPeak = std::max(HighestPeak, peak);
    Peak = std::max(Peak.load(), peak); // one writer; a reset in between costs one block
    const bool open = Output.isOpen() || Output.open(Name, Format);
    return open && Output.write(data, frameCount) && Output.updateHeader();
}

bool RecordingFile::finish() {
    return Output.finish();
}

} // namespace player
