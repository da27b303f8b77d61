// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/module_check.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace sn_internal {
namespace {

constexpr std::int32_t SignatureOffset = 1080;
constexpr std::uint32_t MiddleRate = 16726; // finetuning moves it by less than a semitone

struct SLayout {
    std::uint32_t sampleCount;
    std::uint32_t channelCount;
};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Signatures that DUMB knows; every other one stands for the oldest layout.
SLayout layoutOf(const char* signature) {
    static const struct {
        const char* text;
        std::uint32_t channelCount;
    } known[] = {{"M.K.", 4}, {"M!K!", 4}, {"M&K!", 4}, {"N.T.", 4},  {"FLT4", 4},
                 {"CD81", 8}, {"OCTA", 8}, {"OKTA", 8}, {"16CN", 16}, {"32CN", 32}};
    for (const auto& entry : known) {
        if (std::memcmp(signature, entry.text, 4) == 0) {
            return {31, entry.channelCount};
        }
    }
    const auto digit = [signature](int i) {
        return static_cast<std::uint32_t>(signature[i] - '0');
    };
    std::uint32_t channels = 0;
    if (std::memcmp(signature + 2, "CH", 2) == 0) {
        channels = signature[0] >= '1' && signature[0] <= '3' && isDigit(signature[1])
                       ? digit(0) * 10 + digit(1)
                       : 0;
    } else if (std::memcmp(signature + 1, "CHN", 3) == 0) {
        channels = isDigit(signature[0]) ? digit(0) : 0;
    } else if (std::memcmp(signature, "TDZ", 3) == 0) {
        channels = isDigit(signature[3]) ? digit(3) : 0;
    }
    return channels != 0 ? SLayout{31, channels} : SLayout{15, 4};
}

std::uint32_t readWord(io::CBufferedReader& file) {
    const std::uint32_t high = file.readUint8();
    return high << 8 | file.readUint8();
}

/// Returns the bytes of the sample's data.
std::uint32_t readSampleHeader(io::CBufferedReader& file, SModuleTraits& traits) {
    file.skip(22); // the name
    const std::uint32_t length = 2 * readWord(file);
    file.skip(2); // finetune and volume
    const std::uint32_t loopStart = 2 * readWord(file);
    const std::uint32_t loopEnd = std::min(length, loopStart + 2 * readWord(file));
    traits.addSample(MiddleRate, loopEnd > loopStart + 2 ? loopEnd - loopStart : 0);
    return length;
}

} // namespace

/// Everything follows from the header. DUMB reads patterns and samples before it notices that the
/// file is no module, and uses memory that it has not got for the eight channels of "FLT8".
bool mayBeReadAsMOD(io::CBufferedReader& file, SModuleTraits& traits) {
    char signature[4] = {};
    file.seek(SignatureOffset);
    file.read(signature, sizeof(signature));
    if (std::memcmp(signature, "FLT8", 4) == 0 || !file.seek(20)) {
        return false;
    }
    const SLayout layout = layoutOf(signature);
    traits.channelCount = layout.channelCount;
    std::uint64_t dataBytes = 0;
    for (std::uint32_t i = 0; i < layout.sampleCount; ++i) {
        dataBytes += readSampleHeader(file, traits);
    }
    std::uint8_t orders[2 + 128] = {};
    if (file.read(orders, sizeof(orders)) != sizeof(orders)) {
        return false;
    }
    const std::uint64_t patternCount = 1u + *std::max_element(orders + 2, std::end(orders));
    const std::uint64_t dataStart = static_cast<std::uint64_t>(file.getPosition()) +
                                    (layout.sampleCount == 31 ? 4 : 0) +
                                    patternCount * layout.channelCount * 256;
    CSampleDataCheck data(file);
    data.add(dataStart, dataBytes, dataBytes);
    return data.isPresent();
}

} // namespace sn_internal
