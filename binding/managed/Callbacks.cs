// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Runtime.InteropServices;

namespace Sonimbra {

/// <summary>
/// What the calls from the library have in common: each context is a handle that keeps a managed
/// object alive until the library releases it.
/// </summary>
internal static class Callbacks {
    public static IntPtr CreateContext(object target) {
        return GCHandle.ToIntPtr(GCHandle.Alloc(target));
    }

    public static T GetTarget<T>(IntPtr context) {
        return (T)GCHandle.FromIntPtr(context).Target;
    }

    public static void FreeContext(IntPtr context) {
        try {
            GCHandle.FromIntPtr(context).Free();
        } catch (Exception) {
            // The runtime is going; it must not reach the library.
        }
    }
}

}
