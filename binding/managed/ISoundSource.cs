// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;

namespace Sonimbra {

/// <summary>
/// One playable sound, known to the engine by its name: a file, encoded data in memory, raw PCM
/// samples, or an alias of another source.
/// </summary>
/// <remarks>
/// The engine keeps its sources; this object keeps the source and the engine, too, until it is
/// disposed or collected. Every member may be called from any thread. After Dispose, setters do
/// nothing and getters return false, 0 or null.
/// </remarks>
public sealed class ISoundSource : IDisposable {
    internal readonly SourceHandle NativeSoundSource;

    private ISoundSource(IntPtr source, IntPtr engine) {
        NativeSoundSource = new SourceHandle(source, engine);
    }

    /// <summary>Adopts a returned source; null stays null.</summary>
    internal static ISoundSource Wrap(IntPtr source, IntPtr engine) {
        return source == IntPtr.Zero ? null : new ISoundSource(source, engine);
    }

    /// <summary>Lets go of the source; the engine keeps it.</summary>
    public void Dispose() {
        NativeSoundSource.Dispose();
    }

    /// <summary>
    /// The name it was registered under: UTF-8, read in the system's default 8-bit code page. On
    /// Windows a name with characters beyond ASCII does not come back as it went in.
    /// </summary>
    public string Name {
        get {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                return NativeText.Decode(NativeMethods.sonimbra_source_get_name(source.Pointer));
            }
        }
    }

    /// <summary>
    /// Whether to decode into memory or to stream. The first play or load replaces AutoDetect by
    /// its decision. Default: AutoDetect for files, NoStreaming for memory and PCM data.
    /// </summary>
    public StreamMode StreamMode {
        get {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                return NativeMethods.sonimbra_source_get_stream_mode(source.Pointer);
            }
        }
        set {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                NativeMethods.sonimbra_source_set_stream_mode(source.Pointer, value);
            }
        }
    }

    /// <summary>
    /// The length in milliseconds, -1 when it is not known. Opens the sound when it was not yet
    /// used, as do AudioFormat, IsSeekingSupported and SampleData.
    /// </summary>
    public int PlayLength {
        get {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                return NativeMethods.sonimbra_source_get_play_length(source.Pointer);
            }
        }
    }

    /// <summary>The format of the decoded sound; all zero when it cannot be opened.</summary>
    public AudioFormat AudioFormat {
        get {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                NativeMethods.sonimbra_source_get_audio_format(source.Pointer,
                                                              out AudioFormat format);
                return format;
            }
        }
    }

    /// <summary>True when sounds of this source can be moved to any position.</summary>
    public bool IsSeekingSupported {
        get {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                return NativeMethods.sonimbra_source_get_is_seeking_supported(source.Pointer);
            }
        }
    }

    /// <summary>
    /// The volume that its sounds start with, clamped to 0.0..1.0. Default: 1.0.
    /// </summary>
    public float DefaultVolume {
        get {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                return NativeMethods.sonimbra_source_get_default_volume(source.Pointer);
            }
        }
        set {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                NativeMethods.sonimbra_source_set_default_volume(source.Pointer, value);
            }
        }
    }

    /// <summary>
    /// The distance, in the application's units, below which its 3D sounds get no louder. A value
    /// not above 0 means the engine's default.
    /// Default: the engine's, 1.0 at first.
    /// </summary>
    public float DefaultMinDistance {
        get {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                return NativeMethods.sonimbra_source_get_default_min_distance(source.Pointer);
            }
        }
        set {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                NativeMethods.sonimbra_source_set_default_min_distance(source.Pointer, value);
            }
        }
    }

    /// <summary>
    /// The distance, in the application's units, beyond which its 3D sounds get no quieter. A value
    /// not above 0 means the engine's default.
    /// Default: the engine's, 1000000000.0 at first.
    /// </summary>
    public float DefaultMaxDistance {
        get {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                return NativeMethods.sonimbra_source_get_default_max_distance(source.Pointer);
            }
        }
        set {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                NativeMethods.sonimbra_source_set_default_max_distance(source.Pointer, value);
            }
        }
    }

    /// <summary>
    /// Drops the decoded samples, so that the next play reads the file again. PCM sources keep
    /// theirs.
    /// </summary>
    public void ForceReloadAtNextUse() {
        using (Borrowed source = NativeSoundSource.Borrow()) {
            NativeMethods.sonimbra_source_force_reload_at_next_use(source.Pointer);
        }
    }

    /// <summary>
    /// Above so many bytes of decoded samples a source is streamed although its mode is
    /// NoStreaming. 0 or below switches the threshold off. Default: 2000000.
    /// </summary>
    public int ForcedStreamingThreshold {
        get {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                return NativeMethods.sonimbra_source_get_forced_streaming_threshold(source.Pointer);
            }
        }
        set {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                NativeMethods.sonimbra_source_set_forced_streaming_threshold(source.Pointer, value);
            }
        }
    }

    /// <summary>
    /// A copy of the decoded samples, AudioFormat.SampleDataSize bytes; null when the sound is
    /// streamed or cannot be opened.
    /// </summary>
    public byte[] SampleData {
        get {
            using (Borrowed source = NativeSoundSource.Borrow()) {
                int size = AudioFormat.SampleDataSize;
                if (size <= 0) {
                    return null;
                }
                byte[] bytes = new byte[size];
                int count =
                    NativeMethods.sonimbra_source_copy_sample_data(source.Pointer, bytes, size);
                return count == size ? bytes : null; // reloaded in between, it may be another
            }
        }
    }
}

}
