// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/software/CSonimbraSoftwareSoundEngine.h"

#include <windows.h>

#include <mmsystem.h>

namespace sn_internal {

/// Plays the software mixer's stream through the default wave-out device, in a ring of buffers that
/// each update refills as far as the device has played them.
class CSonimbraWinMMSoundEngine final : public CSonimbraSoftwareSoundEngine {
public:
    CSonimbraWinMMSoundEngine(io::IFileSystem* fileSystem, int options);
    ~CSonimbraWinMMSoundEngine() override;

    const char* getDriverName() override { return "winMM"; }
    bool isDriverInitialized() override { return Device != nullptr; }
    void updateDriver() override;

private:
    static constexpr std::int32_t BufferCount = 32;

    bool openDevice();
    void prepareBuffers();
    void refillPlayedBuffers();
    void refill(WAVEHDR& header);
    void closeDevice();

    HWAVEOUT Device = nullptr;
    bool IsRefilling = false;
    WAVEHDR Headers[BufferCount] = {};
    std::int16_t Samples[BufferCount][OutputChannels * OutputBufferFrames] = {};
};

} // namespace sn_internal
