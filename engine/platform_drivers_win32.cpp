// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/software/winmm_engine.h"
#include "engine/drivers.h"

namespace sn_internal {

sonimbra::ISoundEngine* createPlatformEngine(sonimbra::E_SOUND_OUTPUT_DRIVER driver,
                                             const SEngineArguments& arguments) {
    if (driver == sonimbra::E_SOUND_OUTPUT_DRIVER::WinMM) {
        return createWinMMEngine(arguments.fileSystem, arguments.options);
    }
    logUnsupportedDriver(driver);
    return nullptr;
}

CSoundDeviceList* createPlatformDeviceList(sonimbra::E_SOUND_OUTPUT_DRIVER) {
    return nullptr;
}

} // namespace sn_internal
