// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/noalloc/allocation_count.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

std::atomic<bool> IsCounting{false};
std::atomic<std::int64_t> Count{0};

void count() {
    if (IsCounting) {
        ++Count;
    }
}

} // namespace

#if defined(SONIMBRA_WRAP_MALLOC)

// The linker sends calls of malloc to __wrap_malloc, and those of __real_malloc to malloc.
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t number, std::size_t size);
void* __real_realloc(void* block, std::size_t size);

void* __wrap_malloc(std::size_t size) {
    count();
    return __real_malloc(size);
}
void* __wrap_calloc(std::size_t number, std::size_t size) {
    count();
    return __real_calloc(number, size);
}
void* __wrap_realloc(void* block, std::size_t size) {
    count();
    return __real_realloc(block, size);
}
}

#else

static void* __real_malloc(std::size_t size) {
    return std::malloc(size);
}

#endif

// All other forms of new and delete call one of these.

void* operator new(std::size_t size) {
    count();
    if (void* block = __real_malloc(size + 1)) {
        return block;
    }
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

/// Keeps the address of the whole block in front of the aligned one.
void* operator new(std::size_t size, std::align_val_t alignment) {
    const auto step = static_cast<std::size_t>(alignment);
    auto* whole = static_cast<char*>(operator new(size + step + sizeof(void*)));
    const auto first = reinterpret_cast<std::uintptr_t>(whole + sizeof(void*));
    void* block = whole + sizeof(void*) + (step - first % step) % step;
    static_cast<void**>(block)[-1] = whole;
    return block;
}

void operator delete(void* block, std::align_val_t) noexcept {
    if (block != nullptr) {
        std::free(static_cast<void**>(block)[-1]);
    }
}

void operator delete(void* block, std::size_t, std::align_val_t alignment) noexcept {
    operator delete(block, alignment);
}

namespace sn_test {

CAllocationCount::CAllocationCount() {
    Count = 0;
    IsCounting = true;
}

CAllocationCount::~CAllocationCount() {
    IsCounting = false;
}

std::int64_t CAllocationCount::get() const {
    return Count;
}

} // namespace sn_test
