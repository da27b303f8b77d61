// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// Modules at which DUMB would end the process, leave its memory, divide by zero or never come back.

#include "streams/CSonimbraAudioStreamLoaderMOD.h"
#include "tests/support/decoder_reference.h"
#include "tests/support/modules.h"

#include <gtest/gtest.h>

namespace sn_test {
namespace {

constexpr auto open = openedBy<sn_internal::CSonimbraAudioStreamLoaderMOD>;

struct SHostile {
    const char* what;
    Bytes (*write)(const SModule&);
    std::size_t offset; ///< of what is patched
    Bytes sound;        ///< what stands there before; then the file opens
    Bytes hostile;
};

// Places in a file with one order. IT: its instrument, sample header and pattern.
constexpr std::size_t InstrumentIT = 205, SampleIT = InstrumentIT + 554, PatternIT = SampleIT + 80;
constexpr std::size_t SampleS3M = 112, PatternXM = 336, InstrumentXM = PatternXM + 9 + 264;

// A sample's length, the start of its loop and its end, honest and not.
const Bytes Lengths = {64, 0, 0, 0, 0, 0, 0, 0, 64, 0, 0, 0};
const Bytes TooLong = {64, 0, 0, 1, 0, 0, 0, 0, 64, 0, 0, 1};
const Bytes Rate = {0xab, 0x20, 0, 0};

const SHostile Refused[] = {
    {"MOD: eight channels by pairs", modFile, 1080, {'M', '.', 'K', '.'}, {'F', 'L', 'T', '8'}},
    {"XM: tempo 0", xmFile, 78, {125}, {0}},
    {"XM: tempo 256", xmFile, 78, {125, 0}, {0, 1}},
    {"XM: a note over the pattern's end", xmFile, InstrumentXM - 1, {0x80}, {0x81}},
    {"XM: a note that no sample is for", xmFile, PatternXM + 9 + 1, {49}, {98}},
    {"XM: a note ended without its instrument", xmFile, PatternXM + 9 + 1, {49, 1}, {97, 2}},
    {"XM: sample longer than the file", xmFile, InstrumentXM + 243, {64, 0}, {64, 64}},
    {"XM: rate below 1", xmFile, InstrumentXM + 243 + 16, {0}, {0x80}},
    {"S3M: tempo 0", s3mFile, 50, {125}, {0}},
    {"S3M: rate 0", s3mFile, SampleS3M + 32, Rate, {0, 0, 0, 0}},
    {"S3M: an effect of XM", s3mFile, SampleS3M + 80 + 2, {32, 0x40, 1}, {128, 32, 0}},
    {"S3M: sample longer than the file", s3mFile, SampleS3M + 16, Lengths, TooLong},
    {"IT: tempo 0", itFile, 51, {125}, {0}},
    {"IT: rate 0", itFile, SampleIT + 60, Rate, {0, 0, 0, 0}},
    {"IT: too slow for a slide of 128 semitones", itFile, SampleIT + 60, Rate, {0, 4, 0, 0}},
    {"IT: rate 2^31", itFile, SampleIT + 60, Rate, {0, 0, 0, 0x80}},
    {"IT: compressed stereo", itFile, SampleIT + 18, {17}, {29}},
    {"IT: sample longer than the file", itFile, SampleIT + 48, Lengths, TooLong},
    {"IT: 26 nodes of volume", itFile, InstrumentIT + 305, {0}, {26}},
    {"IT: 255 nodes of pitch", itFile, InstrumentIT + 305 + 2 * 82, {0}, {255}},
    {"IT: a pitch bent by 64 semitones",
     itFile,
     InstrumentIT + 304 + 2 * 82,
     {0, 0, 0, 0, 0, 0, 0},
     {1, 1, 0, 0, 0, 0, 0x80}},
    {"IT: an effect of XM", itFile, PatternIT + 8, {129, 3, 60, 1}, {129, 8, 32, 0}},
    {"IT: a channel twice in a row", itFile, PatternIT + 8 + 4, {0}, {1}},
    {"IT: an entry over the pattern's end", itFile, PatternIT + 8 + 79, {0}, {129}},
};

TEST(HostileModules, AreRefused) {
    for (const SHostile& row : Refused) {
        const Bytes bytes = row.write({});
        EXPECT_EQ(patched(bytes, row.offset, row.sound), bytes) << row.what;
        EXPECT_TRUE(open(bytes)) << row.what;
        EXPECT_FALSE(open(patched(bytes, row.offset, row.hostile))) << row.what;
    }
}

/// DUMB does not release the first instrument's sample; the leak sanitizer looks on.
TEST(HostileModules, LeaveNothingBehind) {
    constexpr std::size_t instrumentCount = 72, vibratoShape = 235, headerSize = 29, nodes = 225;
    constexpr std::size_t nodeTime = 129;
    const Bytes one = patched(xmFile(), instrumentCount, {2});
    const Bytes second(one.begin() + InstrumentXM, one.end());
    const auto followedBy = [&](const Bytes& instrument) {
        Bytes both = one;
        both.insert(both.end(), instrument.begin(), instrument.end());
        return both;
    };
    EXPECT_TRUE(open(followedBy(second)));
    EXPECT_FALSE(open(followedBy(patched(second, vibratoShape, {4}))));
    EXPECT_FALSE(open(followedBy(patched(second, headerSize, {41}))));
    EXPECT_FALSE(open(followedBy(patched(second, nodes, {13, 0, 0, 0, 0, 0, 0, 0, 1}))));
    const Bytes oneNode = patched(second, nodes, {1, 0, 0, 0, 0, 0, 0, 0, 1});
    EXPECT_TRUE(open(followedBy(oneNode)));
    EXPECT_FALSE(open(followedBy(patched(oneNode, nodeTime, {0, 0x40}))));
}

} // namespace
} // namespace sn_test
