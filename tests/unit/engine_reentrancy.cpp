// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace {

using namespace sn_test;
using namespace sonimbra;

/// What a receiver starts anew while its source is being removed goes with the
/// source.
TEST(Reentrancy, SoundsStartedDuringARemovalReportIt) {
    for (const bool all : {false, true}) {
        const ScriptedEngine driver = scriptedEngine();
        ISoundEngine& engine = *driver.get();
        ISoundSource* wave = addSquareWave(engine, "w", 1000);
        CStopEvents events;
        Sound again;
        events.action = [&](ISound*) {
            events.action = nullptr;
            again = playTracked(engine, wave);
            again->setSoundStopEventReceiver(&events);
        };
        playTracked(engine, wave)->setSoundStopEventReceiver(&events);
        all ? engine.removeAllSoundSources() : engine.removeSoundSource(wave);
        engine.update();
        EXPECT_EQ(events.causes(), "22");
    }
}

TEST(Reentrancy, SoundsReportThatTheirAliasTookTheBaseAway) {
    const ScriptedEngine driver = scriptedEngine();
    ISoundEngine& engine = *driver.get();
    ISoundSource* base = addSquareWave(engine, "w", 1000);
    ISoundSource* alias = engine.addSoundSourceAlias(base, "alias");
    engine.removeSoundSource(base);
    CStopEvents events;
    const Sound sound = playTracked(engine, alias);
    sound->setSoundStopEventReceiver(&events);
    engine.removeSoundSource(alias);
    EXPECT_TRUE(sound->isFinished());
    engine.update();
    EXPECT_EQ(events.causes(), "2");
}

/// Adds many factories when it is first asked, so that their list moves.
class CAddingFactory : public IFileFactory {
public:
    explicit CAddingFactory(ISoundEngine& engine) : Engine(engine) {}
    IFileReader* createFileReader(const char*) override {
        for (; Missing > 0; --Missing) {
            addFactory(Engine, "x.y", {1, 2});
        }
        return nullptr;
    }

private:
    ISoundEngine& Engine;
    int Missing = 20;
};

TEST(Reentrancy, LoadersAndFactoriesMayBeAddedWhileTheyAreAsked) {
    const OfflineEngine engine = offlineEngine();
    const auto factory =
        sn_internal::counted_ptr<IFileFactory>::adopt(new CAddingFactory(*engine.get()));
    engine->addFileFactory(factory.get());
    addFactory(*engine.get(), "x.y", {1});
    int missing = 20;
    addLoader(*engine.get(), ".y", [&](IFileReader&) -> IAudioStream* {
        for (; missing > 0; --missing) {
            addLoader(*engine.get(), ".y",
                      [](IFileReader&) { return createRampStream(streamFormat(1, 10, 8000)); });
        }
        return nullptr;
    });
    addLoader(*engine.get(), ".y", [](IFileReader&) { return nullptr; });
    EXPECT_TRUE(Sound::adopt(engine->play2D("x.y", false, true)));
}

/// Plays its first buffers, then fails.
class CThrowingStream : public CScriptedStream {
public:
    using CScriptedStream::CScriptedStream;
    std::int32_t readFrames(void* target, std::int32_t frames) override {
        if (reads == 2) {
            throw std::runtime_error("read");
        }
        return CScriptedStream::readFrames(target, frames);
    }
    bool setPosition(std::int32_t) override { throw std::runtime_error("seek"); }
};

TEST(Reentrancy, DecodersMayThrow) {
    const OfflineEngine engine = offlineEngine();
    addFactory(*engine.get(), "x.y", {1});
    addLoader(*engine.get(), ".y", [](IFileReader&) {
        const auto format = streamFormat(1, 10000, 44100);
        return new CThrowingStream(format, rampBytes(format, 0, 10000));
    });
    for (const bool looped : {false, true}) {
        ISoundSource* source = engine->getSoundSource("x.y");
        source->setStreamMode(E_STREAM_MODE::Streaming);
        const Sound sound = playTracked(*engine.get(), source, looped);
        EXPECT_NO_THROW(EXPECT_FALSE(sound->setPlayPosition(10)));
        EXPECT_NO_THROW(rendered(*engine.get(), 8192));
        EXPECT_EQ(sound->isFinished(), !looped);
    }
}

/// Calls the application whenever it is read.
class CCallingStream : public CScriptedStream {
public:
    CCallingStream(const SAudioStreamFormat& format, const std::function<void()>& call)
        : CScriptedStream(format, rampBytes(format, 0, format.FrameCount)), Call(call) {}
    std::int32_t readFrames(void* target, std::int32_t frames) override {
        Call();
        return CScriptedStream::readFrames(target, frames);
    }

private:
    const std::function<void()>& Call;
};

struct SCall {
    const char* name;
    std::function<void(ISoundEngine&, ISound&)> call;
    const char* causes; ///< of the sound that calls, and of another one
};

class CallsFromDecoders : public testing::TestWithParam<SCall> {};

TEST_P(CallsFromDecoders, MayEndTheirSound) {
    CStopEvents events;
    const OfflineEngine engine = offlineEngine();
    addFactory(*engine.get(), "x.y", {1});
    std::function<void()> call = [] {};
    addLoader(*engine.get(), ".y", [&](IFileReader&) {
        return new CCallingStream(streamFormat(1, 20000, 44100), call);
    });
    engine->getSoundSource("x.y")->setStreamMode(E_STREAM_MODE::Streaming);
    const Sound calling = playTracked(*engine.get(), engine->getSoundSource("x.y"));
    const Sound other = playTracked(*engine.get(), addSquareWave(*engine.get(), "w", 4000), true);
    calling->setSoundStopEventReceiver(&events);
    other->setSoundStopEventReceiver(&events);
    call = [&] { GetParam().call(*engine.get(), *calling.get()); };
    rendered(*engine.get(), 8192);
    engine->update();
    EXPECT_EQ(events.causes(), GetParam().causes);
    call = [] {};
    rendered(*engine.get(), 20000);
    EXPECT_TRUE(calling->isFinished());
}

