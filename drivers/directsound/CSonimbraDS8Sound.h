// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CDirectSoundSound.h"
#include "drivers/directsound/CSoundEffectChain.h"

#include <sonimbra/ISoundEffectControl.h>

namespace sn_internal {

/// A sound of DirectSound 8, and the control of its own effects.
class CSonimbraDS8Sound : public CDirectSoundSound, public sonimbra::ISoundEffectControl {
public:
    CSonimbraDS8Sound(const SDirectSoundSoundArguments& arguments,
                      CSonimbraBufferedSamples* samples)
        : CDirectSoundSound(DirectSound8Generation, arguments, samples) {}

    sonimbra::ISoundEffectControl* getSoundEffectControl() override { return this; }
    void releaseBuffer() override;

    void disableAllEffects() override;

    bool enableChorusSoundEffect(float fWetDryMix, float fDepth, float fFeedback, float fFrequency,
                                 bool sinusWaveForm, float fDelay, std::int32_t lPhase) override;
    void disableChorusSoundEffect() override;
    bool isChorusSoundEffectEnabled() override;

    bool enableCompressorSoundEffect(float fGain, float fAttack, float fRelease, float fThreshold,
                                     float fRatio, float fPredelay) override;
    void disableCompressorSoundEffect() override;
    bool isCompressorSoundEffectEnabled() override;

    bool enableDistortionSoundEffect(float fGain, float fEdge, float fPostEQCenterFrequency,
                                     float fPostEQBandwidth, float fPreLowpassCutoff) override;
    void disableDistortionSoundEffect() override;
    bool isDistortionSoundEffectEnabled() override;

    bool enableEchoSoundEffect(float fWetDryMix, float fFeedback, float fLeftDelay,
                               float fRightDelay, std::int32_t lPanDelay) override;
    void disableEchoSoundEffect() override;
    bool isEchoSoundEffectEnabled() override;

    bool enableFlangerSoundEffect(float fWetDryMix, float fDepth, float fFeedback, float fFrequency,
                                  bool triangleWaveForm, float fDelay,
                                  std::int32_t lPhase) override;
    void disableFlangerSoundEffect() override;
    bool isFlangerSoundEffectEnabled() override;

    bool enableGargleSoundEffect(std::int32_t rateHz, bool sinusWaveForm) override;
    void disableGargleSoundEffect() override;
    bool isGargleSoundEffectEnabled() override;

    bool enableI3DL2ReverbSoundEffect(std::int32_t lRoom, std::int32_t lRoomHF,
                                      float flRoomRolloffFactor, float flDecayTime,
                                      float flDecayHFRatio, std::int32_t lReflections,
                                      float flReflectionsDelay, std::int32_t lReverb,
                                      float flReverbDelay, float flDiffusion, float flDensity,
                                      float flHFReference) override;
    void disableI3DL2ReverbSoundEffect() override;
    bool isI3DL2ReverbSoundEffectEnabled() override;

    bool enableParamEqSoundEffect(float fCenter, float fBandwidth, float fGain) override;
    void disableParamEqSoundEffect() override;
    bool isParamEqSoundEffectEnabled() override;

    bool enableWavesReverbSoundEffect(float fInGain, float fReverbMix, float fReverbTime,
                                      float fHighFreqRTRatio) override;
    void disableWavesReverbSoundEffect() override;
    bool isWavesReverbSoundEffectEnabled() override;

protected:
    /// Without a buffer, for streams.
    explicit CSonimbraDS8Sound(const SDirectSoundSoundArguments& arguments)
        : CDirectSoundSound(DirectSound8Generation, arguments) {}

private:
    bool enable(const SoundEffectParameters& parameters);
    void disable(REFGUID effectClass);
    bool isEnabled(REFGUID effectClass) const;
    void rebuildEffects();
    IDirectSoundBuffer8& getEffectBuffer() const;

    CSoundEffectChain Effects;
};

} // namespace sn_internal
