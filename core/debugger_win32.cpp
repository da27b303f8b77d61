// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/debugger.h"

#include <windows.h>

namespace sn_internal {

void writeToDebugger(const char* text) {
    OutputDebugStringA(text);
}

} // namespace sn_internal
