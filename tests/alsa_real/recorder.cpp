// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// Records what this computer's sound server plays; scripts/test starts one. Without it, this
/// fails.

#include "tests/support/engine_helpers.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using namespace sn_test;
using sonimbra::E_SAMPLE_FORMAT;
using sonimbra::E_SOUND_OUTPUT_DRIVER;
using Recorder = sn_internal::counted_ptr<sonimbra::IAudioRecorder>;
using DeviceList = sn_internal::counted_ptr<sonimbra::ISoundDeviceList>;

class ALSARecorder : public testing::Test {
protected:
    /// The sources of its recordings are the offline engine's.
    Recorder recorderOf(const char* device) {
        return Recorder::adopt(sonimbra::createSonimbraAudioRecorder(
            Offline.get(), E_SOUND_OUTPUT_DRIVER::ALSA, device));
    }
    /// How often one of the two channels rises through zero. Noise does not count.
    static int pitchOf(const std::vector<std::int16_t>& samples, std::size_t channel) {
        bool isLow = false;
        int rises = 0;
        for (std::size_t i = channel; i < samples.size(); i += 2) {
            rises += isLow && samples[i] > 3000;
            isLow = samples[i] < -3000 || (isLow && samples[i] <= 3000);
        }
        return rises;
    }

    const Engine Player = Engine::adopt(sonimbra::createSonimbraDevice(
        E_SOUND_OUTPUT_DRIVER::ALSA, sonimbra::MultiThreaded, "pulse"));
    const OfflineEngine Offline = offlineEngine();
};

TEST_F(ALSARecorder, RecordsWhatIsPlayedInEveryFormat) {
    const Recorder other = recorderOf("pulse");
    const Recorder recorder = recorderOf("pulse");
    ASSERT_TRUE(Player && other && recorder);
    const Sound sound =
        playTracked(*Player.get(), addSquareWave(*Player.get(), "tone", 44100), true);
    // The server takes up to two seconds for its first recording, which goes on beside the next.
    ASSERT_TRUE(other->startRecordingBufferedAudio());
    std::this_thread::sleep_for(std::chrono::milliseconds(2500));
    const struct {
        std::int32_t rate, channels;
        E_SAMPLE_FORMAT format;
    } cases[] = {{22000, 1, E_SAMPLE_FORMAT::Signed16Bit},
                 {11025, 1, E_SAMPLE_FORMAT::Unsigned8Bit},
                 {44100, 2, E_SAMPLE_FORMAT::Signed16Bit},
                 {48000, 2, E_SAMPLE_FORMAT::Unsigned8Bit}};
    for (const auto& test : cases) {
        SCOPED_TRACE(test.rate);
        sound->setPan(test.channels == 2 ? 1.0f : 0.0f); // takes the right channel away
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        ASSERT_TRUE(recorder->startRecordingBufferedAudio(test.rate, test.format, test.channels));
        std::this_thread::sleep_for(std::chrono::milliseconds(1600));
        recorder->stopRecordingAudio();
        EXPECT_NEAR(1.6, double(recorder->getAudioFormat().FrameCount) / test.rate, 0.5);
        Offline->removeAllSoundSources();
        Offline->play2D(recorder->addSoundSourceFromRecordedAudio("recording"));
        const std::vector<std::int16_t> heard = rendered(*Offline.get(), 44100);
        EXPECT_NEAR(441, pitchOf(heard, 0), 20);
        EXPECT_NEAR(test.channels == 2 ? 0 : 441, pitchOf(heard, 1), 20);
    }
}

TEST_F(ALSARecorder, ListsDevicesThatRecord) {
    const DeviceList list =
        DeviceList::adopt(sonimbra::createAudioRecorderDeviceList(E_SOUND_OUTPUT_DRIVER::ALSA));
    std::string recording;
    for (std::int32_t i = 0; i < list->getDeviceCount(); ++i) {
        const std::string description = list->getDeviceDescription(i);
        const bool isServer = i == 0 || description == "PulseAudio Sound Server";
        const Recorder recorder = isServer ? recorderOf(list->getDeviceID(i)) : Recorder();
        recording += recorder && recorder->startRecordingBufferedAudio() ? description + ";" : "";
    }
    EXPECT_EQ("default device;PulseAudio Sound Server;", recording);
    EXPECT_FALSE(recorderOf("no-such-pcm"));
}

TEST_F(ALSARecorder, TakesLittleOfADeviceWithoutAnEnd) {
    const Recorder recorder = recorderOf("null");
    ASSERT_TRUE(recorder && recorder->startRecordingBufferedAudio(1000));
    std::this_thread::sleep_for(std::chrono::milliseconds(400));
    recorder->stopRecordingAudio();
    EXPECT_NEAR(2000, recorder->getAudioFormat().FrameCount, 1000);
}

} // namespace
