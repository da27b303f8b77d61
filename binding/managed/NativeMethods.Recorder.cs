// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Runtime.InteropServices;

namespace Sonimbra {

internal static partial class NativeMethods {
    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_recorder_create(
        IntPtr engine, SoundOutputDriver driver, byte[] deviceId, byte[] sdkVersion);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern int sonimbra_recorder_drop(IntPtr recorder);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_recorder_start_recording_buffered_audio(
        IntPtr recorder, int sampleRate, SampleFormat sampleFormat, int channelCount);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_recorder_stop_recording_audio(IntPtr recorder);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_recorder_add_sound_source_from_recorded_audio(
        IntPtr recorder, byte[] soundName);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_recorder_clear_recorded_audio_data_buffer(IntPtr recorder);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_recorder_is_recording(IntPtr recorder);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_recorder_get_audio_format(
        IntPtr recorder, out AudioFormat format);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_recorder_get_recorded_audio_data(IntPtr recorder);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_device_list_create(
        SoundOutputDriver driver, byte[] sdkVersion);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_device_list_create_recording(
        SoundOutputDriver driver, byte[] sdkVersion);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern int sonimbra_device_list_drop(IntPtr list);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern int sonimbra_device_list_get_device_count(IntPtr list);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_device_list_get_device_id(IntPtr list, int index);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_device_list_get_device_description(
        IntPtr list, int index);
}

}
