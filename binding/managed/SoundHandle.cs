// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;

namespace Sonimbra {

internal sealed class SoundHandle : NativeHandle {
    /// <summary>The stop-event forwarder, owned here; null when there is none.</summary>
    public IntPtr Forwarder;

    /// <summary>
    /// Whether a forwarder was ever registered: with two threads that register at once, the last
    /// one is not always the one that is stored.
    /// </summary>
    public volatile bool HasListened;

    /// <summary>Adopts a reference, as the play operations return it.</summary>
    public SoundHandle(IntPtr sound, IntPtr engine) : base(sound, engine) {}

    protected override void Drop() {
        if (HasListened) {
            // Unregistering waits for a delivery on another thread.
            NativeMethods.sonimbra_sound_set_sound_stop_event_receiver(handle, IntPtr.Zero,
                                                                       IntPtr.Zero);
        }
        if (Forwarder != IntPtr.Zero) {
            NativeMethods.sonimbra_event_forwarder_destroy(Forwarder);
            Forwarder = IntPtr.Zero;
        }
        NativeMethods.sonimbra_sound_drop(handle);
    }
}

}
