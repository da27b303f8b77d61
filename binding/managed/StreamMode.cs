// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

namespace Sonimbra {

/// <summary>Whether a sound source is decoded into memory or streamed while it plays.</summary>
public enum StreamMode {
    /// <summary>Into memory up to 512000 bytes of samples, else streamed.</summary>
    AutoDetect = 0,
    /// <summary>Always streamed.</summary>
    Streaming = 1,
    /// <summary>Into memory, up to the source's forced streaming threshold.</summary>
    NoStreaming = 2,
}

}
