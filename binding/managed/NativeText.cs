// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Runtime.InteropServices;
using System.Text;

namespace Sonimbra {

/// <summary>
/// Texts on their way in and out. They go in as UTF-8 and come out in the system's default 8-bit
/// code page, which on Windows is another one as a rule.
/// </summary>
internal static class NativeText {
    /// <summary>Bytes of a text on its way in, its closing zero included.</summary>
    public const int BufferSize = 2024;

    /// <summary>
    /// Converts a text to UTF-8 with a closing zero; null stays null. The buffer is a new one for
    /// each text: while the library reads it, a callback may pass in the next.
    /// </summary>
    /// <returns>False when the text does not fit.</returns>
    public static bool TryEncode(string text, out byte[] buffer) {
        buffer = null;
        if (text == null) {
            return true;
        }
        // No character takes less than a byte: this keeps endless texts from being counted.
        if (text.Length >= BufferSize || Encoding.UTF8.GetByteCount(text) >= BufferSize) {
            return false;
        }
        buffer = new byte[BufferSize];
        Encoding.UTF8.GetBytes(text, 0, text.Length, buffer, 0);
        return true;
    }

    /// <summary>Reads a text of the library; null stays null.</summary>
    public static string Decode(IntPtr text) {
        try {
            return Marshal.PtrToStringAnsi(text);
        } catch (Exception) {
            return DecodeInvalid(text); // Mono throws at bytes that are no UTF-8
        }
    }

    private static string DecodeInvalid(IntPtr text) {
        int length = 0;
        while (Marshal.ReadByte(text, length) != 0) {
            ++length;
        }
        byte[] bytes = new byte[length];
        Marshal.Copy(text, bytes, 0, length);
        return Encoding.UTF8.GetString(bytes);
    }
}

}
