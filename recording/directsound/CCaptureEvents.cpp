// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "recording/directsound/CCaptureEvents.h"

#include <iterator>
#include <utility>

namespace sn_internal {

bool CCaptureEvents::create() {
    close();
    for (HANDLE& handle : Handles) {
        handle = CreateEventA(nullptr, FALSE, FALSE, nullptr);
        if (handle == nullptr) {
            close();
            return false;
        }
    }
    return true;
}

void CCaptureEvents::close() {
    for (HANDLE& handle : Handles) {
        if (HANDLE const open = std::exchange(handle, nullptr)) {
            CloseHandle(open);
        }
    }
}

/// A message that stays unread would end the next wait at once. Only a receiver that makes windows
/// on the capture thread has use for them.
void CCaptureEvents::dispatchMessages() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        DispatchMessageA(&message);
    }
}

CCaptureEvents::EEvent CCaptureEvents::wait() const {
    const auto count = static_cast<DWORD>(std::size(Handles));
    for (;;) {
        const DWORD event = MsgWaitForMultipleObjects(count, Handles, FALSE, INFINITE, QS_ALLINPUT);
        if (event < count) {
            return static_cast<EEvent>(event);
        }
        dispatchMessages();
    }
}

} // namespace sn_internal
