// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/software/alsa_device_list.h"
#include "drivers/software/alsa_engine.h"
#include "engine/drivers.h"
#include "recording/alsa_recorder.h"

namespace sn_internal {

sonimbra::ISoundEngine* createPlatformEngine(sonimbra::E_SOUND_OUTPUT_DRIVER driver,
                                             const SEngineArguments& arguments) {
    if (driver == sonimbra::E_SOUND_OUTPUT_DRIVER::ALSA) {
        return createALSAEngine(arguments.fileSystem, arguments.options, arguments.deviceID);
    }
    logUnsupportedDriver(driver);
    return nullptr;
}

CSoundDeviceList* createPlatformDeviceList(sonimbra::E_SOUND_OUTPUT_DRIVER driver) {
    return driver == sonimbra::E_SOUND_OUTPUT_DRIVER::ALSA ? createALSASoundDeviceList() : nullptr;
}

sonimbra::IAudioRecorder* createPlatformRecorder(sonimbra::E_SOUND_OUTPUT_DRIVER driver,
                                                 sonimbra::ISoundEngine* engine,
                                                 const char* deviceID) {
    return driver == sonimbra::E_SOUND_OUTPUT_DRIVER::ALSA ? createALSARecorder(engine, deviceID)
                                                           : nullptr;
}

CSoundDeviceList* createPlatformCaptureDeviceList(sonimbra::E_SOUND_OUTPUT_DRIVER driver) {
    return driver == sonimbra::E_SOUND_OUTPUT_DRIVER::ALSA ? createALSACaptureDeviceList()
                                                           : nullptr;
}

} // namespace sn_internal
