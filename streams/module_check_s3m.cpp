// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/module_check.h"

#include <cstring>
#include <vector>

namespace sn_internal {
namespace {

constexpr std::uint32_t MostSamples = 256;
constexpr std::uint32_t MostPatterns = 256;
constexpr std::uint32_t MostChannels = 32;

struct SHeader {
    std::uint32_t orderCount;
    std::uint32_t sampleCount;
    std::uint32_t patternCount;
};

bool readHeader(io::CBufferedReader& file, SHeader& header) {
    char signature[4] = {};
    file.skip(28 + 1 + 1 + 2); // name and type: DUMB looks at them
    header.orderCount = file.readUint16();
    header.sampleCount = file.readUint16();
    header.patternCount = file.readUint16();
    file.skip(2 + 2 + 2);
    file.read(signature, sizeof(signature));
    file.skip(1 + 1); // global volume; speed: DUMB takes 6 for 0
    const std::uint8_t tempo = file.readUint8();
    file.skip(1 + 1 + 1 + 8 + 2 + 32);
    return std::memcmp(signature, "SCRM", sizeof(signature)) == 0 && tempo != 0 &&
           header.sampleCount <= MostSamples && header.patternCount <= MostPatterns &&
           file.skip(header.orderCount) && !file.hasFailed();
}

/// Offsets in the file, kept there in units of 16 bytes.
std::vector<std::int32_t> readOffsets(io::CBufferedReader& file, std::uint32_t count) {
    std::vector<std::int32_t> offsets(count);
    for (std::int32_t& offset : offsets) {
        offset = file.readUint16() * 16;
    }
    return offsets;
}

void checkSample(io::CBufferedReader& file, SModuleTraits& traits, CSampleDataCheck& data) {
    constexpr unsigned loopFlag = 1;
    const bool isUsed = file.readUint8() != 0;
    file.skip(13); // the file name
    const std::uint32_t offset = file.readUint16() * 16u;
    std::uint32_t length = file.readUint32();
    const std::uint32_t loopStart = file.readUint32();
    const std::uint32_t loopEnd = file.readUint32();
    file.skip(1 + 1 + 1);
    const unsigned flags = file.readUint8();
    const std::uint32_t rate = file.readUint32();
    if (!isUsed || length == 0) {
        traits.addNoSample();
        return;
    }
    const bool isLooped = (flags & loopFlag) != 0 && loopEnd <= length && loopStart < loopEnd;
    length = isLooped ? loopEnd : length; // as far as DUMB reads
    const std::uint64_t bytes = std::uint64_t(length) << ((flags >> 1 & 1) + (flags >> 2 & 1));
    data.add(offset, bytes, bytes);
    // DUMB counts from an octave higher.
    traits.addSample(rate > UINT32_MAX / 2 ? UINT32_MAX : rate * 2,
                     isLooped ? loopEnd - loopStart : 0);
}

/// The format allows each channel once in a row; a row that repeats them can hold thousands of
/// effects, and slide farther in one tick than the rehearsal can foresee.
bool checkPattern(io::CBufferedReader& file) {
    static const std::uint8_t sizes[4] = {0, 2, 1, 3}; // of note and volume
    constexpr int rowCount = 64;
    file.skip(2);            // the size, which DUMB does not look at either
    std::uint32_t named = 0; // channels in this row
    for (int row = 0; row < rowCount;) {
        const std::uint8_t what = file.readUint8();
        if (file.hasFailed()) {
            return false;
        }
        if (what >> 5 == 0) {
            ++row;
            named = 0;
            continue;
        }
        file.skip(sizes[what >> 5 & 3]);
        const bool hasEffect = (what & 128) != 0;
        const std::uint32_t channel = std::uint32_t(1) << (what & 31);
        if ((named & channel) != 0 || (hasEffect && file.readUint8() == KeyOffEffect) ||
            !file.skip(hasEffect)) {
            return false;
        }
        named |= channel;
    }
    return true;
}

} // namespace

bool mayBeReadAsS3M(io::CBufferedReader& file, SModuleTraits& traits) {
    SHeader header;
    if (!readHeader(file, header)) {
        return false;
    }
    traits.channelCount = MostChannels;
    const auto samples = readOffsets(file, header.sampleCount);
    const auto patterns = readOffsets(file, header.patternCount);
    CSampleDataCheck data(file);
    for (const std::int32_t offset : samples) {
        file.seek(offset);
        checkSample(file, traits, data);
    }
    for (const std::int32_t offset : patterns) {
        if (offset != 0 && !(file.seek(offset) && checkPattern(file))) {
            return false;
        }
    }
    return !file.hasFailed() && data.isPresent();
}

} // namespace sn_internal
