// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sonimbra {

/// The nine DirectX 8 effects of one sound, obtained from ISound::getSoundEffectControl.
///
/// Only the DirectSound8 driver has effects; with the other drivers there is no such object. It
/// belongs to the sound and lives as long as the sound does: never delete it. The sound has to be
/// played with enableSoundEffects and, unless it is streamed, has to last 150 ms at least: for a
/// shorter one DirectSound makes no buffer that takes effects, and it does not play at all.
///
/// Each enable operation switches the effect on or, when it is on already, gives it other
/// parameters. Effects are applied in the order in which they were switched on. Switching one on or
/// off stops the sound for a moment and goes on at the same place, and so does disableAllEffects
/// even if none is on; other parameters do not interrupt it. A paused sound stays paused.
///
/// Enable operations return false only when the sound has no buffer, and change nothing then: it
/// has ended or was stopped, its source was removed, its engine is gone, or its buffer could not be
/// made. When the sound ends, all its effects are off. The disable operations do nothing for an
/// effect that is off.
///
/// What DirectSound refuses is told in the log alone: "Could not set effects", or "Could not
/// disable effects" when none was left to set. That happens to a sound that was played without
/// enableSoundEffects, and on systems that lack an effect. The operation returns true all the same,
/// and the effect counts as enabled. DirectSound takes all effects of a sound or none: one that it
/// refuses has every later one refused with it, until it is disabled.
///
/// Parameters are handed on as they are: those outside their range are DirectSound's to refuse,
/// without a message. The effect then goes on with those that it had, but the refused ones are
/// kept, and handed on again whenever an effect is switched on or off.
///
/// Frequencies are in Hz. Every operation takes the engine's lock and may be called from any
/// thread.
class ISoundEffectControl {
public:
    /// Switches every effect off.
    virtual void disableAllEffects() = 0;

    /// Chorus: mixes in a copy whose delay swings.
    ///   fWetDryMix     part of the copy in percent, 0 to 100
    ///   fDepth         how far the delay swings, in hundredths of a percent, 0 to 100
    ///   fFeedback      part of the output fed back in percent, -99 to 99
    ///   fFrequency     of the swing, 0 to 10
    ///   sinusWaveForm  of the swing: true for a sine, false for a triangle
    ///   fDelay         milliseconds, 0 to 20
    ///   lPhase         between the swings of left and right, in degrees: -180, -90, 0, 90 or 180;
    ///                  every other value counts as 90
    virtual bool enableChorusSoundEffect(float fWetDryMix = 50, float fDepth = 10,
                                         float fFeedback = 25, float fFrequency = 1.1f,
                                         bool sinusWaveForm = true, float fDelay = 16,
                                         std::int32_t lPhase = 90) = 0;
    virtual void disableChorusSoundEffect() = 0;
    virtual bool isChorusSoundEffectEnabled() = 0;

    /// Compressor: makes what is loud quieter.
    ///   fGain       of the output in decibels, -60 to 60
    ///   fAttack     milliseconds until the compression is whole, 0.01 to 500
    ///   fRelease    milliseconds until it has ended, 50 to 3000
    ///   fThreshold  where it begins, in decibels, -60 to 0
    ///   fRatio      compression ratio, 1 to 100
    ///   fPredelay   milliseconds from the threshold to the attack, 0 to 4
    virtual bool enableCompressorSoundEffect(float fGain = 0, float fAttack = 10,
                                             float fRelease = 200, float fThreshold = -20,
                                             float fRatio = 3, float fPredelay = 4) = 0;
    virtual void disableCompressorSoundEffect() = 0;
    virtual bool isCompressorSoundEffectEnabled() = 0;

    /// Distortion: cuts the peaks off and adds overtones.
    ///   fGain                   after the distortion, in decibels, -60 to 0
    ///   fEdge                   strength in percent, 0 to 100
    ///   fPostEQCenterFrequency  of the band where overtones are added, 100 to 8000
    ///   fPostEQBandwidth        width of that band, 100 to 8000
    ///   fPreLowpassCutoff       what is above is left out first, 100 to 8000
    virtual bool enableDistortionSoundEffect(float fGain = -18, float fEdge = 15,
                                             float fPostEQCenterFrequency = 2400,
                                             float fPostEQBandwidth = 2400,
                                             float fPreLowpassCutoff = 8000) = 0;
    virtual void disableDistortionSoundEffect() = 0;
    virtual bool isDistortionSoundEffectEnabled() = 0;

    /// Echo: repeats the sound, more quietly each time.
    ///   fWetDryMix   part of the echo in percent, 0 to 100
    ///   fFeedback    part of the output fed back in percent, 0 to 100
    ///   fLeftDelay   milliseconds, 1 to 2000
    ///   fRightDelay  milliseconds, 1 to 2000
    ///   lPanDelay    1 swaps the two delays with each echo, 0 does not
    virtual bool enableEchoSoundEffect(float fWetDryMix = 50, float fFeedback = 50,
                                       float fLeftDelay = 500, float fRightDelay = 500,
                                       std::int32_t lPanDelay = 0) = 0;
    virtual void disableEchoSoundEffect() = 0;
    virtual bool isEchoSoundEffectEnabled() = 0;

