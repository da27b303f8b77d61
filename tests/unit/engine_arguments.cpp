// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/CScriptedFile.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <stdexcept>

namespace {

using namespace sn_test;
using namespace sonimbra;

const char* const NoName = nullptr;
ISoundSource* const NoSource = nullptr;
const float Absurd[] = {NAN, INFINITY, -INFINITY, FLT_MAX, -FLT_MAX, FLT_TRUE_MIN, -0.0f, 1e-20f};
const vec3df AbsurdPoints[] = {{NAN, NAN, NAN},           {INFINITY, -INFINITY, 0},
                               {FLT_MAX, FLT_MAX, 1},     {1e-30f, -1e-30f, 1e-30f},
                               {-INFINITY, NAN, FLT_MAX}, {0, FLT_TRUE_MIN, 0}};

/// What an application can create here.
class Arguments : public testing::TestWithParam<Engine (*)()> {
protected:
    ISoundEngine& engine() { return *Created.get(); }

    /// The engine's work goes on: an update, and on the offline engine sound.
    void work() {
        engine().update();
        if (auto* offline = dynamic_cast<IOfflineSoundEngine*>(Created.get())) {
            EXPECT_EQ(rendered(*offline, 300).size(), 600u);
        }
    }

    Engine Created = GetParam()();
};

TEST_P(Arguments, NullsGiveNothing) {
    EXPECT_EQ(engine().play2D(NoSource), nullptr);
    EXPECT_EQ(engine().play2D(NoName), nullptr);
    EXPECT_EQ(engine().play3D(NoSource, vec3df()), nullptr);
    EXPECT_EQ(engine().play3D(NoName, vec3df()), nullptr);
    EXPECT_EQ(engine().getSoundSource(NoName, true), nullptr);
    EXPECT_EQ(engine().getSoundSource(NoName, false), nullptr);
    EXPECT_EQ(engine().addSoundSourceFromFile(nullptr, E_STREAM_MODE::NoStreaming, true), nullptr);
    EXPECT_EQ(engine().addSoundSourceFromMemory(nullptr, 0, nullptr), nullptr);
    char byte = 0;
    EXPECT_EQ(engine().addSoundSourceFromMemory(&byte, 1, nullptr), nullptr);
    EXPECT_EQ(engine().addSoundSourceFromPCMData(nullptr, 0, nullptr, {}), nullptr);
    EXPECT_EQ(engine().addSoundSourceFromPCMData(&byte, 1, nullptr, {}), nullptr);
    EXPECT_EQ(engine().addSoundSourceAlias(nullptr, nullptr), nullptr);
    engine().removeSoundSource(NoName);
    engine().removeSoundSource(NoSource);
    EXPECT_FALSE(engine().isCurrentlyPlaying(NoSource));
    EXPECT_FALSE(engine().isCurrentlyPlaying(NoName));
    engine().registerAudioStreamLoader(nullptr);
    engine().addFileFactory(nullptr);
    EXPECT_FALSE(engine().loadPlugins(nullptr));
    EXPECT_EQ(engine().playMusic(nullptr), nullptr);
    engine().setMixedDataOutputReceiver(nullptr);
    EXPECT_EQ(engine().createDriverSound(nullptr, nullptr, true, true, 1, 2, true), nullptr);
    EXPECT_EQ(engine().createDriverStream(nullptr, nullptr, true, true, 1, 2, true), nullptr);
    engine().onSourceRemoved(nullptr);
    EXPECT_EQ(engine().getSoundSourceCount(), 0);
    work();
}

TEST_P(Arguments, AbsurdNumbersDoNoHarm) {
    ISoundSource* wave = addSquareWave(engine(), "w", 44100);
    for (const float number : Absurd) {
        engine().setSoundVolume(number);
        engine().setDefault3DSoundMinDistance(number);
        engine().setDefault3DSoundMaxDistance(number);
        engine().setRolloffFactor(number);
        engine().setDopplerEffectParameters(number, number);
        engine().setReservedFactor(number);
        wave->setDefaultVolume(number);
        wave->setDefaultMinDistance(number);
        wave->setDefaultMaxDistance(number);
        for (const vec3df& point : AbsurdPoints) {
            engine().setListenerPosition(point, point, point, point);
            engine().play3D(wave, point);
            engine().play3D(wave, vec3df(1, 2, 3), true);
            work();
        }
        engine().stopAllSounds();
    }
    for (const int mode : {-1, 3, INT32_MAX, INT32_MIN}) {
        ISoundSource* odd = engine().addSoundSourceFromFile(std::to_string(mode).c_str(),
                                                            static_cast<E_STREAM_MODE>(mode), true);
        odd->setStreamMode(static_cast<E_STREAM_MODE>(mode));
        odd->setForcedStreamingThreshold(mode);
        EXPECT_EQ(odd->getForcedStreamingThreshold(), mode);
        engine().play2D(odd);
    }
    work();
}

TEST_P(Arguments, NullsOnSources) {
    addFactory(engine(), "f", wavFile({}, countingBytes(400)));
    Bytes file = wavFile({}, countingBytes(400));
    ISoundSource* sources[] = {
        engine().addSoundSourceFromFile("f"),
        engine().addSoundSourceFromMemory(file.data(), std::int32_t(file.size()), "m"),
        addSquareWave(engine(), "p", 100),
        engine().addSoundSourceAlias(engine().getSoundSource("p"), "a"),
    };
    for (ISoundSource* source : sources) {
        source->loadNow(nullptr);
        if (IFileReader* reader = source->openFile(nullptr)) {
            EXPECT_STREQ(source->getName(), "m");
            reader->drop();
        }
        for (const float number : Absurd) {
            Sound::adopt(source->createSound(nullptr, true, true, true, number, number));
        }
        EXPECT_EQ(engine().createDriverSound(nullptr, source, true, true, 1, 2, true), nullptr);
        Sound::adopt(engine().createDriverStream(nullptr, source, true, true, 1, 2, true));
    }
    work();
}

class CThrowingFactory : public IFileFactory {
public:
    IFileReader* createFileReader(const char*) override { throw std::runtime_error("factory"); }
};

TEST_P(Arguments, CallbacksMayThrow) {
    addFactory(engine(), "x.y", {1});
    addLoader(engine(), ".y", [](IFileReader&) -> IAudioStream* { throw std::bad_alloc(); });
    const auto factory = sn_internal::counted_ptr<IFileFactory>::adopt(new CThrowingFactory);
    engine().addFileFactory(factory.get());
    for (const char* name : {"x.y", "missing"}) {
        EXPECT_EQ(engine().play2D(name, false, true), nullptr);
        EXPECT_EQ(engine().getSoundSource(name)->getPlayLength(), -1);
        engine().removeSoundSource(name);
        EXPECT_NE(engine().addSoundSourceFromFile(name, E_STREAM_MODE::NoStreaming, true), nullptr);
    }
    EXPECT_EQ(CScriptedFile::alive, 0);
    work();
}

INSTANTIATE_TEST_SUITE_P(Engines, Arguments,
                         testing::Values([] { return nullEngine(); },
                                         [] { return nullEngine(MultiThreaded); },
                                         [] { return Engine::adopt(offlineEngine().release()); }));

TEST(ArgumentsOfSounds, DoNoHarm) {
    for (const int options : {0, int(LinearRolloff)}) {
        const OfflineEngine engine = offlineEngine(options);
        ISoundSource* wave = addSquareWave(*engine.get(), "w", 44100);
        const Sound sounds[] = {
            playTracked(*engine.get(), wave, true),
            Sound::adopt(engine->play3D(wave, vec3df(1, 2, 3), true, false, true)),
        };
        for (const Sound& sound : sounds) {
            sound->setSoundStopEventReceiver(nullptr, nullptr);
            for (const float number : Absurd) {
                sound->setVolume(number);
                sound->setPan(number);
                sound->setMinDistance(number);
                sound->setMaxDistance(-number);
                EXPECT_TRUE(sound->setPlaybackSpeed(number));
                EXPECT_GE(sound->getPlaybackSpeed(), 0.01f);
                EXPECT_LE(sound->getPlaybackSpeed(), 5.0f);
                for (const vec3df& point : AbsurdPoints) {
                    sound->setPosition(point);
                    sound->setVelocity(point);
                    EXPECT_EQ(rendered(*engine.get(), 256).size(), 512u);
                }
            }
            for (const std::uint32_t position : {0u, 1u, 999u, 1000u, 0x7FFFFFFFu, UINT32_MAX}) {
                EXPECT_TRUE(sound->setPlayPosition(position));
                EXPECT_LE(sound->getPlayPosition(), 1000u);
                rendered(*engine.get(), 256);
            }
        }
        EXPECT_EQ(engine->renderFrames(nullptr, 100), 0);
        std::int16_t untouched[2] = {7, 7};
        EXPECT_EQ(engine->renderFrames(untouched, 0), 0);
        EXPECT_EQ(engine->renderFrames(untouched, INT32_MIN), 0);
        EXPECT_EQ(untouched[0], 7);
    }
}

} // namespace
