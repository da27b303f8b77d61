// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CDirectSoundEngine.h"

namespace sn_internal {

/// Plays through DirectSound.
class CSonimbraDSSoundEngine final : public CDirectSoundEngine {
public:
    CSonimbraDSSoundEngine(io::IFileSystem* fileSystem, int options, const char* deviceID);
    ~CSonimbraDSSoundEngine() override { shutDownDriver(); }

private:
    sonimbra::ISound* createStatic(const SDirectSoundSoundArguments& arguments,
                                   CSonimbraBufferedSamples* samples) override;
    sonimbra::ISound* createStreamed(const SDirectSoundSoundArguments& arguments,
                                     sonimbra::IAudioStream* stream) override;
};

} // namespace sn_internal
