// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "player/options.h"

namespace player {

/// Renders the files into one WAV file, as fast as the processor allows. Returns the exit code.
int renderFiles(const Options& options);

} // namespace player
