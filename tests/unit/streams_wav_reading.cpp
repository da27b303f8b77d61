// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/counted_ptr.h"
#include "io/CMemoryReadFile.h"
#include "streams/CSonimbraAudioStreamLoaderWAV.h"
#include "tests/support/CScriptedFile.h"
#include "tests/support/wav.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

using namespace sn_internal;
using namespace sn_test;

using Stream = counted_ptr<sonimbra::IAudioStream>;

/// Two marks behind the frames that were asked for show whether more was written.
constexpr std::uint8_t Mark = 0xa5;

Stream openFile(sonimbra::IFileReader* file) {
    CSonimbraAudioStreamLoaderWAV loader(nullptr);
    return Stream::adopt(loader.createAudioStream(file));
}

Stream openBytes(const Bytes& bytes) {
    const auto file = counted_ptr<CScriptedFile>::adopt(new CScriptedFile(bytes));
    return openFile(file.get());
}

Bytes readFrames(sonimbra::IAudioStream& stream, std::int32_t frameCount) {
    const auto frameSize = static_cast<std::size_t>(stream.getFormat().getFrameSize());
    const std::size_t asked = frameSize * static_cast<std::size_t>(std::max(frameCount, 0));
    Bytes target(asked + 2, Mark);
    const std::int32_t got = stream.readFrames(target.data(), frameCount);
    EXPECT_GE(got, 0);
    EXPECT_LE(got, std::max(frameCount, 0));
    EXPECT_EQ(target[asked], Mark);
    EXPECT_EQ(target[asked + 1], Mark);
    target.resize(frameSize * static_cast<std::size_t>(got));
    return target;
}

/// All that is left, in steps that rarely meet a boundary.
Bytes readAll(sonimbra::IAudioStream& stream) {
    Bytes all;
    for (std::int32_t step = 1;; step = step * 5 % 257) {
        const Bytes piece = readFrames(stream, step);
        if (piece.empty()) {
            return all;
        }
        all.insert(all.end(), piece.begin(), piece.end());
    }
}

Bytes sliceOf(const Bytes& bytes, std::size_t first, std::size_t last) {
    return Bytes(bytes.begin() + static_cast<std::ptrdiff_t>(std::min(first, bytes.size())),
                 bytes.begin() + static_cast<std::ptrdiff_t>(std::min(last, bytes.size())));
}

/// The upper two bytes of whole 24-bit samples.
Bytes without24BitTails(const Bytes& bytes) {
    Bytes result;
    for (std::size_t i = 0; i + 2 < bytes.size(); i += 3) {
        result.insert(result.end(), {bytes[i + 1], bytes[i + 2]});
    }
    return result;
}

struct SLayout {
    SWavFormat format;
    bool dataFirst;
};

std::string nameOf(const SLayout& layout) {
    return std::to_string(layout.format.bits) + "bit" + std::to_string(layout.format.channels) +
           "ch" + (layout.dataFirst ? "DataFirst" : "");
}

class WavReading : public testing::TestWithParam<SLayout> {
protected:
    Bytes fileOf(const Bytes& samples) const {
        const SWavChunk format = formatChunk(GetParam().format);
        const SWavChunk trailer{"LIST", Bytes(40, 0x55)};
        if (GetParam().dataFirst) {
            return riffFile({dataChunk(samples), format, trailer});
        }
        return riffFile({format, dataChunk(samples), trailer});
    }
    Bytes decoded(const Bytes& samples) const {
        return GetParam().format.bits == 24 ? without24BitTails(samples) : samples;
    }
    std::size_t storedFrameSize() const { return GetParam().format.bytesPerFrame(); }
};

TEST_P(WavReading, DeliversEverySampleAndNothingBehind) {
    const Bytes samples = countingBytes(4000 * storedFrameSize());
    const Stream stream = openBytes(fileOf(samples));
    ASSERT_TRUE(stream);
    EXPECT_EQ(readAll(*stream.get()), decoded(samples));
    EXPECT_EQ(readFrames(*stream.get(), 10), Bytes());
    EXPECT_TRUE(stream->setPosition(0));
    EXPECT_EQ(readFrames(*stream.get(), 5000), decoded(samples));
}

