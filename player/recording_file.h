// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include <sonimbra/IAudioRecorderReceiver.h>

#include "player/wav_writer.h"

namespace player {

/// Writes what a recorder captures to a WAV file, block by block: the recorder's thread writes, the
/// player's thread watches. The file is created with the first block, so that a device that does
/// not start costs no existing file, and is complete after each.
class RecordingFile : public sonimbra::IAudioRecorderReceiver {
public:
    /// Takes no more than frameLimit frames.
    RecordingFile(std::string utf8Name, const WavFormat& format, std::uint32_t frameLimit);

    void OnAudioDataRecorded(const void* data, std::int32_t byteCount) override;

    /// Frames written so far.
    std::uint32_t frames() const { return Frames; }
    /// True when nothing more is written: the limit is reached, or a failure has happened.
    bool isClosed() const { return Closed; }
    /// The peak since the last call, 0..32768.
    std::int32_t takePeak() { return Peak.exchange(0); }

    /// Completes the file. Call it when the recording has stopped, and the next two after it.
    /// Returns false after a failure.
    bool finish();
    const std::string& errorText() const { return Output.errorText(); }
    /// The peak of the whole recording, 0..32768.
    std::int32_t highestPeak() const { return HighestPeak; }

private:
    bool write(const void* data, std::uint32_t frameCount);

    const std::string Name;
    const WavFormat Format;
    const std::uint32_t FrameLimit;
    WavWriter Output;
    std::int32_t HighestPeak = 0;
    std::atomic<std::uint32_t> Frames{0};
    std::atomic<std::int32_t> Peak{0};
    std::atomic<bool> Closed{false};
};

} // namespace player
