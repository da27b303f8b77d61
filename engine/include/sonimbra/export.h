// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

// SONIMBRA_API marks what the library exports. Define SONIMBRA_STATIC when linking the static
// archive; SONIMBRA_BUILDING is defined only while the shared library itself is compiled.
#if defined(SONIMBRA_STATIC)
#define SONIMBRA_API
#elif defined(_WIN32)
#if defined(SONIMBRA_BUILDING)
#define SONIMBRA_API __declspec(dllexport)
#else
#define SONIMBRA_API __declspec(dllimport)
#endif
#else
#define SONIMBRA_API __attribute__((visibility("default")))
#endif

// The calling convention of the flat interface's functions and callbacks.
#if defined(_WIN32)
#define SONIMBRA_CALL __cdecl
#else
#define SONIMBRA_CALL
#endif

// The entry point of plug-ins, which <sonimbra/plugin.h> defines for you:
//   SONIMBRA_PLUGIN_ENTRY_NAME  the name under which the library finds it
//   SONIMBRA_PLUGIN_CALL        its calling convention
//   SONIMBRA_PLUGIN_EXPORT      stands before the definition of a function sonimbraPluginInit and
//                               exports it under that name
#if defined(_WIN32)
#define SONIMBRA_PLUGIN_ENTRY_NAME "?sonimbraPluginInit@@YGXPAVISoundEngine@sonimbra@@PBD@Z"
#define SONIMBRA_PLUGIN_CALL __stdcall

// No compiler but the 32-bit one of Visual C++ makes that name by itself, so the function has a
// plain name, and a directive to the linker exports it under the other one.
#if defined(_MSC_VER) && defined(_M_IX86)
#define SONIMBRA_PLUGIN_SYMBOL "_sonimbraPluginInit@8"
#elif defined(__i386__)
#define SONIMBRA_PLUGIN_SYMBOL "sonimbraPluginInit@8" // the linker itself adds the underscore
#else
#define SONIMBRA_PLUGIN_SYMBOL "sonimbraPluginInit"
#endif
#if defined(_MSC_VER)
#define SONIMBRA_PLUGIN_EXPORT                                                                     \
    __pragma(comment(linker,                                                                       \
                     "/EXPORT:" SONIMBRA_PLUGIN_ENTRY_NAME "=" SONIMBRA_PLUGIN_SYMBOL)) extern "C"
#else
#define SONIMBRA_PLUGIN_EXPORT                                                                     \
    __asm__(".section .drectve\n"                                                                  \
            "\t.ascii \" -export:\\\"" SONIMBRA_PLUGIN_ENTRY_NAME "\\\"=" SONIMBRA_PLUGIN_SYMBOL   \
            "\"\n"                                                                                 \
            "\t.text\n");                                                                          \
    extern "C" __attribute__((used))
#endif

#else
#define SONIMBRA_PLUGIN_ENTRY_NAME "sonimbraPluginInit"
#define SONIMBRA_PLUGIN_CALL
#define SONIMBRA_PLUGIN_EXPORT extern "C" __attribute__((visibility("default")))
#endif
