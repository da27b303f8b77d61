// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace sn_test;
using namespace sonimbra;

class Playing : public testing::Test {
protected:
    ISoundEngine& engine() { return *Driver.get(); }
    CScriptedSound& newest() { return *Driver->sounds.back(); }

    ScriptedEngine Driver = scriptedEngine(LinearRolloff);
    ISoundSource* Wave = addSquareWave(engine(), "Wave", 1000);
};

const vec3df Place(1, 2, 3);

/// By source or by name, without or with a place.
ISound* play(ISoundEngine& engine, ISoundSource* source, int operation, bool looped,
             bool startPaused, bool track, bool effects) {
    const E_STREAM_MODE unused = E_STREAM_MODE::Streaming;
    switch (operation) {
    case 0:
        return engine.play2D(source, looped, startPaused, track, effects);
    case 1:
        return engine.play2D("Wave", looped, startPaused, track, unused, effects);
    case 2:
        return engine.play3D(source, Place, looped, startPaused, track, effects);
    default:
        return engine.play3D("Wave", Place, looped, startPaused, track, unused, effects);
    }
}

TEST_F(Playing, ReturnsTheSoundWhenAsked) {
    Wave->setDefaultVolume(0.5f);
    Wave->setDefaultMinDistance(3);
    Wave->setDefaultMaxDistance(30);
    for (int bits = 0; bits < 64; ++bits) {
        const bool is3D = bits % 4 >= 2;
        const bool looped = (bits & 4) != 0, startPaused = (bits & 8) != 0;
        const bool track = (bits & 16) != 0, effects = (bits & 32) != 0;
        SCOPED_TRACE(bits);
        const Sound sound =
            Sound::adopt(play(engine(), Wave, bits % 4, looped, startPaused, track, effects));
        EXPECT_EQ(bool(sound), startPaused || track || effects);
        EXPECT_TRUE(!sound || sound.get() == &newest());
        EXPECT_EQ(Driver->requests.back(),
                  (SDriverRequest{Wave, false, 1000, looped, is3D, effects, 3, 30}));
        EXPECT_EQ(newest().getIsPaused(), startPaused);
        EXPECT_EQ(newest().calls, startPaused ? "listener " : "listener listener play ");
        EXPECT_EQ(newest().getVolume(), 0.5f);
        EXPECT_EQ(newest().getPosition(), is3D ? Place : vec3df());
    }
    EXPECT_EQ(CScriptedSound::alive, 64) << "the engine holds them all";
    engine().stopAllSounds();
    EXPECT_EQ(CScriptedSound::alive, 0);
}

TEST_F(Playing, TellsSoundsAboutTheListener) {
    const Sound sound = playTracked(engine(), Wave);
    newest().calls.clear();
    engine().setListenerPosition({1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 11, 12});
    EXPECT_EQ(newest().calls, "") << "it waits for the next update";
    const struct {
        float set, used;
    } rolloffs[] = {{12, 10}, {-1, 0}, {0.5f, 0.5f}, {INFINITY, 10}, {NAN, 0}};
    for (const auto& rolloff : rolloffs) {
        engine().setRolloffFactor(rolloff.set);
        engine().update();
        EXPECT_EQ(newest().relation,
                  (SListenerRelation{1, {1, 2, 3}, {4, 5, 6}, {10, 11, 12}, true, rolloff.used}));
    }
}

TEST_F(Playing, UpdatesAtOnceWhenTheVolumeChanges) {
    const Sound sound = playTracked(engine(), Wave);
    newest().calls.clear();
    const struct {
        float volume;
        const char* calls;
    } cases[] = {{1, ""}, {0.5f, "listener "}, {0.5f, ""}, {-2, "listener "}};
    for (const auto& c : cases) {
        engine().setSoundVolume(c.volume);
        EXPECT_EQ(newest().calls, c.calls) << c.volume;
        EXPECT_EQ(newest().relation.globalVolume, c.volume);
        newest().calls.clear();
    }
    newest().finished = true;
    engine().setSoundVolume(0.1f);
    EXPECT_FALSE(engine().isCurrentlyPlaying(Wave)) << "a whole update ran";
}

TEST_F(Playing, UpdatesByItselfWhenMultiThreaded) {
    Driver = scriptedEngine(MultiThreaded);
    const Sound sound = playTracked(engine(), addSquareWave(engine(), "w", 10));
    newest().calls.clear();
    newest().finished = true;
    engine().update();
    engine().setSoundVolume(0.5f);
    EXPECT_EQ(newest().calls, "") << "not on this thread";
    engine().updateDriver();
    EXPECT_EQ(newest().calls, "release ");
}

TEST_F(Playing, CallsTheDriverWhenPausingChanges) {
    const Sound first = playTracked(engine(), Wave);
    const Sound second = Sound::adopt(engine().play3D(Wave, vec3df(), false, true));
    for (CScriptedSound* sound : Driver->sounds) {
        sound->calls.clear();
    }
    for (const bool paused : {true, true, false, false}) {
        engine().setAllSoundsPaused(paused);
        EXPECT_EQ(first->getIsPaused(), paused);
        EXPECT_EQ(second->getIsPaused(), paused);
    }
    EXPECT_EQ(Driver->sounds[0]->calls, "stop listener play ");
    EXPECT_EQ(Driver->sounds[1]->calls, "listener play ");
}

TEST_F(Playing, SoundsAreCutOffWhenTheirSourceGoes) {
    const OfflineEngine offline = offlineEngine();
    const Sound sound = playTracked(*offline.get(), addSquareWave(*offline.get(), "w", 44100));
    sound->setVolume(2);
    sound->setPan(0.5f);
    sound->setPosition(Place);
    offline->removeAllSoundSources();
    sound->setPan(-0.5f);
    EXPECT_EQ(sound->getSoundSource(), nullptr);
    EXPECT_TRUE(sound->isFinished());
    EXPECT_EQ(sound->getVolume(), 0.0f);
    EXPECT_EQ(sound->getPan(), 0.5f);
    EXPECT_EQ(sound->getPosition(), vec3df());
    EXPECT_EQ(sound->getPlayLength(), 0);
    EXPECT_EQ(sound->getPlayPosition(), UINT32_MAX);
}

} // namespace
