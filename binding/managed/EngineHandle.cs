// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;

namespace Sonimbra {

internal sealed class EngineHandle : NativeHandle {
    /// <summary>Adopts a reference.</summary>
    public EngineHandle(IntPtr engine) : base(engine, IntPtr.Zero) {}

    protected override void Drop() {
        NativeMethods.sonimbra_engine_drop(handle);
    }
}

}
