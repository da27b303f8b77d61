// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CDirectSoundResources.h"
#include "drivers/directsound/com_ptr.h"

#include <sonimbra/IRefCounted.h>

#include <dsound.h>

namespace sn_internal {

/// Filled buffers of one source, kept with it, for its later sounds to duplicate instead of copying
/// the samples again.
class CReusableDSSoundBuffers final : public sonimbra::IRefCounted {
public:
    explicit CReusableDSSoundBuffers(CDirectSoundResourcesPtr resources)
        : Resources(std::move(resources)) {
        Resources->add(this);
    }
    ~CReusableDSSoundBuffers() override { Resources->remove(this); }

    IDirectSoundBuffer* getBuffer() const { return Buffer.get(); }
    /// Whether that buffer holds the first channel only.
    bool isDownmixed() const { return IsDownmixed; }

    /// Releases the buffer before and takes a reference on this one.
    void setBuffer(IDirectSoundBuffer* buffer, bool isDownmixed) {
        Buffer = com_ptr<IDirectSoundBuffer>::share(buffer);
        IsDownmixed = isDownmixed;
    }
    void setBuffer3D(IDirectSoundBuffer* buffer) {
        Buffer3D = com_ptr<IDirectSoundBuffer>::share(buffer);
    }

    void release() {
        Buffer.reset();
        Buffer3D.reset();
    }

private:
    const CDirectSoundResourcesPtr Resources;
    bool IsDownmixed = false;
    com_ptr<IDirectSoundBuffer> Buffer;   ///< without a 3D interface
    com_ptr<IDirectSoundBuffer> Buffer3D; ///< with one
};

} // namespace sn_internal
