// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

/// The flat interface, for C and for the bindings of other languages: an entry point for every
/// operation of the C++ interfaces, named after it, with nothing but C types.
///
/// - Calls: the platform's C convention (cdecl on 32-bit Windows). No exception leaves an entry
///   point, and one that a callback throws ends at the library.
/// - Objects: a null object is accepted everywhere; the call then does nothing and returns 0 or
///   null. Unless said otherwise any thread may make any call, but on no object whose last
///   reference is gone.
/// - Callbacks may make any call, the last drop of any object included: what would have to wait for
///   the callback itself then ends on another thread, soon after.
/// - Truth values are int32_t: 0 is false, everything else true; results are 0 or 1.
/// - Texts are zero-terminated UTF-8. One that is passed in is copied; one that comes out belongs
///   to the object asked, and is valid as long as that.
/// - Vectors and formats go by pointer. Null for one that goes in stands for zeros, unless another
///   default is named; null for one that comes out is ignored.

#include <sonimbra/export.h>

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// The version that a program was compiled with, for the create functions' sdk_version.
#define SONIMBRA_C_VERSION "1.5.0"

/// What sonimbra_get_interface_version must return for a program compiled with this header.
#define SONIMBRA_C_INTERFACE_VERSION 1

/// @name Objects
/// Each create function says how its object ends.
/// @{
typedef struct sonimbra_engine sonimbra_engine;
typedef struct sonimbra_sound sonimbra_sound;
typedef struct sonimbra_source sonimbra_source;
typedef struct sonimbra_recorder sonimbra_recorder;
typedef struct sonimbra_device_list sonimbra_device_list;
typedef struct sonimbra_event_forwarder sonimbra_event_forwarder;
typedef struct sonimbra_file_factory sonimbra_file_factory;
typedef struct sonimbra_file_reader sonimbra_file_reader;
/// @}

/// A position, direction or velocity, in the application's units.
typedef struct sonimbra_vec3d {
    float x;
    float y;
    float z;
} sonimbra_vec3d;

/// What a block of samples consists of. A frame is one sample for each channel, interleaved.
typedef struct sonimbra_audio_stream_format {
    int32_t channel_count;
    int32_t frame_count; ///< -1 when the length is not known
    int32_t sample_rate; ///< frames a second
    int32_t sample_format;
} sonimbra_audio_stream_format;

/// Output drivers.
enum {
    SONIMBRA_DRIVER_AUTO_DETECT = 0, ///< tries DirectSound8, and nothing else
    SONIMBRA_DRIVER_DIRECTSOUND8 = 1,
    SONIMBRA_DRIVER_DIRECTSOUND = 2,
    SONIMBRA_DRIVER_WINMM = 3,
    SONIMBRA_DRIVER_ALSA = 4,
    SONIMBRA_DRIVER_COREAUDIO = 5, ///< no engine yet
    SONIMBRA_DRIVER_NULL = 6,      ///< plays nothing, works everywhere
};

/// Engine options, combined with |.
enum {
    SONIMBRA_OPTION_MULTI_THREADED = 0x01,
    SONIMBRA_OPTION_MUTE_IF_NOT_FOCUSED = 0x02,
    SONIMBRA_OPTION_LOAD_PLUGINS = 0x04,
    SONIMBRA_OPTION_USE_3D_BUFFERS = 0x08,
    SONIMBRA_OPTION_PRINT_DEBUG_INFO_INTO_DEBUGGER = 0x10,
    SONIMBRA_OPTION_PRINT_DEBUG_INFO_TO_STDOUT = 0x20,
    SONIMBRA_OPTION_LINEAR_ROLLOFF = 0x40,
    SONIMBRA_OPTION_DEFAULT = 61, ///< all but MUTE_IF_NOT_FOCUSED and LINEAR_ROLLOFF
};

/// Whether a source is decoded into memory or streamed while it plays.
enum {
    SONIMBRA_STREAM_MODE_AUTO_DETECT = 0,
    SONIMBRA_STREAM_MODE_STREAMING = 1,
    SONIMBRA_STREAM_MODE_NO_STREAMING = 2,
};

/// Why a sound ended.
enum {
    SONIMBRA_STOP_CAUSE_FINISHED_PLAYING = 0,
    SONIMBRA_STOP_CAUSE_STOPPED_BY_USER = 1,
    SONIMBRA_STOP_CAUSE_STOPPED_BY_SOURCE_REMOVAL = 2,
};

/// Sample formats.
enum {
    SONIMBRA_SAMPLE_FORMAT_UNSIGNED_8BIT = 0,
    SONIMBRA_SAMPLE_FORMAT_SIGNED_16BIT = 1,
};

/// Tells that a context is no longer used: called exactly once for every context that was passed
/// in, on any thread, also when the function that it was passed to fails or gets a null object
/// (then before that returns). May be null where there is nothing to free.
typedef void (*sonimbra_release)(void* context);

