// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/snAllocator.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace sonimbra {

/// The order of names everywhere in the library: characters compared one by one as signed values,
/// so that non-ASCII UTF-8 sorts before ASCII; a text sorts before every longer text that begins
/// with it.
inline bool isTextLess(const char* a, const char* b) {
    while (*a != 0 && *a == *b) {
        ++a;
        ++b;
    }
    if (*a == 0 || *b == 0) {
        return *a == 0 && *b != 0;
    }
    return static_cast<signed char>(*a) < static_cast<signed char>(*b);
}

/// A zero-terminated text of 8-bit characters with its own allocator. Its capacity is always
/// exactly the text's size. Not thread-safe.
template <class T, class TAllocator = snAllocator<T>>
class string {
public:
    string() = default;
    string(const T* c) { *this = c; }
    string(const string& other) { *this = other; }
    /// From wide text: each unit is narrowed by truncation.
    template <class Wide>
    explicit string(const Wide* c) {
        *this = c;
    }
    ~string() { allocator.deallocate(array); }

    string& operator=(const string& other) { return *this = other.array; }

    /// Null gives an empty text with storage for the terminator.
    string& operator=(const T* c) {
        if (c == nullptr) {
            makeEmpty();
        } else if (c != array) {
            assign(c, countOf(c));
        }
        return *this;
    }

    template <class Wide>
    string& operator=(const Wide* c) {
        if (c == nullptr) {
            makeEmpty();
        } else {
            assign(c, countOf(c));
        }
        return *this;
    }

    /// The characters; an empty text when nothing was assigned yet.
    const T* c_str() const {
        static const T empty = 0;
        return array != nullptr ? array : &empty;
    }

    /// Length in characters, without the terminator.
    std::uint32_t size() const { return used == 0 ? 0 : used - 1; }

    /// Appends a text; null appends nothing.
    void append(const T* c) {
        if (c == nullptr) {
            return;
        }
        const std::uint32_t n = countOf(c);
        const std::uint32_t length = size();
        T* joined = allocator.allocate(std::size_t(length) + n + 1);
        std::copy(c_str(), c_str() + length, joined);
        std::copy(c, c + n, joined + length);
        adopt(joined, length + n + 1);
    }

    /// Turns A to Z into a to z and leaves everything else as it is.
    void make_lower() {
        for (std::uint32_t i = 0; i < used; ++i) {
            if (array[i] >= T('A') && array[i] <= T('Z')) {
                array[i] = static_cast<T>(array[i] + 32);
            }
        }
    }

    /// The first position at which text occurs, -1 when there is none or when text is null or
    /// empty.
    std::int32_t find(const T* text) const {
        if (text == nullptr || *text == 0) {
            return -1;
        }
        const std::uint32_t n = countOf(text);
        for (std::uint32_t p = 0; n < used && p < used - n; ++p) {
            if (std::equal(text, text + n, array + p)) {
                return static_cast<std::int32_t>(p);
            }
        }
        return -1;
    }

    bool operator==(const string& other) const {
        return size() == other.size() && std::equal(c_str(), c_str() + size(), other.c_str());
    }

    /// A string that was never assigned sorts before an empty one.
    bool operator<(const string& other) const {
        if (size() == 0 && other.size() == 0) {
            return used < other.used;
        }
        return isTextLess(c_str(), other.c_str());
    }

private:
    template <class C>
    static std::uint32_t countOf(const C* c) {
        std::uint32_t n = 0;
        while (c[n] != 0) {
            ++n;
        }
        return n;
    }

    void makeEmpty() {
        if (array == nullptr) {
            adopt(allocator.allocate(1), 1);
        }
        array[0] = 0;
        used = 1;
    }

    template <class C>
    void assign(const C* c, std::uint32_t n) {
        T* copy = allocator.allocate(std::size_t(n) + 1);
        std::transform(c, c + n, copy, [](C character) { return static_cast<T>(character); });
        adopt(copy, n + 1);
    }

    void adopt(T* characters, std::uint32_t count) {
        allocator.deallocate(array);
        array = characters;
        allocated = used = count;
        array[used - 1] = 0;
    }

    T* array = nullptr;
    std::uint32_t allocated = 0;
    std::uint32_t used = 0;
    TAllocator allocator;
};

} // namespace sonimbra
