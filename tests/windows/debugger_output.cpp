// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/log.h"
#include "tests/support/log_capture.h"

#include <sonimbra/E_SOUND_ENGINE_OPTIONS.h>

#include <gtest/gtest.h>

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

TEST(DebuggerOutput, GetsEveryMessageOnceAndAsItIs) {
    void* const listener = AddVectoredExceptionHandler(1, listen);
    const CInstalledLogger logger(sonimbra::PrintDebugInfoIntoDebugger |
                                  sonimbra::PrintDebugInfoToStdOut);
    logger->setLogLevel(1);
    EXPECT_EQ(standardOutputOf([] {
                  logText("too low", 0);
                  logText("50%% of %s", 1, false);
                  logTextWithHint("text", "hint", 1);
                  const CInstalledLogger silent(0);
                  printText("debugger only", true);
              }),
              "50% of %stext: hint\n");
    EXPECT_EQ(Heard, "50%% of %s|text: hint\n|debugger only\n|");
    RemoveVectoredExceptionHandler(listener);
}

} // namespace
