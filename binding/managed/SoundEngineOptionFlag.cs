// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;

namespace Sonimbra {

/// <summary>Options of an engine, combined with |. The engine keeps them for its life.</summary>
[Flags]
public enum SoundEngineOptionFlag {
    /// <summary>
    /// The engine updates itself on its own thread, every 50 ms. Otherwise nothing happens to
    /// finished sounds, stop events and output buffers until the application calls Update.
    /// </summary>
    MultiThreaded = 1,
    /// <summary>DirectSound drivers: silent while the window is not in the foreground.</summary>
    MuteIfNotFocused = 2,
    /// <summary>Loads plug-in libraries when the engine is created.</summary>
    LoadPlugins = 4,
    /// <summary>DirectSound drivers: uses hardware 3D buffers.</summary>
    Use3DBuffers = 8,
    /// <summary>
    /// Switches the log's debugger channel on, for the whole process; never off again.
    /// </summary>
    PrintDebugInfoIntoDebugger = 16,
    /// <summary>
    /// Every new engine sets the log's standard output, for the whole process, to this bit.
    /// </summary>
    PrintDebugInfoToStdOut = 32,
    /// <summary>
    /// 3D sounds fade in a straight line from their minimum to their maximum distance.
    /// </summary>
    LinearRolloff = 64,
    /// <summary>
    /// MultiThreaded, LoadPlugins, Use3DBuffers, PrintDebugInfoIntoDebugger and
    /// PrintDebugInfoToStdOut.
    /// </summary>
    DefaultOptions = MultiThreaded | LoadPlugins | Use3DBuffers | PrintDebugInfoIntoDebugger |
                     PrintDebugInfoToStdOut,
}

}
