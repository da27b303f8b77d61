// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/debugger.h"

namespace sn_internal {

void writeToDebugger(const char*) {
}

} // namespace sn_internal
