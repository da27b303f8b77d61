// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;

namespace Sonimbra {

internal sealed class RecorderHandle : NativeHandle {
    /// <summary>Adopts a reference.</summary>
    public RecorderHandle(IntPtr recorder, IntPtr engine) : base(recorder, engine) {}

    protected override void Drop() {
        NativeMethods.sonimbra_recorder_drop(handle);
    }
}

}
