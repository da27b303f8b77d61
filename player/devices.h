// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "player/options.h"

namespace player {

/// Prints the output and the capture devices of the driver, each as its identifier and its
/// description. Returns the exit code.
int listDevices(const Options& options);

} // namespace player
