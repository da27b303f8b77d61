// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <utility>

namespace sn_internal {

/// Owns one reference on a COM object.
template <class T>
class com_ptr {
public:
    com_ptr() = default;
    com_ptr(const com_ptr&) = delete;
    com_ptr& operator=(const com_ptr&) = delete;
    com_ptr(com_ptr&& other) noexcept : Object(std::exchange(other.Object, nullptr)) {}
    com_ptr& operator=(com_ptr&& other) noexcept {
        std::swap(Object, other.Object);
        return *this;
    }
    ~com_ptr() { reset(); }

    static com_ptr share(T* object) {
        if (object != nullptr) {
            object->AddRef();
        }
        com_ptr result;
        result.Object = object;
        return result;
    }

    void reset() {
        if (T* const object = std::exchange(Object, nullptr)) {
            object->Release();
        }
    }

    /// For functions that hand a reference out. Empty before and, whatever they answer, if they
    /// hand none out.
    T** put() {
        reset();
        return &Object;
    }
    void** putVoid() { return reinterpret_cast<void**>(put()); }

    T* get() const { return Object; }
    T* operator->() const { return Object; }
    explicit operator bool() const { return Object != nullptr; }

private:
    T* Object = nullptr;
};

} // namespace sn_internal
