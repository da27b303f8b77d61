// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "io/CBufferedReader.h"

#include <cstdint>
#include <vector>

namespace sn_internal {

enum class E_MODULE_KIND { MOD, XM, S3M, IT };

/// What a module's file says about the pitches that it can reach; see module_rehearsal.h.
struct SModuleTraits {
    bool hasLinearSlides = false;
    bool hasPitchEnvelopes = false;
    std::uint32_t channelCount = 0;           ///< where voices can be
    std::uint32_t slowestSample = UINT32_MAX; ///< frames a second at DUMB's middle C
    std::uint32_t fastestSample = 0;
    std::vector<std::uint32_t> loops; ///< of each sample the shortest one in frames; 0 for none

    /// Every sample is told, in the order of the file: those without data by addNoSample().
    void addSample(std::uint32_t rate, std::uint32_t loopLength);
    void addNoSample() { loops.push_back(0); }
};

/// Decides before DUMB sees it whether a module may be read as the given kind. DUMB trusts its
/// input in places: a file that would make it end the process, write or read outside its memory,
/// divide by zero, or read for minutes, is refused here. So is what DUMB would refuse itself but
/// only after such work. Everything else passes, whether DUMB will read it or not.
///
/// The file's position does not matter; it is left anywhere.
bool mayBeRead(sonimbra::IFileReader& file, E_MODULE_KIND kind, SModuleTraits& traits);

// The same for each kind, from the beginning of a file.
bool mayBeReadAsMOD(io::CBufferedReader& file, SModuleTraits& traits);
bool mayBeReadAsXM(io::CBufferedReader& file, SModuleTraits& traits);
bool mayBeReadAsS3M(io::CBufferedReader& file, SModuleTraits& traits);
bool mayBeReadAsIT(io::CBufferedReader& file, SModuleTraits& traits);

/// The number by which DUMB knows XM's effect that ends a note. In S3M and IT, whose effects end at
/// 26, it would look for instruments that S3M has not got and IT need not have.
constexpr std::uint8_t KeyOffEffect = 32;

/// Counts the sample data that a module declares, against what the file holds and against a limit:
/// DUMB allocates all of it, and goes on reading it byte by byte behind the end of the file.
class CSampleDataCheck {
public:
    explicit CSampleDataCheck(io::CBufferedReader& file) : File(file) {}

    /// Declares data that the file keeps as storedBytes bytes at offset, and that takes byteCount
    /// bytes in memory.
    void add(std::uint64_t offset, std::uint64_t storedBytes, std::uint64_t byteCount);

    /// Whether everything declared is there, and not more than a module ever needs.
    bool isPresent();

private:
    /// Far above any real module; what DUMB reads in about a second.
    static constexpr std::uint64_t MostBytes = 256u << 20;

    io::CBufferedReader& File;
    std::uint64_t End = 0;
    std::uint64_t Total = 0;
};

} // namespace sn_internal
