// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// The ALSA recorder's calls of the system, what it delivers, and its way through their failures.

#include "tests/alsa/scripted_pcm_posix.h"
#include "tests/support/log_capture.h"
#include "tests/support/ramp.h"
#include "tests/support/wait.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <sstream>

namespace {

using namespace sn_test;
using sn_internal::counted_ptr;
using sonimbra::E_SAMPLE_FORMAT;
using Recorder = counted_ptr<sonimbra::IAudioRecorder>;

constexpr std::int32_t Rate = 1000;

const char* const StartCalls = "open:x any access:3 format:2 channels:2 rate:1000 buffer:1000 "
                               "period:50 hardware current wake:500 software descriptors begin ";

struct SBlocks : sonimbra::IAudioRecorderReceiver {
    void OnAudioDataRecorded(const void* data, std::int32_t byteCount) override {
        const auto* bytes = static_cast<const std::uint8_t*>(data);
        all.insert(all.end(), bytes, bytes + byteCount);
        sizes.push_back(byteCount);
    }
    Bytes all;
    std::vector<std::int32_t> sizes;
};

Bytes ramp(std::int64_t begin, std::int64_t end) {
    return rampBytes(streamFormat(2, -1, Rate), begin, static_cast<std::int32_t>(end - begin));
}

class ALSARecording : public testing::Test {
protected:
    ALSARecording() { renew(); }

    /// A new recorder on a device as good as new.
    void renew() {
        Recording.reset();
        Device = {};
        Device.stream = SND_PCM_STREAM_CAPTURE;
        Device.bufferFrames = Rate;
        Blocks = counted_ptr<SBlocks>::adopt(new SBlocks);
        Recording = recorderOf(*Offline.get());
        EXPECT_EQ("open:x free close ", takeJournal());
    }
    static Recorder recorderOf(sonimbra::ISoundEngine& engine) {
        return Recorder::adopt(sonimbra::createSonimbraAudioRecorder(
            &engine, sonimbra::E_SOUND_OUTPUT_DRIVER::ALSA, "x"));
    }
    bool start(sonimbra::IAudioRecorderReceiver* receiver) {
        const auto format = E_SAMPLE_FORMAT::Signed16Bit;
        return receiver == nullptr
                   ? Recording->startRecordingBufferedAudio(Rate, format, 2)
                   : Recording->startRecordingWithReceiver(receiver, Rate, format, 2);
    }
    /// Waits for calls of the capture thread.
    static testing::AssertionResult makes(const std::string& calls) {
        std::string made;
        if (waitFor([&] { return (made += takeJournal()).size() >= calls.size(); }) &&
            made == calls) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << made << "instead of " << calls;
    }

