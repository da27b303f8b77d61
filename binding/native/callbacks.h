// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/no_throw.h"

#include <sonimbra/sonimbra_c.h>

#include <utility>

namespace sn_internal {

/// To be held around every callback: while one lives, its thread must wait for no other.
class CCallbackScope {
public:
    CCallbackScope() { ++Depth; }
    ~CCallbackScope() { --Depth; }
    CCallbackScope(const CCallbackScope&) = delete;
    CCallbackScope& operator=(const CCallbackScope&) = delete;

    /// Whether this thread is inside a callback.
    static bool isActive() { return Depth > 0; }

private:
    static thread_local int Depth;
};

/// Runs a callback; what it throws gives the fallback.
template <class R, class F>
R callBack(R fallback, F&& callback) {
    const CCallbackScope scope;
    return withoutExceptions(fallback, callback);
}

template <class F>
void callBack(F&& callback) {
    const CCallbackScope scope;
    withoutExceptions(callback);
}

/// What the application passed along with a callback. Tells it, once, when nothing uses it any
/// more.
class CContext {
public:
    CContext(void* pointer, sonimbra_on_release release) : Pointer(pointer), Release(release) {}
    CContext(CContext&& other) noexcept
        : Pointer(other.Pointer), Release(std::exchange(other.Release, nullptr)) {}
    CContext& operator=(CContext&&) = delete;
    ~CContext() { end(); }

    void* get() const { return Pointer; }

    void end() {
        if (const sonimbra_on_release function = std::exchange(Release, nullptr)) {
            callBack([&] { function(Pointer); });
        }
    }

private:
    void* Pointer;
    sonimbra_on_release Release;
};

} // namespace sn_internal
