// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/IRefCounted.h>

#include <cstdint>

namespace sn_internal {

class IThread;

/// What a new thread is started with.
struct SThreadStart {
    IThread* thread = nullptr;
    std::uintptr_t userData = 0;
};

/// An object with a body to run on its own thread.
class IThread : public virtual sonimbra::IRefCounted {
public:
    virtual void run(const SThreadStart& start) = 0;
};

/// Runs thread->run on a new operating-system thread that nobody joins: its owner signals it by
/// flags of its own and waits by polling. Priority: 0 lowest, 1 below normal, 2 normal, 3 above
/// normal, 4 highest; any other value normal. A priority that cannot be set is ignored.
/// Returns false when thread is null or no thread could be created.
bool startThread(IThread* thread, std::uintptr_t userData, std::uint32_t priority);

} // namespace sn_internal
