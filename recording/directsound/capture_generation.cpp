// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "recording/directsound/capture_generation.h"

#include "recording/directsound/CSonimbraDS8AudioRecorderDeviceList.h"
#include "recording/directsound/CSonimbraDSAudioRecorderDeviceList.h"

namespace sn_internal {

const SCaptureGeneration DirectSound8Capture = {
    "DirectSound8",
    CLSID_DirectSoundCapture8,
    makeDeviceList<CSonimbraDS8AudioRecorderDeviceList>,
};

const SCaptureGeneration DirectSoundCapture = {
    "DirectSound",
    CLSID_DirectSoundCapture,
    makeDeviceList<CSonimbraDSAudioRecorderDeviceList>,
};

} // namespace sn_internal
