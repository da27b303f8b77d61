// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CDirectSoundSound.h"

namespace sn_internal {

/// A sound of DirectSound.
class CSonimbraDSSound : public CDirectSoundSound {
public:
    CSonimbraDSSound(const SDirectSoundSoundArguments& arguments, CSonimbraBufferedSamples* samples)
        : CDirectSoundSound(DirectSoundGeneration, arguments, samples) {}

protected:
    /// Without a buffer, for streams.
    explicit CSonimbraDSSound(const SDirectSoundSoundArguments& arguments)
        : CDirectSoundSound(DirectSoundGeneration, arguments) {}
};

} // namespace sn_internal
