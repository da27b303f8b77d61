// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CDirectSoundStream.h"
#include "drivers/directsound/CSonimbraDSSound.h"

namespace sn_internal {

/// A streamed sound of DirectSound.
class CSonimbraDSSoundStream : public CDirectSoundStream<CSonimbraDSSound> {
public:
    using CDirectSoundStream::CDirectSoundStream;
};

} // namespace sn_internal
