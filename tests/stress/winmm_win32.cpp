// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/stress/workload.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using namespace sn_test;

TEST(Threads, OnTheWinMMEngine) {
    for (const int options : {0, int(sonimbra::MultiThreaded)}) {
        Engine engine = Engine::adopt(
            sonimbra::createSonimbraDevice(sonimbra::E_SOUND_OUTPUT_DRIVER::WinMM, options));
        ASSERT_TRUE(engine) << "this machine has no sound device";
        CWorkload load(*engine.get());
        load.run([&] {
            engine->update();
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        });
        engine.reset(); // before the receiver of its stop events
        EXPECT_LT(100, load.soundsPlayed);
        EXPECT_LT(100, load.events);
    }
}

} // namespace
