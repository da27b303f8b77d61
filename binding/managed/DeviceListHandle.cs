// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;

namespace Sonimbra {

internal sealed class DeviceListHandle : NativeHandle {
    /// <summary>Adopts a reference; lists need no engine.</summary>
    public DeviceListHandle(IntPtr list) : base(list, IntPtr.Zero) {}

    protected override void Drop() {
        NativeMethods.sonimbra_device_list_drop(handle);
    }
}

}
