// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.IO;
using System.Runtime.InteropServices;

namespace Sonimbra {

/// <summary>
/// Makes a managed stream readable for the engine, which closes it by releasing the native
/// forwarder; that one also holds the file's name.
/// </summary>
internal sealed class StreamForwarder {
    private static NativeMethods.FileReaderCallbacks callbacks =
        new NativeMethods.FileReaderCallbacks {
            Read = Read,
            Seek = Seek,
            GetSize = GetSize,
            GetPos = GetPos,
            Release = Close,
        };

    private readonly Stream Stream;

    private StreamForwarder(Stream stream) {
        Stream = stream;
    }

    /// <summary>Creates a native reader, with one reference for the caller.</summary>
    public static IntPtr Create(Stream stream, IntPtr fileName) {
        return NativeMethods.sonimbra_file_reader_create(
            ref callbacks, Callbacks.CreateContext(new StreamForwarder(stream)), fileName);
    }

    private static Stream GetStream(IntPtr context) {
        return ProcessEnd.HasBegun ? Stream.Null
                                   : Callbacks.GetTarget<StreamForwarder>(context).Stream;
    }

    private static int Read(IntPtr context, IntPtr buffer, uint sizeToRead) {
        try {
            Stream stream = GetStream(context);
            if (!stream.CanRead) {
                return 0;
            }
            byte[] bytes = new byte[sizeToRead];
            int count = stream.Read(bytes, 0, bytes.Length);
            Marshal.Copy(bytes, 0, buffer, count); // throws when the stream reports nonsense
            return count;
        } catch (Exception) {
            return 0;
        }
    }

    private static bool Seek(IntPtr context, int finalPos, bool relativeMovement) {
        try {
            Stream stream = GetStream(context);
            if (!stream.CanSeek) {
                return false;
            }
            stream.Seek(finalPos, relativeMovement ? SeekOrigin.Current : SeekOrigin.Begin);
            return true;
        } catch (Exception) {
            return false;
        }
    }

    private static int GetSize(IntPtr context) {
        try {
            return unchecked((int)GetStream(context).Length);
        } catch (Exception) {
            return -1;
        }
    }

    private static int GetPos(IntPtr context) {
        try {
            return unchecked((int)GetStream(context).Position);
        } catch (Exception) {
            return -1;
        }
    }

    private static void Close(IntPtr context) {
        try {
            Callbacks.GetTarget<StreamForwarder>(context).Stream.Close();
        } catch (Exception) {
            // The stream's own; it must not reach the library.
        } finally {
            Callbacks.FreeContext(context);
        }
    }
}

}
