// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/snAllocator.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>

namespace sonimbra {

/// A growable array that sorts and searches itself. Not thread-safe.
template <class T, class TAllocator = snAllocator<T>>
class array {
public:
    array() = default;
    array(const array&) = delete;
    array& operator=(const array&) = delete;
    ~array() {
        if (free_when_destroyed) {
            release();
        }
    }

    std::uint32_t size() const { return used; }
    std::uint32_t capacity() const { return allocated; }
    T& operator[](std::uint32_t index) { return data[index]; }
    const T& operator[](std::uint32_t index) const { return data[index]; }
    T* begin() { return data; }
    T* end() { return data + used; }

    /// Appends an element; a full array grows to twice the used count plus one.
    void push_back(const T& element) {
        if (used + 1 <= allocated) {
            new (data + used) T(element);
        } else {
            T copy(element); // the element may live inside the array
            reallocate(used * 2 + 1);
            new (data + used) T(std::move(copy));
        }
        ++used;
        is_sorted = false;
    }

    /// Changes the capacity; elements that do not fit any more are lost.
    void reallocate(std::uint32_t newCapacity) {
        T* moved = allocator.allocate(newCapacity);
        const std::uint32_t kept = std::min(used, newCapacity);
        std::uninitialized_move(data, data + kept, moved);
        std::destroy(data, data + used);
        allocator.deallocate(data);
        data = moved;
        allocated = newCapacity;
        used = kept;
    }

    /// Removes one element and keeps the order of the rest.
    void erase(std::uint32_t index) {
        std::move(data + index + 1, data + used, data + index);
        --used;
        std::destroy_at(data + used);
    }

    void clear() {
        release();
        data = nullptr;
        allocated = used = 0;
        is_sorted = true;
    }

    /// Keeps the array from releasing its elements when it is destroyed.
    void set_free_when_destroyed(bool free) { free_when_destroyed = free; }

    /// Heap sort by operator<; the order of equal elements is not kept.
    void sort() {
        if (is_sorted || used < 2) {
            return;
        }
        for (std::uint32_t i = used / 2; i-- > 0;) {
            siftDown(i, used);
        }
        for (std::uint32_t last = used - 1; last > 0; --last) {
            std::swap(data[0], data[last]);
            siftDown(0, last);
        }
        is_sorted = true;
    }

    /// The index of an equal element, or -1. Sorts the array first.
    std::int32_t binary_search(const T& element) {
        return binary_search(element, 0, static_cast<std::int32_t>(used) - 1);
    }

    std::int32_t binary_search(const T& element, std::int32_t left, std::int32_t right) {
        if (used == 0) {
            return -1;
        }
        sort();
        std::int32_t middle = 0;
        do {
            middle = static_cast<std::int32_t>((std::int64_t(left) + right) / 2);
            if (element < data[middle]) {
                right = middle - 1;
            } else {
                left = middle + 1;
            }
        } while ((element < data[middle] || data[middle] < element) && left <= right);
        return element < data[middle] || data[middle] < element ? -1 : middle;
    }

private:
    void siftDown(std::uint32_t root, std::uint32_t count) {
        for (;;) {
            std::uint32_t child = root * 2 + 1;
            if (child >= count) {
                return;
            }
            if (child + 1 < count && data[child] < data[child + 1]) {
                ++child;
            }
            if (!(data[root] < data[child])) {
                return;
            }
            std::swap(data[root], data[child]);
            root = child;
        }
    }

    void release() {
        std::destroy(data, data + used);
        allocator.deallocate(data);
    }

    T* data = nullptr;
    std::uint32_t allocated = 0;
    std::uint32_t used = 0;
    bool free_when_destroyed = true;
    bool is_sorted = true;
    TAllocator allocator;
};

} // namespace sonimbra
