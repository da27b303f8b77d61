// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/IRefCounted.h>

namespace sn_internal {

/// A recursive lock: the thread that holds it may lock it again.
class ICriticalSection : public sonimbra::IRefCounted {
public:
    virtual void lock() = 0;
    virtual void unlock() = 0;
};

/// Returns a new lock with one reference for the caller.
ICriticalSection* createCriticalSection();

/// Holds a lock for the life of a scope.
class CScopedLock {
public:
    explicit CScopedLock(ICriticalSection& section) : Section(section) { Section.lock(); }
    ~CScopedLock() { Section.unlock(); }
    CScopedLock(const CScopedLock&) = delete;
    CScopedLock& operator=(const CScopedLock&) = delete;

private:
    ICriticalSection& Section;
};

} // namespace sn_internal
