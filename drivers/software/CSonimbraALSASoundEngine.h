// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/software/CSonimbraALSADevice.h"
#include "drivers/software/CSonimbraSoftwareSoundEngine.h"

#include <chrono>
#include <optional>
#include <string>

namespace sn_internal {

/// Plays the software mixer's stream through an ALSA PCM, whose queue each update fills up.
///
/// A device that fails while the engine plays, or takes nothing for two seconds, is lost. It is
/// tried again once a second, or less often when a try takes long: opening may wait for a hung
/// sound server, without the engine's lock, and there are no updates on that thread meanwhile.
/// Until the device is back a clock takes its place: sounds go on and end as if they were heard.
class CSonimbraALSASoundEngine final : public CSonimbraSoftwareSoundEngine {
public:
    using CClock = std::chrono::steady_clock;
    using CTimeFunction = CClock::time_point (*)();

    /// The time comes from a function so that tests need not wait.
    CSonimbraALSASoundEngine(io::IFileSystem* fileSystem, int options, const char* deviceID,
                             CTimeFunction currentTime = CClock::now);
    ~CSonimbraALSASoundEngine() override;

    const char* getDriverName() override { return "ALSA"; }
    bool isDriverInitialized() override { return IsInitialized; }
    void updateDriver() override;

private:
    static constexpr std::int32_t BufferCount = 32;

    bool openDevice(CSonimbraALSADevice& device) const;
    bool reportStartError(const char* context, int result) const;
    void refillQueue();
    void feedDevice();
    long fillQueueOrRecover();
    long recover(long interruption);
    long fillQueue();
    long writeBuffer();
    bool hasStalled();
    void welcomeDevice();
    void loseDevice(long error);
    void tryDeviceAgain();
    bool beginTry();
    void endTry(CSonimbraALSADevice& device);
    void scheduleNextTry(CClock::time_point begin);
    void feedClock();

    const CTimeFunction CurrentTime;
    const std::string PCMName;
    CSonimbraALSADevice Device;
    bool IsInitialized = false;
    bool IsRefilling = false;
    std::int16_t Samples[OutputChannels * OutputBufferFrames] = {};
    std::int32_t UnwrittenFrames = 0; ///< at the end of Samples
    std::int64_t TakenFrames = 0;     ///< by the device since it was opened
    bool IsLost = false;              ///< until a new try plays
    bool IsTrying = false;
    CClock::time_point TryBegin;   ///< of the last try for a lost device
    CClock::time_point NextTry;    ///< for a lost device
    CClock::time_point MixedUntil; ///< while the device is lost
    std::optional<CClock::time_point> StalledSince;
};

} // namespace sn_internal
