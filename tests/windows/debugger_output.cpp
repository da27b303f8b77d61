// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/log.h"
#include "tests/support/log_capture.h"

#include <sonimbra/E_SOUND_ENGINE_OPTIONS.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include <windows.h>

namespace {

using namespace sn_internal;
using sn_test::CInstalledLogger;
using sn_test::standardOutputOf;

constexpr DWORD DebuggerText = 0x40010006;

std::string Heard;

/// A text for the debugger travels as an exception, which this process sees first.
LONG CALLBACK listen(EXCEPTION_POINTERS* pointers) {
    const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
    if (record.ExceptionCode == DebuggerText && record.NumberParameters >= 2) {
        Heard += reinterpret_cast<const char*>(record.ExceptionInformation[1]);
        Heard += '|';
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

class DebuggerOutput : public testing::Test {
protected:
    void SetUp() override {
        Heard.clear();
        Listener = AddVectoredExceptionHandler(1, listen);
    }
    void TearDown() override { RemoveVectoredExceptionHandler(Listener); }

private:
    void* Listener = nullptr;
};

TEST_F(DebuggerOutput, GetsEveryMessageOnceBesideStandardOutput) {
    const CInstalledLogger logger(sonimbra::PrintDebugInfoIntoDebugger |
                                  sonimbra::PrintDebugInfoToStdOut);
    EXPECT_EQ(standardOutputOf([] {
                  logText("line");
                  logText("part", 0, false);
                  logTextWithHint("text", "hint");
                  printText("printed", true);
              }),
              "line\nparttext: hint\nprinted\n");
    EXPECT_EQ(Heard, "line\n|part|text: hint\n|printed\n|");
}

TEST_F(DebuggerOutput, IsFilteredByLevelButNotInterpreted) {
    const CInstalledLogger logger(sonimbra::PrintDebugInfoIntoDebugger |
                                  sonimbra::PrintDebugInfoToStdOut);
    logger->setLogLevel(1);
    EXPECT_EQ(standardOutputOf([] {
                  logText("too low", 0);
                  logText("50%% of %s", 1);
              }),
              "50% of %s\n");
    EXPECT_EQ(Heard, "50%% of %s\n|");
}

TEST_F(DebuggerOutput, GoesOnWithoutStandardOutput) {
    const CInstalledLogger logger(sonimbra::PrintDebugInfoIntoDebugger);
    {
        const CInstalledLogger without(0);
        EXPECT_EQ(standardOutputOf([] { logText("debugger only"); }), "");
    }
    EXPECT_EQ(Heard, "debugger only\n|");
}

// The channel is never switched off again, so silence needs a process of its own.
TEST_F(DebuggerOutput, IsSilentUntilSwitchedOnDeathTest) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto useStandardOutputOnly = [] {
        const CInstalledLogger logger(sonimbra::PrintDebugInfoToStdOut);
        standardOutputOf([] {
            logText("not for the debugger");
            printText("nor this", false);
        });
        std::_Exit(Heard.empty() ? 0 : 1);
    };
    EXPECT_EXIT(useStandardOutputOnly(), testing::ExitedWithCode(0), "");
}

} // namespace
