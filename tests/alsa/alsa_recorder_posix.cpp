// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// The ALSA recorder's calls of the system, what it delivers, and its way through their failures.

#include "tests/alsa/scripted_pcm_posix.h"
#include "tests/support/log_capture.h"
#include "tests/support/wait.h"

#include <algorithm>
#include <functional>

#include <unistd.h>

namespace {

using namespace sn_test;
using sn_internal::counted_ptr;
using Recorder = counted_ptr<sonimbra::IAudioRecorder>;

constexpr auto Format = sonimbra::E_SAMPLE_FORMAT::Signed16Bit;
const char* const StartCalls =
    "open:x any access:3 format:2 channels:2 rate:1000 buffer:1000 "
    "period:50 hardware current wake:500 boundary stop:9000 software descriptors begin ";

struct SBlocks : sonimbra::IAudioRecorderReceiver {
    void OnAudioDataRecorded(const void* data, std::int32_t byteCount) override {
        recorder->stopRecordingAudio(); // does nothing here
        EXPECT_FALSE(recorder->startRecordingBufferedAudio() ||
                     recorder->startRecording(9, Format, 1));
        const auto* samples = static_cast<const std::int16_t*>(data);
        all.insert(all.end(), samples, samples + byteCount / 2);
        sizes.push_back(byteCount);
    }
    sonimbra::IAudioRecorder* recorder = nullptr;
    Frames16 all;
    std::vector<std::int32_t> sizes;
};

class ALSARecording : public testing::Test {
protected:
    void SetUp() override { restart(); }

    /// A new recorder on a device as good as new.
    void restart() {
        Recording.reset();
        Device = {};
        Device.stream = SND_PCM_STREAM_CAPTURE;
        Device.bufferFrames = 1000;
        Blocks = counted_ptr<SBlocks>::adopt(new SBlocks);
        Driver = offlineEngine(sonimbra::PrintDebugInfoToStdOut);
        Device.answers = {{"open", {-EBUSY}}}; // which may change until it records
        Recording = Recorder::adopt(sonimbra::createSonimbraAudioRecorder(
            Driver.get(), sonimbra::E_SOUND_OUTPUT_DRIVER::ALSA, "x"));
        Blocks->recorder = Recording.get();
        EXPECT_EQ("open:x ", journal());
    }
    bool start() { return Recording->startRecordingWithReceiver(Blocks.get(), 1000, Format, 2); }
    static std::string journal() {
        const std::lock_guard<std::recursive_mutex> lock(DeviceMutex);
        return std::exchange(Device.journal, "");
    }
    /// Captures, and returns the calls that the capture thread makes, until it has made so many.
    static std::string capture(const Frames16& frames, std::size_t length) {
        std::string calls;
        Device.capture(frames);
        waitFor([&] { return (calls += journal()).size() >= length; });
        return calls;
    }

