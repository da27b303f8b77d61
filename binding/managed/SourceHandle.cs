// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;

namespace Sonimbra {

internal sealed class SourceHandle : NativeHandle {
    /// <summary>Grabs the source: the engine's registry keeps its own reference.</summary>
    public SourceHandle(IntPtr source, IntPtr engine) : base(source, engine) {
        NativeMethods.sonimbra_source_grab(source);
    }

    protected override void Drop() {
        NativeMethods.sonimbra_source_drop(handle);
    }
}

}
