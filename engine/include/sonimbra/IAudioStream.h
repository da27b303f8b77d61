// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/IRefCounted.h>
#include <sonimbra/SAudioStreamFormat.h>

namespace sonimbra {

/// A decoder: hands out interleaved PCM frames. Positions and lengths are counted in frames.
///
/// The engine calls every operation with its lock held, on its own thread or on the application's
/// thread that is inside a call into the engine. From inside, the engine, its sources and its
/// sounds may be called: what is ended there, the stream's own sound included, is released when the
/// engine has finished reading. Do not drop the engine's last reference, nor render an offline
/// engine.
class IAudioStream : public IRefCounted {
public:
    /// The format, fixed when the stream is constructed.
    virtual SAudioStreamFormat getFormat() = 0;

    /// Moves the read position to a frame. Returns true when done. Every decoder must accept 0
    /// (rewind), which looped sounds use.
    virtual bool setPosition(std::int32_t frame) = 0;

    /// False when the stream can only be rewound. Default: true.
    virtual bool getIsSeekingSupported() { return true; }

    /// Writes up to frameCountToRead whole frames, in the stream's own format, to target.
    /// Returns how many it wrote; fewer than asked means that the end was reached, 0 that nothing
    /// is left (or that the stream failed to open).
    virtual std::int32_t readFrames(void* target, std::int32_t frameCountToRead) = 0;
};

} // namespace sonimbra
