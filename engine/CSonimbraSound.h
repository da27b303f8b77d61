// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "engine/CEngineLink.h"

#include <sonimbra/ISound.h>

namespace sn_internal {

class CSonimbraSoundSource;

/// The common base of every driver's sounds: keeps the parameters under the engine's lock, delivers
/// the stop event, and computes volume and pan from the listener for drivers without 3D hardware.
/// A driver's class fills in the hooks that touch real playback.
class CSonimbraSound : public sonimbra::ISound {
public:
    ~CSonimbraSound() override;

    sonimbra::ISoundSource* getSoundSource() override;
    void setIsPaused(bool paused) override;
    bool getIsPaused() override;
    void stop() override;
    float getVolume() override;
    void setVolume(float volume) override;
    void setPan(float pan) override;
    float getPan() override;
    bool isLooped() override;
    void setIsLooped(bool looped) override;
    bool isFinished() override;
    void setMinDistance(float minDistance) override;
    float getMinDistance() override;
    void setMaxDistance(float maxDistance) override;
    float getMaxDistance() override;
    void setPosition(const sonimbra::vec3df& position) override;
    sonimbra::vec3df getPosition() override;
    void setVelocity(const sonimbra::vec3df& velocity) override;
    sonimbra::vec3df getVelocity() override;
    std::uint32_t getPlayPosition() override { return UINT32_MAX; }
    bool setPlayPosition(std::uint32_t) override { return false; }
    bool setPlaybackSpeed(float) override { return false; }
    float getPlaybackSpeed() override { return 1.0f; }
    std::int32_t getPlayLength() override;
    sonimbra::ISoundEffectControl* getSoundEffectControl() override { return nullptr; }
    void setSoundStopEventReceiver(sonimbra::ISoundStopEventReceiver* receiver,
                                   void* userData) override;
    void updateListenerRelation(float, const sonimbra::vec3df&, const sonimbra::vec3df&,
                                const sonimbra::vec3df&, bool, float) override {}
    void stopBuffer() override {}
    void playBuffer() override {}
    void releaseBuffer() override {}
    bool isBufferFinished() override { return false; }
    void setBufferPan(float) override {}
    void setBufferVolume(float) override {}

    /// @name For the engine, with its lock held
    /// @{
    void setIs3D() { Is3D = true; }
    bool isPaused() const { return Paused; }
    bool isAttached() const { return Source != nullptr && Link->getEngine() != nullptr; }
    CSonimbraSoundSource* getAttachedSource() const { return Source; }
    /// What isFinished answers to the application.
    bool isOver() { return !isAttached() || IsEnding || isBufferFinished(); }
    /// The engine has ended it, and releases it when it has finished walking its sounds.
    void markAsEnding() { IsEnding = true; }
    bool isEnding() const { return IsEnding; }
    bool hasStopEventReceiver() const { return StopEventReceiver != nullptr; }
    void deliverStopEvent(bool removedWithSource);
    /// @}

protected:
    /// Starts paused. The source is not counted: it cuts its sounds off when it goes.
    CSonimbraSound(const CEngineLinkPtr& link, CSonimbraSoundSource* source, bool looped,
                   float minDistance, float maxDistance);

    ICriticalSection& getLock() const { return Link->getLock(); }
    bool isLoopedFlagSet() const { return Looped; }

    /// Has the engine call updateListenerRelation, as each update does.
    void refreshListenerRelation();

    /// Computes volume and pan from the listener and applies them by setBufferPan and
    /// setBufferVolume; a 2D sound gets its own pan and its volume times the global one.
    void apply3DInSoftware(float globalVolume, const sonimbra::vec3df& listenerPosition,
                           const sonimbra::vec3df& lookDirection, const sonimbra::vec3df& upVector,
                           bool linearRolloff);

private:
    friend class CSonimbraSoundSource;
    struct SNeighbours {
        CSonimbraSound* previous = nullptr;
        CSonimbraSound* next = nullptr;
    };

    const CEngineLinkPtr Link;
    sonimbra::vec3df Position;
    sonimbra::vec3df Velocity;
    float Volume = 1.0f;
    float Pan = 0.0f;
    float MinDistance;
    float MaxDistance;
    CSonimbraSoundSource* Source;
    SNeighbours SourceLinks; ///< the source's other sounds
    sonimbra::ISoundStopEventReceiver* StopEventReceiver = nullptr;
    void* UserData = nullptr;
    bool Paused = true;
    bool Is3D = false;
    bool Looped;
    bool StoppedByUser = false;
    bool IsEnding = false;
};

} // namespace sn_internal
