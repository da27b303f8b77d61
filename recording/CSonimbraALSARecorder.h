// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/IThread.h"
#include "recording/CSonimbraALSACaptureDevice.h"
#include "recording/CSonimbraAudioRecorder.h"

#include <atomic>
#include <chrono>
#include <string>

namespace sn_internal {

/// Records from an ALSA PCM. The capture thread collects what the device notifies of, and hands
/// over half a second at a time.
///
/// The device is open only while recording, because most let in one program at a time; whether it
/// can be opened is tried when the recorder is made. One that fails while recording ends the
/// thread. What it had captured stays, and the recording lasts until it is stopped.
class CSonimbraALSARecorder final : public CSonimbraAudioRecorder, public IThread {
public:
    CSonimbraALSARecorder(sonimbra::ISoundEngine* engine, const char* deviceID);
    ~CSonimbraALSARecorder() override;

    const char* getDriverName() override { return "ALSA"; }
    bool isDriverInitialized() override { return IsInitialized; }
    bool isRecording() override { return Device.isOpen(); }
    bool startRecording(std::int32_t sampleRate, sonimbra::E_SAMPLE_FORMAT sampleFormat,
                        std::int32_t channelCount) override;
    void stopRecordingAudio() override;

    void run(const SThreadStart& start) override;

private:
    bool probeDevice();
    bool openDevice();
    bool startCaptureThread();
    int captureUntilInterrupted();
    int captureNext(int wake);
    int recover(long interruption);
    void pace(long takenFrames);
    long takeCaptured();
    long readIntoBlock(long frameCount);
    void deliverBlock();
    bool reportError(const char* context, int result) const;

    const std::string PCMName;
    CSonimbraALSACaptureDevice Device;
    bool IsInitialized = false;
    std::vector<std::uint8_t> Block; ///< half a second
    long BlockFrames = 0;            ///< that Block holds at most
    long FilledFrames = 0;           ///< of Block
    std::int64_t TakenFrames = 0;    ///< since StartTime
    std::chrono::steady_clock::time_point StartTime;
    bool HasReportedOverrun = false;
    /// The thread clears it as the last thing that it does; the recorder may then end.
    std::atomic<bool> IsThreadRunning = false;
};

} // namespace sn_internal
