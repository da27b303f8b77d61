// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System.Reflection;
using System.Runtime.CompilerServices;
using System.Runtime.InteropServices;

[assembly: AssemblyTitle("Sonimbra")]
[assembly: AssemblyVersion("1.5.0.0")]
[assembly: AssemblyFileVersion("1.5.0.0")]
[assembly: AssemblyInformationalVersion("1.5.0")]
[assembly: ComVisible(false)]
[assembly: InternalsVisibleTo("Sonimbra.Tests")]