const SCall Calls[] = {
    {"stop", [](ISoundEngine&, ISound& sound) { sound.stop(); }, "1"},
    {"stopAll", [](ISoundEngine& engine, ISound&) { engine.stopAllSounds(); }, "00"},
    {"remove", [](ISoundEngine& engine, ISound&) { engine.removeSoundSource("x.y"); }, "2"},
    {"removeAll", [](ISoundEngine& engine, ISound&) { engine.removeAllSoundSources(); }, "22"},
    {"stopAndUpdate",
     [](ISoundEngine& engine, ISound& sound) {
         sound.stop();
         EXPECT_TRUE(sound.isFinished());
         engine.update();
     },
     "1"},
    {"seek", [](ISoundEngine&, ISound& sound) { EXPECT_FALSE(sound.setPlayPosition(0)); }, ""},
    {"play",
     [](ISoundEngine& engine, ISound&) {
         for (int i = 0; i < 20; ++i) {
             engine.play2D("w");
         }
     },
     ""},
};
INSTANTIATE_TEST_SUITE_P(Mixing, CallsFromDecoders, testing::ValuesIn(Calls),
                         [](const auto& test) { return test.param.name; });

/// Reads its file after the application was called, and lets that end the sound at a seek.
class CFileStream : public CCallingStream {
public:
    CFileStream(IFileReader& file, const std::function<void()>& call,
                const std::function<void()>& atSeek)
        : CCallingStream(streamFormat(1, 20000, 44100), call),
          File(sn_internal::counted_ptr<IFileReader>::share(&file)),
          AtSeek(atSeek) {}
    bool setPosition(std::int32_t frame) override {
        AtSeek();
        return CCallingStream::setPosition(frame);
    }
    std::int32_t readFrames(void* target, std::int32_t frames) override {
        const std::int32_t got = CCallingStream::readFrames(target, frames);
        char byte = 0;
        EXPECT_TRUE(File->seek(0) && File->read(&byte, 1) == 1 && byte == 7);
        return got;
    }

private:
    const sn_internal::counted_ptr<IFileReader> File;
    const std::function<void()>& AtSeek;
};

TEST(Reentrancy, DecodersOutliveTheMemoryTheyReadAndTheSoundTheyMove) {
    const OfflineEngine engine = offlineEngine();
    std::function<void()> call = [] {}, atSeek = [] {};
    addLoader(*engine.get(), ".y",
              [&](IFileReader& file) { return new CFileStream(file, call, atSeek); });
    char file[] = {7, 7};
    ISoundSource* source = engine->addSoundSourceFromMemory(file, 2, "x.y", true);
    source->setStreamMode(E_STREAM_MODE::Streaming);
    Sound moved = playTracked(*engine.get(), source);
    ISound* const bare = moved.get();
    atSeek = [&] {
        if (moved) {
            bare->stop();
            engine->update();
            moved.reset();
        }
    };
    bare->setPlayPosition(1);
    const Sound quiet = playTracked(*engine.get(), source);
    quiet->setVolume(0);
    engine->update();
    call = [&] { quiet->setVolume(1), engine->update(), engine->removeSoundSource("x.y"); };
    rendered(*engine.get(), 8192);
    EXPECT_TRUE(quiet->isFinished());
}

TEST(Reentrancy, WhatIsStartedFromInsideComesAfterwards) {
    const OfflineEngine engine = offlineEngine();
    addFactory(*engine.get(), "x.y", {1});
    int starts = 0, opened = 0;
    const std::function<void()> call = [&] {
        ++starts;
        engine->play2D("x.y");
    };
    addLoader(*engine.get(), ".y", [&](IFileReader&) {
        const std::int32_t length = engine->getSoundSource("x.y")->getPlayLength();
        EXPECT_EQ(length, ++opened == 1 ? -1 : 0); // asked for while it is being opened
        return new CCallingStream(streamFormat(1, 10, 44100), call);
    });
    engine->getSoundSource("x.y")->setStreamMode(E_STREAM_MODE::Streaming);
    engine->play2D("x.y");
    rendered(*engine.get(), 1024);
    EXPECT_LT(starts, 1000);
    EXPECT_LT(opened, 1000);
}

TEST(Reentrancy, SourcesMayBeRemovedOrReloadedWhileTheyAreOpened) {
    for (const bool removed : {true, false}) {
        const OfflineEngine engine = offlineEngine();
        addFactory(*engine.get(), "x.y", {1});
        const std::function<void()> call = [&] {
            removed ? engine->removeSoundSource("x.y")
                    : engine->getSoundSource("x.y")->forceReloadAtNextUse();
        };
        addLoader(*engine.get(), ".y", [&](IFileReader&) {
            return new CCallingStream(streamFormat(1, 1000, 44100), call);
        });
        EXPECT_EQ(engine->addSoundSourceFromFile("x.y", E_STREAM_MODE::NoStreaming, true) ==
                      nullptr,
                  removed);
        EXPECT_EQ(engine->getSoundSource("x.y")->getPlayLength(), 22);
        Sound::adopt(engine->play2D("x.y", false, true));
        rendered(*engine.get(), 2000);
    }
}

} // namespace
