// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <algorithm>
#include <cerrno>

namespace sn_internal {

/// Makes the calls one after the other up to the first that fails. Returns its error, or 0.
template <class... F>
int callsUntilFailure(F&&... calls) {
    int result = 0;
    static_cast<void>((((result = calls()) >= 0) && ...));
    return std::min(result, 0);
}

/// Makes a call again after a signal, which says nothing about the device.
template <class F>
auto uninterrupted(F&& call) {
    auto result = call();
    while (result == -EINTR) {
        result = call();
    }
    return result;
}

} // namespace sn_internal
