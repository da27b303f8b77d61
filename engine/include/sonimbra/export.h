// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

// SONIMBRA_API marks what the library exports. Define SONIMBRA_STATIC when linking the static
// archive; SONIMBRA_BUILDING is defined only while the shared library itself is compiled.
#if defined(SONIMBRA_STATIC)
#define SONIMBRA_API
#elif defined(_WIN32)
#if defined(SONIMBRA_BUILDING)
#define SONIMBRA_API __declspec(dllexport)
#else
#define SONIMBRA_API __declspec(dllimport)
#endif
#else
#define SONIMBRA_API __attribute__((visibility("default")))
#endif
