// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// Both DirectSound drivers on scripted objects.

#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"
#include "tests/windows/directsound_scripted.h"

#include <cstring>
#include <set>

namespace {

using namespace sn_test;
using namespace sonimbra;
using EDriver = E_SOUND_OUTPUT_DRIVER;

class DirectSoundDriver : public testing::TestWithParam<EDriver> {
protected:
    bool isNew() const { return GetParam() == EDriver::DirectSound8; }
    void create(int options) {
        Driver = Engine::adopt(createSonimbraDevice(GetParam(), options, "no such device"));
    }
    /// Names that begin with r are streamed. Only the first time there is a stream.
    Sound play(const char* name, CScriptedStream* stream, bool looped = false, bool in3D = false,
               bool effects = false) {
        if (stream != nullptr) {
            Bytes file(1);
            addLoader(*Driver.get(), name, [stream](IFileReader&) { return stream; });
            Driver->addSoundSourceFromMemory(file.data(), 1, name);
        }
        ISoundSource* const source = Driver->getSoundSource(name);
        source->setStreamMode(E_STREAM_MODE(*name == 'r' ? 1 : 2));
        return Sound::adopt(in3D ? Driver->play3D(source, {1, 2, 3}, looped, false, true, effects)
                                 : Driver->play2D(source, looped, false, true, effects));
    }

