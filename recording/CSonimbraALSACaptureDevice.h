// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/SAudioStreamFormat.h>

#include <vector>

#include <poll.h>

#include <alsa/asoundlib.h>

namespace sn_internal {

/// An ALSA PCM that captures into a buffer of one second. What returns a number returns ALSA's
/// negative error code when it fails. To be used by one thread at a time; only interrupt() may come
/// from another one.
///
/// Opening, configuring, starting and recovering ask the sound server behind a PCM, and with one
/// that hangs wait as long as its client library is patient. The rest asks nobody.
class CSonimbraALSACaptureDevice {
public:
    CSonimbraALSACaptureDevice() = default;
    CSonimbraALSACaptureDevice(const CSonimbraALSACaptureDevice&) = delete;
    CSonimbraALSACaptureDevice& operator=(const CSonimbraALSACaptureDevice&) = delete;
    ~CSonimbraALSACaptureDevice() { close(); }

    bool isOpen() const { return PCM != nullptr; }
    int open(const char* pcmName);
    /// Follows open. The device will notify when half of its buffer is full, or more often.
    int configure(const sonimbra::SAudioStreamFormat& format);
    /// Follows configure.
    int start();
    /// Drops what was not read.
    void close();

    /// Sleeps until there is something to read or interrupt() is called, which returns 0. Returns
    /// at errors and at wakes without a reason, too.
    int wait();
    /// Sleeps so long. Returns true, at once, when interrupt() is or was called.
    bool pause(int milliseconds);
    /// Makes this wait() or pause(), and all that follow, return at once.
    void interrupt();

    long getBufferFrames() const { return BufferFrames; }
    /// After so many the device wakes who waits, if not later.
    long getPeriodFrames() const { return PeriodFrames; }
    /// Frames to read, 0 when that cannot be told at the moment.
    long getAvailable();
    /// Returns the frames that were read, 0 when there are none.
    long read(void* target, long frameCount);

    /// Whether recover() can help after this error.
    static bool isInterruption(long error) { return error == -EPIPE || error == -ESTRPIPE; }
    /// After an overrun or a suspension: goes on capturing, without what was not read. Returns
    /// -EAGAIN when the device is not ready for that yet and has to be asked again, and 0, too,
    /// when it was interrupted once more, which it will report.
    int recover(long interruption);
    /// Whether frames were lost since it was opened because nobody read them in time.
    bool hasOverrun() const { return HasOverrun; }

private:
    int configureHardware(const sonimbra::SAudioStreamFormat& format);
    int configureSoftware();
    int prepareToWait();
    long noteOverrun(long result);

    snd_pcm_t* PCM = nullptr;
    long BufferFrames = 0;
    long PeriodFrames = 0;
    bool HasOverrun = false;
    int InterruptEvent = -1;         ///< readable for good once interrupted
    std::vector<pollfd> Descriptors; ///< the PCM's, and the event's at the end
};

} // namespace sn_internal
