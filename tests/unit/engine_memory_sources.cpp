// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace sn_test;
using namespace sonimbra;

std::int32_t sizeOf(const Bytes& bytes) {
    return static_cast<std::int32_t>(bytes.size());
}

/// Renders more than any of these sounds has; returns the frames up to the last that is heard.
std::int32_t audibleFrames(IOfflineSoundEngine& engine) {
    const std::vector<std::int16_t> output = rendered(engine, 4096);
    const auto last = std::find_if(output.rbegin(), output.rend(), [](auto s) { return s != 0; });
    return static_cast<std::int32_t>(output.rend() - last) / 2;
}

/// The resampler looks two frames ahead, so that the last two are not heard.
std::int32_t audible(std::int32_t frames) {
    return std::max(frames - 2, 0);
}

TEST(MemorySource, CopiesOrUsesTheCallersBytes) {
    for (const bool copies : {true, false}) {
        const OfflineEngine engine = offlineEngine();
        Bytes block = wavFile({}, Bytes(4000, 0x33));
        ISoundSource* source =
            engine->addSoundSourceFromMemory(block.data(), sizeOf(block), "m", copies);
        EXPECT_EQ(source->getStreamMode(), E_STREAM_MODE::NoStreaming);
        for (const int sample : {0, 0x33}) {
            std::fill(block.end() - 4000, block.end(), std::uint8_t(sample));
            source->forceReloadAtNextUse();
            engine->play2D(source);
            EXPECT_EQ(audibleFrames(*engine.get()), copies || sample != 0 ? audible(1000) : 0);
        }
    }
}

TEST(MemorySource, IsReadUnderItsName) {
    const OfflineEngine engine = offlineEngine();
    std::string name;
    CScriptedLoader* loader = addLoader(*engine.get(), ".own", [&](IFileReader& file) {
        name = file.getFileName();
        EXPECT_EQ(file.getSize(), 5);
        return createRampStream(streamFormat(1, 10, 8000));
    });
    Bytes block = {1, 2, 3, 4, 5};
    EXPECT_EQ(engine->addSoundSourceFromMemory(block.data(), 5, "M.OWN")->getPlayLength(), 1);
    EXPECT_EQ(name, "M.OWN");
    EXPECT_EQ(loader->names, std::vector<std::string>{"m.own"});
}

TEST(MemorySource, SaysWhatItCannotOpen) {
    const OfflineEngine engine = offlineEngine();
    Bytes garbage = countingBytes(100);
    ISoundSource* source = engine->addSoundSourceFromMemory(garbage.data(), 100, "Noise.WAV");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(loggedLinesOf([&] { EXPECT_EQ(source->getPlayLength(), -1); }),
                  (Lines{"Unknown wave header in file", "Unknown wave header in file",
                         "Could not open audio stream for sound file: noise.wav"}));
    }
}

TEST(MemorySource, EndsWhereALyingFileEnds) {
    const struct {
        E_STREAM_MODE mode;
        std::uint32_t declared;
    } cases[] = {
        {E_STREAM_MODE::NoStreaming, 400},      {E_STREAM_MODE::Streaming, 400},
        {E_STREAM_MODE::NoStreaming, 50000000}, {E_STREAM_MODE::Streaming, 50000000},
        {E_STREAM_MODE::AutoDetect, 500000},    {E_STREAM_MODE::Streaming, 0x7FFFFF00},
    };
    for (const auto& c : cases) {
        const OfflineEngine engine = offlineEngine();
        Bytes file = riffFile({formatChunk({}), dataChunk(Bytes(400, 0x33), c.declared)});
        ISoundSource* source = engine->addSoundSourceFromMemory(file.data(), sizeOf(file), "lie");
        source->setForcedStreamingThreshold(0);
        source->setStreamMode(c.mode);
        const Sound sound = playTracked(*engine.get(), source);
        EXPECT_EQ(audibleFrames(*engine.get()), audible(100));
        EXPECT_TRUE(sound->isFinished());
        EXPECT_EQ(source->getAudioFormat().FrameCount, std::int32_t(c.declared / 4));
    }
}

TEST(PCMSource, CopiesOrUsesTheCallersSamples) {
    for (const bool copies : {true, false}) {
        const OfflineEngine engine = offlineEngine();
        const auto format = streamFormat(2, 300, 44100);
        Bytes block = rampBytes(format, 0, 300);
        ISoundSource* source =
            engine->addSoundSourceFromPCMData(block.data(), 1200, "p", format, copies);
        EXPECT_EQ(source->getStreamMode(), E_STREAM_MODE::NoStreaming);
        EXPECT_EQ(source->getSampleData() == block.data(), !copies);
        std::fill(block.begin(), block.end(), std::uint8_t(0));
        source->forceReloadAtNextUse(); // there is nothing to reload
        engine->play2D(source);
        const std::vector<std::int16_t> output = rendered(*engine.get(), audible(300));
        EXPECT_TRUE(copies ? isRamp16(output, 2)
                           : testing::AssertionResult(output == decltype(output)(output.size())));
    }
}

