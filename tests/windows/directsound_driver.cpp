// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/directsound/volume.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"
#include "tests/windows/directsound_scripted.h"

#include <cmath>
#include <set>

namespace {

using namespace sn_test;
using namespace sonimbra;
using EDriver = E_SOUND_OUTPUT_DRIVER;

/// Both DirectSound drivers on scripted objects.
class DirectSoundDriver : public testing::TestWithParam<EDriver> {
protected:
    bool isNew() const { return GetParam() == EDriver::DirectSound8; }
    void create(int options) {
        Driver = Engine::adopt(createSonimbraDevice(GetParam(), options, "no such device"));
    }
    /// Names that begin with r are streamed. A stream is for the first time.
    Sound play(const char* name, CScriptedStream* stream, bool in3D = false, bool looped = false,
               bool effects = false) {
        if (stream != nullptr) {
            addLoader(*Driver.get(), name, [stream](IFileReader&) { return stream; });
            Driver->addSoundSourceFromMemory(this, 1, name)
                ->setStreamMode(E_STREAM_MODE(*name == 'r' ? 1 : 2));
        }
        ISoundSource* const source = Driver->getSoundSource(name);
        return Sound::adopt(in3D ? Driver->play3D(source, {1, 2, 3}, looped, false, true, effects)
                                 : Driver->play2D(source, looped, false, true, effects));
    }
    void useAll() {
        create(Use3DBuffers | PrintDebugInfoToStdOut);
        if (!Driver) {
            return;
        }
        Driver->setRolloffFactor(12);
        Driver->setDopplerEffectParameters(2, 3);
        Driver->setListenerPosition({1, 2, 3}, {0, 0, 1}, {4, 5, 6}, {0, 1, 0});
        const Sound sounds[] = {play("s", createRampStream(Stereo)), play("s", nullptr, true),
                                play("s", nullptr),
                                play("e", createRampStream(Stereo), true, true, true),
                                play("r", createRampStream(Stereo), true, true)};
        Script.Buffers.back()->Cursor = 1200;
        for (SScriptedBuffer* buffer : Script.Buffers) {
            buffer->Memory->assign(buffer->Memory->size(), 7);
            buffer->Loss = DSERR_BUFFERLOST;
        }
        Driver->update();
        sounds[0]->setPan(0.5f);
        for (const Sound& sound : sounds) {
            EXPECT_EQ(isNew(), sound->getSoundEffectControl() != nullptr);
            sound->setIsLooped(true);
            sound->setPlaybackSpeed(0.5f);
            sound->setPlayPosition(50);
            sound->setIsPaused(true);
            sound->setIsPaused(false);
        }
        Driver.reset();
    }

