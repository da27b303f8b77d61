// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/com_ptr.h"

#include <sonimbra/IRefCounted.h>

#include <dsound.h>

namespace sn_internal {

/// Filled buffers of one source, kept with it, for its later sounds to duplicate instead of copying
/// the samples again.
class CReusableDSSoundBuffers final : public sonimbra::IRefCounted {
public:
    IDirectSoundBuffer* getBuffer() const { return Buffer.get(); }

    /// Releases the buffer before and takes a reference on this one.
    void setBuffer(IDirectSoundBuffer* buffer) {
        Buffer = com_ptr<IDirectSoundBuffer>::share(buffer);
    }
    void setBuffer3D(IDirectSoundBuffer* buffer) {
        Buffer3D = com_ptr<IDirectSoundBuffer>::share(buffer);
    }

private:
    com_ptr<IDirectSoundBuffer> Buffer;   ///< without a 3D interface
    com_ptr<IDirectSoundBuffer> Buffer3D; ///< with one
};

} // namespace sn_internal
