// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;

namespace Sonimbra {

/// <summary>An engine plays sounds through one output driver.</summary>
/// <remarks>
/// Members may be called from any thread. Only the constructors throw: elsewhere null, false or 0
/// says that something failed, and the log says why. Names are converted to UTF-8; one that needs
/// 2024 bytes or more is not supported, and the member then does nothing.
///
/// There is no Dispose: the engine ends, and with it every sound, when this object and every
/// <see cref="ISound"/>, <see cref="ISoundSource"/>, <see cref="ISoundEffectControl"/> and
/// <see cref="IAudioRecorder"/> that came from it have been disposed or collected. Keep a reference
/// to it for as long as you want to hear something.
/// </remarks>
public sealed partial class ISoundEngine {
    internal readonly EngineHandle NativeEngine;

    /// <summary>An engine with the driver AutoDetect and the default options.</summary>
    /// <exception cref="Exception">The engine could not be created.</exception>
    public ISoundEngine() : this(SoundOutputDriver.AutoDetect) {}

    /// <summary>An engine with the default options.</summary>
    /// <exception cref="Exception">The engine could not be created.</exception>
    public ISoundEngine(SoundOutputDriver driver)
        : this(driver, SoundEngineOptionFlag.DefaultOptions) {}

    /// <summary>An engine for the driver's default device.</summary>
    /// <exception cref="Exception">The engine could not be created.</exception>
    public ISoundEngine(SoundOutputDriver driver, SoundEngineOptionFlag options)
        : this(driver, options, null) {}

    /// <summary>An engine for a device.</summary>
    /// <param name="driver">The output driver; AutoDetect tries DirectSound8 alone.</param>
    /// <param name="options">Options, combined with |.</param>
    /// <param name="deviceID">
    /// From an <see cref="ISoundDeviceList"/>, for the DirectSound and ALSA drivers; ALSA takes the
    /// name of a PCM as well. Null or empty for the default device. Other drivers ignore it.
    /// </param>
    /// <exception cref="Exception">
    /// The driver does not exist on this system, or does not start.
    /// </exception>
    /// <exception cref="InvalidOperationException">
    /// The native library is of another version than this assembly.
    /// </exception>
    public ISoundEngine(SoundOutputDriver driver, SoundEngineOptionFlag options, string deviceID) {
        NativeMethods.CheckLibrary();
        IntPtr engine = !ProcessEnd.HasBegun && NativeText.TryEncode(deviceID, out byte[] id)
            ? NativeMethods.sonimbra_engine_create(driver, options, id, NativeMethods.Version)
            : IntPtr.Zero;
        if (engine == IntPtr.Zero) {
            throw new Exception(
                "Sonimbra device could not be created with the specified parameters.");
        }
        NativeEngine = new EngineHandle(engine);
    }

    /// <summary>"DirectSound8", "DirectSound", "winMM", "ALSA" or "NULL".</summary>
    public string Name {
        get {
            using (Borrowed engine = NativeEngine.Borrow()) {
                return NativeText.Decode(
                    NativeMethods.sonimbra_engine_get_driver_name(engine.Pointer));
            }
        }
    }

    /// <summary>True when the engine was created with the MultiThreaded option.</summary>
    public bool IsMultiThreaded {
        get {
            using (Borrowed engine = NativeEngine.Borrow()) {
                return NativeMethods.sonimbra_engine_is_multi_threaded(engine.Pointer);
            }
        }
    }

    /// <summary>
    /// Runs one update cycle: 3D relations, output buffers, finished sounds, stop events. Does
    /// nothing on a multi-threaded engine, which updates itself.
    /// </summary>
    public void Update() {
        using (Borrowed engine = NativeEngine.Borrow()) {
            NativeMethods.sonimbra_engine_update(engine.Pointer);
        }
    }

    /// <summary>
    /// Master volume, multiplied with every sound's own. Default: 1.0. A change on an engine
    /// without thread runs an update at once.
    /// </summary>
    public float SoundVolume {
        get {
            using (Borrowed engine = NativeEngine.Borrow()) {
                return NativeMethods.sonimbra_engine_get_sound_volume(engine.Pointer);
            }
        }
        set {
            using (Borrowed engine = NativeEngine.Borrow()) {
                NativeMethods.sonimbra_engine_set_sound_volume(engine.Pointer, value);
            }
        }
    }

    /// <summary>Adds an opener of files, asked before the disk, in the order of adding.</summary>
    /// <remarks>The engine keeps it for its life. Null is ignored.</remarks>
    public void AddFileFactory(IFileFactory fileFactory) {
        if (fileFactory == null || ProcessEnd.HasBegun) {
            return;
        }
        using (Borrowed engine = NativeEngine.Borrow()) {
            IntPtr forwarder = FileFactoryForwarder.Create(fileFactory);
            NativeMethods.sonimbra_engine_add_file_factory(engine.Pointer, forwarder);
            NativeMethods.sonimbra_file_factory_drop(forwarder);
        }
    }

    /// <summary>
    /// Loads the plug-in libraries of a folder. Returns whether the folder could be entered. The
    /// process's working folder changes during the call.
    /// </summary>
    public bool LoadPlugins(string path) {
        using (Borrowed engine = NativeEngine.Borrow()) {
            return NativeText.TryEncode(path, out byte[] folder) &&
                   NativeMethods.sonimbra_engine_load_plugins(engine.Pointer, folder);
        }
    }
}

}
