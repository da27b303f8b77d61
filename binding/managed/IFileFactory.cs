// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System.IO;

namespace Sonimbra {

/// <summary>
/// Opens files on the application's behalf, for example out of an archive. Install it with
/// <see cref="ISoundEngine.AddFileFactory"/>; the engine then asks it for every file before it
/// looks on disk.
/// </summary>
public interface IFileFactory {
    /// <summary>
    /// Opens a file. Called with the engine's lock held, on the thread that is inside a call into
    /// the engine or on the engine's own. An exception thrown here counts as null.
    /// </summary>
    /// <param name="filename">
    /// The name as it was passed to the engine, read in the system's default 8-bit code page.
    /// </param>
    /// <returns>
    /// A readable, seekable stream that belongs to the engine from then on: it is closed when the
    /// engine needs it no longer, and used on other threads. Files of 2 GiB and more are not
    /// supported. Null when this factory does not have the file: the next factory is asked, then
    /// the disk.
    /// </returns>
    Stream openFile(string filename);
}

}
