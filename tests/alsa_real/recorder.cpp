// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// Records what this computer's sound server plays; scripts/test starts one. Without it, this
/// fails.

#include "tests/support/engine_helpers.h"
#include "tests/support/wait.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>

namespace {

using namespace sn_test;
using sn_internal::counted_ptr;
using sonimbra::E_SAMPLE_FORMAT;
using sonimbra::E_SOUND_OUTPUT_DRIVER;
using sonimbra::SAudioStreamFormat;
using Recorder = counted_ptr<sonimbra::IAudioRecorder>;
using DeviceList = counted_ptr<sonimbra::ISoundDeviceList>;

constexpr std::int32_t Rate = 44100; ///< of what is played and rendered

struct SBlockCounter : sonimbra::IAudioRecorderReceiver {
    void OnAudioDataRecorded(const void*, std::int32_t) override { ++count; }
    std::atomic<int> count = 0;
};

/// One second in stereo, which goes on seamlessly when it is repeated.
std::vector<std::int16_t> tone(double leftPitch, double rightPitch) {
    std::vector<std::int16_t> samples;
    for (int i = 0; i < Rate; ++i) {
        for (const double pitch : {leftPitch, rightPitch}) {
            const double phase = 2 * 3.14159265358979 * pitch * i / Rate;
            samples.push_back(static_cast<std::int16_t>(16000 * std::sin(phase)));
        }
    }
    return samples;
}

/// How often a channel of one second in stereo rises through zero. Noise does not count.
int pitchOf(const std::vector<std::int16_t>& samples, std::size_t channel) {
    bool isLow = false;
    int rises = 0;
    for (std::size_t i = channel; i < samples.size(); i += 2) {
        rises += isLow && samples[i] > 3000;
        isLow = samples[i] < -3000 || (isLow && samples[i] <= 3000);
    }
    return rises;
}

class ALSARecorder : public testing::Test {
protected:
    Recorder recorderOf(const char* device) {
        return Recorder::adopt(sonimbra::createSonimbraAudioRecorder(
            Offline.get(), E_SOUND_OUTPUT_DRIVER::ALSA, device));
    }
    void play(double leftPitch, double rightPitch) {
        const SAudioStreamFormat format = {2, Rate, Rate, E_SAMPLE_FORMAT::Signed16Bit};
        Player->removeAllSoundSources();
        Player->play2D(Player->addSoundSourceFromPCMData(tone(leftPitch, rightPitch).data(),
                                                         4 * Rate, "tone", format),
                       true);
    }
    /// What a source made of the recording sounds like.
    std::vector<std::int16_t> playedBack(sonimbra::IAudioRecorder& recorder) {
        Offline->removeAllSoundSources();
        Offline->play2D(recorder.addSoundSourceFromRecordedAudio("recording"));
        return rendered(*Offline.get(), Rate);
    }

    const Engine Player = Engine::adopt(sonimbra::createSonimbraDevice(
        E_SOUND_OUTPUT_DRIVER::ALSA, sonimbra::MultiThreaded, "pulse"));
    const OfflineEngine Offline = offlineEngine();
};

TEST_F(ALSARecorder, RecordsWhatIsPlayedInEveryFormat) {
    const auto blocks = counted_ptr<SBlockCounter>::adopt(new SBlockCounter);
    const Recorder other = recorderOf("pulse");
    const Recorder recorder = recorderOf("pulse");
    ASSERT_TRUE(Player && other && recorder);
    // The server takes up to two seconds for its first recording.
    ASSERT_TRUE(other->startRecordingWithReceiver(blocks.get()));
    ASSERT_TRUE(waitFor([&] { return blocks->count > 0; }));
    const struct {
        std::int32_t rate, channels;
        E_SAMPLE_FORMAT format;
    } cases[] = {
        {22000, 1, E_SAMPLE_FORMAT::Signed16Bit},
        {44100, 2, E_SAMPLE_FORMAT::Signed16Bit},
        {11025, 1, E_SAMPLE_FORMAT::Unsigned8Bit},
        {48000, 2, E_SAMPLE_FORMAT::Unsigned8Bit},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.rate);
        const int rightPitch = test.channels == 1 ? 441 : 700;
        play(441, rightPitch);
        std::this_thread::sleep_for(std::chrono::milliseconds(500)); // until it is heard
        ASSERT_TRUE(recorder->startRecordingBufferedAudio(test.rate, test.format, test.channels));
        std::this_thread::sleep_for(std::chrono::milliseconds(1600));
        recorder->stopRecordingAudio();
        const double seconds = double(recorder->getAudioFormat().FrameCount) / test.rate;
        EXPECT_NEAR(1.6, seconds, 0.5);
        const std::vector<std::int16_t> heard = playedBack(*recorder.get());
        EXPECT_NEAR(441, pitchOf(heard, 0), 20);
        EXPECT_NEAR(rightPitch, pitchOf(heard, 1), 30);
    }
}

TEST_F(ALSARecorder, ListsDevicesThatRecord) {
    const DeviceList list =
        DeviceList::adopt(sonimbra::createAudioRecorderDeviceList(E_SOUND_OUTPUT_DRIVER::ALSA));
    ASSERT_GT(list->getDeviceCount(), 1);
    EXPECT_STREQ("", list->getDeviceID(0));
    EXPECT_STREQ("default device", list->getDeviceDescription(0));
    int recording = 0;
    for (std::int32_t i = 0; i < list->getDeviceCount(); ++i) {
        const std::string description = list->getDeviceDescription(i);
        if (description == "default device" || description == "PulseAudio Sound Server") {
            const Recorder recorder = recorderOf(list->getDeviceID(i));
            recording += recorder && recorder->startRecordingBufferedAudio();
        }
    }
    EXPECT_EQ(2, recording);
    EXPECT_FALSE(recorderOf("no-such-pcm"));
}

} // namespace
