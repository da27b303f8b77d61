// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/E_SOUND_OUTPUT_DRIVER.h>

namespace sonimbra {
class IAudioRecorder;
class ISoundEngine;
} // namespace sonimbra
namespace sn_internal::io {
class IFileSystem;
}

namespace sn_internal {

class CSoundDeviceList;

/// What an engine is made from.
struct SEngineArguments {
    io::IFileSystem* fileSystem;
    int options;
    const char* deviceID; ///< null for the default device
};

/// Makes the engine of one of the drivers that exist only on certain systems (1 to 5). Returns
/// null, and writes a line to the log, when this system has none. Every system has its own file for
/// it; it is the place where drivers join.
sonimbra::ISoundEngine* createPlatformEngine(sonimbra::E_SOUND_OUTPUT_DRIVER driver,
                                             const SEngineArguments& arguments);

/// Lists the devices of such a driver, with one reference for the caller. Returns null when the
/// driver has no list on this system.
CSoundDeviceList* createPlatformDeviceList(sonimbra::E_SOUND_OUTPUT_DRIVER driver);

/// Makes the recorder of such a driver, with one reference for the caller; isDriverInitialized
/// tells whether it has a device. Returns null when the driver does not record on this system.
sonimbra::IAudioRecorder* createPlatformRecorder(sonimbra::E_SOUND_OUTPUT_DRIVER driver,
                                                 sonimbra::ISoundEngine* engine,
                                                 const char* deviceID);

/// Lists the devices that such a driver records from; otherwise as createPlatformDeviceList.
CSoundDeviceList* createPlatformCaptureDeviceList(sonimbra::E_SOUND_OUTPUT_DRIVER driver);

/// Says in the log that a driver does not exist on this system.
void logUnsupportedDriver(sonimbra::E_SOUND_OUTPUT_DRIVER driver);

} // namespace sn_internal
