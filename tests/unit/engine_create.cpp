// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"

#include <gtest/gtest.h>

namespace {

using namespace sn_test;
using namespace sonimbra;

constexpr int Printing = PrintDebugInfoToStdOut;
const char* const VersionLine = "Sonimbra sound library version 1.5.0";
const char* const InvalidLine = "Invalid sound driver specified.";

/// Creates an engine and drops it again.
bool isMade(int driver, int options, const char* version = SONIMBRA_VERSION) {
    return bool(Engine::adopt(createSonimbraDevice(static_cast<E_SOUND_OUTPUT_DRIVER>(driver),
                                                   options, nullptr, version)));
}

TEST(Create, ReportsDriversThatDoNotExist) {
    const struct {
        int driver;
        Lines lines;
    } cases[] = {
        {0, {"DirectSound8 is not supported on this system.", InvalidLine}},
        {1, {"DirectSound8 is not supported on this system.", InvalidLine}},
        {2, {"DirectSound is not supported on this system.", InvalidLine}},
        {4, {"ALSA is not supported on this system.", InvalidLine}},
        {5, {"CoreAudio is not supported on this system.", InvalidLine}},
        {7, {InvalidLine}},
        {-1, {InvalidLine}},
        {INT32_MIN, {InvalidLine}},
        {INT32_MAX, {InvalidLine}},
    };
    for (const auto& c : cases) {
        bool made = true;
        EXPECT_EQ(loggedLinesOf([&] { made = isMade(c.driver, Printing); }), c.lines) << c.driver;
        EXPECT_FALSE(made) << c.driver;
    }
    EXPECT_EQ(standardOutputOf([] { isMade(1, Printing); }), "") << "there is no logger";
}

TEST(Create, EnginesIntroduceThemselves) {
    for (const int options : {Printing, Printing | MultiThreaded}) {
        EXPECT_EQ(linesOf(standardOutputOf([&] { nullEngine(options); })),
                  (Lines{VersionLine, "Using NULL driver"}));
        EXPECT_EQ(linesOf(standardOutputOf([&] { offlineEngine(options); })),
                  (Lines{VersionLine, "Using Offline driver"}));
    }
}

TEST(Create, WarnsOfAnotherVersionAndGoesOn) {
    const std::string begin = "Warning: The library version of Sonimbra (1.5.0) does not match the "
                              "version the application was compiled with (";
    const struct {
        const char* version;
        std::string inWarning;
    } cases[] = {{"1.4.9", "1.4.9"}, {"1.5", "1.5"}, {"1.5.0 ", "1.5.0 "},
                 {"", ""},           {nullptr, ""},  {"50%d", "50%d"}};
    CInstalledLogger{Printing}; // switches standard output on, and goes
    for (const auto& c : cases) {
        const std::string warning = begin + c.inWarning + "). This may cause problems.";
        EXPECT_EQ(linesOf(standardOutputOf([&] { EXPECT_TRUE(isMade(6, Printing, c.version)); })),
                  (Lines{warning, VersionLine, "Using NULL driver"}));
        EXPECT_EQ(linesOf(standardOutputOf(
                      [&] { createSonimbraOfflineDevice(Printing, c.version)->drop(); })),
                  (Lines{warning, VersionLine, "Using Offline driver"}));
    }
}

TEST(Create, LevelsAndSwitchesFilterItsLines) {
    const CInstalledLogger logger;
    const auto create = [] { isMade(4, Printing, "1"); };
    logger->setLogLevel(1);
    EXPECT_EQ(linesOf(standardOutputOf(create)).size(), 2u) << "the warning has no level";
    logger->setLogLevel(2);
    EXPECT_EQ(linesOf(standardOutputOf(create)).size(), 1u);
    nullEngine(0); // switches standard output off
    logger->setLogLevel(0);
    EXPECT_EQ(standardOutputOf(create), "") << "only engines that are constructed switch";
}

TEST(Create, EveryEngineSwitchesStandardOutput) {
    const Engine first = nullEngine();
    const CInstalledLogger on(Printing);
    const auto complain = [&] { first->removeSoundSource("x"); };
    const std::string complaint = "Cannot find sound source to remove: x\n";
    EXPECT_EQ(standardOutputOf(complain), complaint);
    nullEngine(0);
    EXPECT_EQ(standardOutputOf(complain), "");
    standardOutputOf([] { nullEngine(Printing); });
    EXPECT_EQ(standardOutputOf(complain), complaint);
}

TEST(Create, PlacesTheListenerAndKeepsTheOptions) {
    const int options = DefaultOptions & ~(Printing | PrintDebugInfoIntoDebugger);
    const Engine engines[] = {nullEngine(options), nullEngine(LinearRolloff),
                              Engine::adopt(offlineEngine(options | LinearRolloff).release())};
    for (const Engine& engine : engines) {
        const SListenerRelation relation = listenerRelationOf(*engine.get());
        EXPECT_EQ(relation.position, vec3df(0, 0, 0));
        EXPECT_EQ(relation.lookDirection, vec3df(1, 1, 0));
        EXPECT_EQ(relation.upVector, vec3df(0, 1, 0));
        EXPECT_EQ(relation.globalVolume, 1.0f);
        EXPECT_EQ(relation.rolloffFactor, 1.0f);
        EXPECT_EQ(relation.linearRolloff, &engine != &engines[0]);
        EXPECT_EQ(engine->isMultiThreaded(), &engine == &engines[0]);
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
    EXPECT_STREQ(base->getDriverName(), "Unknown");
    EXPECT_EQ(base->queryDriver(), 0);
    EXPECT_EQ(base->getReservedFactor(), 1.0f);
    base->setReservedFactor(-3.5f);
    EXPECT_EQ(base->getReservedFactor(), -3.5f);
    void* const* handles = static_cast<void**>(base->getInternalAudioInterface());
    EXPECT_EQ(std::vector<void*>(handles, handles + 5), std::vector<void*>(5, nullptr));
}

} // namespace
