// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

/// Everything an application needs: create an engine, register sounds, play them.

#include <sonimbra/E_SOUND_ENGINE_OPTIONS.h>
#include <sonimbra/E_SOUND_OUTPUT_DRIVER.h>
#include <sonimbra/E_STREAM_MODE.h>
#include <sonimbra/IAudioRecorder.h>
#include <sonimbra/IAudioRecorderReceiver.h>
#include <sonimbra/IAudioStream.h>
#include <sonimbra/IAudioStreamLoader.h>
#include <sonimbra/IFileFactory.h>
#include <sonimbra/IFileReader.h>
#include <sonimbra/ILogger.h>
#include <sonimbra/IOfflineSoundEngine.h>
#include <sonimbra/IRefCounted.h>
#include <sonimbra/ISound.h>
#include <sonimbra/ISoundDeviceList.h>
#include <sonimbra/ISoundEffectControl.h>
#include <sonimbra/ISoundEngine.h>
#include <sonimbra/ISoundMixedOutputReceiver.h>
#include <sonimbra/ISoundSource.h>
#include <sonimbra/ISoundStopEventReceiver.h>
#include <sonimbra/IVirtualRefCounted.h>
#include <sonimbra/SAudioStreamFormat.h>
#include <sonimbra/export.h>
#include <sonimbra/vec3d.h>

/// The version that an application was compiled with.
#define SONIMBRA_VERSION "1.5.0"

namespace sonimbra {

/// Creates an engine. The caller owns the result and ends it with drop().
///   driver      the output driver; AutoDetect tries DirectSound8 alone
///   options     bits of E_SOUND_ENGINE_OPTIONS
///   deviceID    an output device's identifier (see createSoundDeviceList), for the DirectSound and
///               ALSA drivers; ALSA takes the name of a PCM such as "hw:0,0" as well. Null or empty
///               for the default device. Other drivers ignore it.
///   sdkVersion  leave it: a version other than the library's gives a warning in the log
/// Returns null when the driver does not exist on this system, does not start, or memory is out.
/// Call it from any thread, but create and drop engines from one thread at a time.
SONIMBRA_API ISoundEngine*
createSonimbraDevice(E_SOUND_OUTPUT_DRIVER driver = E_SOUND_OUTPUT_DRIVER::AutoDetect,
                     int options = DefaultOptions, const char* deviceID = nullptr,
                     const char* sdkVersion = SONIMBRA_VERSION);

/// Creates an engine without a device, whose output the application renders itself. The
/// MultiThreaded bit is cleared; otherwise as createSonimbraDevice.
SONIMBRA_API IOfflineSoundEngine*
createSonimbraOfflineDevice(int options = DefaultOptions,
                            const char* sdkVersion = SONIMBRA_VERSION);

/// Lists the output devices of a driver. The caller owns the result and ends it with drop().
///   driver      AutoDetect stands for DirectSound8
///   sdkVersion  as for createSonimbraDevice
/// A driver that has no device list on this system gives a list of the default device alone.
/// Returns null when memory is out. Call it from any thread.
SONIMBRA_API ISoundDeviceList*
createSoundDeviceList(E_SOUND_OUTPUT_DRIVER driver = E_SOUND_OUTPUT_DRIVER::AutoDetect,
                      const char* sdkVersion = SONIMBRA_VERSION);

/// Creates a recorder for an engine, which may use any driver. The caller owns the result and ends
/// it with drop(); it holds a reference on the engine.
///   engine      gets the sound sources that are made from recordings
///   driver      the capture driver: DirectSound8 or DirectSound on Windows, ALSA on Linux;
///               AutoDetect stands for DirectSound8
///   deviceID    a capture device's identifier (see createAudioRecorderDeviceList), null or empty
///               for the default device, as is a DirectSound identifier that no device has; ALSA
///               takes the name of a PCM as well
///   sdkVersion  as for createSonimbraDevice
/// Returns null when engine is null (a line in the log says so), the driver records nothing on this
/// system, there is no capture device, or memory is out. Call it from the thread that uses the
/// engine.
SONIMBRA_API IAudioRecorder* createSonimbraAudioRecorder(
    ISoundEngine* engine, E_SOUND_OUTPUT_DRIVER driver = E_SOUND_OUTPUT_DRIVER::AutoDetect,
    const char* deviceID = nullptr, const char* sdkVersion = SONIMBRA_VERSION);

/// Lists the capture devices of a driver; otherwise as createSoundDeviceList.
SONIMBRA_API ISoundDeviceList*
createAudioRecorderDeviceList(E_SOUND_OUTPUT_DRIVER driver = E_SOUND_OUTPUT_DRIVER::AutoDetect,
                              const char* sdkVersion = SONIMBRA_VERSION);

} // namespace sonimbra
