// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// Records what this computer's sound server plays; scripts/test starts one. Without it, this
/// fails.

#include "tests/support/engine_helpers.h"
#include "tests/support/wait.h"

#include <gtest/gtest.h>

#include <algorithm>
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
using Samples = std::vector<double>;

constexpr double Pi = 3.14159265358979;
constexpr std::int32_t ToneRate = 44100;

struct SBlockCounter : sonimbra::IAudioRecorderReceiver {
    void OnAudioDataRecorded(const void*, std::int32_t) override { ++count; }
    std::atomic<int> count = 0;
};

/// One second, which goes on seamlessly when it is repeated.
std::vector<std::int16_t> stereoTone(int leftPitch, int rightPitch) {
    std::vector<std::int16_t> samples;
    for (int i = 0; i < ToneRate; ++i) {
        for (const int pitch : {leftPitch, rightPitch}) {
            samples.push_back(
                static_cast<std::int16_t>(16000 * std::sin(2 * Pi * pitch * i / ToneRate)));
        }
    }
    return samples;
}

/// Full scale is 1.
Samples channelOf(const void* data, const SAudioStreamFormat& format, std::int32_t channel) {
    Samples samples;
    for (std::int32_t i = channel; i < format.FrameCount * format.ChannelCount;
         i += format.ChannelCount) {
        samples.push_back(format.SampleFormat == E_SAMPLE_FORMAT::Unsigned8Bit
                              ? (static_cast<const std::uint8_t*>(data)[i] - 128) / 128.0
                              : static_cast<const std::int16_t*>(data)[i] / 32768.0);
    }
    return samples;
}

/// The tone's frequency, from how often it rises through zero. Noise below a tenth does not count.
double pitchOf(const Samples& samples, std::int32_t rate) {
    bool isLow = false;
    int rises = 0;
    for (const double sample : samples) {
        rises += isLow && sample > 0.1;
        isLow = sample < -0.1 || (isLow && sample <= 0.1);
    }
    return static_cast<double>(rises) * rate / static_cast<double>(samples.size());
}

class ALSARecorder : public testing::Test {
protected:
    Recorder record(const char* device) {
        return Recorder::adopt(sonimbra::createSonimbraAudioRecorder(
            Offline.get(), E_SOUND_OUTPUT_DRIVER::ALSA, device));
    }
    void play(int leftPitch, int rightPitch) {
        SAudioStreamFormat format;
        format.ChannelCount = 2;
        format.FrameCount = format.SampleRate = ToneRate;
        format.SampleFormat = E_SAMPLE_FORMAT::Signed16Bit;
        std::vector<std::int16_t> tone = stereoTone(leftPitch, rightPitch);
        const auto size = static_cast<std::int32_t>(2 * tone.size());
        Player->removeAllSoundSources();
        Player->play2D(Player->addSoundSourceFromPCMData(tone.data(), size, "tone", format), true);
    }

    const Engine Player = Engine::adopt(sonimbra::createSonimbraDevice(
        E_SOUND_OUTPUT_DRIVER::ALSA, sonimbra::MultiThreaded, "pulse"));
    const OfflineEngine Offline = offlineEngine();
};

TEST_F(ALSARecorder, RecordsWhatIsPlayedInEveryFormat) {
    const auto blocks = counted_ptr<SBlockCounter>::adopt(new SBlockCounter);
    const Recorder other = record("pulse");
    const Recorder recorder = record("pulse");
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
        play(441, test.channels == 1 ? 441 : 700);
        std::this_thread::sleep_for(std::chrono::milliseconds(500)); // until it is heard
        ASSERT_TRUE(recorder->startRecordingBufferedAudio(test.rate, test.format, test.channels));
        std::this_thread::sleep_for(std::chrono::milliseconds(1600));
        EXPECT_TRUE(recorder->isRecording());
        recorder->stopRecordingAudio();
        const SAudioStreamFormat format = recorder->getAudioFormat();
        EXPECT_NEAR(1.6, static_cast<double>(format.FrameCount) / test.rate, 0.5);
        const void* const data = recorder->getRecordedAudioData();
        ASSERT_NE(nullptr, data);
        EXPECT_NEAR(441, pitchOf(channelOf(data, format, 0), test.rate), 20);
        EXPECT_NEAR(test.channels == 1 ? 441 : 700,
                    pitchOf(channelOf(data, format, test.channels - 1), test.rate), 30);

        const std::string name = std::to_string(test.rate);
        sonimbra::ISoundSource* const source =
            recorder->addSoundSourceFromRecordedAudio(name.c_str());
        ASSERT_NE(nullptr, source);
        const Sound sound = playTracked(*Offline.get(), source);
        const std::vector<std::int16_t> heard = rendered(*Offline.get(), ToneRate);
        const SAudioStreamFormat heardFormat = {2, ToneRate, ToneRate,
                                                E_SAMPLE_FORMAT::Signed16Bit};
        EXPECT_NEAR(441, pitchOf(channelOf(heard.data(), heardFormat, 0), ToneRate), 20);
        sound->stop();
    }
    EXPECT_TRUE(other->isRecording());
}

TEST_F(ALSARecorder, ListsDevicesThatRecord) {
    const DeviceList list =
        DeviceList::adopt(sonimbra::createAudioRecorderDeviceList(E_SOUND_OUTPUT_DRIVER::ALSA));
    ASSERT_GT(list->getDeviceCount(), 1);
    EXPECT_STREQ("", list->getDeviceID(0));
    EXPECT_STREQ("default device", list->getDeviceDescription(0));
    bool isServerListed = false;
    for (std::int32_t i = 0; i < list->getDeviceCount(); ++i) {
        const std::string description = list->getDeviceDescription(i);
        if (i == 0 || description == "PulseAudio Sound Server") {
            isServerListed |= i > 0;
            const Recorder recorder = record(list->getDeviceID(i));
            ASSERT_TRUE(recorder) << description;
            EXPECT_TRUE(recorder->startRecordingBufferedAudio());
        }
    }
    EXPECT_TRUE(isServerListed);
    EXPECT_FALSE(record("no-such-pcm"));
}

} // namespace
