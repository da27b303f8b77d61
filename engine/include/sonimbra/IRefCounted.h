// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sonimbra {

/// Base of the objects that are shared by counting references.
///
/// An object starts with one reference, owned by whoever created it. Who stores a pointer to it
/// calls grab(), and later drop(). The counter is a plain integer: share such an object only on one
/// thread, or under a lock of your own. (Sounds and sound sources count atomically, see
/// IVirtualRefCounted.)
class IRefCounted {
public:
    IRefCounted() : ReferenceCounter(1) {}
    virtual ~IRefCounted() {}

    IRefCounted(const IRefCounted&) = delete;
    IRefCounted& operator=(const IRefCounted&) = delete;

    /// Adds one reference.
    void grab() { ++ReferenceCounter; }

    /// Takes one reference away and destroys the object when none is left.
    /// Returns true when the object was destroyed: the pointer must not be used afterwards.
    bool drop() {
        if (--ReferenceCounter != 0) {
            return false;
        }
        delete this;
        return true;
    }

private:
    std::int32_t ReferenceCounter;
};

} // namespace sonimbra
