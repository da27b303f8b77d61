// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <atomic>
#include <cstdint>
#include <utility>

namespace sonimbra {

/// Gives a concrete class T, whose interface derives from IVirtualRefCounted, its atomic reference
/// counter. Objects of such classes are created only through this template.
template <class T>
class CVirtualUnknown final : public T {
public:
    template <class... Args>
    explicit CVirtualUnknown(Args&&... args) : T(std::forward<Args>(args)...) {}

    std::int32_t grab() override {
        return ReferenceCounter.fetch_add(1, std::memory_order_relaxed) + 1;
    }

    bool drop() override {
        // Release what this thread wrote, acquire what the others did, before the object goes.
        if (ReferenceCounter.fetch_sub(1, std::memory_order_acq_rel) != 1) {
            return false;
        }
        delete this;
        return true;
    }

private:
    std::atomic<std::int32_t> ReferenceCounter{1};
};

} // namespace sonimbra
