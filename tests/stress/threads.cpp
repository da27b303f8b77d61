// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// Many threads on one engine. The thread sanitizer must find nothing, and nothing may hang.

#include "tests/stress/workload.h"
#include "tests/support/wait.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using namespace sn_test;

void pause() {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

TEST(Threads, OnAnEngineThatIsRendered) {
    OfflineEngine engine = offlineEngine();
    CWorkload load(*engine.get());
    load.run([&] { EXPECT_EQ(1000u, rendered(*engine.get(), 500).size()); });
    engine.reset();
    EXPECT_LT(100, load.soundsPlayed);
    EXPECT_LT(100, load.events);
    EXPECT_EQ(0, load.wrongEvents);
}

TEST(Threads, OnAnEngineWithAThreadAndAMixer) {
    auto engine = threadedEngine();
    CWorkload load(*engine.get());
    load.run(pause);
    EXPECT_LT(10, engine->updates);
    engine.reset();
    EXPECT_LT(100, load.soundsPlayed);
    EXPECT_LT(100, load.events);
    EXPECT_EQ(0, load.wrongEvents);
}

TEST(Threads, OnTheNullEngineWithAThread) {
    Engine engine = nullEngine(sonimbra::MultiThreaded);
    CWorkload load(*engine.get());
    load.run(pause);
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
        EXPECT_TRUE(sound->isFinished());
    }
}

} // namespace
