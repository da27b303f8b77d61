// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/directsound/CComApartment.h"
#include "drivers/directsound/CDirectSoundSound.h"
#include "engine/CSonimbraSoundEngine.h"

namespace sn_internal {

/// What the engines of both generations of DirectSound share, which is almost everything.
class CDirectSoundEngine : public CSonimbraSoundEngine {
public:
    const char* getDriverName() override { return Generation.driverName; }
    bool isDriverInitialized() override { return static_cast<bool>(Device); }
    void setRolloffFactor(float rolloff) override;
    void setDopplerEffectParameters(float dopplerFactor, float distanceFactor) override;
    void updateDriver() override;
    void onSourceRemoved(sonimbra::ISoundSource* source) override;
    sonimbra::ISound* createDriverSound(CSonimbraBufferedSamples* samples,
                                        sonimbra::ISoundSource* source, bool looped, bool is3D,
                                        float minDistance, float maxDistance,
                                        bool enableSoundEffects) override;
    sonimbra::ISound* createDriverStream(sonimbra::IAudioStream* stream,
                                         sonimbra::ISoundSource* source, bool looped, bool is3D,
                                         float minDistance, float maxDistance,
                                         bool enableSoundEffects) override;

protected:
    /// Starts up; isDriverInitialized tells whether it worked.
    CDirectSoundEngine(const SDirectSoundGeneration& generation, io::IFileSystem* fileSystem,
                       int options, const char* deviceID);

    /// For the destructors of derived classes.
    void shutDownDriver();

private:
    virtual sonimbra::ISound* createStatic(const SDirectSoundSoundArguments& arguments,
                                           CSonimbraBufferedSamples* samples) = 0;
    virtual sonimbra::ISound* createStreamed(const SDirectSoundSoundArguments& arguments,
                                             sonimbra::IAudioStream* stream) = 0;

    void startUp(const char* deviceID);
    bool createWindow();
    bool createDevice();
    bool initialiseDevice(const char* deviceID);
    void setUp3D();
    bool createListener();
    void cooperate();
    void applyListener();
    bool makesSoundFor(sonimbra::ISoundSource* source) const;
    SDirectSoundSoundArguments argumentsFor(sonimbra::ISoundSource* source, bool looped, bool is3D,
                                            float minDistance, float maxDistance,
                                            bool enableSoundEffects) const;

    const SDirectSoundGeneration& Generation;
    CComApartment Apartment;
    com_ptr<IDirectSound> Device;
    com_ptr<IDirectSound3DListener> Listener3D;
    const CDirectSoundResourcesPtr Resources = std::make_shared<CDirectSoundResources>();
    HWND Window = nullptr;
};

} // namespace sn_internal