/// A sound has ended. Called with the engine's lock held: on the engine's thread when the engine is
/// multi-threaded, else on the thread that is inside update, stop_all_sounds or a removal.
///   sound      no reference for the receiver: grab it to keep it
///   cause      SONIMBRA_STOP_CAUSE_...
///   user_data  as passed at the registration
typedef void (*sonimbra_on_sound_stopped)(void* context, sonimbra_sound* sound, int32_t cause,
                                          void* user_data);

/// A buffer was mixed. Called with the engine's lock held on the thread that runs the update cycle,
/// for every buffer, silence included.
///   data  byte_count bytes of interleaved signed 16-bit stereo frames, the engine's, and gone when
///         the call returns
typedef void (*sonimbra_on_audio_data_ready)(void* context, const void* data, int32_t byte_count,
                                             int32_t sample_rate);

/// A block of audio was recorded. Called on the recorder's capture thread, the last block on the
/// thread that stops the recording, without any lock. Neither start nor stop the recorder here.
///   data  byte_count bytes of interleaved frames in the format asked for, the library's, and gone
///         when the call returns
typedef void (*sonimbra_on_audio_data_recorded)(void* context, const void* data,
                                                int32_t byte_count);

/// Opens a file: returns a reader from sonimbra_file_reader_create, which then is the engine's, or
/// null when this factory does not have the file. Called with the engine's lock held.
///   file_name  as passed to the engine; the engine's, and gone when the call returns
typedef sonimbra_file_reader* (*sonimbra_open_file)(void* context, const char* file_name);

/// How to read a file. Called with the engine's lock held, by one thread at a time. A function that
/// is null fails: it returns 0.
typedef struct sonimbra_file_reader_callbacks {
    /// Copies up to size_to_read bytes into buffer; returns how many. Less than 0 counts as 0.
    int32_t (*read)(void* context, void* buffer, uint32_t size_to_read);
    /// Moves to final_pos bytes from the start, or from where it is when relative_movement is not
    /// 0. Returns 1 when done, else 0.
    int32_t (*seek)(void* context, int32_t final_pos, int32_t relative_movement);
    /// The size in bytes.
    int32_t (*get_size)(void* context);
    /// The position in bytes.
    int32_t (*get_pos)(void* context);
    /// The file is closed.
    sonimbra_release release;
} sonimbra_file_reader_callbacks;

/// @name Version
/// @{

/// The library's version, for example "1.5.0"; valid for ever.
SONIMBRA_API const char* sonimbra_get_version(void);

/// The number of this interface. A binding whose number differs from SONIMBRA_C_INTERFACE_VERSION
/// must not call anything else.
SONIMBRA_API int32_t sonimbra_get_interface_version(void);
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
SONIMBRA_API sonimbra_engine* sonimbra_engine_create(int32_t driver, int32_t options,
                                                     const char* device_id,
                                                     const char* sdk_version);

/// Creates an engine without a device, whose output sonimbra_engine_render_frames renders. It is
/// never multi-threaded. Otherwise as sonimbra_engine_create.
SONIMBRA_API sonimbra_engine* sonimbra_engine_create_offline(int32_t options,
                                                             const char* sdk_version);

/// Adds one reference.
SONIMBRA_API void sonimbra_engine_grab(sonimbra_engine* engine);

/// Takes one reference away. The last one ends the engine: stops every sound, delivers their stop
/// events, and waits for the engine's thread. Returns 1 when that was the last one. Recorders hold
/// a reference, and so does every call as long as it lasts; sounds and sources hold none: they
/// survive the engine, of no more use.
SONIMBRA_API int32_t sonimbra_engine_drop(sonimbra_engine* engine);

/// "DirectSound8", "DirectSound", "winMM", "ALSA", "NULL" or "Offline".
SONIMBRA_API const char* sonimbra_engine_get_driver_name(sonimbra_engine* engine);

/// Plays a file or a registered source by name; an unknown name is added as a file first.
///   looped                starts over at the end
///   start_paused          the sound waits for sonimbra_sound_set_is_paused(sound, 0)
///   track                 return the sound
///   stream_mode           accepted for compatibility, has no effect
///   enable_sound_effects  DirectSound8: makes the sound able to take effects
/// Returns the sound, with one reference for the caller, when track, start_paused or
/// enable_sound_effects is set; otherwise null: the sound plays on its own. Also null when the
/// sound cannot be opened (the log says why) or the driver makes no sounds.
SONIMBRA_API sonimbra_sound* sonimbra_engine_play2d(sonimbra_engine* engine,
                                                    const char* sound_file_name, int32_t looped,
                                                    int32_t start_paused, int32_t track,
                                                    int32_t stream_mode,
                                                    int32_t enable_sound_effects);
