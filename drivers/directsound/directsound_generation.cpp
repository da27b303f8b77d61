// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/directsound/directsound_generation.h"

#include "drivers/directsound/CSonimbraDS8SoundDeviceList.h"
#include "drivers/directsound/CSonimbraDSSoundDeviceList.h"

namespace sn_internal {

const SDirectSoundGeneration DirectSound8Generation = {
    "DirectSound8",
    CLSID_DirectSound8,
    IID_IDirectSound8,
    &IID_IDirectSoundBuffer8,
    true,
    makeDeviceList<CSonimbraDS8SoundDeviceList>,
    "Could not create DirectSound8 object",
    "Could not init DirectSound8 object",
    "Could not set coop level for DirectSound8 object",
    "Using DirectSound8 driver",
};

const SDirectSoundGeneration DirectSoundGeneration = {
    "DirectSound",
    CLSID_DirectSound,
    IID_IDirectSound,
    nullptr,
    false,
    makeDeviceList<CSonimbraDSSoundDeviceList>,
    "Could not create DirectSound object",
    "Could not init DirectSound object",
    "Could not set coop level for DirectSound object",
    "Using DirectSound driver",
};

} // namespace sn_internal
