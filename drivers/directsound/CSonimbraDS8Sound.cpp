// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/directsound/CSonimbraDS8Sound.h"

namespace sn_internal {
namespace {

/// Every angle without a value of its own counts as 90 degrees.
LONG chorusPhaseOf(std::int32_t degrees) {
    switch (degrees) {
    case -180:
        return DSFXCHORUS_PHASE_NEG_180;
    case -90:
        return DSFXCHORUS_PHASE_NEG_90;
    case 0:
        return DSFXCHORUS_PHASE_ZERO;
    case 180:
        return DSFXCHORUS_PHASE_180;
    default:
        return DSFXCHORUS_PHASE_90;
    }
}

} // namespace

void CSonimbraDS8Sound::releaseBuffer() {
    CDirectSoundSound::releaseBuffer();
    Effects.clear();
}

/// DirectSound 8 is asked for new buffers by this interface, which begins like the older one.
IDirectSoundBuffer8& CSonimbraDS8Sound::getEffectBuffer() const {
    return *static_cast<IDirectSoundBuffer8*>(static_cast<void*>(getBuffer()));
}

bool CSonimbraDS8Sound::enable(const SoundEffectParameters& parameters) {
    const CScopedLock lock(getLock());
    if (!isPlayable()) {
        return false;
    }
    if (Effects.put(parameters)) {
        rebuildEffects();
    } else {
        CSoundEffectChain::push(getEffectBuffer(), parameters);
    }
    return true;
}

void CSonimbraDS8Sound::disable(REFGUID effectClass) {
    const CScopedLock lock(getLock());
    if (Effects.remove(effectClass) && isPlayable()) {
        rebuildEffects();
    }
}

bool CSonimbraDS8Sound::isEnabled(REFGUID effectClass) const {
    const CScopedLock lock(getLock());
    return Effects.holds(effectClass);
}

void CSonimbraDS8Sound::disableAllEffects() {
    const CScopedLock lock(getLock());
    if (isPlayable()) {
        Effects.clear();
        rebuildEffects();
    }
}

/// A buffer that plays takes no effects.
void CSonimbraDS8Sound::rebuildEffects() {
    if (!isPaused()) {
        stopBuffer();
    }
    Effects.build(getEffectBuffer());
    if (!isPaused()) {
        playBuffer(); // goes on where it was
    }
}

bool CSonimbraDS8Sound::enableChorusSoundEffect(float fWetDryMix, float fDepth, float fFeedback,
                                                float fFrequency, bool sinusWaveForm, float fDelay,
                                                std::int32_t lPhase) {
    return enable(DSFXChorus{fWetDryMix, fDepth, fFeedback, fFrequency,
                             sinusWaveForm ? DSFXCHORUS_WAVE_SIN : DSFXCHORUS_WAVE_TRIANGLE, fDelay,
                             chorusPhaseOf(lPhase)});
}
void CSonimbraDS8Sound::disableChorusSoundEffect() {
    disable(GUID_DSFX_STANDARD_CHORUS);
}
bool CSonimbraDS8Sound::isChorusSoundEffectEnabled() {
    return isEnabled(GUID_DSFX_STANDARD_CHORUS);
}

bool CSonimbraDS8Sound::enableCompressorSoundEffect(float fGain, float fAttack, float fRelease,
                                                    float fThreshold, float fRatio,
                                                    float fPredelay) {
    return enable(DSFXCompressor{fGain, fAttack, fRelease, fThreshold, fRatio, fPredelay});
}
void CSonimbraDS8Sound::disableCompressorSoundEffect() {
    disable(GUID_DSFX_STANDARD_COMPRESSOR);
}
bool CSonimbraDS8Sound::isCompressorSoundEffectEnabled() {
    return isEnabled(GUID_DSFX_STANDARD_COMPRESSOR);
}

bool CSonimbraDS8Sound::enableDistortionSoundEffect(float fGain, float fEdge,
                                                    float fPostEQCenterFrequency,
                                                    float fPostEQBandwidth,
                                                    float fPreLowpassCutoff) {
    return enable(
        DSFXDistortion{fGain, fEdge, fPostEQCenterFrequency, fPostEQBandwidth, fPreLowpassCutoff});
}
void CSonimbraDS8Sound::disableDistortionSoundEffect() {
    disable(GUID_DSFX_STANDARD_DISTORTION);
}
bool CSonimbraDS8Sound::isDistortionSoundEffectEnabled() {
    return isEnabled(GUID_DSFX_STANDARD_DISTORTION);
}

bool CSonimbraDS8Sound::enableEchoSoundEffect(float fWetDryMix, float fFeedback, float fLeftDelay,
                                              float fRightDelay, std::int32_t lPanDelay) {
    return enable(DSFXEcho{fWetDryMix, fFeedback, fLeftDelay, fRightDelay, lPanDelay});
}
void CSonimbraDS8Sound::disableEchoSoundEffect() {
    disable(GUID_DSFX_STANDARD_ECHO);
}
bool CSonimbraDS8Sound::isEchoSoundEffectEnabled() {
    return isEnabled(GUID_DSFX_STANDARD_ECHO);
}

/// The wave form's value is the chorus's, whatever its name says, and the phase is no angle.
bool CSonimbraDS8Sound::enableFlangerSoundEffect(float fWetDryMix, float fDepth, float fFeedback,
                                                 float fFrequency, bool triangleWaveForm,
                                                 float fDelay, std::int32_t lPhase) {
    return enable(DSFXFlanger{fWetDryMix, fDepth, fFeedback, fFrequency,
                              triangleWaveForm ? DSFXFLANGER_WAVE_SIN : DSFXFLANGER_WAVE_TRIANGLE,
                              fDelay, lPhase});
}
void CSonimbraDS8Sound::disableFlangerSoundEffect() {
    disable(GUID_DSFX_STANDARD_FLANGER);
}
bool CSonimbraDS8Sound::isFlangerSoundEffectEnabled() {
    return isEnabled(GUID_DSFX_STANDARD_FLANGER);
}

bool CSonimbraDS8Sound::enableGargleSoundEffect(std::int32_t rateHz, bool sinusWaveForm) {
    return enable(DSFXGargle{
        static_cast<DWORD>(rateHz),
        static_cast<DWORD>(sinusWaveForm ? DSFXGARGLE_WAVE_TRIANGLE : DSFXGARGLE_WAVE_SQUARE)});
}
void CSonimbraDS8Sound::disableGargleSoundEffect() {
    disable(GUID_DSFX_STANDARD_GARGLE);
}
bool CSonimbraDS8Sound::isGargleSoundEffectEnabled() {
    return isEnabled(GUID_DSFX_STANDARD_GARGLE);
}

bool CSonimbraDS8Sound::enableI3DL2ReverbSoundEffect(
    std::int32_t lRoom, std::int32_t lRoomHF, float flRoomRolloffFactor, float flDecayTime,
    float flDecayHFRatio, std::int32_t lReflections, float flReflectionsDelay, std::int32_t lReverb,
    float flReverbDelay, float flDiffusion, float flDensity, float flHFReference) {
    return enable(DSFXI3DL2Reverb{lRoom, lRoomHF, flRoomRolloffFactor, flDecayTime, flDecayHFRatio,
                                  lReflections, flReflectionsDelay, lReverb, flReverbDelay,
                                  flDiffusion, flDensity, flHFReference});
}
void CSonimbraDS8Sound::disableI3DL2ReverbSoundEffect() {
    disable(GUID_DSFX_STANDARD_I3DL2REVERB);
}
bool CSonimbraDS8Sound::isI3DL2ReverbSoundEffectEnabled() {
    return isEnabled(GUID_DSFX_STANDARD_I3DL2REVERB);
}

bool CSonimbraDS8Sound::enableParamEqSoundEffect(float fCenter, float fBandwidth, float fGain) {
    return enable(DSFXParamEq{fCenter, fBandwidth, fGain});
}
void CSonimbraDS8Sound::disableParamEqSoundEffect() {
    disable(GUID_DSFX_STANDARD_PARAMEQ);
}
bool CSonimbraDS8Sound::isParamEqSoundEffectEnabled() {
    return isEnabled(GUID_DSFX_STANDARD_PARAMEQ);
}

bool CSonimbraDS8Sound::enableWavesReverbSoundEffect(float fInGain, float fReverbMix,
                                                     float fReverbTime, float fHighFreqRTRatio) {
    return enable(DSFXWavesReverb{fInGain, fReverbMix, fReverbTime, fHighFreqRTRatio});
}
void CSonimbraDS8Sound::disableWavesReverbSoundEffect() {
    disable(GUID_DSFX_WAVES_REVERB);
}
bool CSonimbraDS8Sound::isWavesReverbSoundEffectEnabled() {
    return isEnabled(GUID_DSFX_WAVES_REVERB);
}

} // namespace sn_internal
