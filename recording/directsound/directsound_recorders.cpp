// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "recording/directsound/directsound_recorders.h"

namespace sn_internal {

sonimbra::IAudioRecorder* createDirectSound8Recorder(sonimbra::ISoundEngine*, const char*) {
    return nullptr;
}

sonimbra::IAudioRecorder* createDirectSoundRecorder(sonimbra::ISoundEngine*, const char*) {
    return nullptr;
}

CSoundDeviceList* createDirectSound8CaptureDeviceList() {
    return nullptr;
}

CSoundDeviceList* createDirectSoundCaptureDeviceList() {
    return nullptr;
}

} // namespace sn_internal
