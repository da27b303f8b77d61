// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using namespace sn_test;
using namespace sonimbra;

constexpr int Printing = PrintDebugInfoToStdOut;
const char* const VersionLine = "Sonimbra sound library version 1.5.0";
const char* const InvalidLine = "Invalid sound driver specified.";
constexpr bool OnWindows = std::filesystem::path::preferred_separator == '\\';

/// Creates an engine and drops it again.
bool isMade(int driver, int options, const char* version = SONIMBRA_VERSION) {
    return bool(Engine::adopt(createSonimbraDevice(static_cast<E_SOUND_OUTPUT_DRIVER>(driver),
                                                   options, nullptr, version)));
}

TEST(Create, ReportsDriversThatDoNotExist) {
    struct SCase {
        int driver;
        Lines lines;
    };
    std::vector<SCase> cases = {{5, {"CoreAudio is not supported on this system.", InvalidLine}},
                                {7, {InvalidLine}},
                                {-1, {InvalidLine}}};
    if (OnWindows) {
        cases.push_back({4, {"ALSA is not supported on this system.", InvalidLine}});
    } else {
        cases.push_back({0, {"DirectSound8 is not supported on this system.", InvalidLine}});
        cases.push_back({2, {"DirectSound is not supported on this system.", InvalidLine}});
        cases.push_back({3, {"WinMM is not supported on this system.", InvalidLine}});
    }
    for (const SCase& c : cases) {
        bool made = true;
        EXPECT_EQ(loggedLinesOf([&] { made = isMade(c.driver, Printing); }), c.lines) << c.driver;
        EXPECT_FALSE(made) << c.driver;
    }
    const CInstalledLogger logger;
    logger->setLogLevel(1);
    EXPECT_EQ(linesOf(standardOutputOf([] { isMade(5, Printing); })), Lines{InvalidLine});
    nullEngine(0); // switches standard output off
    EXPECT_EQ(standardOutputOf([] { isMade(5, Printing); }), "");
}

TEST(Create, DriversWithoutADeviceListHaveTheDefaultDevice) {
    for (const int driver : {3, 5, 6, 7, -1}) {
        ISoundDeviceList* list = nullptr;
        const Lines lines = loggedLinesOf(
            [&] { list = createSoundDeviceList(static_cast<E_SOUND_OUTPUT_DRIVER>(driver), "1"); });
        EXPECT_EQ(lines.size(), 1u);
        EXPECT_EQ(list->getDeviceCount(), 1) << driver;
        EXPECT_STREQ(list->getDeviceID(0), "");
        EXPECT_STREQ(list->getDeviceDescription(0), "default device");
        EXPECT_TRUE(!list->getDeviceID(-1) && !list->getDeviceID(1));
        EXPECT_TRUE(!list->getDeviceDescription(-1) && !list->getDeviceDescription(1));
        EXPECT_TRUE(list->drop());
    }
}

TEST(Create, EnginesIntroduceThemselves) {
    const std::string begin = "Warning: The library version of Sonimbra (1.5.0) does not match the "
                              "version the application was compiled with (";
    const std::string end = "). This may cause problems.";
    const struct {
        const char* version;
        Lines lines;
    } cases[] = {{SONIMBRA_VERSION, {}},
                 {"1.5", {begin + "1.5" + end}},
                 {nullptr, {begin + end}},
                 {"50%d", {begin + "50%d" + end}}};
    CInstalledLogger{Printing}; // switches standard output on, and goes
    for (const auto& c : cases) {
        Lines lines = c.lines;
        lines.insert(lines.end(), {VersionLine, "Using NULL driver"});
        EXPECT_EQ(linesOf(standardOutputOf([&] { EXPECT_TRUE(isMade(6, Printing, c.version)); })),
                  lines);
        lines.back() = "Using Offline driver";
        EXPECT_EQ(linesOf(standardOutputOf(
                      [&] { createSonimbraOfflineDevice(Printing, c.version)->drop(); })),
                  lines);
    }
}

TEST(Create, TheBaseAnswersForWhatDriversLeaveOut) {
    const ScriptedEngine base = scriptedEngine();
    EXPECT_EQ(loggedLinesOf([&] {
                  EXPECT_FALSE(base->setMixedDataOutputReceiver(nullptr));
                  EXPECT_EQ(base->playMusic("music.ogg"), nullptr);
              }),
              (Lines{"Error: This sound driver does not support MixedDataOutputReceivers. Use a "
                     "software driver.",
                     "playMusic() is not implemented in this version, yet. Sorry"}));
    EXPECT_TRUE(nullEngine(MultiThreaded)->isMultiThreaded());
    EXPECT_FALSE(offlineEngine(MultiThreaded)->isMultiThreaded());
}

} // namespace
