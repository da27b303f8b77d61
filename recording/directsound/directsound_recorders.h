// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

namespace sonimbra {
class IAudioRecorder;
class ISoundEngine;
} // namespace sonimbra

namespace sn_internal {

class CSoundDeviceList;

/// Make a recorder of one of the two generations, with one reference for the caller;
/// isDriverInitialized tells whether there is a capture device. A null or empty device identifier,
/// or one that no device has, stands for the default device.
sonimbra::IAudioRecorder* createDirectSound8Recorder(sonimbra::ISoundEngine* engine,
                                                     const char* deviceID);
sonimbra::IAudioRecorder* createDirectSoundRecorder(sonimbra::ISoundEngine* engine,
                                                    const char* deviceID);

/// List the capture devices, with one reference for the caller.
CSoundDeviceList* createDirectSound8CaptureDeviceList();
CSoundDeviceList* createDirectSoundCaptureDeviceList();

} // namespace sn_internal
