// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

namespace Sonimbra {

/// <summary>
/// The drivers. One that does not exist on the system at hand makes the constructors throw.
/// </summary>
public enum SoundOutputDriver {
    /// <summary>Tries DirectSound8, and nothing else.</summary>
    AutoDetect = 0,
    /// <summary>Windows.</summary>
    DirectSound8 = 1,
    /// <summary>Windows.</summary>
    DirectSound = 2,
    /// <summary>Windows; uses the software mixer.</summary>
    WinMM = 3,
    /// <summary>Linux.</summary>
    ALSA = 4,
    /// <summary>No engine yet.</summary>
    CoreAudio = 5,
    /// <summary>Plays nothing, works everywhere.</summary>
    NullDriver = 6,
}

}
