// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/software/CSonimbraALSASoundEngine.h"

#include "core/log.h"
#include "core/no_throw.h"
#include "drivers/software/CSonimbraALSASoundDeviceList.h"
#include "drivers/software/alsa_engine.h"

#include <algorithm>
#include <cerrno>

namespace sn_internal {
namespace {

constexpr std::chrono::seconds RetryInterval(1);

/// The PCM's name and what ALSA says about the error.
std::string errorHint(const std::string& pcmName, long error) {
    return pcmName + ": " + snd_strerror(static_cast<int>(error));
}

} // namespace

CSonimbraALSASoundEngine::CSonimbraALSASoundEngine(io::IFileSystem* fileSystem, int options,
                                                   const char* deviceID, CTimeFunction currentTime)
    : CSonimbraSoftwareSoundEngine(fileSystem, options),
      CurrentTime(currentTime),
      PCMName(toALSAPCMName(deviceID, CSonimbraALSASoundDeviceList::EDirection::Playback)) {
    if (!openDevice()) {
        return;
    }
    IsInitialized = true; // never changed again: the engine's thread may lose the device
    startEngineThread();
    logText("Using ALSA driver");
}

CSonimbraALSASoundEngine::~CSonimbraALSASoundEngine() {
    stopEngineThread();
    endSounds();
    Device.close();
}

bool CSonimbraALSASoundEngine::openDevice() {
    const SALSAQueue queue = {getOutputRate(), OutputChannels, OutputBufferFrames,
                              BufferCount * OutputBufferFrames};
    if (reportStartError("Could not start up ALSA device", Device.open(PCMName.c_str()))) {
        return false;
    }
    if (reportStartError("Could not set up ALSA device for 16-bit stereo",
                         Device.configure(queue))) {
        Device.close();
        return false;
    }
    return true;
}

/// Returns whether the result was an error. Tries for a lost device stay without messages.
bool CSonimbraALSASoundEngine::reportStartError(const char* context, int result) const {
    if (result < 0 && !IsInitialized) {
        logTextWithHint(context, errorHint(PCMName, result).c_str());
    }
    return result < 0;
}

void CSonimbraALSASoundEngine::updateDriver() {
    const CScopedLock lock(getLock());
    updateSounds();
    refillQueue();
    deliverStopEvents();
}

/// Receivers of the mixed output may cause an update from inside: the queue is in work then.
void CSonimbraALSASoundEngine::refillQueue() {
    if (IsRefilling) {
        return;
    }
    IsRefilling = true;
    withoutExceptions([this] {
        tryDeviceAgain();
        if (Device.isOpen()) {
            feedDevice();
        } else {
            feedClock();
        }
    });
    IsRefilling = false;
}

/// A device that is interrupted twice in one update has to wait for the next.
void CSonimbraALSASoundEngine::feedDevice() {
    for (const bool isFirstTry : {true, false}) {
        long result = fillQueue();
        if (CSonimbraALSADevice::isInterruption(result)) {
            result = isFirstTry ? recover(result) : -EAGAIN;
            if (result == 0) {
                continue;
            }
        }
        if (result < 0 && result != -EAGAIN) {
            loseDevice(result);
        }
        return;
    }
}

/// The rest of a block would keep whole ones from filling an empty queue, which would never start.
long CSonimbraALSASoundEngine::recover(long interruption) {
    const int result = Device.recover(interruption);
    if (result == CSonimbraALSADevice::StartsAfresh && UnwrittenFrames < OutputBufferFrames) {
        UnwrittenFrames = 0;
    }
    return std::min(result, 0);
}

/// Returns 0, or the error that kept the queue from being filled.
long CSonimbraALSASoundEngine::fillQueue() {
    long room = Device.getRoom();
    if (room < 0) {
        return room;
    }
    while (UnwrittenFrames > 0 || room >= OutputBufferFrames) {
        if (UnwrittenFrames == 0) {
            mix(Samples, OutputBufferFrames);
            UnwrittenFrames = OutputBufferFrames;
        }
        const long taken = writeBuffer();
        if (taken <= 0) {
            return taken;
        }
        room -= taken;
    }
    return 0;
}

/// A device may take a part; the rest stays for the next time.
long CSonimbraALSASoundEngine::writeBuffer() {
    const std::int32_t begin = OutputBufferFrames - UnwrittenFrames;
    const long taken = Device.write(Samples + OutputChannels * begin, UnwrittenFrames);
    if (taken > 0) {
        UnwrittenFrames -= static_cast<std::int32_t>(taken);
    }
    return taken;
}

void CSonimbraALSASoundEngine::loseDevice(long error) {
    Device.close();
    UnwrittenFrames = 0;
    MixedUntil = CurrentTime();
    NextTry = MixedUntil + RetryInterval;
    logTextWithHint("ALSA device lost, playing on without it", errorHint(PCMName, error).c_str());
}

void CSonimbraALSASoundEngine::tryDeviceAgain() {
    if (Device.isOpen() || CurrentTime() < NextTry) {
        return;
    }
    if (openDevice()) {
        logTextWithHint("ALSA device is back", PCMName.c_str());
    }
    NextTry = CurrentTime() + RetryInterval;
}

/// Mixes into nothing what time has passed for, at most what a device's queue holds.
void CSonimbraALSASoundEngine::feedClock() {
    const std::chrono::nanoseconds buffer(std::int64_t(1000000000) * OutputBufferFrames /
                                          getOutputRate());
    const CClock::time_point now = CurrentTime();
    for (std::int32_t i = 0; i < BufferCount && now - MixedUntil >= buffer; ++i) {
        mix(Samples, OutputBufferFrames);
        MixedUntil += buffer;
    }
    MixedUntil = std::max(MixedUntil, CClock::time_point(now - buffer));
}

sonimbra::ISoundEngine* createALSAEngine(io::IFileSystem* fileSystem, int options,
                                         const char* deviceID) {
    return new CSonimbraALSASoundEngine(fileSystem, options, deviceID);
}

} // namespace sn_internal
