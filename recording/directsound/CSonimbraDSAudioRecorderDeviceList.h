// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CDirectSoundDeviceList.h"

namespace sn_internal {

/// The capture devices of DirectSound.
class CSonimbraDSAudioRecorderDeviceList final : public CDirectSoundDeviceList {
public:
    CSonimbraDSAudioRecorderDeviceList() : CDirectSoundDeviceList("DirectSoundCaptureEnumerateA") {}
};

} // namespace sn_internal
