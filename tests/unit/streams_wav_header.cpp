// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/counted_ptr.h"
#include "streams/CSonimbraAudioStreamLoaderWAV.h"
#include "tests/support/CScriptedFile.h"
#include "tests/support/log_capture.h"
#include "tests/support/wav.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace sn_internal;
using namespace sn_test;

using File = counted_ptr<CScriptedFile>;
using Stream = counted_ptr<sonimbra::IAudioStream>;

const char* const UnknownHeader = "Unknown wave header in file";
const char* const UnknownFormat = "Wave file has unknown or not supported format.";
const char* const NoData = "Wave file has no data chunk.";

Stream openStream(sonimbra::IFileReader* file) {
    CSonimbraAudioStreamLoaderWAV loader(nullptr);
    return Stream::adopt(loader.createAudioStream(file));
}

File scripted(const Bytes& bytes) {
    return File::adopt(new CScriptedFile(bytes));
}

Bytes with(Bytes file, std::size_t offset, const std::string& text) {
    std::copy(text.begin(), text.end(), file.begin() + static_cast<std::ptrdiff_t>(offset));
    return file;
}

std::string unsupportedFormat(const std::string& name) {
    return "Wave file has an unsupported format: " + name + " (only PCM supported currently)";
}

class WavHeader : public testing::Test {
protected:
    void SetUp() override { CScriptedFile::alive = 0; }
    void TearDown() override { EXPECT_EQ(CScriptedFile::alive, 0) << "a reader was leaked"; }

    /// What is logged for a file that must not open.
    static Lines linesOfRefusal(CScriptedFile* file) {
        return loggedLinesOf([file] { EXPECT_FALSE(openStream(file)); });
    }
};

const Bytes Samples = countingBytes(24);

struct SAccepted {
    const char* what;
    Bytes file;
    sonimbra::SAudioStreamFormat format;
};

std::vector<SAccepted> everyPcmLayout() {
    constexpr auto words = sonimbra::E_SAMPLE_FORMAT::Signed16Bit;
    return {
        {"8 bit mono", wavFile({1, 8000, 8}, Samples), {1, 24, 8000, {}}},
        {"8 bit stereo", wavFile({2, 11025, 8}, Samples), {2, 12, 11025, {}}},
        {"16 bit mono", wavFile({1, 22050, 16}, Samples), {1, 12, 22050, words}},
        {"16 bit stereo", wavFile({2, 44100, 16}, Samples), {2, 6, 44100, words}},
        {"24 bit mono", wavFile({1, 48000, 24}, Samples), {1, 8, 48000, words}},
        {"24 bit stereo", wavFile({2, 96000, 24}, Samples), {2, 4, 96000, words}},
        {"part of a frame", wavFile({2, 44100, 16}, countingBytes(27)), {2, 6, 44100, words}},
        {"no samples", wavFile({1, 44100, 8}, {}), {1, 0, 44100, {}}},
        {"no rate", wavFile({1, 0, 8}, Samples), {1, 24, 0, {}}},
        {"negative rate", wavFile({1, 0xffffffff, 8}, Samples), {1, 24, -1, {}}},
    };
}

/// All of them 8-bit mono at 8000 Hz.
std::vector<SAccepted> unusualFiles() {
    const SWavChunk format = formatChunk({1, 8000, 8});
    const SWavChunk data = dataChunk(Samples);
    const SWavChunk list{"LIST", countingBytes(26)};
    const sonimbra::SAudioStreamFormat usual{1, 24, 8000, {}};
    return {
        {"longer format", riffFile({formatChunk({1, 8000, 8}, 7), data}), usual},
        {"data first", riffFile({data, format}), usual},
        {"chunks around", riffFile({list, format, list, data, list}), usual},
        {"short format before", riffFile({{"fmt ", countingBytes(15)}, format, data}), usual},
        {"bad format behind", riffFile({format, formatChunk({6, 1, 32}), data}), usual},
        {"RIFF size that lies", with(riffFile({format, data}), 4, {1, 0, 0, 0}), usual},
        {"data that lies", riffFile({format, dataChunk(Samples, 1000)}), {1, 1000, 8000, {}}},
    };
}

