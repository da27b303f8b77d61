// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/wav.h"

#include <cstdint>
#include <vector>

namespace sn_test {

enum class E_MODULE_EFFECT { Speed, Tempo, JumpToOrder, BreakToRow, PatternLoop };

/// One effect of the pattern. PatternLoop 0 sets the loop's start, n plays it n times more.
struct SModuleEffect {
    std::uint8_t row;
    E_MODULE_EFFECT effect;
    std::uint8_t value;
};

/// A module of four channels and one pattern of 64 rows, which every order plays. Its one looped
/// sample starts on rows 0, 16, 32 and 48 in channel 0; the effects stand in the other channels, at
/// most three in a row. At speed 6 and tempo 125 a pass through the pattern takes 7.68 seconds.
struct SModule {
    std::uint8_t orders = 1;
    std::uint8_t speed = 6; ///< ticks a row
    std::uint8_t tempo = 125;
    std::vector<SModuleEffect> effects = {};
    std::uint16_t sampleFrames = 64; ///< 8 bits, even
    /// IT only: nodes that the volume envelope states; there is room for 25, whatever it states.
    std::uint8_t envelopeNodes = 0;
};

/// The module in each format, for example itFile({.orders = 2, .envelopeNodes = 26}).
Bytes modFile(const SModule& module = {});
Bytes xmFile(const SModule& module = {});
Bytes s3mFile(const SModule& module = {});
Bytes itFile(const SModule& module = {});

/// The file with other bytes at one place: patched(itFile(), 0x20, {0xff, 0xff}).
Bytes patched(Bytes file, std::size_t offset, const Bytes& bytes);

} // namespace sn_test
