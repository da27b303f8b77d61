// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/ISoundEffectControl.h>
#include <sonimbra/ISoundSource.h>
#include <sonimbra/ISoundStopEventReceiver.h>
#include <sonimbra/vec3d.h>

namespace sonimbra {

/// One playing, paused or finished instance of a sound source.
///
/// The play operations of ISoundEngine return sounds with one reference for the caller. Every
/// operation takes the engine's lock and may be called from any thread. Once the sound's source (or
/// the engine) has been removed, setters do nothing and getters return the neutral value named with
/// them.
class ISound : public IVirtualRefCounted {
public:
    /// The source this sound was made from (for a sound played through an alias: the alias's base);
    /// null once it was removed. No reference for the caller.
    virtual ISoundSource* getSoundSource() = 0;

    /// Pauses or resumes. A paused sound is silent and does not advance.
    virtual void setIsPaused(bool paused) = 0;
    virtual bool getIsPaused() = 0;

    /// Ends the sound for good; it cannot be started again. Its stop event follows with the next
    /// update.
    virtual void stop() = 0;

    /// Linear gain; 0.0 is silent, 1.0 leaves the samples as they are, any value is taken. Starts
    /// with the source's default volume; takes effect with the next update. Neutral value: 0.0.
    virtual float getVolume() = 0;
    virtual void setVolume(float volume) = 0;

    /// Pan of a 2D sound, -1.0 to 1.0, 0.0 in the middle (default). The software mixer silences the
    /// right channel by 10 * pan when pan is above 0, the left channel by 10 * -pan when it is
    /// below: from +0.1 on only the left channel is heard, from -0.1 on only the right one. 3D
    /// sounds compute their own. Takes effect with the next update.
    virtual void setPan(float pan) = 0;
    virtual float getPan() = 0;

    /// Whether the sound starts again from its beginning when it reaches its end. Neutral: false.
    virtual bool isLooped() = 0;
    virtual void setIsLooped(bool looped) = 0;

    /// True when the sound has ended: it has played to its end, was stopped, or its source was
    /// removed.
    virtual bool isFinished() = 0;

    /// 3D: below this distance, in the application's units, the sound gets no louder.
    virtual void setMinDistance(float minDistance) = 0;
    virtual float getMinDistance() = 0;

    /// 3D: beyond this distance the sound gets no quieter; with the LinearRolloff option it is
    /// silent there, and beyond it its gain goes on below zero.
    virtual void setMaxDistance(float maxDistance) = 0;
    virtual float getMaxDistance() = 0;

    /// 3D position in the application's units. Neutral: (0, 0, 0).
    virtual void setPosition(const vec3df& position) = 0;
    virtual vec3df getPosition() = 0;

    /// 3D velocity in units per second; hardware 3D uses it for the Doppler effect. Neutral:
    /// (0, 0, 0).
    virtual void setVelocity(const vec3df& velocity) = 0;
    virtual vec3df getVelocity() = 0;

    /// Milliseconds played, 0xFFFFFFFF when it is not known or the sound has ended.
    virtual std::uint32_t getPlayPosition() = 0;

    /// Moves to a position in milliseconds, at most the sound's end. Returns false when the sound
    /// cannot seek or has ended.
    virtual bool setPlayPosition(std::uint32_t milliseconds) = 0;

    /// Playback speed, clamped by the software mixer to 0.01..5.0; 1.0 is the sound's own
    /// (default). Changes the pitch too. Returns false when the driver cannot do it or the sound
    /// has ended.
    virtual bool setPlaybackSpeed(float speed = 1.0f) = 0;
    virtual float getPlaybackSpeed() = 0;

    /// The source's length in milliseconds, -1 when it is not known. Neutral: 0.
    virtual std::int32_t getPlayLength() = 0;

    /// The sound's effects, owned by the sound; null when the driver has none.
    virtual ISoundEffectControl* getSoundEffectControl() = 0;

    /// Sets who is told when the sound has ended, and with which user data; null for nobody. The
    /// receiver stays the caller's and must live until the event was delivered or it was replaced.
    virtual void setSoundStopEventReceiver(ISoundStopEventReceiver* receiver,
                                           void* userData = nullptr) = 0;

    /// @name For the engine and its drivers
    /// Called with the engine's lock held.
    /// @{

    /// Computes and applies volume and pan from the listener.
    virtual void updateListenerRelation(float globalVolume, const vec3df& listenerPosition,
                                        const vec3df& listenerLookDirection,
                                        const vec3df& listenerUpVector, bool linearRolloff,
                                        float rolloffFactor) = 0;
    virtual void stopBuffer() = 0;
    virtual void playBuffer() = 0;
    virtual void releaseBuffer() = 0;
    virtual bool isBufferFinished() = 0;
    virtual void setBufferPan(float pan) = 0;
    virtual void setBufferVolume(float volume) = 0;
    /// @}
};

} // namespace sonimbra
