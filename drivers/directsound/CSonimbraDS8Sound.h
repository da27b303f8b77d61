// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CDirectSoundSound.h"

namespace sn_internal {

/// A sound of DirectSound 8.
class CSonimbraDS8Sound : public CDirectSoundSound {
public:
    CSonimbraDS8Sound(const SDirectSoundSoundArguments& arguments,
                      CSonimbraBufferedSamples* samples)
        : CDirectSoundSound(DirectSound8Generation, arguments, samples) {}

protected:
    /// Without a buffer, for streams.
    explicit CSonimbraDS8Sound(const SDirectSoundSoundArguments& arguments)
        : CDirectSoundSound(DirectSound8Generation, arguments) {}
};

} // namespace sn_internal