SONIMBRA_API sonimbra_sound* sonimbra_engine_play2d_source(sonimbra_engine* engine,
                                                           sonimbra_source* source, int32_t looped,
                                                           int32_t start_paused, int32_t track,
                                                           int32_t enable_sound_effects);

/// As sonimbra_engine_play2d, at a position.
SONIMBRA_API sonimbra_sound*
sonimbra_engine_play3d(sonimbra_engine* engine, const char* sound_file_name,
                       const sonimbra_vec3d* position, int32_t looped, int32_t start_paused,
                       int32_t track, int32_t stream_mode, int32_t enable_sound_effects);
SONIMBRA_API sonimbra_sound*
sonimbra_engine_play3d_source(sonimbra_engine* engine, sonimbra_source* source,
                              const sonimbra_vec3d* position, int32_t looped, int32_t start_paused,
                              int32_t track, int32_t enable_sound_effects);

/// Ends every playing sound and delivers their stop events, with the cause FINISHED_PLAYING.
SONIMBRA_API void sonimbra_engine_stop_all_sounds(sonimbra_engine* engine);

/// Pauses or resumes every playing sound.
SONIMBRA_API void sonimbra_engine_set_all_sounds_paused(sonimbra_engine* engine, int32_t paused);

/// The number of registered sources.
SONIMBRA_API int32_t sonimbra_engine_get_sound_source_count(sonimbra_engine* engine);

/// Finds a source by its exact name; an unknown one is added as a file with add_if_not_found. No
/// reference for the caller, here and in the next ones: the engine owns its sources.
SONIMBRA_API sonimbra_source* sonimbra_engine_get_sound_source(sonimbra_engine* engine,
                                                               const char* sound_name,
                                                               int32_t add_if_not_found);
/// The source at an index of the registry, which is in the order of the names; null outside.
SONIMBRA_API sonimbra_source* sonimbra_engine_get_sound_source_at(sonimbra_engine* engine,
                                                                  int32_t index);

/// Adds a file. With preload it is decoded at once, unless stream_mode says that it is to be
/// streamed. Null when the name exists already.
SONIMBRA_API sonimbra_source* sonimbra_engine_add_sound_source_from_file(sonimbra_engine* engine,
                                                                         const char* file_name,
                                                                         int32_t stream_mode,
                                                                         int32_t preload);

/// Adds an encoded file of size_in_bytes bytes that stands in memory. Without copy_memory the bytes
/// stay the caller's and must live as long as the source. Null for empty memory and for a name that
/// exists.
SONIMBRA_API sonimbra_source* sonimbra_engine_add_sound_source_from_memory(sonimbra_engine* engine,
                                                                           void* memory,
                                                                           int32_t size_in_bytes,
                                                                           const char* sound_name,
                                                                           int32_t copy_memory);

/// Adds raw samples in the given format; frames beyond size_in_bytes are left out. Null without a
/// format. Otherwise as sonimbra_engine_add_sound_source_from_memory.
SONIMBRA_API sonimbra_source* sonimbra_engine_add_sound_source_from_pcm_data(
    sonimbra_engine* engine, void* memory, int32_t size_in_bytes, const char* sound_name,
    const sonimbra_audio_stream_format* format, int32_t copy_memory);

/// Adds a second name for a source, with its own default volume and distances. Null when the name
/// exists or base_source is null.
SONIMBRA_API sonimbra_source* sonimbra_engine_add_sound_source_alias(sonimbra_engine* engine,
                                                                     sonimbra_source* base_source,
                                                                     const char* sound_name);

/// Removes a source: its sounds are stopped, with the cause STOPPED_BY_SOURCE_REMOVAL.
SONIMBRA_API void sonimbra_engine_remove_sound_source(sonimbra_engine* engine, const char* name);
SONIMBRA_API void sonimbra_engine_remove_sound_source_source(sonimbra_engine* engine,
                                                             sonimbra_source* source);
SONIMBRA_API void sonimbra_engine_remove_all_sound_sources(sonimbra_engine* engine);

/// Master volume, multiplied with every sound's own. Default: 1.0.
SONIMBRA_API void sonimbra_engine_set_sound_volume(sonimbra_engine* engine, float volume);
SONIMBRA_API float sonimbra_engine_get_sound_volume(sonimbra_engine* engine);

/// Places the listener; takes effect with the next update. Null for up_vector stands for (0, 1, 0).
SONIMBRA_API void sonimbra_engine_set_listener_position(sonimbra_engine* engine,
                                                        const sonimbra_vec3d* position,
                                                        const sonimbra_vec3d* look_direction,
                                                        const sonimbra_vec3d* velocity_per_second,
                                                        const sonimbra_vec3d* up_vector);

/// Runs one update cycle; does nothing on a multi-threaded engine, which updates itself.
SONIMBRA_API void sonimbra_engine_update(sonimbra_engine* engine);

