// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

namespace sn_internal {

/// What the names of shared libraries contain on this system.
extern const char* const SharedLibrarySuffix;

/// A loaded library. None is ever unloaded: what it made may outlive whoever loaded it.
struct SSharedLibrary;

/// Loads a library by the name (UTF-8) of its file in the current folder. Returns null, without a
/// word to the user, when it is no library or one that it needs is missing.
SSharedLibrary* loadSharedLibrary(const char* name);

/// An exported function, to be cast to its real type; null when the library exports no such name.
using LibraryFunction = void (*)();
LibraryFunction findFunction(SSharedLibrary* library, const char* name);

} // namespace sn_internal
