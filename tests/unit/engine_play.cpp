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

struct SFlags {
    bool looped, startPaused, track, effects;
};

const vec3df Place(1, 2, 3);

/// By source or by name, without or with a place.
ISound* play(ISoundEngine& engine, ISoundSource* source, int operation, const SFlags& f) {
    const E_STREAM_MODE unused = E_STREAM_MODE::Streaming;
    switch (operation) {
    case 0:
        return engine.play2D(source, f.looped, f.startPaused, f.track, f.effects);
    case 1:
        return engine.play2D("Wave", f.looped, f.startPaused, f.track, unused, f.effects);
    case 2:
        return engine.play3D(source, Place, f.looped, f.startPaused, f.track, f.effects);
    default:
        return engine.play3D("Wave", Place, f.looped, f.startPaused, f.track, unused, f.effects);
    }
}

TEST_F(Playing, ReturnsTheSoundWhenAsked) {
    Wave->setDefaultVolume(0.5f);
    Wave->setDefaultMinDistance(3);
    Wave->setDefaultMaxDistance(30);
    for (int bits = 0; bits < 64; ++bits) {
        const bool is3D = bits % 4 >= 2;
        const SFlags f = {(bits & 4) != 0, (bits & 8) != 0, (bits & 16) != 0, (bits & 32) != 0};
        SCOPED_TRACE(bits);
        const Sound sound = Sound::adopt(play(engine(), Wave, bits % 4, f));
        EXPECT_EQ(bool(sound), f.startPaused || f.track || f.effects);
        EXPECT_TRUE(!sound || sound.get() == &newest());
        const SDriverRequest& request = Driver->requests.back();
        EXPECT_EQ(request.source, Wave);
        EXPECT_FALSE(request.isStream);
        EXPECT_EQ(request.looped, f.looped);
        EXPECT_EQ(request.is3D, is3D);
        EXPECT_EQ(request.enableSoundEffects, f.effects);
        EXPECT_EQ(request.minDistance, 3.0f);
        EXPECT_EQ(request.maxDistance, 30.0f);
        EXPECT_EQ(newest().getIsPaused(), f.startPaused);
        EXPECT_EQ(newest().calls, f.startPaused ? "listener " : "listener listener play ");
        EXPECT_EQ(newest().getVolume(), 0.5f);
        EXPECT_EQ(newest().getPosition(), is3D ? Place : vec3df());
        EXPECT_EQ(newest().isLooped(), f.looped);
    }
    EXPECT_EQ(CScriptedSound::alive, 64) << "the engine holds them all";
    engine().stopAllSounds();
    EXPECT_EQ(CScriptedSound::alive, 0);
}

TEST_F(Playing, IsKnownUntilReaped) {
    EXPECT_FALSE(engine().isCurrentlyPlaying(Wave));
    const Sound sound = Sound::adopt(engine().play2D(Wave, false, true));
    for (const bool finished : {false, true}) {
        newest().finished = finished;
        EXPECT_TRUE(engine().isCurrentlyPlaying(Wave));
        EXPECT_TRUE(engine().isCurrentlyPlaying("Wave"));
        EXPECT_FALSE(engine().isCurrentlyPlaying("wave"));
        EXPECT_FALSE(engine().isCurrentlyPlaying("Wav"));
    }
    engine().update();
    EXPECT_FALSE(engine().isCurrentlyPlaying(Wave));
    EXPECT_FALSE(engine().isCurrentlyPlaying("Wave"));
    EXPECT_EQ(newest().calls, "listener release ");
}

TEST_F(Playing, NeedsADriverThatMakesSounds) {
    Driver->makesSounds = false;
    EXPECT_FALSE(playTracked(engine(), Wave));
    EXPECT_FALSE(engine().isCurrentlyPlaying(Wave));
    const Engine null = nullEngine();
    ISoundSource* source = addSquareWave(*null.get(), "w", 44100);
    EXPECT_FALSE(playTracked(*null.get(), source));
    EXPECT_FALSE(null->isCurrentlyPlaying("w"));
    EXPECT_EQ(source->getPlayLength(), 1000);
    EXPECT_FALSE(playTracked(*offlineEngine().get(), Wave)) << "another engine's source";
}

