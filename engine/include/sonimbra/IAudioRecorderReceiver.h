// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/IRefCounted.h>

namespace sonimbra {

/// Takes recorded audio as it comes in; pass it to IAudioRecorder::startRecordingWithReceiver.
class IAudioRecorderReceiver : public IRefCounted {
public:
    /// Called for every block of recorded audio, on the recorder's capture thread; the last block
    /// comes on the thread that stops the recording, from inside the stop, and never at the same
    /// time as another.
    ///   data       interleaved frames in the format that the recording was started with, samples
    ///              unsigned 8-bit or signed 16-bit; the library's, and gone when the call returns
    ///   byteCount  bytes in data, above 0; about half a second of audio, less when stopping
    /// Return within half a second or less: what the device records meanwhile waits in a buffer of
    /// one second, and is lost when that is full. Stops and starts of the recorder do nothing when
    /// they are called from here (the starts return false), because they wait for the thread that
    /// this call is on. Do not drop the recorder's last reference here, for the same reason, and do
    /// not wait for a thread that stops, starts or drops it: that thread waits for this call. No
    /// lock is held. An exception thrown here ends at the library.
    virtual void OnAudioDataRecorded(const void* data, std::int32_t byteCount) = 0;
};

} // namespace sonimbra
