// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Threading;

namespace Sonimbra {

/// <summary>
/// One playing, paused or finished instance of a sound source. The play operations of
/// <see cref="ISoundEngine"/> return them.
/// </summary>
/// <remarks>
/// Every member may be called from any thread. Dispose lets go of the sound and of its engine; the
/// sound itself plays on, and so it does when this object is collected. Once it was disposed,
/// setters do nothing and getters return false, 0 or null. Once its source was removed, setters do
/// nothing, Finished is true, PlayPosition is 0xFFFFFFFF, and Paused, Pan and the distances keep
/// their values. A sound with a stop-event receiver is not collected: it lives until it is
/// disposed. Waiting for finalizers inside a callback can wait for ever.
/// </remarks>
public sealed class ISound : IDisposable {
    internal readonly SoundHandle NativeSound;
    private ISoundEffectControl Control;

    private ISound(IntPtr sound, IntPtr engine) {
        NativeSound = new SoundHandle(sound, engine);
    }

    /// <summary>Adopts what a play operation returned; null stays null.</summary>
    internal static ISound Wrap(IntPtr sound, IntPtr engine) {
        return sound == IntPtr.Zero ? null : new ISound(sound, engine);
    }

    /// <summary>
    /// Unregisters the stop-event receiver and lets go of the sound, which plays on. May be called
    /// more than once, from any thread, and from inside OnSoundStopped.
    /// </summary>
    public void Dispose() {
        Control = null;
        NativeSound.Dispose();
    }

