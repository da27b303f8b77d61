// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Runtime.InteropServices;

namespace Sonimbra {

internal static partial class NativeMethods {
    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_engine_create(
        SoundOutputDriver driver, SoundEngineOptionFlag options, byte[] deviceId,
        byte[] sdkVersion);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_engine_grab(IntPtr engine);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern int sonimbra_engine_drop(IntPtr engine);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_engine_get_driver_name(IntPtr engine);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_engine_play2d(
        IntPtr engine, byte[] soundFileName, bool looped, bool startPaused, bool track,
        StreamMode streamMode, bool enableSoundEffects);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_engine_play2d_source(
        IntPtr engine, IntPtr source, bool looped, bool startPaused, bool track,
        bool enableSoundEffects);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_engine_play3d(
        IntPtr engine, byte[] soundFileName, ref Vector3D position, bool looped, bool startPaused,
        bool track, StreamMode streamMode, bool enableSoundEffects);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_engine_play3d_source(
        IntPtr engine, IntPtr source, ref Vector3D position, bool looped, bool startPaused,
        bool track, bool enableSoundEffects);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_engine_stop_all_sounds(IntPtr engine);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_engine_set_all_sounds_paused(IntPtr engine, bool paused);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_engine_get_sound_source(
        IntPtr engine, byte[] soundName, bool addIfNotFound);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_engine_add_sound_source_from_file(
        IntPtr engine, byte[] fileName, StreamMode streamMode, bool preload);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_engine_add_sound_source_from_memory(
        IntPtr engine, byte[] memory, int sizeInBytes, byte[] soundName, bool copyMemory);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_engine_add_sound_source_from_pcm_data(
        IntPtr engine, byte[] memory, int sizeInBytes, byte[] soundName, ref AudioFormat format,
        bool copyMemory);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_engine_add_sound_source_alias(
        IntPtr engine, IntPtr baseSource, byte[] soundName);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_engine_remove_sound_source(IntPtr engine, byte[] name);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_engine_remove_all_sound_sources(IntPtr engine);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_engine_set_sound_volume(IntPtr engine, float volume);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern float sonimbra_engine_get_sound_volume(IntPtr engine);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_engine_set_listener_position(
        IntPtr engine, ref Vector3D position, ref Vector3D lookDirection,
        ref Vector3D velocityPerSecond, ref Vector3D upVector);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_engine_update(IntPtr engine);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_engine_is_currently_playing(
        IntPtr engine, byte[] soundName);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_engine_is_multi_threaded(IntPtr engine);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_engine_add_file_factory(IntPtr engine, IntPtr fileFactory);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_engine_set_default3d_sound_min_distance(
        IntPtr engine, float minDistance);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern float sonimbra_engine_get_default3d_sound_min_distance(IntPtr engine);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_engine_set_default3d_sound_max_distance(
        IntPtr engine, float maxDistance);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern float sonimbra_engine_get_default3d_sound_max_distance(IntPtr engine);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_engine_set_rolloff_factor(IntPtr engine, float rolloff);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_engine_set_doppler_effect_parameters(
        IntPtr engine, float dopplerFactor, float distanceFactor);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern bool sonimbra_engine_load_plugins(IntPtr engine, byte[] path);
}

}
