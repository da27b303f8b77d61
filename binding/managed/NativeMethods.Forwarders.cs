// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Runtime.InteropServices;

namespace Sonimbra {

internal static partial class NativeMethods {
    [UnmanagedFunctionPointer(Convention)]
    internal delegate void Release(IntPtr context);

    [UnmanagedFunctionPointer(Convention)]
    internal delegate void OnSoundStopped(IntPtr context, IntPtr sound, StopEventCause cause,
                                          IntPtr userData);

    [UnmanagedFunctionPointer(Convention)]
    internal delegate IntPtr OpenFile(IntPtr context, IntPtr fileName);

    [UnmanagedFunctionPointer(Convention)]
    internal delegate int Read(IntPtr context, IntPtr buffer, uint sizeToRead);

    [UnmanagedFunctionPointer(Convention)]
    internal delegate bool Seek(IntPtr context, int finalPos, bool relativeMovement);

    [UnmanagedFunctionPointer(Convention)]
    internal delegate int GetNumber(IntPtr context);

    /// <summary>The library copies this; the delegates have to live on.</summary>
    [StructLayout(LayoutKind.Sequential)]
    internal struct FileReaderCallbacks {
        public Read Read;
        public Seek Seek;
        public GetNumber GetSize;
        public GetNumber GetPos;
        public Release Release;
    }

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_event_forwarder_create(OnSoundStopped callback,
                                                                  IntPtr context, Release release);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern void sonimbra_event_forwarder_destroy(IntPtr forwarder);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_file_factory_create(OpenFile open, IntPtr context,
                                                               Release release);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern int sonimbra_file_factory_drop(IntPtr factory);

    [DllImport(Library, CallingConvention = Convention)]
    internal static extern IntPtr sonimbra_file_reader_create(
        [In] ref FileReaderCallbacks callbacks, IntPtr context, IntPtr fileName);
}

}
