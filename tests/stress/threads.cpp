// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// Many threads on one engine, and engines that come and go while their sounds play. The
/// sanitizers must find nothing, and nothing may hang.

#include "drivers/software/CSonimbraSoftwareSoundEngine.h"
#include "io/CFileSystem.h"
#include "tests/stress/workload.h"
#include "tests/support/wait.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using namespace sn_test;

/// A mixing engine with its own thread and a device that takes everything at once: what a back end
/// of an operating system does, on every system.
class CThreadedEngine final : public sn_internal::CSonimbraSoftwareSoundEngine {
public:
    explicit CThreadedEngine(sn_internal::io::IFileSystem* fileSystem)
        : CSonimbraSoftwareSoundEngine(fileSystem, sonimbra::MultiThreaded) {
        startEngineThread();
    }
    ~CThreadedEngine() override { shutDown(); }

    void updateDriver() override {
        const sn_internal::CScopedLock lock(getLock());
        updateSounds();
        std::int16_t buffer[OutputChannels * OutputBufferFrames];
        for (int i = 0; i < 8; ++i) {
            mix(buffer, OutputBufferFrames);
        }
        deliverStopEvents();
    }
};

Engine threadedEngine() {
    using sn_internal::io::CFileSystem;
    const auto fileSystem = sn_internal::counted_ptr<CFileSystem>::adopt(new CFileSystem);
    return Engine::adopt(new CThreadedEngine(fileSystem.get()));
}

void sleepALittle() {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

TEST(Threads, OnAnEngineThatIsRendered) {
    OfflineEngine engine = offlineEngine();
    CWorkload load(*engine.get());
    load.run([&] { EXPECT_EQ(1000u, rendered(*engine.get(), 500).size()); });
    engine.reset(); // before the receiver of its stop events
    EXPECT_LT(100, load.soundsPlayed);
    EXPECT_LT(100, load.events);
}

TEST(Threads, OnAnEngineWithAThreadAndAMixer) {
    Engine engine = threadedEngine();
    CWorkload load(*engine.get());
    load.run(sleepALittle);
    engine.reset();
    EXPECT_LT(100, load.soundsPlayed);
    EXPECT_LT(100, load.events);
}

TEST(Threads, OnTheNullEngineWithAThread) {
    Engine engine = nullEngine(sonimbra::MultiThreaded);
    CWorkload load(*engine.get());
    load.run(sleepALittle);
    engine.reset();
    EXPECT_EQ(0, load.soundsPlayed + load.events);
}

/// Sounds and sources belong to the application as well, which may use them while the engine goes.
TEST(Threads, SoundsAndSourcesAreUsedWhileTheEngineEnds) {
    for (int round = 0; round < 300; ++round) {
        OfflineEngine engine = offlineEngine();
        const Source source = Source::share(addSquareWave(*engine.get(), "source", 500));
        const Sound sound = playTracked(*engine.get(), source.get(), true);
        std::atomic<std::int32_t> uses{0};
        std::atomic<bool> isOver{false};
        std::thread user([&] {
            for (; !isOver; ++uses) {
                source->getDefaultMinDistance();
                source->getDefaultMaxDistance();
                sound->setIsPaused(uses % 2 == 0);
            }
        });
        EXPECT_TRUE(waitFor([&] { return uses > 10; }));
        engine.reset();
        isOver = true;
        user.join();
        EXPECT_EQ(nullptr, sound->getSoundSource());
    }
}

/// Creates an engine and drops it in the middle of its work, again and again. Every second time the
/// application keeps the sounds.
void comeAndGo(int rounds, Engine (*create)(), const std::string& expectedCauses) {
    for (int i = 0; i < rounds; ++i) {
        Engine engine = create();
        addSharedFiles(*engine.get());
        CStopEvents events;
        std::vector<Sound> sounds;
        for (const char* name : SharedNames) {
            engine->play2D(name, true);
            sounds.push_back(Sound::adopt(engine->play2D(name, true, false, true)));
            if (sounds.back()) {
                sounds.back()->setSoundStopEventReceiver(&events);
            }
        }
        sounds.resize(i % 2 == 0 ? 3 : 0);
        engine.reset();
        EXPECT_EQ(expectedCauses, events.causes());
    }
}

TEST(Lifetimes, EnginesComeAndGo) {
    comeAndGo(
        200, [] { return Engine::adopt(offlineEngine().release()); }, "222");
    comeAndGo(
        200, [] { return nullEngine(sonimbra::MultiThreaded); }, "");
    comeAndGo(60, threadedEngine, "222");
}

} // namespace
