// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/log.h"
#include "tests/support/log_capture.h"

#include <sonimbra/E_SOUND_ENGINE_OPTIONS.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

using namespace sn_internal;
using sn_test::CInstalledLogger;
using sn_test::standardOutputOf;

TEST(Logger, WritesWhatTheLevelLetsThrough) {
    const CInstalledLogger logger;
    logger->setLogLevel(1);
    EXPECT_EQ(standardOutputOf([] {
                  logText("too low", 0);
                  logText("line", 1);
                  logTextWithHint("text", "hint", 2);
                  logTextWithHint("no hint", nullptr, 1, false);
                  printText("|past the level", true);
              }),
              "line\ntext: hint\nno hint: |past the level\n");
}

TEST(Logger, IsSharedAndGoesWithItsLastUser) {
    {
        const CInstalledLogger first;
        first->setLogLevel(3);
        {
            const CInstalledLogger silent(0);
            EXPECT_EQ(standardOutputOf([] { logText("silenced for all", 3); }), "");
        }
        const CInstalledLogger louder;
        EXPECT_EQ(standardOutputOf([] { logText("heard", 3); }), "heard\n");
    }
    EXPECT_EQ(standardOutputOf([] { logText("nobody listens", 9); }), "");
    const CInstalledLogger fresh;
    EXPECT_EQ(fresh->getLogLevel(), 0);
}

// The debugger's channel is switched on for the rest of a process, so what depends on it is tried
// in a process of its own.
std::string printedWith(int engineOptions) {
    const CInstalledLogger logger(engineOptions);
    return standardOutputOf([] {
        for (const char* text : {"100%", "a%%b", "%n%s%d", "%%%"}) {
            printText(text, true);
            printText(text, false);
            printText("|", false);
        }
    });
}

void comparePercentSigns() {
    constexpr int toStdOut = sonimbra::PrintDebugInfoToStdOut;
    constexpr int toDebugger = sonimbra::PrintDebugInfoIntoDebugger;
    const std::string both = "100%\n100%|a%b\na%b|%n%s%d\n%n%s%d|%%\n%%|";
    const bool ok = printedWith(toStdOut) == "100%\n100%|a%%b\na%b|%n%s%d\n%n%s%d|%%%\n%%|" &&
                    printedWith(toStdOut | toDebugger) == both && printedWith(toDebugger).empty() &&
                    printedWith(toStdOut) == both; // the debugger stays on
    std::_Exit(ok ? 0 : 1);
}

TEST(LoggerDeathTest, InterpretsPercentSigns) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(comparePercentSigns(), testing::ExitedWithCode(0), "");
}

} // namespace
