// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Runtime.InteropServices;

namespace Sonimbra {

internal static partial class NativeMethods {
    [DllImport(Library, CallingConvention = Convention)]
    internal static extern int sonimbra_source_drop(IntPtr source);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_source_get_name(IntPtr source);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_source_set_stream_mode(IntPtr source, StreamMode mode);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern StreamMode sonimbra_source_get_stream_mode(IntPtr source);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern int sonimbra_source_get_play_length(IntPtr source);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_source_get_audio_format(
        IntPtr source, out AudioFormat format);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_source_get_is_seeking_supported(IntPtr source);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_source_set_default_volume(IntPtr source, float volume);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern float sonimbra_source_get_default_volume(IntPtr source);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_source_set_default_min_distance(
        IntPtr source, float minDistance);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern float sonimbra_source_get_default_min_distance(IntPtr source);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_source_set_default_max_distance(
        IntPtr source, float maxDistance);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern float sonimbra_source_get_default_max_distance(IntPtr source);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_source_force_reload_at_next_use(IntPtr source);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_source_set_forced_streaming_threshold(
        IntPtr source, int thresholdBytes);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern int sonimbra_source_get_forced_streaming_threshold(IntPtr source);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern int sonimbra_source_copy_sample_data(IntPtr source,
                                                                [Out] byte[] buffer, int size);
}

}
