// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// What leaves the mixer: the offline engine's frames, the receiver's data, and the driver that has
/// no mixer at all.

#include "drivers/software/CSonimbraSoftwareSoundEngine.h"
#include "io/CFileSystem.h"
#include "tests/support/log_capture.h"
#include "tests/support/mixer_pair.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace sn_test;

TEST(MixerOutput, FillsItsTargetAndNothingElse) {
    const OfflineEngine engine = offlineEngine();
    const Sound sound = playRecording(*engine.get(), constant(5, 3000));
    Frames16 target(2 * 1001, 77);
    EXPECT_EQ(0, engine->renderFrames(nullptr, 1000));
    EXPECT_EQ(0, engine->renderFrames(target.data(), 0));
    EXPECT_EQ(0, engine->renderFrames(target.data(), -1));
    EXPECT_EQ(0u, sound->getPlayPosition());
    EXPECT_EQ(2002, std::count(target.begin(), target.end(), 77));
    EXPECT_EQ(1000, engine->renderFrames(target.data(), 1000));
    EXPECT_EQ(2000, std::count(target.begin(), target.end(), 5));
    EXPECT_EQ(2, std::count(target.end() - 2, target.end(), 77));
}

/// Keeps all that it gets.
class CReceiver : public sonimbra::ISoundMixedOutputReceiver {
public:
    void OnAudioDataReady(const void* data, std::int32_t byteCount,
                          std::int32_t sampleRate) override {
        const auto* samples = static_cast<const std::int16_t*>(data);
        frames.insert(frames.end(), samples, samples + byteCount / 2);
        sizes.push_back(byteCount);
        rate = sampleRate;
    }

    Frames16 frames;
    std::vector<std::int32_t> sizes;
    std::int32_t rate = 0;
};

TEST(MixerOutput, TheReceiverGetsWhatIsRenderedSilenceIncluded) {
    const OfflineEngine engine = offlineEngine();
    CReceiver receiver;
    EXPECT_TRUE(engine->setMixedDataOutputReceiver(&receiver));
    Frames16 expected = rendered(*engine.get(), 512);
    playRecording(*engine.get(), noise({2, 22050, 16}, 3000, 1));
    const Frames16 busy = rendered(*engine.get(), 5120);
    expected.insert(expected.end(), busy.begin(), busy.end());
    EXPECT_TRUE(areSameFrames(receiver.frames, expected));
    EXPECT_EQ(std::vector<std::int32_t>(22, 1024), receiver.sizes);
    EXPECT_EQ(44100, receiver.rate);

    EXPECT_TRUE(engine->setMixedDataOutputReceiver(nullptr));
    rendered(*engine.get(), 512);
    EXPECT_EQ(22u, receiver.sizes.size());
}

/// A device that asks for more than a block at a time.
class CLargeBufferEngine final : public sn_internal::CSonimbraSoftwareSoundEngine {
public:
    explicit CLargeBufferEngine(sn_internal::io::IFileSystem* fileSystem)
        : CSonimbraSoftwareSoundEngine(fileSystem, 0) {}

    Frames16 mixed(std::int32_t frames) {
        Frames16 target(static_cast<std::size_t>(2 * frames), 77);
        mix(target.data(), frames);
        return target;
    }
};

/// Where a short loop starts over shows where the blocks begin.
TEST(MixerOutput, LargeBuffersAreMixedInBlocksOf2048Frames) {
    const auto fileSystem = sn_internal::counted_ptr<sn_internal::io::IFileSystem>::adopt(
        new sn_internal::io::CFileSystem);
    const auto engine = sn_internal::counted_ptr<CLargeBufferEngine>::adopt(
        new CLargeBufferEngine(fileSystem.get()));
    CReceiver receiver;
    engine->setMixedDataOutputReceiver(&receiver);
    const Sound sound = playRecording(*engine.get(), constant(9, 102), true);
    const Frames16 frames = engine->mixed(5000);
    Frames16 expected(10000, 0);
    std::fill_n(expected.begin(), 400, std::int16_t(9));
    std::fill_n(expected.begin() + 4096, 200, std::int16_t(9));
    std::fill_n(expected.begin() + 8192, 200, std::int16_t(9));
    EXPECT_TRUE(areSameFrames(frames, expected));
    EXPECT_EQ(std::vector<std::int32_t>{20000}, receiver.sizes);
    EXPECT_TRUE(areSameFrames(receiver.frames, expected));
}

TEST(MixerOutput, StopEventsMayRenderEvenThoseOfAnEndingEngine) {
    for (const bool isEnding : {false, true}) {
        OfflineEngine engine = offlineEngine();
        CStopEvents events;
        std::int32_t renderedFrames = 0;
        events.action = [&renderedFrames, target = Frames16(600),
                         kept = engine.get()](sonimbra::ISound*) mutable {
            renderedFrames += kept->renderFrames(target.data(), 300);
        };
        const Sound sound = playRecording(*engine.get(), counting(100), isEnding);
        sound->setSoundStopEventReceiver(&events);
        EXPECT_EQ(2000u, rendered(*engine.get(), 1000).size());
        engine.reset();
        EXPECT_EQ(isEnding ? "2" : "0", events.causes());
        EXPECT_EQ(300, renderedFrames);
    }
}

/// One driver mixes in software; the other knows sources, but makes no sounds.
TEST(MixerOutput, DriversSayWhatTheyAre) {
    const int print = sonimbra::PrintDebugInfoToStdOut;
    EXPECT_EQ((Lines{"Sonimbra sound library version 1.5.0", "Using Offline driver"}),
              linesOf(standardOutputOf([&] {
                  const OfflineEngine engine = offlineEngine(print | sonimbra::MultiThreaded);
                  EXPECT_STREQ("Offline", engine->getDriverName());
                  EXPECT_FALSE(engine->isMultiThreaded());
              })));
    EXPECT_EQ((Lines{"Sonimbra sound library version 1.5.0", "Using NULL driver",
                     "Error: This sound driver does not support MixedDataOutputReceivers. Use a "
                     "software driver."}),
              linesOf(standardOutputOf([&] {
                  const Engine engine = nullEngine(print | sonimbra::MultiThreaded);
                  EXPECT_STREQ("NULL", engine->getDriverName());
                  EXPECT_TRUE(engine->isMultiThreaded());
                  sonimbra::ISoundSource* source = addSquareWave(*engine.get(), "a", 99);
                  EXPECT_EQ(nullptr, engine->play2D(source, false, false, true));
                  EXPECT_EQ(nullptr, engine->play3D("a", sonimbra::vec3df(), true, true, true));
                  EXPECT_EQ(99, source->getAudioFormat().FrameCount);
                  EXPECT_FALSE(engine->setMixedDataOutputReceiver(nullptr));
              })));
}

} // namespace
