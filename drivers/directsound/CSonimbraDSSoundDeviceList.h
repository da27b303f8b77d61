// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CDirectSoundDeviceList.h"

namespace sn_internal {

/// The playback devices of DirectSound.
class CSonimbraDSSoundDeviceList final : public CDirectSoundDeviceList {
public:
    CSonimbraDSSoundDeviceList() : CDirectSoundDeviceList("DirectSoundEnumerateA") {}
};

} // namespace sn_internal
