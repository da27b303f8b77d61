// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

namespace sn_internal {

/// Runs an operation for a caller that must not see exceptions (memory that ran out, or a callback
/// of the application that threw) and returns the fallback in their place.
template <class F, class R>
R withoutExceptions(R fallback, F&& operation) {
    try {
        return operation();
    } catch (...) {
        return fallback;
    }
}

template <class F>
void withoutExceptions(F&& operation) {
    try {
        operation();
    } catch (...) {
        return;
    }
}

} // namespace sn_internal
