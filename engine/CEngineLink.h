// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/ICriticalSection.h"
#include "core/counted_ptr.h"

#include <memory>

namespace sn_internal {

class CSonimbraSoundEngine;

/// What an engine shares with its sources and sounds, which may outlive it: the engine's lock, and
/// the way to the engine. Counted atomically, since the last one to leave may be on any thread.
class CEngineLink {
public:
    explicit CEngineLink(CSonimbraSoundEngine* engine)
        : Engine(engine), Lock(counted_ptr<ICriticalSection>::adopt(createCriticalSection())) {}

    ICriticalSection& getLock() const { return *Lock.get(); }

    /// Null once the engine has gone. Call it, and use what it returns, with the lock held.
    CSonimbraSoundEngine* getEngine() const { return Engine; }
    void forgetEngine() { Engine = nullptr; }

private:
    CSonimbraSoundEngine* Engine;
    counted_ptr<ICriticalSection> Lock;
};

using CEngineLinkPtr = std::shared_ptr<CEngineLink>;

} // namespace sn_internal
