// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

namespace Sonimbra {

/// <summary>Layout of one sample.</summary>
public enum SampleFormat {
    /// <summary>8 bits, unsigned, silence at 128.</summary>
    Unsigned8Bit = 0,
    /// <summary>16 bits, signed, little-endian.</summary>
    Signed16Bit = 1,
}

}
