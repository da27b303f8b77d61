// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/IRefCounted.h>

namespace sonimbra {

/// A readable file. Sizes and positions are 32-bit: files of 2 GiB and more are not supported.
///
/// The engine uses a reader with its lock held, on its own thread or on the application's thread
/// that is inside a call into the engine. What may be called from inside stands with IAudioStream.
class IFileReader : public virtual IRefCounted {
public:
    /// Copies up to sizeToRead bytes into buffer. Returns the number of bytes copied; fewer than
    /// asked means that the end was reached.
    virtual std::int32_t read(void* buffer, std::uint32_t sizeToRead) = 0;

    /// Moves the read position to finalPos bytes from the start, or from the current position when
    /// relativeMovement is set. Returns true on success.
    virtual bool seek(std::int32_t finalPos, bool relativeMovement = false) = 0;

    /// The size in bytes.
    virtual std::int32_t getSize() = 0;

    /// The current position in bytes.
    virtual std::int32_t getPos() = 0;

    /// The name in UTF-8, owned by the reader.
    virtual const char* getFileName() = 0;
};

} // namespace sonimbra
