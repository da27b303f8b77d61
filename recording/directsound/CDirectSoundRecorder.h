// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/IThread.h"
#include "drivers/directsound/CComApartment.h"
#include "drivers/directsound/com_ptr.h"
#include "recording/CSonimbraAudioRecorder.h"
#include "recording/directsound/CCaptureEvents.h"
#include "recording/directsound/capture_generation.h"

#include <atomic>

namespace sn_internal {

/// What the recorders of both generations of DirectSound share, which is almost everything: a
/// capture buffer of one second that goes round, and a thread that twice a second takes out what
/// has come in.
class CDirectSoundRecorder : public CSonimbraAudioRecorder, public IThread {
public:
    void stopRecordingAudio() override;
    bool isRecording() override { return static_cast<bool>(Buffer); }
    const char* getDriverName() override { return Generation.driverName; }
    bool isDriverInitialized() override { return static_cast<bool>(Device); }
    bool startRecording(std::int32_t sampleRate, sonimbra::E_SAMPLE_FORMAT sampleFormat,
                        std::int32_t channelCount) override;

    /// The capture thread.
    void run(const SThreadStart& start) override;

protected:
    /// isDriverInitialized tells whether there is a capture device.
    CDirectSoundRecorder(const SCaptureGeneration& generation, sonimbra::ISoundEngine* engine,
                         const char* deviceID);

    /// For the destructors of derived classes, because the thread runs virtual functions.
    void shutDown();

private:
    void createDevice(const char* deviceID);
    bool createBuffer(WAVEFORMATEX format);
    const char* setUpNotifications(com_ptr<IDirectSoundNotify>& notify);
    bool startCapture();
    bool startCaptureThread();
    void stopCaptureThread();
    void release();
    void readCapturedData();
    bool deliver(DWORD byteCount);

    const SCaptureGeneration& Generation;
    CComApartment Apartment;
    com_ptr<IDirectSoundCapture> Device;
    CCaptureEvents Events;
    com_ptr<IDirectSoundCaptureBuffer> Buffer; ///< only while recording
    DWORD BufferBytes = 0;
    DWORD ReadPosition = 0; ///< in bytes
    std::atomic<bool> IsThreadRunning{false};
};

} // namespace sn_internal
