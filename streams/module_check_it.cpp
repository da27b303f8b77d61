// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/module_check.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace sn_internal {
namespace {

constexpr std::uint32_t MostComponents = 256; // of each sort
constexpr std::uint32_t MostVoices = 256;     // 64 channels, and notes that sound on behind them
constexpr std::uint16_t LinearSlidesFlag = 8;
constexpr std::uint16_t NewInstrumentsVersion = 0x200;
constexpr std::uint8_t MostEnvelopeNodes = 25;

// The mask of a pattern's entry.
constexpr unsigned HasNote = 1;
constexpr unsigned HasEffect = 8;
constexpr unsigned HasLastNote = 16;

// Flags of a sample.
constexpr unsigned Exists = 1;
constexpr unsigned Has16Bits = 2;
constexpr unsigned IsStereo = 4;
constexpr unsigned IsCompressed = 8;
constexpr unsigned IsLooped = 16;
constexpr unsigned IsLoopedWhileHeld = 32;

struct SHeader {
    std::uint32_t orderCount;
    std::uint32_t instrumentCount;
    std::uint32_t sampleCount;
    std::uint32_t patternCount;
    bool hasEnvelopes;
};

bool readHeader(io::CBufferedReader& file, SHeader& header, SModuleTraits& traits) {
    char signature[4] = {};
    file.read(signature, sizeof(signature));
    file.skip(26 + 2);
    header.orderCount = file.readUint16();
    header.instrumentCount = file.readUint16();
    header.sampleCount = file.readUint16();
    header.patternCount = file.readUint16();
    file.skip(2);
    header.hasEnvelopes = file.readUint16() >= NewInstrumentsVersion;
    traits.hasLinearSlides = (file.readUint16() & LinearSlidesFlag) != 0;
    file.skip(2 + 1 + 1 + 1); // special, volumes; speed: DUMB takes 6 for 0
    const std::uint8_t tempo = file.readUint8();
    file.skip(1 + 1 + 2 + 4 + 4 + 64 + 64);
    return std::memcmp(signature, "IMPM", sizeof(signature)) == 0 && tempo != 0 &&
           header.instrumentCount <= MostComponents && header.sampleCount <= MostComponents &&
           header.patternCount <= MostComponents && file.skip(header.orderCount) &&
           !file.hasFailed();
}

std::vector<std::uint32_t> readOffsets(io::CBufferedReader& file, std::uint32_t count) {
    std::vector<std::uint32_t> offsets(count);
    for (std::uint32_t& offset : offsets) {
        offset = file.readUint32();
    }
    return offsets;
}

bool seekTo(io::CBufferedReader& file, std::uint32_t offset) {
    return offset <= INT32_MAX && file.seek(static_cast<std::int32_t>(offset));
}

/// DUMB releases differ in whether they bound the nodes that they store. The third envelope moves
/// the pitch, by half semitones of which the format allows 32.
bool checkEnvelopes(io::CBufferedReader& file, std::uint32_t instrument, SModuleTraits& traits) {
    constexpr std::uint32_t firstEnvelope = 304;
    constexpr std::uint32_t envelopeSize = 82;
    constexpr std::uint32_t pitch = 2;
    constexpr int largestBend = 32;
    for (std::uint32_t i = 0; i <= pitch; ++i) {
        if (!seekTo(file, instrument + firstEnvelope + i * envelopeSize)) {
            return false;
        }
        const bool bends = (file.readUint8() & 1) != 0 && i == pitch;
        const int nodeCount = file.readUint8();
        traits.hasPitchEnvelopes = traits.hasPitchEnvelopes || bends;
        file.skip(4); // loops
        for (int node = 0; node < nodeCount && bends; ++node) {
            const auto bend = static_cast<std::int8_t>(file.readUint8());
            file.skip(2); // the time
            if (bend < -largestBend || bend > largestBend) {
                return false;
            }
        }
        if (nodeCount > MostEnvelopeNodes) {
            return false;
        }
    }
    return true;
}

/// What ends a note more than once. DUMB goes on in the second loop of a sample from where the
/// first one would have come to, at each end anew, and twice as far each time.
class CNoteEnds {
public:
    void add(unsigned channel, std::uint8_t note) {
        constexpr std::uint8_t noteCount = 120, noteOff = 255;
        if (note == noteOff) {
            Most = std::max(Most, ++Run[channel]);
        } else if (note < noteCount) {
            Run[channel] = 0;
        }
    }
    /// In the order of the file; far more than a tracker's user has a reason for.
    bool areMany() const { return Most > 8; }

private:
    int Run[64] = {}; // ends since the channel's last note
    int Most = 0;
};

struct SSample {
    unsigned flags;
    std::uint32_t length, loopStart, loopEnd, rate, heldLoopStart, heldLoopEnd, offset;

