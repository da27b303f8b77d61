// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/shared_library.h"

#include <string>

#include <dlfcn.h>

namespace sn_internal {

const char* const SharedLibrarySuffix = ".so";

SSharedLibrary* loadSharedLibrary(const char* name) {
    // A bare name would be looked for in the system's library folders, and not here.
    const std::string path = std::string("./") + name;
    return static_cast<SSharedLibrary*>(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL));
}

LibraryFunction findFunction(SSharedLibrary* library, const char* name) {
    return reinterpret_cast<LibraryFunction>(dlsym(library, name));
}

} // namespace sn_internal
