// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "recording/directsound/CDirectSoundRecorder.h"

#include "core/log.h"
#include "core/no_throw.h"

namespace sn_internal {

using sonimbra::E_SAMPLE_FORMAT;

namespace {

const std::uint32_t AboveNormalPriority = 3;
const DWORD PollingInterval = 2; // milliseconds

// 32-bit Windows knows the record at this size; 64-bit Windows at a larger one.
static_assert(sizeof(void*) != 4 || sizeof(DSCBUFFERDESC) == 28);

/// Channel counts that the record's fields cannot hold are cut: see holdsChannels.
WAVEFORMATEX captureFormat(std::int32_t sampleRate, E_SAMPLE_FORMAT sampleFormat,
                           std::int32_t channelCount) {
    WAVEFORMATEX format = {};
    format.wFormatTag = WAVE_FORMAT_PCM;
    format.nChannels = static_cast<WORD>(channelCount);
    format.nSamplesPerSec = static_cast<DWORD>(sampleRate);
    format.wBitsPerSample = sampleFormat == E_SAMPLE_FORMAT::Signed16Bit ? 16 : 8;
    format.nBlockAlign = static_cast<WORD>(format.wBitsPerSample / 8 * format.nChannels);
    format.nAvgBytesPerSec = format.nBlockAlign * format.nSamplesPerSec;
    return format;
}

/// A device would not see that it is asked for less than the caller wants.
bool holdsChannels(const WAVEFORMATEX& format, std::int32_t channelCount) {
    return format.nChannels == channelCount &&
           format.nBlockAlign == format.nChannels * (format.wBitsPerSample / 8);
}

} // namespace

CDirectSoundRecorder::CDirectSoundRecorder(const SCaptureGeneration& generation,
                                           sonimbra::ISoundEngine* engine, const char* deviceID)
    : CSonimbraAudioRecorder(engine), Generation(generation) {
    const bool isDone = withoutExceptions(false, [&] {
        createDevice(deviceID);
        return true;
    });
    if (!isDone) {
        Device.reset(); // memory ran out
    }
}

/// A device that could not be initialised refuses to record later.
void CDirectSoundRecorder::createDevice(const char* deviceID) {
    Apartment.enter();
    if (FAILED(CoCreateInstance(Generation.captureClass, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IDirectSoundCapture, Device.putVoid())) ||
        !Device) {
        Device.reset();
        return;
    }
    const GUID device = chooseDevice(deviceID, Generation.makeDeviceList);
    Device->Initialize(&device);
}

void CDirectSoundRecorder::shutDown() {
    stopRecordingAudio();
    Device.reset();
    Apartment.leave();
}

bool CDirectSoundRecorder::startRecording(std::int32_t sampleRate, E_SAMPLE_FORMAT sampleFormat,
                                          std::int32_t channelCount) {
    if (!Device || isDelivering()) {
        return false;
    }
    stopRecordingAudio();
    const WAVEFORMATEX format = captureFormat(sampleRate, sampleFormat, channelCount);
    beginFormat(channelCount, sampleRate,
                format.wBitsPerSample == 8 ? E_SAMPLE_FORMAT::Unsigned8Bit
                                           : E_SAMPLE_FORMAT::Signed16Bit);
    const bool isStarted =
        holdsChannels(format, channelCount) && createBuffer(format) && startCapture();
    if (!isStarted) {
        release();
        restoreFormat();
    }
    return isStarted;
}

/// One second of audio.
bool CDirectSoundRecorder::createBuffer(WAVEFORMATEX format) {
    DSCBUFFERDESC description = {};
    description.dwSize = sizeof(description);
    description.dwBufferBytes = BufferBytes = format.nAvgBytesPerSec;
    description.lpwfxFormat = &format;
    if (FAILED(Device->CreateCaptureBuffer(&description, Buffer.put(), nullptr))) {
        Buffer.reset();
    }
    return static_cast<bool>(Buffer);
}

bool CDirectSoundRecorder::startCapture() {
    com_ptr<IDirectSoundNotify> notify;
    if (const char* const problem = setUpNotifications(notify)) {
        logText(problem);
        return false;
    }
    ReadPosition = 0;
    if (!startCaptureThread()) {
        return false;
    }
    if (FAILED(Buffer->Start(DSCBSTART_LOOPING))) {
        stopCaptureThread();
        return false;
    }
    return true;
}

/// At the beginning and in the middle of the buffer. Returns what went wrong, or null.
const char* CDirectSoundRecorder::setUpNotifications(com_ptr<IDirectSoundNotify>& notify) {
    if (FAILED(Buffer->QueryInterface(IID_IDirectSoundNotify, notify.putVoid())) || !notify) {
        return "Could not get sound notify interface for audio capturing.";
    }
    if (!Events.create()) {
        return "Could not create notification events for audio capturing.";
    }
    const DSBPOSITIONNOTIFY positions[] = {
        {0, Events.get(CCaptureEvents::FirstHalf)},
        {BufferBytes / 2, Events.get(CCaptureEvents::SecondHalf)},
    };
    if (FAILED(notify->SetNotificationPositions(2, positions))) {
        return "Could not set sound notify positions for audio capturing.";
    }
    return nullptr;
}

/// The flag is set here, not by the thread, so that a stop that comes at once waits for it.
bool CDirectSoundRecorder::startCaptureThread() {
    IsThreadRunning = true;
    if (!withoutExceptions(false, [&] { return startThread(this, 0, AboveNormalPriority); })) {
        IsThreadRunning = false;
    }
    return IsThreadRunning;
}

void CDirectSoundRecorder::stopCaptureThread() {
    SetEvent(Events.get(CCaptureEvents::StopRequest));
    while (IsThreadRunning) {
        Sleep(PollingInterval);
    }
}

void CDirectSoundRecorder::run(const SThreadStart&) {
    while (Events.wait() != CCaptureEvents::StopRequest) {
        readCapturedData();
    }
    IsThreadRunning = false; // the last that this thread does with the recorder
}

/// Reads the rest after the thread has ended: what came in since the last notification.
void CDirectSoundRecorder::stopRecordingAudio() {
    if (!Buffer || isDelivering()) {
        return;
    }
    Buffer->Stop();
    stopCaptureThread();
    readCapturedData();
    release();
    endFormat();
}

/// The buffer first: until it has gone, the platform may still signal the events.
void CDirectSoundRecorder::release() {
    Buffer.reset();
    Events.close();
}

void CDirectSoundRecorder::readCapturedData() {
    DWORD cursor = 0;
    if (FAILED(Buffer->GetCurrentPosition(nullptr, &cursor))) {
        return;
    }
    const DWORD available =
        cursor >= ReadPosition ? cursor - ReadPosition : BufferBytes - ReadPosition + cursor;
    if (deliver(available) && BufferBytes > 0) {
        ReadPosition = (ReadPosition + available) % BufferBytes;
    }
}

/// From the read position on, over the end of the buffer if need be.
bool CDirectSoundRecorder::deliver(DWORD byteCount) {
    struct {
        void* bytes = nullptr;
        DWORD size = 0;
    } regions[2];
    if (FAILED(Buffer->Lock(ReadPosition, byteCount, &regions[0].bytes, &regions[0].size,
                            &regions[1].bytes, &regions[1].size, 0))) {
        return false;
    }
    for (const auto& region : regions) {
        if (region.bytes != nullptr && region.size > 0) {
            onAudioDataCaptured(region.bytes, region.size);
        }
    }
    Buffer->Unlock(regions[0].bytes, regions[0].size, regions[1].bytes, regions[1].size);
    return true;
}

} // namespace sn_internal
