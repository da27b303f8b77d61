// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// Levels and play positions, in figures that were worked out by hand.

#include "tests/support/mixer_pair.h"

#include <gtest/gtest.h>

namespace {

using namespace sn_test;

struct SLevelCase {
    std::int16_t sample;
    float volume;
    float pan;
    std::int16_t left;
    std::int16_t right;
};

TEST(MixerLevels, VolumeAndPan) {
    const SLevelCase cases[] = {
        {32767, 1.0f, 0.0f, 32767, 32767},
        {-32768, 0.9999995f, 0.0f, -32768, -32768}, // counts as one
        {32767, 0.99999f, 0.0f, 32766, 32766},
        {10001, 0.5f, 0.0f, 5000, 5000}, // truncated towards zero
        {-10001, 0.5f, 0.0f, -5000, -5000},
        {10000, 1.0f, 0.05f, 10000, 5000},
        {10000, 1.0f, -0.05f, 5000, 10000},
        {10000, 1.0f, 1.0f, 10000, 0},
        {10000, 1.0f, -0.2f, 0, 10000},
        {10000, 0.5f, 0.05f, 5000, 2500},
        {10000, 3.0f, 0.05f, 30000, 15000},
        {20000, 4.0f, 0.0f, 32767, 32767}, // saturated
        {-20000, 1e30f, 0.0f, -32768, -32768},
        {10000, -0.5f, 0.0f, -5000, -5000},
    };
    for (const SLevelCase& test : cases) {
        const OfflineEngine engine = offlineEngine();
        const Sound sound = playRecording(*engine.get(), constant(test.sample, 3000));
        sound->setVolume(test.volume);
        sound->setPan(test.pan);
        const Frames16 frames = rendered(*engine.get(), 200);
        EXPECT_EQ(test.left, frames[300]) << test.sample << " " << test.volume << " " << test.pan;
        EXPECT_EQ(test.right, frames[301]) << test.sample << " " << test.volume << " " << test.pan;
    }
}

struct SSumCase {
    std::vector<std::int16_t> samples;
    std::int16_t sum;
};

TEST(MixerLevels, TheSumIsClippedOnceAtTheEnd) {
    const SSumCase cases[] = {
        {{32767, 32767}, 32767},
        {{-32768, -32768}, -32768},
        {{30000, 30000, -30000}, 30000},
        {std::vector<std::int16_t>(200, 32767), 32767},
    };
    for (const SSumCase& test : cases) {
        const OfflineEngine engine = offlineEngine();
        for (const std::int16_t sample : test.samples) {
            playRecording(*engine.get(), constant(sample, 600));
        }
        EXPECT_TRUE(areSameFrames(rendered(*engine.get(), 400), Frames16(800, test.sum)));
    }
}

TEST(MixerLevels, ChangesBeginWithTheNextBuffer) {
    const OfflineEngine engine = offlineEngine();
    const Sound sound = playRecording(*engine.get(), constant(10000, 3000));
    rendered(*engine.get(), 100);
    sound->setVolume(0.5f);
    EXPECT_TRUE(areSameFrames(rendered(*engine.get(), 156), Frames16(312, 10000)));
    EXPECT_TRUE(areSameFrames(rendered(*engine.get(), 256), Frames16(512, 5000)));
}

TEST(MixerLevels, ASilentSoundAdvancesAndAPausedOneDoesNot) {
    const OfflineEngine engine = offlineEngine();
    const Sound silent = playRecording(*engine.get(), counting(3000));
    const Sound paused = playRecording(*engine.get(), counting(3000));
    silent->setVolume(0.0f);
    paused->setIsPaused(true);
    EXPECT_TRUE(areSameFrames(rendered(*engine.get(), 1024), Frames16(2048, 0)));
    EXPECT_EQ(23u, silent->getPlayPosition());
    EXPECT_EQ(0u, paused->getPlayPosition());
    silent->setVolume(1.0f);
    EXPECT_EQ(1025, rendered(*engine.get(), 256)[0]);
    silent->stop();
    paused->setIsPaused(false);
    EXPECT_EQ(1, rendered(*engine.get(), 256)[0]);
}

struct SSpeedCase {
    float speed;
    float storedSpeed;
    std::int32_t buffers;
    std::uint32_t milliseconds;
};

/// Each buffer adds 256 times the speed, truncated to whole frames of the output.
TEST(MixerLevels, PositionsFollowTheSpeed) {
    const SSpeedCase cases[] = {
        {1.0f, 1.0f, 100, 580},    {2.0f, 2.0f, 100, 1160}, {1.3f, 1.3f, 10, 75},
        {0.01f, 0.01f, 100, 4},    {-3.0f, 0.01f, 100, 4},  {5.0f, 5.0f, 40, 1160},
        {1000.0f, 5.0f, 40, 1160},
    };
    for (const SSpeedCase& test : cases) {
        for (const std::int32_t rate : {8000, 44100, 48000}) {
            const OfflineEngine engine = offlineEngine();
            const Sound sound = playRecording(*engine.get(), noise({1, rate, 8}, 90000, 1));
            EXPECT_TRUE(sound->setPlaybackSpeed(test.speed));
            EXPECT_EQ(test.storedSpeed, sound->getPlaybackSpeed());
            rendered(*engine.get(), 256 * test.buffers);
            EXPECT_EQ(test.milliseconds, sound->getPlayPosition()) << rate << " " << test.speed;
        }
    }
}

struct SSeekCase {
    std::int32_t rate;
    std::int32_t bits;
    EStorage storage;
    std::uint32_t asked;
    std::uint32_t milliseconds; ///< reckoned back from the frame, at the output's rate
    std::int16_t sample;        ///< that is heard first
};

/// The samples of the recording are numbered from 1. A streamed file of 24 bits lands at two thirds
/// of the way.
TEST(MixerLevels, SeeksGoToAFrameOfTheSource) {
    const SSeekCase cases[] = {
        {44100, 16, EStorage::Pcm, 0, 0, 1},
        {44100, 16, EStorage::Pcm, 1, 0, 45},
        {44100, 16, EStorage::StreamedWav, 100, 100, 4411},
        {8000, 16, EStorage::Pcm, 500, 500, 4001},
        {11025, 16, EStorage::Pcm, 333, 332, 3672},
        {48000, 16, EStorage::Pcm, 7, 6, 337},
        {44100, 24, EStorage::DecodedWav, 100, 100, 4411},
        {44100, 24, EStorage::StreamedWav, 100, 100, 2941},
        {44100, 16, EStorage::Pcm, 681, 680, 0}, // at the end, as all behind it
        {8000, 16, EStorage::Pcm, 4000000000u, 3750, 0},
    };
    for (const SSeekCase& test : cases) {
        const OfflineEngine engine = offlineEngine();
        SRecording recording = counting(30000);
        recording.rate = test.rate;
        recording.bits = test.bits;
        recording.storage = test.storage;
        const Sound sound = playRecording(*engine.get(), recording);
        rendered(*engine.get(), 256);
        EXPECT_TRUE(sound->setPlayPosition(test.asked));
        EXPECT_EQ(test.milliseconds, sound->getPlayPosition()) << test.rate << " " << test.asked;
        EXPECT_EQ(test.sample, rendered(*engine.get(), 256)[0]) << test.rate << " " << test.asked;
        EXPECT_EQ(test.sample == 0, sound->isFinished()) << test.rate << " " << test.asked;
    }
}

} // namespace
