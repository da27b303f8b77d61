// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

namespace sonimbra {
class ISoundEngine;
}
namespace sn_internal::io {
class IFileSystem;
}

namespace sn_internal {

class CSoundDeviceList;

/// Make an engine of one of the two generations, with one reference for the caller;
/// isDriverInitialized tells whether it started. A null or empty device identifier stands for the
/// default device.
sonimbra::ISoundEngine* createDirectSound8Engine(io::IFileSystem* fileSystem, int options,
                                                 const char* deviceID);
sonimbra::ISoundEngine* createDirectSoundEngine(io::IFileSystem* fileSystem, int options,
                                                const char* deviceID);

/// List the playback devices, with one reference for the caller.
CSoundDeviceList* createDirectSound8DeviceList();
CSoundDeviceList* createDirectSoundDeviceList();

} // namespace sn_internal
