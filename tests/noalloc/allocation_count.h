// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sn_test {

/// Counts the memory allocations of all threads while it lives: every form of operator new, and
/// where the linker can wrap them also malloc, calloc and realloc. Only one at a time.
class CAllocationCount {
public:
    CAllocationCount();
    ~CAllocationCount();
    CAllocationCount(const CAllocationCount&) = delete;
    CAllocationCount& operator=(const CAllocationCount&) = delete;

    std::int64_t get() const;
};

} // namespace sn_test
