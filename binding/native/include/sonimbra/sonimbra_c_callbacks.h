// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

/// Part of <sonimbra/sonimbra_c.h>, which holds the rules: what leads to callbacks.

#include <sonimbra/sonimbra_c_types.h>

#ifdef __cplusplus
extern "C" {
#endif

/// @name Forwarders
/// They lead from the engine to callbacks.
/// @{

/// Creates a receiver of one stop event, for one sound: see
/// sonimbra_sound_set_sound_stop_event_receiver. It delivers at most one event. End it with
/// sonimbra_event_forwarder_destroy. Returns null when callback is null or memory is out.
SONIMBRA_API sonimbra_event_forwarder* SONIMBRA_CALL sonimbra_event_forwarder_create(
    sonimbra_on_sound_stopped callback, void* context, sonimbra_on_release release);

/// Ends a forwarder and releases its context; when its callback is running, in the caller or on
/// another thread, the context is released after it. Unset it first, unless it has delivered:
///     sonimbra_sound_set_sound_stop_event_receiver(sound, NULL, NULL);
/// Until it is ended or has delivered, it holds a reference on its sound.
SONIMBRA_API void SONIMBRA_CALL
sonimbra_event_forwarder_destroy(sonimbra_event_forwarder* forwarder);

/// Creates an opener of files, with one reference for the caller: see
/// sonimbra_engine_add_file_factory. The context is released with its last reference. Returns null
/// when open is null or memory is out.
SONIMBRA_API sonimbra_file_factory* SONIMBRA_CALL sonimbra_file_factory_create(
    sonimbra_on_open_file open, void* context, sonimbra_on_release release);

/// Adds one reference.
SONIMBRA_API void SONIMBRA_CALL sonimbra_file_factory_grab(sonimbra_file_factory* factory);
/// Takes one reference away. Returns 1 when that was the last one.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_file_factory_drop(sonimbra_file_factory* factory);

/// Creates an open file, to be returned from a sonimbra_on_open_file callback. The context is
/// released when the engine closes the file. Returns null when memory is out or callbacks is null
/// (nobody is then told that the context is not used).
///   file_name  as passed to the callback; copied
SONIMBRA_API sonimbra_file_reader* SONIMBRA_CALL sonimbra_file_reader_create(
    const sonimbra_file_reader_callbacks* callbacks, void* context, const char* file_name);

/// Closes a file that was not handed to the engine. Returns 1.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_file_reader_drop(sonimbra_file_reader* reader);
/// @}

#ifdef __cplusplus
} // extern "C"
#endif