/// True while a sound of the source with this exact name plays or is paused. Sounds played through
/// an alias count for the alias's base.
SONIMBRA_API int32_t sonimbra_engine_is_currently_playing(sonimbra_engine* engine,
                                                          const char* sound_name);
SONIMBRA_API int32_t sonimbra_engine_is_currently_playing_source(sonimbra_engine* engine,
                                                                 sonimbra_source* source);

/// True when the engine was created with the MULTI_THREADED option.
SONIMBRA_API int32_t sonimbra_engine_is_multi_threaded(sonimbra_engine* engine);

/// Adds an opener of files, asked before the disk, in the order of adding. The engine keeps it for
/// its life.
SONIMBRA_API void sonimbra_engine_add_file_factory(sonimbra_engine* engine,
                                                   sonimbra_file_factory* file_factory);

/// Distances for sources that have none of their own: a minimum of 0 or more (default: 1.0), a
/// maximum above 0 (default: 1000000000.0); other values are ignored.
SONIMBRA_API void sonimbra_engine_set_default3d_sound_min_distance(sonimbra_engine* engine,
                                                                   float min_distance);
SONIMBRA_API float sonimbra_engine_get_default3d_sound_min_distance(sonimbra_engine* engine);
SONIMBRA_API void sonimbra_engine_set_default3d_sound_max_distance(sonimbra_engine* engine,
                                                                   float max_distance);
SONIMBRA_API float sonimbra_engine_get_default3d_sound_max_distance(sonimbra_engine* engine);

/// Rolloff factor of hardware 3D, clamped to 0.0..10.0. Default: 1.0.
SONIMBRA_API void sonimbra_engine_set_rolloff_factor(sonimbra_engine* engine, float rolloff);

/// Doppler factors of hardware 3D; other drivers ignore them. Default: 1.0 and 1.0.
SONIMBRA_API void sonimbra_engine_set_doppler_effect_parameters(sonimbra_engine* engine,
                                                                float doppler_factor,
                                                                float distance_factor);

/// Loads the plug-in libraries of a folder. Returns whether the folder could be entered. The
/// process's working folder changes during the call.
SONIMBRA_API int32_t sonimbra_engine_load_plugins(sonimbra_engine* engine, const char* path);

/// Five pointers with the driver's native handles, owned by the engine; null where a driver has
/// none.
SONIMBRA_API void* sonimbra_engine_get_internal_audio_interface(sonimbra_engine* engine);

/// Sets who receives the mixed output; null for nobody. The context is released when the receiver
/// is replaced or the engine has ended. Returns 0 on drivers that do not mix in software. Call it
/// from one thread at a time.
SONIMBRA_API int32_t sonimbra_engine_set_mixed_data_output_receiver(
    sonimbra_engine* engine, sonimbra_on_audio_data_ready receiver, void* context,
    sonimbra_release release);

/// Reserved; returns null.
SONIMBRA_API sonimbra_sound* sonimbra_engine_play_music(sonimbra_engine* engine,
                                                        const char* music_file_name);

/// Offline engines: renders frame_count frames of 44100 Hz interleaved signed 16-bit stereo into
/// target (two samples a frame). Returns the frames written: frame_count, or 0 for a null target, a
/// count below 1 and every other engine. Call it from one thread at a time and from no callback.
SONIMBRA_API int32_t sonimbra_engine_render_frames(sonimbra_engine* engine, int16_t* target,
                                                   int32_t frame_count);
/// @}

/// @name Sound
/// One playing, paused or finished instance of a source. Once the source or the engine has been
/// removed, setters do nothing and getters return 0 where nothing else is said.
/// @{

/// Adds one reference.
SONIMBRA_API void sonimbra_sound_grab(sonimbra_sound* sound);
/// Takes one reference away. Returns 1 when that was the last one. The engine holds one as long as
/// the sound plays, so dropping a sound does not end it.
SONIMBRA_API int32_t sonimbra_sound_drop(sonimbra_sound* sound);

/// The source it was made from (through an alias: the alias's base); no reference for the caller.
SONIMBRA_API sonimbra_source* sonimbra_sound_get_sound_source(sonimbra_sound* sound);

/// Pauses or resumes. A paused sound is silent and does not advance.
SONIMBRA_API void sonimbra_sound_set_is_paused(sonimbra_sound* sound, int32_t paused);
SONIMBRA_API int32_t sonimbra_sound_get_is_paused(sonimbra_sound* sound);

/// Ends the sound for good. Its stop event follows with the next update.
SONIMBRA_API void sonimbra_sound_stop(sonimbra_sound* sound);

/// Linear gain; 0.0 is silent, 1.0 leaves the samples as they are. Starts with the source's default
/// volume; takes effect with the next update.
SONIMBRA_API float sonimbra_sound_get_volume(sonimbra_sound* sound);
SONIMBRA_API void sonimbra_sound_set_volume(sonimbra_sound* sound, float volume);

