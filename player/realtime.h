// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "player/options.h"

namespace player {

/// Plays the files through an output driver. Returns the exit code.
int playFiles(const Options& options);

} // namespace player
