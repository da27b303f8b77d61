// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Runtime.InteropServices;

namespace Sonimbra {

/// <summary>
/// One reference to a native object, and one to its engine, so that the engine outlives what it
/// made. The references are dropped when the handle is disposed or finalized and no borrower is
/// left: one thread may dispose what another is just using.
/// </summary>
internal abstract class NativeHandle : SafeHandle {
    /// <summary>The engine; null for what needs none.</summary>
    public readonly IntPtr NativeEngine;
    private readonly WeakReference registration;

    /// <summary>Adopts a reference to the object, and grabs its engine.</summary>
    protected NativeHandle(IntPtr native, IntPtr engine) : base(IntPtr.Zero, true) {
        NativeMethods.sonimbra_engine_grab(engine);
        NativeEngine = engine;
        SetHandle(native);
        if (!IsInvalid) { // which is never released
            registration = ProcessEnd.Register(this);
            if (ProcessEnd.HasBegun) {
                Dispose(); // made too late for those that are let go of
            }
        }
    }

    public override bool IsInvalid {
        get { return handle == IntPtr.Zero; }
    }

    /// <summary>Keeps the object alive for a native call.</summary>
    public Borrowed Borrow() {
        return new Borrowed(this);
    }

    /// <summary>Drops the object itself.</summary>
    protected abstract void Drop();

    protected sealed override bool ReleaseHandle() {
        ProcessEnd.Forget(registration);
        Drop();
        NativeMethods.sonimbra_engine_drop(NativeEngine);
        return true;
    }
}

}
