// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/CScriptedFile.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"
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
            Seeks = dynamic_cast<CScriptedFile&>(file).seeks;
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
    std::int32_t Seeks = 0;
};

TEST_F(Loaders, AreAskedByNameThenAll) {
    const CScriptedLoader* loaders[] = {add("a", ".abc"), add("b", ".xyz"), add("c", ".abc")};
    EXPECT_EQ(play("Dir/X\xC3\x84.ABC"),
              (Lines{NoWave, "Could not open audio stream for sound file: dir/x\xC3\x84.abc"}));
    EXPECT_EQ(Journal, (Lines{"a at 0", "c at 0", "a at 0", "b at 0", "c at 0"}));
    EXPECT_EQ(Seeks, 5) << "before each attempt but the first; the WAV loader's counts too";
    for (const CScriptedLoader* loader : loaders) {
        EXPECT_EQ(loader->names, Lines{"dir/x\xC3\x84.abc"});
    }
    EXPECT_EQ(CScriptedFile::alive, 0);
}

TEST_F(Loaders, FirstStreamWins) {
    add("a", ".abc");
    add("b", "");
    add("c", ".abc");
    add("d", ".wav");
    const struct {
        const char* name;
        const char* opens;
        Lines lines;
        Lines journal;
    } cases[] = {
        {"x.abc", "a", {}, {"a at 0"}},
        {"x.abc", "c", {}, {"a at 0", "c at 0"}},
        {"x.abc", "b", {NoWave}, {"a at 0", "c at 0", "a at 0", "b at 0"}},
        {"x.WAV", "d", {NoWave}, {"d at 0"}}, // the built-in loader comes first
    };
    for (const auto& c : cases) {
        Opens = c.opens;
        EXPECT_EQ(play(c.name), c.lines);
        EXPECT_EQ(Journal, c.journal);
    }
    EXPECT_EQ(Driver->requests.size(), 4u);
    EXPECT_EQ(CScriptedStream::alive, 0);
}

TEST_F(Loaders, MissADecoderForMp3) {
    const std::string mp3 = "Could not open audio stream for sound file (maybe the Sonimbra mp3 "
                            "plugin is missing?): ";
    const std::string other = "Could not open audio stream for sound file: ";
    const struct {
        const char* name;
        std::string line;
    } cases[] = {
        {"Song.MP3", mp3 + "song.mp3"}, {".mp3", mp3 + ".mp3"},     {"a.Mp3/b", mp3 + "a.mp3/b"},
        {"mp3", other + "mp3"},         {"a.mp2", other + "a.mp2"}, {"100%n.s", other + "100%n.s"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(play(c.name), (Lines{NoWave, c.line}));
    }
}

TEST(Factories, AreAskedBeforeTheDisk) {
    const CTemporaryFolder folder;
    const std::string onDisk = folder.write("Disk \xC3\xA4.wav", wavFile({}, Bytes(400, 1)));
    const ScriptedEngine driver = scriptedEngine();
    ISoundEngine& engine = *driver.get();
    const auto* first = addFactory(engine, "A", wavFile({}, Bytes(4, 1)));
    const auto* second = addFactory(engine, "A", {});
    const auto* third = addFactory(engine, "B", wavFile({}, Bytes(12, 1)));
    const struct {
        std::string name;
        std::int32_t frames;
    } cases[] = {{"A", 1}, {"B", 3}, {onDisk, 100}};
    for (const auto& c : cases) {
        engine.play2D(c.name.c_str());
        EXPECT_EQ(driver->requests.back().frames, c.frames);
    }
    EXPECT_EQ(first->journal, (Lines{"A", "B", onDisk}));
    EXPECT_EQ(second->journal, (Lines{"B", onDisk}));
    EXPECT_EQ(third->journal, (Lines{"B", onDisk}));
    EXPECT_EQ(CScriptedFile::alive, 0);
}

TEST(Factories, MissingFilesAreReportedAtEachUse) {
    const CTemporaryFolder folder;
    const OfflineEngine engine = offlineEngine();
    for (const std::string& name :
         {folder.nameOf("Missing %s.WAV"), folder.nameOf(""), std::string()}) {
        const Lines line{"Could not open sound file: " + name};
        EXPECT_EQ(loggedLinesOf([&] {
                      EXPECT_EQ(engine->play2D(name.c_str(), false, false, true), nullptr);
                  }),
                  line);
        ISoundSource* source = engine->getSoundSource(name.c_str(), false);
        ASSERT_NE(source, nullptr) << "it was added first";
        EXPECT_EQ(loggedLinesOf([&] { EXPECT_EQ(source->getAudioFormat().FrameCount, 0); }), line);
        EXPECT_EQ(loggedLinesOf([&] { EXPECT_TRUE(source->getIsSeekingSupported()); }), line);
        EXPECT_EQ(source->getStreamMode(), E_STREAM_MODE::AutoDetect) << "nothing was decided";
    }
}

TEST(Factories, AndLoadersBelongToTheEngineToo) {
    Engine engine = nullEngine();
    CScriptedFactory* factory = addFactory(*engine.get(), "", {});
    CScriptedLoader* loader = addLoader(*engine.get(), "", [](IFileReader&) { return nullptr; });
    factory->grab();
    loader->grab();
    engine.reset();
    EXPECT_TRUE(factory->drop());
    EXPECT_TRUE(loader->drop());
}

} // namespace
