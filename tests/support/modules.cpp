// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/modules.h"

#include <algorithm>
#include <string_view>

namespace sn_test {
namespace {

/// How a format writes its cells: a note, what stands before an effect's number and value, and
/// nothing. Where cells name their channel it is added to the first byte, and a row ends with 0.
struct SCells {
    Bytes note, effect, none;
    bool namesChannel;
    const std::uint8_t (*effects)[2];
};

/// By E_MODULE_EFFECT: an effect's number, and what is added to its value.
constexpr std::uint8_t NumberEffects[][2] = {{15, 0}, {15, 0}, {11, 0}, {13, 0}, {14, 0x60}};
constexpr std::uint8_t LetterEffects[][2] = {{1, 0}, {20, 0}, {2, 0}, {3, 0}, {19, 0xb0}};

Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}
Bytes text(std::string_view characters, std::size_t width) {
    Bytes bytes(characters.begin(), characters.end());
    bytes.resize(width);
    return bytes;
}
Bytes byte(std::size_t value) {
    return {static_cast<std::uint8_t>(value)};
}
template <class... T>
Bytes words(T... values) {
    return ((byte(values) + byte(values >> 8)) + ...);
}
template <class... T>
Bytes longs(T... values) {
    return ((words(values) + words(values >> 16)) + ...);
}

Bytes cellOf(const SModule& module, const SCells& style, std::size_t row, std::size_t channel) {
    if (channel == 0) {
        return row % 16 == 0 ? style.note : style.none;
    }
    for (const SModuleEffect& e : module.effects) {
        if (e.row == row && --channel == 0) {
            const std::uint8_t* const number = style.effects[static_cast<std::size_t>(e.effect)];
            return style.effect + byte(number[0]) + byte(number[1] + std::size_t{e.value});
        }
    }
    return style.none;
}

Bytes patternOf(const SModule& module, const SCells& style) {
    Bytes pattern;
    for (std::size_t cell = 0; cell < 64 * 4; ++cell) {
        Bytes bytes = cellOf(module, style, cell / 4, cell % 4);
        if (style.namesChannel && !bytes.empty()) {
            bytes[0] = static_cast<std::uint8_t>(bytes[0] + cell % 4);
        }
        pattern = pattern + bytes + Bytes(style.namesChannel && cell % 4 == 3 ? 1 : 0);
    }
    return pattern;
}

/// A saw tooth of 32 frames.
Bytes sampleOf(const SModule& module, bool differences = false) {
    Bytes sample(module.sampleFrames);
    for (std::size_t i = 0; i < sample.size(); ++i) {
        sample[i] = static_cast<std::uint8_t>(4 * (i % 32 - (differences && i ? (i - 1) % 32 : 0)));
    }
    return sample;
}

Bytes instrumentIT(std::uint8_t envelopeNodes) {
    Bytes notes, nodes;
    for (std::uint8_t note = 0; note < 120; ++note) {
        notes = notes + Bytes{note, 1};
    }
    for (std::uint8_t node = 0; node < 25; ++node) {
        nodes = nodes + Bytes{static_cast<std::uint8_t>(64 - node), node, 0};
    }
    // After the name: fade-out, pitch-pan separation and centre, volume, pan.
    return text("IMPI", 21) + Bytes{0, 0, 60, 128, 32} + Bytes(38) + notes +
           Bytes{1, envelopeNodes, 0, 0, 0, 0} + nodes + Bytes(5 + 2 * 82); // no other envelopes
}

} // namespace

Bytes modFile(const SModule& module) {
    const SCells cells = {{1, 0xac, 0x10, 0}, {0, 0}, Bytes(4), false, NumberEffects};
    SModule timed = module;
    timed.effects.push_back({0, E_MODULE_EFFECT::Speed, module.speed});
    timed.effects.push_back({0, E_MODULE_EFFECT::Tempo, module.tempo});
    const Bytes length = byte(module.sampleFrames / 512u) + byte(module.sampleFrames / 2u);
    return text("tone", 42) + length + Bytes{0, 64, 0, 0} + length + Bytes(900) +
           byte(module.orders) + byte(127) + Bytes(128) + text("M.K.", 4) +
           patternOf(timed, cells) + sampleOf(module);
}

Bytes xmFile(const SModule& module) {
    const SCells cells = {{0x83, 49, 1}, {0x98}, {0x80}, false, NumberEffects};
    const Bytes pattern = patternOf(module, cells);
    const std::size_t frames = module.sampleFrames;
    return text("Extended Module: tone", 37) + text("\x1a", 21) + words(0x104) + longs(276) +
           words(module.orders, 0, 4, 1, 1, 1, module.speed, module.tempo) + Bytes(256) + longs(9) +
           byte(0) + words(64, pattern.size()) + pattern + longs(243) + Bytes(23) + words(1) +
           longs(40) + Bytes(210) + longs(frames, 0, frames) + Bytes{64, 0, 1, 128} + Bytes(24) +
           sampleOf(module, true);
}

Bytes s3mFile(const SModule& module) {
    const SCells cells = {{32, 0x40, 1}, {128}, {}, true, LetterEffects};
    const Bytes pattern = patternOf(module, cells);
    // Places are counted in paragraphs of 16 bytes: the sample's header, the pattern, the sample.
    const std::size_t header = (96u + module.orders + 4 + 15) / 16, frames = module.sampleFrames;
    const std::size_t data = header + 5 + (2 + pattern.size() + 15) / 16;
    Bytes file = text("tone", 28) + words(0x101a, 0, module.orders, 1, 1, 0, 0x1320, 1) +
                 text("SCRM", 4) + Bytes{64, module.speed, module.tempo, 0xb0} + Bytes(12) +
                 Bytes{0, 8, 1, 9} + Bytes(28, 255) + Bytes(module.orders) +
                 words(header, header + 5);
    file.resize(header * 16);
    file = file + text("\x01", 14) + words(data) + longs(frames, 0, frames) + Bytes{64, 0, 0, 1} +
           longs(8363) + Bytes(40) + text("SCRS", 4) + words(pattern.size() + 2) + pattern;
    file.resize(data * 16);
    return file + sampleOf(module);
}

Bytes itFile(const SModule& module) {
    const SCells cells = {{129, 3, 60, 1}, {129, 8}, {}, true, LetterEffects};
    const Bytes pattern = patternOf(module, cells);
    const std::size_t instrument = 192u + module.orders + 12, frames = module.sampleFrames;
    const std::size_t sample = instrument + 554;
    return text("IMPMtone", 32) + words(module.orders, 1, 1, 1, 0x214, 0x214, 13, 0) +
           Bytes{128, 48, module.speed, module.tempo, 128} + Bytes(11) + Bytes(64, 32) +
           Bytes(64, 64) + Bytes(module.orders) + longs(instrument, sample, sample + 80) +
           instrumentIT(module.envelopeNodes) + text("IMPS", 17) + Bytes{64, 17, 64} + Bytes(26) +
           Bytes{1, 0} + longs(frames, 0, frames, 8363, 0, 0, sample + 88 + pattern.size(), 0) +
           words(pattern.size(), 64, 0, 0) + pattern + sampleOf(module);
}

Bytes patched(Bytes file, std::size_t offset, const Bytes& bytes) {
    std::copy(bytes.begin(), bytes.end(), file.begin() + static_cast<std::ptrdiff_t>(offset));
    return file;
}

} // namespace sn_test
