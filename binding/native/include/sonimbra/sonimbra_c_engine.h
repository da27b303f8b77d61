// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

/// Part of <sonimbra/sonimbra_c.h>, which holds the rules: the version, engines and device
/// lists.

#include <sonimbra/sonimbra_c_types.h>

#ifdef __cplusplus
extern "C" {
#endif

/// @name Version
/// @{

/// The library's version, for example "1.5.0"; valid for ever.
SONIMBRA_API const char* SONIMBRA_CALL sonimbra_get_version(void);

/// The number of this interface. A binding whose number differs from SONIMBRA_C_INTERFACE_VERSION
/// must not call anything else.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_get_interface_version(void);
/// @}

/// @name Engine
/// An engine plays sounds through one output driver. Any thread may grab and drop engines.
/// @{

/// Creates an engine, with one reference for the caller.
///   driver       SONIMBRA_DRIVER_...
///   options      SONIMBRA_OPTION_... combined
///   device_id    an identifier from sonimbra_device_list_create, null or empty for the default
///   sdk_version  SONIMBRA_C_VERSION; one that is not the library's gives a warning in the log
/// Returns null when the driver does not exist on this system, does not start, or memory is out;
/// and inside a callback when another thread is just creating or ending an engine.
SONIMBRA_API sonimbra_engine* SONIMBRA_CALL sonimbra_engine_create(int32_t driver, int32_t options,
                                                                   const char* device_id,
                                                                   const char* sdk_version);

/// Creates an engine without a device, whose output sonimbra_engine_render_frames renders. It is
/// never multi-threaded. Otherwise as sonimbra_engine_create.
SONIMBRA_API sonimbra_engine* SONIMBRA_CALL sonimbra_engine_create_offline(int32_t options,
                                                                           const char* sdk_version);

/// Adds one reference.
SONIMBRA_API void SONIMBRA_CALL sonimbra_engine_grab(sonimbra_engine* engine);

/// Takes one reference away. The last one ends the engine: stops every sound, delivers their stop
/// events, and waits for the engine's thread. Returns 1 when that was the last one. Recorders hold
/// a reference, and so does every call as long as it lasts: 0 may also mean that another thread is
/// inside a call, possibly in a callback, and ends the engine when it returns. Only the releases of
/// contexts tell that an engine has ended. Sounds and sources hold no reference: they survive the
/// engine, of no more use.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_engine_drop(sonimbra_engine* engine);

/// "DirectSound8", "DirectSound", "winMM", "ALSA", "NULL" or "Offline".
SONIMBRA_API const char* SONIMBRA_CALL sonimbra_engine_get_driver_name(sonimbra_engine* engine);

/// Plays a file or a registered source by name; an unknown name is added as a file first.
///   looped                starts over at the end
///   start_paused          the sound waits for sonimbra_sound_set_is_paused(sound, 0)
///   track                 return the sound
///   stream_mode           accepted for compatibility, has no effect
///   enable_sound_effects  DirectSound8: makes the sound able to take effects
/// Returns the sound, with one reference for the caller, when track, start_paused or
/// enable_sound_effects is set; otherwise null: the sound plays on its own. Also null when the
/// sound cannot be opened (the log says why) or the driver makes no sounds.
SONIMBRA_API sonimbra_sound* SONIMBRA_CALL sonimbra_engine_play2d(
    sonimbra_engine* engine, const char* sound_file_name, int32_t looped, int32_t start_paused,
    int32_t track, int32_t stream_mode, int32_t enable_sound_effects);
SONIMBRA_API sonimbra_sound* SONIMBRA_CALL
sonimbra_engine_play2d_source(sonimbra_engine* engine, sonimbra_source* source, int32_t looped,
                              int32_t start_paused, int32_t track, int32_t enable_sound_effects);

/// As sonimbra_engine_play2d, at a position.
SONIMBRA_API sonimbra_sound* SONIMBRA_CALL
sonimbra_engine_play3d(sonimbra_engine* engine, const char* sound_file_name,
                       const sonimbra_vec3d* position, int32_t looped, int32_t start_paused,
                       int32_t track, int32_t stream_mode, int32_t enable_sound_effects);
SONIMBRA_API sonimbra_sound* SONIMBRA_CALL sonimbra_engine_play3d_source(
    sonimbra_engine* engine, sonimbra_source* source, const sonimbra_vec3d* position,
    int32_t looped, int32_t start_paused, int32_t track, int32_t enable_sound_effects);

/// Ends every playing sound and delivers their stop events, with the cause FINISHED_PLAYING.
SONIMBRA_API void SONIMBRA_CALL sonimbra_engine_stop_all_sounds(sonimbra_engine* engine);

/// Pauses or resumes every playing sound.
SONIMBRA_API void SONIMBRA_CALL sonimbra_engine_set_all_sounds_paused(sonimbra_engine* engine,
                                                                      int32_t paused);

/// The number of registered sources.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_engine_get_sound_source_count(sonimbra_engine* engine);

/// Finds a source by its exact name; an unknown one is added as a file with add_if_not_found. One
/// reference for the caller, here and in the next ones, to be dropped with sonimbra_source_drop;
/// the engine keeps its own.
SONIMBRA_API sonimbra_source* SONIMBRA_CALL sonimbra_engine_get_sound_source(
    sonimbra_engine* engine, const char* sound_name, int32_t add_if_not_found);
/// The source at an index of the registry, which is in the order of the names; null outside.
SONIMBRA_API sonimbra_source* SONIMBRA_CALL
sonimbra_engine_get_sound_source_at(sonimbra_engine* engine, int32_t index);

/// Adds a file. With preload it is decoded at once, unless stream_mode says that it is to be
/// streamed. Null when the name exists already.
SONIMBRA_API sonimbra_source* SONIMBRA_CALL sonimbra_engine_add_sound_source_from_file(
    sonimbra_engine* engine, const char* file_name, int32_t stream_mode, int32_t preload);

/// Adds an encoded file of size_in_bytes bytes that stands in memory. Without copy_memory the bytes
/// stay the caller's and must live as long as the source. Null for empty memory and for a name that
/// exists.
SONIMBRA_API sonimbra_source* SONIMBRA_CALL sonimbra_engine_add_sound_source_from_memory(
    sonimbra_engine* engine, const void* memory, int32_t size_in_bytes, const char* sound_name,
    int32_t copy_memory);

/// Adds raw samples in the given format; frames beyond size_in_bytes are left out. Null without a
/// format. Otherwise as sonimbra_engine_add_sound_source_from_memory.
SONIMBRA_API sonimbra_source* SONIMBRA_CALL sonimbra_engine_add_sound_source_from_pcm_data(
    sonimbra_engine* engine, const void* memory, int32_t size_in_bytes, const char* sound_name,
    const sonimbra_audio_stream_format* format, int32_t copy_memory);

/// Adds a second name for a source, with its own default volume and distances. Null when the name
/// exists or base_source is null.
SONIMBRA_API sonimbra_source* SONIMBRA_CALL sonimbra_engine_add_sound_source_alias(
    sonimbra_engine* engine, sonimbra_source* base_source, const char* sound_name);

/// Removes a source: its sounds are stopped, with the cause STOPPED_BY_SOURCE_REMOVAL.
SONIMBRA_API void SONIMBRA_CALL sonimbra_engine_remove_sound_source(sonimbra_engine* engine,
                                                                    const char* name);
SONIMBRA_API void SONIMBRA_CALL sonimbra_engine_remove_sound_source_source(sonimbra_engine* engine,
                                                                           sonimbra_source* source);
SONIMBRA_API void SONIMBRA_CALL sonimbra_engine_remove_all_sound_sources(sonimbra_engine* engine);

/// Master volume, multiplied with every sound's own. Default: 1.0.
SONIMBRA_API void SONIMBRA_CALL sonimbra_engine_set_sound_volume(sonimbra_engine* engine,
                                                                 float volume);
SONIMBRA_API float SONIMBRA_CALL sonimbra_engine_get_sound_volume(sonimbra_engine* engine);

/// Places the listener; takes effect with the next update. Null for up_vector stands for (0, 1, 0).
SONIMBRA_API void SONIMBRA_CALL sonimbra_engine_set_listener_position(
    sonimbra_engine* engine, const sonimbra_vec3d* position, const sonimbra_vec3d* look_direction,
    const sonimbra_vec3d* velocity_per_second, const sonimbra_vec3d* up_vector);

/// Runs one update cycle; does nothing on a multi-threaded engine, which updates itself.
SONIMBRA_API void SONIMBRA_CALL sonimbra_engine_update(sonimbra_engine* engine);

/// True while a sound of the source with this exact name plays or is paused. Sounds played through
/// an alias count for the alias's base.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_engine_is_currently_playing(sonimbra_engine* engine,
                                                                        const char* sound_name);
