// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// Streams on the machine's own DirectSound device. A machine without one fails.

#include "tests/support/mixer_recording.h"
#include "tests/support/wait.h"

#include <gtest/gtest.h>

using namespace sn_test;

TEST(DirectSoundDevice, StreamsGoOnAfterAPause) {
    for (const auto driver : {sonimbra::E_SOUND_OUTPUT_DRIVER::DirectSound8,
                              sonimbra::E_SOUND_OUTPUT_DRIVER::DirectSound}) {
        const Engine engine =
            Engine::adopt(sonimbra::createSonimbraDevice(driver, sonimbra::MultiThreaded));
        ASSERT_TRUE(engine);
        SRecording recording = counting(44100);
        recording.storage = EStorage::StreamedWav;
        const Sound sound = playRecording(*engine.get(), recording);
        EXPECT_TRUE(waitFor([&] { return sound->getPlayPosition() > 300; }));
        sound->setIsPaused(true);
        const std::uint32_t position = sound->getPlayPosition();
        std::this_thread::sleep_for(std::chrono::milliseconds(1200)); // more than the rest
        EXPECT_EQ(position, sound->getPlayPosition());
        EXPECT_FALSE(sound->isFinished());
        sound->setIsPaused(false);
        EXPECT_TRUE(waitFor([&] { return sound->isFinished(); }));
    }
}
