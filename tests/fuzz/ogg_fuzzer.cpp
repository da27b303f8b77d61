// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraAudioStreamLoaderOGG.h"
#include "tests/fuzz/stream_driver.h"

#include <ogg/ogg.h>

#include <algorithm>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

constexpr std::size_t HeaderSize = 27;

/// Gives the page at data its checksum; a page that reaches beyond the end stays as it is.
void mend(std::uint8_t* data, std::size_t size) {
    if (size < HeaderSize || size < HeaderSize + data[HeaderSize - 1]) {
        return;
    }
    std::uint8_t* const body = data + HeaderSize + data[HeaderSize - 1];
    std::size_t bodySize = 0;
    std::for_each(data + HeaderSize, body, [&](std::uint8_t lacing) { bodySize += lacing; });
    if (static_cast<std::size_t>(data + size - body) >= bodySize) {
        ogg_page page = {data, body - data, body, static_cast<long>(bodySize)};
        ogg_page_checksum_set(&page);
    }
}

} // namespace

// Without right checksums the decoder would drop every page that was changed.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned /*seed*/) {
    static constexpr std::uint8_t capture[] = {'O', 'g', 'g', 'S'};
    size = LLVMFuzzerMutate(data, size, maxSize);
    std::uint8_t* const end = data + size;
    for (auto* at = std::search(data, end, capture, capture + 4); at != end;
         at = std::search(at + 4, end, capture, capture + 4)) {
        mend(at, static_cast<std::size_t>(end - at));
    }
    return size;
}

// vorbisfile forgets what it has read of a chained file's links when it refuses a later one.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:_bisect_forward_serialno\n";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return fuzz::play<sn_internal::CSonimbraAudioStreamLoaderOGG>(data, size);
}
