// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System.Runtime.InteropServices;

namespace Sonimbra {

/// <summary>
/// What a sound or a block of samples consists of. A frame is one sample for each channel,
/// interleaved. The derived sizes wrap around like 32-bit integers when a record holds absurd
/// values.
/// </summary>
[StructLayout(LayoutKind.Sequential)]
public struct AudioFormat {
    /// <summary>Interleaved channels in a frame; the built-in decoders make 1 or 2.</summary>
    public int ChannelCount;
    /// <summary>Frames in the whole sound; -1 when the length is not known.</summary>
    public int FrameCount;
    /// <summary>Frames a second.</summary>
    public int SampleRate;
    /// <summary>The layout of one sample.</summary>
    public SampleFormat Format;

    /// <summary>Bytes in one sample: 1 for Unsigned8Bit, else 2.</summary>
    public int SampleSize {
        get { return Format == SampleFormat.Unsigned8Bit ? 1 : 2; }
    }

    /// <summary>Bytes in one frame.</summary>
    public int FrameSize {
        get { return unchecked(SampleSize * ChannelCount); }
    }

    /// <summary>Bytes in the whole sound; not above 0 when the length is not known.</summary>
    public int SampleDataSize {
        get { return unchecked(FrameSize * FrameCount); }
    }

    /// <summary>Bytes in a second of audio.</summary>
    public int BytesPerSecond {
        get { return unchecked(FrameSize * SampleRate); }
    }
}

}
