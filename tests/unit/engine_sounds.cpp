// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"

#include <gtest/gtest.h>

namespace {

using namespace sn_test;
using namespace sonimbra;

/// Gives every parameter of a sound a value of its own.
void setAll(ISound& sound, float seed) {
    sound.setIsPaused(seed < 0);
    sound.setVolume(seed);
    sound.setPan(seed + 1);
    sound.setIsLooped(seed > 0);
    sound.setMinDistance(seed + 2);
    sound.setMaxDistance(seed + 3);
    sound.setPosition(vec3df(seed, seed + 4, seed + 5));
    sound.setVelocity(vec3df(seed, seed + 6, seed + 7));
}

void expectAll(ISound& sound, float seed) {
    EXPECT_EQ(sound.getIsPaused(), seed < 0);
    EXPECT_EQ(sound.getVolume(), seed) << "not clamped";
    EXPECT_EQ(sound.getPan(), seed + 1);
    EXPECT_EQ(sound.isLooped(), seed > 0);
    EXPECT_EQ(sound.getMinDistance(), seed + 2);
    EXPECT_EQ(sound.getMaxDistance(), seed + 3);
    EXPECT_EQ(sound.getPosition(), vec3df(seed, seed + 4, seed + 5));
    EXPECT_EQ(sound.getVelocity(), vec3df(seed, seed + 6, seed + 7));
}

/// After setAll with a seed above 0: what is left of a sound whose source has gone.
void expectCutOff(ISound& sound, float seed) {
    CStopEvents events;
    setAll(sound, -50);
    sound.stop();
    sound.setSoundStopEventReceiver(&events);
    EXPECT_EQ(sound.getSoundSource(), nullptr);
    EXPECT_EQ(sound.getVolume(), 0.0f);
    EXPECT_FALSE(sound.isLooped());
    EXPECT_TRUE(sound.isFinished());
    EXPECT_EQ(sound.getPosition(), vec3df());
    EXPECT_EQ(sound.getVelocity(), vec3df());
    EXPECT_EQ(sound.getPlayLength(), 0);
    EXPECT_FALSE(sound.getIsPaused());
    EXPECT_EQ(sound.getPan(), seed + 1);
    EXPECT_EQ(sound.getMinDistance(), seed + 2);
    EXPECT_EQ(sound.getMaxDistance(), seed + 3);
    EXPECT_EQ(sound.getPlayPosition(), UINT32_MAX);
    EXPECT_FALSE(sound.setPlayPosition(0));
    EXPECT_FALSE(sound.setPlaybackSpeed(2));
    EXPECT_EQ(sound.getPlaybackSpeed(), 1.0f);
    EXPECT_EQ(sound.getSoundEffectControl(), nullptr);
    EXPECT_TRUE(events.events.empty());
}

/// An engine kind, with a sound that it keeps and one that only the application holds.
struct SStage {
    Engine engine;
    Sound sounds[2];
};

SStage stageOf(Engine engine) {
    SStage stage = {std::move(engine), {}};
    ISoundSource* wave = addSquareWave(*stage.engine.get(), "wave", 44100);
    stage.sounds[0] = playTracked(*stage.engine.get(), wave);
    stage.sounds[1] = Sound::adopt(wave->createSound(nullptr, false, false, false, 1, 2));
    return stage;
}

template <class F>
void onEachKind(F&& test) {
    test(stageOf(Engine::adopt(scriptedEngine().release())));
    test(stageOf(Engine::adopt(offlineEngine().release())));
}

TEST(Sounds, KeepWhatTheyAreTold) {
    onEachKind([](SStage stage) {
        for (const Sound& sound : stage.sounds) {
            EXPECT_STREQ(sound->getSoundSource()->getName(), "wave");
            EXPECT_EQ(sound->getPlayLength(), 1000);
            for (const float seed : {0.5f, -3.0f, 1e30f, 0.0f}) {
                setAll(*sound.get(), seed);
                expectAll(*sound.get(), seed);
            }
            sound->stop();
            EXPECT_TRUE(sound->isFinished());
            setAll(*sound.get(), 2);
            expectAll(*sound.get(), 2); // a stopped sound still has its source
        }
    });
}

TEST(Sounds, AreCutOffWhenTheirSourceGoes) {
    const std::function<void(Engine&)> removals[] = {
        [](Engine& engine) { engine->removeSoundSource("wave"); },
        [](Engine& engine) { engine->removeAllSoundSources(); },
        [](Engine& engine) { engine.reset(); },
    };
    for (const auto& remove : removals) {
        onEachKind([&](SStage stage) {
            for (const Sound& sound : stage.sounds) {
                setAll(*sound.get(), 3);
            }
            remove(stage.engine);
            for (const Sound& sound : stage.sounds) {
                expectCutOff(*sound.get(), 3);
            }
        });
    }
    EXPECT_EQ(CScriptedSound::alive, 0);
}

TEST(Sounds, CallTheDriverWhenPausingChanges) {
    const ScriptedEngine engine = scriptedEngine();
    const Sound sound =
        Sound::adopt(static_cast<ISoundEngine&>(*engine.get())
                         .play2D(addSquareWave(*engine.get(), "w", 100), false, true));
    std::string& calls = engine->sounds.back()->calls;
    const struct {
        bool paused;
        const char* calls;
    } steps[] = {{true, ""}, {false, "listener play "}, {false, ""}, {true, "stop "}, {true, ""}};
    for (const auto& step : steps) {
        calls.clear();
        sound->setIsPaused(step.paused);
        EXPECT_EQ(calls, step.calls);
        EXPECT_EQ(sound->getIsPaused(), step.paused);
    }
    sound->stop();
    EXPECT_EQ(calls, "release ");
    EXPECT_EQ(sound->getPlayPosition(), UINT32_MAX) << "drivers may leave these out";
    EXPECT_FALSE(sound->setPlayPosition(0));
    EXPECT_FALSE(sound->setPlaybackSpeed(2));
    EXPECT_EQ(sound->getPlaybackSpeed(), 1.0f);
    EXPECT_EQ(sound->getSoundEffectControl(), nullptr);
}

} // namespace