/// Pan of a 2D sound, -1.0 to 1.0, 0.0 in the middle (default); from +0.1 on only the left channel
/// is heard, from -0.1 on only the right one. Takes effect with the next update.
SONIMBRA_API void sonimbra_sound_set_pan(sonimbra_sound* sound, float pan);
SONIMBRA_API float sonimbra_sound_get_pan(sonimbra_sound* sound);

/// Whether the sound starts again from its beginning when it reaches its end.
SONIMBRA_API int32_t sonimbra_sound_is_looped(sonimbra_sound* sound);
SONIMBRA_API void sonimbra_sound_set_is_looped(sonimbra_sound* sound, int32_t looped);

/// True when it has played to its end, was stopped, or its source was removed.
SONIMBRA_API int32_t sonimbra_sound_is_finished(sonimbra_sound* sound);

/// 3D: between these distances, in the application's units, the sound gets quieter.
SONIMBRA_API void sonimbra_sound_set_min_distance(sonimbra_sound* sound, float min_distance);
SONIMBRA_API float sonimbra_sound_get_min_distance(sonimbra_sound* sound);
SONIMBRA_API void sonimbra_sound_set_max_distance(sonimbra_sound* sound, float max_distance);
SONIMBRA_API float sonimbra_sound_get_max_distance(sonimbra_sound* sound);

/// 3D position, and velocity in units per second, which hardware 3D uses for the Doppler effect.
/// Default: (0, 0, 0) each.
SONIMBRA_API void sonimbra_sound_set_position(sonimbra_sound* sound,
                                              const sonimbra_vec3d* position);
SONIMBRA_API void sonimbra_sound_get_position(sonimbra_sound* sound, sonimbra_vec3d* position);
SONIMBRA_API void sonimbra_sound_set_velocity(sonimbra_sound* sound,
                                              const sonimbra_vec3d* velocity);
SONIMBRA_API void sonimbra_sound_get_velocity(sonimbra_sound* sound, sonimbra_vec3d* velocity);

/// Milliseconds played, 0xFFFFFFFF when it is not known or the sound has ended.
SONIMBRA_API uint32_t sonimbra_sound_get_play_position(sonimbra_sound* sound);

/// Moves to a position in milliseconds, at most the sound's end. Returns 0 when the sound cannot
/// seek or has ended.
SONIMBRA_API int32_t sonimbra_sound_set_play_position(sonimbra_sound* sound, uint32_t milliseconds);

/// Playback speed, clamped by the software mixer to 0.01..5.0; 1.0 is the sound's own (default).
/// Changes the pitch too. Setting returns 0 when the driver cannot do it or the sound has ended.
SONIMBRA_API int32_t sonimbra_sound_set_playback_speed(sonimbra_sound* sound, float speed);
SONIMBRA_API float sonimbra_sound_get_playback_speed(sonimbra_sound* sound);

/// The source's length in milliseconds, -1 when it is not known.
SONIMBRA_API int32_t sonimbra_sound_get_play_length(sonimbra_sound* sound);

/// Whether the sound takes the effects below: true on DirectSound8 for sounds that were played with
/// enable_sound_effects.
SONIMBRA_API int32_t sonimbra_sound_has_sound_effect_control(sonimbra_sound* sound);

/// Sets who is told when the sound has ended, in place of who was before; null for nobody. See
/// sonimbra_event_forwarder_create. Returns 0, and changes nothing, for a sound whose source was
/// removed and for a forwarder that another sound has or that has delivered its event.
SONIMBRA_API int32_t sonimbra_sound_set_sound_stop_event_receiver(
    sonimbra_sound* sound, sonimbra_event_forwarder* receiver, void* user_data);
/// @}

/// @name Effects
/// The nine DirectX 8 effects of a sound. Without effect control (see
/// sonimbra_sound_has_sound_effect_control) they do nothing and return 0. Enabling switches an
/// effect on, or changes its parameters when it is on; it returns 0 when the sound has ended. Units
/// and ranges are DirectSound's (the DSFX structures).
/// @{
SONIMBRA_API void sonimbra_effects_disable_all(sonimbra_sound* sound);

/// Usual: 50, 10, 25, 1.1, 1, 16, 90. phase in degrees: -180, -90, 0, 90 or 180; every other value
/// counts as 90.
SONIMBRA_API int32_t sonimbra_effects_enable_chorus(sonimbra_sound* sound, float wet_dry_mix,
                                                    float depth, float feedback, float frequency,
                                                    int32_t sinus_wave_form, float delay,
                                                    int32_t phase);
SONIMBRA_API void sonimbra_effects_disable_chorus(sonimbra_sound* sound);
SONIMBRA_API int32_t sonimbra_effects_is_chorus_enabled(sonimbra_sound* sound);

