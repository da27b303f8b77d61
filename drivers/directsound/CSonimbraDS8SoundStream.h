// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CDirectSoundStream.h"
#include "drivers/directsound/CSonimbraDS8Sound.h"

namespace sn_internal {

/// A streamed sound of DirectSound 8.
class CSonimbraDS8SoundStream : public CDirectSoundStream<CSonimbraDS8Sound> {
public:
    using CDirectSoundStream::CDirectSoundStream;
};

} // namespace sn_internal
