// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "binding/native/conversions.h"

#include <algorithm>
#include <cstring>

using namespace sn_internal;
using sonimbra::ISoundSource;

void sonimbra_source_grab(sonimbra_source* source) {
    invoke(source, &ISoundSource::grab);
}

int32_t sonimbra_source_drop(sonimbra_source* source) {
    return invoke(source, &ISoundSource::drop);
}

const char* sonimbra_source_get_name(sonimbra_source* source) {
    return invoke(source, &ISoundSource::getName);
}

void sonimbra_source_set_stream_mode(sonimbra_source* source, int32_t mode) {
    invoke(source, &ISoundSource::setStreamMode, mode);
}

int32_t sonimbra_source_get_stream_mode(sonimbra_source* source) {
    return invoke(source, &ISoundSource::getStreamMode);
}

int32_t sonimbra_source_get_play_length(sonimbra_source* source) {
    return invoke(source, &ISoundSource::getPlayLength);
}

void sonimbra_source_get_audio_format(sonimbra_source* source,
                                      sonimbra_audio_stream_format* format) {
    store(format, invoke(source, &ISoundSource::getAudioFormat));
}

int32_t sonimbra_source_get_is_seeking_supported(sonimbra_source* source) {
    return invoke(source, &ISoundSource::getIsSeekingSupported);
}

void sonimbra_source_set_default_volume(sonimbra_source* source, float volume) {
    invoke(source, &ISoundSource::setDefaultVolume, volume);
}

float sonimbra_source_get_default_volume(sonimbra_source* source) {
    return invoke(source, &ISoundSource::getDefaultVolume);
}

void sonimbra_source_set_default_min_distance(sonimbra_source* source, float min_distance) {
    invoke(source, &ISoundSource::setDefaultMinDistance, min_distance);
}

float sonimbra_source_get_default_min_distance(sonimbra_source* source) {
    return invoke(source, &ISoundSource::getDefaultMinDistance);
}

void sonimbra_source_set_default_max_distance(sonimbra_source* source, float max_distance) {
    invoke(source, &ISoundSource::setDefaultMaxDistance, max_distance);
}

float sonimbra_source_get_default_max_distance(sonimbra_source* source) {
    return invoke(source, &ISoundSource::getDefaultMaxDistance);
}

void sonimbra_source_force_reload_at_next_use(sonimbra_source* source) {
    invoke(source, &ISoundSource::forceReloadAtNextUse);
}

void sonimbra_source_set_forced_streaming_threshold(sonimbra_source* source,
                                                    int32_t threshold_bytes) {
    invoke(source, &ISoundSource::setForcedStreamingThreshold, threshold_bytes);
}

int32_t sonimbra_source_get_forced_streaming_threshold(sonimbra_source* source) {
    return invoke(source, &ISoundSource::getForcedStreamingThreshold);
}

void* sonimbra_source_get_sample_data(sonimbra_source* source) {
    return invoke(source, &ISoundSource::getSampleData);
}

int32_t sonimbra_source_copy_sample_data(sonimbra_source* source, void* buffer, int32_t size) {
    if (source == nullptr || buffer == nullptr || size <= 0) {
        return 0;
    }
    return withoutExceptions(0, [&] {
        ISoundSource& native = *toNative(source);
        const CEngineLocked locked(native);
        const void* const samples = native.getSampleData();
        const std::int32_t available = native.getAudioFormat().getSampleDataSize();
        const std::int32_t count = samples == nullptr ? 0 : std::clamp(available, 0, size);
        if (count > 0) {
            std::memcpy(buffer, samples, static_cast<std::size_t>(count));
        }
        return count;
    });
}
