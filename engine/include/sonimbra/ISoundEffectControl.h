// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sonimbra {

/// The nine DirectX 8 effects of one sound, obtained from ISound::getSoundEffectControl.
///
/// Each enable operation switches the effect on, or changes its parameters when it is on; it
/// returns false when the sound has ended. The parameters' units and ranges are DirectSound's (the
/// DSFX structures). Any thread may call these operations.
class ISoundEffectControl {
public:
    virtual ~ISoundEffectControl() {}

    virtual void disableAllEffects() = 0;

    /// Chorus. lPhase in degrees: -180, -90, 0, 90 or 180; every other value counts as 90.
    virtual bool enableChorusSoundEffect(float fWetDryMix = 50, float fDepth = 10,
                                         float fFeedback = 25, float fFrequency = 1.1f,
                                         bool sinusWaveForm = true, float fDelay = 16,
                                         std::int32_t lPhase = 90) = 0;
    virtual void disableChorusSoundEffect() = 0;
    virtual bool isChorusSoundEffectEnabled() = 0;

    /// Compressor.
    virtual bool enableCompressorSoundEffect(float fGain = 0, float fAttack = 10,
                                             float fRelease = 200, float fThreshold = -20,
                                             float fRatio = 3, float fPredelay = 4) = 0;
    virtual void disableCompressorSoundEffect() = 0;
    virtual bool isCompressorSoundEffectEnabled() = 0;

    /// Distortion.
    virtual bool enableDistortionSoundEffect(float fGain = -18, float fEdge = 15,
                                             float fPostEQCenterFrequency = 2400,
                                             float fPostEQBandwidth = 2400,
                                             float fPreLowpassCutoff = 8000) = 0;
    virtual void disableDistortionSoundEffect() = 0;
    virtual bool isDistortionSoundEffectEnabled() = 0;

    /// Echo.
    virtual bool enableEchoSoundEffect(float fWetDryMix = 50, float fFeedback = 50,
                                       float fLeftDelay = 500, float fRightDelay = 500,
                                       std::int32_t lPanDelay = 0) = 0;
    virtual void disableEchoSoundEffect() = 0;
    virtual bool isEchoSoundEffectEnabled() = 0;

    /// Flanger. lPhase is DirectSound's own phase value, 0 to 4.
    virtual bool enableFlangerSoundEffect(float fWetDryMix = 50, float fDepth = 100,
                                          float fFeedback = -50, float fFrequency = 0.25f,
                                          bool triangleWaveForm = true, float fDelay = 2,
                                          std::int32_t lPhase = 0) = 0;
    virtual void disableFlangerSoundEffect() = 0;
    virtual bool isFlangerSoundEffectEnabled() = 0;

    /// Gargle.
    virtual bool enableGargleSoundEffect(std::int32_t rateHz = 20, bool sinusWaveForm = true) = 0;
    virtual void disableGargleSoundEffect() = 0;
    virtual bool isGargleSoundEffectEnabled() = 0;

    /// I3DL2 reverb.
    virtual bool enableI3DL2ReverbSoundEffect(
        std::int32_t lRoom = -1000, std::int32_t lRoomHF = -100, float flRoomRolloffFactor = 0,
        float flDecayTime = 1.49f, float flDecayHFRatio = 0.83f, std::int32_t lReflections = -2602,
        float flReflectionsDelay = 0.007f, std::int32_t lReverb = 200, float flReverbDelay = 0.011f,
        float flDiffusion = 100, float flDensity = 100, float flHFReference = 5000) = 0;
    virtual void disableI3DL2ReverbSoundEffect() = 0;
    virtual bool isI3DL2ReverbSoundEffectEnabled() = 0;

    /// Parametric equaliser.
    virtual bool enableParamEqSoundEffect(float fCenter = 8000, float fBandwidth = 12,
                                          float fGain = 0) = 0;
    virtual void disableParamEqSoundEffect() = 0;
    virtual bool isParamEqSoundEffectEnabled() = 0;

    /// Waves reverb.
    virtual bool enableWavesReverbSoundEffect(float fInGain = 0, float fReverbMix = 0,
                                              float fReverbTime = 1000,
                                              float fHighFreqRTRatio = 0.001f) = 0;
    virtual void disableWavesReverbSoundEffect() = 0;
    virtual bool isWavesReverbSoundEffectEnabled() = 0;
};

} // namespace sonimbra
