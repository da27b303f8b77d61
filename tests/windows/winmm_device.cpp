// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// The WinMM driver on the machine's own sound device, in real time. A machine without one fails
/// these tests.

#include "tests/support/mixer_pair.h"
#include "tests/support/wait.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>

#include <windows.h>

namespace {

using namespace sn_test;

Engine deviceEngine(int options) {
    return Engine::adopt(
        sonimbra::createSonimbraDevice(sonimbra::E_SOUND_OUTPUT_DRIVER::WinMM, options));
}

/// Updates an engine as an application does that draws pictures; one with a thread updates itself.
template <class F>
bool updateUntil(sonimbra::ISoundEngine& engine, F&& condition) {
    return waitFor([&] {
        engine.update();
        Sleep(15);
        return condition();
    });
}

/// Keeps the mixed frames.
class CMixedOutput : public sonimbra::ISoundMixedOutputReceiver {
public:
    void OnAudioDataReady(const void* data, std::int32_t byteCount, std::int32_t) override {
        const auto* samples = static_cast<const std::int16_t*>(data);
        frames.insert(frames.end(), samples, samples + byteCount / 2);
    }

    Frames16 frames;
};

TEST(WinMMDevice, GetsWhatTheOfflineEngineRenders) {
    const Engine engine = deviceEngine(0);
    ASSERT_TRUE(engine);
    const OfflineEngine offline = offlineEngine();
    CMixedOutput output;
    engine->setMixedDataOutputReceiver(&output);
    const sonimbra::vec3df position(1, 2, 3);
    for (sonimbra::ISoundEngine* each :
         {engine.get(), static_cast<sonimbra::ISoundEngine*>(offline.get())}) {
        playRecording(*each, noise({2, 48000, 16}, 9000, 1), true);
        playRecording(*each, noise({1, 8000, 8, EStorage::DecodedWav}, 3000, 2));
        playRecording(*each, noise({2, 22050, 24, EStorage::StreamedWav}, 5000, 3), true,
                      &position);
    }
    EXPECT_TRUE(updateUntil(*engine.get(), [&] { return output.frames.size() > 120000; }));
    engine->setMixedDataOutputReceiver(nullptr);
    const auto frames = static_cast<std::int32_t>(output.frames.size() / 2);
    EXPECT_TRUE(areSameFrames(output.frames, rendered(*offline.get(), frames)));
}

class WinMMDeviceModes : public testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(WinMMDevice, WinMMDeviceModes,
                         testing::Values(0, int(sonimbra::MultiThreaded)));

/// No faster than time passes, but for what is queued. On a machine that is busy with other things
/// the device may fall behind; it goes on all the same.
TEST_P(WinMMDeviceModes, PlaysInRealTime) {
    using CClock = std::chrono::steady_clock;
    const Engine engine = deviceEngine(GetParam());
    ASSERT_TRUE(engine);
    const Sound sound = playRecording(*engine.get(), constant(100, 44100 * 4));
    EXPECT_TRUE(updateUntil(*engine.get(), [&] { return sound->getPlayPosition() > 400; }));
    const std::uint32_t before = sound->getPlayPosition();
    const CClock::time_point start = CClock::now();
    const auto passed = [start] {
        return std::chrono::duration<double, std::milli>(CClock::now() - start).count();
    };
    EXPECT_TRUE(updateUntil(*engine.get(), [&] { return passed() > 2000; }));
    const std::uint32_t played = sound->getPlayPosition() - before;
    EXPECT_LT(played, passed() + 186 + 100);
    EXPECT_GT(played, passed() / 3 - 186);
}

TEST_P(WinMMDeviceModes, StopEventsArriveOnTheThreadThatUpdates) {
    std::atomic<DWORD> thread{0};
    CStopEvents events;
    events.action = [&](sonimbra::ISound*) { thread = GetCurrentThreadId(); };
    const Engine engine = deviceEngine(GetParam());
    ASSERT_TRUE(engine);
    const Sound ending = playRecording(*engine.get(), constant(100, 2000));
    ending->setSoundStopEventReceiver(&events);
    EXPECT_TRUE(updateUntil(*engine.get(), [&] { return thread != 0; }));
    EXPECT_EQ(GetParam() == 0, thread == GetCurrentThreadId());

    const Sound removed = playRecording(*engine.get(), constant(100, 2000), true);
    removed->setSoundStopEventReceiver(&events);
    engine->removeSoundSource(removed->getSoundSource());
    EXPECT_EQ("02", events.causes());
    EXPECT_EQ(GetCurrentThreadId(), thread);
}

/// The device must be free again each time.
TEST_P(WinMMDeviceModes, EnginesComeAndGo) {
    for (int i = 0; i < 20; ++i) {
        CStopEvents events;
        Engine engine = deviceEngine(GetParam());
        ASSERT_TRUE(engine) << i;
        const Sound sound = playRecording(*engine.get(), constant(100, 20000), true);
        sound->setSoundStopEventReceiver(&events);
        if (i % 2 == 0) {
            EXPECT_TRUE(updateUntil(*engine.get(), [&] { return sound->getPlayPosition() > 0; }));
        }
        engine.reset();
        EXPECT_EQ("2", events.causes());
    }
}

} // namespace
