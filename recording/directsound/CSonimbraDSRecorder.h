// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "recording/directsound/CDirectSoundRecorder.h"

namespace sn_internal {

/// Records through DirectSound.
class CSonimbraDSRecorder final : public CDirectSoundRecorder {
public:
    CSonimbraDSRecorder(sonimbra::ISoundEngine* engine, const char* deviceID)
        : CDirectSoundRecorder(DirectSoundCapture, engine, deviceID) {}
    ~CSonimbraDSRecorder() override { shutDown(); }
};

} // namespace sn_internal
