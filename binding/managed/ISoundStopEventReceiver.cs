// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

namespace Sonimbra {

/// <summary>
/// Told once when a sound has ended; set it with
/// <see cref="ISound.setSoundStopEventReceiver(ISoundStopEventReceiver)"/>.
/// </summary>
public interface ISoundStopEventReceiver {
    /// <summary>
    /// Called on the engine's thread when the engine is multi-threaded, else on the thread that is
    /// inside Update, StopAllSounds or a removal. The engine's lock is held meanwhile: every
    /// operation may be called, Dispose of the sound included, but do not wait for another thread
    /// that uses the engine, and do not end the process here. An exception thrown here is dropped.
    /// </summary>
    /// <param name="sound">The sound that the receiver was set on, the same object.</param>
    /// <param name="reason">Why it ended.</param>
    /// <param name="userData">What was passed along when the receiver was set, or null.</param>
    void OnSoundStopped(ISound sound, StopEventCause reason, object userData);
}

}