TEST(PCMSource, TakesNoMoreFramesThanThereAre) {
    const struct {
        SAudioStreamFormat format;
        std::int32_t size;
        std::int32_t frames;
    } cases[] = {
        {streamFormat(2, 100, 44100), 400, 100},        {streamFormat(2, 10, 44100), 400, 10},
        {streamFormat(2, 101, 44100), 403, 100},        {streamFormat(2, INT32_MAX, 44100), 3, 0},
        {streamFormat(1, 1000, 44100, 8), 256, 256},    {streamFormat(2, 0, 44100), 400, 0},
        {streamFormat(2, 0x40000001, 44100), 400, 100}, // wraps to 4 bytes
    };
    for (const auto& c : cases) {
        for (const bool copies : {true, false}) {
            const OfflineEngine engine = offlineEngine();
            Bytes block(static_cast<std::size_t>(c.size), 0x33);
            ISoundSource* source =
                engine->addSoundSourceFromPCMData(block.data(), c.size, "p", c.format, copies);
            EXPECT_EQ(source->getAudioFormat().FrameCount, c.frames);
            engine->play2D(source);
            EXPECT_EQ(audibleFrames(*engine.get()), audible(c.frames));
        }
    }
}

TEST(PCMSource, SurvivesAbsurdFormats) {
    for (const std::int32_t channels : {0, -1, 1, 3, 7, 0x40000001, INT32_MIN, INT32_MAX}) {
        for (const std::int32_t frames : {-1, INT32_MIN, 1, INT32_MAX}) {
            for (const std::int32_t rate : {0, -1, 1, INT32_MIN, INT32_MAX}) {
                const OfflineEngine engine = offlineEngine();
                Bytes block = countingBytes(64);
                auto format = streamFormat(channels, frames, rate);
                format.SampleFormat = static_cast<E_SAMPLE_FORMAT>(channels);
                ISoundSource* source = engine->addSoundSourceFromPCMData(
                    block.data(), 64, "p", format, frames == INT32_MAX);
                const Sound sound = playTracked(*engine.get(), source, rate < 0);
                sound->setPlayPosition(1000000);
                EXPECT_EQ(rendered(*engine.get(), 300).size(), 600u);
                sound->getPlayPosition();
                source->getPlayLength();
            }
        }
    }
}

TEST(PCMSource, LeavesTheCallersMemoryWhenItGoes) {
    const OfflineEngine engine = offlineEngine();
    std::vector<std::int16_t> block(1000, 1234);
    ISoundSource* source = engine->addSoundSourceFromPCMData(block.data(), 2000, "p",
                                                             streamFormat(1, 1000, 44100), false);
    const Sound sound = playTracked(*engine.get(), source, true);
    EXPECT_EQ(rendered(*engine.get(), 256)[200], 1234);
    engine->removeSoundSource(source);
    block = std::vector<std::int16_t>();
    EXPECT_EQ(audibleFrames(*engine.get()), 0);
}

TEST(SourceDefaults, AreLimitedOrTakenFromTheEngine) {
    const Engine engine = nullEngine();
    ISoundSource* source = engine->addSoundSourceFromFile("x");
    EXPECT_EQ(source->getDefaultVolume(), 1.0f);
    const struct {
        float set, got;
    } volumes[] = {{0.25f, 0.25f}, {1.5f, 1}, {-2, 0}, {0, 0}, {INFINITY, 1}, {NAN, 0}};
    for (const auto& c : volumes) {
        source->setDefaultVolume(c.set);
        EXPECT_EQ(source->getDefaultVolume(), c.got) << c.set;
    }
    EXPECT_EQ(source->getDefaultMinDistance(), 1.0f);
    EXPECT_EQ(source->getDefaultMaxDistance(), 1000000000.0f);
    const struct {
        float engineMin, engineMax, own, min, max;
    } distances[] = {
        {5, 50, 0, 5, 50},      {6, 60, -1, 6, 60},
        {7, 70, 3, 3, 3},       {0, 0, -0.0f, 0, 70},
        {-1, -1, 0, 0, 70}, // the engine refuses these
        {NAN, NAN, NAN, 0, 70}, {8, 80, 1e-30f, 1e-30f, 1e-30f},
    };
    for (const auto& c : distances) {
        engine->setDefault3DSoundMinDistance(c.engineMin);
        engine->setDefault3DSoundMaxDistance(c.engineMax);
        source->setDefaultMinDistance(c.own);
        source->setDefaultMaxDistance(c.own);
        EXPECT_EQ(source->getDefaultMinDistance(), c.min);
        EXPECT_EQ(source->getDefaultMaxDistance(), c.max);
    }
    EXPECT_EQ(engine->getDefault3DSoundMinDistance(), 8.0f);
    EXPECT_EQ(engine->getDefault3DSoundMaxDistance(), 80.0f);
}

} // namespace
