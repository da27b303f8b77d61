// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/module_check.h"

#include <algorithm>

namespace sn_internal {
namespace {

/// Even the highest and the lowest note keep within what DUMB can count between the sample's frames
/// while the module is rehearsed. Real samples lie far inside.
constexpr std::uint32_t LowestSampleRate = 416;
constexpr std::uint32_t HighestSampleRate = 2500000;

} // namespace

void SModuleTraits::addSample(std::uint32_t rate, std::uint32_t loopLength) {
    slowestSample = std::min(slowestSample, rate);
    fastestSample = std::max(fastestSample, rate);
    if (loopLength != 0) {
        shortestLoop = std::min(shortestLoop, loopLength);
    }
}

bool mayBeRead(sonimbra::IFileReader& file, E_MODULE_KIND kind, SModuleTraits& traits) {
    static constexpr bool (*checks[])(io::CBufferedReader&, SModuleTraits&) = {
        mayBeReadAsMOD, mayBeReadAsXM, mayBeReadAsS3M, mayBeReadAsIT};
    traits = {};
    io::CBufferedReader reader(file);
    return checks[static_cast<int>(kind)](reader, traits) &&
           traits.slowestSample >= LowestSampleRate && traits.fastestSample <= HighestSampleRate;
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
