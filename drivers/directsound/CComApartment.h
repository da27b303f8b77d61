// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <objbase.h>

namespace sn_internal {

/// COM on the thread that entered, until it is left.
class CComApartment {
public:
    CComApartment() = default;
    CComApartment(const CComApartment&) = delete;
    CComApartment& operator=(const CComApartment&) = delete;
    ~CComApartment() { leave(); }

    /// A thread that has COM in another mode already keeps it, and nothing is to be left.
    void enter() {
        leave();
        if (SUCCEEDED(CoInitialize(nullptr))) {
            Thread = GetCurrentThreadId();
        }
    }

    /// On another thread it would take COM from that one. Windows ends the rest with the thread.
    void leave() {
        if (Thread == GetCurrentThreadId()) {
            Thread = 0;
            CoUninitialize();
        }
    }

private:
    DWORD Thread = 0; ///< that has entered; 0 for none
};

} // namespace sn_internal
