// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "recording/CSonimbraALSARecorder.h"

#include "core/log.h"
#include "core/no_throw.h"
#include "drivers/software/CSonimbraALSASoundDeviceList.h"
#include "recording/alsa_recorder.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace sn_internal {
namespace {

using sonimbra::E_SAMPLE_FORMAT;
using EDirection = CSonimbraALSASoundDeviceList::EDirection;

constexpr std::uint32_t PriorityAboveNormal = 3;
constexpr std::chrono::milliseconds StopPollInterval(2);
constexpr int PauseMilliseconds = 20;

constexpr std::int32_t HighestChannelCount = 256; // PCMs that convert keep tables on the stack

/// The device is to refuse what it does not have. Some convert to anything that they are asked for,
/// such as to seconds that fit into no memory.
bool isRecordable(const sonimbra::SAudioStreamFormat& format) {
    return format.SampleRate > 0 && format.ChannelCount > 0 &&
           format.ChannelCount <= HighestChannelCount &&
           static_cast<std::uint32_t>(format.SampleRate) <=
               CRecordedData::MaxBytes / static_cast<std::uint32_t>(format.getFrameSize());
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

/// A device that another program records from may be free when it is wanted.
bool CSonimbraALSARecorder::probeDevice() {
    CSonimbraALSACaptureDevice device;
    const int result = device.open(PCMName.c_str());
    return result == -EBUSY || !reportError("Could not open ALSA capture device", result);
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
    const bool hasStarted =
        withoutExceptions(false, [this] { return openDevice(); }) && startCaptureThread();
    if (!hasStarted) {
        Device.close();
        restoreFormat();
    }
    return hasStarted;
}

bool CSonimbraALSARecorder::openDevice() {
    const char* const setUpProblem = "Could not set up ALSA capture device";
    const sonimbra::SAudioStreamFormat format = getAudioFormat();
    if (reportError(setUpProblem, isRecordable(format) ? 0 : -EINVAL) ||
        reportError("Could not open ALSA capture device", Device.open(PCMName.c_str())) ||
        reportError(setUpProblem, Device.configure(format))) {
        return false;
    }
    BlockFrames = std::max(format.SampleRate / 2, 1);
    Block.resize(static_cast<std::size_t>(BlockFrames * format.getFrameSize()));
    TakenFrames = 0;
    HasReportedOverrun = false;
    StartTime = std::chrono::steady_clock::now();
    return !reportError("Could not start ALSA capture device", Device.start());
}

/// Once the thread exists the flag is the thread's.
bool CSonimbraALSARecorder::startCaptureThread() {
    IsThreadRunning = true;
    if (withoutExceptions(false, [this] { return startThread(this, 0, PriorityAboveNormal); })) {
        return true;
    }
    IsThreadRunning = false;
    logText("Could not start ALSA capture thread");
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

int CSonimbraALSARecorder::captureNext(int wake) {
    const long taken = takeCaptured();
    if (CSonimbraALSACaptureDevice::isInterruption(taken)) {
        return recover(taken);
    }
    const long result = std::min(taken == 0 ? wake : taken, 0L);
    if (result == 0) {
        pace(taken);
    }
    return static_cast<int>(result);
}

/// Asks a device that is not ready again and again, until it is or the recording is stopped.
int CSonimbraALSARecorder::recover(long interruption) {
    int result = -EAGAIN;
    bool isInterrupted = false;
    while (result == -EAGAIN && !isInterrupted) {
        result = Device.recover(interruption);
        isInterrupted = Device.pause(PauseMilliseconds);
    }
    return result == -EAGAIN ? 0 : result;
}

/// Whatever a device does, it does not keep the processor busy: not with wakes for less than a
/// period, and not with frames that never end, which PCMs without a clock have, such as "null". Of
/// those so many are taken as time has passed. No other device can be ahead of the time, unless by
/// a clock that runs fast, and then it loses nothing in a pause as long as what was just taken.
void CSonimbraALSARecorder::pace(long takenFrames) {
    const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now() - StartTime);
    const std::int64_t rate = getAudioFormat().SampleRate;
    const std::int64_t ahead =
        TakenFrames - Device.getBufferFrames() - elapsed.count() * rate / 1000;
    const std::int64_t shortest = takenFrames < Device.getPeriodFrames() ? PauseMilliseconds : 0;
    const std::int64_t pause = std::min<std::int64_t>(ahead, takenFrames) * 1000 / rate;
    Device.pause(static_cast<int>(std::clamp<std::int64_t>(pause, shortest, INT32_MAX)));
}

/// Returns the frames that were there, or an error.
long CSonimbraALSARecorder::takeCaptured() {
    const long available = Device.getAvailable();
    long left = std::max(available, 0L);
    long taken = 1;
    while (left > 0 && taken > 0) {
        taken = readIntoBlock(left);
        left -= std::max(taken, 0L);
    }
    if (Device.hasOverrun() && !std::exchange(HasReportedOverrun, true)) {
        logTextWithHint("ALSA capture device overrun, frames were lost", PCMName.c_str());
    }
    return taken < 0 ? taken : available - left;
}

long CSonimbraALSARecorder::readIntoBlock(long frameCount) {
    const auto frameSize = static_cast<std::size_t>(getAudioFormat().getFrameSize());
    std::uint8_t* const target = Block.data() + static_cast<std::size_t>(FilledFrames) * frameSize;
    const long taken = Device.read(target, std::min(frameCount, BlockFrames - FilledFrames));
    if (taken > 0) {
        TakenFrames += taken;
        FilledFrames += taken;
        if (FilledFrames == BlockFrames) {
            deliverBlock();
        }
    }
    return taken;
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
