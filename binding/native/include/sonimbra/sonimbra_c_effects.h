// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

/// Part of <sonimbra/sonimbra_c.h>, which holds the rules: a sound's effects.

#include <sonimbra/sonimbra_c_types.h>

#ifdef __cplusplus
extern "C" {
#endif

/// @name Effects
/// The nine DirectX 8 effects of a sound. Without effect control (see
/// sonimbra_sound_has_sound_effect_control) they do nothing and return 0. Enabling switches an
/// effect on, or changes its parameters when it is on; it returns 0 when the sound has ended. Units
/// and ranges are DirectSound's (the DSFX structures).
/// @{
SONIMBRA_API void SONIMBRA_CALL sonimbra_effects_disable_all(sonimbra_sound* sound);

/// Usual: 50, 10, 25, 1.1, 1, 16, 90. phase in degrees: -180, -90, 0, 90 or 180; every other value
/// counts as 90.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_enable_chorus(sonimbra_sound* sound,
                                                                  float wet_dry_mix, float depth,
                                                                  float feedback, float frequency,
                                                                  int32_t sinus_wave_form,
                                                                  float delay, int32_t phase);
SONIMBRA_API void SONIMBRA_CALL sonimbra_effects_disable_chorus(sonimbra_sound* sound);
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_is_chorus_enabled(sonimbra_sound* sound);

/// Usual: 0, 10, 200, -20, 3, 4.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_enable_compressor(sonimbra_sound* sound,
                                                                      float gain, float attack,
                                                                      float release,
                                                                      float threshold, float ratio,
                                                                      float predelay);
SONIMBRA_API void SONIMBRA_CALL sonimbra_effects_disable_compressor(sonimbra_sound* sound);
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_is_compressor_enabled(sonimbra_sound* sound);

/// Usual: -18, 15, 2400, 2400, 8000.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_enable_distortion(
    sonimbra_sound* sound, float gain, float edge, float post_eq_center_frequency,
    float post_eq_bandwidth, float pre_lowpass_cutoff);
SONIMBRA_API void SONIMBRA_CALL sonimbra_effects_disable_distortion(sonimbra_sound* sound);
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_is_distortion_enabled(sonimbra_sound* sound);

/// Usual: 50, 50, 500, 500, 0.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_enable_echo(sonimbra_sound* sound,
                                                                float wet_dry_mix, float feedback,
                                                                float left_delay, float right_delay,
                                                                int32_t pan_delay);
SONIMBRA_API void SONIMBRA_CALL sonimbra_effects_disable_echo(sonimbra_sound* sound);
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_is_echo_enabled(sonimbra_sound* sound);

/// Usual: 50, 100, -50, 0.25, 1, 2, 0. phase is DirectSound's own value, 0 to 4.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_enable_flanger(sonimbra_sound* sound,
                                                                   float wet_dry_mix, float depth,
                                                                   float feedback, float frequency,
                                                                   int32_t triangle_wave_form,
                                                                   float delay, int32_t phase);
SONIMBRA_API void SONIMBRA_CALL sonimbra_effects_disable_flanger(sonimbra_sound* sound);
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_is_flanger_enabled(sonimbra_sound* sound);

/// Usual: 20, 1.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_enable_gargle(sonimbra_sound* sound,
                                                                  int32_t rate_hz,
                                                                  int32_t sinus_wave_form);
SONIMBRA_API void SONIMBRA_CALL sonimbra_effects_disable_gargle(sonimbra_sound* sound);
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_is_gargle_enabled(sonimbra_sound* sound);

/// Usual: -1000, -100, 0, 1.49, 0.83, -2602, 0.007, 200, 0.011, 100, 100, 5000.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_enable_i3dl2_reverb(
    sonimbra_sound* sound, int32_t room, int32_t room_hf, float room_rolloff_factor,
    float decay_time, float decay_hf_ratio, int32_t reflections, float reflections_delay,
    int32_t reverb, float reverb_delay, float diffusion, float density, float hf_reference);
SONIMBRA_API void SONIMBRA_CALL sonimbra_effects_disable_i3dl2_reverb(sonimbra_sound* sound);
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_is_i3dl2_reverb_enabled(sonimbra_sound* sound);

/// Usual: 8000, 12, 0.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_enable_param_eq(sonimbra_sound* sound,
                                                                    float center, float bandwidth,
                                                                    float gain);
SONIMBRA_API void SONIMBRA_CALL sonimbra_effects_disable_param_eq(sonimbra_sound* sound);
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_is_param_eq_enabled(sonimbra_sound* sound);

/// Usual: 0, 0, 1000, 0.001.
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_enable_waves_reverb(sonimbra_sound* sound,
                                                                        float in_gain,
                                                                        float reverb_mix,
                                                                        float reverb_time,
                                                                        float high_freq_rt_ratio);
SONIMBRA_API void SONIMBRA_CALL sonimbra_effects_disable_waves_reverb(sonimbra_sound* sound);
SONIMBRA_API int32_t SONIMBRA_CALL sonimbra_effects_is_waves_reverb_enabled(sonimbra_sound* sound);
/// @}

#ifdef __cplusplus
} // extern "C"
#endif
