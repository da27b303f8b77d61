// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraAudioStreamLoaderMOD.h"
#include "tests/fuzz/stream_driver.h"

// The module loader with IT seeds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return fuzz::play<sn_internal::CSonimbraAudioStreamLoaderMOD>(data, size);
}
