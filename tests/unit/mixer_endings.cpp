// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// What happens at the end of a sound and where a looped one starts over. At 44100 Hz and a speed
/// of 1 the resampler hands out each frame as it is, but never the last two of a source.

#include "tests/support/CScriptedStream.h"
#include "tests/support/mixer_pair.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace sn_test;

constexpr std::int32_t BufferFrames = 256;
constexpr std::int32_t HeldBack = 2;

/// The numbers from first on, on both channels of so many frames; 0 for the rest of the buffers.
Frames16 countedFrames(std::int32_t first, std::int32_t count, std::int32_t buffers = 1) {
    Frames16 frames;
    for (std::int32_t i = 0; i < count; ++i) {
        frames.insert(frames.end(), 2, static_cast<std::int16_t>(first + i));
    }
    frames.resize(static_cast<std::size_t>(2 * BufferFrames * buffers), 0);
    return frames;
}

TEST(MixerEndings, SixteenBitSoundsAreSilentBehindTheirLastFrame) {
    for (const std::int32_t framesInLastBuffer : {100, 0}) {
        const OfflineEngine engine = offlineEngine();
        const Sound sound =
            playRecording(*engine.get(), counting(BufferFrames + framesInLastBuffer + HeldBack));
        EXPECT_TRUE(
            areSameFrames(rendered(*engine.get(), BufferFrames), countedFrames(1, BufferFrames)));
        EXPECT_FALSE(sound->isFinished());
        EXPECT_TRUE(areSameFrames(rendered(*engine.get(), BufferFrames),
                                  countedFrames(BufferFrames + 1, framesInLastBuffer)));
        EXPECT_TRUE(sound->isFinished());
        EXPECT_EQ(0xFFFFFFFFu, sound->getPlayPosition());
        EXPECT_FALSE(sound->setPlayPosition(0));
        EXPECT_FALSE(sound->setPlaybackSpeed(2.0f));
    }
}

struct SEightBitCase {
    std::int32_t framesInLastBuffer;
    float volume;
    bool isFirst; ///< no sound was mixed before it
};

/// Of an 8-bit sound, silence falls on the second half of what was rendered, up to the middle of
/// the buffer. Behind it stands what the sound before left in the mixer's scratch buffer, with the
/// volume of the sound that ends.
TEST(MixerEndings, EightBitSoundsAreSilentInTheWrongHalf) {
    const SEightBitCase cases[] = {{100, 1.0f, false}, {101, 1.0f, false}, {37, 0.5f, false},
                                   {37, 0.0f, false},  {0, 1.0f, false},   {100, 1.0f, true}};
    for (const SEightBitCase& test : cases) {
        const OfflineEngine engine = offlineEngine();
        const std::int16_t before = test.isFirst ? 0 : 1000;
        if (!test.isFirst) {
            playRecording(*engine.get(), constant(before, 5000));
        }
        SRecording ending = constant(20 * 256, BufferFrames + test.framesInLastBuffer + HeldBack);
        ending.bits = 8;
        playRecording(*engine.get(), ending)->setVolume(test.volume);
        rendered(*engine.get(), BufferFrames);

        Frames16 expected(2 * BufferFrames, static_cast<std::int16_t>(before * (1 + test.volume)));
        std::fill_n(expected.begin(), BufferFrames, before);
        std::fill_n(expected.begin(), test.framesInLastBuffer,
                    static_cast<std::int16_t>(before + 20 * 256 * test.volume));
        EXPECT_TRUE(areSameFrames(rendered(*engine.get(), BufferFrames), expected))
            << test.framesInLastBuffer << " frames, volume " << test.volume;
    }
}

struct SLoopCase {
    std::int32_t usableFrames;
    std::int32_t heardFrames[3];   ///< in each buffer
    std::uint32_t milliseconds[3]; ///< behind each buffer
};

/// One restart completes a buffer; what a shorter sound leaves of it is silent.
TEST(MixerEndings, LoopsStartOverOncePerBuffer) {
    const SLoopCase cases[] = {
        {400, {256, 256, 256}, {5, 5, 11}}, {256, {256, 256, 256}, {5, 5, 5}},
        {128, {256, 128, 128}, {5, 2, 2}},  {50, {100, 50, 50}, {2, 1, 1}},
        {1, {2, 1, 1}, {0, 0, 0}},          {0, {0, 0, 0}, {0, 0, 0}},
        {-1, {0, 0, 0}, {0, 0, 0}}};
    for (const SLoopCase& test : cases) {
        const OfflineEngine engine = offlineEngine();
        const Sound sound =
            playRecording(*engine.get(), counting(test.usableFrames + HeldBack), true);
        std::int32_t next = 0;
        for (std::size_t buffer = 0; buffer < 3; ++buffer) {
            Frames16 expected = countedFrames(next, test.heardFrames[buffer]);
            next += test.heardFrames[buffer];
            for (std::int32_t i = 0; i < 2 * test.heardFrames[buffer]; ++i) {
                auto& sample = expected[static_cast<std::size_t>(i)];
                sample = static_cast<std::int16_t>(sample % test.usableFrames + 1);
            }
            EXPECT_TRUE(areSameFrames(rendered(*engine.get(), BufferFrames), expected))
                << test.usableFrames << " frames, buffer " << buffer;
            EXPECT_EQ(test.milliseconds[buffer], sound->getPlayPosition()) << test.usableFrames;
        }
        EXPECT_FALSE(sound->isFinished());
    }
}

/// A stream of an application, which a test keeps hold of.
class CStubbornStream : public CScriptedStream {
public:
    using CScriptedStream::CScriptedStream;
    bool setPosition(std::int32_t) override {
        ++seeks;
        return false;
    }
};

Sound playStream(sonimbra::ISoundEngine& engine, CScriptedStream& stream, bool looped) {
    addFactory(engine, "scripted", {0});
    addLoader(engine, "", [&](sonimbra::IFileReader&) {
        stream.grab();
        return &stream;
    });
    return Sound::adopt(engine.play2D("scripted", looped, false, true));
}

TEST(MixerEndings, ALoopThatCannotBeRewoundIsSilentAndBounded) {
    const OfflineEngine engine = offlineEngine();
    auto* stream = new CStubbornStream(streamFormat(1, -1, 44100), counting(300).bytes());
    const Sound sound = playStream(*engine.get(), *stream, true);
    EXPECT_TRUE(areSameFrames(rendered(*engine.get(), 12 * BufferFrames),
                              countedFrames(1, 300 - HeldBack, 12)));
    EXPECT_LE(stream->reads + stream->seeks, 24);
    EXPECT_FALSE(sound->isFinished());
    sound->setIsLooped(false);
    rendered(*engine.get(), BufferFrames);
    EXPECT_TRUE(sound->isFinished());
    stream->drop();
}

TEST(MixerEndings, AStreamOfUnknownLengthPlaysButCannotSeek) {
    const OfflineEngine engine = offlineEngine();
    auto* stream = new CScriptedStream(streamFormat(1, -1, 44100), counting(600).bytes());
    const Sound sound = playStream(*engine.get(), *stream, false);
    EXPECT_FALSE(sound->setPlayPosition(0));
    EXPECT_EQ(0, stream->seeks);
    EXPECT_TRUE(areSameFrames(rendered(*engine.get(), 3 * BufferFrames),
                              countedFrames(1, 600 - HeldBack, 3)));
    EXPECT_TRUE(sound->isFinished());
    stream->drop();
}

} // namespace
