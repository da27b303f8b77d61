// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/directsound/directsound_engines.h"

#include "drivers/directsound/CSonimbraDS8SoundDeviceList.h"
#include "drivers/directsound/CSonimbraDS8SoundEngine.h"
#include "drivers/directsound/CSonimbraDSSoundDeviceList.h"
#include "drivers/directsound/CSonimbraDSSoundEngine.h"

namespace sn_internal {

sonimbra::ISoundEngine* createDirectSound8Engine(io::IFileSystem* fileSystem, int options,
                                                 const char* deviceID) {
    return new CSonimbraDS8SoundEngine(fileSystem, options, deviceID);
}

sonimbra::ISoundEngine* createDirectSoundEngine(io::IFileSystem* fileSystem, int options,
                                                const char* deviceID) {
    return new CSonimbraDSSoundEngine(fileSystem, options, deviceID);
}

CSoundDeviceList* createDirectSound8DeviceList() {
    return new CSonimbraDS8SoundDeviceList;
}

CSoundDeviceList* createDirectSoundDeviceList() {
    return new CSonimbraDSSoundDeviceList;
}

} // namespace sn_internal
