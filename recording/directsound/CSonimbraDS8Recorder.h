// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "recording/directsound/CDirectSoundRecorder.h"

namespace sn_internal {

/// Records through DirectSound 8.
class CSonimbraDS8Recorder final : public CDirectSoundRecorder {
public:
    CSonimbraDS8Recorder(sonimbra::ISoundEngine* engine, const char* deviceID)
        : CDirectSoundRecorder(DirectSound8Capture, engine, deviceID) {}
    ~CSonimbraDS8Recorder() override { shutDown(); }
};

} // namespace sn_internal
