// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

namespace sonimbra {

/// Option bits of an engine, combined with | into the int that the create functions take. The
/// engine keeps them for its life.
enum E_SOUND_ENGINE_OPTIONS {
    /// The engine updates itself on its own thread, every 50 ms. Otherwise nothing happens to
    /// finished sounds, stop events and output buffers until the application calls update().
    MultiThreaded = 0x01,
    /// DirectSound drivers: silent while the application's window is not in the foreground.
    MuteIfNotFocused = 0x02,
    /// Loads plug-in libraries when the engine is created.
    LoadPlugins = 0x04,
    /// DirectSound drivers: uses hardware 3D buffers.
    Use3DBuffers = 0x08,
    /// Switches the log's debugger channel on, for the whole process; never off again.
    PrintDebugInfoIntoDebugger = 0x10,
    /// Every new engine sets the log's standard output, for the whole process, to this bit.
    PrintDebugInfoToStdOut = 0x20,
    /// 3D sounds fade in a straight line from their minimum to their maximum distance.
    LinearRolloff = 0x40,

    DefaultOptions = MultiThreaded | LoadPlugins | Use3DBuffers | PrintDebugInfoIntoDebugger |
                     PrintDebugInfoToStdOut,
};

} // namespace sonimbra