    /// Flanger: a chorus with a short delay.
    ///   fWetDryMix        part of the copy in percent, 0 to 100
    ///   fDepth            how far the delay swings, in hundredths of a percent, 0 to 100
    ///   fFeedback         part of the output fed back in percent, -99 to 99
    ///   fFrequency        of the swing, 0 to 10
    ///   triangleWaveForm  of the swing. Other than the name says: true for a sine, false for a
    ///                     triangle, as in the chorus
    ///   fDelay            milliseconds, 0 to 4
    ///   lPhase            between the swings of left and right, as DirectSound counts: 0 for -180
    ///                     degrees, 1 for -90, 2 for 0, 3 for 90, 4 for 180
    virtual bool enableFlangerSoundEffect(float fWetDryMix = 50, float fDepth = 100,
                                          float fFeedback = -50, float fFrequency = 0.25f,
                                          bool triangleWaveForm = true, float fDelay = 2,
                                          std::int32_t lPhase = 0) = 0;
    virtual void disableFlangerSoundEffect() = 0;
    virtual bool isFlangerSoundEffectEnabled() = 0;

    /// Gargle: turns the volume up and down.
    ///   rateHz         of the modulation, 1 to 1000
    ///   sinusWaveForm  of the modulation. Other than the name says: true for a triangle, false for
    ///                  a square
    virtual bool enableGargleSoundEffect(std::int32_t rateHz = 20, bool sinusWaveForm = true) = 0;
    virtual void disableGargleSoundEffect() = 0;
    virtual bool isGargleSoundEffectEnabled() = 0;

    /// I3DL2 reverb: the reverberation of a room, by the guideline for interactive 3D audio. Levels
    /// are in hundredths of a decibel.
    ///   lRoom                level of the room's effect, -10000 to 0
    ///   lRoomHF              the same at high frequencies, added, -10000 to 0
    ///   flRoomRolloffFactor  how fast the reflections get quieter with the distance, 0 to 10
    ///   flDecayTime          seconds, 0.1 to 20
    ///   flDecayHFRatio       decay time at high frequencies against low ones, 0.1 to 2
    ///   lReflections         level of the early reflections against lRoom, -10000 to 1000
    ///   flReflectionsDelay   of the first one after the direct sound, in seconds, 0 to 0.3
    ///   lReverb              level of the late reverberation against lRoom, -10000 to 2000
    ///   flReverbDelay        of it after the first reflection, in seconds, 0 to 0.1
    ///   flDiffusion          density of the echoes in percent, 0 to 100
    ///   flDensity            density of the resonances in percent, 0 to 100
    ///   flHFReference        where high frequencies begin, 20 to 20000
    virtual bool enableI3DL2ReverbSoundEffect(
        std::int32_t lRoom = -1000, std::int32_t lRoomHF = -100, float flRoomRolloffFactor = 0,
        float flDecayTime = 1.49f, float flDecayHFRatio = 0.83f, std::int32_t lReflections = -2602,
        float flReflectionsDelay = 0.007f, std::int32_t lReverb = 200, float flReverbDelay = 0.011f,
        float flDiffusion = 100, float flDensity = 100, float flHFReference = 5000) = 0;
    virtual void disableI3DL2ReverbSoundEffect() = 0;
    virtual bool isI3DL2ReverbSoundEffectEnabled() = 0;

    /// Parametric equaliser: makes a band of frequencies louder or quieter.
    ///   fCenter     middle of the band, 80 to 16000, but at most a third of the sound's rate: for
    ///               sounds below 24000 Hz the default is too high
    ///   fBandwidth  semitones, 1 to 36
    ///   fGain       decibels, -15 to 15
    virtual bool enableParamEqSoundEffect(float fCenter = 8000, float fBandwidth = 12,
                                          float fGain = 0) = 0;
    virtual void disableParamEqSoundEffect() = 0;
    virtual bool isParamEqSoundEffectEnabled() = 0;

    /// Waves reverb: a reverberation for music.
    ///   fInGain           of the input in decibels, -96 to 0
    ///   fReverbMix        of the reverberation in decibels, -96 to 0
    ///   fReverbTime       milliseconds, 0.001 to 3000
    ///   fHighFreqRTRatio  reverberation time at high frequencies against low ones, 0.001 to 0.999
    virtual bool enableWavesReverbSoundEffect(float fInGain = 0, float fReverbMix = 0,
                                              float fReverbTime = 1000,
                                              float fHighFreqRTRatio = 0.001f) = 0;
    virtual void disableWavesReverbSoundEffect() = 0;
    virtual bool isWavesReverbSoundEffectEnabled() = 0;

protected:
    ~ISoundEffectControl() = default;
};

} // namespace sonimbra
