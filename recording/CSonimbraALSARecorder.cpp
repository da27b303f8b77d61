// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "recording/CSonimbraALSARecorder.h"

#include "core/log.h"
#include "core/no_throw.h"
#include "drivers/software/CSonimbraALSASoundDeviceList.h"
#include "recording/alsa_recorder.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace sn_internal {
namespace {

using sonimbra::E_SAMPLE_FORMAT;
using EDirection = CSonimbraALSASoundDeviceList::EDirection;

constexpr std::uint32_t PriorityAboveNormal = 3;
constexpr std::chrono::milliseconds StopPollInterval(2);
constexpr long PauseMilliseconds = 20;

constexpr std::int32_t LowestRate = 100; // some PCMs convert to any rate that they are asked for
constexpr std::int32_t HighestRate = 384000;

bool isRecordable(const sonimbra::SAudioStreamFormat& format) {
    return format.SampleRate >= LowestRate && format.SampleRate <= HighestRate &&
           (format.ChannelCount == 1 || format.ChannelCount == 2);
}

} // namespace

CSonimbraALSARecorder::CSonimbraALSARecorder(sonimbra::ISoundEngine* engine, const char* deviceID)
    : CSonimbraAudioRecorder(engine),
      PCMName(toALSAPCMName(deviceID, EDirection::Capture)),
      IsInitialized(probeDevice()) {
}

CSonimbraALSARecorder::~CSonimbraALSARecorder() {
    stopRecordingAudio();
}

bool CSonimbraALSARecorder::probeDevice() {
    CSonimbraALSACaptureDevice device;
    return !reportError("Could not open ALSA capture device", device.open(PCMName.c_str()));
}

bool CSonimbraALSARecorder::startRecording(std::int32_t sampleRate, E_SAMPLE_FORMAT sampleFormat,
                                           std::int32_t channelCount) {
    if (!IsInitialized || isDelivering()) {
        return false;
    }
    stopRecordingAudio();
    const bool is16Bit = sampleFormat == E_SAMPLE_FORMAT::Signed16Bit;
    beginFormat(channelCount, sampleRate,
                is16Bit ? E_SAMPLE_FORMAT::Signed16Bit : E_SAMPLE_FORMAT::Unsigned8Bit);
    const bool hasStarted = isRecordable(getAudioFormat()) &&
                            withoutExceptions(false, [this] { return openDevice(); }) &&
                            startCaptureThread();
    if (!hasStarted) {
        Device.close();
        restoreFormat();
    }
    return hasStarted;
}

bool CSonimbraALSARecorder::openDevice() {
    const sonimbra::SAudioStreamFormat format = getAudioFormat();
    BlockFrames = format.SampleRate / 2;
    FilledFrames = 0;
    Block.resize(static_cast<std::size_t>(BlockFrames * format.getFrameSize()));
    return !reportError("Could not open ALSA capture device", Device.open(PCMName.c_str())) &&
           !reportError("Could not set up ALSA capture device", Device.configure(format)) &&
           !reportError("Could not start ALSA capture device", Device.start());
}

/// Once the thread exists the flag is the thread's.
bool CSonimbraALSARecorder::startCaptureThread() {
    IsThreadRunning = true;
    if (withoutExceptions(false, [this] { return startThread(this, 0, PriorityAboveNormal); })) {
        return true;
    }
    IsThreadRunning = false;
    return false;
}

void CSonimbraALSARecorder::stopRecordingAudio() {
    if (!Device.isOpen() || isDelivering()) {
        return;
    }
    Device.interrupt();
    while (IsThreadRunning) {
        std::this_thread::sleep_for(StopPollInterval);
    }
    takeCaptured();
    deliverBlock();
    Device.close();
    endFormat();
}

void CSonimbraALSARecorder::run(const SThreadStart&) {
    const int result = captureUntilInterrupted();
    withoutExceptions([&] { reportError("ALSA capture device lost", result); });
    IsThreadRunning = false;
}

/// Returns 0, or the error that makes the device useless.
int CSonimbraALSARecorder::captureUntilInterrupted() {
    int result = 0;
    while (result == 0) {
        const int wake = Device.wait();
        if (wake == 0) {
            break;
        }
        result = captureNext(wake);
    }
    return result;
}

/// A wake without anything to read is not taken at once for another: whatever state a device is in,
/// it does not keep the processor busy.
int CSonimbraALSARecorder::captureNext(int wake) {
    long result = takeCaptured();
    if (result > 0) {
        waitForClocklessDevice(result);
        return 0;
    }
    if (CSonimbraALSACaptureDevice::isInterruption(result)) {
        result = Device.recover(result);
    } else if (result == 0) {
        result = std::min(wake, 0);
    }
    if (result == 0) {
        Device.pause(PauseMilliseconds);
    }
    return static_cast<int>(result);
}

/// Some PCMs, such as "null", always have a full buffer to read. Others lose nothing meanwhile.
void CSonimbraALSARecorder::waitForClocklessDevice(long takenFrames) {
    const long bufferFrames = Device.getBufferFrames();
    if (takenFrames >= bufferFrames) {
        Device.pause(bufferFrames * 1000 / getAudioFormat().SampleRate / 2);
    }
}

/// Returns the frames that were there, or an error.
long CSonimbraALSARecorder::takeCaptured() {
    const long available = Device.getAvailable();
    const auto frameSize = static_cast<std::size_t>(getAudioFormat().getFrameSize());
    for (long left = available; left > 0;) {
        const long wanted = std::min(left, BlockFrames - FilledFrames);
        std::uint8_t* const target =
            Block.data() + static_cast<std::size_t>(FilledFrames) * frameSize;
        const long taken = Device.read(target, wanted);
        if (taken <= 0) {
            return taken < 0 ? taken : available - left;
        }
        left -= taken;
        FilledFrames += taken;
        if (FilledFrames == BlockFrames) {
            deliverBlock();
        }
    }
    return available;
}

void CSonimbraALSARecorder::deliverBlock() {
    if (FilledFrames > 0) {
        const auto frames = static_cast<std::uint32_t>(FilledFrames);
        const auto frameSize = static_cast<std::uint32_t>(getAudioFormat().getFrameSize());
        FilledFrames = 0;
        onAudioDataCaptured(Block.data(), frames * frameSize);
    }
}

/// Returns whether the result was an error.
bool CSonimbraALSARecorder::reportError(const char* context, int result) const {
    if (result < 0) {
        logTextWithHint(context, (PCMName + ": " + snd_strerror(result)).c_str());
    }
    return result < 0;
}

sonimbra::IAudioRecorder* createALSARecorder(sonimbra::ISoundEngine* engine, const char* deviceID) {
    return new CSonimbraALSARecorder(engine, deviceID);
}

CSoundDeviceList* createALSACaptureDeviceList() {
    return new CSonimbraALSASoundDeviceList(EDirection::Capture);
}

} // namespace sn_internal
