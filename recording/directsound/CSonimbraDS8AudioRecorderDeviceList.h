// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CDirectSoundDeviceList.h"

namespace sn_internal {

/// The capture devices of DirectSound 8.
class CSonimbraDS8AudioRecorderDeviceList final : public CDirectSoundDeviceList {
public:
    CSonimbraDS8AudioRecorderDeviceList()
        : CDirectSoundDeviceList("DirectSoundCaptureEnumerateA") {}
};

} // namespace sn_internal
