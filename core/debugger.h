// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

namespace sn_internal {

/// Sends a text to the debugger's output channel; nothing happens on systems without one.
void writeToDebugger(const char* text);

} // namespace sn_internal
