// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/shared_library.h"
#include "io/disk.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <thread>

namespace {

using namespace sn_test;
using namespace sonimbra;
namespace fs = std::filesystem;
using Bag = std::multiset<std::string>; // folders list their entries in any order

/// Beside this program lie snphollow and snpwild; in the folder "elsewhere" snptone, SNPLOUD, which
/// is as hollow, and files that are no libraries under various names, one of them snphollow.
class Plugins : public testing::Test {
protected:
    ~Plugins() override { fs::current_path(Start); }

    template <class F>
    static Bag linesOf(F&& operation) {
        const Lines lines = loggedLinesOf(operation);
        return Bag(lines.begin(), lines.end());
    }

    const fs::path Start = fs::current_path();
    const fs::path ProgramFolder =
        fs::path(sn_internal::io::executablePath().c_str()).parent_path();
    const fs::path Elsewhere = ProgramFolder / "elsewhere";
    const std::string Suffix = sn_internal::SharedLibrarySuffix;
    const std::string NoEntry = "Could not find function 'sonimbraPluginInit' in plugin: ";
    const std::string NoLibrary = "Could not load plugin: ";
    const Bag Beside{NoEntry + "snphollow" + Suffix, "Could not open sound file: 1.5.0",
                     "Loaded plugin: snpwild" + Suffix};
};

TEST_F(Plugins, AreFoundInBothFolders) {
    const auto linesOfEngine = [](int option) {
        return linesOf([=] { offlineEngine(option | PrintDebugInfoToStdOut); });
    };
    fs::current_path(ProgramFolder);
    Bag expected{"Sonimbra sound library version 1.5.0", "Using Offline driver"};
    EXPECT_EQ(linesOfEngine(0), expected);
    expected.insert(Beside.begin(), Beside.end());
    EXPECT_EQ(linesOfEngine(LoadPlugins), expected);
    fs::current_path(Elsewhere);
    // Where names differ by case, the lower-case name leads nowhere.
    const std::string loud = "snploud" + Suffix;
    expected.insert({NoLibrary + "snpbroken" + Suffix, "Loaded plugin: snptone" + Suffix,
                     (fs::exists(loud) ? NoEntry : NoLibrary) + loud});
    EXPECT_EQ(linesOfEngine(LoadPlugins), expected);
    EXPECT_EQ(fs::current_path(), Elsewhere);
}

TEST_F(Plugins, AreLoadedFromAFolder) {
    fs::current_path(Elsewhere);
    const OfflineEngine engine = offlineEngine();
    EXPECT_EQ(linesOf([&] { EXPECT_FALSE(engine->loadPlugins("missing")); }), Bag{});
    for (int i = 0; i < 2; ++i) { // the second time they are called again
        EXPECT_EQ(linesOf([&] { EXPECT_TRUE(engine->loadPlugins("..")); }), Beside);
    }
    EXPECT_EQ(fs::current_path(), Elsewhere);
}

TEST_F(Plugins, AreSearchedByOneEngineAtATime) {
    fs::current_path(ProgramFolder);
    const OfflineEngine engines[] = {offlineEngine(0), offlineEngine(0)};
    const auto search = [](ISoundEngine* engine) {
        for (int i = 0; i < 200; ++i) {
            EXPECT_TRUE(engine->loadPlugins("elsewhere"));
        }
    };
    std::thread other(search, engines[0].get());
    search(engines[1].get());
    other.join();
}

TEST_F(Plugins, DecodeTheirFormat) {
    const OfflineEngine engine = offlineEngine();
    const auto play = [&](std::string text) {
        engine->removeAllSoundSources();
        ISoundSource* source = engine->addSoundSourceFromMemory(
            text.data(), static_cast<std::int32_t>(text.size()), "a.sine");
        source->setStreamMode(E_STREAM_MODE::Streaming);
        return playTracked(*engine.get(), source);
    };
    EXPECT_FALSE(play("sine 441 1000 50 44100"));
    EXPECT_TRUE(engine->loadPlugins(Elsewhere.string().c_str()));
    EXPECT_EQ(play("sine 1 600000 0 8000 \n")->getPlayLength(), 600000);
    for (const char* damaged :
         {"s", "Sine 1 1 0 8000", "sine 441 250 50", "sine 0 1 0 8000", "sine -1 1 0 8000",
          "sine 1 600001 0 8000", "sine 1 1 101 8000", "sine 1 1 0 99999999999999999999",
          "sine 1 1 0 8000x", "sine 1 1 0 8000                                                 "}) {
        EXPECT_FALSE(play(damaged)) << damaged;
    }
    const Sound sound = play("sine 441 1000 50 44100");
    const auto output = rendered(*engine.get(), 4096);
    EXPECT_NEAR(*std::max_element(output.begin(), output.end()), 16383, 20);
    EXPECT_TRUE(sound->setPlayPosition(900));
    rendered(*engine.get(), 8192);
    EXPECT_TRUE(sound->isFinished());
}

} // namespace