/// Usual: 0, 10, 200, -20, 3, 4.
SONIMBRA_API int32_t sonimbra_effects_enable_compressor(sonimbra_sound* sound, float gain,
                                                        float attack, float release,
                                                        float threshold, float ratio,
                                                        float predelay);
SONIMBRA_API void sonimbra_effects_disable_compressor(sonimbra_sound* sound);
SONIMBRA_API int32_t sonimbra_effects_is_compressor_enabled(sonimbra_sound* sound);

/// Usual: -18, 15, 2400, 2400, 8000.
SONIMBRA_API int32_t sonimbra_effects_enable_distortion(sonimbra_sound* sound, float gain,
                                                        float edge, float post_eq_center_frequency,
                                                        float post_eq_bandwidth,
                                                        float pre_lowpass_cutoff);
SONIMBRA_API void sonimbra_effects_disable_distortion(sonimbra_sound* sound);
SONIMBRA_API int32_t sonimbra_effects_is_distortion_enabled(sonimbra_sound* sound);

/// Usual: 50, 50, 500, 500, 0.
SONIMBRA_API int32_t sonimbra_effects_enable_echo(sonimbra_sound* sound, float wet_dry_mix,
                                                  float feedback, float left_delay,
                                                  float right_delay, int32_t pan_delay);
SONIMBRA_API void sonimbra_effects_disable_echo(sonimbra_sound* sound);
SONIMBRA_API int32_t sonimbra_effects_is_echo_enabled(sonimbra_sound* sound);

/// Usual: 50, 100, -50, 0.25, 1, 2, 0. phase is DirectSound's own value, 0 to 4.
SONIMBRA_API int32_t sonimbra_effects_enable_flanger(sonimbra_sound* sound, float wet_dry_mix,
                                                     float depth, float feedback, float frequency,
                                                     int32_t triangle_wave_form, float delay,
                                                     int32_t phase);
SONIMBRA_API void sonimbra_effects_disable_flanger(sonimbra_sound* sound);
SONIMBRA_API int32_t sonimbra_effects_is_flanger_enabled(sonimbra_sound* sound);

/// Usual: 20, 1.
SONIMBRA_API int32_t sonimbra_effects_enable_gargle(sonimbra_sound* sound, int32_t rate_hz,
                                                    int32_t sinus_wave_form);
SONIMBRA_API void sonimbra_effects_disable_gargle(sonimbra_sound* sound);
SONIMBRA_API int32_t sonimbra_effects_is_gargle_enabled(sonimbra_sound* sound);

/// Usual: -1000, -100, 0, 1.49, 0.83, -2602, 0.007, 200, 0.011, 100, 100, 5000.
SONIMBRA_API int32_t sonimbra_effects_enable_i3dl2_reverb(
    sonimbra_sound* sound, int32_t room, int32_t room_hf, float room_rolloff_factor,
    float decay_time, float decay_hf_ratio, int32_t reflections, float reflections_delay,
    int32_t reverb, float reverb_delay, float diffusion, float density, float hf_reference);
SONIMBRA_API void sonimbra_effects_disable_i3dl2_reverb(sonimbra_sound* sound);
SONIMBRA_API int32_t sonimbra_effects_is_i3dl2_reverb_enabled(sonimbra_sound* sound);

/// Usual: 8000, 12, 0.
SONIMBRA_API int32_t sonimbra_effects_enable_param_eq(sonimbra_sound* sound, float center,
                                                      float bandwidth, float gain);
SONIMBRA_API void sonimbra_effects_disable_param_eq(sonimbra_sound* sound);
SONIMBRA_API int32_t sonimbra_effects_is_param_eq_enabled(sonimbra_sound* sound);

/// Usual: 0, 0, 1000, 0.001.
SONIMBRA_API int32_t sonimbra_effects_enable_waves_reverb(sonimbra_sound* sound, float in_gain,
                                                          float reverb_mix, float reverb_time,
                                                          float high_freq_rt_ratio);
SONIMBRA_API void sonimbra_effects_disable_waves_reverb(sonimbra_sound* sound);
SONIMBRA_API int32_t sonimbra_effects_is_waves_reverb_enabled(sonimbra_sound* sound);
/// @}

/// @name Source
/// One playable sound, known to its engine by a name. The engine owns it: grab a source to keep it
/// beyond its removal.
/// @{

/// Adds one reference.
SONIMBRA_API void sonimbra_source_grab(sonimbra_source* source);
/// Takes one reference away. Returns 1 when that was the last one.
SONIMBRA_API int32_t sonimbra_source_drop(sonimbra_source* source);

/// The name it was registered under.
SONIMBRA_API const char* sonimbra_source_get_name(sonimbra_source* source);

/// SONIMBRA_STREAM_MODE_...; the first play or load replaces AUTO_DETECT by its decision. Default:
/// AUTO_DETECT for files, NO_STREAMING for memory and PCM data.
SONIMBRA_API void sonimbra_source_set_stream_mode(sonimbra_source* source, int32_t mode);
SONIMBRA_API int32_t sonimbra_source_get_stream_mode(sonimbra_source* source);

