// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace sn_test;
using namespace sonimbra;

TEST(Registry, IsInTheOrderOfTheNames) {
    const Engine engine = nullEngine();
    // Characters are signed bytes, shorter names come first.
    const Lines names = {"",   "\x80",  "\xC3\xA4.wav", "./a",   "A",   "B.wav",
                         "Z",  "a",     "a\xFF",        "a\x01", "a b", "aB",
                         "ab", "b.wav", "ba",           "c:\\a", "\x7F"};
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
        engine->addSoundSourceFromFile(name->c_str());
    }
    std::int32_t index = 0;
    for (const std::string& name : names) {
        ISoundSource* source = engine->getSoundSource(index++);
        EXPECT_EQ(source->getName(), name);
        EXPECT_EQ(engine->getSoundSource(name.c_str(), true), source) << name;
    }
    EXPECT_EQ(engine->getSoundSourceCount(), index);
    EXPECT_EQ(engine->getSoundSource(-1), nullptr);
    EXPECT_EQ(engine->getSoundSource(index), nullptr);
}

TEST(Registry, RefusesNamesThatExistAndEmptyMemory) {
    const Engine engine = nullEngine();
    ISoundSource* there = engine->addSoundSourceFromFile("a.wav");
    const auto format = streamFormat(1, 2, 8000);
    char data[4] = {};
    EXPECT_EQ(loggedLinesOf([&] {
                  EXPECT_EQ(engine->addSoundSourceFromFile("a.wav"), nullptr);
                  EXPECT_EQ(engine->addSoundSourceAlias(there, "a.wav"), nullptr);
                  EXPECT_EQ(engine->addSoundSourceFromMemory(data, 4, "a.wav"), nullptr);
                  EXPECT_EQ(engine->addSoundSourceFromPCMData(data, 4, "a.wav", format), nullptr);
              }),
              Lines(4, "Cannot add sound source, it exists already: a.wav"));
    EXPECT_EQ(loggedLinesOf([&] {
                  EXPECT_EQ(engine->addSoundSourceFromMemory(data, 0, "a.wav"), nullptr);
                  EXPECT_EQ(engine->addSoundSourceFromMemory(nullptr, 4, "a.wav"), nullptr);
                  EXPECT_EQ(engine->addSoundSourceFromPCMData(data, -1, "a.wav", format), nullptr);
              }),
              Lines(3, "Cannot add sound source from empty memory: a.wav"));
    EXPECT_EQ(engine->getSoundSourceCount(), 1);
}

TEST(Registry, RemovesOnlyWhatItHas) {
    const ScriptedEngine engine = scriptedEngine();
    const Engine other = nullEngine();
    for (const char* name : {"c", "a", "b", "d"}) {
        engine->getSoundSource(name, true);
    }
    EXPECT_EQ(loggedLinesOf([&] {
                  engine->removeSoundSource("B");
                  engine->removeSoundSource(other->addSoundSourceFromFile("b"));
              }),
              Lines{"Cannot find sound source to remove: B"});
    EXPECT_EQ(engine->removedSources, "");
    engine->removeSoundSource(engine->getSoundSource("b", false)->getName());
    engine->removeAllSoundSources();
    EXPECT_EQ(engine->removedSources, "b a c d ");
    EXPECT_EQ(engine->getSoundSourceCount(), 0);
}

TEST(Registry, LetsTheApplicationKeepSources) {
    const OfflineEngine engine = offlineEngine();
    const Source wave = Source::share(addSquareWave(*engine.get(), "kept", 44100));
    const Sound sound = playTracked(*engine.get(), wave.get());
    engine->removeSoundSource(wave.get());
    EXPECT_EQ(sound->getSoundSource(), nullptr);
    EXPECT_NE(addSquareWave(*engine.get(), "kept", 10), nullptr) << "the name is free";
    engine->removeSoundSource(wave.get());
    EXPECT_EQ(engine->getSoundSourceCount(), 1) << "not that of the same name";
    EXPECT_TRUE(playTracked(*engine.get(), wave.get()));
    EXPECT_FALSE(playTracked(*offlineEngine().get(), wave.get())) << "another engine's source";
}

/// Renders more than any of these sounds has; returns the frames up to the last that is heard. The
/// resampler looks two frames ahead, so that a sound's last two are not.
std::int32_t audibleFrames(IOfflineSoundEngine& engine) {
    const std::vector<std::int16_t> output = rendered(engine, 4096);
    const auto last = std::find_if(output.rbegin(), output.rend(), [](auto s) { return s != 0; });
    return static_cast<std::int32_t>(output.rend() - last) / 2;
}

TEST(MemorySource, CopiesOrUsesTheCallersBytes) {
    for (const bool copies : {true, false}) {
        const OfflineEngine engine = offlineEngine();
        Bytes file = wavFile({}, Bytes(1200, 0x33));
        Bytes samples(1200, 0x33);
        ISoundSource* sources[] = {
            engine->addSoundSourceFromMemory(file.data(), std::int32_t(file.size()), "f", copies),
            engine->addSoundSourceFromPCMData(samples.data(), 1200, "p",
                                              streamFormat(2, 300, 44100), copies)};
        std::fill(file.end() - 1200, file.end(), std::uint8_t(0));
        std::fill(samples.begin(), samples.end(), std::uint8_t(0));
        for (ISoundSource* source : sources) {
            engine->play2D(source);
            EXPECT_EQ(audibleFrames(*engine.get()), copies ? 298 : 0);
        }
    }
}

