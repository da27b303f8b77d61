// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/ICriticalSection.h"
#include "core/IThread.h"

#include <memory>
#include <mutex>

#include <pthread.h>
#include <sys/resource.h>

namespace sn_internal {
namespace {

class CPosixCriticalSection final : public ICriticalSection {
public:
    void lock() override { Mutex.lock(); }
    void unlock() override { Mutex.unlock(); }

private:
    std::recursive_mutex Mutex;
};

struct SPosixThreadStart {
    SThreadStart start;
    std::uint32_t priority;
};

/// The nearest scheduling step on this system: an offset to the process's nice value, where less is
/// more urgent.
int niceOffset(std::uint32_t priority) {
    static const int table[] = {10, 5, 0, -5, -10};
    return priority < 5 ? table[priority] : 0;
}

/// Nice values belong to single threads here; raising one needs a privilege, and failing is fine.
void applyPriority(std::uint32_t priority) {
    const int offset = niceOffset(priority);
    if (offset != 0) {
        setpriority(PRIO_PROCESS, 0, getpriority(PRIO_PROCESS, 0) + offset);
    }
}

void* threadEntry(void* argument) {
    const std::unique_ptr<SPosixThreadStart> record(static_cast<SPosixThreadStart*>(argument));
    applyPriority(record->priority);
    record->start.thread->run(record->start);
    return nullptr;
}

} // namespace

ICriticalSection* createCriticalSection() {
    return new CPosixCriticalSection;
}

bool startThread(IThread* thread, std::uintptr_t userData, std::uint32_t priority) {
    if (thread == nullptr) {
        return false;
    }
    std::unique_ptr<SPosixThreadStart> record(
        new SPosixThreadStart{SThreadStart{thread, userData}, priority});
    pthread_t handle;
    if (pthread_create(&handle, nullptr, threadEntry, record.get()) != 0) {
        return false;
    }
    record.release(); // the new thread owns it
    pthread_detach(handle);
    return true;
}

} // namespace sn_internal
