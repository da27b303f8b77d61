// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstddef>
#include <new>

namespace sonimbra {

/// Raw memory for the containers. The two raw operations are virtual, so that a container obtains
/// and releases memory through the allocator object that it carries, wherever its code was
/// compiled.
template <class T>
class snAllocator {
protected:
    virtual void* internal_new(std::size_t byteCount) { return ::operator new(byteCount); }
    virtual void internal_delete(void* pointer) { ::operator delete(pointer); }

public:
    virtual ~snAllocator() = default;

    T* allocate(std::size_t elementCount) {
        return static_cast<T*>(internal_new(elementCount * sizeof(T)));
    }
    void deallocate(T* pointer) { internal_delete(pointer); }
};

} // namespace sonimbra
