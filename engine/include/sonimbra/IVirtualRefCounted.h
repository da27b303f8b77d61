// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sonimbra {

/// Base of ISound and ISoundSource, which the application's threads and the engine's thread touch
/// at the same time. Counting is atomic: both operations may be called from any thread.
class IVirtualRefCounted {
public:
    virtual ~IVirtualRefCounted() {}

    /// Adds one reference. Returns the new count.
    virtual std::int32_t grab() = 0;

    /// Takes one reference away and destroys the object when none is left.
    /// Returns true when the object was destroyed: the pointer must not be used afterwards.
    virtual bool drop() = 0;
};

} // namespace sonimbra
