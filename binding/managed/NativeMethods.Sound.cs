// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Runtime.InteropServices;

namespace Sonimbra {

internal static partial class NativeMethods {
    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_sound_grab(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern int sonimbra_sound_drop(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_sound_set_is_paused(IntPtr sound, bool paused);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_sound_get_is_paused(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_sound_stop(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern float sonimbra_sound_get_volume(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_sound_set_volume(IntPtr sound, float volume);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_sound_set_pan(IntPtr sound, float pan);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern float sonimbra_sound_get_pan(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_sound_is_looped(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_sound_set_is_looped(IntPtr sound, bool looped);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_sound_is_finished(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_sound_set_min_distance(IntPtr sound, float minDistance);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern float sonimbra_sound_get_min_distance(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_sound_set_max_distance(IntPtr sound, float maxDistance);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern float sonimbra_sound_get_max_distance(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_sound_set_position(IntPtr sound, ref Vector3D position);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_sound_get_position(IntPtr sound, out Vector3D position);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_sound_set_velocity(IntPtr sound, ref Vector3D velocity);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_sound_get_velocity(IntPtr sound, out Vector3D velocity);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern uint sonimbra_sound_get_play_position(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_sound_set_play_position(IntPtr sound, uint milliseconds);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_sound_set_playback_speed(IntPtr sound, float speed);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern float sonimbra_sound_get_playback_speed(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern int sonimbra_sound_get_play_length(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_sound_has_sound_effect_control(IntPtr sound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern int sonimbra_sound_set_sound_stop_event_receiver(
        IntPtr sound, IntPtr receiver, IntPtr userData);
}

}
