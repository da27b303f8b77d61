// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/counted_ptr.h"
#include "streams/CSonimbraAudioStreamLoaderWAV.h"
#include "tests/support/CScriptedFile.h"
#include "tests/support/log_capture.h"
#include "tests/support/wav.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace sn_internal;
using namespace sn_test;

const Bytes Samples = countingBytes(240);

struct SOpened {
    explicit SOpened(const Bytes& bytes) {
        CSonimbraAudioStreamLoaderWAV loader(nullptr);
        lines = loggedLinesOf([&] {
            file = counted_ptr<CScriptedFile>::adopt(new CScriptedFile(bytes));
            stream =
                counted_ptr<sonimbra::IAudioStream>::adopt(loader.createAudioStream(file.get()));
        });
    }

    counted_ptr<CScriptedFile> file;
    counted_ptr<sonimbra::IAudioStream> stream;
    Lines lines;
};

/// Up to 1000 frames; what lies behind them must stay as it is.
Bytes readFrames(sonimbra::IAudioStream& stream, std::int32_t frameCount = 1000) {
    const auto frameSize = static_cast<std::size_t>(stream.getFormat().getFrameSize());
    Bytes target(1001 * frameSize, 0xff);
    const auto size = static_cast<std::size_t>(stream.readFrames(target.data(), frameCount));
    EXPECT_EQ(target[1000 * frameSize], 0xff);
    target.resize(size * frameSize);
    return target;
}

/// The frames of a recording from a byte on, as they are delivered: 24 bits lose the lowest byte.
Bytes delivered(const SWavFormat& format, std::size_t first, std::size_t last = 240) {
    Bytes result;
    last -= (last - first) % format.bytesPerFrame();
    for (std::size_t i = first; i < last; ++i) {
        if (format.bits != 24 || (i - first) % 3 != 0) {
            result.push_back(Samples[i]);
        }
    }
    return result;
}

TEST(Wav, DeliversEveryPcmLayoutWhereverItsChunksLie) {
    for (const SWavFormat& format :
         {SWavFormat{1, 8000, 8}, SWavFormat{2, 11025, 8}, SWavFormat{1, 22050, 16},
          SWavFormat{2, 44100, 16}, SWavFormat{1, 48000, 24}, SWavFormat{2, 96000, 24}}) {
        const SWavChunk list{"LIST", Bytes(400, 0x55)};
        for (const Bytes& bytes :
             {riffFile({list, formatChunk(format, 7), list, dataChunk(Samples), list}),
              riffFile({dataChunk(Samples), {"fmt ", Bytes(15)}, formatChunk(format)})}) {
            SCOPED_TRACE(testing::Message() << format.channels << "x" << format.bits);
            const SOpened opened(bytes);
            ASSERT_TRUE(opened.stream);
            sonimbra::IAudioStream& stream = *opened.stream.get();
            EXPECT_EQ(opened.lines, Lines());
            EXPECT_EQ(stream.getFormat().ChannelCount, format.channels);
            EXPECT_EQ(stream.getFormat().FrameCount, 240 / format.bytesPerFrame());
            EXPECT_EQ(stream.getFormat().SampleRate, format.sampleRate);
            EXPECT_EQ(stream.getFormat().getSampleSize(), format.bits == 8 ? 1 : 2);
            EXPECT_EQ(readFrames(stream), delivered(format, 0));
            EXPECT_EQ(readFrames(stream), Bytes());
            // 24 bits are positioned by the smaller frames that they are delivered in.
            EXPECT_TRUE(stream.setPosition(7));
            EXPECT_EQ(readFrames(stream, -1), Bytes());
            opened.file->bytesPerRead = 12;
            const std::size_t start =
                7u * static_cast<std::size_t>(stream.getFormat().getFrameSize());
            EXPECT_EQ(readFrames(stream), delivered(format, start, start + 12));
            EXPECT_TRUE(stream.setPosition(-1));
            EXPECT_EQ(readFrames(stream, 1), delivered(format, 0, format.bytesPerFrame()));
            EXPECT_TRUE(stream.setPosition(241)) << "not compared with the length";
            EXPECT_EQ(readFrames(stream), Bytes());
        }
    }
}

