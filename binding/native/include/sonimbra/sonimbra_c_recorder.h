// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

/// Part of <sonimbra/sonimbra_c.h>, which holds the rules: recorders.

#include <sonimbra/sonimbra_c_types.h>

#ifdef __cplusplus
extern "C" {
#endif

/// @name Recorder
/// Records from a capture device, into memory or into a receiver. Call a recorder's operations from
/// one thread at a time; any thread may grab and drop it. No callback, of an engine or a recorder,
/// starts or stops one: that does nothing and returns 0.
/// @{

/// Creates a recorder, with one reference for the caller; it holds a reference on the engine.
///   driver       DIRECTSOUND8 or DIRECTSOUND on Windows, ALSA on Linux; AUTO_DETECT stands for
///                DIRECTSOUND8
///   device_id    an identifier from sonimbra_device_list_create_recording, null or empty for the
///                default
///   sdk_version  SONIMBRA_C_VERSION
/// Returns null when engine is null, the driver records nothing on this system, there is no capture
/// device, or memory is out.
SONIMBRA_API sonimbra_recorder* SONIMBRA_CALL sonimbra_recorder_create(sonimbra_engine* engine,
                                                                       int32_t driver,
                                                                       const char* device_id,
                                                                       const char* sdk_version);

/// Adds one reference.
SONIMBRA_API void SONIMBRA_CALL sonimbra_recorder_grab(sonimbra_recorder* recorder);
/// Takes one reference away; the last one stops the recording and frees what was recorded. Returns
/// 1 when that was the last one.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_recorder_drop(sonimbra_recorder* recorder);

/// Starts to record into memory, up to 500 MiB; ends a recording that is going on, and frees what
/// was recorded before.
///   sample_rate    frames a second; usual: 22000
///   sample_format  SONIMBRA_SAMPLE_FORMAT_...; usual: SIGNED_16BIT
///   channel_count  1 (usual) or 2
/// Returns 0 when the device does not take the format or the recording cannot be started.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_recorder_start_recording_buffered_audio(
    sonimbra_recorder* recorder, int32_t sample_rate, int32_t sample_format, int32_t channel_count);

/// Starts to record into a receiver; nothing is kept in memory. The context is released with the
/// next start or the recorder's end. Returns 0 at once, and changes nothing, when receiver is null.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_recorder_start_recording_with_receiver(
    sonimbra_recorder* recorder, sonimbra_on_audio_data_recorded receiver, void* context,
    sonimbra_on_release release, int32_t sample_rate, int32_t sample_format, int32_t channel_count);

/// Ends the recording, with everything captured until now. Waits for the capture thread.
SONIMBRA_API void SONIMBRA_CALL sonimbra_recorder_stop_recording_audio(sonimbra_recorder* recorder);

/// Adds what was recorded to the engine as a sound source, which gets a copy. One reference for the
/// caller. Null while recording, when nothing was recorded, or when the name is null or exists.
SONIMBRA_API sonimbra_source* SONIMBRA_CALL sonimbra_recorder_add_sound_source_from_recorded_audio(
    sonimbra_recorder* recorder, const char* sound_name);

/// Frees what was recorded. Ignored while recording.
SONIMBRA_API void SONIMBRA_CALL
sonimbra_recorder_clear_recorded_audio_data_buffer(sonimbra_recorder* recorder);

/// Whether a recording is going on.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_recorder_is_recording(sonimbra_recorder* recorder);

/// The format of the last recording; frame_count is -1 while recording. Before the first one: no
/// channels, frames and rate, signed 16-bit.
SONIMBRA_API void SONIMBRA_CALL sonimbra_recorder_get_audio_format(
    sonimbra_recorder* recorder, sonimbra_audio_stream_format* format);

/// The recorded bytes, as many as the format says, owned by the recorder and valid until it starts
/// again, is cleared or ends. Null while recording and when nothing was recorded.
SONIMBRA_API void* SONIMBRA_CALL
sonimbra_recorder_get_recorded_audio_data(sonimbra_recorder* recorder);

/// "DirectSound8", "DirectSound" or "ALSA".
SONIMBRA_API const char* SONIMBRA_CALL
sonimbra_recorder_get_driver_name(sonimbra_recorder* recorder);

/// Whether there is a capture device.
SONIMBRA_API int32_t SONIMBRA_CALL
sonimbra_recorder_is_driver_initialized(sonimbra_recorder* recorder);
/// @}

#ifdef __cplusplus
} // extern "C"
#endif