/// The length in milliseconds, -1 when it is not known. Opens the sound when it was not yet used,
/// as do the next two and sonimbra_source_get_sample_data.
SONIMBRA_API int32_t sonimbra_source_get_play_length(sonimbra_source* source);

/// The format of the decoded sound; all zero when it cannot be opened.
SONIMBRA_API void sonimbra_source_get_audio_format(sonimbra_source* source,
                                                   sonimbra_audio_stream_format* format);

/// True when its sounds can be moved to any position.
SONIMBRA_API int32_t sonimbra_source_get_is_seeking_supported(sonimbra_source* source);

/// The volume that its sounds start with, clamped to 0.0..1.0. Default: 1.0.
SONIMBRA_API void sonimbra_source_set_default_volume(sonimbra_source* source, float volume);
SONIMBRA_API float sonimbra_source_get_default_volume(sonimbra_source* source);

/// The distances that its 3D sounds start with, in the application's units. A value not above 0
/// means the engine's default. Default: -1.0 each.
SONIMBRA_API void sonimbra_source_set_default_min_distance(sonimbra_source* source,
                                                           float min_distance);
SONIMBRA_API float sonimbra_source_get_default_min_distance(sonimbra_source* source);
SONIMBRA_API void sonimbra_source_set_default_max_distance(sonimbra_source* source,
                                                           float max_distance);
SONIMBRA_API float sonimbra_source_get_default_max_distance(sonimbra_source* source);

/// Drops the decoded samples, so that the next play reads the file again.
SONIMBRA_API void sonimbra_source_force_reload_at_next_use(sonimbra_source* source);

/// Above so many bytes of decoded samples a source is streamed although its mode is NO_STREAMING; 0
/// or below for never. Default: 2000000.
SONIMBRA_API void sonimbra_source_set_forced_streaming_threshold(sonimbra_source* source,
                                                                 int32_t threshold_bytes);
SONIMBRA_API int32_t sonimbra_source_get_forced_streaming_threshold(sonimbra_source* source);

/// The decoded samples, as many bytes as the format says, owned by the source; null when it is
/// streamed. Valid until the source is reloaded or removed.
SONIMBRA_API void* sonimbra_source_get_sample_data(sonimbra_source* source);
/// @}

/// @name Recorder
/// Records from a capture device, into memory or into a receiver. Call a recorder's operations from
/// one thread at a time; any thread may grab and drop it.
/// @{

/// Creates a recorder, with one reference for the caller; it holds a reference on the engine.
///   driver       DIRECTSOUND8 or DIRECTSOUND on Windows, ALSA on Linux; AUTO_DETECT stands for
///                DIRECTSOUND8
///   device_id    an identifier from sonimbra_device_list_create_recording, null or empty for the
///                default
///   sdk_version  SONIMBRA_C_VERSION
/// Returns null when engine is null, the driver records nothing on this system, there is no capture
/// device, or memory is out.
SONIMBRA_API sonimbra_recorder* sonimbra_recorder_create(sonimbra_engine* engine, int32_t driver,
                                                         const char* device_id,
                                                         const char* sdk_version);

/// Adds one reference.
SONIMBRA_API void sonimbra_recorder_grab(sonimbra_recorder* recorder);
/// Takes one reference away; the last one stops the recording and frees what was recorded. Returns
/// 1 when that was the last one.
SONIMBRA_API int32_t sonimbra_recorder_drop(sonimbra_recorder* recorder);

/// Starts to record into memory, up to 500 MiB; ends a recording that is going on, and frees what
/// was recorded before.
///   sample_rate    frames a second; usual: 22000
///   sample_format  SONIMBRA_SAMPLE_FORMAT_...; usual: SIGNED_16BIT
///   channel_count  1 (usual) or 2
/// Returns 0 when the device does not take the format or the recording cannot be started.
SONIMBRA_API int32_t sonimbra_recorder_start_recording_buffered_audio(sonimbra_recorder* recorder,
                                                                      int32_t sample_rate,
                                                                      int32_t sample_format,
                                                                      int32_t channel_count);

/// Starts to record into a receiver; nothing is kept in memory. The context is released with the
/// next start or the recorder's end. Returns 0 at once, and changes nothing, when receiver is null.
SONIMBRA_API int32_t sonimbra_recorder_start_recording_with_receiver(
    sonimbra_recorder* recorder, sonimbra_on_audio_data_recorded receiver, void* context,
    sonimbra_release release, int32_t sample_rate, int32_t sample_format, int32_t channel_count);

/// Ends the recording, with everything captured until now. Waits for the capture thread.
SONIMBRA_API void sonimbra_recorder_stop_recording_audio(sonimbra_recorder* recorder);

