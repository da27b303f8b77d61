// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/CScriptedFile.h"
#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace sn_test;
using namespace sonimbra;

constexpr auto Auto = E_STREAM_MODE::AutoDetect;
constexpr auto Streamed = E_STREAM_MODE::Streaming;
constexpr auto InMemory = E_STREAM_MODE::NoStreaming;

bool beginsWith(const void* data, const Bytes& bytes) {
    return std::equal(bytes.begin(), bytes.end(), static_cast<const std::uint8_t*>(data));
}

/// An engine with one file "X.fmt", whose decoder has the format and the frames that a test wants.
class StreamDecision : public testing::Test {
protected:
    StreamDecision() {
        addLoader(engine(), ".fmt", [this](IFileReader&) {
            auto* stream = new CScriptedStream(Format, Samples);
            stream->seekingSupported = false;
            return stream;
        });
    }

    ISoundEngine& engine() { return *Driver.get(); }
    ISoundSource& source(E_STREAM_MODE mode = Auto) {
        engine().removeAllSoundSources();
        return *engine().addSoundSourceFromFile("X.fmt", mode);
    }

    ScriptedEngine Driver = scriptedEngine();
    SAudioStreamFormat Format = streamFormat(2, 100, 44100);
    Bytes Samples;
    std::vector<std::string>& Opened = addFactory(engine(), "X.fmt", {1, 2, 3})->journal;
};

struct SDecision {
    E_STREAM_MODE asked;
    std::int32_t channels, frames, threshold;
    E_STREAM_MODE decided;
};

const SDecision Decisions[] = {
    {Auto, 2, 128000, 2000000, InMemory}, // 512000 bytes
    {Auto, 2, 128001, 2000000, Streamed},
    {Auto, 2, 100, 1, InMemory}, // the threshold is not for automatic mode
    {Auto, 2, -1, 2000000, Streamed},
    {Auto, 2, 0x40000000, 2000000, InMemory}, // 2^32 bytes are none
    {InMemory, 2, 500000, 2000000, InMemory}, // 2000000 bytes
    {InMemory, 2, 500001, 2000000, Streamed},
    {InMemory, 2, 500001, 0, InMemory},
    {InMemory, 2, -5, 0, Streamed},
    {Streamed, 1, 1, 0, Streamed},
};

TEST_F(StreamDecision, FollowsSizeModeAndThreshold) {
    for (const SDecision& c : Decisions) {
        SCOPED_TRACE(&c - Decisions);
        Format = streamFormat(c.channels, c.frames, 44100);
        ISoundSource& x = source(c.asked);
        x.setForcedStreamingThreshold(c.threshold);
        Lines expected;
        if (c.asked == InMemory && c.decided == Streamed) {
            expected = {"No streaming was specified, but forcing to play sound streamed (See "
                        "ISoundSource::setForcedStreamingThreshold): X.fmt"};
        }
        EXPECT_EQ(loggedLinesOf([&] { engine().play2D(&x); }), expected);
        EXPECT_EQ(Driver->requests.back().isStream, c.decided == Streamed);
        EXPECT_EQ(x.getStreamMode(), c.decided);
        EXPECT_EQ(loggedLinesOf([&] { engine().play2D(&x); }), Lines{}) << "decided once";
    }
}

TEST_F(StreamDecision, ReadsAgainOnlyWhenForced) {
    ISoundSource& x = source();
    for (const std::int32_t frames : {100, 128001}) { // automatic mode would stream the second
        Format = streamFormat(2, frames, 8000 + frames);
        Samples = rampBytes(Format, frames, frames);
        x.forceReloadAtNextUse();
        Opened.clear();
        engine().play2D(&x);
        engine().play2D(&x);
        EXPECT_EQ(Opened.size(), 1u);
        EXPECT_EQ(x.getStreamMode(), InMemory) << "decided once";
        EXPECT_EQ(x.getAudioFormat().SampleRate, 8000 + frames);
        EXPECT_TRUE(beginsWith(x.getSampleData(), Samples));
    }
    EXPECT_EQ(CScriptedFile::alive, 0);
    EXPECT_EQ(CScriptedStream::alive, 0) << "the scripted driver keeps none";
}

