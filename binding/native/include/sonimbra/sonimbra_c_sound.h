// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

/// Part of <sonimbra/sonimbra_c.h>, which holds the rules: sounds and their sources.

#include <sonimbra/sonimbra_c_types.h>

#ifdef __cplusplus
extern "C" {
#endif

/// @name Sound
/// One playing, paused or finished instance of a source. Once the source or the engine has been
/// removed, setters do nothing; getters then return 0 where nothing else is said, but pause,
/// pan, speed and distances stay what they were.
/// @{

/// Adds one reference.
SONIMBRA_API void SONIMBRA_CALL sonimbra_sound_grab(sonimbra_sound* sound);
/// Takes one reference away. Returns 1 when that was the last one. The engine holds one as long as
/// the sound plays, so dropping a sound does not end it.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_sound_drop(sonimbra_sound* sound);

/// The source it was made from (through an alias: the alias's base); one reference for the caller.
SONIMBRA_API sonimbra_source* SONIMBRA_CALL sonimbra_sound_get_sound_source(sonimbra_sound* sound);

/// Pauses or resumes. A paused sound is silent and does not advance.
SONIMBRA_API void SONIMBRA_CALL sonimbra_sound_set_is_paused(sonimbra_sound* sound, int32_t paused);
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_sound_get_is_paused(sonimbra_sound* sound);

/// Ends the sound for good. Its stop event follows with the next update.
SONIMBRA_API void SONIMBRA_CALL sonimbra_sound_stop(sonimbra_sound* sound);

/// Linear gain; 0.0 is silent, 1.0 leaves the samples as they are. Starts with the source's default
/// volume; takes effect with the next update.
SONIMBRA_API float SONIMBRA_CALL sonimbra_sound_get_volume(sonimbra_sound* sound);
SONIMBRA_API void SONIMBRA_CALL sonimbra_sound_set_volume(sonimbra_sound* sound, float volume);

/// Pan of a 2D sound, -1.0 to 1.0, 0.0 in the middle (default); from +0.1 on only the left channel
/// is heard, from -0.1 on only the right one. Takes effect with the next update.
SONIMBRA_API void SONIMBRA_CALL sonimbra_sound_set_pan(sonimbra_sound* sound, float pan);
SONIMBRA_API float SONIMBRA_CALL sonimbra_sound_get_pan(sonimbra_sound* sound);

/// Whether the sound starts again from its beginning when it reaches its end.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_sound_is_looped(sonimbra_sound* sound);
SONIMBRA_API void SONIMBRA_CALL sonimbra_sound_set_is_looped(sonimbra_sound* sound, int32_t looped);

/// True when it has played to its end, was stopped, or its source was removed.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_sound_is_finished(sonimbra_sound* sound);

/// 3D: between these distances, in the application's units, the sound gets quieter. Beyond the
/// maximum it gets no quieter; with the LINEAR_ROLLOFF option it is silent there, and beyond it its
/// gain goes on below zero.
SONIMBRA_API void SONIMBRA_CALL sonimbra_sound_set_min_distance(sonimbra_sound* sound,
                                                                float min_distance);
SONIMBRA_API float SONIMBRA_CALL sonimbra_sound_get_min_distance(sonimbra_sound* sound);
SONIMBRA_API void SONIMBRA_CALL sonimbra_sound_set_max_distance(sonimbra_sound* sound,
                                                                float max_distance);
SONIMBRA_API float SONIMBRA_CALL sonimbra_sound_get_max_distance(sonimbra_sound* sound);

/// 3D position, and velocity in units per second, which hardware 3D uses for the Doppler effect.
/// Default: (0, 0, 0) each.
SONIMBRA_API void SONIMBRA_CALL sonimbra_sound_set_position(sonimbra_sound* sound,
                                                            const sonimbra_vec3d* position);
SONIMBRA_API void SONIMBRA_CALL sonimbra_sound_get_position(sonimbra_sound* sound,
                                                            sonimbra_vec3d* position);
SONIMBRA_API void SONIMBRA_CALL sonimbra_sound_set_velocity(sonimbra_sound* sound,
                                                            const sonimbra_vec3d* velocity);
SONIMBRA_API void SONIMBRA_CALL sonimbra_sound_get_velocity(sonimbra_sound* sound,
                                                            sonimbra_vec3d* velocity);

/// Milliseconds played, 0xFFFFFFFF when it is not known or the sound has ended.
SONIMBRA_API uint32_t SONIMBRA_CALL sonimbra_sound_get_play_position(sonimbra_sound* sound);

/// Moves to a position in milliseconds, at most the sound's end. Returns 0 when the sound cannot
/// seek or has ended.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_sound_set_play_position(sonimbra_sound* sound,
                                                                    uint32_t milliseconds);

