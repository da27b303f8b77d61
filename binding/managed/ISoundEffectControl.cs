// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;

namespace Sonimbra {

/// <summary>
/// The nine DirectX 8 effects of one sound, from <see cref="ISound.SoundEffectControl"/>.
/// </summary>
/// <remarks>
/// Each enable member switches the effect on, or changes its parameters when it is on; it returns
/// false when the sound has ended or DirectSound refuses. The sound must last 150 ms or longer;
/// once DirectSound has refused an effect, it refuses later ones until that one is disabled.
/// The parameters' units and ranges are DirectSound's (the DSFX structures); the forms without
/// parameters pass usual ones. Any thread may call the members. This object keeps the sound and the
/// engine until it is disposed or collected; after Dispose its members do nothing and return false.
/// </remarks>
public sealed class ISoundEffectControl : IDisposable {
    private readonly SoundHandle NativeSound;

    internal ISoundEffectControl(IntPtr sound, IntPtr engine) {
        NativeMethods.sonimbra_sound_grab(sound);
        NativeSound = new SoundHandle(sound, engine);
    }

    internal bool IsDisposed {
        get { return NativeSound.IsClosed; }
    }

    /// <summary>Lets go of the sound; its effects stay as they are.</summary>
    public void Dispose() {
        NativeSound.Dispose();
    }

    /// <summary>Switches all nine effects off.</summary>
    public void DisableAllEffects() {
        using (Borrowed sound = NativeSound.Borrow()) {
            NativeMethods.sonimbra_effects_disable_all(sound.Pointer);
        }
    }

    /// <summary>Enables the chorus with usual parameters.</summary>
    public bool EnableChorusSoundEffect() {
        return EnableChorusSoundEffect(50, 10, 25, 1.1f, true, 16, 90);
    }

    /// <summary>
    /// Enables the chorus. lPhase in degrees: -180, -90, 0, 90 or 180; every other value counts as
    /// 90.
    /// </summary>
    public bool EnableChorusSoundEffect(float fWetDryMix, float fDepth, float fFeedback,
                                        float fFrequency, bool sinusWaveForm, float fDelay,
                                        int lPhase) {
        using (Borrowed sound = NativeSound.Borrow()) {
            return NativeMethods.sonimbra_effects_enable_chorus(
                sound.Pointer, fWetDryMix, fDepth, fFeedback, fFrequency, sinusWaveForm, fDelay,
                lPhase);
        }
    }

    /// <summary>Disables the chorus.</summary>
    public void DisableChorusSoundEffect() {
        using (Borrowed sound = NativeSound.Borrow()) {
            NativeMethods.sonimbra_effects_disable_chorus(sound.Pointer);
        }
    }