TEST_F(StreamDecision, PreloadsWhatIsNotStreamed) {
    for (const auto mode : {Auto, InMemory, Streamed}) {
        for (const bool preload : {true, false}) {
            engine().removeAllSoundSources();
            Opened.clear();
            engine().addSoundSourceFromFile("X.fmt", mode, preload);
            EXPECT_EQ(Opened.size(), preload && mode != Streamed ? 1u : 0u);
        }
    }
    EXPECT_TRUE(Driver->requests.empty());
}

TEST_F(StreamDecision, QueriesOpenTheSoundOnce) {
    ISoundSource& x = source();
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(x.getIsSeekingSupported());
        EXPECT_EQ(x.getPlayLength(), 2);
        EXPECT_EQ(x.getAudioFormat().FrameCount, 100);
        EXPECT_NE(x.getSampleData(), nullptr);
    }
    EXPECT_EQ(Opened.size(), 1u);
    EXPECT_EQ(Driver->requests.size(), 1u);
    EXPECT_EQ(Driver->sounds.back()->calls, "listener release ") << "it stays paused";
    engine().update();
    EXPECT_EQ(CScriptedSound::alive, 0);
    Driver->makesSounds = false;
    EXPECT_EQ(source(Streamed).getPlayLength(), 2) << "without a sound, too";
}

TEST_F(StreamDecision, LengthsAreTruncatedMilliseconds) {
    const struct {
        std::int32_t channels, frames, rate, length;
    } cases[] = {{1, 2, 3, 666},     {1, 16777217, 1000, 16777216}, // rounded to a float
                 {1, -1, 44100, -1}, {1, 2000, -1000, -2000},
                 {1, 100, 0, -1},    {0, 100, 44100, -1}};
    for (const auto& c : cases) {
        Format = streamFormat(c.channels, c.frames, c.rate, 8);
        EXPECT_EQ(source(Streamed).getPlayLength(), c.length) << c.frames << " at " << c.rate;
    }
}

TEST_F(StreamDecision, ShortensWhatADecoderDoesNotDeliver) {
    Format = streamFormat(2, 1000, 44100);
    for (const std::int32_t delivered : {0, 999, 2000}) {
        Samples = rampBytes(Format, 0, delivered);
        ISoundSource& x = source(InMemory);
        engine().play2D(&x);
        EXPECT_EQ(Driver->requests.back().frames, std::min(delivered, 1000));
        EXPECT_EQ(x.getAudioFormat().FrameCount, 1000);
        Samples.resize(std::min<std::size_t>(Samples.size(), 4000));
        EXPECT_TRUE(beginsWith(x.getSampleData(), Samples));
    }
}

TEST_F(StreamDecision, SurvivesSizesThatWrap) {
    Samples = rampBytes(streamFormat(2, 64, 44100), 0, 64);
    const SAudioStreamFormat formats[] = {
        streamFormat(2, 0x40000000, 44100),     streamFormat(2, 0x40000010, 44100),
        streamFormat(2, INT32_MAX, 44100),      streamFormat(0x40000001, 4, 44100),
        streamFormat(INT32_MIN, 2, 44100),      streamFormat(-1, 100, 44100),
        streamFormat(INT32_MAX, INT32_MAX, -1), streamFormat(0, INT32_MAX, INT32_MIN),
    };
    for (const SAudioStreamFormat& format : formats) {
        Format = format;
        ISoundSource& x = source(InMemory);
        x.setForcedStreamingThreshold(0);
        engine().play2D(&x);
        ASSERT_FALSE(Driver->requests.back().isStream);
        EXPECT_LE(Driver->requests.back().frames * std::int64_t(format.getFrameSize()),
                  std::max(format.getSampleDataSize(), 0));
    }
}

} // namespace
