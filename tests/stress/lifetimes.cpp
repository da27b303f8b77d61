// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// Engines that come and go while their sounds play. Nothing may hang or leak.

#include "tests/stress/workload.h"
#include "tests/support/wait.h"

#include <gtest/gtest.h>

namespace {

using namespace sn_test;

/// Plays each file twice and keeps one sound of it.
std::vector<Sound> playAll(sonimbra::ISoundEngine& engine, CStopEvents& events) {
    addSharedFiles(engine);
    std::vector<Sound> sounds;
    for (const char* name : SharedNames) {
        engine.play2D(name, true);
        if (sonimbra::ISound* sound = engine.play3D(name, {1, 0, 0}, true, false, true)) {
            sound->setSoundStopEventReceiver(&events);
            sounds.push_back(Sound::adopt(sound));
        }
    }
    return sounds;
}

TEST(Lifetimes, OfflineEngines) {
    for (int i = 0; i < 200; ++i) {
        OfflineEngine engine = offlineEngine();
        CStopEvents events;
        const std::vector<Sound> sounds = playAll(*engine.get(), events);
        rendered(*engine.get(), 300);
        engine.reset();
        EXPECT_EQ("222", events.causes());
    }
}

TEST(Lifetimes, NullEnginesWithAThread) {
    for (int i = 0; i < 200; ++i) {
        const Engine engine = nullEngine(sonimbra::MultiThreaded);
        CStopEvents events;
        EXPECT_TRUE(playAll(*engine.get(), events).empty());
    }
}

/// Some are dropped before their thread has run for the first time, some without their sounds.
TEST(Lifetimes, MixingEnginesWithAThread) {
    for (int i = 0; i < 60; ++i) {
        auto engine = threadedEngine();
        CStopEvents events;
        std::vector<Sound> sounds = playAll(*engine.get(), events);
        if (i % 3 == 0) {
            EXPECT_TRUE(waitFor([&] { return engine->updates > 0; }));
        } else if (i % 3 == 1) {
            sounds.clear();
        }
        engine.reset();
        EXPECT_EQ("222", events.causes());
    }
}

} // namespace