TEST(Wav, RefusesWithTheReason) {
    const std::string header = "Unknown wave header in file";
    const std::string unknown = "Wave file has unknown or not supported format.";
    const std::string none = "Wave file has no data chunk.";
    const auto tag = [&](const std::string& name) {
        return Lines{"Wave file has an unsupported format: " + name +
                         " (only PCM supported currently)",
                     unknown};
    };
    const std::string channels = "Wave file has an unsupported amount of channels 2 channels: ";
    const std::string bits = "Wave file has an unsupported bits per sample size: ";
    const SWavChunk format = formatChunk({});
    const SWavChunk data = dataChunk(Samples);
    const SWavChunk odd{"LIST", Bytes(26), 25}; // one byte of padding
    const std::pair<Bytes, Lines> cases[] = {
        {{}, {header}},
        {riffFile({data}), {unknown}},
        {riffFile({{"fmt ", Bytes(15)}, data}), {unknown}},
        {riffFile({format, {"LIST", Samples}}), {none}},
        {riffFile({format, odd, data}), {none}},
        {wavFile({0, 44100, 16}, Samples), {unknown}},
        {wavFile({3, 44100, 32}, Samples), {channels + "3", unknown}},
        {riffFile({formatChunk({65535}), format, data}), {channels + "65535", unknown}},
        {wavFile({1, 44100, 12}, Samples), {bits + "12", unknown}},
        {wavFile({6, 44100, 32, 3}, Samples), tag("3")},
        {wavFile({2, 44100, 16, 0x35}, Samples), tag("CONTROL RES VQLPC")},
        {wavFile({2, 44100, 16, 0xfffe}, Samples), tag("EXTENSIBLE")},
        // Sizes that lead back, or far away: a walk that would never end.
        {riffFile({{"LIST", Samples, 0xfffffff8}}), {unknown}},
        {riffFile({format, {"LIST", {}, 0xffffffe0}}), {none}},
        {riffFile({format, {"LIST", {}, 0x80000000}, data}), {none}},
    };
    for (const auto& [bytes, lines] : cases) {
        const SOpened opened(bytes);
        EXPECT_FALSE(opened.stream);
        EXPECT_EQ(opened.lines, lines);
        EXPECT_LT(opened.file->reads, 20);
    }
}

TEST(Wav, TrustsItsSizesUntilTheFileEnds) {
    const struct {
        std::uint32_t declared;
        std::int32_t frames;
        std::size_t read;
    } cases[] = {
        {239, 59, 236},
        {0x7fffffd3, 0x1ffffff4, 240}, // the samples end at the last position that 31 bits can tell
        {0x7fffffd4, 0x1ffffff5, 0},   // 4 bytes more, and the end wraps around
    };
    for (const auto& c : cases) {
        const SOpened opened(riffFile({formatChunk({}), dataChunk(Samples, c.declared)}));
        ASSERT_TRUE(opened.stream) << c.declared;
        EXPECT_EQ(opened.stream->getFormat().FrameCount, c.frames) << c.declared;
        EXPECT_EQ(readFrames(*opened.stream.get()), delivered({}, 0, c.read)) << c.declared;
    }
}

TEST(Wav, SurvivesEveryTruncation) {
    const Bytes whole = wavFile({}, Samples);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const SOpened opened(
            Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
        ASSERT_EQ(static_cast<bool>(opened.stream), size >= 44) << size;
        if (opened.stream) {
            EXPECT_EQ(readFrames(*opened.stream.get()), delivered({}, 0, size - 44)) << size;
        }
    }
}

} // namespace
