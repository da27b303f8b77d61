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
constexpr std::chrono::seconds StallLimit(2);

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
    if (!openDevice(Device)) {
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

bool CSonimbraALSASoundEngine::openDevice(CSonimbraALSADevice& device) const {
    const SALSAQueue queue = {getOutputRate(), OutputChannels, OutputBufferFrames,
                              BufferCount * OutputBufferFrames};
    if (reportStartError("Could not start up ALSA device", device.open(PCMName.c_str()))) {
        return false;
    }
    if (reportStartError("Could not set up ALSA device for 16-bit stereo",
                         device.configure(queue))) {
        device.close();
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
    tryDeviceAgain();
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
        if (Device.isOpen()) {
            feedDevice();
        } else {
            feedClock();
        }
    });
    IsRefilling = false;
}

void CSonimbraALSASoundEngine::feedDevice() {
    const std::int64_t takenBefore = TakenFrames;
    const long error = fillQueueOrRecover();
    if (error < 0 && error != -EAGAIN) {
        loseDevice(error);
    } else if (TakenFrames != takenBefore) {
        StalledSince.reset();
        welcomeDevice();
    } else if (hasStalled()) {
        loseDevice(-ETIMEDOUT);
    }
}

/// A device that is interrupted twice in one update has to wait for the next.
long CSonimbraALSASoundEngine::fillQueueOrRecover() {
    long result = fillQueue();
    if (CSonimbraALSADevice::isInterruption(result)) {
        result = recover(result);
        if (result == 0) {
            result = fillQueue();
        }
    }
    return CSonimbraALSADevice::isInterruption(result) ? -EAGAIN : result;
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
        TakenFrames += taken;
    }
    return taken;
}

/// For an update in which the device took nothing. One that plays takes something many times a
/// second; a hung sound server never does, and reports no error either.
bool CSonimbraALSASoundEngine::hasStalled() {
    const CClock::time_point now = CurrentTime();
    StalledSince = StalledSince.value_or(now);
    return now - *StalledSince >= StallLimit;
}

/// A new try has worked when the device took more than its queue holds: it plays.
void CSonimbraALSASoundEngine::welcomeDevice() {
    if (IsLost && TakenFrames > BufferCount * OutputBufferFrames) {
        IsLost = false;
        logTextWithHint("ALSA device is back", PCMName.c_str());
    }
}

/// A new try that does not come to play goes without a message.
void CSonimbraALSASoundEngine::loseDevice(long error) {
    Device.abandon();
    UnwrittenFrames = 0;
    MixedUntil = CurrentTime();
    scheduleNextTry(IsLost ? TryBegin : MixedUntil);
    if (!IsLost) {
        IsLost = true;
        logTextWithHint("ALSA device lost, playing on without it",
                        errorHint(PCMName, error).c_str());
    }
}

/// The lock is free while the device opens, unless the update comes from a receiver: the
/// application may go on, and so may updates of other threads.
void CSonimbraALSASoundEngine::tryDeviceAgain() {
    if (beginTry()) {
        CSonimbraALSADevice device;
        withoutExceptions([&] { openDevice(device); });
        endTry(device);
    }
}

bool CSonimbraALSASoundEngine::beginTry() {
    const CScopedLock lock(getLock());
    if (Device.isOpen() || IsTrying || CurrentTime() < NextTry) {
        return false;
    }
    IsTrying = true;
    TryBegin = CurrentTime();
    return true;
}

void CSonimbraALSASoundEngine::endTry(CSonimbraALSADevice& device) {
    const CScopedLock lock(getLock());
    IsTrying = false;
    if (!device.isOpen()) {
        scheduleNextTry(TryBegin);
        return;
    }
    Device.swap(device);
    TakenFrames = 0;
    StalledSince.reset();
}

/// What began then and did not work may take as long again: it gets a small share of the time.
void CSonimbraALSASoundEngine::scheduleNextTry(CClock::time_point begin) {
    const CClock::time_point now = CurrentTime();
    NextTry = now + std::max<CClock::duration>(RetryInterval, 10 * (now - begin));
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
