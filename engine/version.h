// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

/// The library's own version, which callers' versions are compared with.
#define SONIMBRA_LIBRARY_VERSION "1.5.0"
