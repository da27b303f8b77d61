// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.IO;

namespace Sonimbra {

/// <summary>
/// Lets a managed factory open files for the engine. The native forwarder keeps this object, and so
/// the factory, until the engine ends.
/// </summary>
internal sealed class FileFactoryForwarder {
    private static readonly NativeMethods.OpenFile OpenCallback = CreateFileReader;
    private static readonly NativeMethods.Release ReleaseCallback = Callbacks.FreeContext;

    private readonly IFileFactory Factory;

    private FileFactoryForwarder(IFileFactory factory) {
        Factory = factory;
    }

    /// <summary>Creates a native forwarder, with one reference for the caller.</summary>
    public static IntPtr Create(IFileFactory factory) {
        return NativeMethods.sonimbra_file_factory_create(
            OpenCallback, Callbacks.CreateContext(new FileFactoryForwarder(factory)),
            ReleaseCallback);
    }

    private static IntPtr CreateFileReader(IntPtr context, IntPtr fileName) {
        try {
            if (ProcessEnd.HasBegun) {
                return IntPtr.Zero;
            }
            IFileFactory factory = Callbacks.GetTarget<FileFactoryForwarder>(context).Factory;
            Stream stream = factory.openFile(NativeText.Decode(fileName));
            return stream == null ? IntPtr.Zero : StreamForwarder.Create(stream, fileName);
        } catch (Exception) {
            return IntPtr.Zero; // as a file that the factory does not have
        }
    }
}

}
