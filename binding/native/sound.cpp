// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "binding/native/conversions.h"

using namespace sn_internal;
using sonimbra::ISound;

void sonimbra_sound_grab(sonimbra_sound* sound) {
    invoke(sound, &ISound::grab);
}

int32_t sonimbra_sound_drop(sonimbra_sound* sound) {
    return withoutExceptions(
        0, [&] { return toFlat(sound != nullptr && EventForwarder::drop(toNative(sound))); });
}

sonimbra_source* sonimbra_sound_get_sound_source(sonimbra_sound* sound) {
    return sourceFor(sound, &ISound::getSoundSource);
}

void sonimbra_sound_set_is_paused(sonimbra_sound* sound, int32_t paused) {
    invoke(sound, &ISound::setIsPaused, paused);
}

int32_t sonimbra_sound_get_is_paused(sonimbra_sound* sound) {
    return invoke(sound, &ISound::getIsPaused);
}

void sonimbra_sound_stop(sonimbra_sound* sound) {
    invoke(sound, &ISound::stop);
}

float sonimbra_sound_get_volume(sonimbra_sound* sound) {
    return invoke(sound, &ISound::getVolume);
}

void sonimbra_sound_set_volume(sonimbra_sound* sound, float volume) {
    invoke(sound, &ISound::setVolume, volume);
}

void sonimbra_sound_set_pan(sonimbra_sound* sound, float pan) {
    invoke(sound, &ISound::setPan, pan);
}

float sonimbra_sound_get_pan(sonimbra_sound* sound) {
    return invoke(sound, &ISound::getPan);
}

int32_t sonimbra_sound_is_looped(sonimbra_sound* sound) {
    return invoke(sound, &ISound::isLooped);
}

void sonimbra_sound_set_is_looped(sonimbra_sound* sound, int32_t looped) {
    invoke(sound, &ISound::setIsLooped, looped);
}

int32_t sonimbra_sound_is_finished(sonimbra_sound* sound) {
    return invoke(sound, &ISound::isFinished);
}

void sonimbra_sound_set_min_distance(sonimbra_sound* sound, float min_distance) {
    invoke(sound, &ISound::setMinDistance, min_distance);
}

float sonimbra_sound_get_min_distance(sonimbra_sound* sound) {
    return invoke(sound, &ISound::getMinDistance);
}

void sonimbra_sound_set_max_distance(sonimbra_sound* sound, float max_distance) {
    invoke(sound, &ISound::setMaxDistance, max_distance);
}

float sonimbra_sound_get_max_distance(sonimbra_sound* sound) {
    return invoke(sound, &ISound::getMaxDistance);
}

void sonimbra_sound_set_position(sonimbra_sound* sound, const sonimbra_vec3d* position) {
    invoke(sound, &ISound::setPosition, position);
}

void sonimbra_sound_get_position(sonimbra_sound* sound, sonimbra_vec3d* position) {
    store(position, invoke(sound, &ISound::getPosition));
}

void sonimbra_sound_set_velocity(sonimbra_sound* sound, const sonimbra_vec3d* velocity) {
    invoke(sound, &ISound::setVelocity, velocity);
}

void sonimbra_sound_get_velocity(sonimbra_sound* sound, sonimbra_vec3d* velocity) {
    store(velocity, invoke(sound, &ISound::getVelocity));
}

uint32_t sonimbra_sound_get_play_position(sonimbra_sound* sound) {
    return invoke(sound, &ISound::getPlayPosition);
}

int32_t sonimbra_sound_set_play_position(sonimbra_sound* sound, uint32_t milliseconds) {
    return invoke(sound, &ISound::setPlayPosition, milliseconds);
}

int32_t sonimbra_sound_set_playback_speed(sonimbra_sound* sound, float speed) {
    return invoke(sound, &ISound::setPlaybackSpeed, speed);
}

float sonimbra_sound_get_playback_speed(sonimbra_sound* sound) {
    return invoke(sound, &ISound::getPlaybackSpeed);
}

int32_t sonimbra_sound_get_play_length(sonimbra_sound* sound) {
    return invoke(sound, &ISound::getPlayLength);
}

int32_t sonimbra_sound_set_sound_stop_event_receiver(sonimbra_sound* sound,
                                                     sonimbra_event_forwarder* receiver,
                                                     void* user_data) {
    ISound* const native = toNative(sound);
    if (native == nullptr) {
        return 0;
    }
    return withoutExceptions(0, [&] {
        if (receiver != nullptr) {
            return toFlat(toNative(receiver)->registerAt(*native, user_data));
        }
        native->setSoundStopEventReceiver(nullptr, nullptr);
        return toFlat(native->getSoundSource() != nullptr);
    });
}
