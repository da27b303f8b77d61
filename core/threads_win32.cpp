// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/ICriticalSection.h"
#include "core/IThread.h"

#include <memory>
#include <new>

#include <process.h>
#include <windows.h>

namespace sn_internal {
namespace {

class CWin32CriticalSection final : public ICriticalSection {
public:
    CWin32CriticalSection() { InitializeCriticalSection(&Section); }
    ~CWin32CriticalSection() override { DeleteCriticalSection(&Section); }
    void lock() override { EnterCriticalSection(&Section); }
    void unlock() override { LeaveCriticalSection(&Section); }

private:
    CRITICAL_SECTION Section;
};

unsigned __stdcall threadEntry(void* argument) {
    const std::unique_ptr<SThreadStart> start(static_cast<SThreadStart*>(argument));
    start->thread->run(*start);
    return 0;
}

int systemPriority(std::uint32_t priority) {
    static const int table[] = {THREAD_PRIORITY_LOWEST, THREAD_PRIORITY_BELOW_NORMAL,
                                THREAD_PRIORITY_NORMAL, THREAD_PRIORITY_ABOVE_NORMAL,
                                THREAD_PRIORITY_HIGHEST};
    return priority < 5 ? table[priority] : THREAD_PRIORITY_NORMAL;
}

/// The old consumer line of the system ran every thread at its default priority.
bool supportsThreadPriorities() {
    const DWORD oldConsumerPlatform = 1;
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof(version);
    return GetVersionExA(&version) != 0 && version.dwPlatformId != oldConsumerPlatform;
}

} // namespace

ICriticalSection* createCriticalSection() {
    return new CWin32CriticalSection;
}

bool startThread(IThread* thread, std::uintptr_t userData, std::uint32_t priority) {
    if (thread == nullptr) {
        return false;
    }
    std::unique_ptr<SThreadStart> start(new SThreadStart{thread, userData});
    const auto handle = reinterpret_cast<HANDLE>(
        _beginthreadex(nullptr, 0, threadEntry, start.get(), CREATE_SUSPENDED, nullptr));
    if (handle == nullptr) {
        return false;
    }
    if (supportsThreadPriorities()) {
        SetThreadPriority(handle, systemPriority(priority));
    }
    const bool isRunning = ResumeThread(handle) != static_cast<DWORD>(-1);
    if (isRunning) {
        start.release(); // the new thread owns it, and may have freed it
    } else {
        TerminateThread(handle, 0); // it has not begun, so it holds nothing
    }
    CloseHandle(handle);
    return isRunning;
}

} // namespace sn_internal
