// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace {

using namespace sn_test;
using namespace sonimbra;

/// The order of the names, written out on its own: characters as signed bytes, shorter names first.
struct SNameOrder {
    bool operator()(const std::string& a, const std::string& b) const {
        const std::vector<signed char> x(a.begin(), a.end());
        return x < std::vector<signed char>(b.begin(), b.end());
    }
};
using SourcesByName = std::map<std::string, ISoundSource*, SNameOrder>;

testing::AssertionResult holdsExactly(ISoundEngine& engine, const SourcesByName& expected) {
    std::int32_t index = 0;
    for (const auto& [name, source] : expected) {
        ISoundSource* found = engine.getSoundSource(index++);
        if (found != source || source->getName() != name ||
            engine.getSoundSource(name.c_str(), false) != source) {
            return testing::AssertionFailure() << "at " << name;
        }
    }
    return testing::AssertionResult(engine.getSoundSourceCount() == index);
}

TEST(Registry, IsInTheOrderOfTheNames) {
    const Engine engine = nullEngine();
    SourcesByName expected;
    for (const char* name : {"b.wav", "B.wav", "a", "ab", "a b", "aB", "", "Z", "z", "\xC3\xA4.wav",
                             "a\xFF", "a\x01", "\x7F", "\x80", "./a", "c:\\a", "A", "ba", "abc"}) {
        expected[name] = engine->addSoundSourceFromFile(name);
        EXPECT_TRUE(holdsExactly(*engine.get(), expected));
    }
    EXPECT_STREQ(engine->getSoundSource(0)->getName(), "");
    EXPECT_STREQ(engine->getSoundSource(1)->getName(), "\x80");
    for (const std::int32_t outside : {-1, 19, 20, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(engine->getSoundSource(outside), nullptr) << outside;
    }
}

TEST(Registry, KeepsTenThousandNames) {
    const Engine engine = nullEngine();
    std::minstd_rand random(7);
    SourcesByName expected;
    while (expected.size() < 10000) {
        std::string name(random() % 7, ' ');
        std::generate(name.begin(), name.end(),
                      [&] { return "aAbB\x01\x7F\x80\xFF"[random() % 8]; });
        if (!expected.contains(name)) {
            expected[name] = engine->addSoundSourceFromFile(name.c_str());
        }
        EXPECT_EQ(engine->addSoundSourceFromFile(name.c_str()), nullptr);
    }
    ASSERT_TRUE(holdsExactly(*engine.get(), expected));
    for (auto it = expected.begin(); it != expected.end();) {
        if (random() % 2 == 0) {
            ++it;
            continue;
        }
        random() % 2 == 0 ? engine->removeSoundSource(it->second)
                          : engine->removeSoundSource(it->first.c_str());
        it = expected.erase(it);
    }
    EXPECT_TRUE(holdsExactly(*engine.get(), expected));
}

/// The ways of adding a source. Memory is a buffer of 4 bytes or what a test says.
class Additions : public testing::Test {
protected:
    ISoundSource* add(int way, const char* name) { return add(way, name, Data, 4); }
    ISoundSource* add(int way, const char* name, void* memory, std::int32_t size) {
        switch (way) {
        case 0:
            return Driver->addSoundSourceFromMemory(memory, size, name);
        case 1:
            return Driver->addSoundSourceFromPCMData(memory, size, name, streamFormat(1, 2, 8000));
        case 2:
            return Driver->addSoundSourceAlias(There, name);
        default:
            return Driver->addSoundSourceFromFile(name);
        }
    }

    Engine Driver = nullEngine();
    ISoundSource* There = Driver->addSoundSourceFromFile("a.wav");
    char Data[4] = {};
};

TEST_F(Additions, RefuseNamesThatExist) {
    for (int way = 0; way < 4; ++way) {
        EXPECT_EQ(loggedLinesOf([&] { EXPECT_EQ(add(way, "a.wav"), nullptr); }),
                  Lines{"Cannot add sound source, it exists already: a.wav"});
        EXPECT_EQ(loggedLinesOf([&] { EXPECT_NE(add(way, "A.wav"), nullptr); }), Lines{});
        Driver->removeSoundSource("A.wav");
        EXPECT_EQ(Driver->getSoundSourceCount(), 1);
    }
}

TEST_F(Additions, RefuseEmptyMemory) {
    const struct {
        void* memory;
        std::int32_t size;
    } cases[] = {{nullptr, 4}, {Data, 0}, {Data, -1}, {Data, INT32_MIN}};
    for (const auto& c : cases) {
        for (const char* name : {"new", "a.wav"}) {
            const Lines line{std::string("Cannot add sound source from empty memory: ") + name};
            for (int way = 0; way < 2; ++way) {
                EXPECT_EQ(
                    loggedLinesOf([&] { EXPECT_EQ(add(way, name, c.memory, c.size), nullptr); }),
                    line);
            }
        }
    }
    EXPECT_EQ(Driver->getSoundSourceCount(), 1);
}

TEST(Registry, LookUpsAddFilesWhenAsked) {
    const Engine engine = nullEngine();
    EXPECT_EQ(engine->getSoundSource("x.wav", false), nullptr);
    EXPECT_EQ(engine->getSoundSourceCount(), 0);
    ISoundSource* added = engine->getSoundSource("x.wav", true);
    EXPECT_EQ(added->getStreamMode(), E_STREAM_MODE::AutoDetect);
    EXPECT_EQ(engine->getSoundSource("x.wav", true), added);
    EXPECT_EQ(engine->getSoundSource("X.wav", false), nullptr);
    EXPECT_EQ(engine->getSoundSourceCount(), 1);
}

TEST(Registry, RemovesOnlyWhatItHas) {
    const ScriptedEngine engine = scriptedEngine();
    const Engine other = nullEngine();
    ISoundSource* foreign = other->addSoundSourceFromFile("b");
    for (const char* name : {"c", "a", "b", "d"}) {
        engine->getSoundSource(name, true);
    }
    EXPECT_EQ(
        loggedLinesOf([&] {
            engine->removeSoundSource("B");
            engine->removeSoundSource(foreign);
            engine->removeSoundSource(static_cast<ISoundSource*>(nullptr));
            engine->removeSoundSource(static_cast<const char*>(nullptr));
            engine->removeSoundSource("");
        }),
        (Lines{"Cannot find sound source to remove: B", "Cannot find sound source to remove: "}));
    EXPECT_EQ(engine->removedSources, "");
    engine->removeSoundSource(engine->getSoundSource("b", false)->getName());
    EXPECT_EQ(engine->getSoundSourceCount(), 3);
    engine->addSoundSourceFromFile("0", E_STREAM_MODE::Streaming, false);
    engine->removeAllSoundSources();
    EXPECT_EQ(engine->removedSources, "b 0 a c d ");
    EXPECT_EQ(engine->getSoundSourceCount(), 0);
    EXPECT_EQ(other->getSoundSourceCount(), 1);
}

TEST(Registry, LetsTheApplicationKeepSources) {
    OfflineEngine engine = offlineEngine();
    addFactory(*engine.get(), "x.wav", wavFile({}, countingBytes(400)));
    ISoundSource* wave = addSquareWave(*engine.get(), "kept", 44100);
    ISoundSource* unopened = engine->addSoundSourceFromFile("x.wav");
    const Source references[] = {Source::share(wave), Source::share(unopened)};
    const Sound before = playTracked(*engine.get(), wave);
    engine->removeSoundSource(wave);
    EXPECT_EQ(before->getSoundSource(), nullptr);
    EXPECT_NE(addSquareWave(*engine.get(), "kept", 10), nullptr) << "the name is free";
    EXPECT_TRUE(playTracked(*engine.get(), wave));
    engine->removeSoundSource(wave);
    EXPECT_EQ(engine->getSoundSourceCount(), 2) << "not that of the same name";
    const Sound after = playTracked(*engine.get(), wave);
    EXPECT_EQ(after->getSoundSource(), wave) << "it plays as long as there is the engine";

    engine.reset();
    EXPECT_EQ(after->getSoundSource(), nullptr);
    EXPECT_TRUE(after->isFinished());
    EXPECT_STREQ(wave->getName(), "kept");
    EXPECT_EQ(wave->getPlayLength(), 1000);
    EXPECT_NE(wave->getSampleData(), nullptr);
    EXPECT_EQ(wave->createSound(nullptr, false, false, false, 1, 2), nullptr);
    EXPECT_EQ(wave->getDefaultMinDistance(), 1.0f);
    EXPECT_EQ(wave->getDefaultMaxDistance(), 1000000000.0f);
    unopened->loadNow(nullptr);
    EXPECT_EQ(unopened->getPlayLength(), -1);
    EXPECT_EQ(unopened->getAudioFormat().ChannelCount, 0);
    EXPECT_EQ(unopened->getSampleData(), nullptr);
    EXPECT_EQ(nullEngine()->addSoundSourceAlias(wave, "alias"), nullptr);
}

} // namespace
