// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/log.h"
#include "tests/support/log_capture.h"

#include <sonimbra/E_SOUND_ENGINE_OPTIONS.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using namespace sn_internal;
using sn_test::CInstalledLogger;
using sn_test::standardOutputOf;

constexpr int ToStandardOutput = sonimbra::PrintDebugInfoToStdOut;
constexpr int ToBoth = sonimbra::PrintDebugInfoToStdOut | sonimbra::PrintDebugInfoIntoDebugger;

TEST(Logger, FiltersByLevel) {
    const CInstalledLogger logger;
    const struct {
        std::int32_t least;
        std::int32_t level;
        bool written;
    } cases[] = {{0, 0, true}, {0, 1, true},   {0, -1, false}, {1, 0, false},
                 {1, 1, true}, {-5, -5, true}, {2, 1, false},  {INT32_MIN, INT32_MIN, true}};
    for (const auto& c : cases) {
        logger->setLogLevel(c.least);
        EXPECT_EQ(logger->getLogLevel(), c.least);
        EXPECT_EQ(standardOutputOf([&] { logText("message", c.level); }),
                  c.written ? "message\n" : "");
        EXPECT_EQ(standardOutputOf([&] { logTextWithHint("text", "hint", c.level); }),
                  c.written ? "text: hint\n" : "");
    }
}

TEST(Logger, WritesTextAndHint) {
    const CInstalledLogger logger;
    EXPECT_EQ(standardOutputOf([] { logTextWithHint("Could not open", "a b.wav"); }),
              "Could not open: a b.wav\n");
    EXPECT_EQ(standardOutputOf([] { logTextWithHint("Could not open", nullptr); }),
              "Could not open: \n");
    EXPECT_EQ(standardOutputOf([] { logTextWithHint("Could not open", ""); }),
              "Could not open: \n");
    EXPECT_EQ(standardOutputOf([] { logText("no end", 0, false); }), "no end");
    EXPECT_EQ(standardOutputOf([] { logTextWithHint("no", "end", 0, false); }), "no: end");
    EXPECT_EQ(standardOutputOf([&] { logger->log("direct", 0, true); }), "direct\n");
    EXPECT_EQ(standardOutputOf([&] { logger->logWithHint("direct", "too", 0, false); }),
              "direct: too");
}

TEST(Logger, PrintsPastTheLevel) {
    const CInstalledLogger logger;
    logger->setLogLevel(1000);
    EXPECT_EQ(standardOutputOf([] { printText("version mismatch", true); }), "version mismatch\n");
    EXPECT_EQ(standardOutputOf([] { printText("part", false); }), "part");
}

TEST(Logger, IsSharedAndGoesWithItsLastUser) {
    {
        const CInstalledLogger first;
        first->setLogLevel(3);
        {
            const CInstalledLogger second;
            EXPECT_EQ(second.get(), first.get());
            EXPECT_EQ(second->getLogLevel(), 3);
        }
        EXPECT_EQ(standardOutputOf([] { logText("still there", 3); }), "still there\n");
    }
    EXPECT_EQ(standardOutputOf([] { logText("nobody listens", 9); }), "");
    EXPECT_EQ(standardOutputOf([] { logTextWithHint("nobody", "listens", 9); }), "");
    const CInstalledLogger fresh;
    EXPECT_EQ(fresh->getLogLevel(), 0);
}

TEST(Logger, StandardOutputFollowsTheNewestUser) {
    const CInstalledLogger loud;
    {
        const CInstalledLogger silent(0);
        EXPECT_EQ(standardOutputOf([] { logText("silenced for all"); }), "");
        EXPECT_EQ(standardOutputOf([] { printText("silenced for all", true); }), "");
    }
    EXPECT_EQ(standardOutputOf([] { logText("silenced still"); }), "");
    const CInstalledLogger louder;
    EXPECT_EQ(standardOutputOf([] { logText("heard"); }), "heard\n");
}

// The debugger's channel is switched on for the rest of a process, so what depends on it is tried
// in processes of their own. Each compares by itself and shows what it got.

void finish(const std::string& actual, const std::string& expected) {
    std::fputs(actual.c_str(), stderr);
    std::fflush(stderr);
    std::_Exit(actual == expected ? 0 : 1);
}

void printEach() {
    for (const char* text : {"100%", "a%%b", "%n%s%d", "%%n", "%%%", "%"}) {
        printText(text, true);
        printText(text, false);
        printText("|", false);
    }
}

class LoggerDeathTest : public testing::Test {
protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    template <class F>
    void expectInNewProcess(F operation, const std::string& expected) {
        EXPECT_EXIT(finish(standardOutputOf(operation), expected), testing::ExitedWithCode(0), "");
    }
};

TEST_F(LoggerDeathTest, PrintsWithoutALogger) {
    expectInNewProcess(
        [] {
            logText("dropped");
            logTextWithHint("dropped", "too");
            printText("printed", true);
        },
        "printed\n");
}

TEST_F(LoggerDeathTest, InterpretsPercentSignsInPartsOfLinesOnly) {
    expectInNewProcess(
        [] {
            const CInstalledLogger logger(ToStandardOutput);
            printEach();
        },
        "100%\n100%|a%%b\na%b|%n%s%d\n%n%s%d|%%n\n%n|%%%\n%%|%\n%|");
}

TEST_F(LoggerDeathTest, InterpretsPercentSignsWithTheDebugger) {
    expectInNewProcess(
        [] {
            const CInstalledLogger logger(ToBoth);
            printEach();
        },
        "100%\n100%|a%b\na%b|%n%s%d\n%n%s%d|%n\n%n|%%\n%%|%\n%|");
}

TEST_F(LoggerDeathTest, TheDebuggerStaysOn) {
    expectInNewProcess(
        [] {
            { const CInstalledLogger logger(ToBoth); }
            const CInstalledLogger logger(ToStandardOutput);
            logTextWithHint("50%%", "%s.wav");
        },
        "50%: %s.wav\n");
}

TEST_F(LoggerDeathTest, TheDebuggerAloneLeavesStandardOutputEmpty) {
    expectInNewProcess(
        [] {
            const CInstalledLogger logger(sonimbra::PrintDebugInfoIntoDebugger);
            logText("to the debugger");
            printText("to the debugger", false);
        },
        "");
}

} // namespace
