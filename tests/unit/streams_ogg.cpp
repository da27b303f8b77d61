// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraAudioStreamLoaderOGG.h"
#include "tests/support/decoder_reference.h"
#include "tests/support/ogg.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace sn_test;
using Loader = sn_internal::CSonimbraAudioStreamLoaderOGG;

Bytes joined(Bytes first, const Bytes& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

TEST(Ogg, EqualsVorbisfileAndSeeksToEveryFrame) {
    const Bytes mono = oggFile({.channels = 1, .rate = 22050, .frames = 5000, .noise = 0.2f});
    for (const Bytes& file :
         {mono, oggFile({.frames = 9000}), oggFile({.channels = 3, .rate = 48000, .frames = 3000}),
          joined(mono, oggFile({.channels = 1, .rate = 22050, .frames = 4000, .serial = 2}))}) {
        const Samples expected = decodedByVorbisfile(file);
        const auto stream = openedBy<Loader>(file);
        ASSERT_TRUE(stream);
        const auto format = stream->getFormat();
        const auto channels = static_cast<std::size_t>(format.ChannelCount);
        ASSERT_EQ(static_cast<std::size_t>(format.FrameCount) * channels, expected.size());
        EXPECT_EQ(readToEnd(*stream.get(), 331), expected);
        EXPECT_EQ(stream->readFrames(nullptr, 0), 0);
        for (std::int32_t frame = 0; frame <= format.FrameCount; frame += 997) {
            ASSERT_TRUE(stream->setPosition(frame));
            const auto from = static_cast<std::ptrdiff_t>(channels) * frame;
            EXPECT_EQ(readToEnd(*stream.get(), 700),
                      Samples(expected.begin() + from, expected.end()))
                << channels << " channels from " << frame;
        }
        EXPECT_FALSE(stream->setPosition(-1));
        EXPECT_FALSE(stream->setPosition(format.FrameCount + 1));
    }
}

/// What is left of a packet of the next link may come along.
TEST(Ogg, EndsWhereAChainChangesItsFormat) {
    const Bytes first = oggFile({.frames = 6000});
    for (const SOggSignal& next : {SOggSignal{.rate = 22050, .frames = 6000, .serial = 2},
                                   SOggSignal{.channels = 1, .frames = 6000, .serial = 2}}) {
        const auto stream = openedBy<Loader>(joined(first, oggFile(next)));
        ASSERT_TRUE(stream);
        const Samples alone = decodedByVorbisfile(first);
        const Samples chained = readToEnd(*stream.get(), 12000);
        ASSERT_GE(chained.size(), alone.size());
        EXPECT_LT(chained.size(), alone.size() + 2 * 1024);
        EXPECT_TRUE(std::equal(alone.begin(), alone.end(), chained.begin()));
    }
}

/// Damage costs frames, never more; a file that cannot be positioned or read gives nothing.
TEST(Ogg, SurvivesTruncationAndFlippedBits) {
    const Bytes file = oggFile({.channels = 1, .rate = 8000, .frames = 2000});
    std::size_t opened = 0;
    for (std::size_t size = 0; size < file.size(); ++size) {
        Bytes truncated(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size));
        Bytes flipped = file;
        flipped[size] ^= static_cast<std::uint8_t>(1 << size % 8);
        for (const Bytes& damaged : {truncated, flipped}) {
            if (const auto stream = openedBy<Loader>(damaged)) {
                ++opened;
                EXPECT_LE(readToEnd(*stream.get(), 256, 8000).size(), 8000u * 2);
                stream->setPosition(1000);
                readToEnd(*stream.get(), 256, 8000);
            }
        }
    }
    EXPECT_GT(opened, file.size() / 4) << "the damage has to reach the decoder";
    EXPECT_LT(opened, file.size() * 2);
}

/// Code books that cannot be built would have the decoder divide by zero.
TEST(Ogg, RefusesDecodersThatCannotStart) {
    Bytes file = oggFile({.channels = 1, .rate = 8000, .frames = 1000});
    EXPECT_TRUE(openedBy<Loader>(file));
    file[463] ^= 8;
    mendChecksums(file.data(), file.size());
    EXPECT_FALSE(openedBy<Loader>(file));
}

} // namespace
