// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/counted_ptr.h"
#include "streams/module_file.h"

#include <sonimbra/IAudioStream.h>
#include <sonimbra/IFileReader.h>

namespace sn_internal {

/// Plays tracker modules by DUMB, as 16-bit stereo at 44100 frames a second. A module plays once:
/// it ends where it would jump back. It can only be rewound.
///
/// FrameCount is the length in 1/65536 of a second, not converted: about one and a half times as
/// many as there are frames.
class CSonimbraAudioStreamMOD final : public sonimbra::IAudioStream {
public:
    /// Reads the whole module at once. A null file, or one that is no module, gives a failed
    /// stream; nothing is logged.
    explicit CSonimbraAudioStreamMOD(sonimbra::IFileReader* file);

    bool isOpen() const { return static_cast<bool>(Module.duh); }

    sonimbra::SAudioStreamFormat getFormat() override { return Format; }

    /// Rewinds for 0 and below; refuses every other frame.
    bool setPosition(std::int32_t frame) override;
    bool getIsSeekingSupported() override { return false; }
    std::int32_t readFrames(void* target, std::int32_t frameCountToRead) override;

private:
    struct SRendererDeleter {
        void operator()(DUH_SIGRENDERER* renderer) const { duh_end_sigrenderer(renderer); }
    };

    void startRenderer();

    counted_ptr<sonimbra::IFileReader> File;
    sonimbra::SAudioStreamFormat Format;
    SModule Module;
    std::unique_ptr<DUH_SIGRENDERER, SRendererDeleter> Renderer; ///< released before the module
    std::int64_t FramesLeft = 0; ///< matters for modules that do not end by themselves
};

} // namespace sn_internal
