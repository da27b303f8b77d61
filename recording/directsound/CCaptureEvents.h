// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <windows.h>

namespace sn_internal {

/// What a capture thread waits for.
class CCaptureEvents {
public:
    enum EEvent : DWORD { FirstHalf, SecondHalf, StopRequest };

    CCaptureEvents() = default;
    CCaptureEvents(const CCaptureEvents&) = delete;
    CCaptureEvents& operator=(const CCaptureEvents&) = delete;
    ~CCaptureEvents() { close(); }

    /// Makes all of them, not signalled and resetting themselves, or none.
    bool create();
    void close();

    HANDLE get(EEvent event) const { return Handles[event]; }

    /// Sleeps until one of them is signalled. Messages to the thread are dispatched meanwhile.
    EEvent wait() const;

private:
    static void dispatchMessages();

    HANDLE Handles[StopRequest + 1] = {};
};

} // namespace sn_internal
