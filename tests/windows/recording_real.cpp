// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// Records from the machine's default device, which has to hear what the machine plays.

#include "tests/support/engine_helpers.h"
#include "tests/support/wait.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <numeric>

using namespace sn_test;
using namespace sonimbra;

namespace {

/// Notes where the sign of the left channel changes, silence left out.
struct SListener final : IAudioRecorderReceiver {
    void OnAudioDataRecorded(const void* data, std::int32_t byteCount) override {
        const auto* sample = static_cast<const std::int16_t*>(data);
        BlockFrames = byteCount / 4;
        for (std::int32_t i = 0; i < BlockFrames; ++i, ++Frames, sample += 2) {
            if (std::abs(*sample) > 5000 && (*sample > 0) != IsPositive) {
                IsPositive = !IsPositive;
                Changes.push_back(Frames);
            }
        }
        ++Blocks;
    }
    bool waitForBlocks(int count) {
        return waitFor([&, end = Blocks + count] { return Blocks >= end; });
    }
    std::atomic<int> Blocks = 0;
    std::int32_t BlockFrames = 0, Frames = 0;
    bool IsPositive = false;
    std::vector<std::int32_t> Changes; ///< frames
};

/// 441 Hz for a second, and a stop 200 ms after a notification.
TEST(CaptureDevice, HearsAToneAndKeepsWhatCameAfterTheLastNotification) {
    for (const auto driver :
         {E_SOUND_OUTPUT_DRIVER::DirectSound8, E_SOUND_OUTPUT_DRIVER::DirectSound}) {
        const Engine engine = Engine::adopt(createSonimbraDevice(driver, MultiThreaded));
        ASSERT_TRUE(engine);
        const auto list = sn_internal::counted_ptr<ISoundDeviceList>::adopt(
            createAudioRecorderDeviceList(driver));
        ASSERT_LT(1, list->getDeviceCount());
        const int index = driver == E_SOUND_OUTPUT_DRIVER::DirectSound8 ? 0 : 1; // default, or not
        const auto recorder = sn_internal::counted_ptr<IAudioRecorder>::adopt(
            createSonimbraAudioRecorder(engine.get(), driver, list->getDeviceID(index)));
        const auto listener = sn_internal::counted_ptr<SListener>::adopt(new SListener);
        ASSERT_TRUE(recorder && recorder->startRecordingWithReceiver(
                                    listener.get(), 44100, E_SAMPLE_FORMAT::Signed16Bit, 2));
        EXPECT_TRUE(listener->waitForBlocks(2)) << "some devices take seconds to start";
        playTracked(*engine.get(), addSquareWave(*engine.get(), "tone", 44100));
        EXPECT_TRUE(listener->waitForBlocks(7)) << "a notification may bring two";
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        recorder->stopRecordingAudio();
        EXPECT_NEAR(0.2 * 44100, listener->BlockFrames, 0.1 * 44100);
        ASSERT_LT(1u, listener->Changes.size());
        EXPECT_NEAR(44100, listener->Changes.back() - listener->Changes.front(), 22050);
        std::vector<std::int32_t> halves(listener->Changes.size());
        std::adjacent_difference(listener->Changes.begin(), listener->Changes.end(),
                                 halves.begin());
        std::sort(halves.begin(), halves.end());
        EXPECT_NEAR(50, halves[halves.size() / 2], 1) << "the usual half wave";
    }
}

} // namespace
