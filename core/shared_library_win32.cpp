// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/shared_library.h"

#include "core/wide_text_win32.h"

#include <windows.h>

namespace sn_internal {
namespace {

/// Keeps the system from telling the user about a broken library in a box that waits for a click.
class CSilentErrors {
public:
    CSilentErrors() { SetThreadErrorMode(GetThreadErrorMode() | SEM_FAILCRITICALERRORS, &Before); }
    ~CSilentErrors() { SetThreadErrorMode(Before, nullptr); }
    CSilentErrors(const CSilentErrors&) = delete;
    CSilentErrors& operator=(const CSilentErrors&) = delete;

private:
    DWORD Before = 0;
};

} // namespace

const char* const SharedLibrarySuffix = ".dll";

SSharedLibrary* loadSharedLibrary(const char* name) {
    const CSilentErrors silent;
    return reinterpret_cast<SSharedLibrary*>(LoadLibraryW(widened(name).c_str()));
}

LibraryFunction findFunction(SSharedLibrary* library, const char* name) {
    return reinterpret_cast<LibraryFunction>(
        GetProcAddress(reinterpret_cast<HMODULE>(library), name));
}

} // namespace sn_internal
