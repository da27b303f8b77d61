// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

#include <alsa/asoundlib.h>

namespace sn_internal {

/// How a device is fed: interleaved 16-bit frames in blocks of one size, with so many frames queued
/// at most.
struct SALSAQueue {
    std::int32_t rate; ///< frames a second
    std::int32_t channels;
    std::int32_t blockFrames;
    std::int32_t queueFrames; ///< a multiple of blockFrames
};

/// An ALSA PCM that plays. What returns a number returns ALSA's negative error code when it fails.
/// To be used by one thread at a time.
///
/// Nothing here waits until the device has room or has played something. A PCM behind which a sound
/// server stands asks that server, though, when it is opened, configured, recovered or closed: with
/// one that hangs each may take as long as its client library is patient, which can be half a
/// minute. getRoom and write do not ask it.
class CSonimbraALSADevice {
public:
    CSonimbraALSADevice() = default;
    CSonimbraALSADevice(const CSonimbraALSADevice&) = delete;
    CSonimbraALSADevice& operator=(const CSonimbraALSADevice&) = delete;
    ~CSonimbraALSADevice() { close(); }

    void swap(CSonimbraALSADevice& other);

    bool isOpen() const { return PCM != nullptr; }
    int open(const char* pcmName);
    /// What follows open. The device starts to play when the queue is full for the first time, and
    /// has a shorter queue than wanted where its buffer is smaller.
    int configure(const SALSAQueue& queue);
    /// Drops what is queued.
    void close();
    /// Closes a device that may hang: does not wait for a sound server.
    void abandon();

    /// Frames until the queue is full. -EAGAIN when that cannot be told at the moment.
    long getRoom();
    /// Returns the frames that the device took: 0 when it takes none at the moment.
    long write(const std::int16_t* frames, long frameCount);

    /// Whether recover() can help after this error.
    static bool isInterruption(long error) { return error == -EPIPE || error == -ESTRPIPE; }
    /// After an underrun or a suspension: makes the device ready to be fed again. Returns 0 when it
    /// goes on with what is queued, and StartsAfresh when its queue is empty and it plays only once
    /// whole blocks have filled it. -EAGAIN when it is not awake yet and has to be asked again.
    int recover(long interruption);
    static constexpr int StartsAfresh = 1;

private:
    int configureHardware(const SALSAQueue& queue);
    int configureSoftware(const SALSAQueue& queue);

    snd_pcm_t* PCM = nullptr;
    long BufferFrames = 0; ///< of the device
    long QueueFrames = 0;  ///< how many of them are used
};

} // namespace sn_internal