    const OfflineEngine Offline = offlineEngine(sonimbra::PrintDebugInfoToStdOut);
    counted_ptr<SBlocks> Blocks;
    Recorder Recording;
};

TEST_F(ALSARecording, FailsToStartWhereAnyCallFails) {
    std::istringstream calls(StartCalls);
    std::string made;
    for (std::string call; calls >> call;) {
        made += call + " ";
        setAnswers({{call.substr(0, call.find(':')), {-ENODEV}}});
        const std::string log = standardOutputOf([&] { EXPECT_FALSE(start(nullptr)); });
        EXPECT_NE(std::string::npos, log.find("ALSA capture device: x: No such device\n")) << log;
        EXPECT_EQ(made + (call == "open:x" ? "" : "free close "), takeJournal());
        EXPECT_FALSE(Recording->isRecording());
        EXPECT_EQ(0, Recording->getAudioFormat().FrameCount);
    }
    for (const auto& [rate, channels] :
         {std::pair{0, 1}, {-1, 1}, {99, 1}, {INT32_MAX, 1}, {1000, 0}, {1000, 3}, {1000, -1}}) {
        const auto format = E_SAMPLE_FORMAT::Signed16Bit;
        EXPECT_FALSE(Recording->startRecordingBufferedAudio(rate, format, channels));
        EXPECT_EQ("", takeJournal());
    }
    EXPECT_TRUE(start(nullptr));
}

TEST_F(ALSARecording, DeliversHalvesOfTheBufferThroughInterruptions) {
    const struct {
        Answers answers;
        std::string calls;
        bool isLost = false; ///< what comes with the interruption
    } cases[] = {
        {{}, "events avail read:200 "},
        {{{"read", {150}}}, "events avail read:200 read:50 "},
        {{{"read", {150, -EAGAIN}}}, "events avail read:200 read:50 events avail read:50 "},
        {{{"avail", {-EINTR}}}, "events avail events avail read:200 "},
        {{{"avail", {-EPIPE}}}, "events avail prepare begin ", true},
        {{{"read", {-EPIPE}}}, "events avail read:200 prepare begin ", true},
        {{{"avail", {-EPIPE}}, {"begin", {-ESTRPIPE}}}, "events avail prepare begin ", true},
        {{{"avail", {-ESTRPIPE, -ESTRPIPE}}, {"resume", {-EAGAIN}}},
         "events avail resume events avail resume events avail read:200 "},
        {{{"avail", {-ESTRPIPE}}, {"resume", {-ENOSYS}}},
         "events avail resume prepare begin ",
         true},
    };
    for (const auto& test : cases) {
        renew();
        ASSERT_TRUE(start(Blocks.get()));
        EXPECT_EQ(StartCalls, takeJournal());
        capture(ramp(0, 700));
        EXPECT_TRUE(makes("events avail read:500 read:200 "));
        setAnswers(test.answers);
        capture(ramp(700, 900));
        EXPECT_TRUE(makes(test.calls));
        capture(ramp(900, 950), false);
        Recording->stopRecordingAudio();
        EXPECT_EQ("avail read:50 free close ", takeJournal());
        EXPECT_EQ((std::vector{2000, test.isLost ? 1000 : 1800}), Blocks->sizes);
        Bytes expected = ramp(0, test.isLost ? 700 : 900);
        const Bytes tail = ramp(900, 950);
        expected.insert(expected.end(), tail.begin(), tail.end());
        EXPECT_EQ(expected, Blocks->all);
    }
}

TEST_F(ALSARecording, EndsWithADeviceThatDisappears) {
    const struct {
        Answers answers;
        std::string calls;
    } cases[] = {
        {{{"avail", {-ENODEV}}}, "events avail "},
        {{{"events", {-ENODEV}}, {"avail", {-EAGAIN}}}, "events avail "},
        {{{"read", {-ENODEV}}}, "events avail read:9 "},
        {{{"avail", {-EPIPE}}, {"prepare", {-ENODEV}}}, "events avail prepare "},
        {{{"avail", {-EPIPE}}, {"begin", {-ENODEV}}}, "events avail prepare begin "},
    };
    for (const auto& test : cases) {
        renew();
        const std::string log = standardOutputOf([&] {
            ASSERT_TRUE(start(nullptr));
            capture(ramp(0, 700));
            EXPECT_TRUE(makes(std::string(StartCalls) + "events avail read:500 read:200 "));
            setAnswers(test.answers);
            capture(ramp(700, 709));
            EXPECT_TRUE(makes(test.calls));
            setAnswers({{"avail", {-ENODEV}}});
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            EXPECT_TRUE(Recording->isRecording());
            Recording->stopRecordingAudio();
        });
        EXPECT_EQ("ALSA capture device lost: x: No such device\n", log);
        EXPECT_EQ("avail free close ", takeJournal());
        EXPECT_EQ(700, Recording->getAudioFormat().FrameCount);
        EXPECT_EQ(0, std::memcmp(ramp(0, 700).data(), Recording->getRecordedAudioData(), 2800));
    }
}

TEST_F(ALSARecording, WakesWithoutAReasonCostNothing) {
    Device.isAlwaysWaking = true;
    capture({});
    ASSERT_TRUE(start(nullptr));
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    Recording->stopRecordingAudio();
    const std::string journal = takeJournal();
    EXPECT_LE(std::count(journal.begin(), journal.end(), ' '), 40) << journal;
}

TEST_F(ALSARecording, DropsInEveryOrderWhileRecording) {
    std::array<int, 4> order = {0, 1, 2, 3};
    do {
        renew();
        OfflineEngine engine = offlineEngine();
        Recording = recorderOf(*engine.get());
        ASSERT_TRUE(start(nullptr));
        capture(ramp(0, 600));
        Recording->stopRecordingAudio();
        auto source = Source::share(Recording->addSoundSourceFromRecordedAudio("tone"));
        ASSERT_TRUE(source);
        ASSERT_TRUE(start(Blocks.get()));
        const std::function<void()> drops[] = {[&] { engine.reset(); }, [&] { source.reset(); },
                                               [&] { Recording.reset(); }, [&] { Blocks.reset(); }};
        for (const int next : order) {
            capture(ramp(0, 600));
            drops[next]();
        }
        EXPECT_TRUE(takeJournal().ends_with("free close "));
    } while (std::next_permutation(order.begin(), order.end()));
}

} // namespace
