// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/counted_ptr.h"
#include "recording/CRecordedData.h"

#include <sonimbra/IAudioRecorder.h>

#include <atomic>
#include <thread>

namespace sonimbra {
class ISoundEngine;
}

namespace sn_internal {

/// What all recorders share: the data, the receiver and the format. A capture back end derives from
/// it, starts and stops, and hands over what it captures.
class CSonimbraAudioRecorder : public sonimbra::IAudioRecorder {
public:
    bool startRecordingBufferedAudio(std::int32_t sampleRate,
                                     sonimbra::E_SAMPLE_FORMAT sampleFormat,
                                     std::int32_t channelCount) override;
    bool startRecordingWithReceiver(sonimbra::IAudioRecorderReceiver* receiver,
                                    std::int32_t sampleRate, sonimbra::E_SAMPLE_FORMAT sampleFormat,
                                    std::int32_t channelCount) override;
    sonimbra::ISoundSource* addSoundSourceFromRecordedAudio(const char* soundName) override;
    void clearRecordedAudioDataBuffer() override;
    sonimbra::SAudioStreamFormat getAudioFormat() override { return Format; }
    void* getRecordedAudioData() override;

protected:
    /// Grabs the engine.
    explicit CSonimbraAudioRecorder(sonimbra::ISoundEngine* engine);
    ~CSonimbraAudioRecorder() override;

    /// Whether this is a call from inside the receiver: a back end neither starts nor stops then,
    /// as both wait for the thread that delivers.
    bool isDelivering() const { return DeliveringThread == std::this_thread::get_id(); }

    /// For a start: the format of what is captured from now on, without a length.
    void beginFormat(std::int32_t channelCount, std::int32_t sampleRate,
                     sonimbra::E_SAMPLE_FORMAT sampleFormat);

    /// For a start that fails after beginFormat: what was recorded before gets its format back.
    void restoreFormat();

    /// For the end of a stop, after the last block: counts the frames.
    void endFormat();

    /// Takes a captured block, on the capture thread or, when that has ended, on the stopping one.
    void onAudioDataCaptured(const void* data, std::uint32_t byteCount);

private:
    bool startAfresh(sonimbra::IAudioRecorderReceiver* receiver, std::int32_t sampleRate,
                     sonimbra::E_SAMPLE_FORMAT sampleFormat, std::int32_t channelCount);

    counted_ptr<sonimbra::IAudioRecorderReceiver> Receiver; ///< null: keep the data
    sonimbra::SAudioStreamFormat Format;
    CRecordedData RecordedData;
    counted_ptr<sonimbra::ISoundEngine> Engine;
    sonimbra::SAudioStreamFormat FormatBefore;       ///< that beginFormat replaced
    std::atomic<std::thread::id> DeliveringThread{}; ///< which is inside the receiver; or none
};

} // namespace sn_internal
