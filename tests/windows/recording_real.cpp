// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// Records from the machine's only device, which has to hear what the machine plays.

#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"
#include "tests/support/wait.h"

#include <atomic>
#include <cstdlib>

#include <objbase.h>

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
                First = Changes++ == 0 ? Frames : First;
                Last = Frames;
            }
        }
        ++Blocks;
    }
    bool waitForBlocks(int count) {
        return waitFor([&, end = Blocks + count] { return Blocks >= end; });
    }
    std::atomic<int> Blocks = 0;
    std::int32_t BlockFrames = 0, Frames = 0, First = 0, Last = 0, Changes = 0;
    bool IsPositive = false;
};

/// 441 Hz for a second, and a stop 200 ms after a notification; on a thread without COM.
void listen(ISoundEngine* engine, E_SOUND_OUTPUT_DRIVER driver) {
    const auto list =
        sn_internal::counted_ptr<ISoundDeviceList>::adopt(createAudioRecorderDeviceList(driver));
    ASSERT_LT(1, list->getDeviceCount());
    sn_internal::counted_ptr<IAudioRecorder> recorder;
    EXPECT_EQ(
        std::string("Using device: ") + list->getDeviceDescription(1) + "\n", standardOutputOf([&] {
            recorder =
                recorder.adopt(createSonimbraAudioRecorder(engine, driver, list->getDeviceID(1)));
        }));
    EXPECT_EQ(S_FALSE, CoInitialize(nullptr)) << "the recorder has it";
    CoUninitialize();
    const auto listener = sn_internal::counted_ptr<SListener>::adopt(new SListener);
    ASSERT_TRUE(recorder && recorder->startRecordingWithReceiver(listener.get(), 44100,
                                                                 E_SAMPLE_FORMAT::Signed16Bit, 2));
    EXPECT_TRUE(listener->waitForBlocks(2)) << "some devices take seconds to start";
    playTracked(*engine, addSquareWave(*engine, "tone", 44100));
    EXPECT_TRUE(listener->waitForBlocks(7)) << "a notification may bring two";
    Sleep(200);
    recorder.reset();
    EXPECT_NEAR(0.2 * 44100, listener->BlockFrames, 0.1 * 44100);
    EXPECT_NEAR(44100, listener->Last - listener->First, 22050);
    EXPECT_NEAR(50 * listener->Changes, listener->Last - listener->First, 8820) << "half waves";
    EXPECT_EQ(S_OK, CoInitialize(nullptr)) << "the recorder has left it";
    CoUninitialize();
}

TEST(CaptureDevice, HearsAToneAndKeepsWhatCameAfterTheLastNotification) {
    for (const auto driver :
         {E_SOUND_OUTPUT_DRIVER::DirectSound8, E_SOUND_OUTPUT_DRIVER::DirectSound}) {
        const Engine engine =
            Engine::adopt(createSonimbraDevice(driver, MultiThreaded | PrintDebugInfoToStdOut));
        ASSERT_TRUE(engine);
        std::thread(listen, engine.get(), driver).join();
    }
}

} // namespace
