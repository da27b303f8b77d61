// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Collections.Generic;

namespace Sonimbra {

/// <summary>
/// Lets everything go when the process ends. A thread of an engine that has made a callback counts
/// as the runtime's from then on: Mono would wait for its end for ever, and any runtime may be gone
/// when it makes the next one.
/// </summary>
internal static class ProcessEnd {
    private static readonly HashSet<WeakReference> handles = new HashSet<WeakReference>();
    private static volatile bool hasBegun;

    static ProcessEnd() {
        AppDomain.CurrentDomain.ProcessExit += LetGo;
        AppDomain.CurrentDomain.DomainUnload += LetGo;
    }

    /// <summary>
    /// Whether the application no longer expects callbacks; those that come do nothing.
    /// </summary>
    public static bool HasBegun {
        get { return hasBegun; }
    }

    /// <summary>Returns what Forget has to be called with.</summary>
    public static WeakReference Register(NativeHandle handle) {
        var reference = new WeakReference(handle, true);
        lock (handles) {
            handles.Add(reference);
        }
        return reference;
    }

    public static void Forget(WeakReference reference) {
        lock (handles) {
            handles.Remove(reference);
        }
    }

    private static void LetGo(object sender, EventArgs arguments) {
        hasBegun = true;
        var all = new List<WeakReference>();
        lock (handles) {
            all.AddRange(handles);
        }
        foreach (WeakReference reference in all) {
            (reference.Target as NativeHandle)?.Dispose();
        }
    }
}

}
