// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;

namespace Sonimbra {

/// <summary>
/// Leads a native stop event to its managed receiver. The native forwarder keeps this object, and
/// so the receiver, the sound and the user data, until it is destroyed.
/// </summary>
internal sealed class EventForwarder {
    // Native code keeps the pointers, so these must never be collected.
    private static readonly NativeMethods.OnSoundStopped DeliverCallback = Deliver;
    private static readonly NativeMethods.Release ReleaseCallback = Callbacks.FreeContext;

    private ISoundStopEventReceiver Receiver;
    private readonly ISound Sound;
    private readonly object UserData;

    private EventForwarder(ISoundStopEventReceiver receiver, ISound sound, object userData) {
        Receiver = receiver;
        Sound = sound;
        UserData = userData;
    }

    /// <summary>Creates a native forwarder; null when memory is out.</summary>
    public static IntPtr Create(ISoundStopEventReceiver receiver, ISound sound, object userData) {
        var forwarder = new EventForwarder(receiver, sound, userData);
        return NativeMethods.sonimbra_event_forwarder_create(
            DeliverCallback, Callbacks.CreateContext(forwarder), ReleaseCallback);
    }

    private static void Deliver(IntPtr context, IntPtr nativeSound, StopEventCause cause,
                                IntPtr nativeUserData) {
        try {
            if (!ProcessEnd.HasBegun) {
                Callbacks.GetTarget<EventForwarder>(context).OnSoundStopped(cause);
            }
        } catch (Exception) {
            // The receiver's own; it must not reach the library.
        }
    }

    private void OnSoundStopped(StopEventCause reason) {
        if (Receiver == null) {
            return;
        }
        try {
            Receiver.OnSoundStopped(Sound, reason, UserData);
        } finally {
            Receiver = null; // one event for each registration
        }
    }
}

}
