// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// What leaves the mixer, in figures that were worked out by hand. At 44100 Hz and a speed of 1 the
/// resampler hands out each frame as it is, but never the last two of a source.

#include "tests/support/CScriptedStream.h"
#include "tests/support/mixer_pair.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace sn_test;

struct SLevelCase {
    std::int16_t sample;
    float volume;
    float pan;
    std::int16_t left;
    std::int16_t right;
};

TEST(MixerOutput, VolumeAndPan) {
    const SLevelCase cases[] = {
        {-32768, 0.9999995f, 0.0f, -32768, -32768}, // counts as one
        {32767, 0.99999f, 0.0f, 32766, 32766},
        {-10001, 0.5f, 0.0f, -5000, -5000}, // truncated towards zero
        {10000, 0.5f, 0.05f, 5000, 2500},
        {10000, 1.0f, -0.2f, 0, 10000},
        {20000, 4.0f, 0.0f, 32767, 32767}, // saturated
        {-20000, 1e30f, 0.0f, -32768, -32768},
        {10000, -0.5f, 0.0f, -5000, -5000},
        {10000, NAN, 0.0f, 0, 0},
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

/// Of an 8-bit sound, silence falls on the second half of what was rendered, up to the middle of
/// the buffer. Behind it stands what the sound before left in the mixer's scratch buffer, with the
/// volume of the sound that ends.
TEST(MixerOutput, EightBitSoundsEndInTheWrongHalf) {
    for (const std::int32_t heard : {101, 0}) {
        const OfflineEngine engine = offlineEngine();
        playRecording(*engine.get(), constant(1000, 5000));
        SRecording ending = constant(20 * 256, 256 + heard + 2);
        ending.bits = 8;
        const Sound sound = playRecording(*engine.get(), ending);
        sound->setVolume(0.5f);
        rendered(*engine.get(), 256);
        EXPECT_FALSE(sound->isFinished());
        Frames16 expected(512, 1500);
        std::fill_n(expected.begin(), 256, std::int16_t(1000));
        std::fill_n(expected.begin(), heard, std::int16_t(3560));
        EXPECT_TRUE(areSameFrames(rendered(*engine.get(), 256), expected));
        EXPECT_TRUE(sound->isFinished());
    }
}

/// A stream of an application that cannot be rewound, though a loop wants it to.
class CStubbornStream : public CScriptedStream {
public:
    CStubbornStream() : CScriptedStream(streamFormat(1, -1, 44100), constant(7, 302).bytes()) {}
    bool setPosition(std::int32_t) override {
        ++seeks;
        return false;
    }
};

TEST(MixerOutput, ALoopThatCannotBeRewoundIsSilentAndBounded) {
    const OfflineEngine engine = offlineEngine();
    auto* stream = new CStubbornStream;
    addFactory(*engine.get(), "scripted", {0});
    addLoader(*engine.get(), "", [stream](sonimbra::IFileReader&) {
        stream->grab();
        return stream;
    });
    const Sound sound = Sound::adopt(engine->play2D("scripted", true, false, true));
    EXPECT_FALSE(sound->setPlayPosition(0)); // its length is not known
    EXPECT_EQ(0, stream->seeks);
    Frames16 expected(2 * 3000, 0);
    std::fill_n(expected.begin(), 600, std::int16_t(7));
    EXPECT_TRUE(areSameFrames(rendered(*engine.get(), 3000), expected));
    EXPECT_LE(stream->reads + stream->seeks, 24);
    EXPECT_FALSE(sound->isFinished());
    stream->drop();
}

/// Keeps all that it gets.
class CReceiver : public sonimbra::ISoundMixedOutputReceiver {
public:
    void OnAudioDataReady(const void* data, std::int32_t byteCount,
                          std::int32_t sampleRate) override {
        EXPECT_EQ(1024, byteCount);
        EXPECT_EQ(44100, sampleRate);
        const auto* samples = static_cast<const std::int16_t*>(data);
        frames.insert(frames.end(), samples, samples + byteCount / 2);
    }

    Frames16 frames;
};

TEST(MixerOutput, TheReceiverGetsWhatIsRenderedSilenceIncluded) {
    const OfflineEngine engine = offlineEngine();
    CReceiver receiver;
    EXPECT_TRUE(engine->setMixedDataOutputReceiver(&receiver));
    Frames16 expected = rendered(*engine.get(), 512);
    playRecording(*engine.get(), noise({2, 22050, 16}, 2000, 1));
    const Frames16 rest = rendered(*engine.get(), 5120);
    expected.insert(expected.end(), rest.begin(), rest.end());
    EXPECT_TRUE(areSameFrames(receiver.frames, expected));
    EXPECT_TRUE(engine->setMixedDataOutputReceiver(nullptr));
    rendered(*engine.get(), 512);
    EXPECT_EQ(expected.size(), receiver.frames.size());
}

TEST(MixerOutput, FillsItsTargetAndNothingElse) {
    const OfflineEngine engine = offlineEngine();
    const Sound sound = playRecording(*engine.get(), constant(5, 3000));
    Frames16 target(2 * 1001, 77);
    EXPECT_EQ(0, engine->renderFrames(nullptr, 1000));
    EXPECT_EQ(0, engine->renderFrames(target.data(), -1));
    EXPECT_EQ(0u, sound->getPlayPosition());
    EXPECT_EQ(1000, engine->renderFrames(target.data(), 1000));
    EXPECT_EQ(2000, std::count(target.begin(), target.end(), 5));
    EXPECT_EQ(2, std::count(target.end() - 2, target.end(), 77));
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

TEST(MixerOutput, TheNullDriverMakesNoSounds) {
    const Engine engine = nullEngine();
    EXPECT_STREQ("NULL", engine->getDriverName());
    EXPECT_STREQ("Offline", offlineEngine()->getDriverName());
    EXPECT_FALSE(playRecording(*engine.get(), counting(100)));
    EXPECT_EQ(100, engine->getSoundSource(0)->getAudioFormat().FrameCount);
}

} // namespace
