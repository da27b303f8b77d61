// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "recording/CSonimbraAudioRecorder.h"

#include "core/no_throw.h"

#include <sonimbra/ISoundEngine.h>

namespace sn_internal {

using sonimbra::E_SAMPLE_FORMAT;
using sonimbra::IAudioRecorderReceiver;

CSonimbraAudioRecorder::CSonimbraAudioRecorder(sonimbra::ISoundEngine* engine)
    : Engine(counted_ptr<sonimbra::ISoundEngine>::share(engine)) {
    Format.SampleFormat = E_SAMPLE_FORMAT::Signed16Bit;
}

CSonimbraAudioRecorder::~CSonimbraAudioRecorder() = default;

bool CSonimbraAudioRecorder::startRecordingBufferedAudio(std::int32_t sampleRate,
                                                         E_SAMPLE_FORMAT sampleFormat,
                                                         std::int32_t channelCount) {
    return startAfresh(nullptr, sampleRate, sampleFormat, channelCount);
}

bool CSonimbraAudioRecorder::startRecordingWithReceiver(IAudioRecorderReceiver* receiver,
                                                        std::int32_t sampleRate,
                                                        E_SAMPLE_FORMAT sampleFormat,
                                                        std::int32_t channelCount) {
    return receiver != nullptr && startAfresh(receiver, sampleRate, sampleFormat, channelCount);
}

/// Stops first: the capture thread uses what is exchanged here.
bool CSonimbraAudioRecorder::startAfresh(IAudioRecorderReceiver* receiver, std::int32_t sampleRate,
                                         E_SAMPLE_FORMAT sampleFormat, std::int32_t channelCount) {
    auto next = counted_ptr<IAudioRecorderReceiver>::share(receiver);
    stopRecordingAudio();
    RecordedData.clear();
    Receiver = std::move(next);
    return withoutExceptions(
        false, [&] { return startRecording(sampleRate, sampleFormat, channelCount); });
}

sonimbra::ISoundSource*
CSonimbraAudioRecorder::addSoundSourceFromRecordedAudio(const char* soundName) {
    if (isRecording() || !Engine) {
        return nullptr;
    }
    return Engine->addSoundSourceFromPCMData(RecordedData.data(),
                                             static_cast<std::int32_t>(RecordedData.size()),
                                             soundName, Format, true);
}

void CSonimbraAudioRecorder::clearRecordedAudioDataBuffer() {
    if (!isRecording()) {
        RecordedData.clear();
    }
}

void* CSonimbraAudioRecorder::getRecordedAudioData() {
    return isRecording() || RecordedData.size() == 0 ? nullptr : RecordedData.data();
}

void CSonimbraAudioRecorder::beginFormat(std::int32_t channelCount, std::int32_t sampleRate,
                                         E_SAMPLE_FORMAT sampleFormat) {
    Format.ChannelCount = channelCount;
    Format.FrameCount = -1;
    Format.SampleRate = sampleRate;
    Format.SampleFormat = sampleFormat;
}

void CSonimbraAudioRecorder::endFormat() {
    const std::int32_t frameSize = Format.getFrameSize();
    const auto size = static_cast<std::int32_t>(RecordedData.size());
    Format.FrameCount = frameSize > 0 ? size / frameSize : 0;
}

void CSonimbraAudioRecorder::onAudioDataCaptured(const void* data, std::uint32_t byteCount) {
    if (!Receiver) {
        RecordedData.append(data, byteCount);
        return;
    }
    withoutExceptions(
        [&] { Receiver->OnAudioDataRecorded(data, static_cast<std::int32_t>(byteCount)); });
}

} // namespace sn_internal
