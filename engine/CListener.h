// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/vec3d.h>

#include <atomic>

namespace sn_internal {

/// A vector that one thread stores while others read it. Its components are stored one by one.
class CAtomicVector {
public:
    CAtomicVector(float x, float y, float z) : X(x), Y(y), Z(z) {}

    void store(const sonimbra::vec3df& v) {
        X.store(v.X, std::memory_order_relaxed);
        Y.store(v.Y, std::memory_order_relaxed);
        Z.store(v.Z, std::memory_order_relaxed);
    }
    sonimbra::vec3df load() const {
        return {X.load(std::memory_order_relaxed), Y.load(std::memory_order_relaxed),
                Z.load(std::memory_order_relaxed)};
    }

private:
    std::atomic<float> X;
    std::atomic<float> Y;
    std::atomic<float> Z;
};

/// Where the listener is. Stored without a lock.
struct CListener {
    CAtomicVector Position{0, 0, 0};
    CAtomicVector LookDirection{0, 0, 0};
    CAtomicVector Velocity{0, 0, 0};
    CAtomicVector UpVector{0, 1, 0};
};

} // namespace sn_internal
