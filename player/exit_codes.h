// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

namespace player {

/// What the process returns; the help text explains them to the user.
enum ExitCode : int {
    AllPlayed = 0,
    UsageError = 1,
    FileNotPlayable = 2,
    NoDriver = 3,
    OutputNotWritable = 4,
};

} // namespace player
