// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "binding/native/conversions.h"

using namespace sn_internal;
using sonimbra::IAudioRecorder;

// Starts and stops wait for the capture thread, which may be waiting for a lock that a callback is
// inside of: no callback makes them.

sonimbra_recorder* sonimbra_recorder_create(sonimbra_engine* engine, int32_t driver,
                                            const char* device_id, const char* sdk_version) {
    if (engine == nullptr) {
        return nullptr;
    }
    const CHold hold(engine);
    return created([&]() -> sonimbra_recorder* {
        const std::lock_guard lock(engine->CountLock);
        auto native = counted_ptr<IAudioRecorder>::adopt(sonimbra::createSonimbraAudioRecorder(
            engine->Native, static_cast<sonimbra::E_SOUND_OUTPUT_DRIVER>(driver), device_id,
            sdk_version));
        if (!native) {
            return nullptr;
        }
        auto* const recorder = new sonimbra_recorder(engine, native.get());
        native.release();
        return recorder;
    });
}

void sonimbra_recorder_grab(sonimbra_recorder* recorder) {
    if (recorder != nullptr) {
        recorder->grab();
    }
}

int32_t sonimbra_recorder_drop(sonimbra_recorder* recorder) {
    return toFlat(recorder != nullptr && recorder->drop());
}

int32_t sonimbra_recorder_start_recording_buffered_audio(sonimbra_recorder* recorder,
                                                         int32_t sample_rate, int32_t sample_format,
                                                         int32_t channel_count) {
    if (recorder == nullptr || CCallbackScope::isActive()) {
        return 0;
    }
    const CHold hold(recorder);
    recorder->setReceiver(nullptr);
    return invoke(recorder, &IAudioRecorder::startRecordingBufferedAudio, sample_rate,
                  sample_format, channel_count);
}

int32_t sonimbra_recorder_start_recording_with_receiver(sonimbra_recorder* recorder,
                                                        sonimbra_on_audio_data_recorded receiver,
                                                        void* context, sonimbra_on_release release,
                                                        int32_t sample_rate, int32_t sample_format,
                                                        int32_t channel_count) {
    CContext owned(context, release);
    if (recorder == nullptr || receiver == nullptr || CCallbackScope::isActive()) {
        return 0;
    }
    const CHold hold(recorder);
    return withoutExceptions(0, [&] {
        const auto forwarder = counted_ptr<CRecordedAudioForwarder>::adopt(
            new CRecordedAudioForwarder(receiver, std::move(owned)));
        recorder->setReceiver(forwarder.get());
        return toFlat(recorder->Native->startRecordingWithReceiver(
            forwarder.get(), sample_rate, static_cast<sonimbra::E_SAMPLE_FORMAT>(sample_format),
            channel_count));
    });
}

void sonimbra_recorder_stop_recording_audio(sonimbra_recorder* recorder) {
    if (!CCallbackScope::isActive()) {
        invoke(recorder, &IAudioRecorder::stopRecordingAudio);
    }
}

sonimbra_source* sonimbra_recorder_add_sound_source_from_recorded_audio(sonimbra_recorder* recorder,
                                                                        const char* sound_name) {
    if (recorder == nullptr) {
        return nullptr;
    }
    const CHold hold(recorder); // outlasts the lock
    const CEngineLocked locked(*recorder->Engine->Native);
    return grabbed(invoke(recorder, &IAudioRecorder::addSoundSourceFromRecordedAudio, sound_name));
}

void sonimbra_recorder_clear_recorded_audio_data_buffer(sonimbra_recorder* recorder) {
    invoke(recorder, &IAudioRecorder::clearRecordedAudioDataBuffer);
}

int32_t sonimbra_recorder_is_recording(sonimbra_recorder* recorder) {
    return invoke(recorder, &IAudioRecorder::isRecording);
}

void sonimbra_recorder_get_audio_format(sonimbra_recorder* recorder,
                                        sonimbra_audio_stream_format* format) {
    store(format, invoke(recorder, &IAudioRecorder::getAudioFormat));
}

void* sonimbra_recorder_get_recorded_audio_data(sonimbra_recorder* recorder) {
    return invoke(recorder, &IAudioRecorder::getRecordedAudioData);
}

const char* sonimbra_recorder_get_driver_name(sonimbra_recorder* recorder) {
    return invoke(recorder, &IAudioRecorder::getDriverName);
}

int32_t sonimbra_recorder_is_driver_initialized(sonimbra_recorder* recorder) {
    return invoke(recorder, &IAudioRecorder::isDriverInitialized);
}
