// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/SAudioStreamFormat.h>

#include <cstddef>
#include <cstring>

namespace sn_internal {

/// Copies the first channel of each frame.
inline void copyFirstChannel(const unsigned char* frames, std::uint32_t frameCount,
                             const sonimbra::SAudioStreamFormat& format, unsigned char* target) {
    const auto sampleSize = static_cast<std::size_t>(format.getSampleSize());
    const auto frameSize = static_cast<std::size_t>(format.getFrameSize());
    for (std::size_t i = 0; i < frameCount; ++i) {
        std::memcpy(target + i * sampleSize, frames + i * frameSize, sampleSize);
    }
}

} // namespace sn_internal