    SScriptedDirectSound Com{isNew() ? CLSID_DirectSound8 : CLSID_DirectSound};
    Engine Driver;
};

INSTANTIATE_TEST_SUITE_P(, DirectSoundDriver,
                         testing::Values(EDriver::DirectSound8, EDriver::DirectSound));

const SAudioStreamFormat Stereo = streamFormat(2, 100, 1000);

TEST_P(DirectSoundDriver, CallsTheSystemInOrder) {
    create(Use3DBuffers | MuteIfNotFocused);
    Driver->setRolloffFactor(12);
    Driver->setDopplerEffectParameters(2, 3);
    Driver->setListenerPosition({1, 2, 3}, {0, 0, 1}, {4, 5, 6}, {0, 1, 0});
    Driver->update();
    play("s", createRampStream(Stereo), false, true);
    play("e", createRampStream(Stereo), false, true, true);
    create(Use3DBuffers | LinearRolloff);
    const Sound sound = play("s", createRampStream(Stereo));
    for (const float volume : {0.5f, 4.539993e-05f, 4.6e-05f, 2.0f}) {
        sound->setPan(volume);
        sound->setVolume(volume);
        Driver->update();
    }
    EXPECT_TRUE(sound->setPlaybackSpeed(0.5f) && sound->getPlaybackSpeed() == 0.5f);
    EXPECT_TRUE(sound->setPlayPosition(50) && sound->getPlayPosition() == 50);
    sound->setIsLooped(true);
    sound->setIsPaused(true);
    for (int i = 1; i < 100; ++i) {
        play("s", nullptr);
    }
    EXPECT_EQ(rampBytes(Stereo, 0, 100), *Script.Buffers[102]->Memory);
    EXPECT_EQ(rampBytes(streamFormat(1, 100, 1000), 0, 100), *Script.Buffers[1]->Memory);
    const WAVEFORMATEX format = {1, 2, 500, 4000, 4, 16, 18};
    EXPECT_EQ(0, std::memcmp(&format, &Script.Buffers[50]->Format, sizeof(format)));
    const char* const expected[] = {
        "COM Create;device Initialize 0;device Create 11 0;b0 Query 132;b0 freed;device "
        "SetCooperativeLevel 1 1;listener SetRolloffFactor 10 0;listener SetDopplerFactor 2 "
        "0;listener SetDistanceFactor 3 0;listener SetPosition 1 2 3 1;listener SetOrientation 0 0 "
        "1 0 1 0 1;listener SetVelocity 4 5 6 1;listener CommitDeferredSettings;device Create "
        "100b2 200;",
        "b1 Query 134;b1 Lock 0 200;b1 Unlock 200 0;b1.3d SetMinDistance 1 0;b1.3d SetMaxDistance "
        "1e+09 0;b1.3d SetPosition 1 2 3 0;b1.3d SetVelocity 0 0 0 0;b1 SetVolume 0;",
        isNew() ? "device Create 102b0 200;b2 Query 73;" : "device Create 100b2 200;b2 Query 134;",
        "COM Create;device Initialize 0;device SetCooperativeLevel 1 1;",
        "listener freed;device freed;device Create 180e2 400;",
        "b3 Lock 0 400;b3 Unlock 400 0;b3 SetPan 0;b3 SetVolume 0;b3 SetPan 0;b3 SetVolume 0;b3 "
        "Play 0;b3 GetStatus;b3 SetPan -5000;b3 SetVolume -693;b3 GetStatus;b3 SetPan 0;b3 "
        "SetVolume -10000;b3 GetStatus;b3 SetPan 0;b3 SetVolume -9986;b3 GetStatus;b3 SetPan "
        "-20000;b3 SetVolume 0;b3 GetFrequency;b3 SetFrequency 500;b3 GetFrequency;b3 "
        "SetCurrentPosition 200;b3 GetCurrentPosition;b3 Play 1;b3 Stop;device Duplicate b3;",
    };
    std::size_t from = 0;
    for (const std::string calls : expected) {
        from = Script.Journal.find(calls, from);
        ASSERT_NE(std::string::npos, from) << calls << " in " << Script.Journal;
    }
    EXPECT_EQ(std::string::npos, Script.Journal.find("Lock", Script.Journal.find("Duplicate")));
}

struct SStep {
    std::uint32_t cursor, start, count, position; ///< frames; start and count of what is written
};

const struct {
    std::int32_t promised, delivered; ///< frames
    bool looped, ends;
    std::vector<SStep> steps;
} RingCases[] = {
    {2500,
     2500,
     false,
     true,
     {{0, 0, 0, 0},
      {300, 0, 300, 300},
      {400, 0, 0, 400},
      {700, 300, 300, 700},
      {200, 600, 500, 1200},
      {900, 100, 700, 1900},
      {300, 800, 400, 2300},
      {600, 0, 0, 0}}},
    {9000,
     9000,
     false,
     false,
     {{256, 0, 0, 256},
      {257, 0, 1, 257},
      {999, 1, 742, 999},
      {100, 743, 101, 1100},
      {700, 0, 0, 1700},
      {900, 444, 200, 1900},
      {388, 644, 488, 2388},
      {999, 132, 611, 2999},
      {488, 999, 233, 3488}}},
    {1500,
     1500,
     true,
     false,
     {{700, 0, 700, 700},
      {200, 700, 500, 1200},
      {900, 200, 700, 400},
      {500, 900, 600, 1000},
      {400, 756, 644, 400}}},
    {3000,
     1200,
     false,
     true,
     {{300, 0, 300, 300},
      {900, 300, 600, 900},
      {400, 900, 500, 1400},
      {900, 400, 500, 1900},
      {600, 900, 700, 2600},
      {200, 0, 0, 0}}},
};

/// The ring after each step: 16 bits, and the first channel of 8 bits.
TEST_P(DirectSoundDriver, RefillsTheRing) {
    for (const auto& test : RingCases) {
        for (const std::size_t bytes : {2, 1}) {
            create(Use3DBuffers);
            const SAudioStreamFormat format = streamFormat(2, test.promised, 1000, 8 * int(bytes));
            Bytes frames = rampBytes(format, 0, test.delivered);
            const Sound sound =
                play("r", new CScriptedStream(format, frames), test.looped, bytes == 1);
            SScriptedBuffer& buffer = *Script.Buffers.back();
            const std::size_t frameSize = bytes == 1 ? 1 : 4;
            frames.resize(2 * bytes * (test.looped ? 1500 : 9999), bytes == 1 ? 0x80 : 0);
            Bytes ring(1000 * frameSize);
            std::size_t next = 0;
            const auto write = [&](std::uint32_t start, std::uint32_t count) {
                for (std::uint32_t k = start; k < start + count; ++k, next += 2 * bytes) {
                    std::copy_n(&frames[next % frames.size()], frameSize,
                                &ring[k % 1000 * frameSize]);
                }
            };
            write(0, 1000);
            for (const SStep& step : test.steps) {
                buffer.Cursor = step.cursor * DWORD(frameSize);
                Driver->update();
                write(step.start, step.count);
                EXPECT_EQ(step.position, sound->getPlayPosition()) << step.cursor;
                EXPECT_TRUE(ring == *buffer.Memory) << step.cursor;
            }
            EXPECT_EQ(test.ends, sound->isFinished());
        }
    }
}

TEST_P(DirectSoundDriver, SurvivesEveryFailure) {
    std::set<std::string> told;
    const auto useAll = [&] {
        create(Use3DBuffers | PrintDebugInfoToStdOut);
        if (!Driver) {
            return;
        }
        const Sound sounds[] = {play("s", createRampStream(Stereo)),
                                play("s", nullptr, false, true), play("s", nullptr),
                                play("r", createRampStream(Stereo), true, true)};
        Script.Buffers.back()->Cursor = 1200;
        Driver->update();
        for (const Sound& sound : sounds) {
            sound->setPlaybackSpeed(0.5f);
            sound->setPlayPosition(50);
            sound->setIsPaused(true);
        }
        Driver.reset();
    };
    for (Script.Failing = 0; Script.Calls >= Script.Failing; ++Script.Failing) {
        Script.Calls = 0;
        const Lines log = linesOf(standardOutputOf(useAll));
        told.insert(log.begin(), log.end());
    }
    EXPECT_EQ(12u + 2, told.size()) << testing::PrintToString(told);
}

} // namespace
