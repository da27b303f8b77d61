// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// The engine's operations on sources, and playing them.

#include "binding/native/conversions.h"

using namespace sn_internal;
using sonimbra::E_STREAM_MODE;
using sonimbra::ISound;
using sonimbra::ISoundEngine;
using sonimbra::ISoundSource;
using sonimbra::vec3df;

namespace {

/// An overloaded operation by its signature.
template <class R, class... P>
constexpr auto overload(R (ISoundEngine::*operation)(P...)) {
    return operation;
}

/// Of memory that the engine only reads, although its operations take it without const.
void* readOnly(const void* memory) {
    return const_cast<void*>(memory);
}

} // namespace

sonimbra_sound* sonimbra_engine_play2d(sonimbra_engine* engine, const char* sound_file_name,
                                       int32_t looped, int32_t start_paused, int32_t track,
                                       int32_t stream_mode, int32_t enable_sound_effects) {
    return invoke(engine,
                  overload<ISound*, const char*, bool, bool, bool, E_STREAM_MODE, bool>(
                      &ISoundEngine::play2D),
                  sound_file_name, looped, start_paused, track, stream_mode, enable_sound_effects);
}

sonimbra_sound* sonimbra_engine_play2d_source(sonimbra_engine* engine, sonimbra_source* source,
                                              int32_t looped, int32_t start_paused, int32_t track,
                                              int32_t enable_sound_effects) {
    return invoke(engine,
                  overload<ISound*, ISoundSource*, bool, bool, bool, bool>(&ISoundEngine::play2D),
                  source, looped, start_paused, track, enable_sound_effects);
}

sonimbra_sound* sonimbra_engine_play3d(sonimbra_engine* engine, const char* sound_file_name,
                                       const sonimbra_vec3d* position, int32_t looped,
                                       int32_t start_paused, int32_t track, int32_t stream_mode,
                                       int32_t enable_sound_effects) {
    return invoke(
        engine,
        overload<ISound*, const char*, const vec3df&, bool, bool, bool, E_STREAM_MODE, bool>(
            &ISoundEngine::play3D),
        sound_file_name, position, looped, start_paused, track, stream_mode, enable_sound_effects);
}

sonimbra_sound* sonimbra_engine_play3d_source(sonimbra_engine* engine, sonimbra_source* source,
                                              const sonimbra_vec3d* position, int32_t looped,
                                              int32_t start_paused, int32_t track,
                                              int32_t enable_sound_effects) {
    return invoke(engine,
                  overload<ISound*, ISoundSource*, const vec3df&, bool, bool, bool, bool>(
                      &ISoundEngine::play3D),
                  source, position, looped, start_paused, track, enable_sound_effects);
}

sonimbra_sound* sonimbra_engine_play_music(sonimbra_engine* engine, const char* music_file_name) {
    return invoke(engine, &ISoundEngine::playMusic, music_file_name);
}

void sonimbra_engine_stop_all_sounds(sonimbra_engine* engine) {
    invoke(engine, &ISoundEngine::stopAllSounds);
}

void sonimbra_engine_set_all_sounds_paused(sonimbra_engine* engine, int32_t paused) {
    invoke(engine, &ISoundEngine::setAllSoundsPaused, paused);
}

int32_t sonimbra_engine_is_currently_playing(sonimbra_engine* engine, const char* sound_name) {
    return invoke(engine, overload<bool, const char*>(&ISoundEngine::isCurrentlyPlaying),
                  sound_name);
}

int32_t sonimbra_engine_is_currently_playing_source(sonimbra_engine* engine,
                                                    sonimbra_source* source) {
    return invoke(engine, overload<bool, ISoundSource*>(&ISoundEngine::isCurrentlyPlaying), source);
}

int32_t sonimbra_engine_get_sound_source_count(sonimbra_engine* engine) {
    return invoke(engine, &ISoundEngine::getSoundSourceCount);
}

sonimbra_source* sonimbra_engine_get_sound_source(sonimbra_engine* engine, const char* sound_name,
                                                  int32_t add_if_not_found) {
    return sourceFor(engine,
                     overload<ISoundSource*, const char*, bool>(&ISoundEngine::getSoundSource),
                     sound_name, add_if_not_found);
}

sonimbra_source* sonimbra_engine_get_sound_source_at(sonimbra_engine* engine, int32_t index) {
    return sourceFor(engine, overload<ISoundSource*, std::int32_t>(&ISoundEngine::getSoundSource),
                     index);
}

sonimbra_source* sonimbra_engine_add_sound_source_from_file(sonimbra_engine* engine,
                                                            const char* file_name,
                                                            int32_t stream_mode, int32_t preload) {
    return sourceFor(engine, &ISoundEngine::addSoundSourceFromFile, file_name, stream_mode,
                     preload);
}

sonimbra_source* sonimbra_engine_add_sound_source_from_memory(sonimbra_engine* engine,
                                                              const void* memory,
                                                              int32_t size_in_bytes,
                                                              const char* sound_name,
                                                              int32_t copy_memory) {
    return sourceFor(engine, &ISoundEngine::addSoundSourceFromMemory, readOnly(memory),
                     size_in_bytes, sound_name, copy_memory);
}

sonimbra_source* sonimbra_engine_add_sound_source_from_pcm_data(
    sonimbra_engine* engine, const void* memory, int32_t size_in_bytes, const char* sound_name,
    const sonimbra_audio_stream_format* format, int32_t copy_memory) {
    if (format == nullptr) {
        return nullptr;
    }
    return sourceFor(engine, &ISoundEngine::addSoundSourceFromPCMData, readOnly(memory),
                     size_in_bytes, sound_name, format, copy_memory);
}

sonimbra_source* sonimbra_engine_add_sound_source_alias(sonimbra_engine* engine,
                                                        sonimbra_source* base_source,
                                                        const char* sound_name) {
    return sourceFor(engine, &ISoundEngine::addSoundSourceAlias, base_source, sound_name);
}

void sonimbra_engine_remove_sound_source(sonimbra_engine* engine, const char* name) {
    invoke(engine, overload<void, const char*>(&ISoundEngine::removeSoundSource), name);
}

void sonimbra_engine_remove_sound_source_source(sonimbra_engine* engine, sonimbra_source* source) {
    invoke(engine, overload<void, ISoundSource*>(&ISoundEngine::removeSoundSource), source);
}

void sonimbra_engine_remove_all_sound_sources(sonimbra_engine* engine) {
    invoke(engine, &ISoundEngine::removeAllSoundSources);
}
