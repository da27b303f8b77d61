// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/software/CSonimbraSoftwareSoundEngine.h"
#include "tests/support/engine_helpers.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <set>

namespace sn_test {

/// A mixing engine with its own thread and a device that takes everything at once: what a back end
/// of an operating system does, on every system.
class CThreadedEngine final : public sn_internal::CSonimbraSoftwareSoundEngine {
public:
    explicit CThreadedEngine(sn_internal::io::IFileSystem* fileSystem);
    ~CThreadedEngine() override;
    void updateDriver() override;

    std::atomic<std::int32_t> updates{0};
};

sn_internal::counted_ptr<CThreadedEngine> threadedEngine();

/// Files that an engine finds, each played in another way.
extern const char* const SharedNames[3];
void addSharedFiles(sonimbra::ISoundEngine& engine);

/// Several threads that do everything that the library allows to one engine. Sources go by name
/// only, since any of the threads may remove them at any time.
class CWorkload : public sonimbra::ISoundStopEventReceiver {
public:
    explicit CWorkload(sonimbra::ISoundEngine& engine) : Engine(engine) { addSharedFiles(engine); }
    ~CWorkload() override;

    /// Runs the threads for a while, and with them what is done on this thread meanwhile.
    void run(const std::function<void()>& meanwhile);

    /// Drops the sound, which nobody else has, and calls back into the engine.
    void OnSoundStopped(sonimbra::ISound* sound, sonimbra::E_STOP_EVENT_CAUSE cause,
                        void* userData) override;

    std::atomic<std::int32_t> soundsPlayed{0};
    std::atomic<std::int32_t> events{0};
    std::atomic<std::int32_t> wrongEvents{0};

private:
    class CWorker;

    sonimbra::ISoundEngine& Engine;
    std::atomic<bool> IsOver{false};
    std::mutex Mutex;
    std::set<sonimbra::ISound*> Expected; ///< a reference each, dropped with their events
};

} // namespace sn_test
