// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CDirectSoundDeviceList.h"

namespace sn_internal {

/// The playback devices of DirectSound 8.
class CSonimbraDS8SoundDeviceList final : public CDirectSoundDeviceList {
public:
    CSonimbraDS8SoundDeviceList() : CDirectSoundDeviceList("DirectSoundEnumerateA") {}
};

} // namespace sn_internal
