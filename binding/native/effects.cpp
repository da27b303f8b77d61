// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "binding/native/conversions.h"

using namespace sn_internal;
using sonimbra::ISoundEffectControl;

namespace {

struct SEffects;

ISoundEffectControl* toNative(SEffects* effects) {
    return castTo<ISoundEffectControl>(effects);
}

/// Asked for at every call: the control is the sound's, which may lose it.
SEffects* effectsOf(sonimbra_sound* sound) {
    return castTo<SEffects>(invoke(sound, &sonimbra::ISound::getSoundEffectControl));
}

} // namespace

int32_t sonimbra_sound_has_sound_effect_control(sonimbra_sound* sound) {
    return toFlat(effectsOf(sound) != nullptr);
}

void sonimbra_effects_disable_all(sonimbra_sound* sound) {
    invoke(effectsOf(sound), &ISoundEffectControl::disableAllEffects);
}

int32_t sonimbra_effects_enable_chorus(sonimbra_sound* sound, float wet_dry_mix, float depth,
                                       float feedback, float frequency, int32_t sinus_wave_form,
                                       float delay, int32_t phase) {
    return invoke(effectsOf(sound), &ISoundEffectControl::enableChorusSoundEffect, wet_dry_mix,
                  depth, feedback, frequency, sinus_wave_form, delay, phase);
}

void sonimbra_effects_disable_chorus(sonimbra_sound* sound) {
    invoke(effectsOf(sound), &ISoundEffectControl::disableChorusSoundEffect);
}

int32_t sonimbra_effects_is_chorus_enabled(sonimbra_sound* sound) {
    return invoke(effectsOf(sound), &ISoundEffectControl::isChorusSoundEffectEnabled);
}

int32_t sonimbra_effects_enable_compressor(sonimbra_sound* sound, float gain, float attack,
                                           float release, float threshold, float ratio,
                                           float predelay) {
    return invoke(effectsOf(sound), &ISoundEffectControl::enableCompressorSoundEffect, gain, attack,
                  release, threshold, ratio, predelay);
}

void sonimbra_effects_disable_compressor(sonimbra_sound* sound) {
    invoke(effectsOf(sound), &ISoundEffectControl::disableCompressorSoundEffect);
}

int32_t sonimbra_effects_is_compressor_enabled(sonimbra_sound* sound) {
    return invoke(effectsOf(sound), &ISoundEffectControl::isCompressorSoundEffectEnabled);
}

int32_t sonimbra_effects_enable_distortion(sonimbra_sound* sound, float gain, float edge,
                                           float post_eq_center_frequency, float post_eq_bandwidth,
                                           float pre_lowpass_cutoff) {
    return invoke(effectsOf(sound), &ISoundEffectControl::enableDistortionSoundEffect, gain, edge,
                  post_eq_center_frequency, post_eq_bandwidth, pre_lowpass_cutoff);
}

void sonimbra_effects_disable_distortion(sonimbra_sound* sound) {
    invoke(effectsOf(sound), &ISoundEffectControl::disableDistortionSoundEffect);
}

int32_t sonimbra_effects_is_distortion_enabled(sonimbra_sound* sound) {
    return invoke(effectsOf(sound), &ISoundEffectControl::isDistortionSoundEffectEnabled);
}

int32_t sonimbra_effects_enable_echo(sonimbra_sound* sound, float wet_dry_mix, float feedback,
                                     float left_delay, float right_delay, int32_t pan_delay) {
    return invoke(effectsOf(sound), &ISoundEffectControl::enableEchoSoundEffect, wet_dry_mix,
                  feedback, left_delay, right_delay, pan_delay);
}

void sonimbra_effects_disable_echo(sonimbra_sound* sound) {
    invoke(effectsOf(sound), &ISoundEffectControl::disableEchoSoundEffect);
}

int32_t sonimbra_effects_is_echo_enabled(sonimbra_sound* sound) {
    return invoke(effectsOf(sound), &ISoundEffectControl::isEchoSoundEffectEnabled);
}

