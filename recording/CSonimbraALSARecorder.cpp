// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "recording/alsa_recorder.h"

namespace sn_internal {

sonimbra::IAudioRecorder* createALSARecorder(sonimbra::ISoundEngine*, const char*) {
    return nullptr;
}

CSoundDeviceList* createALSACaptureDeviceList() {
    return nullptr;
}

} // namespace sn_internal
