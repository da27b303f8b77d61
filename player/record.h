// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "player/options.h"

namespace player {

/// Records from a capture device to a WAV file until --seconds have passed or the user stops it.
/// Returns the exit code.
int recordFile(const Options& options);

} // namespace player