    OfflineEngine Driver;
    counted_ptr<SBlocks> Blocks;
    Recorder Recording;
};

TEST_F(ALSARecording, FailsToStartWhereAnyCallFails) {
    std::istringstream calls(StartCalls);
    std::string made;
    for (std::string call; calls >> call;) {
        made += call + " ";
        Device.answers[call.substr(0, call.find(':'))] = {-ENODEV};
        const std::string log = standardOutputOf([&] { EXPECT_FALSE(start()); });
        EXPECT_TRUE(log.ends_with(" ALSA capture device: x: No such device\n")) << log;
        EXPECT_EQ(made + (call == "open:x" ? "" : "free close "), journal());
        EXPECT_FALSE(Recording->isRecording());
    }
    for (const auto& [rate, channels] : {std::pair{0, 1}, {INT32_MAX, 1}, {9, 0}, {9, 257}}) {
        EXPECT_FALSE(Recording->startRecordingBufferedAudio(rate, Format, channels));
        EXPECT_EQ("", journal());
    }
    EXPECT_TRUE(start());
}

TEST_F(ALSARecording, DeliversHalvesOfTheBufferWhateverHappens) {
    const std::string lost = "ALSA capture device lost: x: No such device\n";
    const std::string gap = "ALSA capture device overrun, frames were lost: x\n";
    const struct {
        Answers answers;
        std::string calls;   ///< behind "events avail "
        bool isGone = false; ///< what was captured last
        std::string log = "";
    } cases[] = {
        {{{"read", {100}}}, "read:150 read:50 read:50 "},
        {{{"read", {-EAGAIN}}}, "read:150 "},
        {{{"avail", {-EPIPE}}, {"begin", {-EAGAIN}}}, "prepare begin prepare begin ", true, gap},
        {{{"read", {-EPIPE}}}, "read:150 prepare begin ", true, gap},
        {{{"avail", {-ESTRPIPE}}, {"resume", {-EAGAIN}}},
         "resume resume events avail read:150 read:50 "},
        {{{"avail", {-ESTRPIPE}}, {"resume", {-ENOSYS}}, {"begin", {-EPIPE}}},
         "resume prepare begin ",
         true},
        {{{"avail", {-ENODEV}}}, "", false, lost},
        {{{"avail", {-EAGAIN}}, {"events", {-ENODEV}}}, "", false, lost},
        {{{"avail", {-EPIPE}}, {"prepare", {-ENODEV}}}, "prepare ", true, gap + lost},
    };
    for (const auto& test : cases) {
        restart();
        Frames16 expected = counting(700).samples;
        ASSERT_TRUE(start());
        EXPECT_EQ(StartCalls, journal());
        EXPECT_EQ("events avail read:350 ", capture(expected, 22));
        Device.answers = test.answers;
        const std::string log = standardOutputOf([&] {
            const std::string calls = "events avail " + test.calls;
            EXPECT_EQ(calls, capture(Frames16(400, 1), calls.size()));
            Device.capture(Frames16(500, 2), false);
            std::this_thread::sleep_for(std::chrono::milliseconds(30));
            Recording->stopRecordingAudio();
        });
        EXPECT_EQ(test.log, log);
        EXPECT_TRUE(journal().ends_with("free close "));
        expected.insert(expected.end(), test.isGone ? 0 : 400, 1);
        expected.insert(expected.end(), 500, 2);
        EXPECT_EQ(expected, Blocks->all);
        EXPECT_EQ((std::vector{2000, test.isGone ? 400 : 1200}), Blocks->sizes);
    }
}

TEST_F(ALSARecording, WakesWithoutAnEndCostLittle) {
    for (const std::size_t frames : {0, 30, 980}) {
        restart();
        Device.isAlwaysWaking = true;
        Device.endlessSamples = 2 * frames;
        Device.capture({});
        ASSERT_TRUE(Recording->startRecordingBufferedAudio(1000, Format, 2));
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        Recording->stopRecordingAudio();
        const std::string calls = journal();
        EXPECT_LE(std::count(calls.begin(), calls.end(), ' '), 45) << calls;
        EXPECT_LE(Recording->getAudioFormat().FrameCount, 3000);
    }
}

TEST_F(ALSARecording, StartsKeepOrLeaveWhatWasRecorded) {
    const int descriptor = dup(0); // the lowest that is free
    close(descriptor);
    Frames16 kept = counting(1000).samples;
    ASSERT_TRUE(start());
    Device.capture(counting(600).samples, false);
    ASSERT_TRUE(Recording->startRecordingBufferedAudio(1000, Format, 2));
    EXPECT_EQ(counting(600).samples, Blocks->all);
    Device.capture(kept, false);
    ASSERT_TRUE(Recording->startRecording(1000, Format, 2));
    Device.capture(Frames16(2600, 2), false);
    EXPECT_EQ("ALSA capture device overrun, frames were lost: x\n",
              standardOutputOf([&] { Recording->stopRecordingAudio(); }));
    kept.insert(kept.end(), 2000, 2);
    Device.answers["rate"] = {-EINVAL};
    EXPECT_FALSE(Recording->startRecording(4000, Format, 1));
    ASSERT_EQ(6000, Recording->getAudioFormat().getSampleDataSize());
    const auto* data = static_cast<const std::int16_t*>(Recording->getRecordedAudioData());
    EXPECT_EQ(kept, Frames16(data, data + 3000));
    EXPECT_TRUE(dup(0) == descriptor && close(descriptor) == 0);
}

TEST_F(ALSARecording, DropsInEveryOrderWhileRecording) {
    std::vector<int> order = {0, 1, 2, 3};
    do {
        restart();
        ASSERT_TRUE(Recording->startRecordingBufferedAudio(1000, Format, 2));
        Device.capture(counting(1200).samples);
        Recording->stopRecordingAudio();
        Source source = Source::share(Recording->addSoundSourceFromRecordedAudio("tone"));
        ASSERT_TRUE(source && start());
        const std::function<void()> drops[] = {[&] { Driver.reset(); }, [&] { source.reset(); },
                                               [&] { Recording.reset(); }, [&] { Blocks.reset(); }};
        for (const int next : order) {
            Device.capture(counting(1200).samples);
            drops[next]();
        }
        EXPECT_TRUE(journal().ends_with("free close "));
    } while (std::next_permutation(order.begin(), order.end()));
}

} // namespace
