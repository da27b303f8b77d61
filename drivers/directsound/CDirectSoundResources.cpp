// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/directsound/CDirectSoundResources.h"

#include "drivers/directsound/CDirectSoundSound.h"

namespace sn_internal {

void CDirectSoundResources::releaseAll() {
    for (CDirectSoundSound* sound : Sounds) {
        // Not virtual: another thread may have destroyed the derived part already.
        sound->CDirectSoundSound::releaseBuffer();
    }
    for (CReusableDSSoundBuffers* buffers : Shared) {
        buffers->release();
    }
}

} // namespace sn_internal