/// Playback speed, clamped by the software mixer to 0.01..5.0; 1.0 is the sound's own (default).
/// Changes the pitch too. Setting returns 0 when the driver cannot do it or the sound has ended.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_sound_set_playback_speed(sonimbra_sound* sound,
                                                                     float speed);
SONIMBRA_API float SONIMBRA_CALL sonimbra_sound_get_playback_speed(sonimbra_sound* sound);

/// The source's length in milliseconds, -1 when it is not known.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_sound_get_play_length(sonimbra_sound* sound);

/// Whether the sound takes the effects below: true on DirectSound8 for sounds that were played with
/// enable_sound_effects.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_sound_has_sound_effect_control(sonimbra_sound* sound);

/// Sets who is told when the sound has ended, in place of who was before; null for nobody. See
/// sonimbra_event_forwarder_create. Returns 0, and changes nothing, for a sound whose source was
/// removed and for a forwarder that another sound has or that has delivered its event. Also returns
/// 0 when the source is removed during the call; the forwarder may then be called or not.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_sound_set_sound_stop_event_receiver(
    sonimbra_sound* sound, sonimbra_event_forwarder* receiver, void* user_data);
/// @}

/// @name Source
/// One playable sound, known to its engine by a name. Whatever returns a source returns one
/// reference for the caller, who drops it; the engine keeps its own.
/// @{

/// Adds one reference.
SONIMBRA_API void SONIMBRA_CALL sonimbra_source_grab(sonimbra_source* source);
/// Takes one reference away. Returns 1 when that was the last one.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_source_drop(sonimbra_source* source);

/// The name it was registered under.
SONIMBRA_API const char* SONIMBRA_CALL sonimbra_source_get_name(sonimbra_source* source);

/// SONIMBRA_STREAM_MODE_...; the first play or load replaces AUTO_DETECT by its decision. Default:
/// AUTO_DETECT for files, NO_STREAMING for memory and PCM data.
SONIMBRA_API void SONIMBRA_CALL sonimbra_source_set_stream_mode(sonimbra_source* source,
                                                                int32_t mode);
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_source_get_stream_mode(sonimbra_source* source);

/// The length in milliseconds, -1 when it is not known. Opens the sound when it was not yet used,
/// as do the next two and sonimbra_source_get_sample_data.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_source_get_play_length(sonimbra_source* source);

/// The format of the decoded sound; all zero when it cannot be opened.
SONIMBRA_API void SONIMBRA_CALL
sonimbra_source_get_audio_format(sonimbra_source* source, sonimbra_audio_stream_format* format);

/// True when its sounds can be moved to any position.
SONIMBRA_API int32_t SONIMBRA_CALL
sonimbra_source_get_is_seeking_supported(sonimbra_source* source);

/// The volume that its sounds start with, clamped to 0.0..1.0. Default: 1.0.
SONIMBRA_API void SONIMBRA_CALL sonimbra_source_set_default_volume(sonimbra_source* source,
                                                                   float volume);
SONIMBRA_API float SONIMBRA_CALL sonimbra_source_get_default_volume(sonimbra_source* source);

/// The distances that its 3D sounds start with, in the application's units. A value not above 0
/// means the engine's default. Default: -1.0 each.
SONIMBRA_API void SONIMBRA_CALL sonimbra_source_set_default_min_distance(sonimbra_source* source,
                                                                         float min_distance);
SONIMBRA_API float SONIMBRA_CALL sonimbra_source_get_default_min_distance(sonimbra_source* source);
SONIMBRA_API void SONIMBRA_CALL sonimbra_source_set_default_max_distance(sonimbra_source* source,
                                                                         float max_distance);
SONIMBRA_API float SONIMBRA_CALL sonimbra_source_get_default_max_distance(sonimbra_source* source);

/// Drops the decoded samples, so that the next play reads the file again.
SONIMBRA_API void SONIMBRA_CALL sonimbra_source_force_reload_at_next_use(sonimbra_source* source);

/// Above so many bytes of decoded samples a source is streamed although its mode is NO_STREAMING; 0
/// or below for never. Default: 2000000.
SONIMBRA_API void SONIMBRA_CALL
sonimbra_source_set_forced_streaming_threshold(sonimbra_source* source, int32_t threshold_bytes);
SONIMBRA_API int32_t SONIMBRA_CALL
sonimbra_source_get_forced_streaming_threshold(sonimbra_source* source);

/// The decoded samples, as many bytes as the format says, owned by the source; null when it is
/// streamed. Valid until the source is reloaded or removed.
SONIMBRA_API void* SONIMBRA_CALL sonimbra_source_get_sample_data(sonimbra_source* source);

/// Copies the decoded samples, at most size bytes of them, while no other thread reloads them.
/// Returns the bytes copied; 0 when the source is streamed or cannot be opened.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_source_copy_sample_data(sonimbra_source* source,
                                                                    void* buffer, int32_t size);
/// @}

#ifdef __cplusplus
} // extern "C"
#endif
