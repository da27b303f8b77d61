// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// Records from the machine's only device, which has to hear what the machine plays.

#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"
#include "tests/windows/capture_scripted.h"

#include <cstdlib>

using namespace sn_test;
using namespace sonimbra;

namespace {

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
    const auto receiver = sn_internal::counted_ptr<SReceiver>::adopt(new SReceiver);
    ASSERT_TRUE(recorder && recorder->startRecordingWithReceiver(receiver.get(), 44100,
                                                                 E_SAMPLE_FORMAT::Signed16Bit, 2));
    EXPECT_TRUE(waitFor([&] { return receiver->Blocks > 1; })) << "some take seconds to start";
    playTracked(*engine, addSquareWave(*engine, "tone", 44100));
    EXPECT_TRUE(waitFor([&, end = receiver->Blocks + 7] { return receiver->Blocks >= end; }));
    Sleep(200); // a notification may bring two blocks
    recorder.reset();
    EXPECT_EQ(S_OK, CoInitialize(nullptr)) << "the recorder has left it";
    CoUninitialize();
    EXPECT_NEAR(0.2 * 44100, receiver->LastSize / 4, 0.1 * 44100);
    const auto* const samples = reinterpret_cast<const std::int16_t*>(receiver->Received.data());
    std::vector<std::size_t> changes; // of the left channel's sign, in frames; silence left out
    for (std::size_t i = 0; i < receiver->Received.size() / 2; i += 2) {
        if (std::abs(samples[i]) > 5000 && (samples[i] > 0) == (changes.size() % 2 == 0)) {
            changes.push_back(i / 2);
        }
    }
    ASSERT_LT(1u, changes.size());
    const auto length = static_cast<int>(changes.back() - changes.front());
    EXPECT_NEAR(44100, length, 22050);
    EXPECT_NEAR(length / 50, static_cast<int>(changes.size()), 200) << "half waves";
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
