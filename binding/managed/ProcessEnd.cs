// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Collections.Generic;
using System.Threading;

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
    /// Whether the application no longer expects callbacks; those that come do nothing. Nothing new
    /// is made then, either: it would not be let go of.
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
        // Other threads may be about to wrap what they have just made, or still borrow it.
        for (int round = 0; round < 50 && LetGoOfAll(); ++round) {
            Thread.Sleep(5);
        }
    }

    private static bool LetGoOfAll() {
        var all = new List<WeakReference>();
        lock (handles) {
            hasBegun = true;
            all.AddRange(handles);
        }
        foreach (WeakReference reference in all) {
            (reference.Target as NativeHandle)?.Dispose();
        }
        return all.Count > 0;
    }
}

}
