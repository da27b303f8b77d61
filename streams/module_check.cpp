// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/module_check.h"

#include <algorithm>

namespace sn_internal {
namespace {

struct SRateRange {
    std::uint32_t lowest;
    std::uint32_t highest;
};

/// The samples that DUMB can count at every pitch that a module can give them: source frames for
/// each 1/65536 of a second, as a whole number of 1/65536, neither 0 nor 2^31. Real samples lie far
/// inside.
///
/// With linear slides a pitch stays within 128 semitones around the sample's own, times what comes
/// on top: vibrato (4 semitones), a pitch envelope (16), upwards also an arpeggio (15). Without, a
/// note is at most 5 octaves below the sample's own pitch, and the rehearsal sees slides in time;
/// upwards DUMB has a limit of its own. The highest rate counts at the rehearsal's step.
SRateRange rangeFor(const SModuleTraits& traits) {
    if (traits.hasLinearSlides) {
        return traits.hasPitchEnvelopes ? SRateRange{2602, 173000} : SRateRange{1025, 435000};
    }
    return {traits.hasPitchEnvelopes ? 416u : 162u, 2500000};
}

} // namespace

void SModuleTraits::addSample(std::uint32_t rate, std::uint32_t loopLength) {
    slowestSample = std::min(slowestSample, rate);
    fastestSample = std::max(fastestSample, rate);
    loops.push_back(loopLength);
}

bool mayBeRead(sonimbra::IFileReader& file, E_MODULE_KIND kind, SModuleTraits& traits) {
    static constexpr bool (*checks[])(io::CBufferedReader&, SModuleTraits&) = {
        mayBeReadAsMOD, mayBeReadAsXM, mayBeReadAsS3M, mayBeReadAsIT};
    traits = {};
    io::CBufferedReader reader(file);
    if (!checks[static_cast<int>(kind)](reader, traits)) {
        return false;
    }
    const SRateRange range = rangeFor(traits);
    return traits.slowestSample >= range.lowest && traits.fastestSample <= range.highest;
}

void CSampleDataCheck::add(std::uint64_t offset, std::uint64_t storedBytes,
                           std::uint64_t byteCount) {
    End = std::max(End, offset + storedBytes);
    Total += byteCount;
}

bool CSampleDataCheck::isPresent() {
    if (Total > MostBytes || End > INT32_MAX) {
        return false;
    }
    return End == 0 || (File.seek(static_cast<std::int32_t>(End - 1)) && File.readByte() >= 0);
}

} // namespace sn_internal
