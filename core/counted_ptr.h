// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <utility>

namespace sn_internal {

/// Owns one reference on an object with grab() and drop().
template <class T>
class counted_ptr {
public:
    counted_ptr() = default;
    counted_ptr(const counted_ptr&) = delete;
    counted_ptr& operator=(const counted_ptr&) = delete;
    counted_ptr(counted_ptr&& other) noexcept : pointer(std::exchange(other.pointer, nullptr)) {}
    counted_ptr& operator=(counted_ptr&& other) noexcept {
        std::swap(pointer, other.pointer);
        return *this;
    }
    ~counted_ptr() { reset(); }

    /// Takes over the caller's reference.
    static counted_ptr adopt(T* object) {
        counted_ptr result;
        result.pointer = object;
        return result;
    }

    /// Takes a reference of its own.
    static counted_ptr share(T* object) {
        if (object != nullptr) {
            object->grab();
        }
        return adopt(object);
    }

    void reset() {
        if (T* object = std::exchange(pointer, nullptr)) {
            object->drop();
        }
    }

    /// Hands the reference to the caller.
    T* release() { return std::exchange(pointer, nullptr); }

    T* get() const { return pointer; }
    T* operator->() const { return pointer; }
    explicit operator bool() const { return pointer != nullptr; }

private:
    T* pointer = nullptr;
};

} // namespace sn_internal
