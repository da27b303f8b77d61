// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/module_check.h"

#include <cmath>
#include <cstring>
#include <vector>

namespace sn_internal {
namespace {

constexpr std::uint16_t LinearSlidesFlag = 1;
constexpr std::uint16_t HighestTempo = 1024; // 255 by the format; each tick costs work
constexpr std::uint32_t MostChannels = 64;
constexpr std::uint32_t MostSamplesPerInstrument = 16;

struct SHeader {
    std::uint16_t patternCount;
    std::uint16_t instrumentCount;
    std::uint16_t channelCount;
};

bool readHeader(io::CBufferedReader& file, SHeader& header, SModuleTraits& traits) {
    char signature[17] = {};
    file.read(signature, sizeof(signature));
    file.skip(20 + 1 + 20 + 2 + 4); // names, version and header size: DUMB looks at them
    file.skip(2 + 2);               // orders, restart position
    header.channelCount = file.readUint16();
    header.patternCount = file.readUint16();
    header.instrumentCount = file.readUint16();
    traits.hasLinearSlides = (file.readUint16() & LinearSlidesFlag) != 0;
    file.skip(2); // speed: DUMB takes 6 for 0
    const std::uint16_t tempo = file.readUint16();
    file.skip(256); // the order table
    return std::memcmp(signature, "Extended Module: ", sizeof(signature)) == 0 && tempo != 0 &&
           tempo <= HighestTempo && header.channelCount <= MostChannels &&
           header.patternCount <= 256 && header.instrumentCount <= 128 && !file.hasFailed();
}

/// Bytes of a packed note, behind the byte that says which of the five follow.
std::uint32_t packedSize(std::uint8_t mask) {
    std::uint32_t size = 0;
    for (unsigned bit = 0; bit < 5; ++bit) {
        size += mask >> bit & 1;
    }
    return size;
}

/// Where the last note reaches over the pattern's end, DUMB reads on in its buffer; it must not
/// leave that.
bool checkPattern(io::CBufferedReader& file, std::uint32_t channelCount) {
    const std::uint32_t bufferSize = 1280 * channelCount;
    file.skip(4 + 1 + 2); // header size and packing: DUMB looks at them; rows
    const std::uint32_t size = file.readUint16();
    std::vector<std::uint8_t> data(size);
    if (size > bufferSize ||
        file.read(data.data(), static_cast<std::int32_t>(size)) < static_cast<std::int32_t>(size)) {
        return false;
    }
    std::uint32_t at = 0;
    while (at < size) {
        at += (data[at] & 0x80) != 0 ? 1 + packedSize(data[at]) : 5;
    }
    return at <= bufferSize;
}

/// At the middle C of DUMB, which lies an octave above the format's.
std::uint32_t rateOf(std::int8_t relativeNote, std::int8_t finetune) {
    return static_cast<std::uint32_t>(16726.0 *
                                      std::pow(2.0, (relativeNote + finetune / 128.0) / 12.0));
}

/// Returns the bytes of the sample's data.
std::uint32_t readSampleHeader(io::CBufferedReader& file, SModuleTraits& traits) {
    constexpr unsigned loopBits = 3;
    const std::uint32_t byteCount = file.readUint32();
    file.skip(4); // loop start
    const std::uint32_t loopBytes = file.readUint32();
    file.skip(1); // volume
    const auto finetune = static_cast<std::int8_t>(file.readUint8());
    const unsigned type = file.readUint8();
    file.skip(1); // panning
    const auto relativeNote = static_cast<std::int8_t>(file.readUint8());
    file.skip(1 + 22);
    if (byteCount > 0) {
        const unsigned frameShift = (type >> 4 & 1) + (type >> 5 & 1); // 16 bits, stereo
        const std::uint32_t loopLength = (type & loopBits) != 0 ? loopBytes >> frameShift : 0;
        traits.addSample(rateOf(relativeNote, finetune), loopLength);
    }
    return byteCount;
}

/// An instrument with its samples. Their data follow one another, so that the file's end is checked
/// where the next instrument is read.
bool checkInstrument(io::CBufferedReader& file, SModuleTraits& traits, std::uint64_t& dataBytes) {
    const std::int32_t start = file.getPosition();
    const std::uint32_t headerSize = file.readUint32();
    file.skip(22 + 1);
    const std::uint32_t sampleCount = file.readUint16();
    if (file.hasFailed() || sampleCount > MostSamplesPerInstrument || !file.seek(start) ||
        !file.skip(headerSize)) {
        return false;
    }
    std::uint64_t own = 0;
    for (std::uint32_t i = 0; i < sampleCount; ++i) {
        own += readSampleHeader(file, traits);
    }
    dataBytes += own;
    return !file.hasFailed() && own <= INT32_MAX && file.skip(static_cast<std::int64_t>(own));
}

} // namespace

bool mayBeReadAsXM(io::CBufferedReader& file, SModuleTraits& traits) {
    SHeader header;
    if (!readHeader(file, header, traits)) {
        return false;
    }
    traits.channelCount = header.channelCount;
    for (std::uint32_t i = 0; i < header.patternCount; ++i) {
        if (!checkPattern(file, header.channelCount)) {
            return false;
        }
    }
    std::uint64_t dataBytes = 0;
    for (std::uint32_t i = 0; i < header.instrumentCount; ++i) {
        if (!checkInstrument(file, traits, dataBytes)) {
            return false;
        }
    }
    CSampleDataCheck data(file);
    data.add(0, static_cast<std::uint64_t>(file.getPosition()), dataBytes);
    return data.isPresent();
}

} // namespace sn_internal
