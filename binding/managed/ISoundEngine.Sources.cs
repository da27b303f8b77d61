// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.IO;

namespace Sonimbra {

public sealed partial class ISoundEngine {
    /// <summary>Looks a source up by its exact name; an unknown name is added as a file.</summary>
    public ISoundSource GetSoundSource(string soundName) {
        return GetSoundSource(soundName, true);
    }

    /// <summary>
    /// Looks a source up by its exact name; with addIfNotFound an unknown name is added as a file,
    /// which is opened at the first play. Null when there is none.
    /// </summary>
    public ISoundSource GetSoundSource(string soundName, bool addIfNotFound) {
        if (soundName == null || !NativeText.TryEncode(soundName, out byte[] name)) {
            return null;
        }
        using (Borrowed engine = NativeEngine.Borrow()) {
            return Wrap(engine, NativeMethods.sonimbra_engine_get_sound_source(
                                    engine.Pointer, name, addIfNotFound));
        }
    }

    /// <summary>Adds a file in automatic stream mode.</summary>
    public ISoundSource AddSoundSourceFromFile(string soundName) {
        return AddSoundSourceFromFile(soundName, StreamMode.AutoDetect);
    }

    /// <summary>Adds a file.</summary>
    public ISoundSource AddSoundSourceFromFile(string soundName, StreamMode streamMode) {
        return AddSoundSourceFromFile(soundName, streamMode, false);
    }

    /// <summary>
    /// Adds a file. With preLoad it is decoded at once, unless it is to be streamed. Null when the
    /// name exists already.
    /// </summary>
    public ISoundSource AddSoundSourceFromFile(string soundName, StreamMode streamMode,
                                               bool preLoad) {
        if (!NativeText.TryEncode(soundName, out byte[] name)) {
            return null;
        }
        using (Borrowed engine = NativeEngine.Borrow()) {
            return Wrap(engine, NativeMethods.sonimbra_engine_add_sound_source_from_file(
                                    engine.Pointer, name, streamMode, preLoad));
        }
    }

    /// <summary>
    /// Adds an encoded file that stands in memory. The engine copies the array. Null for an empty
    /// or null array and for a name that is null or exists.
    /// </summary>
    public ISoundSource AddSoundSourceFromMemory(byte[] soundDataInMemory, string soundName) {
        if (soundDataInMemory == null || soundName == null ||
            !NativeText.TryEncode(soundName, out byte[] name)) {
            return null;
        }
        using (Borrowed engine = NativeEngine.Borrow()) {
            return Wrap(engine, NativeMethods.sonimbra_engine_add_sound_source_from_memory(
                                    engine.Pointer, soundDataInMemory, soundDataInMemory.Length,
                                    name, true));
        }
    }

    /// <summary>
    /// Adds raw samples in the given format; frames beyond the end of the array are left out.
    /// Otherwise as AddSoundSourceFromMemory.
    /// </summary>
    public ISoundSource AddSoundSourceFromPCMData(byte[] soundDataInMemory, string soundName,
                                                  AudioFormat format) {
        if (soundDataInMemory == null || !NativeText.TryEncode(soundName, out byte[] name)) {
            return null;
        }
        using (Borrowed engine = NativeEngine.Borrow()) {
            return Wrap(engine, NativeMethods.sonimbra_engine_add_sound_source_from_pcm_data(
                                    engine.Pointer, soundDataInMemory, soundDataInMemory.Length,
                                    name, ref format, true));
        }
    }

    /// <summary>
    /// Adds an encoded file that one read of the stream gives, from its position on; the rest of
    /// what its Length says is zeros. The stream stays the caller's and is not closed. Null when it
    /// cannot be read or throws; otherwise as AddSoundSourceFromMemory.
    /// </summary>
    public ISoundSource AddSoundSourceFromIOStream(Stream stream, string soundName) {
        if (stream == null || soundName == null || !NativeText.TryEncode(soundName, out _)) {
            return null;
        }
        byte[] data;
        try {
            if (!stream.CanRead) {
                return null;
            }
            data = new byte[stream.Length];
            stream.Read(data, 0, data.Length);
        } catch (Exception) {
            return null; // the stream's own, or its length is none
        }
        return AddSoundSourceFromMemory(data, soundName);
    }

    /// <summary>
    /// Adds a second name for a source, with its own default volume and distances; the rest is the
    /// base's. Null when the name exists or baseSource is null.
    /// </summary>
    public ISoundSource AddSoundSourceAlias(ISoundSource baseSource, string soundName) {
        if (!NativeText.TryEncode(soundName, out byte[] name)) {
            return null;
        }
        using (Borrowed engine = NativeEngine.Borrow())
        using (Borrowed source = Borrow(baseSource)) {
            return Wrap(engine, NativeMethods.sonimbra_engine_add_sound_source_alias(
                                    engine.Pointer, source.Pointer, name));
        }
    }

    /// <summary>
    /// Removes a source: its sounds are stopped, with the cause SoundStoppedBySourceRemoval.
    /// </summary>
    public void RemoveSoundSource(string soundName) {
        if (!NativeText.TryEncode(soundName, out byte[] name)) {
            return;
        }
        using (Borrowed engine = NativeEngine.Borrow()) {
            NativeMethods.sonimbra_engine_remove_sound_source(engine.Pointer, name);
        }
    }

    /// <summary>Removes all sources, as RemoveSoundSource.</summary>
    public void RemoveAllSoundSources() {
        using (Borrowed engine = NativeEngine.Borrow()) {
            NativeMethods.sonimbra_engine_remove_all_sound_sources(engine.Pointer);
        }
    }

    private static ISoundSource Wrap(Borrowed engine, IntPtr source) {
        return ISoundSource.Wrap(source, engine.Pointer);
    }
}

}