SONIMBRA_API int32_t SONIMBRA_CALL
sonimbra_engine_is_currently_playing_source(sonimbra_engine* engine, sonimbra_source* source);

/// True when the engine was created with the MULTI_THREADED option.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_engine_is_multi_threaded(sonimbra_engine* engine);

/// Adds an opener of files, asked before the disk, in the order of adding. The engine keeps it for
/// its life.
SONIMBRA_API void SONIMBRA_CALL
sonimbra_engine_add_file_factory(sonimbra_engine* engine, sonimbra_file_factory* file_factory);

/// Distances for sources that have none of their own: a minimum of 0 or more (default: 1.0), a
/// maximum above 0 (default: 1000000000.0); other values are ignored.
SONIMBRA_API void SONIMBRA_CALL
sonimbra_engine_set_default3d_sound_min_distance(sonimbra_engine* engine, float min_distance);
SONIMBRA_API float SONIMBRA_CALL
sonimbra_engine_get_default3d_sound_min_distance(sonimbra_engine* engine);
SONIMBRA_API void SONIMBRA_CALL
sonimbra_engine_set_default3d_sound_max_distance(sonimbra_engine* engine, float max_distance);
SONIMBRA_API float SONIMBRA_CALL
sonimbra_engine_get_default3d_sound_max_distance(sonimbra_engine* engine);