TEST_F(Playing, StartsNothingWhileShuttingDown) {
    const Sound before = playTracked(engine(), Wave);
    Driver->beginShutDown();
    for (int operation = 0; operation < 4; ++operation) {
        EXPECT_EQ(play(engine(), Wave, operation, {false, true, true, true}), nullptr);
    }
    EXPECT_EQ(Driver->requests.size(), 1u);
    EXPECT_FALSE(before->isFinished());
}

TEST_F(Playing, TellsSoundsAboutTheListener) {
    const Sound sound = playTracked(engine(), Wave);
    newest().calls.clear();
    engine().setListenerPosition(vec3df(1, 2, 3), vec3df(4, 5, 6), vec3df(7, 8, 9),
                                 vec3df(10, 11, 12));
    EXPECT_EQ(newest().calls, "") << "it waits for the next update";
    const struct {
        float set, used;
    } rolloffs[] = {{12, 10},       {10, 10}, {-1, 0}, {0, 0},        {0.5f, 0.5f},
                    {INFINITY, 10}, {NAN, 0}, {3, 3},  {-INFINITY, 0}};
    for (const auto& rolloff : rolloffs) {
        engine().setRolloffFactor(rolloff.set);
        engine().update();
        EXPECT_EQ(newest().relation.rolloffFactor, rolloff.used) << rolloff.set;
    }
    EXPECT_EQ(newest().relation.position, vec3df(1, 2, 3));
    EXPECT_EQ(newest().relation.lookDirection, vec3df(4, 5, 6));
    EXPECT_EQ(newest().relation.upVector, vec3df(10, 11, 12));
    EXPECT_TRUE(newest().relation.linearRolloff);
    engine().setListenerPosition(vec3df(0, 0, 1), vec3df(0, 1, 0));
    engine().update();
    EXPECT_EQ(newest().relation.upVector, vec3df(0, 1, 0)) << "the default";
    const ScriptedEngine other = scriptedEngine(int(~LinearRolloff & 0xFF));
    EXPECT_FALSE(listenerRelationOf(*other.get()).linearRolloff);
}

TEST_F(Playing, UpdatesAtOnceWhenTheVolumeChanges) {
    const Sound sound = playTracked(engine(), Wave);
    newest().calls.clear();
    const struct {
        float volume;
        const char* calls;
    } cases[] = {{1.0f, ""},           {0.5f, "listener "}, {0.5f, ""},
                 {-2.0f, "listener "}, {7.0f, "listener "}, {1.0f, "listener "}};
    for (const auto& c : cases) {
        engine().setSoundVolume(c.volume);
        EXPECT_EQ(newest().calls, c.calls) << c.volume;
        EXPECT_EQ(newest().relation.globalVolume, c.volume);
        EXPECT_EQ(engine().getSoundVolume(), c.volume);
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
    EXPECT_TRUE(engine().isCurrentlyPlaying("w"));
    engine().updateDriver();
    EXPECT_EQ(newest().calls, "release ");
    EXPECT_FALSE(engine().isCurrentlyPlaying("w"));
}

TEST_F(Playing, PausesAllSounds) {
    const Sound first = playTracked(engine(), Wave);
    const Sound second = Sound::adopt(engine().play3D(Wave, vec3df(), false, true));
    for (CScriptedSound* sound : Driver->sounds) {
        sound->calls.clear();
    }
    engine().setAllSoundsPaused();
    EXPECT_TRUE(first->getIsPaused() && second->getIsPaused());
    engine().setAllSoundsPaused(false);
    EXPECT_FALSE(first->getIsPaused() || second->getIsPaused());
    EXPECT_EQ(Driver->sounds[0]->calls, "stop listener play ");
    EXPECT_EQ(Driver->sounds[1]->calls, "listener play ");
}

} // namespace
