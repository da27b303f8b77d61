// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/directsound/directsound_engines.h"
#include "drivers/software/winmm_engine.h"
#include "engine/drivers.h"
#include "recording/directsound/directsound_recorders.h"

namespace sn_internal {

using sonimbra::E_SOUND_OUTPUT_DRIVER;

sonimbra::ISoundEngine* createPlatformEngine(E_SOUND_OUTPUT_DRIVER driver,
                                             const SEngineArguments& arguments) {
    switch (driver) {
    case E_SOUND_OUTPUT_DRIVER::DirectSound8:
        return createDirectSound8Engine(arguments.fileSystem, arguments.options,
                                        arguments.deviceID);
    case E_SOUND_OUTPUT_DRIVER::DirectSound:
        return createDirectSoundEngine(arguments.fileSystem, arguments.options, arguments.deviceID);
    case E_SOUND_OUTPUT_DRIVER::WinMM:
        return createWinMMEngine(arguments.fileSystem, arguments.options);
    default:
        logUnsupportedDriver(driver);
        return nullptr;
    }
}

CSoundDeviceList* createPlatformDeviceList(E_SOUND_OUTPUT_DRIVER driver) {
    switch (driver) {
    case E_SOUND_OUTPUT_DRIVER::DirectSound8:
        return createDirectSound8DeviceList();
    case E_SOUND_OUTPUT_DRIVER::DirectSound:
        return createDirectSoundDeviceList();
    default:
        return nullptr;
    }
}

sonimbra::IAudioRecorder* createPlatformRecorder(E_SOUND_OUTPUT_DRIVER driver,
                                                 sonimbra::ISoundEngine* engine,
                                                 const char* deviceID) {
    switch (driver) {
    case E_SOUND_OUTPUT_DRIVER::DirectSound8:
        return createDirectSound8Recorder(engine, deviceID);
    case E_SOUND_OUTPUT_DRIVER::DirectSound:
        return createDirectSoundRecorder(engine, deviceID);
    default:
        return nullptr;
    }
}

CSoundDeviceList* createPlatformCaptureDeviceList(E_SOUND_OUTPUT_DRIVER driver) {
    switch (driver) {
    case E_SOUND_OUTPUT_DRIVER::DirectSound8:
        return createDirectSound8CaptureDeviceList();
    case E_SOUND_OUTPUT_DRIVER::DirectSound:
        return createDirectSoundCaptureDeviceList();
    default:
        return nullptr;
    }
}

} // namespace sn_internal
