// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "recording/directsound/directsound_recorders.h"

#include "recording/directsound/CSonimbraDS8AudioRecorderDeviceList.h"
#include "recording/directsound/CSonimbraDS8Recorder.h"
#include "recording/directsound/CSonimbraDSAudioRecorderDeviceList.h"
#include "recording/directsound/CSonimbraDSRecorder.h"

namespace sn_internal {

sonimbra::IAudioRecorder* createDirectSound8Recorder(sonimbra::ISoundEngine* engine,
                                                     const char* deviceID) {
    return new CSonimbraDS8Recorder(engine, deviceID);
}

sonimbra::IAudioRecorder* createDirectSoundRecorder(sonimbra::ISoundEngine* engine,
                                                    const char* deviceID) {
    return new CSonimbraDSRecorder(engine, deviceID);
}

CSoundDeviceList* createDirectSound8CaptureDeviceList() {
    return new CSonimbraDS8AudioRecorderDeviceList;
}

CSoundDeviceList* createDirectSoundCaptureDeviceList() {
    return new CSonimbraDSAudioRecorderDeviceList;
}

} // namespace sn_internal
