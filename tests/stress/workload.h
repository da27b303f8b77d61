// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/engine_helpers.h"

#include <atomic>
#include <functional>

namespace sn_test {

/// Files that an engine finds, each played in another way.
extern const char* const SharedNames[3];
void addSharedFiles(sonimbra::ISoundEngine& engine);

/// Several threads do, for some seconds, everything that the library allows to one engine.
class CWorkload : public sonimbra::ISoundStopEventReceiver {
public:
    explicit CWorkload(sonimbra::ISoundEngine& engine);

    /// Meanwhile, something is done on this thread again and again.
    void run(const std::function<void()>& meanwhile);

    /// Calls back into the engine.
    void OnSoundStopped(sonimbra::ISound* sound, sonimbra::E_STOP_EVENT_CAUSE cause,
                        void* userData) override;

    std::atomic<std::int32_t> soundsPlayed{0};
    std::atomic<std::int32_t> events{0};

private:
    class CWorker;

    sonimbra::ISoundEngine& Engine;
    std::atomic<bool> IsOver{false};
};

} // namespace sn_test
