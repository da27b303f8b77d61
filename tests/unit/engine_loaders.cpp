// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/CScriptedFile.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"
#include "tests/support/modules.h"
#include "tests/support/ogg.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

namespace {

using namespace sn_test;
using namespace sonimbra;

const char* const NoWave = "Unknown wave header in file";

/// Loaders that read a little, write where they started, and fail until told otherwise.
class Loaders : public testing::Test {
protected:
    CScriptedLoader* add(const std::string& name, const char* extension) {
        return addLoader(*Driver.get(), extension, [this, name](IFileReader& file) {
            Journal.push_back(name + " at " + std::to_string(file.getPos()));
            char some[3];
            file.read(some, 3);
            return name == Opens ? createRampStream(streamFormat(1, 10, 8000)) : nullptr;
        });
    }

    /// The lines that playing a file gives.
    Lines play(const char* name) {
        ISoundEngine& engine = *Driver.get();
        Journal.clear();
        engine.removeAllSoundSources();
        addFactory(engine, name, countingBytes(64));
        return loggedLinesOf([&] { engine.play2D(name); });
    }

    ScriptedEngine Driver = scriptedEngine();
    Lines Journal;
    std::string Opens;
};

TEST_F(Loaders, AreAskedByNameThenAll) {
    CScriptedLoader* loader = add("a", ".abc");
    add("b", ".xyz");
    add("c", ".abc");
    EXPECT_EQ(play("Dir/X\xC3\x84.ABC"),
              (Lines{NoWave, "Could not open audio stream for sound file: dir/x\xC3\x84.abc"}));
    EXPECT_EQ(Journal, (Lines{"a at 0", "c at 0", "a at 0", "b at 0", "c at 0"}));
    EXPECT_EQ(loader->names, Lines{"dir/x\xC3\x84.abc"});
    Opens = "b";
    EXPECT_EQ(play("x.abc"), Lines{NoWave});
    EXPECT_EQ(Journal, (Lines{"a at 0", "c at 0", "a at 0", "b at 0"}));
    Opens = "c";
    EXPECT_EQ(play("x.abc"), Lines{});
    EXPECT_EQ(Journal, (Lines{"a at 0", "c at 0"}));
    EXPECT_EQ(Driver->requests.size(), 2u);
    EXPECT_EQ(CScriptedFile::alive, 0);
}

/// Names decide who is asked first, contents decide who takes the file.
TEST_F(Loaders, OpenEveryFormatUnderAnyName) {
    const Bytes wave = wavFile({}, Bytes(400, 1));
    const Bytes tones = oggFile({.rate = 22050, .frames = 1000});
    const struct {
        const char* name;
        Bytes content;
        std::int32_t rate;
        Lines lines;
    } files[] = {
        {"a.wav", wave, 44100, {}},
        {"a.ogg", wave, 44100, {}},
        {"b.OGG", tones, 22050, {}},
        {"b.wav", tones, 22050, {NoWave, NoWave}},
        {"b.it.bak", tones, 22050, {NoWave}},
        {"c.XM", xmFile(), 44100, {}},
        {"c.mod", itFile(), 44100, {}},
        {"module", s3mFile(), 44100, {NoWave}},
        {"d.ogg", modFile(), 44100, {NoWave}},
    };
    for (const auto& file : files) {
        addFactory(*Driver.get(), file.name, file.content);
        ISoundEngine& engine = *Driver.get();
        EXPECT_EQ(loggedLinesOf([&] {
                      EXPECT_EQ(engine.getSoundSource(file.name)->getAudioFormat().SampleRate,
                                file.rate);
                  }),
                  file.lines)
            << file.name;
    }
}

TEST_F(Loaders, MissADecoderForMp3) {
    const std::string mp3 = "Could not open audio stream for sound file (maybe the Sonimbra mp3 "
                            "plugin is missing?): ";
    EXPECT_EQ(play("Song.MP3"), (Lines{NoWave, mp3 + "song.mp3"}));
    EXPECT_EQ(play("a.mp3/b"), (Lines{NoWave, mp3 + "a.mp3/b"}));
    EXPECT_EQ(play("100%n.s"),
              (Lines{NoWave, "Could not open audio stream for sound file: 100%n.s"}));
}

TEST(Factories, AreAskedBeforeTheDisk) {
    const CTemporaryFolder folder;
    const std::string onDisk = folder.write("Disk \xC3\xA4.wav", wavFile({}, Bytes(400, 1)));
    const ScriptedEngine engine = scriptedEngine();
    const auto* first = addFactory(*engine.get(), "A", wavFile({}, Bytes(4, 1)));
    const auto* second = addFactory(*engine.get(), onDisk + "x", {});
    for (const std::string& name : {std::string("A"), onDisk}) {
        static_cast<ISoundEngine&>(*engine.get()).play2D(name.c_str());
    }
    EXPECT_EQ(engine->requests.at(0).frames, 1);
    EXPECT_EQ(engine->requests.at(1).frames, 100);
    EXPECT_EQ(first->journal, (Lines{"A", onDisk}));
    EXPECT_EQ(second->journal, Lines{onDisk});
}

TEST(Factories, MissingFilesAreReportedAtEachUse) {
    const CTemporaryFolder folder;
    const OfflineEngine engine = offlineEngine();
    const std::string name = folder.nameOf("Missing %s.WAV");
    const Lines line{"Could not open sound file: " + name};
    EXPECT_EQ(loggedLinesOf([&] { engine->play2D(name.c_str()); }), line);
    ISoundSource* source = engine->getSoundSource(name.c_str(), false);
    ASSERT_NE(source, nullptr) << "it was added first";
    EXPECT_EQ(loggedLinesOf([&] { EXPECT_TRUE(source->getIsSeekingSupported()); }), line);
    EXPECT_EQ(source->getStreamMode(), E_STREAM_MODE::AutoDetect) << "nothing was decided";
}

} // namespace
