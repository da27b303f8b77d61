// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Runtime.InteropServices;

namespace Sonimbra {

internal static partial class NativeMethods {
    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_effects_disable_all(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_enable_chorus(
        IntPtr sound, float wetDryMix, float depth, float feedback, float frequency,
        bool sinusWaveForm, float delay, int phase);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_effects_disable_chorus(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_is_chorus_enabled(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_enable_compressor(
        IntPtr sound, float gain, float attack, float release, float threshold, float ratio,
        float predelay);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_effects_disable_compressor(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_is_compressor_enabled(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_enable_distortion(
        IntPtr sound, float gain, float edge, float postEqCenterFrequency, float postEqBandwidth,
        float preLowpassCutoff);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_effects_disable_distortion(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_is_distortion_enabled(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_enable_echo(
        IntPtr sound, float wetDryMix, float feedback, float leftDelay, float rightDelay,
        int panDelay);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_effects_disable_echo(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_is_echo_enabled(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_enable_flanger(
        IntPtr sound, float wetDryMix, float depth, float feedback, float frequency,
        bool triangleWaveForm, float delay, int phase);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_effects_disable_flanger(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_is_flanger_enabled(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_enable_gargle(
        IntPtr sound, int rateHz, bool sinusWaveForm);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_effects_disable_gargle(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_is_gargle_enabled(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_enable_i3dl2_reverb(
        IntPtr sound, int room, int roomHf, float roomRolloffFactor, float decayTime,
        float decayHfRatio, int reflections, float reflectionsDelay, int reverb, float reverbDelay,
        float diffusion, float density, float hfReference);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_effects_disable_i3dl2_reverb(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_is_i3dl2_reverb_enabled(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_enable_param_eq(
        IntPtr sound, float center, float bandwidth, float gain);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_effects_disable_param_eq(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_is_param_eq_enabled(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_enable_waves_reverb(
        IntPtr sound, float inGain, float reverbMix, float reverbTime, float highFreqRtRatio);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_effects_disable_waves_reverb(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_effects_is_waves_reverb_enabled(IntPtr sound);
}

}
