// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <memory>

namespace player {

struct Dropper {
    template <class T>
    void operator()(T* object) const {
        object->drop();
    }
};

/// Owns one reference to a counted object of the library.
template <class T>
using Counted = std::unique_ptr<T, Dropper>;

} // namespace player
