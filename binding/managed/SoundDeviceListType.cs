// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

namespace Sonimbra {

/// <summary>What an <see cref="ISoundDeviceList"/> lists.</summary>
public enum SoundDeviceListType {
    /// <summary>Devices to play on; for <see cref="ISoundEngine"/>.</summary>
    PlaybackDevice = 0,
    /// <summary>Devices to record from; for <see cref="IAudioRecorder"/>.</summary>
    RecordingDevice = 1,
}

}