/// Rolloff factor of hardware 3D, clamped to 0.0..10.0. Default: 1.0.
SONIMBRA_API void SONIMBRA_CALL sonimbra_engine_set_rolloff_factor(sonimbra_engine* engine,
                                                                   float rolloff);

/// Doppler factors of hardware 3D; other drivers ignore them. Default: 1.0 and 1.0.
SONIMBRA_API void SONIMBRA_CALL sonimbra_engine_set_doppler_effect_parameters(
    sonimbra_engine* engine, float doppler_factor, float distance_factor);

/// Loads the plug-in libraries of a folder. Returns whether the folder could be entered. The
/// process's working folder changes during the call.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_engine_load_plugins(sonimbra_engine* engine,
                                                                const char* path);

/// Five pointers with the driver's native handles, owned by the engine; null where a driver has
/// none.
SONIMBRA_API void* SONIMBRA_CALL
sonimbra_engine_get_internal_audio_interface(sonimbra_engine* engine);

/// Sets who receives the mixed output; null for nobody. The context is released when the receiver
/// is replaced or the engine has ended. Returns 0 on drivers that do not mix in software. Call it
/// from one thread at a time and from no callback: it may release the context that the callback
/// uses.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_engine_set_mixed_data_output_receiver(
    sonimbra_engine* engine, sonimbra_on_audio_data_ready receiver, void* context,
    sonimbra_on_release release);

/// Reserved; returns null.
SONIMBRA_API sonimbra_sound* SONIMBRA_CALL sonimbra_engine_play_music(sonimbra_engine* engine,
                                                                      const char* music_file_name);

/// Offline engines: renders frame_count frames of 44100 Hz interleaved signed 16-bit stereo into
/// target (two samples a frame). Returns the frames written: frame_count, or 0 for a null target, a
/// count below 1 and every other engine. Call it from one thread at a time and from no callback.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_engine_render_frames(sonimbra_engine* engine,
                                                                 int16_t* target,
                                                                 int32_t frame_count);
/// @}

/// @name Device list
/// The devices of a driver as they were when the list was made. Record 0 always stands for the
/// default device.
/// @{

/// Lists output devices. End the list with sonimbra_device_list_drop.
///   driver       SONIMBRA_DRIVER_...; AUTO_DETECT stands for DIRECTSOUND8
///   sdk_version  SONIMBRA_C_VERSION
/// A driver that has no device list gives a list of the default device alone. Null when memory is
/// out.
SONIMBRA_API sonimbra_device_list* SONIMBRA_CALL
sonimbra_device_list_create(int32_t driver, const char* sdk_version);

/// Lists capture devices; otherwise as sonimbra_device_list_create.
SONIMBRA_API sonimbra_device_list* SONIMBRA_CALL
sonimbra_device_list_create_recording(int32_t driver, const char* sdk_version);

/// Ends the list. Returns 1.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_device_list_drop(sonimbra_device_list* list);

/// The number of records, 1 or more.
SONIMBRA_API int32_t SONIMBRA_CALL
sonimbra_device_list_get_device_count(sonimbra_device_list* list);

/// The identifier of a record, the empty text for the default device; null outside of the records.
SONIMBRA_API const char* SONIMBRA_CALL
sonimbra_device_list_get_device_id(sonimbra_device_list* list, int32_t index);

/// A description to show to people, UTF-8 from ALSA, in the system's code page from DirectSound;
/// null outside of the records.
SONIMBRA_API const char* SONIMBRA_CALL
sonimbra_device_list_get_device_description(sonimbra_device_list* list, int32_t index);
/// @}

#ifdef __cplusplus
} // extern "C"
#endif
