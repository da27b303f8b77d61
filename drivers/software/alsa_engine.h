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

/// Makes the engine of the ALSA driver, with one reference for the caller; isDriverInitialized
/// tells whether its device was opened. The device is named by an identifier of the device list or
/// by its PCM name; null or an empty text is the default device.
sonimbra::ISoundEngine* createALSAEngine(io::IFileSystem* fileSystem, int options,
                                         const char* deviceID);

} // namespace sn_internal
