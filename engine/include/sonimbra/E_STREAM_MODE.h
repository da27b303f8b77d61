// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sonimbra {

/// Whether a sound source is decoded into memory or streamed while it plays.
enum class E_STREAM_MODE : std::int32_t {
    AutoDetect = 0,  ///< into memory up to 512000 bytes of samples, else streamed
    Streaming = 1,   ///< always streamed
    NoStreaming = 2, ///< into memory, up to the source's forced streaming threshold
};

} // namespace sonimbra
