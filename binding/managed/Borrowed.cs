// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;

namespace Sonimbra {

/// <summary>
/// Keeps a native object alive during a call. Once the handle was disposed the pointer is null,
/// with which the native operations do nothing and return null, false or 0.
/// </summary>
internal struct Borrowed : IDisposable {
    public readonly IntPtr Pointer;
    private readonly NativeHandle handle;

    public Borrowed(NativeHandle from) {
        bool kept = false;
        if (from != null && !from.IsClosed) {
            try {
                from.DangerousAddRef(ref kept);
            } catch (ObjectDisposedException) {
                kept = false; // another thread was faster
            }
        }
        handle = kept ? from : null;
        Pointer = kept ? from.DangerousGetHandle() : IntPtr.Zero;
    }

    public void Dispose() {
        if (handle != null) {
            handle.DangerousRelease();
        }
    }
}

}
