// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/wav.h"

#include <cstddef>
#include <cstdint>

namespace sn_test {

/// What an Ogg Vorbis file holds: a tone of its own in each channel, and noise above it.
struct SOggSignal {
    std::int32_t channels = 2;
    std::int32_t rate = 44100;
    std::int32_t frames = 44100;
    std::int32_t serial = 1; ///< links of a chained file must differ in it
    float noise = 0.0f;      ///< level, 0 to 0.5
};

/// Encodes the signal in pages of one packet each, the same bytes on every run. A chained file is
/// the concatenation: join oggFile({.serial = 1}) and oggFile({.rate = 22050, .serial = 2}).
Bytes oggFile(const SOggSignal& signal = {});

/// Gives every complete page its right checksum, as after a change; otherwise the decoder would
/// drop the page.
void mendChecksums(std::uint8_t* file, std::size_t size);

} // namespace sn_test
