// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/counted_ptr.h"
#include "core/log.h"
#include "core/no_throw.h"
#include "core/string.h"
#include "drivers/software/null_engine.h"
#include "drivers/software/offline_engine.h"
#include "engine/CSoundDeviceList.h"
#include "engine/drivers.h"
#include "engine/version.h"
#include "io/CFileSystem.h"

#include <sonimbra/sonimbra.h>

#include <cstring>

namespace sn_internal {

using sonimbra::E_SOUND_OUTPUT_DRIVER;
using sonimbra::IAudioRecorder;
using sonimbra::ISoundDeviceList;
using sonimbra::ISoundEngine;
using sonimbra::vec3df;

namespace {

/// Automatic detection tries DirectSound8, and nothing after it. DirectSound's successor is never
/// reached; the table is kept as it is because applications see its effect.
E_SOUND_OUTPUT_DRIVER nextDriverToTry(E_SOUND_OUTPUT_DRIVER driver) {
    switch (driver) {
    case E_SOUND_OUTPUT_DRIVER::AutoDetect:
        return E_SOUND_OUTPUT_DRIVER::DirectSound8;
    case E_SOUND_OUTPUT_DRIVER::DirectSound:
        return E_SOUND_OUTPUT_DRIVER::WinMM;
    default:
        return E_SOUND_OUTPUT_DRIVER::AutoDetect;
    }
}

/// A null version counts as one that does not match.
void checkSdkVersion(const char* sdkVersion) {
    if (sdkVersion != nullptr && std::strcmp(sdkVersion, SONIMBRA_LIBRARY_VERSION) == 0) {
        return;
    }
    sonimbra::string<char> warning(
        "Warning: The library version of Sonimbra (" SONIMBRA_LIBRARY_VERSION
        ") does not match the version the application was compiled with (");
    warning.append(sdkVersion);
    warning.append("). This may cause problems.");
    printText(warning.c_str(), true);
}

void setInitialListener(ISoundEngine& engine) {
    engine.setListenerPosition(vec3df(0, 0, 0), vec3df(1, 1, 0), vec3df(0, 0, 0), vec3df(0, 1, 0));
}

ISoundEngine* makeEngine(E_SOUND_OUTPUT_DRIVER driver, const SEngineArguments& arguments) {
    switch (driver) {
    case E_SOUND_OUTPUT_DRIVER::NullDriver:
        return createNullEngine(arguments.fileSystem, arguments.options);
    case E_SOUND_OUTPUT_DRIVER::DirectSound8:
    case E_SOUND_OUTPUT_DRIVER::DirectSound:
    case E_SOUND_OUTPUT_DRIVER::WinMM:
    case E_SOUND_OUTPUT_DRIVER::ALSA:
    case E_SOUND_OUTPUT_DRIVER::CoreAudio:
        return createPlatformEngine(driver, arguments);
    default:
        return nullptr;
    }
}

/// Makes an engine over the file system of the arguments, or over a new one.
ISoundEngine* makeEngineOnFiles(E_SOUND_OUTPUT_DRIVER driver, SEngineArguments arguments) {
    counted_ptr<io::IFileSystem> ownFileSystem;
    if (arguments.fileSystem == nullptr) {
        ownFileSystem = counted_ptr<io::IFileSystem>::adopt(new io::CFileSystem);
        arguments.fileSystem = ownFileSystem.get();
    }
    return makeEngine(driver, arguments);
}

/// An engine that memory does not suffice for counts as one that does not exist.
ISoundEngine* createEngineForDriver(E_SOUND_OUTPUT_DRIVER driver,
                                    const SEngineArguments& arguments) {
    if (driver == E_SOUND_OUTPUT_DRIVER::AutoDetect) {
        driver = E_SOUND_OUTPUT_DRIVER::DirectSound;
    }
    ISoundEngine* const none = nullptr;
    ISoundEngine* engine =
        withoutExceptions(none, [&] { return makeEngineOnFiles(driver, arguments); });
    if (engine == nullptr) {
        logText("Invalid sound driver specified.", LogLevelError);
    }
    return engine;
}

/// The engine when it has started up, ready for use; otherwise it is dropped.
ISoundEngine* accepted(ISoundEngine* engine) {
    if (engine == nullptr) {
        return nullptr;
    }
    if (!engine->isDriverInitialized()) {
        engine->drop();
        return nullptr;
    }
    setInitialListener(*engine);
    return engine;
}

ISoundEngine* createDetectedEngine(const SEngineArguments& arguments) {
    const E_SOUND_OUTPUT_DRIVER none = E_SOUND_OUTPUT_DRIVER::AutoDetect;
    const E_SOUND_OUTPUT_DRIVER first = nextDriverToTry(none);
    if (ISoundEngine* engine = accepted(createEngineForDriver(first, arguments))) {
        return engine;
    }
    const E_SOUND_OUTPUT_DRIVER second = nextDriverToTry(first);
    if (second == none) {
        return nullptr;
    }
    ISoundEngine* engine = createEngineForDriver(second, arguments);
    if (engine == nullptr && nextDriverToTry(second) != none) {
        engine = createEngineForDriver(second, arguments);
    }
    return accepted(engine);
}

/// Automatic detection stands for the first driver that it would try.
E_SOUND_OUTPUT_DRIVER firstDriver(E_SOUND_OUTPUT_DRIVER driver) {
    return driver == E_SOUND_OUTPUT_DRIVER::AutoDetect ? nextDriverToTry(driver) : driver;
}

/// The list that a driver makes; the default record alone when it makes none or memory is out.
ISoundDeviceList* createDeviceList(CSoundDeviceList* (*create)(E_SOUND_OUTPUT_DRIVER),
                                   E_SOUND_OUTPUT_DRIVER driver) {
    CSoundDeviceList* const none = nullptr;
    CSoundDeviceList* list = withoutExceptions(none, [&] { return create(firstDriver(driver)); });
    return list != nullptr ? list : new CSoundDeviceList;
}

/// The recorder when it has a device; otherwise it is dropped. A driver of 0, which detection may
/// come to, counts as DirectSound.
IAudioRecorder* createRecorderForDriver(E_SOUND_OUTPUT_DRIVER driver, ISoundEngine* engine,
                                        const char* deviceID) {
    if (driver == E_SOUND_OUTPUT_DRIVER::AutoDetect) {
        driver = E_SOUND_OUTPUT_DRIVER::DirectSound;
    }
    IAudioRecorder* const none = nullptr;
    IAudioRecorder* recorder =
        withoutExceptions(none, [&] { return createPlatformRecorder(driver, engine, deviceID); });
    if (recorder == nullptr || recorder->isDriverInitialized()) {
        return recorder;
    }
    recorder->drop();
    return nullptr;
}

IAudioRecorder* createRecorder(E_SOUND_OUTPUT_DRIVER driver, ISoundEngine* engine,
                               const char* deviceID) {
    const E_SOUND_OUTPUT_DRIVER first = firstDriver(driver);
    if (IAudioRecorder* recorder = createRecorderForDriver(first, engine, deviceID)) {
        return recorder;
    }
    const E_SOUND_OUTPUT_DRIVER none = E_SOUND_OUTPUT_DRIVER::AutoDetect;
    const E_SOUND_OUTPUT_DRIVER second = driver == none ? nextDriverToTry(first) : none;
    return second == none ? nullptr : createRecorderForDriver(second, engine, deviceID);
}

} // namespace

void logUnsupportedDriver(E_SOUND_OUTPUT_DRIVER driver) {
    static const char* const names[] = {"",      "DirectSound8", "DirectSound",
                                        "WinMM", "ALSA",         "CoreAudio"};
    sonimbra::string<char> message(names[static_cast<std::size_t>(driver)]);
    message.append(" is not supported on this system.");
    logText(message.c_str());
}

} // namespace sn_internal

