// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "recording/CSonimbraAudioRecorder.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/ramp.h"

#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

using namespace sn_test;
using namespace sonimbra;

TEST(RecordedData, TakesNoByteMoreThanItsBound) {
    const std::unique_ptr<void, void (*)(void*)> zeros(std::calloc(524288000, 1), std::free);
    sn_internal::CRecordedData data;
    EXPECT_TRUE(data.append("abcde", 5));
    EXPECT_EQ(5u, data.capacity());
    EXPECT_FALSE(data.append(zeros.get(), 524288000 - 4));
    EXPECT_FALSE(data.append(zeros.get(), UINT32_MAX));
    EXPECT_TRUE(data.append(zeros.get(), 524288000 - 5));
    EXPECT_FALSE(data.append("f", 1));
    EXPECT_EQ(524288000u, data.size());
    EXPECT_EQ(0, std::memcmp("abcde", data.data(), 6));
}

/// A back end whose device is the test.
struct SFakeRecorder final : sn_internal::CSonimbraAudioRecorder {
    explicit SFakeRecorder(ISoundEngine* engine) : CSonimbraAudioRecorder(engine) {}
    bool startRecording(std::int32_t rate, E_SAMPLE_FORMAT format, std::int32_t channels) override {
        beginFormat(channels, rate, format);
        return IsOn = true;
    }
    void stopRecordingAudio() override {
        if (std::exchange(IsOn, false)) {
            endFormat();
        }
    }
    bool isRecording() override { return IsOn; }
    const char* getDriverName() override { return "fake"; }
    bool isDriverInitialized() override { return true; }
    using CSonimbraAudioRecorder::onAudioDataCaptured;
    bool IsOn = false;
};

struct SThrowingReceiver final : IAudioRecorderReceiver {
    void OnAudioDataRecorded(const void*, std::int32_t bytes) override { throw bytes; }
};

TEST(AudioRecorder, GivesItsDataOnlyWhenItIsAtRest) {
    const OfflineEngine engine = offlineEngine();
    SFakeRecorder device(engine.get());
    IAudioRecorder& recorder = device;
    Bytes ramp = rampBytes(streamFormat(2, 22000, 22000), 0, 22000);
    EXPECT_TRUE(recorder.startRecordingBufferedAudio(22000, E_SAMPLE_FORMAT::Signed16Bit, 2));
    device.onAudioDataCaptured(ramp.data(), 88000);
    recorder.clearRecordedAudioDataBuffer();
    EXPECT_EQ(nullptr, recorder.getRecordedAudioData());
    EXPECT_EQ(nullptr, recorder.addSoundSourceFromRecordedAudio("r"));
    EXPECT_EQ(-1, recorder.getAudioFormat().FrameCount);
    recorder.stopRecordingAudio();
    EXPECT_FALSE(recorder.startRecordingWithReceiver(nullptr)) << "which changes nothing";
    EXPECT_EQ(22000, recorder.getAudioFormat().FrameCount);
    ASSERT_NE(nullptr, recorder.getRecordedAudioData());
    EXPECT_EQ(0, std::memcmp(ramp.data(), recorder.getRecordedAudioData(), 88000));

    ISoundSource* const source = recorder.addSoundSourceFromRecordedAudio("r");
    recorder.clearRecordedAudioDataBuffer(); // the source has a copy
    EXPECT_EQ(nullptr, recorder.getRecordedAudioData());
    ASSERT_NE(nullptr, source);
    EXPECT_EQ(1000u, source->getPlayLength());
    EXPECT_EQ(nullptr, recorder.addSoundSourceFromRecordedAudio("empty"));

    const auto receiver = sn_internal::counted_ptr<SThrowingReceiver>::adopt(new SThrowingReceiver);
    EXPECT_TRUE(recorder.startRecordingWithReceiver(receiver.get()));
    device.onAudioDataCaptured(ramp.data(), 88000);
    recorder.stopRecordingAudio();
    EXPECT_EQ(0, recorder.getAudioFormat().FrameCount);
    EXPECT_EQ(nullptr, recorder.getRecordedAudioData());
}

} // namespace
