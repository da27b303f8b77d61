// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CDirectSoundDeviceList.h"

#include <dsound.h>

namespace sn_internal {

/// What tells DirectSound 8 and the older DirectSound apart; all the rest of the two drivers is the
/// same code. Sound effects exist in DirectSound 8 alone.
struct SDirectSoundGeneration {
    const char* driverName;
    const CLSID& deviceClass;
    const IID& deviceInterface; ///< begins like IDirectSound
    const IID* bufferInterface; ///< to ask new buffers for; null: use them as they come
    bool hasEffects;
    counted_ptr<CDirectSoundDeviceList> (*createDeviceList)();
    const char* notCreated;
    const char* notInitialised;
    const char* noCooperation;
    const char* inUse;
};

extern const SDirectSoundGeneration DirectSound8Generation;
extern const SDirectSoundGeneration DirectSoundGeneration;

} // namespace sn_internal
