// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;

namespace Sonimbra {

internal sealed class SourceHandle : NativeHandle {
    /// <summary>Adopts a reference, with which the library returns sources.</summary>
    public SourceHandle(IntPtr source, IntPtr engine) : base(source, engine) {}

    protected override void Drop() {
        NativeMethods.sonimbra_source_drop(handle);
    }
}

}