    /// <summary>Whether the chorus is on.</summary>
    public bool IsChorusSoundEffectEnabled {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_effects_is_chorus_enabled(sound.Pointer);
            }
        }
    }

    /// <summary>Enables the compressor with usual parameters.</summary>
    public bool EnableCompressorSoundEffect() {
        return EnableCompressorSoundEffect(0, 10, 200, -20, 3, 4);
    }

    /// <summary>Enables the compressor.</summary>
    public bool EnableCompressorSoundEffect(float fGain, float fAttack, float fRelease,
                                            float fThreshold, float fRatio, float fPredelay) {
        using (Borrowed sound = NativeSound.Borrow()) {
            return NativeMethods.sonimbra_effects_enable_compressor(
                sound.Pointer, fGain, fAttack, fRelease, fThreshold, fRatio, fPredelay);
        }
    }

    /// <summary>Disables the compressor.</summary>
    public void DisableCompressorSoundEffect() {
        using (Borrowed sound = NativeSound.Borrow()) {
            NativeMethods.sonimbra_effects_disable_compressor(sound.Pointer);
        }
    }

    /// <summary>Whether the compressor is on.</summary>
    public bool IsCompressorSoundEffectEnabled {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_effects_is_compressor_enabled(sound.Pointer);
            }
        }
    }

    /// <summary>Enables the distortion with usual parameters.</summary>
    public bool EnableDistortionSoundEffect() {
        return EnableDistortionSoundEffect(-18, 15, 2400, 2400, 8000);
    }

    /// <summary>Enables the distortion.</summary>
    public bool EnableDistortionSoundEffect(float fGain, float fEdge, float fPostEQCenterFrequency,
                                            float fPostEQBandwidth, float fPreLowpassCutoff) {
        using (Borrowed sound = NativeSound.Borrow()) {
            return NativeMethods.sonimbra_effects_enable_distortion(
                sound.Pointer, fGain, fEdge, fPostEQCenterFrequency, fPostEQBandwidth,
                fPreLowpassCutoff);
        }
    }

    /// <summary>Disables the distortion.</summary>
    public void DisableDistortionSoundEffect() {
        using (Borrowed sound = NativeSound.Borrow()) {
            NativeMethods.sonimbra_effects_disable_distortion(sound.Pointer);
        }
    }

    /// <summary>Whether the distortion is on.</summary>
    public bool IsDistortionSoundEffectEnabled {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_effects_is_distortion_enabled(sound.Pointer);
            }
        }
    }

    /// <summary>Enables the echo with usual parameters.</summary>
    public bool EnableEchoSoundEffect() {
        return EnableEchoSoundEffect(50, 50, 500, 500, 0);
    }

    /// <summary>Enables the echo.</summary>
    public bool EnableEchoSoundEffect(float fWetDryMix, float fFeedback, float fLeftDelay,
                                      float fRightDelay, int lPanDelay) {
        using (Borrowed sound = NativeSound.Borrow()) {
            return NativeMethods.sonimbra_effects_enable_echo(
                sound.Pointer, fWetDryMix, fFeedback, fLeftDelay, fRightDelay, lPanDelay);
        }
    }

    /// <summary>Disables the echo.</summary>
    public void DisableEchoSoundEffect() {
        using (Borrowed sound = NativeSound.Borrow()) {
            NativeMethods.sonimbra_effects_disable_echo(sound.Pointer);
        }
    }

    /// <summary>Whether the echo is on.</summary>
    public bool IsEchoSoundEffectEnabled {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_effects_is_echo_enabled(sound.Pointer);
            }
        }
    }

    /// <summary>Enables the flanger with usual parameters.</summary>
    public bool EnableFlangerSoundEffect() {
        return EnableFlangerSoundEffect(50, 100, -50, 0.25f, true, 2, 0);
    }

    /// <summary>Enables the flanger. lPhase is DirectSound's own phase value, 0 to 4.</summary>
    public bool EnableFlangerSoundEffect(float fWetDryMix, float fDepth, float fFeedback,
                                         float fFrequency, bool triangleWaveForm, float fDelay,
                                         int lPhase) {
        using (Borrowed sound = NativeSound.Borrow()) {
            return NativeMethods.sonimbra_effects_enable_flanger(
                sound.Pointer, fWetDryMix, fDepth, fFeedback, fFrequency, triangleWaveForm, fDelay,
                lPhase);
        }
    }

    /// <summary>Disables the flanger.</summary>
    public void DisableFlangerSoundEffect() {
        using (Borrowed sound = NativeSound.Borrow()) {
            NativeMethods.sonimbra_effects_disable_flanger(sound.Pointer);
        }
    }

    /// <summary>Whether the flanger is on.</summary>
    public bool IsFlangerSoundEffectEnabled {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_effects_is_flanger_enabled(sound.Pointer);
            }
        }
    }

    /// <summary>Enables the gargle with usual parameters.</summary>
    public bool EnableGargleSoundEffect() {
        return EnableGargleSoundEffect(20, true);
    }

    /// <summary>Enables the gargle.</summary>
    public bool EnableGargleSoundEffect(int rateHz, bool sinusWaveForm) {
        using (Borrowed sound = NativeSound.Borrow()) {
            return NativeMethods.sonimbra_effects_enable_gargle(
                sound.Pointer, rateHz, sinusWaveForm);
        }
    }

    /// <summary>Disables the gargle.</summary>
    public void DisableGargleSoundEffect() {
        using (Borrowed sound = NativeSound.Borrow()) {
            NativeMethods.sonimbra_effects_disable_gargle(sound.Pointer);
        }
    }

    /// <summary>Whether the gargle is on.</summary>
    public bool IsGargleSoundEffectEnabled {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_effects_is_gargle_enabled(sound.Pointer);
            }
        }
    }

    /// <summary>Enables the I3DL2 reverb with usual parameters.</summary>
    public bool EnableI3DL2ReverbSoundEffect() {
        return EnableI3DL2ReverbSoundEffect(-1000, -100, 0, 1.49f, 0.83f, -2602, 0.007f, 200,
                                            0.011f, 100, 100, 5000);
    }

    /// <summary>Enables the I3DL2 reverb.</summary>
    public bool EnableI3DL2ReverbSoundEffect(int lRoom, int lRoomHF, float flRoomRolloffFactor,
                                             float flDecayTime, float flDecayHFRatio,
                                             int lReflections, float flReflectionsDelay,
                                             int lReverb, float flReverbDelay, float flDiffusion,
                                             float flDensity, float flHFReference) {
        using (Borrowed sound = NativeSound.Borrow()) {
            return NativeMethods.sonimbra_effects_enable_i3dl2_reverb(
                sound.Pointer, lRoom, lRoomHF, flRoomRolloffFactor, flDecayTime, flDecayHFRatio,
                lReflections, flReflectionsDelay, lReverb, flReverbDelay, flDiffusion, flDensity,
                flHFReference);
        }
    }

    /// <summary>Disables the I3DL2 reverb.</summary>
    public void DisableI3DL2ReverbSoundEffect() {
        using (Borrowed sound = NativeSound.Borrow()) {
            NativeMethods.sonimbra_effects_disable_i3dl2_reverb(sound.Pointer);
        }
    }

    /// <summary>Whether the I3DL2 reverb is on.</summary>
    public bool IsI3DL2ReverbSoundEffectEnabled {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_effects_is_i3dl2_reverb_enabled(sound.Pointer);
            }
        }
    }

    /// <summary>Enables the parametric equaliser with usual parameters.</summary>
    public bool EnableParamEqSoundEffect() {
        return EnableParamEqSoundEffect(8000, 12, 0);
    }

    /// <summary>Enables the parametric equaliser.</summary>
    public bool EnableParamEqSoundEffect(float fCenter, float fBandwidth, float fGain) {
        using (Borrowed sound = NativeSound.Borrow()) {
            return NativeMethods.sonimbra_effects_enable_param_eq(
                sound.Pointer, fCenter, fBandwidth, fGain);
        }
    }

    /// <summary>Disables the parametric equaliser.</summary>
    public void DisableParamEqSoundEffect() {
        using (Borrowed sound = NativeSound.Borrow()) {
            NativeMethods.sonimbra_effects_disable_param_eq(sound.Pointer);
        }
    }

    /// <summary>Whether the parametric equaliser is on.</summary>
    public bool IsParamEqSoundEffectEnabled {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_effects_is_param_eq_enabled(sound.Pointer);
            }
        }
    }

    /// <summary>Enables the waves reverb with usual parameters.</summary>
    public bool EnableWavesReverbSoundEffect() {
        return EnableWavesReverbSoundEffect(0, 0, 1000, 0.001f);
    }

    /// <summary>Enables the waves reverb.</summary>
    public bool EnableWavesReverbSoundEffect(float fInGain, float fReverbMix, float fReverbTime,
                                             float fHighFreqRTRatio) {
        using (Borrowed sound = NativeSound.Borrow()) {
            return NativeMethods.sonimbra_effects_enable_waves_reverb(
                sound.Pointer, fInGain, fReverbMix, fReverbTime, fHighFreqRTRatio);
        }
    }

    /// <summary>Disables the waves reverb.</summary>
    public void DisableWavesReverbSoundEffect() {
        using (Borrowed sound = NativeSound.Borrow()) {
            NativeMethods.sonimbra_effects_disable_waves_reverb(sound.Pointer);
        }
    }

    /// <summary>Whether the waves reverb is on.</summary>
    public bool IsWavesReverbSoundEffectEnabled {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_effects_is_waves_reverb_enabled(sound.Pointer);
            }
        }
    }
}

}