TEST_F(WavHeader, AcceptsEveryPcmLayout) {
    std::vector<SAccepted> cases = everyPcmLayout();
    const std::vector<SAccepted> more = unusualFiles();
    cases.insert(cases.end(), more.begin(), more.end());
    for (const SAccepted& c : cases) {
        SCOPED_TRACE(c.what);
        const File file = scripted(c.file);
        Stream stream;
        EXPECT_EQ(loggedLinesOf([&] { stream = openStream(file.get()); }), Lines());
        ASSERT_TRUE(stream);
        const sonimbra::SAudioStreamFormat format = stream->getFormat();
        EXPECT_EQ(format.ChannelCount, c.format.ChannelCount);
        EXPECT_EQ(format.FrameCount, c.format.FrameCount);
        EXPECT_EQ(format.SampleRate, c.format.SampleRate);
        EXPECT_EQ(format.SampleFormat, c.format.SampleFormat);
        EXPECT_TRUE(stream->getIsSeekingSupported());
    }
}

TEST_F(WavHeader, RefusesWithTheReason) {
    const Bytes good = wavFile({}, Samples);
    const SWavChunk oddList{"LIST", countingBytes(26), 25}; // one byte of padding
    const SWavChunk data = dataChunk(Samples);
    const struct {
        const char* what;
        Bytes file;
        Lines lines;
    } cases[] = {
        {"nothing", {}, {UnknownHeader}},
        {"other id", with(good, 0, "RIFX"), {UnknownHeader}},
        {"lower-case id", with(good, 0, "riff"), {UnknownHeader}},
        {"other form", with(good, 8, "AVI "), {UnknownHeader}},
        {"RIFF size 0", with(good, 4, std::string(4, '\0')), {UnknownHeader}},
        {"no chunk", riffFile({}), {UnknownFormat}},
        {"no format", riffFile({data}), {UnknownFormat}},
        {"format id in capitals", with(good, 12, "FMT "), {UnknownFormat}},
        {"format too short", riffFile({{"fmt ", countingBytes(15)}, data}), {UnknownFormat}},
        {"format cut", riffFile({{"fmt ", countingBytes(10), 16}}), {UnknownFormat}},
        {"no channels", wavFile({0, 44100, 16}, Samples), {UnknownFormat}},
        {"3 channels",
         wavFile({3, 44100, 16}, Samples),
         {"Wave file has an unsupported amount of channels 2 channels: 3", UnknownFormat}},
        {"65535 channels",
         wavFile({65535, 44100, 16}, Samples),
         {"Wave file has an unsupported amount of channels 2 channels: 65535", UnknownFormat}},
        {"0 bits",
         wavFile({1, 44100, 0}, Samples),
         {"Wave file has an unsupported bits per sample size: 0", UnknownFormat}},
        {"12 bits",
         wavFile({1, 44100, 12}, Samples),
         {"Wave file has an unsupported bits per sample size: 12", UnknownFormat}},
        {"32 bits",
         wavFile({1, 44100, 32}, Samples),
         {"Wave file has an unsupported bits per sample size: 32", UnknownFormat}},
        {"the tag counts first",
         wavFile({6, 44100, 32, 3}, Samples),
         {unsupportedFormat("3"), UnknownFormat}},
        {"the channels count second",
         wavFile({6, 44100, 32}, Samples),
         {"Wave file has an unsupported amount of channels 2 channels: 6", UnknownFormat}},
        {"a bad format before a good one",
         riffFile({formatChunk({6, 44100, 16}), formatChunk({}), data}),
         {"Wave file has an unsupported amount of channels 2 channels: 6", UnknownFormat}},
        {"no data", riffFile({formatChunk({}), {"LIST", Samples}}), {NoData}},
        {"data header cut", Bytes(good.begin(), good.begin() + 43), {NoData}},
        {"odd chunk before the data", riffFile({formatChunk({}), oddList, data}), {NoData}},
        {"odd chunk before the format",
         riffFile({oddList, formatChunk({}), data}),
         {UnknownFormat}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(linesOfRefusal(scripted(c.file).get()), c.lines);
    }
}

TEST_F(WavHeader, NamesUnsupportedFormats) {
    const struct {
        std::uint16_t tag;
        const char* name;
    } cases[] = {
        {0x0000, "0"},
        {0x0002, "MS ADPCM"},
        {0x0003, "3"},
        {0x0011, "DVI/IMA ADPCM"},
        {0x0033, "ANTEX ADPCME"},
        {0x0034, "CONTROL RES VQLPC"},
        {0x0035, "CONTROL RES VQLPC"},
        {0x0055, "MPEGLAYER3"},
        {0x0100, "256"},
        {0x0101, "IBM mu-law"},
        {0x0203, "CREATIVE FASTSPEECH10"},
        {0x1004, "OLIOPR"},
        {0xfffe, "EXTENSIBLE"},
        {0xffff, "65535"},
    };
    for (const auto& c : cases) {
        const File file = scripted(wavFile({2, 44100, 16, c.tag}, Samples));
        EXPECT_EQ(linesOfRefusal(file.get()), (Lines{unsupportedFormat(c.name), UnknownFormat}));
    }
}

TEST_F(WavHeader, WalksThatWouldNeverEndFailSoon) {
    const SWavChunk format = formatChunk({});
    const SWavChunk data = dataChunk(Samples);
    const struct {
        const char* what;
        Bytes file;
        Lines lines;
    } cases[] = {
        {"back to the same chunk, no format",
         riffFile({{"LIST", Samples, 0xfffffff8}}),
         {UnknownFormat}},
        {"back to the same chunk, no data",
         riffFile({format, {"LIST", Samples, 0xfffffff8}}),
         {NoData}},
        {"back to the format", riffFile({format, {"LIST", Samples, 0xffffffe0}}), {NoData}},
        {"far behind the end", riffFile({format, {"LIST", Samples, 0x7fffffff}, data}), {NoData}},
        {"far behind the start", riffFile({format, {"LIST", Samples, 0x80000000}, data}), {NoData}},
        {"format that is larger than all",
         riffFile({{"fmt ", format.payload, 0xffffffff}, data}),
         {UnknownFormat}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const File file = scripted(c.file);
        EXPECT_EQ(linesOfRefusal(file.get()), c.lines);
        EXPECT_LT(file->reads, 20);
    }
}

TEST_F(WavHeader, ManyEmptyChunksAreWalkedOnce) {
    std::vector<SWavChunk> chunks(5000, SWavChunk{"junk", {}});
    chunks.push_back(formatChunk({}));
    chunks.push_back(dataChunk(Samples));
    const File file = scripted(riffFile(chunks));
    EXPECT_TRUE(openStream(file.get()));
    EXPECT_LT(file->reads, 4 * 5010);
}

TEST_F(WavHeader, ReadersThatGiveTooLittleAreRefused) {
    const struct {
        std::uint32_t bytesPerRead;
        const char* line;
    } cases[] = {{0, UnknownHeader}, {3, UnknownHeader}, {4, UnknownFormat}, {15, UnknownFormat}};
    for (const auto& c : cases) {
        const File file = scripted(wavFile({}, Samples));
        file->bytesPerRead = c.bytesPerRead;
        EXPECT_EQ(linesOfRefusal(file.get()), Lines{c.line}) << c.bytesPerRead;
    }
    const File file = scripted(wavFile({}, Samples));
    file->bytesPerRead = 16;
    EXPECT_TRUE(openStream(file.get()));
}

TEST_F(WavHeader, SeeksThatFailAreRefused) {
    // Over the LIST chunk, over the rest of the format, back to the start, over each of the two.
    const Bytes bytes = riffFile({{"LIST", Samples}, formatChunk({}, 2), dataChunk(Samples)});
    const char* const lines[] = {UnknownFormat, UnknownFormat, UnknownFormat, NoData, NoData};
    for (std::int32_t working = 0; working < 5; ++working) {
        const File file = scripted(bytes);
        file->seeksUntilFailure = working;
        EXPECT_EQ(linesOfRefusal(file.get()), Lines{lines[working]}) << working;
    }
    const File file = scripted(bytes);
    file->seeksUntilFailure = 5;
    const Stream stream = openStream(file.get());
    ASSERT_TRUE(stream);
    EXPECT_FALSE(stream->setPosition(0));
    EXPECT_FALSE(stream->setPosition(1));
}

TEST_F(WavHeader, LooksAtTheNameForItsExtension) {
    CSonimbraAudioStreamLoaderWAV loader(nullptr);
    EXPECT_TRUE(loader.isALoadableFileExtension("song.wav"));
    EXPECT_TRUE(loader.isALoadableFileExtension("take.wav.bak"));
    EXPECT_FALSE(loader.isALoadableFileExtension("song.WAV"));
    EXPECT_FALSE(loader.isALoadableFileExtension("song.ogg"));
    EXPECT_FALSE(loader.isALoadableFileExtension(""));
    EXPECT_FALSE(loader.isALoadableFileExtension(nullptr));
}

TEST_F(WavHeader, WithoutAFileThereIsNoStream) {
    EXPECT_EQ(linesOfRefusal(nullptr), Lines());
}

} // namespace
