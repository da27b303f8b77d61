// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

namespace sn_internal {

/// Whether the processor, and the system on it, have AVX2. For x86 only.
bool hasAVX2();

} // namespace sn_internal