TEST_P(WavReading, IgnoresAPartOfAFrame) {
    const Bytes samples = countingBytes(4 * storedFrameSize());
    Bytes longer = samples;
    longer.resize(longer.size() + storedFrameSize() - 1);
    const Stream stream = openBytes(fileOf(longer));
    ASSERT_TRUE(stream);
    EXPECT_EQ(readFrames(*stream.get(), 10), decoded(samples));
    EXPECT_EQ(readFrames(*stream.get(), 10), Bytes());
}

TEST_P(WavReading, ReadsNothingForNoFrames) {
    const Stream stream = openBytes(fileOf(countingBytes(96)));
    ASSERT_TRUE(stream);
    for (const std::int32_t none : {0, -1, INT32_MIN}) {
        EXPECT_EQ(readFrames(*stream.get(), none), Bytes());
    }
    EXPECT_EQ(readAll(*stream.get()), decoded(countingBytes(96)));
}

TEST_P(WavReading, SurvivesEveryTruncation) {
    const Bytes samples = countingBytes(5 * storedFrameSize());
    const Bytes whole = fileOf(samples);
    const std::size_t dataStart = GetParam().dataFirst ? 20 : 44;
    const std::size_t formatEnd = GetParam().dataFirst ? 44 + samples.size() : 36;
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        SCOPED_TRACE(size);
        const Bytes cut = sliceOf(whole, 0, size);
        const auto file = counted_ptr<io::CMemoryReadFile>::adopt(
            new io::CMemoryReadFile(cut.data(), static_cast<std::int32_t>(size), "cut.wav", false));
        const Stream stream = openFile(file.get());
        ASSERT_EQ(static_cast<bool>(stream), size >= formatEnd && size >= dataStart);
        if (!stream) {
            continue;
        }
        const std::size_t present = std::min(size - dataStart, samples.size());
        const Bytes expected =
            decoded(sliceOf(samples, 0, present / storedFrameSize() * storedFrameSize()));
        EXPECT_EQ(readFrames(*stream.get(), 100), expected);
        for (const std::int32_t frame : {3, 1, 100, INT32_MAX, INT32_MIN}) {
            stream->setPosition(frame);
            readFrames(*stream.get(), 2);
        }
        EXPECT_TRUE(stream->setPosition(-1));
        EXPECT_EQ(readFrames(*stream.get(), 100), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, WavReading,
    testing::Values(SLayout{{1, 44100, 8}, false}, SLayout{{2, 44100, 8}, true},
                    SLayout{{1, 44100, 16}, true}, SLayout{{2, 44100, 16}, false},
                    SLayout{{1, 44100, 24}, false}, SLayout{{2, 44100, 24}, true}),
    [](const auto& layout) { return nameOf(layout.param); });

TEST(WavSamples, Of24BitsLoseTheirLowestByte) {
    const Stream stream = openBytes(wavFile({1, 44100, 24}, {0x12, 0x34, 0x56, 0xff, 0xff, 0x7f}));
    ASSERT_TRUE(stream);
    EXPECT_EQ(readFrames(*stream.get(), 2), packed16({0x5634, 0x7fff}));
}

TEST(WavPosition, CountsFramesOfTheOutput) {
    const Bytes samples = countingBytes(240);
    const struct {
        SWavFormat format;
        std::int32_t frame;
        std::size_t offset; ///< of the first byte that is read next
    } cases[] = {
        {{1, 44100, 8}, 7, 7},     {{2, 44100, 8}, 7, 14}, {{1, 44100, 16}, 7, 14},
        {{2, 44100, 16}, 7, 28},   {{2, 44100, 16}, 0, 0}, {{2, 44100, 16}, -7, 0},
        {{2, 44100, 16}, 60, 240},
    };
    for (const auto& c : cases) {
        const Stream stream = openBytes(wavFile(c.format, samples));
        readFrames(*stream.get(), 3);
        EXPECT_TRUE(stream->setPosition(c.frame));
        EXPECT_EQ(readAll(*stream.get()), sliceOf(samples, c.offset, 240))
            << c.format.bits << " bits, frame " << c.frame;
    }
}

TEST(WavPosition, Of24BitFilesIsTwoThirdsOfTheWay) {
    const Bytes samples = countingBytes(240);
    for (const std::uint16_t channels : {std::uint16_t(1), std::uint16_t(2)}) {
        const SWavFormat format{channels, 44100, 24};
        const Stream stream = openBytes(wavFile(format, samples));
        EXPECT_TRUE(stream->setPosition(7));
        // Whole frames from 14 or 28 bytes behind the start, although 21 or 42 were stored.
        const std::size_t first = 14u * channels;
        const std::size_t last =
            first + (240 - first) / format.bytesPerFrame() * format.bytesPerFrame();
        EXPECT_EQ(readFrames(*stream.get(), 100), without24BitTails(sliceOf(samples, first, last)));
    }
}

TEST(WavPosition, BehindTheEndReadsNothing) {
    // The trailing chunk would be read when only the file's end counted.
    const Bytes bytes = riffFile(
        {formatChunk({2, 44100, 16}), dataChunk(countingBytes(40)), {"LIST", Bytes(400, 0x55)}});
    const Stream stream = openBytes(bytes);
    for (const std::int32_t frame : {10, 11, 50, 1000}) {
        EXPECT_TRUE(stream->setPosition(frame)) << "not compared with the length";
        EXPECT_EQ(readFrames(*stream.get(), 100), Bytes()) << frame;
    }
    EXPECT_FALSE(stream->setPosition(0x30000000)) << "a negative position in the file";
    EXPECT_TRUE(stream->setPosition(9));
    EXPECT_EQ(readFrames(*stream.get(), 100).size(), 4u);
}

TEST(WavSizes, ThatLieAreTrustedUntilTheFileEnds) {
    const Bytes samples = countingBytes(400);
    const struct {
        std::uint32_t declared;
        std::int32_t frames;
        std::size_t read;
    } cases[] = {
        {0, 0, 0},
        {3, 0, 0},
        {4, 1, 4},
        {399, 99, 396},
        {401, 100, 400},
        {0x10000000, 0x04000000, 400},
        {0x7fffffd3, 0x1ffffff4, 400}, // the samples end at the last position that 31 bits can tell
        {0x7fffffd4, 0x1ffffff5, 0},   // 4 bytes more, and the end wraps around
        {0x80000000, 0x20000000, 0},
        {0xffffffff, 0x3fffffff, 0},
    };
    for (const auto& c : cases) {
        const Stream stream =
            openBytes(riffFile({formatChunk({2, 44100, 16}), dataChunk(samples, c.declared)}));
        ASSERT_TRUE(stream) << c.declared;
        EXPECT_EQ(stream->getFormat().FrameCount, c.frames) << c.declared;
        EXPECT_EQ(readFrames(*stream.get(), 1000), sliceOf(samples, 0, c.read)) << c.declared;
    }
}

TEST(WavReaders, ThatGiveLessLoseNothing) {
    const Bytes samples = countingBytes(2400);
    for (const std::uint16_t bits : {std::uint16_t(8), std::uint16_t(16), std::uint16_t(24)}) {
        const auto file = counted_ptr<CScriptedFile>::adopt(
            new CScriptedFile(wavFile({2, 44100, bits}, samples)));
        const Stream stream = openFile(file.get());
        file->bytesPerRead = 24; // whole frames of every layout
        const Bytes first = readFrames(*stream.get(), 100);
        EXPECT_EQ(first.size(), bits == 24 ? 16u : 24u);
        Bytes all = readAll(*stream.get());
        all.insert(all.begin(), first.begin(), first.end());
        EXPECT_EQ(all, bits == 24 ? without24BitTails(samples) : samples) << bits;
    }
}

} // namespace