TEST(PCMSource, TakesNoMoreFramesThanThereAre) {
    const struct {
        SAudioStreamFormat format;
        std::int32_t size, frames;
    } cases[] = {
        {streamFormat(2, 10, 44100), 400, 10},
        {streamFormat(2, 101, 44100), 403, 100},
        {streamFormat(1, 1000, 44100, 8), 256, 256},
        {streamFormat(2, 0x40000001, 44100), 400, 100}, // wraps to 4 bytes
    };
    for (const auto& c : cases) {
        const OfflineEngine engine = offlineEngine();
        Bytes block(static_cast<std::size_t>(c.size), 0x33);
        ISoundSource* source =
            engine->addSoundSourceFromPCMData(block.data(), c.size, "p", c.format);
        EXPECT_EQ(source->getAudioFormat().FrameCount, c.frames);
        engine->play2D(source);
        EXPECT_EQ(audibleFrames(*engine.get()), c.frames - 2);
    }
}

TEST(PCMSource, SurvivesAbsurdFormats) {
    for (const std::int32_t channels : {0, -1, 1, 3, 7, 0x40000001, INT32_MIN, INT32_MAX}) {
        for (const std::int32_t frames : {-1, INT32_MIN, 1, INT32_MAX}) {
            for (const std::int32_t rate : {0, -1, 1, INT32_MIN, INT32_MAX}) {
                const OfflineEngine engine = offlineEngine();
                Bytes block = countingBytes(64);
                auto format = streamFormat(channels, frames, rate);
                format.SampleFormat = static_cast<E_SAMPLE_FORMAT>(channels);
                ISoundSource* source = engine->addSoundSourceFromPCMData(
                    block.data(), 64, "p", format, frames == INT32_MAX);
                const Sound sound = playTracked(*engine.get(), source, rate < 0);
                sound->setPlayPosition(1000000);
                EXPECT_EQ(rendered(*engine.get(), 300).size(), 600u);
                sound->getPlayPosition();
                source->getPlayLength();
            }
        }
    }
}

TEST(SourceDefaults, AreLimitedOrTakenFromTheEngine) {
    const Engine engine = nullEngine();
    ISoundSource* source = engine->addSoundSourceFromFile("x");
    source->setDefaultVolume(1.5f);
    EXPECT_EQ(source->getDefaultVolume(), 1.0f);
    const struct {
        float engineMin, engineMax, own, min, max;
    } distances[] = {{5, 50, 0, 5, 50},
                     {6, 60, -1, 6, 60},
                     {7, 70, 3, 3, 3},
                     {0, 0, 0, 0, 70}, // the engine refuses an empty maximum
                     {NAN, NAN, NAN, 0, 70}};
    for (const auto& c : distances) {
        engine->setDefault3DSoundMinDistance(c.engineMin);
        engine->setDefault3DSoundMaxDistance(c.engineMax);
        source->setDefaultMinDistance(c.own);
        source->setDefaultMaxDistance(c.own);
        EXPECT_EQ(source->getDefaultMinDistance(), c.min);
        EXPECT_EQ(source->getDefaultMaxDistance(), c.max);
    }
}

class Aliases : public testing::Test {
protected:
    ISoundEngine& engine() { return *Driver.get(); }

    ScriptedEngine Driver = scriptedEngine();
    ISoundSource* Base = addSquareWave(engine(), "base", 44100);
    ISoundSource* Alias = engine().addSoundSourceAlias(Base, "alias");
};

TEST_F(Aliases, HaveVolumeAndDistancesOfTheirOwn) {
    Base->setDefaultVolume(0.5f);
    Base->setDefaultMinDistance(5);
    EXPECT_EQ(Alias->getDefaultVolume(), 1.0f);
    EXPECT_EQ(Alias->getDefaultMinDistance(), 1.0f);
    Alias->setDefaultMinDistance(2);
    EXPECT_EQ(playTracked(engine(), Alias)->getMinDistance(), 2.0f);
    EXPECT_EQ(Base->getDefaultMinDistance(), 5.0f);
}

TEST_F(Aliases, PassTheRestOn) {
    Alias->setStreamMode(E_STREAM_MODE::Streaming);
    EXPECT_EQ(Base->getStreamMode(), E_STREAM_MODE::Streaming);
    EXPECT_EQ(Alias->getPlayLength(), 1000);
    EXPECT_EQ(Alias->getSampleData(), Base->getSampleData());
    const Sound sound = playTracked(engine(), Alias);
    EXPECT_EQ(sound->getSoundSource(), Base);
    EXPECT_FALSE(engine().isCurrentlyPlaying("alias"));
    EXPECT_TRUE(engine().isCurrentlyPlaying("base"));
    engine().removeSoundSource(Alias);
    EXPECT_FALSE(sound->isFinished());
}

TEST_F(Aliases, KeepTheirBaseAlive) {
    ISoundSource* aliasOfAlias = engine().addSoundSourceAlias(Alias, "third");
    engine().removeSoundSource("base");
    engine().removeSoundSource("alias");
    const Sound after = playTracked(engine(), aliasOfAlias);
    ASSERT_TRUE(after);
    EXPECT_EQ(after->getPlayLength(), 1000);
    engine().removeSoundSource(aliasOfAlias); // and with it the base
    EXPECT_TRUE(after->isFinished());
}

} // namespace
