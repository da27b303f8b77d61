// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraAudioStreamLoaderMOD.h"
#include "tests/support/decoder_reference.h"
#include "tests/support/modules.h"

#include <gtest/gtest.h>

namespace {

using namespace sn_test;
using Loader = sn_internal::CSonimbraAudioStreamLoaderMOD;
using Writer = Bytes (*)(const sn_test::SModule&);

constexpr Writer Writers[] = {modFile, xmFile, s3mFile, itFile};

/// A pass through the pattern, in 1/65536 of a second.
constexpr double PatternLength = 7.68 * 65536;

TEST(Modules, EqualDumbAndCanOnlyBeRewound) {
    using enum E_MODULE_EFFECT;
    const sn_test::SModule songs[] = {
        {},
        {.orders = 3, .effects = {{8, Tempo, 200}, {20, Speed, 3}, {30, BreakToRow, 0}}},
        {.orders = 2, .effects = {{4, PatternLoop, 0}, {9, PatternLoop, 3}}, .sampleFrames = 5000},
    };
    for (const sn_test::SModule& song : songs) {
        for (const Writer write : Writers) {
            const Bytes file = write(song);
            long length = 0;
            const Samples expected = decodedByDumb(file, 1111, length);
            const auto stream = openedBy<Loader>(file);
            ASSERT_TRUE(stream);
            const auto format = stream->getFormat();
            EXPECT_EQ(format.ChannelCount, 2);
            EXPECT_EQ(format.SampleRate, 44100);
            EXPECT_EQ(format.FrameCount, length) << "not converted to frames";
            EXPECT_FALSE(stream->getIsSeekingSupported());
            EXPECT_EQ(readToEnd(*stream.get(), 1111), expected);
            std::int16_t frame[2];
            EXPECT_EQ(stream->readFrames(frame, 1), 0);
            EXPECT_TRUE(stream->setPosition(-5));
            EXPECT_EQ(stream->readFrames(frame, 1), 1);
            EXPECT_FALSE(stream->setPosition(1));
            EXPECT_EQ(stream->readFrames(frame, 1), 1);
            EXPECT_TRUE(stream->setPosition(0));
            EXPECT_EQ(readToEnd(*stream.get(), 1111), expected);
        }
    }
}

/// A jump back ends the module, an empty one has an end too; what repeats in itself is given up
/// after an hour, with a length to match.
TEST(Modules, EndHoweverTheyRepeat) {
    using enum E_MODULE_EFFECT;
    const auto lengthOf = [](const Bytes& file) {
        const auto stream = openedBy<Loader>(file);
        return stream ? stream->getFormat().FrameCount : -2;
    };
    for (const Writer write : Writers) {
        EXPECT_NEAR(lengthOf(write({.orders = 2})), 2 * PatternLength, 100);
        EXPECT_NEAR(lengthOf(write({.effects = {{63, JumpToOrder, 0}}})), PatternLength, 100);
    }
    for (const Writer write : {modFile, xmFile}) {
        const auto stream = openedBy<Loader>(write({.effects = {{32, Speed, 0}}}));
        EXPECT_NEAR(stream->getFormat().FrameCount, PatternLength / 2, 100);
        EXPECT_NEAR(static_cast<double>(readToEnd(*stream.get(), 4096, 1 << 20).size()) / 2,
                    7.68 * 44100 / 2, 100);
        EXPECT_EQ(lengthOf(write({.effects = {{0, Speed, 0}}})), 0);
    }
    constexpr std::size_t rowsOfPattern = 192 + 1 + 12 + 554 + 80 + 2;
    EXPECT_NEAR(lengthOf(patched(itFile(), rowsOfPattern, {0, 0})), 60 * 60 * 65536, 65536);
}

TEST(Modules, SurviveTruncationAndFlippedBits) {
    for (const Writer write : Writers) {
        const Bytes file = write({.sampleFrames = 16});
        std::size_t opened = 0;
        for (std::size_t size = 0; size < file.size(); size += size < 600 ? 1 : 3) {
            Bytes truncated(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size));
            EXPECT_FALSE(openedBy<Loader>(truncated)) << size << " of " << file.size();
            Bytes flipped = file;
            flipped[size] ^= static_cast<std::uint8_t>(1 << size % 8);
            if (const auto stream = openedBy<Loader>(flipped)) {
                ++opened;
                readToEnd(*stream.get(), 512, 2048);
            }
        }
        EXPECT_GT(opened, file.size() / 4);
    }
}

} // namespace
