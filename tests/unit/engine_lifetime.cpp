// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/CScriptedFile.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <new>
#include <numeric>

namespace {

using namespace sn_test;
using namespace sonimbra;

const float Absurd[] = {NAN, INFINITY, -INFINITY, FLT_MAX, -FLT_MAX, FLT_TRUE_MIN, -0.0f};
TEST(Arguments, NullsGiveNothing) {
    const char* const noName = nullptr;
    ISoundSource* const noSource = nullptr;
    char byte = 0;
    const Engine engine = nullEngine();
    EXPECT_EQ(engine->play2D(noSource), nullptr);
    EXPECT_EQ(engine->getSoundSource(noName, true), nullptr);
    EXPECT_EQ(engine->addSoundSourceFromFile(nullptr), nullptr);
    EXPECT_EQ(engine->addSoundSourceFromMemory(&byte, 1, nullptr), nullptr);
    EXPECT_EQ(engine->addSoundSourceFromPCMData(&byte, 1, nullptr, {}), nullptr);
    EXPECT_EQ(engine->addSoundSourceAlias(nullptr, nullptr), nullptr);
    engine->removeSoundSource(noSource);
    EXPECT_FALSE(engine->isCurrentlyPlaying(noSource));
    EXPECT_FALSE(engine->isCurrentlyPlaying(noName));
    engine->registerAudioStreamLoader(nullptr);
    engine->addFileFactory(nullptr);
    EXPECT_FALSE(engine->loadPlugins(nullptr));
    EXPECT_EQ(engine->getSoundSourceCount(), 0);
    EXPECT_EQ(offlineEngine()->renderFrames(nullptr, 100), 0);
}

TEST(Arguments, AbsurdNumbersDoNoHarm) {
    const OfflineEngine engine = offlineEngine();
    ISoundSource* wave = addSquareWave(*engine.get(), "w", 44100);
    const Sound sound = Sound::adopt(engine->play3D(wave, vec3df(1, 2, 3), true, false, true));
    for (const float number : Absurd) {
        engine->setSoundVolume(number);
        engine->setRolloffFactor(number);
        sound->setVolume(number);
        sound->setPan(number);
        sound->setMinDistance(number);
        sound->setMaxDistance(-number);
        EXPECT_TRUE(sound->setPlaybackSpeed(number));
        EXPECT_GE(sound->getPlaybackSpeed(), 0.01f);
        EXPECT_LE(sound->getPlaybackSpeed(), 5.0f);
        for (const vec3df& point : {vec3df(number, number, 1), vec3df(number, 0, -number)}) {
            engine->setListenerPosition(point, point, point, point);
            sound->setPosition(point);
            EXPECT_EQ(rendered(*engine.get(), 300).size(), 600u);
        }
    }
    for (const std::uint32_t position : {0u, 999u, 1000u, 0x7FFFFFFFu, UINT32_MAX}) {
        EXPECT_TRUE(sound->setPlayPosition(position));
        EXPECT_LE(sound->getPlayPosition(), 1000u);
    }
}

/// One of everything that an application can hold, each to be let go on its own.
struct SHoldings {
    SHoldings() {
        addFactory(*engine.get(), "f.own", {1, 2, 3});
        addLoader(*engine.get(), ".own",
                  [](IFileReader&) { return createRampStream(streamFormat(2, 5000, 22050)); });
        sources[0] = Source::share(addSquareWave(*engine.get(), "base", 5000));
        sources[1] = Source::share(engine->addSoundSourceAlias(sources[0].get(), "alias"));
        sources[2] =
            Source::share(engine->addSoundSourceFromFile("f.own", E_STREAM_MODE::Streaming));
        for (int i = 0; i < 2; ++i) {
            sounds[i] = playTracked(*engine.get(), sources[1 + i].get(), true);
            sounds[i]->setSoundStopEventReceiver(&events);
        }
        events.action = [raw = engine.get()](ISound*) { // the whole engine must still be there
            EXPECT_EQ(rendered(*raw, 300).size(), 600u);
        };
    }

    void letGo(int which) {
        if (which == 0) {
            engine.reset();
        } else if (which <= 3) {
            sources[which - 1].reset();
        } else {
            sounds[which - 4].reset();
        }
    }

    /// Whatever is still held answers.
    void use() {
        for (const Source& source : sources) {
            if (source) {
                source->getPlayLength();
                source->forceReloadAtNextUse();
            }
        }
        for (const Sound& sound : sounds) {
            if (sound) {
                sound->setPosition(vec3df(1, 2, 3));
                EXPECT_EQ(sound->isFinished(), !engine);
                EXPECT_EQ(sound->getSoundSource() == nullptr, !engine);
                EXPECT_EQ(sound->setPlayPosition(10), bool(engine));
            }
        }
    }

    CStopEvents events;
    Source sources[3]; ///< a base, its alias, a file that is streamed
    Sound sounds[2];   ///< of the alias and of the file
    OfflineEngine engine = offlineEngine();
};

TEST(Lifetime, EverythingMayGoInAnyOrder) {
    int order[6];
    std::iota(std::begin(order), std::end(order), 0);
    do {
        SHoldings holdings;
        for (const int which : order) {
            holdings.letGo(which);
            holdings.use();
        }
        ASSERT_EQ(holdings.events.causes(), "22");
        ASSERT_EQ(CScriptedStream::alive, 0);
    } while (std::next_permutation(std::begin(order), std::end(order)));
}

TEST(Arguments, CallbacksMayThrow) {
    const Engine engine = nullEngine();
    addFactory(*engine.get(), "x.y", {1});
    addLoader(*engine.get(), ".y", [](IFileReader&) -> IAudioStream* { throw std::bad_alloc(); });
    EXPECT_EQ(engine->play2D("x.y", false, true), nullptr);
    EXPECT_EQ(CScriptedFile::alive, 0);
}

} // namespace
