// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

namespace Sonimbra {

/// <summary>Why a sound ended.</summary>
public enum StopEventCause {
    /// <summary>It reached its end, or StopAllSounds was called.</summary>
    SoundFinishedPlaying = 0,
    /// <summary>ISound.Stop was called.</summary>
    SoundStoppedByUser = 1,
    /// <summary>Its source, or the engine, was removed.</summary>
    SoundStoppedBySourceRemoval = 2,
}

}
