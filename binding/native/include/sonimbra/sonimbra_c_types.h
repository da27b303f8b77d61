// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

/// Part of <sonimbra/sonimbra_c.h>, which holds the rules: objects, values and callbacks.

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
/// (then before that returns). The exceptions: sonimbra_file_reader_create without callbacks, and
/// an object that is never ended. May be null where there is nothing to free.
typedef void(SONIMBRA_CALL* sonimbra_on_release)(void* context);

/// A sound has ended. Called with the engine's lock held: on the thread that is inside
/// stop_all_sounds, the removal of a source, or the engine's end; for sounds that end by themselves
/// or by sonimbra_sound_stop on the engine's thread when the engine is multi-threaded, else on the
/// thread that is inside update, set_sound_volume or render_frames.
///   sound      no reference for the receiver: grab it to keep it
///   cause      SONIMBRA_STOP_CAUSE_...
///   user_data  as passed at the registration
typedef void(SONIMBRA_CALL* sonimbra_on_sound_stopped)(void* context, sonimbra_sound* sound,
                                                       int32_t cause, void* user_data);

/// A buffer was mixed. Called with the engine's lock held on the thread that runs the update cycle,
/// for every buffer, silence included. Do not render an offline engine here.
///   data  byte_count bytes of interleaved signed 16-bit stereo frames, the engine's, and gone when
///         the call returns
typedef void(SONIMBRA_CALL* sonimbra_on_audio_data_ready)(void* context, const void* data,
                                                          int32_t byte_count, int32_t sample_rate);

/// A block of audio was recorded. Called on the recorder's capture thread, the last block on the
/// thread that stops the recording, without any lock. Return within half a second, or audio is
/// lost. Do not wait for a thread that starts, stops or ends the recorder: it waits for this call.
///   data  byte_count bytes of interleaved frames in the format asked for, the library's, and gone
///         when the call returns
typedef void(SONIMBRA_CALL* sonimbra_on_audio_data_recorded)(void* context, const void* data,
                                                             int32_t byte_count);

/// Opens a file: returns a reader from sonimbra_file_reader_create, which then is the engine's, or
/// null when this factory does not have the file. Called with the engine's lock held.
///   file_name  as passed to the engine; the engine's, and gone when the call returns
typedef sonimbra_file_reader*(SONIMBRA_CALL* sonimbra_on_open_file)(void* context,
                                                                    const char* file_name);

/// How to read a file. Called with the engine's lock held, by one thread at a time. A function that
/// is null fails: it returns 0.
typedef struct sonimbra_file_reader_callbacks {
    /// Copies up to size_to_read bytes into buffer; returns how many. Less than 0 counts as 0.
    int32_t(SONIMBRA_CALL* read)(void* context, void* buffer, uint32_t size_to_read);
    /// Moves to final_pos bytes from the start, or from where it is when relative_movement is not
    /// 0. Returns 1 when done, else 0.
    int32_t(SONIMBRA_CALL* seek)(void* context, int32_t final_pos, int32_t relative_movement);
    /// The size in bytes.
    int32_t(SONIMBRA_CALL* get_size)(void* context);
    /// The position in bytes.
    int32_t(SONIMBRA_CALL* get_pos)(void* context);
    /// The file is closed.
    sonimbra_on_release release;
} sonimbra_file_reader_callbacks;

#ifdef __cplusplus
} // extern "C"
#endif
