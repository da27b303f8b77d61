// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/log_capture.h"

#include <sonimbra/sonimbra.h>

#include <gtest/gtest.h>

namespace {

using namespace sn_test;
using namespace sonimbra;

TEST(Create, HasNoWinMMHere) {
    EXPECT_EQ(loggedLinesOf([] {
                  EXPECT_EQ(createSonimbraDevice(E_SOUND_OUTPUT_DRIVER::WinMM, 0), nullptr);
              }),
              (Lines{"WinMM is not supported on this system.", "Invalid sound driver specified."}));
}

} // namespace