int32_t sonimbra_effects_enable_flanger(sonimbra_sound* sound, float wet_dry_mix, float depth,
                                        float feedback, float frequency, int32_t triangle_wave_form,
                                        float delay, int32_t phase) {
    return invoke(effectsOf(sound), &ISoundEffectControl::enableFlangerSoundEffect, wet_dry_mix,
                  depth, feedback, frequency, triangle_wave_form, delay, phase);
}

void sonimbra_effects_disable_flanger(sonimbra_sound* sound) {
    invoke(effectsOf(sound), &ISoundEffectControl::disableFlangerSoundEffect);
}

int32_t sonimbra_effects_is_flanger_enabled(sonimbra_sound* sound) {
    return invoke(effectsOf(sound), &ISoundEffectControl::isFlangerSoundEffectEnabled);
}

int32_t sonimbra_effects_enable_gargle(sonimbra_sound* sound, int32_t rate_hz,
                                       int32_t sinus_wave_form) {
    return invoke(effectsOf(sound), &ISoundEffectControl::enableGargleSoundEffect, rate_hz,
                  sinus_wave_form);
}

void sonimbra_effects_disable_gargle(sonimbra_sound* sound) {
    invoke(effectsOf(sound), &ISoundEffectControl::disableGargleSoundEffect);
}

int32_t sonimbra_effects_is_gargle_enabled(sonimbra_sound* sound) {
    return invoke(effectsOf(sound), &ISoundEffectControl::isGargleSoundEffectEnabled);
}

int32_t sonimbra_effects_enable_i3dl2_reverb(sonimbra_sound* sound, int32_t room, int32_t room_hf,
                                             float room_rolloff_factor, float decay_time,
                                             float decay_hf_ratio, int32_t reflections,
                                             float reflections_delay, int32_t reverb,
                                             float reverb_delay, float diffusion, float density,
                                             float hf_reference) {
    return invoke(effectsOf(sound), &ISoundEffectControl::enableI3DL2ReverbSoundEffect, room,
                  room_hf, room_rolloff_factor, decay_time, decay_hf_ratio, reflections,
                  reflections_delay, reverb, reverb_delay, diffusion, density, hf_reference);
}

void sonimbra_effects_disable_i3dl2_reverb(sonimbra_sound* sound) {
    invoke(effectsOf(sound), &ISoundEffectControl::disableI3DL2ReverbSoundEffect);
}

int32_t sonimbra_effects_is_i3dl2_reverb_enabled(sonimbra_sound* sound) {
    return invoke(effectsOf(sound), &ISoundEffectControl::isI3DL2ReverbSoundEffectEnabled);
}

int32_t sonimbra_effects_enable_param_eq(sonimbra_sound* sound, float center, float bandwidth,
                                         float gain) {
    return invoke(effectsOf(sound), &ISoundEffectControl::enableParamEqSoundEffect, center,
                  bandwidth, gain);
}

void sonimbra_effects_disable_param_eq(sonimbra_sound* sound) {
    invoke(effectsOf(sound), &ISoundEffectControl::disableParamEqSoundEffect);
}

int32_t sonimbra_effects_is_param_eq_enabled(sonimbra_sound* sound) {
    return invoke(effectsOf(sound), &ISoundEffectControl::isParamEqSoundEffectEnabled);
}

int32_t sonimbra_effects_enable_waves_reverb(sonimbra_sound* sound, float in_gain, float reverb_mix,
                                             float reverb_time, float high_freq_rt_ratio) {
    return invoke(effectsOf(sound), &ISoundEffectControl::enableWavesReverbSoundEffect, in_gain,
                  reverb_mix, reverb_time, high_freq_rt_ratio);
}

void sonimbra_effects_disable_waves_reverb(sonimbra_sound* sound) {
    invoke(effectsOf(sound), &ISoundEffectControl::disableWavesReverbSoundEffect);
}

int32_t sonimbra_effects_is_waves_reverb_enabled(sonimbra_sound* sound) {
    return invoke(effectsOf(sound), &ISoundEffectControl::isWavesReverbSoundEffectEnabled);
}