namespace sonimbra {

using namespace sn_internal;

ISoundEngine* createSonimbraDevice(E_SOUND_OUTPUT_DRIVER driver, int options, const char* deviceID,
                                   const char* sdkVersion) {
    ISoundEngine* const none = nullptr;
    return withoutExceptions(none, [&] {
        checkSdkVersion(sdkVersion);
        const SEngineArguments arguments = {nullptr, options, deviceID};
        return driver == E_SOUND_OUTPUT_DRIVER::AutoDetect
                   ? createDetectedEngine(arguments)
                   : accepted(createEngineForDriver(driver, arguments));
    });
}

IOfflineSoundEngine* createSonimbraOfflineDevice(int options, const char* sdkVersion) {
    IOfflineSoundEngine* const none = nullptr;
    return withoutExceptions(none, [&] {
        checkSdkVersion(sdkVersion);
        const auto fileSystem = counted_ptr<io::IFileSystem>::adopt(new io::CFileSystem);
        IOfflineSoundEngine* engine =
            createOfflineEngine(fileSystem.get(), options & ~MultiThreaded);
        setInitialListener(*engine);
        return engine;
    });
}

ISoundDeviceList* createSoundDeviceList(E_SOUND_OUTPUT_DRIVER driver, const char* sdkVersion) {
    ISoundDeviceList* const none = nullptr;
    return withoutExceptions(none, [&] {
        checkSdkVersion(sdkVersion);
        return createDeviceList(createPlatformDeviceList, driver);
    });
}

IAudioRecorder* createSonimbraAudioRecorder(ISoundEngine* engine, E_SOUND_OUTPUT_DRIVER driver,
                                            const char* deviceID, const char* sdkVersion) {
    IAudioRecorder* const none = nullptr;
    return withoutExceptions(none, [&] {
        checkSdkVersion(sdkVersion);
        if (engine == nullptr) {
            logText("Cannot create IAudioRecorder, no SonimbraDevice provided.");
            return none;
        }
        return createRecorder(driver, engine, deviceID);
    });
}

ISoundDeviceList* createAudioRecorderDeviceList(E_SOUND_OUTPUT_DRIVER driver,
                                                const char* sdkVersion) {
    ISoundDeviceList* const none = nullptr;
    return withoutExceptions(none, [&] {
        checkSdkVersion(sdkVersion);
        return createDeviceList(createPlatformCaptureDeviceList, driver);
    });
}

} // namespace sonimbra
