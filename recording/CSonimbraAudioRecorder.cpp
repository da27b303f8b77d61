// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "recording/CSonimbraAudioRecorder.h"

#include "core/no_throw.h"

#include <sonimbra/ISoundEngine.h>

#include <utility>

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

/// Stops first: the capture thread uses what is exchanged here. The receiver before goes before the
/// start, so that what it holds is free by then.
bool CSonimbraAudioRecorder::startAfresh(IAudioRecorderReceiver* receiver, std::int32_t sampleRate,
                                         E_SAMPLE_FORMAT sampleFormat, std::int32_t channelCount) {
    if (isDelivering()) {
        return false;
    }
    auto next = counted_ptr<IAudioRecorderReceiver>::share(receiver);
    stopRecordingAudio();
    RecordedData.clear();
    std::swap(Receiver, next);
    next.reset();
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
    return isRecording() ? nullptr : RecordedData.data();
}

void CSonimbraAudioRecorder::beginFormat(std::int32_t channelCount, std::int32_t sampleRate,
                                         E_SAMPLE_FORMAT sampleFormat) {
    FormatBefore = Format;
    Format.ChannelCount = channelCount;
    Format.FrameCount = -1;
    Format.SampleRate = sampleRate;
    Format.SampleFormat = sampleFormat;
}

void CSonimbraAudioRecorder::restoreFormat() {
    if (RecordedData.size() > 0) {
        Format = FormatBefore;
    } else {
        Format.FrameCount = 0;
    }
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
    DeliveringThread = std::this_thread::get_id();
    withoutExceptions(
        [&] { Receiver->OnAudioDataRecorded(data, static_cast<std::int32_t>(byteCount)); });
    DeliveringThread = std::thread::id();
}

} // namespace sn_internal