/// Adds what was recorded to the engine as a sound source, which gets a copy. No reference for the
/// caller. Null while recording, when nothing was recorded, or when the name is null or exists.
SONIMBRA_API sonimbra_source*
sonimbra_recorder_add_sound_source_from_recorded_audio(sonimbra_recorder* recorder,
                                                       const char* sound_name);

/// Frees what was recorded. Ignored while recording.
SONIMBRA_API void sonimbra_recorder_clear_recorded_audio_data_buffer(sonimbra_recorder* recorder);

/// Whether a recording is going on.
SONIMBRA_API int32_t sonimbra_recorder_is_recording(sonimbra_recorder* recorder);

/// The format of the last recording; frame_count is -1 while recording. Before the first one: no
/// channels, frames and rate, signed 16-bit.
SONIMBRA_API void sonimbra_recorder_get_audio_format(sonimbra_recorder* recorder,
                                                     sonimbra_audio_stream_format* format);

/// The recorded bytes, as many as the format says, owned by the recorder and valid until it starts
/// again, is cleared or ends. Null while recording and when nothing was recorded.
SONIMBRA_API void* sonimbra_recorder_get_recorded_audio_data(sonimbra_recorder* recorder);

/// "DirectSound8", "DirectSound" or "ALSA".
SONIMBRA_API const char* sonimbra_recorder_get_driver_name(sonimbra_recorder* recorder);

/// Whether there is a capture device.
SONIMBRA_API int32_t sonimbra_recorder_is_driver_initialized(sonimbra_recorder* recorder);
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
SONIMBRA_API sonimbra_device_list* sonimbra_device_list_create(int32_t driver,
                                                               const char* sdk_version);

/// Lists capture devices; otherwise as sonimbra_device_list_create.
SONIMBRA_API sonimbra_device_list* sonimbra_device_list_create_recording(int32_t driver,
                                                                         const char* sdk_version);

/// Ends the list. Returns 1.
SONIMBRA_API int32_t sonimbra_device_list_drop(sonimbra_device_list* list);

/// The number of records, 1 or more.
SONIMBRA_API int32_t sonimbra_device_list_get_device_count(sonimbra_device_list* list);

/// The identifier of a record, the empty text for the default device; null outside of the records.
SONIMBRA_API const char* sonimbra_device_list_get_device_id(sonimbra_device_list* list,
                                                            int32_t index);

/// A description to show to people, UTF-8 from ALSA, in the system's code page from DirectSound;
/// null outside of the records.
SONIMBRA_API const char* sonimbra_device_list_get_device_description(sonimbra_device_list* list,
                                                                     int32_t index);
/// @}

/// @name Forwarders
/// They lead from the engine to callbacks.
/// @{

/// Creates a receiver of one stop event, for one sound: see
/// sonimbra_sound_set_sound_stop_event_receiver. It delivers at most one event. End it with
/// sonimbra_event_forwarder_destroy. Returns null when callback is null or memory is out.
SONIMBRA_API sonimbra_event_forwarder*
sonimbra_event_forwarder_create(sonimbra_on_sound_stopped callback, void* context,
                                sonimbra_release release);

/// Ends a forwarder and releases its context. Unset it first, unless it has delivered its event:
///     sonimbra_sound_set_sound_stop_event_receiver(sound, NULL, NULL);
/// which, outside of callbacks, also waits for an event that is just being delivered. It may be
/// ended inside its own callback. Until it is ended or has delivered, it holds a reference on its
/// sound.
SONIMBRA_API void sonimbra_event_forwarder_destroy(sonimbra_event_forwarder* forwarder);

/// Creates an opener of files, with one reference for the caller: see
/// sonimbra_engine_add_file_factory. The context is released with its last reference. Returns null
/// when open is null or memory is out.
SONIMBRA_API sonimbra_file_factory*
sonimbra_file_factory_create(sonimbra_open_file open, void* context, sonimbra_release release);

/// Adds one reference.
SONIMBRA_API void sonimbra_file_factory_grab(sonimbra_file_factory* factory);
/// Takes one reference away. Returns 1 when that was the last one.
SONIMBRA_API int32_t sonimbra_file_factory_drop(sonimbra_file_factory* factory);

/// Creates an open file, to be returned from a sonimbra_open_file callback. The context is released
/// when the engine closes the file. Returns null when memory is out or callbacks is null (nobody is
/// then told that the context is not used).
///   file_name  as passed to the callback; copied
SONIMBRA_API sonimbra_file_reader*
sonimbra_file_reader_create(const sonimbra_file_reader_callbacks* callbacks, void* context,
                            const char* file_name);

/// Closes a file that was not handed to the engine. Returns 1.
SONIMBRA_API int32_t sonimbra_file_reader_drop(sonimbra_file_reader* reader);
/// @}

#ifdef __cplusplus
} // extern "C"
#endif
