// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CDirectSoundDeviceList.h"

#include <dsound.h>

namespace sn_internal {

/// What tells the recorders of DirectSound 8 and of the older DirectSound apart.
struct SCaptureGeneration {
    const char* driverName;
    const CLSID& captureClass;
    counted_ptr<CDirectSoundDeviceList> (*makeDeviceList)();
};

extern const SCaptureGeneration DirectSound8Capture;
extern const SCaptureGeneration DirectSoundCapture;

} // namespace sn_internal
