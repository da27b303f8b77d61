// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/module_check.h"

#include <cmath>
#include <cstring>
#include <vector>

namespace sn_internal {
namespace {

constexpr std::uint16_t LinearSlidesFlag = 1;
constexpr std::uint16_t HighestTempo = 255; // the player keeps its lowest byte
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

/// DUMB ends a note by looking at its channel's instrument, whether there is one of that number or
/// not. It has no sample for the notes from 98 to 120.
class CNoteCheck {
public:
    explicit CNoteCheck(const SHeader& header) : Header(header) {}

    /// Takes the next cell of a pattern: the fields that the mask names, from the note on.
    bool add(unsigned mask, const std::uint8_t* fields) {
        constexpr std::uint8_t highestNote = 96, noteOff = 97, lastWithoutSample = 120;
        constexpr std::uint8_t keyOff = 20;
        const std::uint64_t channel = std::uint64_t(1) << Cell++ % Header.channelCount;
        const std::uint8_t note = fields[0];
        if ((mask & 2) != 0 && (fields[1] == 0 || fields[1] > Header.instrumentCount)) {
            Lost |= channel;
        }
        if (((mask & 1) != 0 && (note == 0 || note > highestNote)) ||
            ((mask & 8) != 0 && fields[3] == keyOff)) {
            Ended |= channel;
        }
        return note <= noteOff || note > lastWithoutSample;
    }
    /// DUMB counts whole rows, and takes what is left over as well.
    void nextPattern() { Cell = 0; }
    bool isSafe() const { return (Lost & Ended) == 0; }

private:
    const SHeader& Header;
    std::uint32_t Cell = 0;
    std::uint64_t Lost = 0;  // channels that get a wrong instrument somewhere
    std::uint64_t Ended = 0; // channels in which notes are ended
};

/// The last note of a pattern must not reach over the pattern's end: DUMB would take what an
/// earlier pattern has left behind.
bool checkPattern(io::CBufferedReader& file, const SHeader& header, CNoteCheck& notes) {
    file.skip(4 + 1 + 2); // header size and packing: DUMB looks at them; rows
    const std::uint32_t size = file.readUint16();
    std::vector<std::uint8_t> data(size);
    if (size > 1280u * header.channelCount ||
        file.read(data.data(), static_cast<std::int32_t>(size)) < static_cast<std::int32_t>(size)) {
        return false;
    }
    notes.nextPattern();
    std::uint32_t at = 0;
    while (at < size) {
        const unsigned mask = (data[at] & 0x80) != 0 ? data[at++] : 31;
        std::uint8_t fields[5] = {};
        for (unsigned bit = 0; bit < 5; ++bit) {
            if ((mask >> bit & 1) != 0) {
                fields[bit] = at < size ? data[at] : 0;
                ++at;
            }
        }
        if (!notes.add(mask, fields)) {
            return false;
        }
    }
    return at == size;
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
    const std::uint64_t loopStart = file.readUint32();
    const std::uint64_t loopEnd = loopStart + file.readUint32();
    file.skip(1); // volume
    const auto finetune = static_cast<std::int8_t>(file.readUint8());
    const unsigned type = file.readUint8();
    file.skip(1); // panning
    const auto relativeNote = static_cast<std::int8_t>(file.readUint8());
    file.skip(1 + 22);
    if (byteCount > 0) {
        const unsigned frameShift = (type >> 4 & 1) + (type >> 5 & 1); // 16 bits, stereo
        const std::uint64_t loopLength = (loopEnd >> frameShift) - (loopStart >> frameShift);
        traits.addSample(rateOf(relativeNote, finetune),
                         (type & loopBits) != 0 ? static_cast<std::uint32_t>(loopLength) : 0);
    } else {
        traits.addNoSample();
    }
    return byteCount;
}

/// What DUMB looks at between an instrument's name and its samples. Where it refuses an instrument
/// itself, it forgets to release the samples of those before. A note that goes over to an
/// instrument with fewer nodes makes it search behind them; only times below the largest that it
/// can find in the instrument, about 24000 ticks, keep it there.
bool checkSettings(io::CBufferedReader& file) {
    constexpr std::uint32_t sampleHeaderSize = 40;
    constexpr int mostNodes = 12;
    constexpr std::uint16_t latestNode = 0x4000, highestNode = 64;
    const bool isKnownSize = file.readUint32() == sampleHeaderSize;
    file.skip(96); // the sample of each note
    int nodesInRange[2] = {};
    for (int& count : nodesInRange) {
        bool isInRange = true;
        for (int node = 0; node < mostNodes; ++node) {
            const bool isInTime = file.readUint16() < latestNode;
            isInRange = file.readUint16() <= highestNode && isInTime && isInRange;
            count += isInRange;
        }
    }
    const int nodes[2] = {file.readUint8(), file.readUint8()};
    file.skip(6); // loops
    const bool isOn[2] = {(file.readUint8() & 1) != 0, (file.readUint8() & 1) != 0};
    return isKnownSize && (!isOn[0] || nodes[0] <= nodesInRange[0]) &&
           (!isOn[1] || nodes[1] <= nodesInRange[1]) && file.readUint8() < 4; // vibrato's shape
}

/// An instrument with its samples. Their data follow one another, so that the file's end is checked
/// where the next instrument is read.
bool checkInstrument(io::CBufferedReader& file, SModuleTraits& traits, std::uint64_t& dataBytes) {
    const std::int32_t start = file.getPosition();
    const std::uint32_t headerSize = file.readUint32();
    file.skip(22 + 1);
    const std::uint32_t sampleCount = file.readUint16();
    if (file.hasFailed() || sampleCount > MostSamplesPerInstrument ||
        (sampleCount != 0 && !checkSettings(file)) || !file.seek(start) || !file.skip(headerSize)) {
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
    CNoteCheck notes(header);
    for (std::uint32_t i = 0; i < header.patternCount; ++i) {
        if (!checkPattern(file, header, notes)) {
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
    return notes.isSafe() && data.isPresent();
}

} // namespace sn_internal