    /// <summary>Whether the sound waits. A paused sound is silent and does not advance.</summary>
    public bool Paused {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_sound_get_is_paused(sound.Pointer);
            }
        }
        set {
            using (Borrowed sound = NativeSound.Borrow()) {
                NativeMethods.sonimbra_sound_set_is_paused(sound.Pointer, value);
            }
        }
    }

    /// <summary>
    /// Ends the sound for good; it cannot be started again. Its stop event follows with the next
    /// update.
    /// </summary>
    public void Stop() {
        using (Borrowed sound = NativeSound.Borrow()) {
            NativeMethods.sonimbra_sound_stop(sound.Pointer);
        }
    }

    /// <summary>
    /// Linear gain; 0.0 is silent, 1.0 leaves the samples as they are. Starts with the source's
    /// default volume; takes effect with the next update.
    /// </summary>
    public float Volume {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_sound_get_volume(sound.Pointer);
            }
        }
        set {
            using (Borrowed sound = NativeSound.Borrow()) {
                NativeMethods.sonimbra_sound_set_volume(sound.Pointer, value);
            }
        }
    }

    /// <summary>
    /// Pan of a 2D sound, -1.0 to 1.0; 0.0, the default, is in the middle. A value above 0 takes
    /// the right channel away, one below 0 the left. 3D sounds compute their own.
    /// </summary>
    public float Pan {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_sound_get_pan(sound.Pointer);
            }
        }
        set {
            using (Borrowed sound = NativeSound.Borrow()) {
                NativeMethods.sonimbra_sound_set_pan(sound.Pointer, value);
            }
        }
    }

    /// <summary>
    /// Whether the sound starts again from its beginning when it reaches its end.
    /// </summary>
    public bool Looped {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_sound_is_looped(sound.Pointer);
            }
        }
        set {
            using (Borrowed sound = NativeSound.Borrow()) {
                NativeMethods.sonimbra_sound_set_is_looped(sound.Pointer, value);
            }
        }
    }

    /// <summary>
    /// True when the sound has ended: it has played to its end, was stopped, or its source was
    /// removed.
    /// </summary>
    public bool Finished {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_sound_is_finished(sound.Pointer);
            }
        }
    }

    /// <summary>3D: below this distance, in the application's units, it gets no louder.</summary>
    public float MinDistance {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_sound_get_min_distance(sound.Pointer);
            }
        }
        set {
            using (Borrowed sound = NativeSound.Borrow()) {
                NativeMethods.sonimbra_sound_set_min_distance(sound.Pointer, value);
            }
        }
    }

    /// <summary>3D: beyond this distance, in the application's units, it gets no quieter.</summary>
    public float MaxDistance {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_sound_get_max_distance(sound.Pointer);
            }
        }
        set {
            using (Borrowed sound = NativeSound.Borrow()) {
                NativeMethods.sonimbra_sound_set_max_distance(sound.Pointer, value);
            }
        }
    }

    /// <summary>3D position in the application's units.</summary>
    public Vector3D Position {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                NativeMethods.sonimbra_sound_get_position(sound.Pointer, out Vector3D position);
                return position;
            }
        }
        set {
            using (Borrowed sound = NativeSound.Borrow()) {
                NativeMethods.sonimbra_sound_set_position(sound.Pointer, ref value);
            }
        }
    }

    /// <summary>
    /// 3D velocity in units a second; hardware 3D uses it for the Doppler effect.
    /// </summary>
    public Vector3D Velocity {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                NativeMethods.sonimbra_sound_get_velocity(sound.Pointer, out Vector3D velocity);
                return velocity;
            }
        }
        set {
            using (Borrowed sound = NativeSound.Borrow()) {
                NativeMethods.sonimbra_sound_set_velocity(sound.Pointer, ref value);
            }
        }
    }

    /// <summary>
    /// Milliseconds played, 0xFFFFFFFF when that is not known or the sound has ended. Setting it
    /// moves the sound, at most to its end; nothing happens when it cannot seek or has ended.
    /// </summary>
    public uint PlayPosition {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_sound_get_play_position(sound.Pointer);
            }
        }
        set {
            using (Borrowed sound = NativeSound.Borrow()) {
                NativeMethods.sonimbra_sound_set_play_position(sound.Pointer, value);
            }
        }
    }

    /// <summary>
    /// Playback speed, clamped by the software mixer to 0.01..5.0; 1.0, the default, is the sound's
    /// own. Changes the pitch too. Nothing happens when the driver cannot do it.
    /// </summary>
    public float PlaybackSpeed {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_sound_get_playback_speed(sound.Pointer);
            }
        }
        set {
            using (Borrowed sound = NativeSound.Borrow()) {
                NativeMethods.sonimbra_sound_set_playback_speed(sound.Pointer, value);
            }
        }
    }

    /// <summary>The source's length in milliseconds, -1 when it is not known.</summary>
    public int PlayLength {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                return NativeMethods.sonimbra_sound_get_play_length(sound.Pointer);
            }
        }
    }

    /// <summary>
    /// The sound's effects, the same object until it is disposed; null when the driver or the sound
    /// has none.
    /// </summary>
    public ISoundEffectControl SoundEffectControl {
        get {
            using (Borrowed sound = NativeSound.Borrow()) {
                if (!NativeMethods.sonimbra_sound_has_sound_effect_control(sound.Pointer)) {
                    return null;
                }
                ISoundEffectControl control = Control;
                if (control == null || control.IsDisposed) {
                    var made = new ISoundEffectControl(sound.Pointer, NativeSound.NativeEngine);
                    ISoundEffectControl other =
                        Interlocked.CompareExchange(ref Control, made, control);
                    control = other == control ? made : other;
                }
                return control;
            }
        }
    }

    /// <summary>Sets who is told when the sound has ended, without user data.</summary>
    public void setSoundStopEventReceiver(ISoundStopEventReceiver receiver) {
        setSoundStopEventReceiver(receiver, null);
    }

    /// <summary>
    /// Sets who is told when the sound has ended: once, with this object and the user data. Null
    /// for nobody.
    /// </summary>
    /// <remarks>
    /// The receiver, the user data and this object are kept alive until this object is disposed.
    /// What an earlier call on the same sound set is told nothing any more, but stays in memory
    /// for the life of the process.
    /// </remarks>
    public void setSoundStopEventReceiver(ISoundStopEventReceiver receiver, object userData) {
        using (Borrowed sound = NativeSound.Borrow()) {
            if (sound.Pointer == IntPtr.Zero || ProcessEnd.HasBegun) {
                return;
            }
            IntPtr forwarder =
                receiver == null ? IntPtr.Zero : EventForwarder.Create(receiver, this, userData);
            // An earlier forwarder is not destroyed: it may be delivering on another thread.
            NativeSound.Forwarder = forwarder;
            NativeSound.HasListened |= forwarder != IntPtr.Zero;
            NativeMethods.sonimbra_sound_set_sound_stop_event_receiver(sound.Pointer, forwarder,
                                                                       IntPtr.Zero);
        }
    }
}

}