    bool isLoopUsable() const {
        return (flags & IsLooped) != 0 && loopEnd <= length && loopStart < loopEnd;
    }
    bool isHeldLoopUsable() const {
        return (flags & IsLoopedWhileHeld) != 0 && heldLoopEnd <= length &&
               heldLoopStart < heldLoopEnd;
    }
    std::uint32_t getShortestLoop() const {
        std::uint32_t shortest = UINT32_MAX;
        if (isLoopUsable()) {
            shortest = loopEnd - loopStart;
        }
        if (isHeldLoopUsable()) {
            shortest = std::min(shortest, heldLoopEnd - heldLoopStart);
        }
        return shortest == UINT32_MAX ? 0 : shortest;
    }
    /// DUMB leaves out what lies behind the loops.
    std::uint32_t getFramesRead() const {
        if (!isLoopUsable()) {
            return length;
        }
        return isHeldLoopUsable() ? std::max(loopEnd, heldLoopEnd) : loopEnd;
    }
};

SSample readSample(io::CBufferedReader& file) {
    SSample sample = {};
    file.skip(4 + 13 + 1);
    sample.flags = file.readUint8();
    file.skip(1 + 26 + 1 + 1);
    for (std::uint32_t SSample::*field :
         {&SSample::length, &SSample::loopStart, &SSample::loopEnd, &SSample::rate,
          &SSample::heldLoopStart, &SSample::heldLoopEnd, &SSample::offset}) {
        sample.*field = file.readUint32();
    }
    if ((sample.flags & IsStereo) != 0) {
        // DUMB counts the frames of stereo samples twice in the file.
        for (std::uint32_t SSample::*field :
             {&SSample::length, &SSample::loopStart, &SSample::loopEnd, &SSample::rate,
              &SSample::heldLoopStart, &SSample::heldLoopEnd}) {
            sample.*field /= 2;
        }
    }
    return sample;
}

/// DUMB ends the process at a compressed stereo sample. A compressed frame takes a bit at least;
/// real encoders come nowhere near half of that.
bool checkSample(const SSample& sample, SModuleTraits& traits, CSampleDataCheck& data) {
    if ((sample.flags & Exists) == 0 || sample.length == 0) {
        traits.addNoSample();
        return true;
    }
    const bool isStereo = (sample.flags & IsStereo) != 0;
    const bool isCompressed = (sample.flags & IsCompressed) != 0;
    if (isStereo && isCompressed) {
        return false;
    }
    const std::uint64_t frames = sample.getFramesRead();
    const std::uint64_t bytes = frames * (isStereo ? 2 : 1) * (sample.flags & Has16Bits ? 2 : 1);
    data.add(sample.offset, isCompressed ? frames / 16 : bytes, bytes);
    traits.addSample(sample.rate, sample.getShortestLoop());
    return true;
}

/// Walks the packed rows as DUMB does. An entry must not reach over the end, because DUMB would
/// take what happens to lie behind. Nor may a row hold two entries for one channel: DUMB then
/// writes a report into the current folder, and ends the process if it cannot.
bool checkPatternData(const std::vector<std::uint8_t>& data, CNoteEnds& ends) {
    static const std::uint8_t sizes[16] = {0, 1, 1, 2, 1, 2, 2, 3, 2, 3, 3, 4, 3, 4, 4, 5};
    std::uint8_t masks[64] = {};
    std::uint8_t notes[64] = {};
    std::uint64_t named = 0; // channels with an entry in this row
    std::size_t at = 0;
    while (at < data.size()) {
        const unsigned what = data[at++];
        if (what == 0) {
            named = 0;
            continue;
        }
        const unsigned channel = (what - 1) & 63;
        if ((what & 128) != 0 && at < data.size()) {
            masks[channel] = data[at];
        }
        at += what >> 7;
        if ((masks[channel] & HasNote) != 0 && at < data.size()) {
            notes[channel] = data[at];
        }
        if ((masks[channel] & (HasNote | HasLastNote)) != 0) {
            ends.add(channel, notes[channel]);
        }
        at += sizes[masks[channel] & 15];
        if ((masks[channel] & HasEffect) != 0 && at <= data.size() &&
            data[at - 2] == KeyOffEffect) {
            return false;
        }
        const std::uint64_t bit = std::uint64_t(masks[channel] != 0) << channel;
        if ((named & bit) != 0) {
            return false;
        }
        named |= bit;
    }
    return at == data.size();
}

bool checkPattern(io::CBufferedReader& file, CNoteEnds& ends) {
    const std::uint16_t size = file.readUint16();
    file.skip(2 + 4);
    std::vector<std::uint8_t> data(size);
    return file.read(data.data(), size) == size && checkPatternData(data, ends);
}

} // namespace

bool mayBeReadAsIT(io::CBufferedReader& file, SModuleTraits& traits) {
    SHeader header;
    if (!readHeader(file, header, traits)) {
        return false;
    }
    traits.channelCount = MostVoices;
    const auto instruments = readOffsets(file, header.instrumentCount);
    const auto samples = readOffsets(file, header.sampleCount);
    const auto patterns = readOffsets(file, header.patternCount);
    const auto isSafeInstrument = [&](std::uint32_t offset) {
        return !header.hasEnvelopes || checkEnvelopes(file, offset, traits);
    };
    CSampleDataCheck data(file);
    CNoteEnds ends;
    bool hasTwoLoops = false;
    const auto isSafeSample = [&](std::uint32_t offset) {
        if (!seekTo(file, offset)) {
            return false;
        }
        const SSample sample = readSample(file);
        hasTwoLoops = hasTwoLoops || (sample.isLoopUsable() && sample.isHeldLoopUsable());
        return checkSample(sample, traits, data);
    };
    const auto isSafePattern = [&](std::uint32_t offset) {
        return offset == 0 || (seekTo(file, offset) && checkPattern(file, ends));
    };
    return std::all_of(instruments.begin(), instruments.end(), isSafeInstrument) &&
           std::all_of(samples.begin(), samples.end(), isSafeSample) &&
           std::all_of(patterns.begin(), patterns.end(), isSafePattern) &&
           !(hasTwoLoops && ends.areMany()) && !file.hasFailed() && data.isPresent();
}

} // namespace sn_internal
