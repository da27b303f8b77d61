// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

namespace {

using namespace sn_test;
using namespace sonimbra;

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
    Base->setDefaultMaxDistance(50);
    EXPECT_STREQ(Alias->getName(), "alias");
    EXPECT_EQ(Alias->getDefaultVolume(), 1.0f);
    EXPECT_EQ(Alias->getDefaultMinDistance(), 1.0f);
    EXPECT_EQ(Alias->getDefaultMaxDistance(), 1000000000.0f);
    Alias->setDefaultVolume(0.25f);
    Alias->setDefaultMinDistance(2);
    Alias->setDefaultMaxDistance(20);
    EXPECT_EQ(Base->getDefaultVolume(), 0.5f);
    EXPECT_EQ(Base->getDefaultMinDistance(), 5.0f);
    EXPECT_EQ(Base->getDefaultMaxDistance(), 50.0f);

    const Sound sound = Sound::adopt(engine().play3D(Alias, vec3df(1, 2, 3), true, false, true));
    EXPECT_EQ(sound->getVolume(), 0.25f);
    EXPECT_EQ(sound->getMinDistance(), 2.0f);
    EXPECT_EQ(sound->getMaxDistance(), 20.0f);
}

TEST_F(Aliases, PassTheRestOn) {
    Alias->setStreamMode(E_STREAM_MODE::Streaming);
    EXPECT_EQ(Base->getStreamMode(), E_STREAM_MODE::Streaming);
    EXPECT_EQ(Alias->getStreamMode(), E_STREAM_MODE::Streaming);
    Alias->setForcedStreamingThreshold(77);
    EXPECT_EQ(Base->getForcedStreamingThreshold(), 77);
    EXPECT_EQ(Alias->getForcedStreamingThreshold(), 77);
    EXPECT_EQ(Alias->getPlayLength(), 1000);
    EXPECT_EQ(Alias->getAudioFormat().FrameCount, 44100);
    EXPECT_EQ(Alias->getSampleData(), Base->getSampleData());

    CScriptedFactory* files = addFactory(engine(), "f.one", {});
    addLoader(engine(), ".one", [](IFileReader&) {
        CScriptedStream* stream = createRampStream(streamFormat(1, 10, 8000));
        stream->seekingSupported = false;
        return stream;
    });
    ISoundSource* file = engine().addSoundSourceFromFile("f.one");
    ISoundSource* alias = engine().addSoundSourceAlias(file, "second");
    EXPECT_FALSE(alias->getIsSeekingSupported());
    EXPECT_NE(file->getSampleData(), nullptr);
    alias->forceReloadAtNextUse();
    engine().play2D(alias);
    EXPECT_EQ(files->journal, (std::vector<std::string>{"f.one", "f.one"}));
    EXPECT_EQ(alias->openFile(nullptr), nullptr);
}

TEST_F(Aliases, SoundsAreTheBases) {
    const Sound sound = playTracked(engine(), Alias);
    EXPECT_EQ(sound->getSoundSource(), Base);
    EXPECT_FALSE(engine().isCurrentlyPlaying(Alias));
    EXPECT_FALSE(engine().isCurrentlyPlaying("alias"));
    EXPECT_TRUE(engine().isCurrentlyPlaying(Base));
    EXPECT_TRUE(engine().isCurrentlyPlaying("base"));
    engine().removeSoundSource(Alias);
    EXPECT_FALSE(sound->isFinished());
    engine().removeSoundSource(Base);
    EXPECT_TRUE(sound->isFinished());
}

TEST_F(Aliases, KeepTheirBaseAlive) {
    ISoundSource* aliasOfAlias = engine().addSoundSourceAlias(Alias, "third");
    const Sound before = playTracked(engine(), aliasOfAlias);
    engine().removeSoundSource("base");
    EXPECT_TRUE(before->isFinished());
    EXPECT_NE(addSquareWave(engine(), "base", 10), nullptr) << "the name is free";
    engine().removeSoundSource("alias");
    const Sound after = playTracked(engine(), aliasOfAlias);
    ASSERT_TRUE(after);
    EXPECT_EQ(after->getSoundSource(), Base);
    EXPECT_EQ(after->getPlayLength(), 1000);
    EXPECT_TRUE(engine().isCurrentlyPlaying("base"));
    engine().removeSoundSource(aliasOfAlias); // and with it the base
    EXPECT_TRUE(after->isFinished());
    EXPECT_EQ(after->getSoundSource(), nullptr);
    engine().update();
    EXPECT_FALSE(engine().isCurrentlyPlaying("base"));
    EXPECT_EQ(CScriptedSound::alive, 2);
}

TEST_F(Aliases, NeedABaseOfTheirEngine) {
    const Engine other = nullEngine();
    EXPECT_EQ(other->addSoundSourceAlias(Base, "x"), nullptr);
    EXPECT_EQ(engine().addSoundSourceAlias(nullptr, "x"), nullptr);
    EXPECT_EQ(engine().addSoundSourceAlias(Base, nullptr), nullptr);
    EXPECT_EQ(engine().getSoundSource("x", false), nullptr);
    EXPECT_EQ(engine().getSoundSourceCount(), 2);
}

} // namespace
