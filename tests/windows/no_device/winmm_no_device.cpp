// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// To be run where the system has no sound device.

#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <mmsystem.h>

namespace {

using namespace sn_test;

TEST(WinMMWithoutDevice, IsNotStarted) {
    ASSERT_EQ(0u, waveOutGetNumDevs()) << "this machine has a sound device";
    for (const int option : {0, int(sonimbra::MultiThreaded)}) {
        Engine engine;
        const Lines lines = linesOf(standardOutputOf([&] {
            engine = Engine::adopt(sonimbra::createSonimbraDevice(
                sonimbra::E_SOUND_OUTPUT_DRIVER::WinMM, option | sonimbra::PrintDebugInfoToStdOut));
        }));
        EXPECT_FALSE(engine);
        ASSERT_EQ(2u, lines.size());
        // Systems differ in what they say about it.
        EXPECT_TRUE(lines[1] == "Could not start up winMM device: No device driver is present." ||
                    lines[1] == "Could not start up winMM device: Specified device identifier is "
                                "out of range.")
            << lines[1];
    }
}

} // namespace
