// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraAudioStreamLoaderOGG.h"
#include "tests/fuzz/stream_driver.h"
#include "tests/support/ogg.h"

#include <cstddef>
#include <cstdint>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

// Without right checksums the decoder would drop every page that was changed.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned /*seed*/) {
    size = LLVMFuzzerMutate(data, size, maxSize);
    sn_test::mendChecksums(data, size);
    return size;
}

// vorbisfile forgets what it has read of a chained file's links when it refuses a later one.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:_bisect_forward_serialno\n";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return fuzz::play<sn_internal::CSonimbraAudioStreamLoaderOGG>(data, size);
}
