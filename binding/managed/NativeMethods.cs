// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Runtime.InteropServices;

namespace Sonimbra {

/// <summary>
/// The library's flat entry points, as sonimbra_c.h describes them. A null object is accepted
/// everywhere: the call then does nothing and returns 0 or null.
/// </summary>
internal static partial class NativeMethods {
    /// <summary>libsonimbra.so on Linux, sonimbra.dll on Windows.</summary>
    private const string Library = "sonimbra";
    private const CallingConvention Convention = CallingConvention.Cdecl;
    /// <summary>The interface that the declarations here describe.</summary>
    private const int InterfaceVersion = 1;

    /// <summary>The version that this binding belongs to, "1.5.0".</summary>
    internal static readonly byte[] Version = { 0x31, 0x2E, 0x35, 0x2E, 0x30, 0 };

    /// <summary>Every class that needs no other one calls this before anything else.</summary>
    /// <exception cref="InvalidOperationException">The library is another one.</exception>
    internal static void CheckLibrary() {
        CheckInterfaceVersion(sonimbra_get_interface_version());
    }

    internal static void CheckInterfaceVersion(int found) {
        if (found != InterfaceVersion) {
            throw new InvalidOperationException(
                "The native library \"" + Library + "\" has interface version " + found +
                ", but this Sonimbra assembly needs version " + InterfaceVersion +
                "; install those that belong together.");
        }
    }

    /// <summary>Copies native bytes; null stays null.</summary>
    internal static byte[] CopyBytes(IntPtr data, int size) {
        if (data == IntPtr.Zero) {
            return null;
        }
        byte[] bytes = new byte[size];
        Marshal.Copy(data, bytes, 0, size);
        return bytes;
    }

    [DllImport(Library, CallingConvention = Convention)]
    private static extern int sonimbra_get_interface_version();
}

}
