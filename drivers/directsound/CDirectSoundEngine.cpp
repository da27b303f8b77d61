// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/directsound/CDirectSoundEngine.h"

#include "core/integers.h"
#include "core/log.h"
#include "core/no_throw.h"
#include "engine/CSonimbraSoundSource.h"

namespace sn_internal {
namespace {

const char* const WindowClass = "SonimbraWindow";

// 32-bit Windows knows these records at these sizes; 64-bit Windows at larger ones.
static_assert(sizeof(void*) != 4 || sizeof(DSBUFFERDESC) == 36);

bool isSet(int options, int bit) {
    return (options & bit) != 0;
}

} // namespace

CDirectSoundEngine::CDirectSoundEngine(const SDirectSoundGeneration& generation,
                                       io::IFileSystem* fileSystem, int options,
                                       const char* deviceID)
    : CSonimbraSoundEngine(fileSystem, options), Generation(generation) {
    const bool isDone = withoutExceptions(false, [&] {
        startUp(deviceID);
        return true;
    });
    if (!isDone) {
        Device.reset(); // memory ran out
    }
}

void CDirectSoundEngine::startUp(const char* deviceID) {
    if (!createWindow()) {
        logText("Could not create hidden window for Sonimbra object");
        return;
    }
    if (!createDevice()) {
        logText(Generation.notCreated);
        return;
    }
    if (!initialiseDevice(deviceID)) {
        logText(Generation.notInitialised);
        Device.reset();
        return;
    }
    setUp3D();
    cooperate();
    setInternalAudioInterface(0, Device.get());
    logText(Generation.inUse);
}

/// A class that is registered already is as good.
bool CDirectSoundEngine::createWindow() {
    const HINSTANCE module = GetModuleHandleA(nullptr);
    WNDCLASSA description = {};
    description.lpfnWndProc = DefWindowProcA;
    description.hInstance = module;
    description.lpszClassName = WindowClass;
    RegisterClassA(&description);
    Window = CreateWindowExA(0, WindowClass, "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, module,
                             nullptr);
    return Window != nullptr;
}

bool CDirectSoundEngine::createDevice() {
    Apartment.enter();
    if (FAILED(CoCreateInstance(Generation.deviceClass, nullptr, CLSCTX_INPROC_SERVER,
                                Generation.deviceInterface, Device.putVoid()))) {
        Device.reset();
    }
    return static_cast<bool>(Device);
}

bool CDirectSoundEngine::initialiseDevice(const char* deviceID) {
    const GUID device = chooseDevice(deviceID, Generation.createDeviceList);
    return SUCCEEDED(Device->Initialize(&device));
}

void CDirectSoundEngine::setUp3D() {
    if (isSet(Options, sonimbra::LinearRolloff) && isSet(Options, sonimbra::Use3DBuffers)) {
        Options &= ~sonimbra::Use3DBuffers;
        logText("Warning: linear falloff not supported together with USE_3D_BUFFERS, disabling "
                "USE_3D_BUFFERS");
    }
    if (isSet(Options, sonimbra::Use3DBuffers) && !createListener()) {
        Options &= ~sonimbra::Use3DBuffers;
    }
}

bool CDirectSoundEngine::createListener() {
    DSBUFFERDESC description = {};
    description.dwSize = sizeof(description);
    description.dwFlags = DSBCAPS_PRIMARYBUFFER | DSBCAPS_CTRL3D;
    com_ptr<IDirectSoundBuffer> primary;
    if (FAILED(Device->CreateSoundBuffer(&description, primary.put(), nullptr)) || !primary) {
        logText("Could not create primary sound buffer for 3d, switching to software emulation");
        return false;
    }
    if (FAILED(primary->QueryInterface(IID_IDirectSound3DListener, Listener3D.putVoid())) ||
        !Listener3D) {
        Listener3D.reset();
        logText("Could not create 3d sound listener, switching to software emulation");
        return false;
    }
    return true;
}

/// Without cooperation the driver counts as not started, although start-up goes on.
void CDirectSoundEngine::cooperate() {
    if (FAILED(Device->SetCooperativeLevel(Window, DSSCL_NORMAL))) {
        logText(Generation.noCooperation);
        Device.reset();
    }
}

void CDirectSoundEngine::shutDownDriver() {
    stopEngineThread();
    endSounds();
    {
        const CScopedLock lock(getLock());
        Resources->releaseAll();
    }
    Listener3D.reset();
    Device.reset();
    // Only its own thread can destroy a window: another one asks for it.
    if (Window != nullptr && !DestroyWindow(Window)) {
        PostMessageA(Window, WM_CLOSE, 0, 0);
    }
    Apartment.leave();
}

void CDirectSoundEngine::setRolloffFactor(float rolloff) {
    const CScopedLock lock(getLock());
    CSonimbraSoundEngine::setRolloffFactor(rolloff);
    if (Listener3D) {
        Listener3D->SetRolloffFactor(getRolloffFactor(), DS3D_IMMEDIATE);
    }
}

void CDirectSoundEngine::setDopplerEffectParameters(float dopplerFactor, float distanceFactor) {
    if (Listener3D) {
        Listener3D->SetDopplerFactor(dopplerFactor, DS3D_IMMEDIATE);
        Listener3D->SetDistanceFactor(distanceFactor, DS3D_IMMEDIATE);
    }
}

void CDirectSoundEngine::updateDriver() {
    const CScopedLock lock(getLock());
    CSonimbraSoundEngine::updateDriver();
    if (Listener3D) {
        applyListener();
    }
}

/// At once with all buffers that were changed in this update.
void CDirectSoundEngine::applyListener() {
    const sonimbra::vec3df position = getListener().Position.load();
    const sonimbra::vec3df look = getListener().LookDirection.load();
    const sonimbra::vec3df up = getListener().UpVector.load();
    const sonimbra::vec3df velocity = getListener().Velocity.load();
    Listener3D->SetPosition(position.X, position.Y, position.Z, DS3D_DEFERRED);
    Listener3D->SetOrientation(look.X, look.Y, look.Z, up.X, up.Y, up.Z, DS3D_DEFERRED);
    Listener3D->SetVelocity(velocity.X, velocity.Y, velocity.Z, DS3D_DEFERRED);
    Listener3D->CommitDeferredSettings();
}

/// The source may outlive the device, its buffers must not.
void CDirectSoundEngine::onSourceRemoved(sonimbra::ISoundSource* source) {
    const CScopedLock lock(getLock());
    if (auto* const own = dynamic_cast<CSonimbraSoundSource*>(source)) {
        own->setDriverData({});
    }
}

bool CDirectSoundEngine::makesSoundFor(sonimbra::ISoundSource* source) const {
    const auto* own = dynamic_cast<CSonimbraSoundSource*>(source);
    return Device && own != nullptr && own->belongsTo(getLink());
}

SDirectSoundSoundArguments CDirectSoundEngine::argumentsFor(sonimbra::ISoundSource* source,
                                                            bool looped, bool is3D,
                                                            float minDistance, float maxDistance,
                                                            bool enableSoundEffects) const {
    return {getLink(),
            static_cast<CSonimbraSoundSource*>(source),
            Device.get(),
            Resources,
            looped,
            minDistance,
            maxDistance,
            !isSet(Options, sonimbra::MuteIfNotFocused),
            is3D && isSet(Options, sonimbra::Use3DBuffers),
            enableSoundEffects};
}

sonimbra::ISound* CDirectSoundEngine::createDriverSound(CSonimbraBufferedSamples* samples,
                                                        sonimbra::ISoundSource* source, bool looped,
                                                        bool is3D, float minDistance,
                                                        float maxDistance,
                                                        bool enableSoundEffects) {
    const CScopedLock lock(getLock());
    if (samples == nullptr || !makesSoundFor(source)) {
        return nullptr;
    }
    return createStatic(
        argumentsFor(source, looped, is3D, minDistance, maxDistance, enableSoundEffects), samples);
}

sonimbra::ISound* CDirectSoundEngine::createDriverStream(sonimbra::IAudioStream* stream,
                                                         sonimbra::ISoundSource* source,
                                                         bool looped, bool is3D, float minDistance,
                                                         float maxDistance,
                                                         bool enableSoundEffects) {
    const CScopedLock lock(getLock());
    if (stream == nullptr || !makesSoundFor(source)) {
        return nullptr;
    }
    return createStreamed(
        argumentsFor(source, looped, is3D, minDistance, maxDistance, enableSoundEffects), stream);
}

} // namespace sn_internal
