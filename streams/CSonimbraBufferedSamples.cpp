// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraBufferedSamples.h"

#include <cstdlib>
#include <cstring>

namespace sn_internal {

CSonimbraBufferedSamples::CSonimbraBufferedSamples(const sonimbra::SAudioStreamFormat& format,
                                                   const void* data)
    : Format(format) {
    const std::int32_t size = format.getSampleDataSize();
    if (size < 1) {
        return;
    }
    // Zeroed by the system where it can be: a file that promises more than it holds costs little.
    Data = std::calloc(static_cast<std::size_t>(size), 1);
    if (Data != nullptr && data != nullptr) {
        std::memcpy(Data, data, static_cast<std::size_t>(size));
    }
}

CSonimbraBufferedSamples::~CSonimbraBufferedSamples() {
    std::free(Data);
}

void CSonimbraBufferedSamples::useForeignData(const sonimbra::SAudioStreamFormat& format,
                                              void* data) {
    std::free(Data);
    Format = format;
    Data = data;
}

void CSonimbraBufferedSamples::forgetForeignData() {
    Data = nullptr;
}

} // namespace sn_internal