    const SAudioStreamFormat Stereo = streamFormat(2, 100, 1000);
    SScriptedDirectSound Com{isNew() ? CLSID_DirectSound8 : CLSID_DirectSound};
    Engine Driver;
};

INSTANTIATE_TEST_SUITE_P(, DirectSoundDriver,
                         testing::Values(EDriver::DirectSound8, EDriver::DirectSound));

/// Each call fails in turn; in the end none does.
TEST_P(DirectSoundDriver, CallsTheSystemInOrderAndSurvivesItsFailures) {
    std::set<std::string> told;
    for (int failing = 0; Script.Calls >= failing; ++failing) {
        Script = {};
        Script.Failing = failing;
        const Lines log = linesOf(standardOutputOf([&] { useAll(); }));
        told.insert(log.begin(), log.end());
    }
    EXPECT_EQ(12u + 2, told.size()) << testing::PrintToString(told);
    std::istringstream expected(
        "device Create 11 0;b0 Query 132;b0 freed;device SetCooperativeLevel 1 1;|"
        "listener SetRolloffFactor 10 0;listener SetDopplerFactor 2 0;|Create 180e2 400;|"
        "Create 180b2 200;|Duplicate b1;|Create 180b0 2000;|b5 Play 1;|"
        "listener SetVelocity 4 5 6 1;listener CommitDeferredSettings;|b1 SetCurrentPosition 200;"
        "b1 Stop;b1 SetPan -5000;b1 SetVolume 0;b1 Play 1;|b5 SetCurrentPosition 0;"
        "b5 GetCurrentPosition;b5 Lock 0 2000;b5 Unlock 2000 0;|listener freed;device freed;");
    std::size_t from = 0;
    for (std::string calls; std::getline(expected, calls, '|');) {
        from = Script.Journal.find(calls, from);
        ASSERT_NE(std::string::npos, from) << calls << " in " << Script.Journal;
    }
    EXPECT_EQ(rampBytes(Stereo, 0, 100), *Script.Buffers[3]->Memory);
    EXPECT_EQ(rampBytes(streamFormat(1, 100, 1000), 0, 100), *Script.Buffers[2]->Memory);
    EXPECT_EQ(isNew(), Script.Journal.find("Create 182b0 200;") != std::string::npos);
    EXPECT_EQ(18, Script.Buffers[2]->Format.cbSize);
    const std::pair<float, int> gains[] = {{-1.0f, -10000}, {0.0f, -10000}, {4.539993e-05f, -10000},
                                           {0.1f, -2302},   {0.5f, -693},   {1.0f, 0},
                                           {2.0f, 0},       {NAN, -10000}};
    for (const auto& [gain, hundredths] : gains) {
        EXPECT_EQ(hundredths, sn_internal::toHundredthsOfDecibel(gain)) << gain;
    }
}

const struct {
    std::int32_t promised, delivered; ///< frames
    bool looped;
    const char* steps; ///< play cursor, start and count of the frames written, and play position
} RingCases[] = {
    {2500, 2500, false,
     "300 0 300 300  400 0 0 400  700 300 300 700  200 600 500 1200  900 100 700 1900  "
     "300 800 400 2300  600 0 0 0"},
    {9000, 9000, false,
     "256 0 0 256  257 0 1 257  999 1 742 999  100 743 101 1100  700 0 0 1700  900 444 200 1900  "
     "388 644 488 2388  999 132 611 2999  488 999 233 3488"},
    {1500, 1500, true,
     "700 0 700 700  200 700 500 1200  900 200 700 400  500 900 600 1000  400 756 644 400"},
    {2000, 1200, false, "900 0 900 900  500 900 600 1500  900 500 400 1900  100 0 0 0"},
};

/// The whole ring after each step: 16 bits, and the first channel of 8 bits.
TEST_P(DirectSoundDriver, RefillsTheRing) {
    for (std::size_t i = 0; i < 2 * std::size(RingCases); ++i) {
        const auto& test = RingCases[i / 2];
        const std::size_t bytes = 1 + i % 2;
        const std::size_t frameSize = bytes == 1 ? 1 : 4;
        const SAudioStreamFormat format = streamFormat(2, test.promised, 1000, 8 * int(bytes));
        Bytes frames = rampBytes(format, 0, test.delivered);
        create(Use3DBuffers);
        const Sound sound = play("r", new CScriptedStream(format, frames), bytes == 1, test.looped);
        frames.resize(2 * bytes * (test.looped ? 1500 : 9999), bytes == 1 ? 0x80 : 0);
        Bytes ring(1000 * frameSize);
        std::size_t next = 0;
        std::istringstream steps(std::string("0 0 1000 0 ") + test.steps);
        for (std::uint32_t cursor, start, count, position;
             steps >> cursor >> start >> count >> position;) {
            Script.Buffers.back()->Cursor = cursor * DWORD(frameSize);
            Driver->update();
            for (std::uint32_t k = start; k < start + count; ++k, next += 2 * bytes) {
                std::copy_n(&frames[next % frames.size()], frameSize, &ring[k % 1000 * frameSize]);
            }
            EXPECT_TRUE(ring == *Script.Buffers.back()->Memory) << i << ", " << cursor;
            EXPECT_EQ(position, sound->getPlayPosition()) << i << ", " << cursor;
            EXPECT_EQ(cursor > 0 && position == 0, sound->isFinished()) << i << ", " << cursor;
        }
    }
}

/// Counts a word of the journal.
int occurrences(const std::string& word) {
    int count = 0;
    for (std::size_t at = 0; (at = Script.Journal.find(word, at)) != std::string::npos; ++at) {
        ++count;
    }
    return count;
}

TEST_P(DirectSoundDriver, CopiesSamplesOnceForAHundredSounds) {
    create(0);
    std::vector<Sound> sounds;
    sounds.push_back(play("s", createRampStream(Stereo)));
    while (sounds.size() < 100) {
        sounds.push_back(play("s", nullptr));
    }
    EXPECT_EQ(occurrences("Lock "), 1);
    EXPECT_EQ(occurrences("Duplicate b0;"), 99);
    EXPECT_EQ(occurrences("Create 180e2 400;"), 1);
}

/// Delivers what it has once, and is never at another place.
struct CStubbornStream final : CScriptedStream {
    using CScriptedStream::CScriptedStream;
    bool setPosition(std::int32_t) override { return false; }
};

TEST_P(DirectSoundDriver, SeeksAndJudgesOddStreams) {
    create(0);
    const SAudioStreamFormat format = streamFormat(2, 2500, 1000);
    const Sound whole = play("r1", createRampStream(format));
    EXPECT_TRUE(whole->setPlayPosition(1500));
    EXPECT_EQ(rampBytes(format, 1500, 1000), *Script.Buffers.back()->Memory);
    EXPECT_EQ(whole->getPlayPosition(), 1500u);
    EXPECT_TRUE(whole->setPlayPosition(99999));
    EXPECT_EQ(Bytes(4000), *Script.Buffers.back()->Memory) << "silence behind the end";

    // Neither a length nor a way back: a looped stream learns its length when nothing comes.
    const Sound endless =
        play("r2", new CStubbornStream(streamFormat(2, 0, 1000), Bytes(6000)), false, true);
    for (const DWORD frame : {700, 200, 900}) {
        Script.Buffers.back()->Cursor = frame * 4;
        Driver->update();
    }
    EXPECT_EQ(endless->getPlayPosition(), 1900u - 1500);
    EXPECT_FALSE(endless->setPlayPosition(10));
    EXPECT_FALSE(endless->isFinished());

    // Looped over nothing it learns a length of 0: without the loop a seek finds the end, with it
    // the next one goes on.
    const Sound empty = play("r4", new CScriptedStream(streamFormat(2, 0, 1000), {}), false, true);
    for (const bool looped : {false, true}) {
        empty->setIsLooped(looped);
        EXPECT_TRUE(empty->setPlayPosition(0));
    }
    Driver->update();
    EXPECT_FALSE(empty->isFinished());

    const Sound standing = play("r3", createRampStream(streamFormat(2, 100, 0)));
    EXPECT_EQ(standing->getPlayPosition(), UINT32_MAX);
    EXPECT_FALSE(standing->setPlayPosition(10));
    EXPECT_TRUE(play("s", createRampStream(streamFormat(2, 0, 1000)))->isFinished());
    Driver->update();
}

} // namespace
