// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

namespace sonimbra {
class IAudioRecorder;
class ISoundEngine;
} // namespace sonimbra

namespace sn_internal {

class CSoundDeviceList;

/// Makes the recorder of the ALSA driver, with one reference for the caller; isDriverInitialized
/// tells whether its device can be opened. The device is named by an identifier of the capture list
/// or by its PCM name; null or an empty text is the default device.
sonimbra::IAudioRecorder* createALSARecorder(sonimbra::ISoundEngine* engine, const char* deviceID);

/// Lists the devices that ALSA records from, with one reference for the caller.
CSoundDeviceList* createALSACaptureDeviceList();

} // namespace sn_internal
