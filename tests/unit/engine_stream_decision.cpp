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

/// A decoder that may answer with a count of its own.
class CAnsweringStream : public CScriptedStream {
public:
    CAnsweringStream(const SAudioStreamFormat& format, const Bytes& samples, std::int32_t answer)
        : CScriptedStream(format, samples), Answer(answer) {}
    std::int32_t readFrames(void* target, std::int32_t frames) override {
        const std::int32_t truth = CScriptedStream::readFrames(target, frames);
        return Answer == INT32_MAX ? truth : Answer;
    }

private:
    const std::int32_t Answer;
};

/// An engine with one file "X.fmt", whose decoder has the format and the frames that a test wants.
class StreamDecision : public testing::Test {
protected:
    StreamDecision() {
        addLoader(engine(), ".fmt", [this](IFileReader&) {
            auto* stream = new CAnsweringStream(Format, Samples, Answer);
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
    std::int32_t Answer = INT32_MAX; ///< of the decoder; the largest: it tells the truth
    std::vector<std::string>& Opened = addFactory(engine(), "X.fmt", {1, 2, 3})->journal;
};

struct SDecision {
    E_STREAM_MODE asked;
    std::int32_t channels;
    std::int32_t frames;
    std::int32_t bits;
    std::int32_t threshold;
    E_STREAM_MODE decided;
};

const SDecision Decisions[] = {
    {Auto, 2, 128000, 16, 2000000, InMemory}, // 512000 bytes
    {Auto, 2, 128001, 16, 2000000, Streamed},
    {Auto, 1, 512000, 8, 2000000, InMemory},
    {Auto, 1, 512001, 8, 2000000, Streamed},
    {Auto, 1, 256001, 16, 0, Streamed},
    {Auto, 2, 100, 16, 1, InMemory}, // the threshold is not for automatic mode
    {Auto, 2, 0, 16, 2000000, InMemory},
    {Auto, 2, -1, 16, 2000000, Streamed},
    {Auto, 2, 0x40000000, 16, 2000000, InMemory}, // 2^32 bytes are none
    {Auto, 2, 0x20000000, 16, 2000000, InMemory}, // 2^31 bytes are less than none
    {InMemory, 2, 500000, 16, 2000000, InMemory}, // 2000000 bytes
    {InMemory, 2, 500001, 16, 2000000, Streamed},
    {InMemory, 2, 500001, 16, 0, InMemory},
    {InMemory, 2, 500001, 16, -1, InMemory},
    {InMemory, 1, 1, 8, 1, InMemory},
    {InMemory, 1, 1, 16, 1, Streamed},
    {InMemory, 1, 0, 16, 1, InMemory},
    {InMemory, 2, -1, 16, 2000000, Streamed},
    {InMemory, 2, -5, 16, 0, Streamed},
    {Streamed, 1, 1, 8, 0, Streamed},
    {Streamed, 2, -1, 16, 0, Streamed},
};

TEST_F(StreamDecision, FollowsSizeModeAndThreshold) {
    for (const SDecision& c : Decisions) {
        SCOPED_TRACE(testing::Message() << c.channels << " x " << c.frames << " x " << c.bits
                                        << ", threshold " << c.threshold);
        Format = streamFormat(c.channels, c.frames, 44100, c.bits);
        ISoundSource& x = source(c.asked);
        x.setForcedStreamingThreshold(c.threshold);
        EXPECT_EQ(x.getForcedStreamingThreshold(), c.threshold);
        Lines expected;
        if (c.asked == InMemory && c.decided == Streamed) {
            expected = {"No streaming was specified, but forcing to play sound streamed (See "
                        "ISoundSource::setForcedStreamingThreshold): X.fmt"};
        }
        EXPECT_EQ(loggedLinesOf([&] { engine().play2D(&x); }), expected);
        EXPECT_EQ(Driver->requests.back().isStream, c.decided == Streamed);
        EXPECT_EQ(x.getStreamMode(), c.decided);
        EXPECT_EQ(x.getAudioFormat().FrameCount, c.frames);
        EXPECT_EQ(loggedLinesOf([&] { engine().play2D(&x); }), Lines{}) << "decided once";
    }
}

TEST_F(StreamDecision, Sticks) {
    ISoundSource& x = source();
    const struct {
        std::int32_t frames;
        E_STREAM_MODE set, decided;
    } cases[] = {{100, Auto, InMemory},
                 {128001, InMemory, InMemory},
                 {128001, Auto, Streamed},
                 {100, Streamed, Streamed},
                 {100, Auto, InMemory}};
    for (const auto& c : cases) {
        Format.FrameCount = c.frames;
        x.setStreamMode(c.set);
        x.forceReloadAtNextUse();
        engine().play2D(&x);
        EXPECT_EQ(x.getStreamMode(), c.decided);
    }
}

TEST_F(StreamDecision, ReadsAgainOnlyWhenForced) {
    ISoundSource& x = source();
    for (const std::size_t opened : {1u, 2u}) {
        Format.SampleRate += 1000;
        Samples = rampBytes(Format, Format.SampleRate, 100);
        x.forceReloadAtNextUse();
        EXPECT_EQ(Opened.size(), opened - 1);
        for (int i = 0; i < 3; ++i) {
            engine().play2D(&x);
        }
        EXPECT_EQ(Opened.size(), opened);
        EXPECT_EQ(x.getAudioFormat().SampleRate, Format.SampleRate);
        EXPECT_TRUE(beginsWith(x.getSampleData(), Samples));
    }
    ISoundSource& streamed = source(Streamed);
    engine().play2D(&streamed);
    engine().play2D(&streamed);
    EXPECT_EQ(Opened.size(), 4u);
    EXPECT_EQ(streamed.getSampleData(), nullptr);
    EXPECT_EQ(CScriptedFile::alive, 0);
    EXPECT_EQ(CScriptedStream::alive, 0) << "the scripted driver keeps none";
}

TEST_F(StreamDecision, PreloadsWhatIsNotStreamed) {
    const struct {
        E_STREAM_MODE mode;
        bool preload;
        std::int32_t frames;
        std::size_t opened;
        E_STREAM_MODE decided;
    } cases[] = {{Auto, true, 100, 1, InMemory},      {Auto, true, -1, 1, Streamed},
                 {InMemory, true, 100, 1, InMemory},  {Streamed, true, 100, 0, Streamed},
                 {InMemory, false, 100, 0, InMemory}, {Auto, false, 100, 0, Auto}};
    for (const auto& c : cases) {
        engine().removeAllSoundSources();
        Opened.clear();
        Format.FrameCount = c.frames;
        ISoundSource* x = engine().addSoundSourceFromFile("X.fmt", c.mode, c.preload);
        EXPECT_EQ(Opened.size(), c.opened);
        EXPECT_EQ(x->getStreamMode(), c.decided);
    }
    EXPECT_TRUE(Driver->requests.empty());
    EXPECT_EQ(CScriptedStream::alive, 0);
}

TEST_F(StreamDecision, QueriesOpenTheSoundOnce) {
    const std::function<void(ISoundSource&)> queries[] = {
        [](ISoundSource& x) { EXPECT_EQ(x.getPlayLength(), 2); },
        [](ISoundSource& x) { EXPECT_EQ(x.getAudioFormat().FrameCount, 100); },
        [](ISoundSource& x) { EXPECT_FALSE(x.getIsSeekingSupported()); },
        [](ISoundSource& x) { EXPECT_NE(x.getSampleData(), nullptr); },
    };
    for (const auto& first : queries) {
        ISoundSource& x = source();
        Opened.clear();
        Driver->requests.clear();
        first(x);
        for (const auto& query : queries) {
            query(x);
        }
        EXPECT_EQ(Opened.size(), 1u);
        ASSERT_EQ(Driver->requests.size(), 1u);
        const SDriverRequest& request = Driver->requests[0];
        EXPECT_FALSE(request.looped || request.is3D || request.enableSoundEffects);
        EXPECT_EQ(Driver->sounds.back()->calls, "listener release ") << "it stays paused";
        engine().update();
        EXPECT_EQ(CScriptedSound::alive, 0);
    }
    Driver->makesSounds = false;
    EXPECT_EQ(source(Streamed).getPlayLength(), 2) << "without a sound, too";
}

TEST_F(StreamDecision, LengthsAreTruncatedMilliseconds) {
    const struct {
        std::int32_t channels, frames, rate, length;
    } cases[] = {{2, 44100, 44100, 1000},
                 {1, 1, 3, 333},
                 {1, 2, 3, 666},
                 {1, 44099, 44100, 999},
                 {1, 0, 44100, 0},
                 {1, 16777217, 1000, 16777216},     // rounded to a float
                 {1, 1999999999, 1000, 2000000000}, // as well
                 {1, 2000, -1000, -2000},
                 {1, -1, 44100, -1},
                 {1, 100, 0, -1},
                 {0, 100, 44100, -1}};
    for (const auto& c : cases) {
        Format = streamFormat(c.channels, c.frames, c.rate, 8);
        EXPECT_EQ(source(Streamed).getPlayLength(), c.length) << c.frames << " at " << c.rate;
    }
}

TEST_F(StreamDecision, ShortensWhatADecoderDoesNotDeliver) {
    const struct {
        std::int32_t delivered, answer, frames;
    } cases[] = {{1000, INT32_MAX, 1000},
                 {999, INT32_MAX, 999},
                 {1, INT32_MAX, 1},
                 {0, INT32_MAX, 0},
                 {2000, INT32_MAX, 1000}, // more than announced
                 {500, -1, 0},
                 {500, INT32_MIN, 0},
                 {500, 1001, 1000}}; // and lies
    Format = streamFormat(2, 1000, 44100);
    for (const auto& c : cases) {
        Samples = rampBytes(Format, 0, c.delivered);
        Answer = c.answer;
        ISoundSource& x = source(InMemory);
        engine().play2D(&x);
        EXPECT_EQ(Driver->requests.back().frames, c.frames);
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
